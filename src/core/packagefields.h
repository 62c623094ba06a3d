// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpression>
#include <QString>
#include <QStringList>

/**
 * Field names of Debian control data (deb822(5), deb-control(5)) and the expressions that define how a record is read.
 * The expressions serve single records. parsePackages() of the engine reads whole index files and gives the same
 * results.
 */
namespace PackageField
{
inline const QString Package = QStringLiteral("Package");
inline const QString Version = QStringLiteral("Version");
inline const QString Maintainer = QStringLiteral("Maintainer");
inline const QString Description = QStringLiteral("Description");
inline const QString Depends = QStringLiteral("Depends");
inline const QString Section = QStringLiteral("Section");
inline const QString Architecture = QStringLiteral("Architecture");
inline const QString Filename = QStringLiteral("Filename");

/** Each expression captures the value of the field in the group "word". */
extern const QRegularExpression PackageExpression;
extern const QRegularExpression VersionExpression;
extern const QRegularExpression MaintainerExpression;
extern const QRegularExpression DescriptionExpression;
extern const QRegularExpression DependsExpression;
extern const QRegularExpression SectionExpression;
extern const QRegularExpression ArchitectureExpression;
extern const QRegularExpression FilenameExpression;

/** Splits "component/section" into the groups "component" and "section". */
extern const QRegularExpression SectionSplitter;
/** Captures the operator ("op") and the version ("version") of one alternative of a Depends entry. */
extern const QRegularExpression DependencyConstraint;
/** Captures the name ("package") of one alternative of a Depends entry. */
extern const QRegularExpression DependencyName;
/** A line that starts a new field. It also ends a description. */
extern const QRegularExpression NewFieldLine;

/** Component and section of a Section value. */
struct SectionValue
{
    QString component;
    QString section;
};

/** Splits a Section value; an absent component becomes `indexComponent` or "main", an absent section "misc". */
SectionValue splitSection(const QString &value, const QString &indexComponent);

/** The entries of a Depends value, without ":any" and without runs of blanks between alternatives. */
QStringList dependsEntries(const QString &value);
} // namespace PackageField
