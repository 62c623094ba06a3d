// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>
#include <string_view>

/**
 * The text of one control paragraph, kept as the bytes it was read as and decoded field by field on demand. Many
 * paragraphs can share one block of bytes (an index file); the block lives as long as one of them does.
 * Immutable, so it can be read from any thread.
 */
class ControlText
{
public:
    /** Keeps alive what the paragraphs point into. */
    using Owner = std::shared_ptr<const void>;

    ControlText() = default;
    /** A paragraph of its own. */
    explicit ControlText(const QByteArray &text);
    /** A paragraph inside a block that `owner` keeps alive. */
    ControlText(Owner owner, std::string_view text);

    bool isEmpty() const { return m_text.empty(); }
    std::string_view text() const { return m_text; }

    /** The trimmed value of the first line of the field; empty when there is none. */
    QString field(std::string_view name) const;
    /** The Description value with its continuation lines, each after a newline. */
    QString description() const;

private:
    Owner m_owner;
    std::string_view m_text;
};

/** The value of the first line "name:value" in `text`, without its surrounding white space. */
std::string_view controlFieldValue(std::string_view text, std::string_view name);

/**
 * The whole value of a field that may be folded over several lines, which then are joined with blanks in `buffer`.
 * The result points into `paragraph` or `buffer`.
 */
std::string_view unfoldedField(std::string_view paragraph, std::string_view name, std::string &buffer);
