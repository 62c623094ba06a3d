// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>

/**
 * The argument strings that reprepro(1) is run with. Each fragment carries its own blanks, so that fragments are put
 * together without separators; the whole becomes one command line that QProcess::splitCommand() cuts into words.
 */
namespace ReproCommand
{
/** A word as it stands on the command line: in double quotes when it holds a blank or a quote. */
QString quoted(const QString &word);

/** The whole command line for the repository at `path`. */
QString commandLine(const QString &path, const QString &arguments);

QString exportIndices();
/** Takes out what the description does not name; with `packages` also where packages are. */
QString clearVanished(bool packages);
/** Puts the packages of one distribution into the same places of another. */
QString copyAll(const QString &from, const QString &to);
/** Gives an architecture the architecture-independent packages of the others. */
QString flood(const QString &codename, const QString &architecture);
QString removeAllTracks(const QString &codename);
QString deleteUnreferenced();
/** Lists the pool files that nothing uses. */
QString dumpUnreferenced();
/** For files of the pool that are to be deleted, as paths below the repository. */
QString forget(const QStringList &poolFiles);
/** The files that packages need, as "distribution|component|architecture file". */
QString dumpReferences();

/**
 * Removes packages. `type` restricts the removal to that kind; leave it out unless the package stands in the
 * repository in both kinds, which a plain removal takes both.
 */
QString remove(const QString &codename,
               const QStringList &names,
               const QString &component,
               const QString &architecture,
               const PackageType *type = nullptr);

/** Includes files of one kind, which follows from their suffix, where `record` says and with its section. */
QString include(const QString &codename, const PackageInfo &record, const QStringList &files);

/** Finds out anew which files the packages need. */
QString rereference();

/** Tells the database of a file that lies in the pool. */
QString detect(const QString &poolFile);

/** Lists all files that the database knows, one a line, with their checksums behind. */
QString listChecksums();

/** What is put in front of an include whose package has no priority of its own. */
QString defaultPriority();

/** Lists the pool files of the packages with this name; component and architecture may be empty. */
QString listFiles(const QString &codename,
                  const QString &name,
                  const QString &component,
                  const QString &architecture);

/** The same of several packages. */
QString listFiles(const QString &codename,
                  const QStringList &names,
                  const QString &component,
                  const QString &architecture);

/** Lists all packages, one a line, as "component architecture name file". */
QString listAllFiles(const QString &codename);

/** The same of another folder with a database. */
QString listAllFilesIn(const QString &databaseFolder, const QString &codename);

/** The path below the repository's directory that reprepro gives a package's file. */
QString poolFile(const PackageInfo &package, const QString &controlArchitecture);
} // namespace ReproCommand
