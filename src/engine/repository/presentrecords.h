// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/packagelist.h"

#include <QSet>

/** The present records of those of the packages that the list still has, each once, in the order of `packages`. */
inline QList<PackageInfoPtr> presentRecords(const PackageList &list, const QList<PackageInfoPtr> &packages)
{
    QList<PackageInfoPtr> records;
    QSet<PackageInfoPtr> seen;
    for (const PackageInfoPtr &package : packages) {
        const PackageInfoPtr record = list.find(PackageKey::of(*package));
        if (!record || seen.contains(record))
            continue;
        seen.insert(record);
        records.append(record);
    }
    return records;
}
