// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/historytext.h"

#include "core/countof.h"

#include <QLocale>
#include <QStringList>

void HistoryText::Counts::add(PackageChange::Kind kind)
{
    switch (kind) {
    case PackageChange::Added:
        ++added;
        break;
    case PackageChange::Replaced:
        ++replaced;
        break;
    case PackageChange::Removed:
        ++removed;
        break;
    }
}

HistoryText::Counts HistoryText::Counts::of(const QVector<PackageChange> &changes)
{
    Counts counts;
    for (const PackageChange &change : changes)
        counts.add(change.kind);
    return counts;
}

QString HistoryText::counts(const Counts &counts)
{
    QStringList parts;
    if (counts.added > 0)
        parts << tr("%n added", nullptr, counts.added);
    if (counts.replaced > 0)
        parts << tr("%n replaced", nullptr, counts.replaced);
    if (counts.removed > 0)
        parts << tr("%n removed", nullptr, counts.removed);
    return parts.isEmpty() ? tr("no package changed") : parts.join(QLatin1String(", "));
}

QString HistoryText::kind(PackageChange::Kind kind)
{
    switch (kind) {
    case PackageChange::Added:
        return tr("Added");
    case PackageChange::Replaced:
        return tr("Replaced");
    case PackageChange::Removed:
        return tr("Removed");
    }
    return {};
}

QString HistoryText::time(const RestorePoint &point)
{
    return point.time.isValid() ? QLocale().toString(point.time.toLocalTime(), QLocale::ShortFormat)
                                : tr("Unknown time");
}

QString HistoryText::title(const RestorePoint &point)
{
    if (!point.isReadable)
        return tr("The record is damaged");
    if (point.kind == RestorePoint::Outside)
        return tr("Changed by another program");
    if (!point.summary.isEmpty())
        return point.summary;
    return point.kind == RestorePoint::Return ? tr("Gone back") : tr("Changed");
}

QString HistoryText::change(const RestorePoint &point, const Counts &counts)
{
    if (!point.isReadable)
        return title(point);
    QStringList parts;
    if (counts.all() > 0 || !point.changesDescription)
        parts << HistoryText::counts(counts);
    if (point.changesDescription)
        parts << tr("description changed");
    return tr("%1: %2").arg(title(point), parts.join(QLatin1String(", ")));
}

QString HistoryText::state(const RestorePoint &point)
{
    if (point.isKept)
        return tr("Kept (%1)").arg(QLocale().formattedDataSize(point.size));
    return point.reason.isEmpty() ? tr("Not kept") : tr("Not kept: %1").arg(point.reason);
}

QString HistoryText::before(const RestorePoint &point)
{
    return tr("Before %1: %2").arg(time(point), title(point));
}

QString HistoryText::firstRows(const QVector<PackageChange> &changes)
{
    constexpr int Most = 5;
    QStringList lines;
    for (const PackageChange &change : changes.mid(0, Most)) {
        const QString name = tr("%1 (%2)").arg(change.name, change.architecture);
        switch (change.kind) {
        case PackageChange::Added:
            lines << tr("%1: added, version %2").arg(name, change.after.version);
            break;
        case PackageChange::Replaced:
            lines << tr("%1: %2 becomes %3").arg(name, change.before.version, change.after.version);
            break;
        case PackageChange::Removed:
            lines << tr("%1: removed, version %2").arg(name, change.before.version);
            break;
        }
    }
    if (changes.size() > Most)
        lines << tr("and %n more", nullptr, countOf(changes) - Most);
    return lines.join(QLatin1Char('\n'));
}
