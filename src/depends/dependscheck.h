// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "depends/dependsparser.h"

#include <QHash>

/**
 * Checks whether packages' dependencies can be met. Lives for one job, on its thread: what has been found out about a
 * dependency is remembered and holds for all packages that have the same one, so the sources must not change meanwhile.
 */
class DependsCheck
{
public:
    /** Gets each package with its result; one that had to wait for answers comes behind others. */
    using Sink
        = std::function<void(const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result)>;

    /**
     * `selection` is a DependsRepoType; with DependsNowhere nothing is ever checked. `local` are the packages of the
     * repository, `apt` the public sources, which are asked who provides what the repository lacks even when only the
     * repository counts. Both belong to the caller and can be null.
     */
    DependsCheck(int selection, CandidateSource *local, CandidateSource *apt);

    /**
     * Checks the packages and returns how many were handed to `sink`, which happens as soon as all that is asked for a
     * package is answered. `stopped` is asked between packages and while the sources are asked; a package that it
     * leaves without an answer is not handed out.
     */
    int run(const QList<PackageInfoPtr> &packages, const Sink &sink, const StopRequest &stopped = {});

private:
    /** A dependency as it is asked for: equal ones have equal results. */
    struct Key
    {
        Dependency wanted; ///< without results
        PackageType type = PackageType::Deb;

        friend bool operator==(const Key &a, const Key &b)
        {
            return a.wanted.name == b.wanted.name && a.wanted.architecture == b.wanted.architecture
                   && a.wanted.op == b.wanted.op && a.wanted.version == b.wanted.version
                   && a.wanted.secondOp == b.wanted.secondOp
                   && a.wanted.secondVersion == b.wanted.secondVersion && a.type == b.type;
        }
        /** Over what distinguishes most; the rest is left to the comparison. */
        friend uint qHash(const Key &key, uint seed)
        {
            return qHash(key.wanted.name, seed) ^ (qHash(key.wanted.version, seed) * 31U)
                   ^ (qHash(key.wanted.secondVersion, seed) * 127U);
        }
    };

    /** A package and its result, which is not complete yet. */
    struct Entry
    {
        PackageInfoPtr package;
        QSharedPointer<DependsInfo> result;
        int keyCount = 0; ///< how many dependencies it and those before it ask for that were not known
    };

    /** False when it was stopped. */
    bool checkBlock(const QList<PackageInfoPtr> &packages, const Sink &sink, const StopRequest &stopped);
    /** The packages with what they depend on; `keys` gets each dependency of theirs that is not known yet. */
    QVector<Entry> read(const QList<PackageInfoPtr> &packages, QVector<Key> *keys);
    /** Hands the package out when all its dependencies are known; false when they are not. */
    bool handOut(const Entry &entry, const Sink &sink) const;
    // What asks the sources returns false when it was stopped, and then has no use.
    bool checkByName(QVector<Key> &keys, const StopRequest &stopped) const;
    bool checkProviders(QVector<Key> &keys, const StopRequest &stopped) const;
    /** Asks one source for the providers of the keys at these places. */
    bool checkProviders(QVector<Key> &keys,
                        const QVector<int> &wanting,
                        CandidateSource &source,
                        const StopRequest &stopped) const;

    int m_selection;
    QVector<CandidateSource *> m_sources;
    QVector<CandidateSource *> m_providerSources;
    DependsParser m_parser;
    QHash<Key, Dependency> m_known;
};
