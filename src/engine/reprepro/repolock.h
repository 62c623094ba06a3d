// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The lock of a repository's database. reprepro creates it for each run; a run that was killed leaves it behind. */
namespace RepoLock
{
/** The state of the lock. */
enum class State {
    Free, ///< there is no lock
    Stale, ///< no program has the database open
    Held, ///< a program has it open
    Unknown ///< a reprepro of another user is running, and its open files are not visible
};

/** Checks the lock file, and searches /proc for a reprepro that has the database open. */
State state(const QString &repoPath);
/** The error of a job that cannot work on the repository, because another program does. */
QString busyText(const QString &repoPath);
/** Creates the lock, as reprepro does. False when somebody has it. remove() gives it back. */
bool take(const QString &repoPath);
/** Deletes the lock. Otherwise than after take(), call it only after state() was Stale and the user has agreed. */
bool remove(const QString &repoPath);
/** Deletes files that a killed program was just creating in the database: the next reprepro would wait for its own for
 *  ever. Call it only while no program has the database open. */
void removeUnfinishedFiles(const QString &repoPath);
} // namespace RepoLock
