// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilityreasons.h"

#include <algorithm>
#include <deque>
#include <unordered_set>

namespace
{
/** Of a reason with more steps, those in the middle are left out: nobody reads so many. */
constexpr int MostSteps = 200;
/** A hostile package can lack something at the end of any way. */
constexpr std::size_t MostRules = 5000;
/** Packages that a step names. */
constexpr int MostTargets = 50;

constexpr int NoSet = -1;

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

QString decoded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size())).simplified();
}

QString fieldName(Universe::Field field)
{
    switch (field) {
    case Universe::PreDepends:
        return QStringLiteral("Pre-Depends");
    case Universe::Depends:
        return QStringLiteral("Depends");
    case Universe::Recommends:
        return QStringLiteral("Recommends");
    case Universe::Conflicts:
        return QStringLiteral("Conflicts");
    case Universe::Breaks:
        return QStringLiteral("Breaks");
    }
    return {};
}
} // namespace

InstallabilityReasons::InstallabilityReasons(const InstallabilityCheck &check)
    : m_check(check)
    , m_universe(check.universe())
    , m_settled(check.settled())
    , m_contradiction(m_universe, &m_settled)
    , m_hopeless(at(m_universe.count()), Universe::Entry{NoSet, Universe::Depends})
{
    findHopeless();
}

bool InstallabilityReasons::isBroken(int package) const
{
    return m_settled.state(package) == SettledPackages::Never || m_check.state(package) == NotInstallable;
}

void InstallabilityReasons::findHopeless()
{
    // From the packages that have a contradiction of their own, outwards: the first way found is the shortest.
    std::vector<int> left(at(m_universe.setCount()));
    std::vector<bool> allBroken(at(m_universe.setCount()));
    for (int set = 0; set < m_universe.setCount(); ++set) {
        const auto members = m_universe.members(set);
        left[at(set)] = members.size();
        allBroken[at(set)]
            = std::all_of(members.begin(), members.end(), [this](int member) { return isBroken(member); });
    }
    std::deque<int> queue;
    for (int package = 0; package < m_universe.count(); ++package) {
        if (!isBroken(package))
            continue;
        const auto needs = m_universe.needs(package);
        const bool isRoot = m_settled.state(package) == SettledPackages::Never
                            || std::none_of(needs.begin(), needs.end(), [&](const Universe::Entry &need) {
                                   return allBroken[at(need.set)];
                               });
        if (isRoot)
            queue.push_back(package);
    }
    for (; !queue.empty(); queue.pop_front()) {
        for (const int set : m_check.index().setsWith(queue.front())) {
            if (--left[at(set)] > 0)
                continue;
            for (const int user : m_check.index().usersOf(set)) {
                if (m_settled.state(user) == SettledPackages::Never || m_hopeless[at(user)].set != NoSet)
                    continue;
                for (const Universe::Entry &need : m_universe.needs(user)) {
                    if (need.set == set)
                        m_hopeless[at(user)] = need;
                }
                queue.push_back(user);
            }
        }
    }
}

QVector<InstallabilityStep> InstallabilityReasons::reason(int package, const StopRequest &stopped)
{
    if (!isBroken(package) || (stopped && stopped()))
        return {};
    Rules rules = rulesFor(package, stopped);
    std::vector<int> lacking{package};
    for (const InstallationRule &rule : rules) {
        if (rule.kind == InstallationRule::Need) {
            const auto members = m_universe.members(rule.set);
            lacking.insert(lacking.end(), members.begin(), members.end());
        } else if (rule.kind == InstallationRule::Essential) {
            const auto &versions = m_universe.essential(rule.package);
            lacking.insert(lacking.end(), versions.begin(), versions.end());
        }
    }
    const std::size_t found = rules.size();
    addLacks(rules, std::move(lacking));
    if (found > 0 && rules.size() > found) {
        // What lacks something can be excluded already.
        if (const auto smallest = Contradiction(m_universe, nullptr).smallest(package, rules, stopped))
            rules = *smallest;
    }
    // After a stop, rules can be missing: half a reason would be none.
    return stopped && stopped() ? QVector<InstallabilityStep>() : steps(package, rules);
}

InstallabilityReasons::Rules InstallabilityReasons::rulesFor(int package, const StopRequest &stopped)
{
    if (m_settled.state(package) == SettledPackages::Never)
        return {};
    // Where no system is possible, all packages have the same reason.
    if (!m_check.isSystemPossible())
        return search(Contradiction::NoPackage, stopped);
    Rules rules;
    std::unordered_set<int> seen{package};
    std::deque<int> queue{package};
    bool isSearched = false;
    for (; !queue.empty(); queue.pop_front()) {
        const int broken = queue.front();
        if (m_settled.state(broken) == SettledPackages::Never)
            continue;
        const Universe::Entry &need = m_hopeless[at(broken)];
        if (need.set == NoSet) {
            const Rules found = search(broken, stopped);
            rules.insert(rules.end(), found.begin(), found.end());
            isSearched = true;
            continue;
        }
        rules.push_back({InstallationRule::Need, broken, need.set, need.field});
        for (const int member : m_universe.members(need.set)) {
            if (seen.insert(member).second)
                queue.push_back(member);
        }
    }
    if (rules.size() < 2 || !isSearched)
        return rules;
    // Two contradictions that were found apart can have more in common than each for itself needs.
    const auto smallest = m_contradiction.smallest(package, rules, stopped);
    return smallest ? *smallest : rules;
}

