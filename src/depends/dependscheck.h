// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/qtversions.h"
#include "depends/dependsparser.h"

#include <QHash>

#include <future>

/**
 * Checks whether the dependencies of packages can be met. An object lives for one job, on the thread of that job. It
 * remembers the result for each dependency and uses it for all packages with the same dependency, so the sources must
 * not change meanwhile.
 */
class DependsCheck
{
public:
    /** Receives each package with its result. A package that waited for answers may come after later packages. */
    using Sink
        = std::function<void(const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result)>;

    /**
     * `selection` is a DependsRepoType; with DependsNowhere nothing is checked. `local` holds the packages of the
     * repository, and `apt` the public sources. `apt` is asked for providers of missing packages even when only the
     * repository counts. The caller owns both; both may be null.
     */
    DependsCheck(int selection, CandidateSource *local, CandidateSource *apt);

    /**
     * Checks the packages and returns how many were passed to `sink`. A package is passed on as soon as all its
     * questions are answered. `stopped` is called between packages and while the sources are asked, from two threads.
     * After a stop, packages without an answer are not passed on.
     */
    int run(const QList<PackageInfoPtr> &packages, const Sink &sink, const StopRequest &stopped = {});

private:
    /** A dependency as the sources are asked for it: equal keys have equal results. */
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
        /** Hashes only the most distinctive fields; operator== compares the others. */
        friend QtVersions::HashValue qHash(const Key &key, QtVersions::HashValue seed)
        {
            return qHash(key.wanted.name, seed) ^ (qHash(key.wanted.version, seed) * 31U)
                   ^ (qHash(key.wanted.secondVersion, seed) * 127U);
        }
    };

    /** A package and its result, which may still be incomplete. */
    struct Entry
    {
        PackageInfoPtr package;
        QSharedPointer<DependsInfo> result;
        int keyCount = 0; ///< number of new keys up to and including this package
    };

    /** Whether apt is only asked for providers of what the repository lacks. */
    bool asksLocalOnly() const { return !m_sources.contains(m_apt); }
    /** False when it was stopped. */
    bool checkBlock(const QList<PackageInfoPtr> &packages, const Sink &sink, const StopRequest &stopped);
    /**
     * Reads the dependencies of the packages, up to a stop; `keys` receives each dependency that has no result yet.
     */
    QVector<Entry>
    read(const QList<PackageInfoPtr> &packages, QVector<Key> *keys, const StopRequest &stopped);
    /** Passes the package to `sink` when all its dependencies have results; else returns false. */
    bool handOut(const Entry &entry, const Sink &sink) const;
    // These functions return false when they were stopped; then their results are not used.
    bool checkByName(QVector<Key> &keys, const StopRequest &stopped) const;
    bool checkProviders(QVector<Key> &keys, const StopRequest &stopped);
    /** Asks one source for providers of the keys at the indices `wanting`. */
    bool checkProviders(QVector<Key> &keys,
                        const QVector<int> &wanting,
                        CandidateSource &source,
                        const StopRequest &stopped) const;

    int m_selection;
    CandidateSource *m_apt;
    QVector<CandidateSource *> m_sources;
    QVector<CandidateSource *> m_providerSources;
    DependsParser m_parser;
    std::future<void> m_aptIsReady; ///< valid while another thread uses m_apt
    /** Lists of one. All entries with only this dependency share the list, which saves memory. */
    QHash<Key, QVector<Dependency>> m_known;
};
