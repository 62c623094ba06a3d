// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependscollection.h"

#include "apt/versionorder.h"
#include "core/settingskeys.h"
#include "depends/dependscheck.h"

#include <QSet>

#include <algorithm>

namespace
{
/** The results of the packages' entries when these packages are all that there is. */
using Results = QHash<PackageInfoPtr, QSharedPointer<const DependsInfo>>;

Results
resultsAmong(LocalCandidates *candidates, const QList<PackageInfoPtr> &packages, const StopRequest &stopped)
{
    Results results;
    const auto note
        = [&results](const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result) {
              results.insert(package, result);
          };
    DependsCheck(DependsLocal, candidates, nullptr).run(packages, note, stopped);
    return results;
}

/** The package that meets the dependency, according to a check among the candidates; null when none does. */
PackageInfoPtr meeting(const Dependency &dependency, PackageType type, const LocalCandidates &candidates)
{
    const FoundVersion found = dependency.foundVersions.value(LocalCandidates::label());
    if (found.status == DependSuccess) {
        for (const PackageInfoPtr &package :
             candidates.find({dependency.name, dependency.architecture, type}))
            if (package->version == found.version)
                return package;
    }
    for (const Dependency &provider : dependency.providers)
        if (provider.status == DependSuccess)
            return meeting(provider, type, candidates);
    return {};
}
} // namespace

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

QList<PackageInfoPtr> missingDependencies(const QList<PackageInfoPtr> &packages,
                                          const QList<PackageInfoPtr> &present,
                                          const QList<PackageInfoPtr> &offered,
                                          const StopRequest &stopped)
{
    LocalCandidates source(offered);
    QList<PackageInfoPtr> missing;
    QSet<PackageInfoPtr> known(packages.cbegin(), packages.cend());
    for (QList<PackageInfoPtr> open = packages; !open.isEmpty() && !(stopped && stopped());) {
        LocalCandidates target(present + packages + missing);
        const Results inTarget = resultsAmong(&target, open, stopped);
        const Results inSource = resultsAmong(&source, open, stopped);
        const QList<PackageInfoPtr> asked = open;
        open.clear();
        for (const PackageInfoPtr &package : asked) {
            const auto unmet = inTarget.value(package);
            const auto offers = inSource.value(package);
            if (!unmet || !offers)
                continue;
            // The same entries of the same package, in the same order.
            for (int i = 0; i < unmet->groups.size(); ++i) {
                if (unmet->groups.at(i).status == DependSuccess || i >= offers->groups.size())
                    continue;
                for (const Dependency &alternative : offers->groups.at(i).alternatives) {
                    if (alternative.status != DependSuccess)
                        continue;
                    const PackageInfoPtr found = meeting(alternative, package->type, source);
                    if (found && !known.contains(found)) {
                        known.insert(found);
                        open.append(found);
                    }
                    break;
                }
            }
        }
        missing += open;
    }
    return missing;
}
