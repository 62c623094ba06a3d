// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/versionorder.h"

#include "core/trimmed.h"

#include <QByteArray>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include <apt-pkg/debversion.h>

namespace
{
/** The parts of a version, split as in dpkg. */
struct ParsedVersion
{
    int epoch = 0;
    std::string_view upstream; ///< empty only for a missing version
    std::string_view revision;
};

/** What dpkg takes for blanks in a version. */
constexpr std::string_view Blanks = " \t";

/** The epoch as strtol() reads it: white space and a plus sign may precede the number. */
std::optional<int> parseEpoch(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    int epoch = -1;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), epoch);
    if (parsed.ec != std::errc() || parsed.ptr != text.data() + text.size())
        return std::nullopt;
    // "-0" is valid, as in dpkg.
    return epoch < 0 ? std::nullopt : std::optional<int>(epoch);
}

/** Empty when dpkg refuses the text. Texts that only cause a warning are accepted. */
std::optional<ParsedVersion> parse(std::string_view text)
{
    if (text.empty() || text == "<unknown>")
        return ParsedVersion();
    text = trimmed(text, Blanks);
    // One after the other: in a version of a megabyte, a search for one of several characters takes ten times as long.
    if (std::any_of(Blanks.begin(), Blanks.end(), [text](char blank) {
            return text.find(blank) != std::string_view::npos;
        }))
        return std::nullopt;
    ParsedVersion version;
    if (const auto colon = text.find(':'); colon != std::string_view::npos) {
        const auto epoch = parseEpoch(text.substr(0, colon));
        if (!epoch)
            return std::nullopt;
        version.epoch = *epoch;
        text.remove_prefix(colon + 1);
    }
    version.upstream = text;
    if (const auto hyphen = text.rfind('-'); hyphen != std::string_view::npos) {
        version.upstream = text.substr(0, hyphen);
        version.revision = text.substr(hyphen + 1);
        if (version.revision.empty())
            return std::nullopt;
    }
    if (version.upstream.empty())
        return std::nullopt;
    return version;
}

int compareFragments(std::string_view a, std::string_view b)
{
    // dpkg treats a missing part as zero.
    if (a.empty())
        a = "0";
    if (b.empty())
        b = "0";
    return debVersioningSystem::CmpFragment(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
}

int compareParsed(const ParsedVersion &a, const ParsedVersion &b)
{
    // A missing version is older than any version, even than "0~".
    if (a.upstream.empty() || b.upstream.empty())
        return static_cast<int>(b.upstream.empty()) - static_cast<int>(a.upstream.empty());
    if (a.epoch != b.epoch)
        return a.epoch < b.epoch ? -1 : 1;
    const int upstream = compareFragments(a.upstream, b.upstream);
    return upstream != 0 ? upstream : compareFragments(a.revision, b.revision);
}

std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}
} // namespace

namespace VersionOrder
{
int compare(std::string_view versionA, std::string_view versionB)
{
    const auto parsedA = parse(versionA);
    const auto parsedB = parse(versionB);
    if (parsedA && parsedB)
        return compareParsed(*parsedA, *parsedB);
    // An invalid version is older than any valid one.
    if (parsedA || parsedB)
        return parsedA ? 1 : -1;
    return versionA.compare(versionB);
}

bool holds(std::string_view versionA, std::string_view op, std::string_view versionB)
{
    // dpkg would read it as an option.
    if (!versionA.empty() && versionA.front() == '-')
        return false;
    const auto parsedA = parse(versionA);
    const auto parsedB = parse(versionB);
    if (!parsedA || !parsedB)
        return false;
    const int order = compareParsed(*parsedA, *parsedB);
    if (op == "<<")
        return order < 0;
    if (op == "<=" || op == "<")
        return order <= 0;
    if (op == "=")
        return order == 0;
    if (op == ">=" || op == ">")
        return order >= 0;
    return op == ">>" && order > 0;
}

int compare(const QString &versionA, const QString &versionB)
{
    return compare(view(versionA.toUtf8()), view(versionB.toUtf8()));
}

bool holds(const QString &versionA, const QString &op, const QString &versionB)
{
    return holds(view(versionA.toUtf8()), view(op.toUtf8()), view(versionB.toUtf8()));
}
} // namespace VersionOrder
