// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QList>
#include <QString>

#include <optional>

/**
 * All packages of the repository at `root`, from the index files that reprepro has exported below dists/CODENAME.
 * Indices of architectures and components that are not in the description are left out.
 */
QList<PackageInfoPtr> listPackages(const QString &root, const RepoInfo &info);

/**
 * Sorts by name, architecture and type. The interface shows packages in this order and need not sort them again.
 * reprepro writes each index in this order, and checking it is very fast.
 */
void sortPackages(QList<PackageInfoPtr> *packages);

/**
 * listPackages() with the keys of signed packages, in the order of sortPackages(). Nothing when the repository has no
 * exported indices: its disk may not be mounted.
 */
std::optional<QList<PackageInfoPtr>> readListing(const QString &root, const RepoInfo &info);

/** The differences between two listings of a repository. */
struct ListingDifference
{
    QList<PackageInfoPtr> packages; ///< all listed packages; an unchanged package keeps its known record
    QList<PackageInfoPtr> added;
    QList<PackageInfoPtr> changed; ///< the new records
    QList<PackageInfoPtr> removed; ///< the known records

    bool isEmpty() const { return added.isEmpty() && changed.isEmpty() && removed.isEmpty(); }
};

/** Compares the known packages of a repository with a new listing. */
ListingDifference compareListings(const QList<PackageInfoPtr> &known, const QList<PackageInfoPtr> &listed);
