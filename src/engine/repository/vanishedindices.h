// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct RepoInfo;

/**
 * Deletes the index files below dists of what stands in one description and not in the other: reprepro leaves them,
 * and whoever reads the folder takes them for true.
 */
void removeVanishedIndices(const QString &repoPath, const RepoInfo &before, const RepoInfo &after);
