// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * A folder on another disk for the copy of a database (RunningPoint), used when the repository's own disk is too full.
 * The number of the folder is in the name of an empty file in the database. So a program that opens the repository
 * after a kill finds the folder. A record in the folder names its database. Only the user can access the folder.
 */
namespace CopyElsewhere
{
/** Where the folder is created. */
enum class Kind {
    Disk, ///< the user's data folder, or /var/tmp
    Memory ///< /dev/shm, which is lost at a power failure and may be cleaned at logout
};

/** Creates a folder with this many free bytes, on another file system than the repository; empty when there is none. */
QString make(const QString &repoPath, qint64 size, Kind kind = Kind::Disk);
/** The folder of the repository, even if the repository was moved on its disk; empty when this user has none. */
QString folder(const QString &repoPath);
/** Whether the database names a folder, even one that does not exist. */
bool isNamed(const QString &repoPath);
/** Deletes the folder with all its contents. */
void drop(const QString &repoPath);
} // namespace CopyElsewhere
