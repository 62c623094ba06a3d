// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

/** One QString for all equal texts: a few names and versions are in the data of thousands of packages. */
class StringPool
{
public:
    QString string(std::string_view text)
    {
        if (text.empty())
            return {};
        const auto known = m_strings.find(text);
        if (known != m_strings.end())
            return known->second;
        m_texts.emplace_back(text);
        return m_strings
            .emplace(m_texts.back(), QString::fromUtf8(text.data(), static_cast<int>(text.size())))
            .first->second;
    }

private:
    std::deque<std::string> m_texts; ///< storage for the keys below
    std::unordered_map<std::string_view, QString> m_strings;
};
