// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilitycheck.h"

#include "core/countof.h"

#include <algorithm>

namespace
{
std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}
} // namespace

InstallabilityCheck::InstallabilityCheck(const Universe &universe, const std::vector<int> &gone)
    : m_universe(universe)
    , m_index(universe)
    , m_settled(universe, m_index, gone)
    , m_rules(universe, &m_settled, m_solver)
    , m_states(at(universe.count()), InstallabilityUnknown)
{ }

bool InstallabilityCheck::run(const QVector<int> &asked, const StopRequest &stopped, const Progress &progress)
{
    m_asked = asked;
    if (m_universe.isTooLarge()) {
        for (const int package : asked)
            m_states[at(package)] = InstallabilityUndecided;
        return true;
    }
    std::vector<Goal> goals;
    goals.reserve(at(countOf(asked)));
    int done = 0;
    m_isSystemPossible = writeEssential(stopped);
    if (stopped && stopped())
        return false;
    for (const int package : asked) {
        switch (m_isSystemPossible ? m_settled.state(package) : SettledPackages::Never) {
        case SettledPackages::Never:
            m_states[at(package)] = NotInstallable;
            ++done;
            break;
        case SettledPackages::Always:
            m_states[at(package)] = Installable;
            ++done;
            break;
        case SettledPackages::Open:
            goals.push_back({package, -1, m_rules.variable(package), 0, InstallabilityUnknown});
            break;
        }
    }
    std::vector<int> open;
    for (const Goal &goal : goals)
        open.push_back(goal.package);
    m_rules.addAround(std::move(open), stopped);
    if (stopped && stopped())
        return false;
    if (progress)
        progress(done);
    return search(goals, stopped, [&](const Goal &goal) {
        // An undecided package can turn out to be installable later, with another one.
        const bool isNew = state(goal.package) == InstallabilityUnknown;
        m_states[at(goal.package)] = goal.result;
        if (isNew && progress)
            progress(++done);
    });
}

bool InstallabilityCheck::runRecommends(const StopRequest &stopped)
{
    std::vector<Goal> goals;
    for (const int package : m_asked) {
        if (state(package) != Installable)
            continue;
        for (const Universe::Entry &entry : m_universe.recommends(package)) {
            const auto members = m_universe.members(entry.set);
            const auto is = [&](SettledPackages::State wanted) {
                return [this, wanted](int member) { return m_settled.state(member) == wanted; };
            };
            if (std::any_of(members.begin(), members.end(), is(SettledPackages::Always)))
                continue;
            if (std::all_of(members.begin(), members.end(), is(SettledPackages::Never))) {
                m_unmet.emplace_back(package, entry.set);
                continue;
            }
            // A variable that stands for the package together with the entry.
            const int both = m_solver.newVariable();
            if (m_settled.state(package) == SettledPackages::Open)
                m_solver.addClause({-both, m_rules.variable(package)});
            m_rules.addNeedOf(both, entry.set);
            m_rules.addAround({members.begin(), members.end()}, stopped);
            goals.push_back({package, entry.set, both, 0, InstallabilityUnknown});
        }
    }
    const bool finished = search(goals, stopped, [this](const Goal &goal) {
        if (goal.result == NotInstallable)
            m_unmet.emplace_back(goal.package, goal.set);
    });
    std::sort(m_unmet.begin(), m_unmet.end());
    return finished;
}

int InstallabilityCheck::secondsOf(int package) const
{
    for (const auto &[undecided, seconds] : m_seconds) {
        if (undecided == package)
            return seconds;
    }
    return 0;
}

QStringList InstallabilityCheck::unmetRecommends(int package) const
{
    QStringList result;
    const auto first = std::lower_bound(m_unmet.begin(), m_unmet.end(), std::make_pair(package, 0));
    for (auto unmet = first; unmet != m_unmet.end() && unmet->first == package; ++unmet) {
        const auto text = m_universe.text(unmet->second);
        result.append(QString::fromUtf8(text.data(), static_cast<int>(text.size())).simplified());
    }
    return result;
}

bool InstallabilityCheck::writeEssential(const StopRequest &stopped)
{
    for (const std::vector<int> &versions : m_universe.essential()) {
        // When all are gone, nothing is essential under this name any more.
        if (std::all_of(
                versions.begin(), versions.end(), [this](int version) { return m_settled.isGone(version); }))
            continue;
        m_rules.addOneOf(versions);
        m_rules.addAround(versions, stopped);
    }
    return m_solver.solve({}, LongestSearch, stopped) != SatSolver::Impossible;
}

bool InstallabilityCheck::search(std::vector<Goal> &goals,
                                 const StopRequest &stopped,
                                 const std::function<void(const Goal &goal)> &settled)
{
    if (m_rules.isTooLarge()) {
        for (Goal &goal : goals) {
            goal.result = InstallabilityUndecided;
            settled(goal);
        }
        return true;
    }
    // Nothing is installed without need, but of the goals as many as can be together. The wish for each goal is a
    // variable that comes last, because the solver decides on the last variables first.
    for (int package = 0; package < m_universe.count(); ++package) {
        if (m_rules.isUsed(package))
            m_solver.prefer(-m_rules.variable(package));
    }
    for (Goal &goal : goals) {
        goal.wish = m_solver.newVariable();
        m_solver.addClause({-goal.wish, goal.literal});
        m_solver.prefer(goal.wish);
    }
    for (Goal &goal : goals) {
        if (goal.result != InstallabilityUnknown)
            continue;
        if (stopped && stopped())
            return false;
        switch (m_solver.solve({goal.literal}, LongestSearch, stopped)) {
        case SatSolver::Possible:
            readModel(goals, settled);
            break;
        case SatSolver::Impossible:
            goal.result = NotInstallable;
            m_solver.addClause({-goal.literal});
            settled(goal);
            break;
        case SatSolver::Unknown:
            if (stopped && stopped())
                return false;
            goal.result = InstallabilityUndecided;
            m_seconds.emplace_back(goal.package, LongestSearch);
            m_solver.prefer(-goal.wish);
            settled(goal);
            break;
        }
    }
    return true;
}

void InstallabilityCheck::readModel(std::vector<Goal> &goals,
                                    const std::function<void(const Goal &goal)> &settled)
{
    for (Goal &goal : goals) {
        const bool isOpen = goal.result == InstallabilityUnknown || goal.result == InstallabilityUndecided;
        if (!isOpen || !m_solver.value(goal.literal))
            continue;
        goal.result = Installable;
        m_solver.prefer(-goal.wish);
        settled(goal);
    }
}
