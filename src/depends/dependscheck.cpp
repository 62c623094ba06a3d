// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependscheck.h"

#include "core/settingskeys.h"
#include "depends/dependsrules.h"

#include <QSet>

#include <algorithm>

namespace
{
/**
 * Packages whose questions are put to the sources at once. The first results come soon, and as most of what is asked
 * for is known after a while, later blocks can be large: it is the number of apt's runs that takes time.
 */
constexpr int FirstBlock = 500;
constexpr int LargestBlock = 8000;

PackageQuestion questionFor(const Dependency &dependency, PackageType type)
{
    return {dependency.name, dependency.architecture, type};
}

bool isStopped(const StopRequest &stopped)
{
    return stopped && stopped();
}
} // namespace

DependsCheck::DependsCheck(int selection, CandidateSource *local, CandidateSource *apt)
{
    if (selection == DependsNowhere)
        return;
    if (local != nullptr && (selection & DependsLocal) != 0) {
        m_sources.append(local);
        // apt knows nothing of what the packages of a repository provide that is not among its sources.
        m_providerSources.append(local);
    }
    if (apt != nullptr && (selection & DependsPublic) != 0)
        m_sources.append(apt);
    if (apt != nullptr)
        m_providerSources.append(apt);
}

int DependsCheck::run(const QList<PackageInfoPtr> &packages, const Sink &sink, const StopRequest &stopped)
{
    if (m_sources.isEmpty())
        return 0;
    int checked = 0;
    for (int size = FirstBlock; checked < packages.size(); size = std::min(size * 2, LargestBlock)) {
        const auto block = packages.mid(checked, size);
        QVector<QSharedPointer<DependsInfo>> results;
        results.reserve(block.size());
        for (const PackageInfoPtr &package : block) {
            results.append(QSharedPointer<DependsInfo>::create());
            results.last()->groups = m_parser.groups(*package);
        }
        if (!findOut(results, block, stopped))
            return checked;
        for (int i = 0; i < block.size(); ++i) {
            if (isStopped(stopped))
                return checked;
            fillIn(*results.at(i), block.at(i)->type);
            sink(block.at(i), results.at(i));
            ++checked;
        }
    }
    return checked;
}

bool DependsCheck::findOut(const QVector<QSharedPointer<DependsInfo>> &results,
                           const QList<PackageInfoPtr> &packages,
                           const StopRequest &stopped)
{
    QVector<Key> keys;
    QSet<Key> seen;
    for (int i = 0; i < results.size(); ++i) {
        const auto &groups = qAsConst(results.at(i)->groups);
        for (const DependencyGroup &group : groups) {
            for (const Dependency &dependency : group.alternatives) {
                const Key key{dependency, packages.at(i)->type};
                if (m_known.contains(key) || seen.contains(key))
                    continue;
                seen.insert(key);
                keys.append(key);
            }
        }
    }
    auto checkedKeys = keys;
    checkByName(checkedKeys, stopped);
    checkProviders(checkedKeys, stopped);
    // Half an answer would pass for a missing package.
    if (isStopped(stopped))
        return false;
    for (int i = 0; i < keys.size(); ++i)
        m_known.insert(keys.at(i), checkedKeys.at(i).wanted);
    return true;
}

void DependsCheck::checkByName(QVector<Key> &keys, const StopRequest &stopped) const
{
    QVector<PackageQuestion> questions;
    QSet<PackageQuestion> asked;
    for (const Key &key : qAsConst(keys)) {
        const PackageQuestion question = questionFor(key.wanted, key.type);
        if (asked.contains(question))
            continue;
        asked.insert(question);
        questions.append(question);
    }
    for (CandidateSource *const source : m_sources)
        source->prefetch(questions, stopped);
    for (Key &key : keys) {
        QVector<Candidate> candidates;
        for (const CandidateSource *const source : m_sources) {
            const auto offered = source->candidates(questionFor(key.wanted, key.type));
            for (const Candidate &candidate : offered)
                candidates.append(candidate);
        }
        key.wanted.foundVersions = DependsRules::foundVersions(key.wanted, candidates);
        key.wanted.status = DependsRules::dependencyStatus(key.wanted.foundVersions);
    }
}

void DependsCheck::checkProviders(QVector<Key> &keys, const StopRequest &stopped) const
{
    QVector<int> wanting;
    for (int i = 0; i < keys.size(); ++i) {
        if (keys.at(i).wanted.status != DependSuccess)
            wanting.append(i);
    }
    for (CandidateSource *const source : m_providerSources) {
        checkProviders(keys, wanting, *source, stopped);
        // What could be had elsewhere as well is of interest only where elsewhere counts.
        if (m_sources.contains(source) && m_sources.size() == 1) {
            const auto isMet = [&keys](int i) { return keys.at(i).wanted.status == DependSuccess; };
            wanting.erase(std::remove_if(wanting.begin(), wanting.end(), isMet), wanting.end());
        }
    }
}

void DependsCheck::checkProviders(QVector<Key> &keys,
                                  const QVector<int> &wanting,
                                  CandidateSource &source,
                                  const StopRequest &stopped) const
{
    QVector<PackageQuestion> questions;
    for (const int i : wanting)
        questions.append(questionFor(keys.at(i).wanted, keys.at(i).type));
    source.prefetchProviders(questions, stopped);

    QVector<Key> providers;
    QVector<int> wantedBy;
    for (const int i : wanting) {
        const Key &key = keys.at(i);
        const auto standIns = DependsRules::providerDependencies(
            key.wanted, source.providers(questionFor(key.wanted, key.type)));
        for (const Dependency &standIn : standIns) {
            providers.append({standIn, key.type});
            wantedBy.append(i);
        }
    }
    checkByName(providers, stopped);
    for (int i = 0; i < providers.size(); ++i) {
        const Dependency &provider = providers.at(i).wanted;
        Dependency &wanted = keys[wantedBy.at(i)].wanted;
        // The other source may have found another version of it to do.
        if (wanted.providers.value(provider.name).status < provider.status)
            wanted.providers.insert(provider.name, provider);
        wanted.status = std::max(wanted.status, provider.status);
    }
}

void DependsCheck::fillIn(DependsInfo &result, PackageType type) const
{
    for (DependencyGroup &group : result.groups) {
        for (Dependency &dependency : group.alternatives)
            dependency = m_known.value(Key{dependency, type}, dependency);
        group.status = DependsRules::groupStatus(group);
    }
    result.status = DependsRules::packageStatus(result.groups);
}
