// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/changepreview.h"

#include "core/qtversions.h"
#include "engine/repository/packagelist.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{
/** Rows that want one place in an index. Of a large repository it is quick, because hardly any do. */
class RowsByPlace
{
public:
    explicit RowsByPlace(const QVector<PreviewRow> &rows)
    {
        QVector<QtVersions::HashValue> hashes;
        hashes.reserve(rows.size());
        for (const PreviewRow &row : rows)
            hashes.append(row.verdict == PreviewRow::Refused ? 0 : qHash(placeOf(row.change)));
        QVector<QtVersions::HashValue> sorted = hashes;
        std::sort(sorted.begin(), sorted.end());
        QSet<QtVersions::HashValue> shared;
        for (int i = 1; i < sorted.size(); ++i)
            if (sorted.at(i) == sorted.at(i - 1))
                shared.insert(sorted.at(i));
        for (int i = 0; i < rows.size() && !shared.isEmpty(); ++i)
            if (shared.contains(hashes.at(i)) && rows.at(i).verdict != PreviewRow::Refused)
                m_rows[placeOf(rows.at(i).change)].append(i);
    }

    QVector<int> like(const PreviewRow &row) const
    {
        return m_rows.isEmpty() ? QVector<int>() : m_rows.value(placeOf(row.change));
    }

private:
    QHash<PackageKey, QVector<int>> m_rows;

    static PackageKey placeOf(const PackageChange &change)
    {
        return {change.name, change.component, change.architecture, change.type};
    }
};
} // namespace

bool ChangePreview::breaksSomething() const
{
    return !effect.lost.isEmpty() || std::any_of(rows.cbegin(), rows.cend(), [](const PreviewRow &row) {
        return row.takesPart() && row.relation == PreviewRow::Older;
    });
}

bool ChangePreview::changesSomething() const
{
    return !effect.description.isEmpty()
           || std::any_of(rows.cbegin(), rows.cend(), [](const PreviewRow &row) { return row.takesPart(); });
}

void ChangePreview::setOn(int row, bool on)
{
    setOn(QVector<int>{row}, on);
}

void ChangePreview::setOn(const QVector<int> &wanted, bool on)
{
    QHash<int, QVector<int>> groups;
    for (int i = 0; i < rows.size(); ++i)
        if (rows.at(i).group >= 0)
            groups[rows.at(i).group].append(i);
    const auto switchGroup = [&](int row, bool isOn) {
        const int group = rows.at(row).group;
        const QVector<int> together = group < 0 ? QVector<int>{row} : groups.value(group);
        for (const int i : together)
            rows[i].isOn = isOn;
        return together;
    };
    const RowsByPlace places(on ? rows : QVector<PreviewRow>());
    for (const int row : wanted) {
        if (row < 0 || row >= rows.size() || !rows.at(row).isSwitchable || rows.at(row).isOn == on)
            continue;
        effect.isKnown = false;
        const QVector<int> switched = switchGroup(row, on);
        if (!on)
            continue;
        for (const int i : switched)
            for (const int rival : places.like(rows.at(i)))
                if (rows.at(rival).isOn && rows.at(rival).isSwitchable && !switched.contains(rival))
                    switchGroup(rival, false);
    }
}

void ChangePreview::setOnForAll(PreviewRow::Relation relation, bool on)
{
    QVector<int> wanted;
    for (int i = 0; i < rows.size(); ++i)
        if (rows.at(i).verdict == PreviewRow::Collision && rows.at(i).relation == relation)
            wanted.append(i);
    setOn(wanted, on);
}
