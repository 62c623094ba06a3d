// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "installability/installationrules.h"
#include "installability/needindex.h"
#include "installability/satsolver.h"
#include "installability/settledpackages.h"

#include <QVector>

#include <functional>

/**
 * Finds out which packages of a universe can be installed, each alone with what it needs. Every installation that the
 * search finds settles all packages in it, so that a few hundred searches are enough for a whole distribution.
 */
class InstallabilityCheck
{
public:
    /** A search for one package gives up after so many seconds. */
    static constexpr int LongestSearch = 10;

    using Progress = std::function<void(int settled)>;

    /** The universe outlives the check. The packages `gone` count as if they were not there. */
    explicit InstallabilityCheck(const Universe &universe, const std::vector<int> &gone = {});

    /** Settles these packages, once; false after a stop, which leaves the rest unknown. */
    bool run(const QVector<int> &asked, const StopRequest &stopped = {}, const Progress &progress = {});
    /** Looks which recommendations of the asked packages cannot be followed; false after a stop. After run(). */
    bool runRecommends(const StopRequest &stopped = {});

    /** False when nothing can be installed, because what is essential cannot. After run(). */
    bool isSystemPossible() const { return m_isSystemPossible; }
    Installability state(int package) const { return m_states[static_cast<std::size_t>(package)]; }
    /** Of an undecided package: how many seconds were spent; 0 when the relations are too many for a search. */
    int secondsOf(int package) const;
    /** The entries of Recommends that cannot be installed together with the package, as they are written. */
    QStringList unmetRecommends(int package) const;

    const Universe &universe() const { return m_universe; }
    const NeedIndex &index() const { return m_index; }
    const SettledPackages &settled() const { return m_settled; }

private:
    /** What is asked: whether a package can be installed, perhaps together with something of a set. */
    struct Goal
    {
        int package = 0;
        int set = -1; ///< -1: with nothing else
        int literal = 0; ///< true when the goal is reached
        int wish = 0; ///< a variable that only says that the goal is wanted
        Installability result = InstallabilityUnknown;
    };

    const Universe &m_universe;
    NeedIndex m_index;
    SettledPackages m_settled;
    SatSolver m_solver;
    InstallationRules m_rules;
    QVector<int> m_asked;
    bool m_isSystemPossible = true;
    std::vector<Installability> m_states;
    std::vector<std::pair<int, int>> m_seconds; ///< of undecided packages
    std::vector<std::pair<int, int>> m_unmet; ///< package and set

    /** False when no system is possible, because what is essential cannot be installed. */
    bool writeEssential(const StopRequest &stopped);
    bool search(std::vector<Goal> &goals,
                const StopRequest &stopped,
                const std::function<void(const Goal &goal)> &settled);
    void readModel(std::vector<Goal> &goals, const std::function<void(const Goal &goal)> &settled);
};
