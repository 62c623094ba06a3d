// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/localsources.h"

#include <QFile>
#include <QStringList>

#include <algorithm>

bool LocalSources::contains(const QString &text, const QString &line)
{
    if (line.isEmpty())
        return false;
    const QStringList lines = text.split(QLatin1Char('\n'));
    return std::any_of(
        lines.cbegin(), lines.cend(), [&line](const QString &present) { return present.startsWith(line); });
}

QString LocalSources::appended(const QString &text, const QString &line)
{
    if (line.isEmpty() || contains(text, line))
        return text;
    // A file that was edited by hand may lack the last line end. The two lines would become one.
    const bool open = !text.isEmpty() && !text.endsWith(QLatin1Char('\n'));
    return text + (open ? QStringLiteral("\n") : QString()) + line + QLatin1Char('\n');
}

QString LocalSources::removed(const QString &text, const QString &line)
{
    if (line.isEmpty())
        return text;
    // Only whole lines are removed. Cutting the text out of a comment would make the next line a part of that comment.
    QStringList lines = text.split(QLatin1Char('\n'));
    const bool open = !lines.last().isEmpty();
    if (!open)
        lines.removeLast();
    const bool removedLast = !lines.isEmpty() && lines.last() == line;
    lines.removeAll(line);
    if (lines.isEmpty())
        return {};
    return lines.join(QLatin1Char('\n')) + (open && !removedLast ? QString() : QStringLiteral("\n"));
}

bool LocalSources::fileContains(const QString &line, const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && contains(QString::fromUtf8(file.readAll()), line);
}
