// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>
#include <string_view>

/**
 * The text of one control paragraph. It keeps the bytes that were read and decodes a field only when it is asked for.
 * Many paragraphs can share one block of bytes (an index file); the block lives as long as one of these paragraphs.
 * Immutable, so any thread can read it.
 */
class ControlText
{
public:
    /** Keeps the block of bytes alive that the paragraphs point into. */
    using Owner = std::shared_ptr<const void>;

    ControlText() = default;
    /** A paragraph that owns its bytes. */
    explicit ControlText(const QByteArray &text);
    /** A paragraph inside a block that `owner` keeps alive. */
    ControlText(Owner owner, std::string_view text);

    bool isEmpty() const { return m_text.empty(); }
    std::string_view text() const { return m_text; }

    /** The trimmed value of the first line of the field; empty when there is no such field. */
    QString field(std::string_view name) const;
    /** The value of Description with its continuation lines, each after a newline. */
    QString description() const;
    /** The paragraph of an index without the fields that describe the package file, which the file itself lacks. */
    ControlText withoutFileFields() const;

private:
    Owner m_owner;
    std::string_view m_text;
};

/** The value of the first line "name:value" in `text`, without its surrounding white space. */
std::string_view controlFieldValue(std::string_view text, std::string_view name);

/**
 * The whole value of a field that may be folded over several lines. The lines of a folded field are joined with blanks
 * in `buffer`. The result points into `paragraph` or into `buffer`.
 */
std::string_view unfoldedField(std::string_view paragraph, std::string_view name, std::string &buffer);
