// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/** A package to download. */
struct AptDownload
{
    QString name;
    QString version;
    QString architecture; ///< of the question; the file can be for "all"
};

/**
 * Arguments for apt and apt-cache, and the names of the files that apt downloads. Names and architectures come from
 * other people's packages, so they must be checked before these functions get them: apt reads a leading dash as an
 * option, and `*` or `?` as a pattern.
 */
namespace AptCommands
{
inline const QString Apt = QStringLiteral("apt");
inline const QString AptGet = QStringLiteral("apt-get");
inline const QString AptCache = QStringLiteral("apt-cache");
inline const QString AptConfig = QStringLiteral("apt-config");
inline const QString Bash = QStringLiteral("bash");

/** The options that make apt read `listFile` as its main sources list; none when the path is empty. */
QStringList privateListOptions(const QString &listFile);

/** For apt-cache. */
QStringList policyArguments(const QString &listFile);
/** For apt-cache. */
QStringList providersArguments(const QString &name, const QString &listFile);
/** For apt. */
QStringList versionsArguments(const QString &name, const QString &architecture, const QString &listFile);
/** For apt. */
QStringList recordsArguments(const QString &name, const QString &listFile);
/** For apt: many packages in one run. */
QStringList recordsArguments(const QStringList &names, const QString &listFile);
/** For apt-cache: the whole paragraphs of many packages in one run. */
QStringList paragraphsArguments(const QStringList &names);
/** For apt. */
QStringList downloadArguments(const QString &name, const QString &version, const QString &architecture);
/** For apt-get: many packages in one run. */
QStringList downloadArguments(const QVector<AptDownload> &packages);
/** For apt-get: the names and hashes of the files of such a run, see AptOutput::downloadHashes(). */
QStringList downloadHashesArguments(const QVector<AptDownload> &packages);
/** For bash: a search for names that begin with `prefix`. `prefix` must pass isSearchPrefix(). */
QStringList searchArguments(const QString &prefix);

/** True when apt can read `name` only as the name of one package. */
bool isPackageName(const QString &name);
/** True when apt can read `architecture` only as an architecture. */
bool isArchitecture(const QString &architecture);
/** True when a package name can begin with `text`. No other text may reach the shell. */
bool isSearchPrefix(const QString &text);

/** The name that apt gives to the file of a package. `architecture` is the package's own. */
QString fileName(const QString &name, const QString &version, const QString &architecture);

/**
 * The one of the files that apt has made for this package; empty when there is none. The file may be for the
 * architecture or for "all", because the command line of apt is the same for both.
 */
QString fileOf(const AptDownload &package, const QStringList &files);
} // namespace AptCommands
