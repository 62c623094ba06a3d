// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>

/**
 * The arguments for reprepro(1) as strings. Each string contains its own blanks, so strings can be joined without
 * separators. QProcess::splitCommand() splits the complete command line into words.
 */
namespace ReproCommand
{
/** A word for the command line: in double quotes when it contains a blank or a double quote. */
QString quoted(const QString &word);

/** The complete command line for the repository at `path`. */
QString commandLine(const QString &path, const QString &arguments);

/** Writes the indices of all distributions. */
QString exportIndices();
/** Removes parts that are not in the description; with `packages` also parts that contain packages. */
QString clearVanished(bool packages);
/** Copies the packages of one distribution to the same components and architectures of another. */
QString copyAll(const QString &from, const QString &to);
/** Adds the architecture-independent packages of the other architectures to an architecture. */
QString flood(const QString &codename, const QString &architecture);
/** Removes the tracking data of a distribution. */
QString removeAllTracks(const QString &codename);
/** Deletes all pool files that nothing uses. */
QString deleteUnreferenced();
/** Lists the pool files that nothing uses. */
QString dumpUnreferenced();
/** Removes pool files from the database before they are deleted. The paths are below the repository. */
QString forget(const QStringList &poolFiles);
/** Lists the files that packages need, as "distribution|component|architecture file". */
QString dumpReferences();
/** The same for a database in another folder, which must be whole. */
QString dumpReferencesIn(const QString &databaseFolder);

/**
 * Removes packages. `type` restricts the removal to packages of this type. Set it only when the repository has the
 * package in both types, because a plain removal removes both.
 */
QString remove(const QString &codename,
               const QStringList &names,
               const QString &component,
               const QString &architecture,
               const PackageType *type = nullptr);

/** Adds files of one type, which their suffix decides, to the place of `record` and with its section. */
QString include(const QString &codename, const PackageInfo &record, const QStringList &files);

/**
 * Takes in what the sources in conf/updates offer. Their indices are read anew into an empty folder. The run prints
 * what it changes, see ReproAnswer::addedPlaces().
 */
QString update(const QString &codename, const QString &listsFolder);

/** Computes again which files the packages need. */
QString rereference();

/** Adds files that are in the pool to the database. */
QString detect(const QStringList &poolFiles);

/** Lists all files in the database with their checksums, one on each line. */
QString listChecksums();

/** Prefix for a change that leaves the pool files that it takes out. */
QString keepingUnreferenced();

/** The same for a database in another folder, which must be whole. */
QString listChecksumsIn(const QString &databaseFolder);

/** Prefix for an include of a package without a priority of its own. */
QString defaultPriority();

/** Lists the pool files of the packages with this name; component and architecture may be empty. */
QString listFiles(const QString &codename,
                  const QString &name,
                  const QString &component,
                  const QString &architecture);

/** Lists the packages with these names in a component, in the form of listAllFiles(). */
QString listPackages(const QString &codename, const QStringList &names, const QString &component);

/** Lists all packages as "component architecture name file", one on each line. */
QString listAllFiles(const QString &codename);

/** The same for a database in another folder. */
QString listAllFilesIn(const QString &databaseFolder, const QString &codename);
} // namespace ReproCommand
