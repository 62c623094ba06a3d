// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/relationtext.h"

#include <array>

namespace
{
/** The operators in the order of the expression: a longer operator comes before its prefix. */
constexpr std::array<std::string_view, 7> Operators{"<<", "<=", "<", "=", ">=", ">>", ">"};

/** White space as \s in the expressions. */
bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::size_t skipBlanks(std::string_view text, std::size_t position)
{
    while (position < text.size() && isBlank(text[position]))
        ++position;
    return position;
}

/** A sequence without blanks: its end, its last closing parenthesis, and the end of the blanks after it. */
struct Run
{
    std::size_t begin = std::string_view::npos;
    std::size_t end = 0;
    std::size_t lastClosing = std::string_view::npos;
    std::size_t afterBlanks = 0;
};

/**
 * Sets `run` to the run that begins at `begin`. When the positions of the calls decrease, each call continues with the
 * previous run, so even a field full of parentheses is read only once.
 */
void extendRun(Run &run, std::string_view text, std::size_t begin)
{
    Run extended;
    extended.begin = begin;
    std::size_t position = begin;
    for (; position < text.size() && position != run.begin && !isBlank(text[position]); ++position) {
        if (text[position] == ')')
            extended.lastClosing = position;
    }
    if (position == run.begin) {
        extended.end = run.end;
        extended.afterBlanks = run.afterBlanks;
        if (run.lastClosing != std::string_view::npos)
            extended.lastClosing = run.lastClosing;
    } else {
        extended.end = position;
        extended.afterBlanks = skipBlanks(text, position);
    }
    run = extended;
}

struct Constraint
{
    std::string_view op;
    std::string_view version;
};

/**
 * The constraint in the last parenthesis with an operator and a version. As in the greedy expression, the version
 * extends to the last possible closing parenthesis.
 */
Constraint readConstraint(std::string_view text)
{
    Run run;
    for (auto open = text.rfind('('); open != std::string_view::npos;
         open = open == 0 ? std::string_view::npos : text.rfind('(', open - 1)) {
        const auto start = skipBlanks(text, open + 1);
        for (const auto op : Operators) {
            if (text.substr(start, op.size()) != op)
                continue;
            const auto begin = skipBlanks(text, start + op.size());
            if (begin == text.size())
                continue;
            extendRun(run, text, begin);
            if (run.afterBlanks > run.end && run.afterBlanks < text.size() && text[run.afterBlanks] == ')')
                return {op, text.substr(begin, run.end - begin)};
            if (run.lastClosing != std::string_view::npos && run.lastClosing > begin)
                return {op, text.substr(begin, run.lastClosing - begin)};
        }
    }
    return {};
}
} // namespace

bool readRelation(std::string_view text, RelationText &relation)
{
    const auto begin = skipBlanks(text, 0);
    auto end = begin;
    while (end < text.size() && !isBlank(text[end]))
        ++end;
    std::string_view name = text.substr(begin, end - begin);
    // The expression would include all text up to the next blank, but dpkg needs no blank before a constraint.
    name = name.substr(0, name.find('('));
    const auto colon = name.find(':');
    relation.qualifier = colon == std::string_view::npos ? std::string_view() : name.substr(colon + 1);
    relation.name = name.substr(0, colon);
    if (relation.name.empty())
        return false;
    const Constraint constraint = readConstraint(text);
    relation.op = constraint.op;
    relation.version = constraint.version;
    return true;
}

std::string_view takePiece(std::string_view &rest, char separator)
{
    const auto end = rest.find(separator);
    const auto piece = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return piece;
}
