// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/**
 * Arguments for apt and apt-cache, and the names of the files that apt downloads. Names and architectures come from
 * other people's packages, so they must be checked before these functions get them: apt reads a leading dash as an
 * option, and `*` or `?` as a pattern.
 */
namespace AptCommands
{
inline const QString Apt = QStringLiteral("apt");
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
/** For apt. */
QStringList downloadArguments(const QString &name, const QString &version, const QString &architecture);
/** For bash: a search for names that begin with `prefix`. `prefix` must pass isSearchPrefix(). */
QStringList searchArguments(const QString &prefix);

/** True when apt can read `name` only as the name of one package. */
bool isPackageName(const QString &name);
/** True when apt can read `architecture` only as an architecture. */
bool isArchitecture(const QString &architecture);
/** True when a package name can begin with `text`. No other text may reach the shell. */
bool isSearchPrefix(const QString &text);

/**
 * True when `fileName` is the name that apt gives to the download of this package. The file may be for this
 * architecture or for "all", because the command line of apt is the same for both.
 */
bool isDownloadOf(const QString &fileName,
                  const QString &name,
                  const QString &version,
                  const QString &architecture);
} // namespace AptCommands
