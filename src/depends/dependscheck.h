// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "depends/candidatesource.h"
#include "depends/dependsparser.h"

#include <QHash>

/**
 * Checks whether packages' dependencies can be met. Lives for one job, on its thread: what has been found out about a
 * dependency is remembered and holds for all packages that have the same one, so the sources must not change meanwhile.
 */
class DependsCheck
{
public:
    /** Gets each package with its result, in the order of the list. */
    using Sink
        = std::function<void(const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result)>;

    /**
     * `selection` is a DependsRepoType; with DependsNowhere nothing is ever checked. `local` are the packages of the
     * repository, `apt` the public sources, which are asked who provides what the repository lacks even when only the
     * repository counts. Both belong to the caller and can be null.
     */
    DependsCheck(int selection, CandidateSource *local, CandidateSource *apt);

    /**
     * Checks the packages in turn and returns how many were handed to `sink`. `stopped` is asked between packages and
     * between the questions to the sources; a package whose check it interrupts is not handed out.
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

    /** Checks all alternatives of these results that are not known yet; the results stay as they are. False when it was stopped. */
    bool findOut(const QVector<QSharedPointer<DependsInfo>> &results,
                 const QList<PackageInfoPtr> &packages,
                 const StopRequest &stopped);
    void checkByName(QVector<Key> &keys, const StopRequest &stopped) const;
    void checkProviders(QVector<Key> &keys, const StopRequest &stopped) const;
    /** Asks one source for the providers of the keys at these places. */
    void checkProviders(QVector<Key> &keys,
                        const QVector<int> &wanting,
                        CandidateSource &source,
                        const StopRequest &stopped) const;
    void fillIn(DependsInfo &result, PackageType type) const;

    QVector<CandidateSource *> m_sources;
    QVector<CandidateSource *> m_providerSources;
    DependsParser m_parser;
    QHash<Key, Dependency> m_known;
};
