// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/** A version of a package as one source offers it. */
struct AptPackageRecord
{
    QString name; ///< without an architecture qualifier
    QString version;
    QString architecture; ///< of the index that lists it, so never "all"
    QString repository; ///< origin text: URI, suite and architecture
    QString file; ///< the package's file below the URI; empty unless apt is set up to show whole records
};

/** Whether one source line of a repository serves all its architectures, or each gets a line of its own. */
enum class SourceGrouping : quint8 { BySuite, BySuiteAndArchitecture };

/**
 * What apt and apt-cache print, made into values. A line that cannot be read is skipped. An origin text is URI, suite
 * and architecture of a source, separated by blanks.
 */
namespace AptOutput
{
/**
 * The sources in the output of "apt-cache policy", in the order of their first appearance: URI, suite and components,
 * as they follow "deb " in a sources list. A line for one architecture begins with the option "[arch=…] ".
 */
QStringList sourceLines(const QString &policy, SourceGrouping grouping = SourceGrouping::BySuite);

/**
 * The origin texts by version in the output of "apt show -a". A version that no source offers, such as the installed
 * one, has an empty list; a version that sources offer with different contents is there once, with all their origins.
 */
QMap<QString, QStringList> versions(const QString &show);

/** The same output as one record for each version and origin; a version without an origin gives none. */
QVector<AptPackageRecord> records(const QString &show);

/** The names under "Reverse Provides: " in the output of "apt-cache showpkg", each once, in their order. */
QStringList providers(const QString &showpkg);

/** The names that the prefix search printed, each once; grep reads a dot of the prefix as any character. */
QStringList searchedNames(const QString &search, const QString &prefix);

/** The origin text of the source that a line names; empty when it names none that packages are fetched from. */
QString origin(const QString &line);

/** The values of all lines that hold the field, in their order, without surrounding white space. */
QStringList fieldValues(const QStringList &lines, const QString &field);
} // namespace AptOutput
