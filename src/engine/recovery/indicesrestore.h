// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/** Makes the index files of a repository those of its running point again, file by file. */
namespace IndicesRestore
{
/**
 * Whether a Release file of the running point was replaced by another one. Clients may have read it, and apt refuses an
 * older one than it has. False where the point has no index files.
 */
bool isReleaseReplaced(const QString &repoPath);
/**
 * Links the index files of the running point to their places and deletes the others in the distributions that the point
 * has, and in `codename`. Can be repeated. False when something could not be put back.
 */
bool putBack(const QString &repoPath, const QString &codename);
} // namespace IndicesRestore
