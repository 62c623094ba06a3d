// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * A folder on another disk for the copy of a database (DatabaseCopy), for when the repository's own disk is too full.
 * An empty file in the database has the number of the folder in its name, so that whoever opens the repository after a
 * kill finds it; the folder says which database it belongs to, and is the user's alone.
 */
namespace CopyElsewhere
{
enum class Kind {
    Disk, ///< the user's folder for data, or /var/tmp
    Memory ///< /dev/shm, which is gone when the user logs out or the power fails
};

/**
 * Makes a folder where so many bytes are free, on another file system than the repository's; empty when there is none.
 */
QString make(const QString &repoPath, qint64 size, Kind kind = Kind::Disk);
/** The folder of the repository, however it was moved on its disk; empty when it has none, or none of this user. */
QString folder(const QString &repoPath);
/** Whether the database names a folder, be it there or not. */
bool isNamed(const QString &repoPath);
/** Deletes the folder with all that is in it. */
void drop(const QString &repoPath);
} // namespace CopyElsewhere
