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

/** Deletes one file of the pool, and the folders above it that are empty then. */
void remove(const QString &repoPath, const QString &file);
} // namespace PoolFiles
