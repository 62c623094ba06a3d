// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependencylacks.h"

#include "depends/localcandidates.h"

#include <algorithm>

namespace
{
bool isOfferedElsewhere(const Dependency &dependency)
{
    for (auto found = dependency.foundVersions.cbegin(); found != dependency.foundVersions.cend(); ++found) {
        if (found.key() != LocalCandidates::label() && found->status == DependSuccess)
            return true;
    }
    return std::any_of(dependency.providers.cbegin(), dependency.providers.cend(), isOfferedElsewhere);
}
} // namespace

void DependencyLacks::collect(const DependencyGroup &group, QVector<Dependency> *lacks)
{
    const QVector<Dependency> &choice = group.alternatives;
    if (group.status == DependUndefined || choice.isEmpty()
        || std::any_of(choice.cbegin(), choice.cend(), LocalCandidates::meets))
        return;
    const auto best = std::find_if(choice.cbegin(), choice.cend(), isOfferedElsewhere);
    const Dependency &wanted = best == choice.cend() ? choice.first() : *best;
    const bool isKnown = std::any_of(lacks->cbegin(), lacks->cend(), [&wanted](const Dependency &lack) {
        return lack.name == wanted.name && lack.architecture == wanted.architecture;
    });
    if (!isKnown)
        lacks->append(wanted);
}

QVector<Dependency> DependencyLacks::of(const QList<PackageInfoPtr> &packages)
{
    QVector<Dependency> lacks;
    for (const PackageInfoPtr &package : packages) {
        if (!package->hasDependsInfo())
            continue;
        for (const DependencyGroup &group : package->dependsInfo->groups)
            collect(group, &lacks);
    }
    return lacks;
}
