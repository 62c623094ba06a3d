// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>

#include <functional>

/** Deletes files from the pool of a repository. */
namespace PoolFiles
{
/** What dropUnused() works with. The functions receive paths below the repository. */
struct Dropping
{
    std::function<ProcessResult(const QString &arguments)> run; ///< runs reprepro
    std::function<bool(const QString &file)> areOurs; ///< whether an unused file may be deleted
    /** Called for each file that exists before any is deleted. When it returns false, nothing is deleted. May be
     *  missing. */
    std::function<bool(const QString &file)> keep = {};
};

/**
 * Deletes the files that no package needs and that are ours. Other unused files in the pool belong to somebody else.
 * Returns the last run of reprepro; after a failed run, files are left. The result says that it has not started, when
 * a file could not be kept.
 */
ProcessResult dropUnused(const QString &repoPath, const Dropping &dropping);

/**
 * Whether `file`, a path below the repository, is in the pool, and no existing folder between the pool and the file is
 * a link. The pool itself may be a link.
 */
bool isInside(const QString &repoPath, const QString &file);

/** Deletes one file of the pool, and then the folders above it that are empty. */
void remove(const QString &repoPath, const QString &file);
} // namespace PoolFiles
