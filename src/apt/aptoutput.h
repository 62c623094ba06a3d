// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/** One version of a package from one source. */
struct AptPackageRecord
{
    QString name; ///< without an architecture qualifier
    QString version;
    QString architecture; ///< architecture of the index that lists the package, so never "all"
    QString repository; ///< origin text: URI, suite and architecture
    QString file; ///< path of the package file below the URI; empty unless apt shows whole records
    QString sha256 = {}; ///< of the package file; likewise
};

/** Whether one source line is for all architectures of a repository, or there is a line for each architecture. */
enum class SourceGrouping : quint8 { BySuite, BySuiteAndArchitecture };

/**
 * Parsers for the output of apt and apt-cache. A line that cannot be parsed is skipped. An origin text is the URI,
 * suite and architecture of a source, separated by blanks.
 */
namespace AptOutput
{
/**
 * The sources in the output of "apt-cache policy", in the order of their first appearance: URI, suite and components,
 * as after "deb " in a sources list. A line for one architecture begins with the option "[arch=…] ".
 */
QStringList sourceLines(const QString &policy, SourceGrouping grouping = SourceGrouping::BySuite);

/**
 * The origin texts for each version in the output of "apt show -a". A version that no source offers, such as the
 * installed version, has an empty list. A version that several sources offer with different contents appears once, with
 * all origins.
 */
QMap<QString, QStringList> versions(const QString &show);

/** The same output as one record for each version and origin. There is no record for a version without an origin. */
QVector<AptPackageRecord> records(const QString &show);

/** The names below "Reverse Provides: " in the output of "apt-cache showpkg", each once, in their order. */
QStringList providers(const QString &showpkg);

/**
 * The names in the output of the prefix search, each once. grep reads a dot in the prefix as any character, so they are
 * checked.
 */
QStringList searchedNames(const QString &search, const QString &prefix);

/** The origin text of the source in a line; empty when the line contains no source of packages. */
QString origin(const QString &line);

/** The values of all lines with the field, in their order, without surrounding white space. */
QStringList fieldValues(const QStringList &lines, const QString &field);

/** The hashes of the files in the output of "apt-get --print-uris download": TYPE:HEX by the files' names. */
QHash<QString, QString> downloadHashes(const QString &uris);

/** The value of a line NAME='VALUE' of "apt-config shell"; empty when there is none. */
QString shellValue(const QString &shell, const QString &name);
} // namespace AptOutput
