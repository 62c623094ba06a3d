// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsrules.h"

#include "depends/versionorder.h"

#include <algorithm>

namespace
{
bool holds(const QString &version, const QString &op, const QString &wanted)
{
    return op.isEmpty() || VersionOrder::holds(version, op, wanted);
}
} // namespace

namespace DependsRules
{
bool isSatisfiedBy(const Dependency &dependency, const QString &version)
{
    return holds(version, dependency.op, dependency.version)
           && holds(version, dependency.secondOp, dependency.secondVersion);
}

QMap<QString, FoundVersion> foundVersions(const Dependency &dependency, const QVector<Candidate> &candidates)
{
    QMap<QString, FoundVersion> result;
    for (const Candidate &candidate : candidates) {
        const FoundVersion offered{
            candidate.version, isSatisfiedBy(dependency, candidate.version) ? DependSuccess : DependError};
        FoundVersion &best = result[candidate.source];
        if (offered.status > best.status
            || (offered.status == best.status && VersionOrder::compare(offered.version, best.version) > 0))
            best = offered;
    }
    return result;
}

DependStatus dependencyStatus(const QMap<QString, FoundVersion> &found)
{
    const bool satisfied = std::any_of(found.cbegin(), found.cend(), [](const FoundVersion &version) {
        return version.status == DependSuccess;
    });
    return satisfied ? DependSuccess : DependError;
}

DependStatus groupStatus(const DependencyGroup &group)
{
    DependStatus status = DependUndefined;
    for (const Dependency &dependency : group.alternatives)
        status = std::max(status, dependency.status);
    return status;
}

DependStatus packageStatus(const QMap<QString, DependencyGroup> &groups)
{
    DependStatus status = DependSuccess;
    for (const DependencyGroup &group : groups) {
        if (group.status == DependError)
            return DependError;
        status = std::min(status, group.status);
    }
    return status;
}
} // namespace DependsRules
