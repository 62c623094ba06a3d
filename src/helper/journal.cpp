// SPDX-License-Identifier: GPL-3.0-or-later
#include "helper/journal.h"

#include <QMessageLogContext>

#include <unistd.h>

namespace
{
constexpr int Longest = 300;

QString escaped(const QString &text)
{
    QString plain;
    for (const QChar character : text) {
        // Line ends and control characters are not printable, and neither are marks that change the writing direction.
        if (character.isPrint() || character.isSurrogate())
            plain += character;
        else
            plain += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
    return plain;
}

void writeMessage(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    switch (type) {
    case QtDebugMsg:
        return;
    case QtInfoMsg:
        Journal::write(Journal::Info, text);
        return;
    case QtWarningMsg:
        Journal::write(Journal::Warning, text);
        return;
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    Journal::write(Journal::Error, text);
}
} // namespace

void Journal::write(Priority priority, const QString &text)
{
    const QByteArray line = '<' + QByteArray::number(priority) + '>' + escaped(text).toUtf8() + '\n';
    // One write for the whole line, so that lines of two threads do not mix. A failure cannot be reported anywhere.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, line.constData(), size_t(line.size()));
}

QString Journal::quoted(const QString &text)
{
    QString plain = text.left(Longest);
    plain.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    return QLatin1Char('"') + escaped(plain)
           + (text.size() > Longest ? QStringLiteral("\"... (%1 characters)").arg(text.size())
                                    : QStringLiteral("\""));
}

void Journal::takeMessages()
{
    qInstallMessageHandler(writeMessage);
}
