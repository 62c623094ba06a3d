// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <sys/stat.h>

/** The folders in which a repository's restore points lie: beside the database, which nobody serves or lists. */
namespace PointFolders
{
/** The path of this entry of the database's folder. */
QString inDatabase(const QString &repoPath, const QString &name);
/** The pool files of the running job; see KeptFiles. */
QString kept(const QString &repoPath);
/**
 * The names of the files of a database, in db/ or in a copy of it, without those that reprepro can make again: the
 * cache of contents can be the largest of all, and the one of the indices is wrong for any other database.
 */
QStringList databaseFiles(const QString &folder);
/** The committed points, each in a folder named by its number. */
QString history(const QString &repoPath);
/**
 * Whether the folder was made by a user who may change the database. A folder of somebody else, or a link, is neither
 * read nor deleted.
 */
bool isOurs(const QString &repoPath, const QString &folder);
/** The same for the status of the folder (lstat) and that of the database's folder. */
bool isOurs(const struct stat &folder, const struct stat &database);
} // namespace PointFolders
