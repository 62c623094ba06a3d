// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/**
 * What apt and apt-cache are asked, and the names apt gives to the files it downloads. Names and architectures come
 * from the fields of other people's packages, so they are checked before they get here: apt reads a leading dash as
 * an option and `*` or `?` as a pattern.
 */
namespace AptCommands
{
inline const QString Apt = QStringLiteral("apt");
inline const QString AptCache = QStringLiteral("apt-cache");
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
/** For bash: a search for names that begin with `prefix`, which has passed isSearchPrefix(). */
QStringList searchArguments(const QString &prefix);

/** True when `name` can only be understood as the name of one package. */
bool isPackageName(const QString &name);
/** True when `architecture` can only be understood as an architecture. */
bool isArchitecture(const QString &architecture);
/** True when a package name can begin with `text`; nothing else may reach the shell. */
bool isSearchPrefix(const QString &text);

/**
 * True when `fileName` is what apt calls the download of this package: for its own architecture or, as apt does not
 * tell them apart on the command line, for all.
 */
bool isDownloadOf(const QString &fileName,
                  const QString &name,
                  const QString &version,
                  const QString &architecture);
} // namespace AptCommands
