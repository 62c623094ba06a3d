// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>

#include <functional>

/** Deletes files from the pool of a repository. */
namespace PoolFiles
{
/**
 * Deletes the files that no package needs and for which `areOurs` returns true; it receives paths below the repository.
 * Other unused files in the pool belong to somebody else. Returns the last run of reprepro; after a failed run, files
 * are left.
 */
ProcessResult dropUnused(const QString &repoPath,
                         const std::function<bool(const QString &file)> &areOurs,
                         const std::function<ProcessResult(const QString &arguments)> &run);

/**
 * Whether `file`, a path below the repository, is in the pool, and no existing folder between the pool and the file is
 * a link. The pool itself may be a link.
 */
bool isInside(const QString &repoPath, const QString &file);

/** Deletes one file of the pool, and then the folders above it that are empty. */
void remove(const QString &repoPath, const QString &file);
} // namespace PoolFiles
