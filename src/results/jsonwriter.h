// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "results/jsondevice.h"

#include <QString>

#include <string>
#include <string_view>

#include <rapidjson/prettywriter.h>

/** Writes a document to a device, with texts of Qt. */
class JsonWriter : public rapidjson::PrettyWriter<JsonOutput>
{
public:
    using Base = rapidjson::PrettyWriter<JsonOutput>;
    using Size = rapidjson::SizeType;
    using Base::Base;

    void key(std::string_view name) { Key(name.data(), static_cast<Size>(name.size())); }
    void key(const QString &name);
    void text(std::string_view text) { String(text.data(), static_cast<Size>(text.size())); }
    void text(const QString &text);
    void member(std::string_view name, const QString &value)
    {
        key(name);
        text(value);
    }
    void member(std::string_view name, std::string_view value)
    {
        key(name);
        text(value);
    }
    void member(std::string_view name, int value)
    {
        key(name);
        Int(value);
    }

private:
    std::string m_utf8; ///< a member, so that its memory is not allocated for each of millions of texts

    void encode(const QString &text);
};
