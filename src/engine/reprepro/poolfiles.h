// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QString>

#include <functional>

namespace PoolFiles
{
/**
 * Deletes the files that no package needs any more and that are ours, as `areOurs` says of their paths below the
 * repository: what else lies in the pool without use belongs to somebody. Returns the last run of reprepro; one that
 * failed has left files.
 */
ProcessResult dropUnused(const QString &repoPath,
                         const std::function<bool(const QString &file)> &areOurs,
                         const std::function<ProcessResult(const QString &arguments)> &run);

/**
 * Whether the path, given below the repository, is that of a file in the pool, and none of the folders that are there
 * between the pool and the file is a link. The pool itself may be one.
 */
bool isInside(const QString &repoPath, const QString &file);

/** Deletes one file of the pool, and the folders above it that are empty then. */
void remove(const QString &repoPath, const QString &file);
} // namespace PoolFiles
