// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "engine/gathering/gatherplan.h"
#include "engine/installability/baseoffers.h"
#include "engine/installability/checkscope.h"

#include <QSet>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/**
 * Finds out what packages of a repository need that it lacks, and what that needs in turn. Entries mean what they mean
 * to the complete check. Of alternatives, what the repository has comes first, and then the one that apt would take,
 * unless it lacks something itself or excludes the package that needs it. For any thread but the interface's.
 */
class GatherSearch
{
public:
    using Progress = std::function<void(int visited)>;

    /**
     * `offers` is what the sources offer for the architectures of the scope's repository. What is fetched goes into
     * `component`; empty: its own. It takes no place in another one.
     */
    GatherSearch(const CheckScope &scope,
                 const BaseOffers &offers,
                 const StopRequest &stopped = {},
                 const QString &component = {});
    ~GatherSearch();
    GatherSearch(const GatherSearch &) = delete;
    GatherSearch &operator=(const GatherSearch &) = delete;

    /** Packages that are not of the scope's repository are skipped. */
    GatherPlan find(const QList<PackageInfoPtr> &wanted, const Progress &progress = {});

private:
    class System;
    /** A package on one of the systems. */
    struct Place
    {
        int system = 0;
        int package = 0;
    };

    StopRequest m_stopped;
    QStringList m_unknownArchitectures;
    QList<PackageInfoPtr> m_packages;
    std::vector<std::unique_ptr<System>> m_systems;
    bool m_mustWalkAnew = false;

    bool isStopped() const { return m_stopped && m_stopped(); }
    /** The same package on all systems, since a file for all architectures goes into each. */
    std::vector<Place> twins(const Place &place) const;
    /** Whether the file of the package can go into the repository, on all systems. */
    bool mayCome(const Place &place) const;
    /** The chosen package of the same name, on any of the systems to which the file of this one goes. */
    std::optional<Place> rivalOf(const Place &place) const;
    /** Whether the file of the package meets all for which the rival was chosen. */
    bool servesFor(const Place &rival, const Place &place) const;
    void take(const Place &place, std::vector<Place> *queue);
    /** Takes a choice back. What other choices replace stays until they are made again. */
    void forbid(const Place &place);
    /** One walk from what is wanted; false when it must be done anew: a choice was taken back, or a version leaves. */
    bool walk(const QList<PackageInfoPtr> &wanted, bool mayChooseAnew, const Progress &progress);
    /** Chooses something that meets the entry; false like walk(). */
    bool choose(const Place &owner, int set, bool mayChooseAnew, std::vector<Place> *queue);
    GatherPlan planned() const;
    /** `named` holds for each row the names of those that need it. */
    void fillNeeds(int system,
                   const QVector<int> &rowOf,
                   std::vector<QSet<QString>> *named,
                   GatherPlan *plan) const;
    void explain(int system, int owner, int set, GatherPlan::Need *need) const;
};