InstallabilityReasons::Rules InstallabilityReasons::search(int package, const StopRequest &stopped)
{
    const auto known = m_found.find(package);
    if (known != m_found.end())
        return known->second;
    auto rules = package == Contradiction::NoPackage
                     ? std::nullopt
                     : m_contradiction.smallest(package, m_contradiction.around(package, false), stopped);
    if (!rules && !(stopped && stopped()))
        rules = m_contradiction.smallest(package, m_contradiction.around(package, true), stopped);
    if (!rules)
        return {};
    return m_found.emplace(package, *rules).first->second;
}

void InstallabilityReasons::addLacks(Rules &rules, std::vector<int> packages) const
{
    std::unordered_set<int> seen;
    std::deque<int> queue(packages.begin(), packages.end());
    for (; !queue.empty() && rules.size() < MostRules; queue.pop_front()) {
        const int package = queue.front();
        if (m_settled.state(package) != SettledPackages::Never || m_settled.isGone(package)
            || !seen.insert(package).second)
            continue;
        const Universe::Entry lack = m_settled.lack(package);
        rules.push_back({InstallationRule::Need, package, lack.set, lack.field});
        for (const int member : m_universe.members(lack.set))
            queue.push_back(member);
    }
}

QVector<InstallabilityStep> InstallabilityReasons::steps(int package, const Rules &rules) const
{
    QVector<InstallabilityStep> result;
    std::unordered_set<int> reached{package};
    std::vector<bool> isTold(rules.size());
    std::deque<int> queue{package};
    const auto reach = [&](int other) {
        if (reached.insert(other).second)
            queue.push_back(other);
    };
    for (std::size_t index = 0; index < rules.size(); ++index) {
        if (rules[index].kind != InstallationRule::Essential)
            continue;
        InstallabilityStep step;
        step.field = QStringLiteral("Essential");
        for (const int version : m_universe.essential(rules[index].package)) {
            step.targets.append(m_universe.named(version));
            reach(version);
        }
        step.relation = step.targets.constFirst().name;
        result.append(step);
        isTold[index] = true;
    }
    for (; !queue.empty(); queue.pop_front()) {
        for (std::size_t index = 0; index < rules.size(); ++index) {
            const InstallationRule &rule = rules[index];
            if (isTold[index] || rule.kind != InstallationRule::Need || rule.package != queue.front())
                continue;
            isTold[index] = true;
            result.append(needStep(rule));
            for (const int member : m_universe.members(rule.set))
                reach(member);
        }
    }
    const auto append = [&](const InstallationRule &rule, const auto &candidates, const auto &concerns) {
        InstallabilityStep step;
        step.kind = InstallabilityStep::Excludes;
        step.package = m_universe.named(rule.package);
        for (const int other : candidates) {
            if (step.targets.size() < MostTargets && reached.count(other) > 0 && concerns(other))
                step.targets.append(m_universe.named(other));
        }
        if (rule.kind == InstallationRule::Exclusion) {
            step.field = fieldName(rule.field);
            step.relation = decoded(m_universe.text(rule.set));
        }
        result.append(step);
    };
    for (const InstallationRule &rule : rules) {
        if (rule.kind == InstallationRule::Exclusion)
            append(rule, m_universe.members(rule.set), [&](int other) {
                return m_universe.nameId(other) != m_universe.nameId(rule.package);
            });
        else if (rule.kind == InstallationRule::Namesakes)
            append(
                rule, m_universe.namesakes(rule.package), [&](int other) { return other != rule.package; });
    }
    if (result.size() > MostSteps)
        result.remove(MostSteps / 2, result.size() - MostSteps);
    return result;
}

InstallabilityStep InstallabilityReasons::needStep(const InstallationRule &rule) const
{
    InstallabilityStep step;
    step.package = m_universe.named(rule.package);
    step.field = fieldName(rule.field);
    step.relation = decoded(m_universe.text(rule.set));
    for (const int member : m_universe.members(rule.set)) {
        if (!m_settled.isGone(member) && step.targets.size() < MostTargets)
            step.targets.append(m_universe.named(member));
    }
    if (!step.targets.isEmpty())
        return step;
    step.kind = InstallabilityStep::Lacks;
    for (const int other : m_universe.namedIn(rule.set)) {
        if (!m_settled.isGone(other) && step.targets.size() < MostTargets)
            step.targets.append(m_universe.named(other));
    }
    return step;
}
