// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct RepoInfo;

/** Whether there are indices of this code name. */
bool hasIndices(const QString &repoPath, const QString &codename);

/**
 * Deletes the index files below dists of what stands in one description and not in the other: reprepro leaves them,
 * and whoever reads the folder takes them for true. Links that give the code name a second name follow a new one.
 */
void removeVanishedIndices(const QString &repoPath, const RepoInfo &before, const RepoInfo &after);
