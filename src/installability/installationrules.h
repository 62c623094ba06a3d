// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "installability/satsolver.h"
#include "installability/settledpackages.h"

#include <unordered_map>
#include <vector>

/**
 * Writes the relations of packages as clauses for a solver. A variable says whether a package is installed. Packages
 * that are settled have none: what can always be added meets every need, and what can never be installed meets none.
 * Every function takes a literal `unless`: where it is not 0, the rule holds only while that literal is false.
 */
class InstallationRules
{
public:
    /** Without `settled`, every package has a variable. */
    InstallationRules(const Universe &universe, const SettledPackages *settled, SatSolver &solver);

    /** The variable of the package; 0 for a settled one. */
    int variable(int package);
    /** Whether a rule names the package. */
    bool isUsed(int package) const { return m_variables[static_cast<std::size_t>(package)] != 0; }
    /** With the package, something of the set must be installed. */
    void addNeed(int package, int set, int unless = 0);
    /** The same for anything that a literal stands for. */
    void addNeedOf(int literal, int set, int unless = 0);
    /** One of these packages must be installed. */
    void addOneOf(const std::vector<int> &packages, int unless = 0);
    /** With the package, nothing of the set can be installed but packages of its own name. */
    void addExclusion(int package, int set, int unless = 0);
    /** Of the packages with the name of this one, only those that can be beside each other. */
    void addNamesakes(int package, int unless = 0);
    /** All rules of these packages and of all that they can need. What was added so is not added again. */
    void addAround(std::vector<int> packages, const StopRequest &stopped = {});
    /**
     * Whether rules were left out because all of them would take gigabytes, as hostile packages can want. Then a search
     * says nothing.
     */
    bool isTooLarge() const { return m_isTooLarge; }

private:
    /** A variable for "one of the first" and one for "one of the last", at each place in a long set. */
    struct Chain
    {
        std::vector<int> packages; ///< sorted by name
        std::vector<int> before; ///< true when a package in front of the place is installed
        std::vector<int> behind; ///< true when the package at the place, or one behind it, is installed
    };

    const Universe &m_universe;
    const SettledPackages *m_settled;
    SatSolver &m_solver;
    std::vector<int> m_variables; ///< by package; 0 as long as there is none
    std::unordered_map<int, int> m_any; ///< by set: the variable of anyOf()
    std::unordered_map<int, Chain> m_chains; ///< by set
    std::vector<bool> m_added; ///< by package: addAround() was here
    std::size_t m_largeSets = 0; ///< members of the large sets that are written
    bool m_isTooLarge = false;

    SettledPackages::State stateOf(int package) const
    {
        return m_settled ? m_settled->state(package) : SettledPackages::Open;
    }
    std::vector<int> openMembers(int set) const;
    /** A clause of the packages and of the literals that are not 0. */
    template <typename Packages>
    void addAnyOf(const Packages &packages, int literal, int unless);
    /** The variable that is true when a package of the set is installed; these are its open ones. */
    int anyOf(int set, const std::vector<int> &packages);
    const Chain &chainOf(int set, std::vector<int> packages);
    void addClause(std::initializer_list<int> literals, int unless);
    void addAtMostOne(const std::vector<int> &literals, int unless);
};
