// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The lock of a repository's database: reprepro makes it for each run, and a run that was killed leaves it behind. */
namespace RepoLock
{
enum class State {
    Free, ///< there is no lock
    Stale, ///< no program has the database open
    Held, ///< a program has it open
    Unknown ///< a reprepro of another user runs, and what it has open cannot be seen
};

State state(const QString &repoPath);
/** Takes the lock away; only after state() has said that it is stale and the user has agreed. */
bool remove(const QString &repoPath);
} // namespace RepoLock
