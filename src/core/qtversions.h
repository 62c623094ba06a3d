// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QProcess>
#include <QString>

#include <functional>
#include <utility>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#else
#include <QStringDecoder>
#endif

/** All that has to be written differently for Qt 5 and Qt 6. */
namespace QtVersions
{
/** What qHash() returns and takes as its seed. */
using HashValue = decltype(qHash(QString()));

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/** A process with a hook that runs in the child, between fork and exec. */
class Process : public QProcess
{
public:
    using QProcess::QProcess;
    void setChildProcessModifier(std::function<void()> modifier) { m_modifier = std::move(modifier); }

protected:
    void setupChildProcess() override
    {
        if (m_modifier)
            m_modifier();
    }

private:
    std::function<void()> m_modifier;
};

/** Decodes UTF-8. A character that is cut off at the end of the bytes is not an error. */
inline QString decodeUtf8(const QByteArray &bytes, bool *hasError)
{
    QTextCodec::ConverterState state;
    QString text = QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    *hasError = state.invalidChars > 0;
    return text;
}

/** Before the application is made: draws in the screen's own resolution, as Qt 6 always does. */
inline void enableHighDpi()
{
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

/** Keeps Qt 5 from closing the windows at the end of a session and taking an ignored close for a refusal. */
template <typename Application>
void disableFallbackSessionManagement()
{
    Application::setFallbackSessionManagementEnabled(false);
}

/** The folder of Qt's own translations. */
inline QString translationsFolder()
{
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
}

/** Where a mouse or drop event happened, in the widget. */
template <typename Event>
auto positionOf(const Event &event)
{
    return event.pos();
}

/** The keys that were held down when something was dropped. */
template <typename Event>
auto modifiersOf(const Event &event)
{
    return event.keyboardModifiers();
}

#else

using Process = QProcess;

inline void enableHighDpi() { }

template <typename Application>
void disableFallbackSessionManagement()
{ }

inline QString translationsFolder()
{
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

template <typename Event>
auto positionOf(const Event &event)
{
    return event.position().toPoint();
}

template <typename Event>
auto modifiersOf(const Event &event)
{
    return event.modifiers();
}

inline QString decodeUtf8(const QByteArray &bytes, bool *hasError)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(bytes);
    *hasError = decoder.hasError();
    return text;
}

#endif
} // namespace QtVersions
