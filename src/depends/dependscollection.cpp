// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependscollection.h"

#include "apt/versionorder.h"
#include "core/settingskeys.h"
#include "depends/dependscheck.h"

#include <QSet>

#include <algorithm>

QList<PackageInfoPtr> localDependencies(const QList<PackageInfoPtr> &packages, const LocalCandidates &local)
{
    DependsParser parser;
    QList<PackageInfoPtr> collected = packages;
    QSet<PackageInfoPtr> known(packages.cbegin(), packages.cend());
    // The list grows during the loop, because an added package has dependencies too.
    for (int i = 0; i < collected.size(); ++i) {
        const PackageInfoPtr package = collected.at(i);
        const auto entries = parser.entries(*package);
        for (const DependencyGroup &entry : entries) {
            const Dependency &first = entry.alternatives.first();
            const auto found = local.find({first.name, first.architecture, package->type});
            const auto highest = std::max_element(
                found.cbegin(), found.cend(), [](const PackageInfoPtr &a, const PackageInfoPtr &b) {
                    return VersionOrder::compare(a->version, b->version) < 0;
                });
            if (highest == found.cend() || known.contains(*highest))
                continue;
            known.insert(*highest);
            collected.append(*highest);
        }
    }
    return collected.mid(packages.size());
}

QVector<UnmetEntry> unmetEntries(const QList<PackageInfoPtr> &packages, const StopRequest &stopped)
{
    QMap<QString, QSet<QString>> needing;
    const auto note = [&](const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result) {
        for (const DependencyGroup &group : result->groups)
            if (group.status != DependSuccess)
                needing[dependencyText(group, package->architecture)].insert(package->name);
    };
    LocalCandidates local(packages);
    DependsCheck(DependsLocal, &local, nullptr).run(packages, note, stopped);
    if (stopped && stopped())
        return {};
    QVector<UnmetEntry> unmet;
    for (auto it = needing.cbegin(); it != needing.cend(); ++it) {
        QStringList names = it->values();
        names.sort();
        unmet.append({it.key(), names});
    }
    return unmet;
}
