// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/gathering/gatherplan.h"

#include "core/countof.h"

#include <QSet>

#include <algorithm>

namespace
{
QString keyOf(const QString &name, const QString &version, const QString &architecture)
{
    return QStringList{name, version, architecture}.join(QLatin1Char(' '));
}
} // namespace

bool GatherPlan::isPresent(const Need &need) const
{
    const auto isOn = [this](int row) { return rows.at(row).isOn; };
    if (need.ownerRow >= 0)
        return isOn(need.ownerRow);
    return std::none_of(need.leavesWith.cbegin(), need.leavesWith.cend(), isOn);
}

QVector<GatherPlan::Left> GatherPlan::left() const
{
    const auto isOn = [this](int row) { return rows.at(row).isOn; };
    QVector<Left> left;
    for (const Need &need : needs) {
        const bool isMet = std::any_of(need.rows.cbegin(), need.rows.cend(), isOn)
                           || !std::all_of(need.keptWithout.cbegin(), need.keptWithout.cend(), isOn)
                           || !isPresent(need);
        if (isMet)
            continue;
        const Why why = !need.rows.isEmpty() ? Why::Off : need.why;
        left.append({need.owner, need.entry, why, need.details});
    }
    return left;
}

qint64 GatherPlan::size() const
{
    qint64 bytes = 0;
    for (const Row &row : rows)
        bytes += row.isOn ? row.size : 0;
    return bytes;
}

QList<PackageInfo> GatherPlan::packages() const
{
    QList<PackageInfo> packages;
    for (const Row &row : rows) {
        if (row.isOn)
            packages.append(row.package);
    }
    return packages;
}

QVector<int> GatherPlan::idleRows() const
{
    // From what the repository has: rows that need nothing but each other are idle together.
    QSet<int> used;
    for (int before = -1; before != used.size();) {
        before = countOf(used);
        for (const Need &need : needs) {
            const auto isOn = [this](int row) { return rows.at(row).isOn; };
            if (!isPresent(need) || (need.ownerRow >= 0 && !used.contains(need.ownerRow))
                || !std::all_of(need.keptWithout.cbegin(), need.keptWithout.cend(), isOn))
                continue;
            for (const int row : need.rows)
                if (!need.keptWithout.contains(row))
                    used.insert(row);
        }
    }
    QVector<int> idle;
    for (int row = 0; row < rows.size(); ++row) {
        if (rows.at(row).isOn && !used.contains(row))
            idle.append(row);
    }
    return idle;
}

GatherPlan GatherPlan::after(const QList<PackageInfoPtr> &present) const
{
    QSet<QString> keys;
    for (const PackageInfoPtr &package : present)
        keys.insert(keyOf(package->name, package->version, package->architecture));
    GatherPlan plan = *this;
    for (Row &row : plan.rows)
        row.isOn = keys.contains(keyOf(row.package.name, row.package.version, row.package.architecture));
    return plan;
}
