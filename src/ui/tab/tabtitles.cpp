// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/tabtitles.h"

#include <QDir>

namespace
{
/** The last `count` parts of a path, or the whole path when it has fewer. */
QString tail(const QString &path, int count)
{
    const QString parts = path.section(QLatin1Char('/'), -count);
    return parts.isEmpty() ? path : parts;
}
} // namespace

QStringList TabTitles::of(const QStringList &paths)
{
    QStringList clean;
    QStringList titles;
    for (const QString &path : paths) {
        clean << QDir::cleanPath(path);
        titles << tail(clean.last(), 1);
    }
    bool grew = true;
    for (int parts = 2; grew; ++parts) {
        grew = false;
        const QStringList before = titles;
        for (int i = 0; i < titles.size(); ++i) {
            const QString longer = tail(clean.at(i), parts);
            if (before.count(before.at(i)) < 2 || longer == before.at(i))
                continue;
            titles[i] = longer;
            grew = true;
        }
    }
    return titles;
}
