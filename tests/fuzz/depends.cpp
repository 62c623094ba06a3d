// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "depends/dependsparser.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <algorithm>

namespace
{
const QString Architecture = QStringLiteral("amd64");

/** The expressions backtrack so much that longer fields would take minutes. */
constexpr int LongestForExpressions = 400;

/** One alternative as the expressions define it, and with the end of the name as in dpkg. */
Dependency defined(const QString &text)
{
    Dependency dependency;
    QString name = PackageField::DependencyName.match(text)
                       .captured(QStringLiteral("package"))
                       .section(QLatin1Char('('), 0, 0);
    const QString qualifier = name.section(QLatin1Char(':'), 1);
    dependency.name = name.section(QLatin1Char(':'), 0, 0);
    dependency.architecture
        = qualifier.isEmpty() || qualifier == QLatin1String("any") ? Architecture : qualifier;
    const auto constraint = PackageField::DependencyConstraint.match(text);
    dependency.op = constraint.captured(QStringLiteral("op"));
    dependency.version = constraint.captured(QStringLiteral("version"));
    return dependency;
}

QVector<QVector<Dependency>> definedEntries(const QString &field)
{
    QVector<QVector<Dependency>> entries;
    const QStringList texts = field.split(QLatin1Char(','));
    for (const QString &text : texts) {
        QVector<Dependency> alternatives;
        const QStringList parts = text.split(QLatin1Char('|'));
        for (const QString &part : parts) {
            const Dependency dependency = defined(part);
            if (!dependency.name.isEmpty())
                alternatives.append(dependency);
        }
        if (!alternatives.isEmpty())
            entries.append(alternatives);
    }
    return entries;
}

QString description(const Dependency &dependency)
{
    return QStringList{dependency.name, dependency.architecture, dependency.op, dependency.version}.join(
        QLatin1Char('\t'));
}

/** The displayed and stored text of an entry must give the same text when it is parsed again. */
void checkRoundTrip(const QVector<DependencyGroup> &entries, DependsParser *parser)
{
    for (const DependencyGroup &entry : entries) {
        const QByteArray text = dependencyText(entry, Architecture).toUtf8();
        const auto again
            = parser->entries({text.constData(), static_cast<std::size_t>(text.size())}, Architecture);
        FUZZ_RULE(again.size() == 1);
        FUZZ_EQUAL(dependencyText(again.first(), Architecture), QString::fromUtf8(text));
    }
}
} // namespace

void FuzzTarget::depends(std::string_view input)
{
    const QByteArray field = Fuzzing::expanded(input);
    const std::string_view view(field.constData(), static_cast<std::size_t>(field.size()));
    const QString text = QString::fromUtf8(field);
    DependsParser parser;
    const auto entries = parser.entries(view, Architecture);
    int size = 0;
    for (const DependencyGroup &entry : entries) {
        FUZZ_RULE(!entry.alternatives.isEmpty());
        for (const Dependency &dependency : entry.alternatives) {
            FUZZ_RULE(!dependency.name.isEmpty() && dependency.op.isEmpty() == dependency.version.isEmpty());
            for (const QString &value : {dependency.name, dependency.architecture, dependency.version})
                FUZZ_RULE(!Fuzzing::breaksLine(value));
            size += dependency.name.size() + dependency.version.size();
        }
    }
    FUZZ_RULE(size <= field.size());

    const auto groups = parser.groups(view, Architecture);
    FUZZ_RULE(groups.size() <= entries.size() && groups.isEmpty() == entries.isEmpty());
    const QStringList simple = PackageField::dependsEntries(text);
    FUZZ_RULE(simple.join(QString()).size() <= text.size());

    // The two parsers split bytes that are not valid UTF-8 at different places.
    if (field.size() > LongestForExpressions || text.toUtf8() != field
        || text.contains(QChar(QChar::ByteOrderMark)) || text.contains(QLatin1Char('\n')))
        return;
    const auto expected = definedEntries(text);
    FUZZ_RULE(entries.size() == expected.size());
    for (int i = 0; i < entries.size(); ++i) {
        const auto &alternatives = entries.at(i).alternatives;
        FUZZ_RULE(alternatives.size() == expected.at(i).size());
        for (int j = 0; j < alternatives.size(); ++j)
            FUZZ_EQUAL(description(alternatives.at(j)), description(expected.at(i).at(j)));
    }
    checkRoundTrip(entries, &parser);
}
