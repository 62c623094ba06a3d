// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/universe.h"

/** The needs of a universe seen from their other end: who needs a set, and in which sets a package is. */
class NeedIndex
{
public:
    explicit NeedIndex(const Universe &universe);

    /** The packages that need one of the set's members, by rising index. */
    Span<int> usersOf(int set) const { return m_users.of(set); }
    /** The needed sets with this package, by rising number. */
    Span<int> setsWith(int package) const { return m_sets.of(package); }

private:
    /** Lists of numbers, one behind the other. */
    struct Lists
    {
        std::vector<int> first;
        std::vector<int> numbers;

        Span<int> of(int index) const
        {
            const auto at = static_cast<std::size_t>(index);
            return {numbers.data() + first[at], numbers.data() + first[at + 1]};
        }
    };

    Lists m_users;
    Lists m_sets;
};
