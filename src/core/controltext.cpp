// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/controltext.h"

#include "core/trimmed.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
/** Removes the first line from the front of `rest` and returns it without its newline. */
std::string_view takeLine(std::string_view &rest)
{
    const auto end = rest.find('\n');
    const auto line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return line;
}

/** Whether a line starts a new field and so ends a description: a capital letter comes first, and there is a colon. */
bool startsField(std::string_view line)
{
    return !line.empty() && line.front() >= 'A' && line.front() <= 'Z'
           && line.find(':') != std::string_view::npos;
}

bool isField(std::string_view line, std::string_view name)
{
    return line.size() > name.size() && line[name.size()] == ':' && line.substr(0, name.size()) == name;
}

QString decoded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}
} // namespace

ControlText::ControlText(const QByteArray &text)
{
    const auto bytes = std::make_shared<const QByteArray>(text);
    m_text = std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size()));
    m_owner = bytes;
}

ControlText::ControlText(Owner owner, std::string_view text)
    : m_owner(std::move(owner))
    , m_text(text)
{ }

QString ControlText::field(std::string_view name) const
{
    return decoded(controlFieldValue(m_text, name));
}

QString ControlText::description() const
{
    std::string_view rest = m_text;
    while (!rest.empty()) {
        const auto line = takeLine(rest);
        if (!isField(line, "Description"))
            continue;
        const auto begin = rest;
        while (!rest.empty()) {
            auto next = rest;
            if (startsField(takeLine(next)))
                break;
            rest = next;
        }
        auto continuation = begin.substr(0, begin.size() - rest.size());
        while (!continuation.empty() && (continuation.back() == '\n' || continuation.back() == '\r'))
            continuation.remove_suffix(1);
        QString text = decoded(trimmed(line.substr(sizeof("Description:") - 1)));
        if (!continuation.empty())
            text += QLatin1Char('\n') + decoded(continuation);
        return text;
    }
    return {};
}

ControlText ControlText::withoutFileFields() const
{
    constexpr std::string_view FileFields[] = {"Filename", "Size", "MD5sum", "SHA1", "SHA256", "SHA512"};
    QByteArray text;
    bool isKept = true;
    for (std::string_view rest = m_text; !rest.empty();) {
        const auto line = takeLine(rest);
        if (line.empty() || (line.front() != ' ' && line.front() != '\t'))
            isKept = std::none_of(std::begin(FileFields),
                                  std::end(FileFields),
                                  [line](std::string_view name) { return isField(line, name); });
        if (isKept)
            text.append(line.data(), static_cast<int>(line.size())).append('\n');
    }
    return ControlText(text);
}

std::string_view controlFieldValue(std::string_view text, std::string_view name)
{
    while (!text.empty()) {
        const auto line = takeLine(text);
        if (isField(line, name))
            return trimmed(line.substr(name.size() + 1));
    }
    return {};
}

std::string_view unfoldedField(std::string_view paragraph, std::string_view name, std::string &buffer)
{
    const auto value = controlFieldValue(paragraph, name);
    // A null pointer means that there is no such field. The value of an empty field points into its line.
    if (value.data() == nullptr)
        return value;
    auto rest = paragraph.substr(static_cast<std::size_t>(value.data() - paragraph.data()) + value.size());
    takeLine(rest);
    if (rest.empty() || (rest.front() != ' ' && rest.front() != '\t'))
        return value;
    buffer = value;
    while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) {
        buffer += ' ';
        buffer += takeLine(rest);
    }
    return buffer;
}
