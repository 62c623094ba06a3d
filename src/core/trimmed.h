// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

/** The text without these characters at its ends. */
inline std::string_view trimmed(std::string_view text, std::string_view blanks = " \t\r\n\f\v")
{
    const auto first = text.find_first_not_of(blanks);
    // At its end, so that it still points into the text that it is from.
    if (first == std::string_view::npos)
        return text.substr(text.size());
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
