// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QList>
#include <QString>

#include <optional>

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

/**
 * listPackages() with the marks of signed packages, in the order of sortPackages(). Nothing when the repository has no
 * exported indices: its disk may be absent.
 */
std::optional<QList<PackageInfoPtr>> readListing(const QString &root, const RepoInfo &info);

/** What has become of a repository's packages. */
struct ListingDifference
{
    QList<PackageInfoPtr> packages; ///< all that are listed now; the known record of one that is the same
    QList<PackageInfoPtr> added;
    QList<PackageInfoPtr> changed; ///< the new records
    QList<PackageInfoPtr> removed; ///< the known records

    bool isEmpty() const { return added.isEmpty() && changed.isEmpty() && removed.isEmpty(); }
};

/** Compares what is known of a repository with a new listing. */
ListingDifference compareListings(const QList<PackageInfoPtr> &known, const QList<PackageInfoPtr> &listed);
