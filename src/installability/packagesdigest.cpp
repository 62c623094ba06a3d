// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/packagesdigest.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include <xxhash.h>

namespace
{
/** The fields on which the check of any package can depend. */
constexpr std::array<std::string_view, 11> Fields{"Architecture",
                                                  "Breaks",
                                                  "Conflicts",
                                                  "Depends",
                                                  "Essential",
                                                  "Multi-Arch",
                                                  "Pre-Depends",
                                                  "Protected",
                                                  "Provides",
                                                  "Recommends",
                                                  "Replaces"};

quint64 hashed(const void *data, std::size_t size, quint64 seed)
{
    return XXH3_64bits_withSeed(data, size, seed);
}

quint64 hashed(const QString &text, quint64 seed)
{
    return hashed(text.utf16(), static_cast<std::size_t>(text.size()) * sizeof(ushort), seed);
}

bool isRelevant(const char *line, const char *end)
{
    // Most lines go on with a description, or begin with another letter.
    if (line == end || *line < 'A' || *line > 'R')
        return false;
    const std::string_view text(line, static_cast<std::size_t>(end - line));
    return std::any_of(Fields.begin(), Fields.end(), [text](std::string_view field) {
        return text.size() > field.size() && text[0] == field[0] && text[field.size()] == ':'
               && text.substr(0, field.size()) == field;
    });
}

const char *lineEnd(const char *line, const char *end)
{
    const void *found = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
    return found == nullptr ? end : static_cast<const char *>(found);
}

/** The sum of the relevant fields: their order in the paragraph means nothing. */
quint64 relations(std::string_view paragraph)
{
    quint64 sum = 0;
    const char *const end = paragraph.data() + paragraph.size();
    for (const char *line = paragraph.data(); line < end;) {
        const char *next = lineEnd(line, end);
        if (isRelevant(line, next)) {
            while (end - next > 1 && (next[1] == ' ' || next[1] == '\t'))
                next = lineEnd(next + 1, end);
            sum += hashed(line, static_cast<std::size_t>(next - line), 0);
        }
        line = next + 1;
    }
    return sum;
}
} // namespace

quint64 PackagesDigest::of(const PackageInfo &package)
{
    quint64 hash = hashed(package.name, static_cast<quint64>(package.type));
    hash = hashed(package.version, hash);
    hash = hashed(package.architecture, hash);
    hash = hashed(package.indexComponent, hash);
    const quint64 fields = relations(package.control.text());
    return hashed(&fields, sizeof(fields), hash);
}

QByteArray PackagesDigest::of(const QList<PackageInfoPtr> &packages)
{
    // Sums do not depend on the order, and count a package that is there twice.
    quint64 first = 0;
    quint64 second = 0;
    for (const PackageInfoPtr &package : packages) {
        const quint64 one = of(*package);
        first += one;
        second += hashed(&one, sizeof(one), 1);
    }
    const auto digits = [](quint64 number) { return QByteArray::number(number, 16).rightJustified(16, '0'); };
    return digits(first) + digits(second);
}
