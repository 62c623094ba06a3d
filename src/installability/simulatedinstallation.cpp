// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/simulatedinstallation.h"

#include "installability/satsolver.h"

#include <algorithm>

namespace
{
constexpr int LongestSearch = 10; // seconds
}

SimulatedInstallation::SimulatedInstallation(const Universe &universe)
    : m_universe(universe)
    , m_index(universe)
    , m_settled(universe, m_index)
{ }

QVector<int> SimulatedInstallation::of(int package, const StopRequest &stopped) const
{
    if (!isPossible(package))
        return {};
    SatSolver solver;
    InstallationRules rules(m_universe, &m_settled, solver);
    std::vector<int> around{package};
    for (const std::vector<int> &versions : m_universe.essential()) {
        rules.addOneOf(versions);
        around.insert(around.end(), versions.begin(), versions.end());
    }
    rules.addAround(around, stopped);
    if (rules.isTooLarge() || (stopped && stopped()))
        return {};
    // Nothing is installed without need.
    for (int other = 0; other < m_universe.count(); ++other) {
        if (m_settled.state(other) == SettledPackages::Open && rules.isUsed(other))
            solver.prefer(-rules.variable(other));
    }
    const auto firstChoices = wanted(package);
    for (const int other : firstChoices) {
        if (const int installed = rules.variable(other))
            solver.prefer(installed);
    }
    std::vector<int> assumptions;
    if (const int installed = rules.variable(package))
        assumptions.push_back(installed);
    if (solver.solve(assumptions, LongestSearch, stopped) != SatSolver::Possible)
        return {};
    return follow(package, [&](int other) {
        return m_settled.state(other) == SettledPackages::Always
               || (m_settled.state(other) == SettledPackages::Open && solver.value(rules.variable(other)));
    });
}

QVector<int> SimulatedInstallation::wanted(int package) const
{
    return follow(package, [this](int other) { return isPossible(other); });
}

template <typename Accepts>
QVector<int> SimulatedInstallation::follow(int package, const Accepts &accepts) const
{
    QVector<int> result{package};
    std::vector<bool> isIn(static_cast<std::size_t>(m_universe.count()));
    const auto has = [&](int other) { return bool(isIn[static_cast<std::size_t>(other)]); };
    isIn[static_cast<std::size_t>(package)] = true;
    for (int next = 0; next < result.size(); ++next) {
        for (const Universe::Entry &need : m_universe.needs(result.at(next))) {
            const auto members = m_universe.members(need.set);
            if (std::any_of(members.begin(), members.end(), has))
                continue;
            const auto candidates = m_universe.byPreference(need.set);
            const auto chosen = std::find_if(candidates.begin(), candidates.end(), accepts);
            if (chosen == candidates.end())
                continue;
            isIn[static_cast<std::size_t>(*chosen)] = true;
            result.append(*chosen);
        }
    }
    return result;
}
