// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/checkscope.h"
#include "engine/repository/packagelist.h"

#include <QSet>

/**
 * The records that the scope has of these packages. A view can still hold a record that was replaced a moment ago, and
 * the engine knows packages by their records.
 */
inline QList<PackageInfoPtr> presentRecords(const CheckScope &scope, const QList<PackageInfoPtr> &packages)
{
    QSet<PackageKey> wanted;
    for (const PackageInfoPtr &package : packages)
        wanted.insert(PackageKey::of(*package));
    QList<PackageInfoPtr> present;
    for (const PackageInfoPtr &package : scope.repository.packages) {
        if (wanted.contains(PackageKey::of(*package)))
            present.append(package);
    }
    return present;
}

/** The same for one package; the given record when the package is gone. */
inline PackageInfoPtr presentRecord(const CheckScope &scope, const PackageInfoPtr &package)
{
    return presentRecords(scope, {package}).value(0, package);
}
