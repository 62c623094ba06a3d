// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsparser.h"

#include "core/controltext.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace
{
constexpr std::string_view DependsField = "Depends";
constexpr std::string_view PreDependsField = "Pre-Depends";

/** The order of the alternatives in the expression: the longer operators first. */
constexpr std::array<std::string_view, 7> Operators{"<<", "<=", "<", "=", ">=", ">>", ">"};

/** White space as the expressions see it. */
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

/** A stretch without blanks: where it ends, its last closing parenthesis, and where the blanks behind it end. */
struct Run
{
    std::size_t begin = std::string_view::npos;
    std::size_t end = 0;
    std::size_t lastClosing = std::string_view::npos;
    std::size_t afterBlanks = 0;
};

/**
 * The run from `begin` on. Called with ever smaller positions, it goes on from the run found before, so that a field
 * full of parentheses is still read only once.
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
 * The last parenthesis that holds an operator and a version. Greedy as the expression is, the version reaches as far
 * as a closing parenthesis still follows.
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

/** Cuts the next piece before `separator` off the front of `rest`. */
std::string_view takePiece(std::string_view &rest, char separator)
{
    const auto end = rest.find(separator);
    const auto piece = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    return piece;
}

/** Whether the entry repeats the name of `other` and nothing else, so that both can be one record. */
bool repeatsName(const DependencyGroup &entry, const DependencyGroup &other)
{
    return entry.alternatives.size() == 1 && other.alternatives.size() == 1
           && entry.alternatives.first().name == other.alternatives.first().name
           && entry.alternatives.first().architecture == other.alternatives.first().architecture;
}

/** Whether the entries are the same, written twice. */
bool asksTheSame(const DependencyGroup &entry, const DependencyGroup &other)
{
    return std::equal(entry.alternatives.cbegin(),
                      entry.alternatives.cend(),
                      other.alternatives.cbegin(),
                      other.alternatives.cend(),
                      [](const Dependency &a, const Dependency &b) {
                          return a.name == b.name && a.architecture == b.architecture && a.op == b.op
                                 && a.version == b.version && a.secondOp == b.secondOp
                                 && a.secondVersion == b.secondVersion;
                      });
}

/** Puts the constraint of `from` into a free place of `into`; false when there is none. */
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

QMap<QString, DependencyGroup> DependsParser::groups(std::string_view field, const QString &architecture)
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
            const bool isRepeated = asksTheSame(*known, entry)
                                    || (result.contains(text) && asksTheSame(result.value(text), entry));
            if (isRepeated)
                continue;
            // The same name once more, once with alternatives and once without.
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

QMap<QString, DependencyGroup> DependsParser::groups(const PackageInfo &package)
{
    const std::string_view text = package.control.text();
    auto result = groups(unfoldedField(text, DependsField, m_unfolded), package.architecture);
    const auto first = groups(unfoldedField(text, PreDependsField, m_unfolded), package.architecture);
    for (auto entry = first.cbegin(); entry != first.cend(); ++entry) {
        // Behind the other one of that name.
        const QString key
            = result.contains(entry.key()) ? entry.key() + QLatin1String(" (Pre-Depends)") : entry.key();
        result.insert(key, *entry);
        result[key].isPreDepends = true;
    }
    return result;
}

QString DependsParser::shared(std::string_view text)
{
    if (text.empty())
        return {};
    const auto known = m_pool.find(text);
    if (known != m_pool.end())
        return known->second;
    m_texts.emplace_back(text);
    return m_pool.emplace(m_texts.back(), QString::fromUtf8(text.data(), static_cast<int>(text.size())))
        .first->second;
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
    // The expression runs on to the next blank; dpkg does not ask for one before a constraint.
    name = name.substr(0, name.find('('));
    const auto colon = name.find(':');
    const auto qualifier = colon == std::string_view::npos ? std::string_view() : name.substr(colon + 1);
    name = name.substr(0, colon);
    if (name.empty())
        return false;
    dependency.name = shared(name);
    dependency.architecture = qualifier.empty() || qualifier == "any" ? architecture : shared(qualifier);
    const Constraint constraint = readConstraint(text);
    dependency.op = shared(constraint.op);
    dependency.version = shared(constraint.version);
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
