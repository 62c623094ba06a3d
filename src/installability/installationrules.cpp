// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installationrules.h"

#include <algorithm>

namespace
{
/** Up to this number of packages, each pair gets a clause. Above it, clauses grow with the number, not its square. */
constexpr std::size_t FewPackages = 24;

/** A distribution has some thousands. Each takes some hundred bytes. */
constexpr std::size_t MostInLargeSets = 4'000'000;

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}
} // namespace

InstallationRules::InstallationRules(const Universe &universe,
                                     const SettledPackages *settled,
                                     SatSolver &solver)
    : m_universe(universe)
    , m_settled(settled)
    , m_solver(solver)
    , m_variables(at(universe.count()))
    , m_added(at(universe.count()))
{ }

int InstallationRules::variable(int package)
{
    if (stateOf(package) != SettledPackages::Open)
        return 0;
    int &variable = m_variables[at(package)];
    if (variable == 0)
        variable = m_solver.newVariable();
    return variable;
}

void InstallationRules::addNeed(int package, int set, int unless)
{
    addNeedOf(variable(package), set, unless);
}

void InstallationRules::addNeedOf(int literal, int set, int unless)
{
    addAnyOf(m_universe.members(set), -literal, unless);
}

void InstallationRules::addOneOf(const std::vector<int> &packages, int unless)
{
    addAnyOf(packages, 0, unless);
}

template <typename Packages>
void InstallationRules::addAnyOf(const Packages &packages, int literal, int unless)
{
    if (std::any_of(packages.begin(), packages.end(), [this](int package) {
            return stateOf(package) == SettledPackages::Always;
        }))
        return;
    if (literal != 0)
        m_solver.addLiteral(literal);
    for (const int package : packages) {
        if (const int installed = variable(package))
            m_solver.addLiteral(installed);
    }
    if (unless != 0)
        m_solver.addLiteral(unless);
    m_solver.endClause();
}

void InstallationRules::addExclusion(int package, int set, int unless)
{
    const int name = m_universe.nameId(package);
    std::vector<int> members = openMembers(set);
    if (members.size() <= FewPackages) {
        for (const int member : members) {
            if (m_universe.nameId(member) != name)
                addClause({-variable(package), -variable(member)}, unless);
        }
        return;
    }
    m_largeSets += m_any.count(set) == 0 && m_chains.count(set) == 0 ? members.size() : 0;
    if (m_largeSets > MostInLargeSets) {
        m_isTooLarge = true;
        return;
    }
    // Most packages are not in what they exclude, nor is another version of them.
    if (std::none_of(
            members.begin(), members.end(), [&](int member) { return m_universe.nameId(member) == name; })) {
        addClause({-variable(package), -anyOf(set, members)}, unless);
        return;
    }
    const Chain &chain = chainOf(set, std::move(members));
    const auto byName = [this](int member, int wanted) { return m_universe.nameId(member) < wanted; };
    const auto first = std::lower_bound(chain.packages.begin(), chain.packages.end(), name, byName);
    const auto last = std::lower_bound(first, chain.packages.end(), name + 1, byName);
    addClause({-variable(package), -chain.before[at(static_cast<int>(first - chain.packages.begin()))]},
              unless);
    addClause({-variable(package), -chain.behind[at(static_cast<int>(last - chain.packages.begin()))]},
              unless);
}

void InstallationRules::addNamesakes(int package, int unless)
{
    // Packages that can be beside each other are of one version, and are counted as one.
    std::vector<std::vector<int>> groups;
    for (const int other : m_universe.namesakes(package)) {
        if (stateOf(other) != SettledPackages::Open)
            continue;
        const auto group = std::find_if(groups.begin(), groups.end(), [&](const std::vector<int> &members) {
            return std::all_of(members.begin(), members.end(), [&](int member) {
                return m_universe.areCoInstallable(member, other);
            });
        });
        if (group == groups.end())
            groups.push_back({other});
        else
            group->push_back(other);
    }
    std::vector<int> literals;
    for (const std::vector<int> &group : groups) {
        if (group.size() == 1 || groups.size() == 1) {
            literals.push_back(variable(group.front()));
            continue;
        }
        const int any = m_solver.newVariable();
        for (const int member : group)
            m_solver.addClause({-variable(member), any});
        literals.push_back(any);
    }
    addAtMostOne(literals, unless);
}

