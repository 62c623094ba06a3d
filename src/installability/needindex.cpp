// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/needindex.h"

NeedIndex::NeedIndex(const Universe &universe)
{
    const auto size = [](int count) { return static_cast<std::size_t>(count); };
    m_users.first.assign(size(universe.setCount()) + 1, 0);
    for (int package = 0; package < universe.count(); ++package) {
        for (const Universe::Entry &need : universe.needs(package))
            ++m_users.first[size(need.set) + 1];
    }
    for (std::size_t set = 1; set < m_users.first.size(); ++set)
        m_users.first[set] += m_users.first[set - 1];
    m_users.numbers.resize(size(m_users.first.back()));
    std::vector<int> next = m_users.first;
    for (int package = 0; package < universe.count(); ++package) {
        for (const Universe::Entry &need : universe.needs(package))
            m_users.numbers[size(next[size(need.set)]++)] = package;
    }

    // Sets that nobody needs belong to exclusions and recommendations.
    m_sets.first.assign(size(universe.count()) + 1, 0);
    const auto isNeeded = [this](int set) { return !usersOf(set).isEmpty(); };
    for (int set = 0; set < universe.setCount(); ++set) {
        if (isNeeded(set)) {
            for (const int package : universe.members(set))
                ++m_sets.first[size(package) + 1];
        }
    }
    for (std::size_t package = 1; package < m_sets.first.size(); ++package)
        m_sets.first[package] += m_sets.first[package - 1];
    m_sets.numbers.resize(size(m_sets.first.back()));
    next = m_sets.first;
    for (int set = 0; set < universe.setCount(); ++set) {
        if (isNeeded(set)) {
            for (const int package : universe.members(set))
                m_sets.numbers[size(next[size(package)]++)] = set;
        }
    }
}
