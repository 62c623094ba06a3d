// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/** How many there are, as the int that plural forms, models and progress count with. Qt 6 has wider sizes. */
template <typename Container>
int countOf(const Container &container)
{
    return static_cast<int>(container.size());
}
