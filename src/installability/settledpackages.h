// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/needindex.h"

#include <vector>

/**
 * What can be said of the packages of a universe without a search. Of a whole distribution, three quarters are settled
 * so, and the search becomes as much smaller.
 */
class SettledPackages
{
public:
    enum State : qint8 {
        Never = -1, ///< it lacks something, at once or farther away
        Open = 0,
        Always = 1 ///< nothing excludes it, nor anything that it needs: it can be added to every system
    };

    /** The packages `gone` count as if they were not there. */
    SettledPackages(const Universe &universe, const NeedIndex &index, const std::vector<int> &gone = {});

    State state(int package) const { return m_states[static_cast<std::size_t>(package)]; }
    bool isGone(int package) const { return m_gone[static_cast<std::size_t>(package)]; }
    /** Of a package that lacks something: the set that it needs and that has no member that can be installed. */
    Universe::Entry lack(int package) const { return m_lacks[static_cast<std::size_t>(package)]; }

private:
    const Universe &m_universe;
    const NeedIndex &m_index;
    std::vector<State> m_states;
    std::vector<bool> m_gone;
    std::vector<Universe::Entry> m_lacks;

    void findNever();
    void findAlways();
    std::vector<bool> concerned() const;
};
