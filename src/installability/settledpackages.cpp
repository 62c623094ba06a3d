// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/settledpackages.h"

#include <deque>

namespace
{
std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

/** The names of some packages, as far as one needs to know whether another name is among them. */
class Names
{
public:
    void add(int name)
    {
        m_several = m_several || (m_first >= 0 && m_first != name);
        if (m_first < 0)
            m_first = name;
    }
    bool hasOtherThan(int name) const { return m_several || (m_first >= 0 && m_first != name); }

private:
    int m_first = -1;
    bool m_several = false;
};
} // namespace

SettledPackages::SettledPackages(const Universe &universe,
                                 const NeedIndex &index,
                                 const std::vector<int> &gone)
    : m_universe(universe)
    , m_index(index)
    , m_states(at(universe.count()), Open)
    , m_gone(at(universe.count()))
    , m_lacks(at(universe.count()))
{
    for (const int package : gone) {
        m_gone[at(package)] = true;
        m_states[at(package)] = Never;
    }
    findNever();
    findAlways();
}

void SettledPackages::findNever()
{
    std::vector<int> left(at(m_universe.setCount()));
    for (int set = 0; set < m_universe.setCount(); ++set)
        left[at(set)] = m_universe.members(set).size();
    // First in, first out: the lack that is found for a package is the one with the shortest way to it.
    std::deque<int> queue;
    for (int package = 0; package < m_universe.count(); ++package) {
        if (m_gone[at(package)]) {
            queue.push_back(package);
            continue;
        }
        for (const Universe::Entry &need : m_universe.needs(package)) {
            if (left[at(need.set)] > 0)
                continue;
            m_states[at(package)] = Never;
            m_lacks[at(package)] = need;
            queue.push_back(package);
            break;
        }
    }
    for (; !queue.empty(); queue.pop_front()) {
        for (const int set : m_index.setsWith(queue.front())) {
            if (--left[at(set)] > 0)
                continue;
            for (const int user : m_index.usersOf(set)) {
                if (m_states[at(user)] == Never)
                    continue;
                m_states[at(user)] = Never;
                for (const Universe::Entry &need : m_universe.needs(user)) {
                    if (need.set == set)
                        m_lacks[at(user)] = need;
                }
                queue.push_back(user);
            }
        }
    }
}

std::vector<bool> SettledPackages::concerned() const
{
    std::vector<Names> excluding(at(m_universe.setCount()));
    std::vector<Names> excluded(at(m_universe.setCount()));
    const auto forEachExclusion = [this](const auto &visit) {
        for (int package = 0; package < m_universe.count(); ++package) {
            if (state(package) == Never)
                continue;
            for (const Universe::Entry &entry : m_universe.excludes(package))
                visit(package, entry.set);
        }
    };
    std::vector<bool> isExclusion(at(m_universe.setCount()));
    forEachExclusion([&](int package, int set) {
        excluding[at(set)].add(m_universe.nameId(package));
        isExclusion[at(set)] = true;
    });
    std::vector<bool> result(at(m_universe.count()));
    for (int set = 0; set < m_universe.setCount(); ++set) {
        if (!isExclusion[at(set)])
            continue;
        for (const int member : m_universe.members(set)) {
            if (state(member) == Never)
                continue;
            excluded[at(set)].add(m_universe.nameId(member));
            if (excluding[at(set)].hasOtherThan(m_universe.nameId(member)))
                result[at(member)] = true;
        }
    }
    forEachExclusion([&](int package, int set) {
        if (excluded[at(set)].hasOtherThan(m_universe.nameId(package)))
            result[at(package)] = true;
    });
    for (int package = 0; package < m_universe.count(); ++package) {
        // Most names have one package. Where there are more, it hardly matters that some could go together.
        const auto namesakes = m_universe.namesakes(package);
        if (namesakes.size() < 2 || result[at(package)])
            continue;
        for (const int other : namesakes) {
            if (other != package && state(other) != Never && !m_universe.areCoInstallable(package, other)) {
                result[at(package)] = true;
                break;
            }
        }
    }
    return result;
}

void SettledPackages::findAlways()
{
    const std::vector<bool> isConcerned = concerned();
    std::vector<int> left(at(m_universe.setCount()));
    for (int set = 0; set < m_universe.setCount(); ++set)
        left[at(set)] = m_universe.members(set).size();
    std::vector<int> out;
    for (int package = 0; package < m_universe.count(); ++package) {
        if (state(package) == Never || isConcerned[at(package)])
            out.push_back(package);
        else
            m_states[at(package)] = Always;
    }
    while (!out.empty()) {
        const int package = out.back();
        out.pop_back();
        for (const int set : m_index.setsWith(package)) {
            if (--left[at(set)] > 0)
                continue;
            for (const int user : m_index.usersOf(set)) {
                if (m_states[at(user)] != Always)
                    continue;
                m_states[at(user)] = Open;
                out.push_back(user);
            }
        }
    }
}