void InstallationRules::addAround(std::vector<int> packages, const StopRequest &stopped)
{
    while (!packages.empty() && !(stopped && stopped())) {
        const int package = packages.back();
        packages.pop_back();
        if (m_added[at(package)] || stateOf(package) != SettledPackages::Open)
            continue;
        m_added[at(package)] = true;
        for (const Universe::Entry &need : m_universe.needs(package)) {
            addNeed(package, need.set);
            const auto members = m_universe.members(need.set);
            packages.insert(packages.end(), members.begin(), members.end());
        }
        for (const Universe::Entry &exclusion : m_universe.excludes(package))
            addExclusion(package, exclusion.set);
        const auto namesakes = m_universe.namesakes(package);
        const auto added = std::count_if(
            namesakes.begin(), namesakes.end(), [this](int other) { return bool(m_added[at(other)]); });
        // The first package of a name writes the rule for all.
        if (namesakes.size() > 1 && added == 1)
            addNamesakes(package);
    }
}

std::vector<int> InstallationRules::openMembers(int set) const
{
    std::vector<int> result;
    for (const int member : m_universe.members(set)) {
        if (stateOf(member) == SettledPackages::Open)
            result.push_back(member);
    }
    return result;
}

int InstallationRules::anyOf(int set, const std::vector<int> &packages)
{
    int &any = m_any[set];
    if (any == 0) {
        any = m_solver.newVariable();
        for (const int package : packages)
            m_solver.addClause({-variable(package), any});
    }
    return any;
}

const InstallationRules::Chain &InstallationRules::chainOf(int set, std::vector<int> packages)
{
    const auto known = m_chains.find(set);
    if (known != m_chains.end())
        return known->second;
    std::stable_sort(packages.begin(), packages.end(), [this](int a, int b) {
        return m_universe.nameId(a) < m_universe.nameId(b);
    });
    Chain chain;
    const auto count = packages.size();
    for (std::size_t place = 0; place <= count; ++place) {
        chain.before.push_back(m_solver.newVariable());
        chain.behind.push_back(m_solver.newVariable());
    }
    for (std::size_t place = 0; place < count; ++place) {
        const int installed = variable(packages[place]);
        m_solver.addClause({-installed, chain.before[place + 1]});
        m_solver.addClause({-chain.before[place], chain.before[place + 1]});
        m_solver.addClause({-installed, chain.behind[place]});
        m_solver.addClause({-chain.behind[place + 1], chain.behind[place]});
    }
    chain.packages = std::move(packages);
    return m_chains.emplace(set, std::move(chain)).first->second;
}

void InstallationRules::addClause(std::initializer_list<int> literals, int unless)
{
    for (const int literal : literals)
        m_solver.addLiteral(literal);
    if (unless != 0)
        m_solver.addLiteral(unless);
    m_solver.endClause();
}

void InstallationRules::addAtMostOne(const std::vector<int> &literals, int unless)
{
    if (literals.size() <= FewPackages) {
        for (std::size_t a = 0; a < literals.size(); ++a) {
            for (std::size_t b = 0; b < a; ++b)
                addClause({-literals[a], -literals[b]}, unless);
        }
        return;
    }
    int before = 0; // true when one in front is
    for (const int literal : literals) {
        const int now = m_solver.newVariable();
        m_solver.addClause({-literal, now});
        if (before != 0) {
            m_solver.addClause({-before, now});
            addClause({-before, -literal}, unless);
        }
        before = now;
    }
}
