// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsparser.h"

#include "core/controltext.h"
#include "core/relationtext.h"

#include <QStringList>

namespace
{
constexpr std::string_view DependsField = "Depends";
constexpr std::string_view PreDependsField = "Pre-Depends";

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
    RelationText relation;
    if (!readRelation(text, relation))
        return false;
    dependency.name = m_pool.string(relation.name);
    dependency.architecture = relation.qualifier.empty() || relation.qualifier == "any"
                                  ? architecture
                                  : m_pool.string(relation.qualifier);
    dependency.op = m_pool.string(relation.op);
    dependency.version = m_pool.string(relation.version);
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
