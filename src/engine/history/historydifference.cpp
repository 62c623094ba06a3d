// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/historydifference.h"

#include "core/countof.h"
#include "engine/repository/packagelist.h"

#include <QHash>

#include <algorithm>

namespace
{
PackageKey keyOf(const PackageChange &change)
{
    return {change.name, change.component, change.architecture, change.type};
}

/** Rows by their places in an index, in the order in which the places came. */
class Composition
{
public:
    void add(const PackageChange &change)
    {
        const PackageKey key = keyOf(change);
        const auto known = m_rows.constFind(key);
        if (known == m_rows.cend()) {
            m_rows.insert(key, countOf(m_changes));
            m_changes.append(change);
            return;
        }
        PackageChange &earlier = m_changes[*known];
        earlier.after = change.after;
        earlier.origin = change.origin;
    }

    QVector<PackageChange> changes() const
    {
        QVector<PackageChange> effective;
        for (PackageChange change : m_changes) {
            if (change.before == change.after)
                continue;
            change.kind = change.before.isNone()  ? PackageChange::Added
                          : change.after.isNone() ? PackageChange::Removed
                                                  : PackageChange::Replaced;
            effective.append(change);
        }
        return effective;
    }

private:
    QVector<PackageChange> m_changes;
    QHash<PackageKey, int> m_rows;
};
} // namespace

std::optional<QVector<PackageChange>>
HistoryDifference::between(const QVector<RestorePoint> &points, int from, int to)
{
    if (from > to) {
        auto back = between(points, to, from);
        return back ? std::optional(inverted(*back)) : std::nullopt;
    }
    Composition composition;
    int expected = from;
    for (auto point = points.crbegin(); point != points.crend() && point->number < to; ++point) {
        if (point->number < from)
            continue;
        if (point->number != expected || !point->isReadable)
            return std::nullopt;
        ++expected;
        for (const PackageChange &change : point->changes)
            composition.add(change);
    }
    if (expected != to && (to != Now || (expected == from && from != Now)))
        return std::nullopt;
    return composition.changes();
}

QVector<PackageChange> HistoryDifference::composed(const QVector<PackageChange> &first,
                                                   const QVector<PackageChange> &second)
{
    Composition composition;
    for (const auto *changes : {&first, &second})
        for (const PackageChange &change : *changes)
            composition.add(change);
    return composition.changes();
}

QVector<PackageChange> HistoryDifference::inverted(const QVector<PackageChange> &changes)
{
    QVector<PackageChange> back = changes;
    for (PackageChange &change : back) {
        std::swap(change.before, change.after);
        change.origin.clear();
        if (change.kind != PackageChange::Replaced)
            change.kind = change.kind == PackageChange::Added ? PackageChange::Removed : PackageChange::Added;
    }
    return back;
}

QVector<RestorePoint> HistoryDifference::ofPackage(const QVector<RestorePoint> &points, const QString &name)
{
    if (name.isEmpty())
        return points;
    QVector<RestorePoint> filtered;
    for (const RestorePoint &point : points) {
        QVector<PackageChange> changes;
        std::copy_if(point.changes.cbegin(),
                     point.changes.cend(),
                     std::back_inserter(changes),
                     [&name](const PackageChange &change) { return change.name == name; });
        if (changes.isEmpty())
            continue;
        filtered.append(point);
        filtered.last().changes = changes;
    }
    return filtered;
}
