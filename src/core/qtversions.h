// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

#else

using Process = QProcess;

inline QString decodeUtf8(const QByteArray &bytes, bool *hasError)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(bytes);
    *hasError = decoder.hasError();
    return text;
}

#endif
} // namespace QtVersions
