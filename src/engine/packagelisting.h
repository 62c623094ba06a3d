// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QList>
#include <QString>

/**
 * All packages of the repository at `root`, read from the index files that reprepro has exported below
 * dists/CODENAME. Indices of architectures and components that the description does not name are left out.
 */
QList<PackageInfoPtr> listPackages(const QString &root, const RepoInfo &info);

/**
 * Sorts by name, architecture and kind, the order in which packages are shown, so that the interface need not do it.
 * reprepro writes each index in that order, which costs next to nothing to find out.
 */
void sortPackages(QList<PackageInfoPtr> *packages);
