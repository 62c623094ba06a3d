// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/contradiction.h"

#include "installability/installationrules.h"
#include "installability/satsolver.h"

#include <deque>
#include <unordered_set>

namespace
{
constexpr int LongestSearch = 10; // seconds

/** A search with one rule less. More rules than this are not tried one by one, which would take minutes. */
constexpr std::size_t MostRulesToTry = 400;

void write(InstallationRules &rules, const Universe &universe, const InstallationRule &rule, int unless)
{
    switch (rule.kind) {
    case InstallationRule::Need:
        rules.addNeed(rule.package, rule.set, unless);
        break;
    case InstallationRule::Exclusion:
        rules.addExclusion(rule.package, rule.set, unless);
        break;
    case InstallationRule::Namesakes:
        rules.addNamesakes(rule.package, unless);
        break;
    case InstallationRule::Essential:
        rules.addOneOf(universe.essential(rule.package), unless);
        break;
    }
}
} // namespace

Contradiction::Contradiction(const Universe &universe, const SettledPackages *settled)
    : m_universe(universe)
    , m_settled(settled)
{ }

std::optional<Contradiction::Rules>
Contradiction::smallest(int package, const Rules &rules, const StopRequest &stopped) const
{
    // First the packages whose rules matter, then their rules: the solver bears thousands of packages at once.
    Groups groups;
    for (const InstallationRule &rule : rules) {
        if (groups.empty() || groups.back().front().package != rule.package)
            groups.emplace_back();
        groups.back().push_back(rule);
    }
    const auto near = blamed(package, groups, false, stopped);
    if (!near)
        return std::nullopt;
    groups.clear();
    for (const InstallationRule &rule : *near)
        groups.push_back({rule});
    return blamed(package, groups, true, stopped);
}

std::optional<Contradiction::Rules>
Contradiction::blamed(int package, const Groups &groups, bool oneByOne, const StopRequest &stopped) const
{
    SatSolver solver;
    InstallationRules written(m_universe, m_settled, solver);
    std::vector<int> releases; // by group: true releases its rules
    for (const Rules &group : groups) {
        releases.push_back(solver.newVariable());
        for (const InstallationRule &rule : group)
            write(written, m_universe, rule, releases.back());
    }
    std::vector<std::size_t> kept(groups.size());
    for (std::size_t group = 0; group < kept.size(); ++group)
        kept[group] = group;
    // Keeps those groups that are to blame; false when the package is possible without the group `left`.
    const auto narrow = [&](std::size_t left) {
        std::vector<int> assumptions;
        // A package that is settled has no variable, and stands for what every system needs.
        if (const int wanted = package == NoPackage ? 0 : written.variable(package))
            assumptions.push_back(wanted);
        for (const std::size_t group : kept) {
            if (group != left)
                assumptions.push_back(-releases[group]);
        }
        if (solver.solve(assumptions, LongestSearch, stopped) != SatSolver::Impossible)
            return false;
        std::vector<std::size_t> to_blame;
        for (const std::size_t group : kept) {
            if (group != left && solver.isToBlame(-releases[group]))
                to_blame.push_back(group);
        }
        kept = std::move(to_blame);
        return true;
    };
    for (std::size_t before = kept.size() + 1; kept.size() < before;) {
        before = kept.size();
        if (!narrow(groups.size()))
            return std::nullopt;
    }
    if (oneByOne && kept.size() <= MostRulesToTry) {
        // From the far end, so that what is near the package stays. A rule that is needed once stays needed.
        for (std::size_t fromBehind = 1; fromBehind <= kept.size();) {
            if (stopped && stopped())
                return std::nullopt;
            if (!narrow(kept[kept.size() - fromBehind]))
                ++fromBehind;
        }
    }
    Rules result;
    for (const std::size_t group : kept)
        result.insert(result.end(), groups[group].begin(), groups[group].end());
    return result;
}

Contradiction::Rules Contradiction::around(int package, bool essential) const
{
    Rules rules;
    std::deque<int> queue;
    std::unordered_set<int> seen;
    std::unordered_set<int> names;
    const auto reach = [&](int other) {
        if (m_settled->state(other) == SettledPackages::Open && seen.insert(other).second)
            queue.push_back(other);
    };
    if (package != NoPackage)
        reach(package);
    if (essential) {
        for (const std::vector<int> &versions : m_universe.essential()) {
            // When all are gone, nothing is essential under this name any more.
            if (std::all_of(versions.begin(), versions.end(), [this](int version) {
                    return m_settled->isGone(version);
                }))
                continue;
            rules.push_back({InstallationRule::Essential, versions.front(), 0, Universe::Depends});
            for (const int version : versions)
                reach(version);
        }
    }
    for (; !queue.empty(); queue.pop_front()) {
        const int reached = queue.front();
        for (const Universe::Entry &need : m_universe.needs(reached)) {
            rules.push_back({InstallationRule::Need, reached, need.set, need.field});
            for (const int member : m_universe.members(need.set))
                reach(member);
        }
        for (const Universe::Entry &exclusion : m_universe.excludes(reached)) {
            if (!m_universe.members(exclusion.set).isEmpty())
                rules.push_back({InstallationRule::Exclusion, reached, exclusion.set, exclusion.field});
        }
        if (m_universe.namesakes(reached).size() > 1 && names.insert(m_universe.nameId(reached)).second)
            rules.push_back({InstallationRule::Namesakes, reached, 0, Universe::Conflicts});
    }
    return rules;
}
