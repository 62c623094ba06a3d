// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"

#include "core/repoinfo.h"

namespace PackageField
{
const QRegularExpression PackageExpression(QStringLiteral("^Package:(?<word>.*$)"));
const QRegularExpression VersionExpression(QStringLiteral("^Version:(?<word>.*$)"));
const QRegularExpression MaintainerExpression(QStringLiteral("^Maintainer:(?<word>.*$)"));
const QRegularExpression DescriptionExpression(QStringLiteral("^Description:(?<word>.*$)"));
const QRegularExpression DependsExpression(QStringLiteral("^Depends:(?<word>.*$)"));
const QRegularExpression SectionExpression(QStringLiteral("^Section:(?<word>.*$)"));
const QRegularExpression ArchitectureExpression(QStringLiteral("^Architecture:(?<word>.*$)"));
const QRegularExpression FilenameExpression(QStringLiteral("^Filename:(?<word>.*$)"));
const QRegularExpression SectionSplitter(QStringLiteral("(?<component>.*)/(?<section>.*)"));
const QRegularExpression DependencyConstraint(
    QStringLiteral(".*\\(\\s*(?<op><<|<=|<|=|>=|>>|>)\\s*(?<version>[^\\s]+)\\s*\\).*$"));
const QRegularExpression DependencyName(QStringLiteral("^\\s*(?<package>[^\\s]+)\\s*\\(?.*"));
const QRegularExpression NewFieldLine(QStringLiteral("^[A-Z].*?:.*?$"));

SectionValue splitSection(const QString &value, const QString &indexComponent)
{
    SectionValue result{indexComponent, value.trimmed()};
    const auto match = SectionSplitter.match(result.section);
    if (match.hasMatch()) {
        result.component = match.captured(QStringLiteral("component"));
        result.section = match.captured(QStringLiteral("section"));
    }
    if (result.component.isEmpty())
        result.component = DefaultComponent;
    if (result.section.isEmpty())
        result.section = DefaultSection;
    return result;
}

QStringList dependsEntries(const QString &value)
{
    static const QRegularExpression blanks(QStringLiteral("\\s{2,}"));
    QStringList entries = value.trimmed().split(QStringLiteral(", "), Qt::SkipEmptyParts);
    for (QString &entry : entries) {
        if (entry.contains(QLatin1Char('|')))
            entry.remove(blanks);
        entry.remove(QStringLiteral(":any"));
    }
    return entries;
}
} // namespace PackageField
