// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsparser.h"

#include "core/controltext.h"

#include <QStringList>

#include <array>

namespace
{
constexpr std::string_view DependsField = "Depends";
constexpr std::string_view PreDependsField = "Pre-Depends";

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

/** Removes the piece before the next `separator` from the front of `rest` and returns it. */
std::string_view takePiece(std::string_view &rest, char separator)
{
    const auto end = rest.find(separator);
    const auto piece = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return piece;
}

/** Whether both entries have one alternative with the same name, so that one record can hold both. */
bool repeatsName(const DependencyGroup &entry, const DependencyGroup &other)
{
    return entry.alternatives.size() == 1 && other.alternatives.size() == 1
           && entry.alternatives.first().name == other.alternatives.first().name
           && entry.alternatives.first().architecture == other.alternatives.first().architecture;
}

/** Adds the constraint of `from` to `into`; false when `into` has no free place. */
bool mergeConstraint(Dependency &into, const Dependency &from)
{
    const bool known = from.op.isEmpty() || (from.op == into.op && from.version == into.version)
                       || (from.op == into.secondOp && from.version == into.secondVersion);
    if (known)
        return true;
    if (into.op.isEmpty()) {
        into.op = from.op;
        into.version = from.version;
        return true;
    }
    if (!into.secondOp.isEmpty())
        return false;
    into.secondOp = from.op;
    into.secondVersion = from.version;
    return true;
}
} // namespace

QVector<DependencyGroup> DependsParser::entries(std::string_view field, const QString &architecture)
{
    QVector<DependencyGroup> result;
    while (!field.empty()) {
        std::string_view entry = takePiece(field, ',');
        DependencyGroup group;
        while (!entry.empty()) {
            Dependency dependency;
            if (readAlternative(takePiece(entry, '|'), architecture, dependency))
                group.alternatives.append(dependency);
        }
        if (!group.alternatives.isEmpty())
            result.append(group);
    }
    return result;
}

QVector<DependencyGroup> DependsParser::groups(std::string_view field, const QString &architecture)
{
    return sortedGroups(groupsByKey(field, architecture));
}

QMap<QString, DependencyGroup> DependsParser::groupsByKey(std::string_view field, const QString &architecture)
{
    QMap<QString, DependencyGroup> result;
    const auto parsed = entries(field, architecture);
    for (const DependencyGroup &entry : parsed) {
        const QString name = entry.alternatives.first().name;
        const auto known = result.find(name);
        if (known == result.end()) {
            result.insert(name, entry);
        } else if (!repeatsName(entry, *known)
                   || !mergeConstraint(known->alternatives.first(), entry.alternatives.first())) {
            const QString text = dependencyText(entry, architecture);
            const bool isRepeated
                = known->alternatives == entry.alternatives
                  || (result.contains(text) && result.value(text).alternatives == entry.alternatives);
            if (isRepeated)
                continue;
            // The name is used again: one entry has alternatives and another has none.
            result.insert(result.contains(text) ? text + QLatin1String(" #2") : text, entry);
        }
    }
    return result;
}

QVector<DependencyGroup> DependsParser::entries(const PackageInfo &package)
{
    const std::string_view text = package.control.text();
    auto result = entries(unfoldedField(text, PreDependsField, m_unfolded), package.architecture);
    for (DependencyGroup &entry : result)
        entry.isPreDepends = true;
    return result + entries(unfoldedField(text, DependsField, m_unfolded), package.architecture);
}

QVector<DependencyGroup> DependsParser::groups(const PackageInfo &package)
{
    const std::string_view text = package.control.text();
    auto result = groupsByKey(unfoldedField(text, DependsField, m_unfolded), package.architecture);
    const auto first = groupsByKey(unfoldedField(text, PreDependsField, m_unfolded), package.architecture);
    for (auto entry = first.cbegin(); entry != first.cend(); ++entry) {
        // This key sorts after the other entry of that name.
        const QString key
            = result.contains(entry.key()) ? entry.key() + QLatin1String(" (Pre-Depends)") : entry.key();
        result.insert(key, *entry);
        result[key].isPreDepends = true;
    }
    return sortedGroups(result);
}

bool DependsParser::readAlternative(std::string_view text,
                                    const QString &architecture,
                                    Dependency &dependency)
{
    const auto begin = skipBlanks(text, 0);
    auto end = begin;
    while (end < text.size() && !isBlank(text[end]))
        ++end;
    std::string_view name = text.substr(begin, end - begin);
    // The expression would include all text up to the next blank, but dpkg needs no blank before a constraint.
    name = name.substr(0, name.find('('));
    const auto colon = name.find(':');
    const auto qualifier = colon == std::string_view::npos ? std::string_view() : name.substr(colon + 1);
    name = name.substr(0, colon);
    if (name.empty())
        return false;
    dependency.name = m_pool.string(name);
    dependency.architecture
        = qualifier.empty() || qualifier == "any" ? architecture : m_pool.string(qualifier);
    const Constraint constraint = readConstraint(text);
    dependency.op = m_pool.string(constraint.op);
    dependency.version = m_pool.string(constraint.version);
    return true;
}

QString dependencyText(const Dependency &dependency, const QString &architecture)
{
    QString text = dependency.name;
    if (!architecture.isEmpty() && dependency.architecture != architecture)
        text += QLatin1Char(':') + dependency.architecture;
    QStringList constraints;
    if (!dependency.op.isEmpty())
        constraints.append(dependency.op + QLatin1Char(' ') + dependency.version);
    if (!dependency.secondOp.isEmpty())
        constraints.append(dependency.secondOp + QLatin1Char(' ') + dependency.secondVersion);
    if (!constraints.isEmpty())
        text += QStringLiteral(" (%1)").arg(constraints.join(QLatin1String(", ")));
    return text;
}

QString markedPreDepends(const QString &text)
{
    return QStringLiteral("Pre-Depends: ") + text;
}

QString dependencyText(const DependencyGroup &group, const QString &architecture)
{
    QStringList alternatives;
    for (const Dependency &dependency : group.alternatives)
        alternatives.append(dependencyText(dependency, architecture));
    return alternatives.join(QLatin1String(" | "));
}
