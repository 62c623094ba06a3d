// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsoffers.h"

#include "apt/versionorder.h"
#include "depends/dependsrules.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace
{
PackageQuestion questionFor(const Dependency &dependency)
{
    return {dependency.name, dependency.architecture, PackageType::Deb};
}

QVector<PackageQuestion> questionsFor(const QVector<Dependency> &dependencies)
{
    QVector<PackageQuestion> questions;
    for (const Dependency &dependency : dependencies)
        questions.append(questionFor(dependency));
    return questions;
}

/** The highest version of the package itself that meets the dependency. */
std::optional<PackageInfo> bestByName(const Dependency &dependency, const CandidateSource &source)
{
    std::optional<PackageInfo> best;
    const auto candidates = source.candidates(questionFor(dependency));
    for (const Candidate &candidate : candidates) {
        if (!DependsRules::isSatisfiedBy(dependency, candidate.version)
            || (best && VersionOrder::compare(candidate.version, best->version) <= 0))
            continue;
        best.emplace();
        best->name = dependency.name;
        best->version = candidate.version;
        best->architecture = dependency.architecture;
        best->repository = candidate.source;
    }
    return best;
}
} // namespace

DependsOffers
findOffers(const QVector<Dependency> &dependencies, CandidateSource *source, const StopRequest &stopped)
{
    source->prefetch(questionsFor(dependencies), stopped);
    QVector<Dependency> unknown;
    for (const Dependency &dependency : dependencies) {
        if (!bestByName(dependency, *source))
            unknown.append(dependency);
    }
    source->prefetchProviders(questionsFor(unknown), stopped);
    const auto standIns = [source](const Dependency &dependency) {
        return DependsRules::providerDependencies(dependency, source->providers(questionFor(dependency)));
    };
    QVector<PackageQuestion> questions;
    for (const Dependency &dependency : std::as_const(unknown))
        questions += questionsFor(standIns(dependency));
    source->prefetch(questions, stopped);

    DependsOffers result;
    for (const Dependency &dependency : dependencies) {
        auto best = bestByName(dependency, *source);
        if (!best) {
            const auto providers = standIns(dependency);
            for (auto it = providers.cbegin(); it != providers.cend() && !best; ++it)
                best = bestByName(*it, *source);
        }
        if (!best) {
            result.missing.append(dependency);
            continue;
        }
        const bool known = std::any_of(
            result.packages.cbegin(), result.packages.cend(), [&best](const PackageInfo &package) {
                return package.name == best->name && package.version == best->version
                       && package.architecture == best->architecture;
            });
        if (!known)
            result.packages.append(*best);
    }
    return result;
}
