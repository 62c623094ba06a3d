// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/packagechange.h"

#include "engine/repository/packagelist.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{
PackageChange changeOf(const PackageInfo &package, PackageChange::Kind kind)
{
    PackageChange change;
    change.kind = kind;
    change.name = package.name;
    change.type = package.type;
    change.component = package.indexComponent;
    change.architecture = package.architecture;
    return change;
}
} // namespace

PackageChange::State PackageChange::stateOf(const PackageInfo &package)
{
    const QString file = package.filePath();
    State state;
    state.version = package.version;
    state.file = file.startsWith(package.root + QLatin1Char('/')) ? file.mid(package.root.size() + 1) : file;
    state.sha256 = package.control.field("SHA256");
    state.size = package.control.field("Size").toLongLong();
    return state;
}

QVector<PackageChange>
PackageChange::between(const QList<PackageInfoPtr> &before, const QList<PackageInfoPtr> &after, Equal equal)
{
    // A job leaves most records untouched: they are the same objects in both lists, most of them in the same places.
    const auto start = std::mismatch(before.cbegin(), before.cend(), after.cbegin(), after.cend());
    QSet<const PackageInfo *> gone;
    for (auto package = start.first; package != before.cend(); ++package)
        gone.insert(package->data());
    QHash<PackageKey, PackageInfoPtr> changed;
    for (auto package = start.second; package != after.cend(); ++package)
        if (!gone.remove(package->data()))
            changed.insert(PackageKey::of(**package), *package);

    QVector<PackageChange> changes;
    for (auto package = start.first; package != before.cend(); ++package) {
        if (!gone.contains(package->data()))
            continue;
        const PackageInfoPtr successor = changed.take(PackageKey::of(**package));
        PackageChange change = changeOf(**package, successor ? Replaced : Removed);
        change.before = stateOf(**package);
        if (successor)
            change.after = stateOf(*successor);
        if (!successor || equal == Kept || !(change.before == change.after))
            changes.append(change);
    }
    for (auto package = start.second; package != after.cend() && !changed.isEmpty(); ++package) {
        // When an index lists a package twice, the later record counts.
        if (changed.value(PackageKey::of(**package)) != *package)
            continue;
        changed.remove(PackageKey::of(**package));
        PackageChange change = changeOf(**package, Added);
        change.after = stateOf(**package);
        changes.append(change);
    }
    return changes;
}
