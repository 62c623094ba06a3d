// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * The state of a repository after the last job of this program, by which changes of other programs are noticed: sizes
 * and times of the database, digests of the description and of the Release files, and links of the indices. It
 * lies beside the restore points, as head.json and a folder.
 */
namespace RepositoryDigest
{
/** Stores the present state. To be called when a job has ended and its point is committed. False when it cannot. */
bool write(const QString &repoPath);
/** Whether nothing was touched since write(). Reads no file's contents. */
bool isCurrent(const QString &repoPath);
/**
 * Adds a point with what others have changed since write(), when they have changed packages or the description, and
 * stores the new state. True when there is a new point. The caller holds the lock of the job.
 */
bool noteOutsideChange(const QString &repoPath);
/** The folder with the stored indices, as the folder dists was then. It need not exist. */
QString indices(const QString &repoPath);
/** The number of the newest point when the state was stored; 0 when none is stored. */
int newestNumber(const QString &repoPath);
} // namespace RepositoryDigest
