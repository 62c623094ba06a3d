// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

struct RepoInfo;

/** Whether there are indices for this code name. */
bool hasIndices(const QString &repoPath, const QString &codename);

/**
 * Deletes the index files below dists for components, architectures and a code name that only the old description has.
 * reprepro leaves these files, and their readers would use them. Links of suites to the code name are changed to the
 * new code name.
 */
void removeVanishedIndices(const QString &repoPath, const RepoInfo &before, const RepoInfo &after);
