// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsrules.h"

#include "apt/versionorder.h"

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

QVector<Dependency> providerDependencies(const Dependency &dependency, const QVector<Provider> &providers)
{
    QMap<QString, Dependency> result;
    for (const Provider &provider : providers) {
        const bool decidedByVersion = !dependency.op.isEmpty() && !provider.providedVersion.isEmpty();
        if (provider.name == dependency.name
            || (decidedByVersion && !isSatisfiedBy(dependency, provider.providedVersion)))
            continue;
        Dependency standIn;
        standIn.name = provider.name;
        standIn.architecture = dependency.architecture;
        if (decidedByVersion) {
            standIn.op = QStringLiteral("=");
            standIn.version = provider.version;
        } else {
            standIn.op = dependency.op;
            standIn.version = dependency.version;
            standIn.secondOp = dependency.secondOp;
            standIn.secondVersion = dependency.secondVersion;
        }
        const auto known = result.constFind(provider.name);
        // Of several suitable versions the highest is used.
        if (known == result.cend() || known->op != standIn.op
            || VersionOrder::compare(known->version, standIn.version) < 0)
            result.insert(provider.name, standIn);
    }
    return result.values().toVector();
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

DependStatus packageStatus(const QVector<DependencyGroup> &groups)
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
