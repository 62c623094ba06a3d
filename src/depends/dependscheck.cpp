// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependscheck.h"

#include "core/countof.h"
#include "core/settingskeys.h"
#include "depends/dependsrules.h"

#include <QSet>

#include <algorithm>
#include <atomic>
#include <utility>

namespace
{
/**
 * Number of packages whose questions go to the sources together. The first block is small, so that first results come
 * soon. Later blocks can be large, because most answers are known by then, and the time depends on the number of apt's
 * runs.
 */
constexpr int FirstBlock = 500;
constexpr int LargestBlock = 8000;
/** Number of questions that apt answers in a fraction of a second. Results arrive after each such run. */
constexpr int QuestionsAtOnce = 2000;
/** With so many packages, apt is asked in nearly every case and has time to prepare. */
constexpr int ManyPackages = 5000;

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
    : m_selection(selection)
    , m_apt(apt)
{
    if (selection == DependsNowhere)
        return;
    if (local != nullptr && (selection & DependsLocal) != 0) {
        m_sources.append(local);
        // apt does not know what the packages of a repository provide when the repository is not among its sources.
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
    int handedOut = 0;
    const auto count = [&](const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result) {
        sink(package, result);
        ++handedOut;
    };
    std::atomic<bool> hasEnded(false);
    if (asksLocalOnly() && m_apt != nullptr && packages.size() >= ManyPackages)
        m_aptIsReady = std::async(std::launch::async,
                                  [&] { m_apt->getReady([&] { return hasEnded || isStopped(stopped); }); });
    // The repository answers at once. With one block for everything, apt is asked in the fewest runs.
    int size = asksLocalOnly() ? countOf(packages) : FirstBlock;
    for (int first = 0; first < packages.size(); first += size, size = std::min(size * 2, LargestBlock)) {
        if (!checkBlock(packages.mid(first, size), count, stopped))
            break;
    }
    hasEnded = true;
    m_aptIsReady = {};
    return handedOut;
}

bool DependsCheck::checkBlock(const QList<PackageInfoPtr> &packages,
                              const Sink &sink,
                              const StopRequest &stopped)
{
    QVector<Key> keys;
    const QVector<Entry> entries = read(packages, &keys, stopped);
    QVector<Key> unmet;
    QVector<Entry> waiting;
    auto next = entries.cbegin();
    for (int asked = 0; next != entries.cend();) {
        auto some = keys.mid(asked, QuestionsAtOnce);
        if (!checkByName(some, stopped))
            return false;
        asked += countOf(some);
        for (const Key &key : std::as_const(some)) {
            if (key.wanted.status == DependSuccess)
                m_known.insert(key, {key.wanted});
            else
                unmet.append(key);
        }
        for (; next != entries.cend() && next->keyCount <= asked; ++next) {
            if (isStopped(stopped))
                return false;
            if (!handOut(*next, sink))
                waiting.append(*next);
        }
    }
    // Each run of apt costs its start.
    const int together = asksLocalOnly() ? countOf(unmet) : QuestionsAtOnce;
    for (int asked = 0; asked < unmet.size(); asked += together) {
        auto some = unmet.mid(asked, together);
        if (!checkProviders(some, stopped))
            return false;
        for (const Key &key : std::as_const(some))
            m_known.insert(key, {key.wanted});
        const auto asking = std::exchange(waiting, {});
        for (const Entry &entry : asking) {
            if (isStopped(stopped))
                return false;
            if (!handOut(entry, sink))
                waiting.append(entry);
        }
    }
    return true;
}

QVector<DependsCheck::Entry>
DependsCheck::read(const QList<PackageInfoPtr> &packages, QVector<Key> *keys, const StopRequest &stopped)
{
    QVector<Entry> entries;
    entries.reserve(packages.size());
    QHash<Key, QVector<Dependency>> seen;
    for (const PackageInfoPtr &package : packages) {
        if (isStopped(stopped))
            break;
        const auto result = QSharedPointer<DependsInfo>::create();
        result->selection = m_selection;
        result->groups = m_parser.groups(*package);
        for (DependencyGroup &group : result->groups) {
            const bool isSingle = group.alternatives.size() == 1;
            for (const Dependency &dependency : std::as_const(group.alternatives)) {
                const Key key{dependency, package->type};
                if (m_known.contains(key))
                    continue;
                const auto known = seen.constFind(key);
                if (known == seen.cend()) {
                    seen.insert(key, isSingle ? group.alternatives : QVector<Dependency>{dependency});
                    keys->append(key);
                } else if (isSingle) {
                    // Entries that wait for the same result share their memory.
                    group.alternatives = *known;
                    break;
                }
            }
        }
        entries.append({package, result, countOf(*keys)});
    }
    return entries;
}

bool DependsCheck::checkByName(QVector<Key> &keys, const StopRequest &stopped) const
{
    QVector<PackageQuestion> questions;
    QSet<PackageQuestion> asked;
    for (const Key &key : std::as_const(keys)) {
        const PackageQuestion question = questionFor(key.wanted, key.type);
        if (asked.contains(question))
            continue;
        asked.insert(question);
        questions.append(question);
    }
    for (CandidateSource *const source : m_sources) {
        if (!source->prefetch(questions, stopped))
            return false;
    }
    for (Key &key : keys) {
        const PackageQuestion question = questionFor(key.wanted, key.type);
        QVector<Candidate> candidates;
        bool isAnswered = true;
        for (const CandidateSource *const source : m_sources) {
            isAnswered = isAnswered && source->canAnswer(question);
            const auto offered = source->candidates(question);
            for (const Candidate &candidate : offered)
                candidates.append(candidate);
        }
        key.wanted.foundVersions = DependsRules::foundVersions(key.wanted, candidates);
        key.wanted.status = DependsRules::dependencyStatus(key.wanted.foundVersions);
        if (key.wanted.status == DependError && !isAnswered)
            key.wanted.status = DependUndefined;
    }
    return true;
}

bool DependsCheck::checkProviders(QVector<Key> &keys, const StopRequest &stopped)
{
    QVector<int> wanting;
    for (int i = 0; i < keys.size(); ++i) {
        if (keys.at(i).wanted.status != DependSuccess)
            wanting.append(i);
    }
    for (CandidateSource *const source : std::as_const(m_providerSources)) {
        if (source == m_apt && m_aptIsReady.valid())
            m_aptIsReady.get();
        if (!checkProviders(keys, wanting, *source, stopped))
            return false;
        // If another source counts too, its providers are listed as well, even for a dependency that is met.
        if (m_sources.contains(source) && m_sources.size() == 1) {
            const auto isMet = [&keys](int i) { return keys.at(i).wanted.status == DependSuccess; };
            wanting.erase(std::remove_if(wanting.begin(), wanting.end(), isMet), wanting.end());
        }
    }
    return true;
}

bool DependsCheck::checkProviders(QVector<Key> &keys,
                                  const QVector<int> &wanting,
                                  CandidateSource &source,
                                  const StopRequest &stopped) const
{
    QVector<PackageQuestion> questions;
    for (const int i : wanting)
        questions.append(questionFor(keys.at(i).wanted, keys.at(i).type));
    if (!source.prefetchProviders(questions, stopped))
        return false;

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
    if (!checkByName(providers, stopped))
        return false;
    for (int i = 0; i < providers.size(); ++i) {
        const Dependency &provider = providers.at(i).wanted;
        Dependency &wanted = keys[wantedBy.at(i)].wanted;
        // The other source may have found a suitable version of this provider.
        if (wanted.providers.value(provider.name).status < provider.status)
            wanted.providers.insert(provider.name, provider);
        wanted.status = std::max(wanted.status, provider.status);
    }
    return true;
}

bool DependsCheck::handOut(const Entry &entry, const Sink &sink) const
{
    DependsInfo &result = *entry.result;
    for (DependencyGroup &group : result.groups) {
        if (group.alternatives.size() == 1) {
            const auto known = m_known.constFind(Key{group.alternatives.constFirst(), entry.package->type});
            if (known == m_known.cend())
                return false;
            group.alternatives = *known;
        } else {
            for (Dependency &dependency : group.alternatives) {
                const auto known = m_known.constFind(Key{dependency, entry.package->type});
                if (known == m_known.cend())
                    return false;
                dependency = known->constFirst();
            }
        }
        group.status = DependsRules::groupStatus(group);
    }
    result.status = DependsRules::packageStatus(result.groups);
    sink(entry.package, entry.result);
    return true;
}
