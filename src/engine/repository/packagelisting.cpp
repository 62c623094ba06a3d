// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/packagelisting.h"

#include "engine/repository/packagelist.h"
#include "engine/repository/packagesfile.h"
#include "signing/signedpackages.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <algorithm>
#include <utility>

namespace
{
bool isSame(const PackageInfo &known, const PackageInfo &listed)
{
    if (known.version != listed.version || known.signingKey != listed.signingKey)
        return false;
    // The record of a package that we added comes from its file, so its text differs from the index.
    return known.poolFile.isEmpty()
               ? known.control.text() == listed.control.text()
               : known.filePath() == listed.filePath() && known.depends() == listed.depends();
}
} // namespace

QList<PackageInfoPtr> listPackages(const QString &root, const RepoInfo &info)
{
    const QDir dists(QStringLiteral("%1/dists/%2").arg(root, info.codename));
    QStringList files;
    QDirIterator walk(dists.path(), {QStringLiteral("Packages")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(dists.relativeFilePath(walk.next()));
    // The order of a folder's entries depends on the file system. Sorting makes the list the same each time.
    files.sort();

    QList<PackageInfoPtr> packages;
    for (const QString &file : std::as_const(files)) {
        const auto place = indexPlace(file);
        if (place && info.architectures.contains(place->architecture)
            && info.components.contains(place->component))
            packages += readPackagesFile(dists.filePath(file), *place, root);
    }
    return packages;
}

void sortPackages(QList<PackageInfoPtr> *packages)
{
    const auto less = [](const PackageInfoPtr &left, const PackageInfoPtr &right) {
        if (const int order = left->name.compare(right->name))
            return order < 0;
        if (const int order = left->architecture.compare(right->architecture))
            return order < 0;
        return left->type < right->type;
    };
    if (!std::is_sorted(packages->cbegin(), packages->cend(), less))
        std::stable_sort(packages->begin(), packages->end(), less);
}

std::optional<QList<PackageInfoPtr>> readListing(const QString &root, const RepoInfo &info)
{
    // reprepro writes an index even when it contains no packages.
    if (info.codename.isEmpty()
        || !QFile::exists(QStringLiteral("%1/dists/%2/Release").arg(root, info.codename)))
        return std::nullopt;
    QList<PackageInfoPtr> packages = listPackages(root, info);
    sortPackages(&packages);
    SignedPackages(SignedPackages::packagesConfPath(root)).mark(&packages);
    return packages;
}

ListingDifference compareListings(const QList<PackageInfoPtr> &known, const QList<PackageInfoPtr> &listed)
{
    // When an index lists a package twice, the later record counts, as in the package tree.
    struct Records
    {
        PackageInfoPtr known;
        PackageInfoPtr listed;
    };
    QHash<PackageKey, Records> records;
    records.reserve(listed.size());
    for (const PackageInfoPtr &package : known)
        records[PackageKey::of(*package)].known = package;
    for (const PackageInfoPtr &package : listed)
        records[PackageKey::of(*package)].listed = package;
    ListingDifference difference;
    difference.packages.reserve(listed.size());
    for (const PackageInfoPtr &package : listed) {
        const Records of = records.value(PackageKey::of(*package));
        const bool counts = of.listed == package;
        const bool isKnown = counts && of.known && isSame(*of.known, *package);
        difference.packages.append(isKnown ? of.known : package);
        if (counts && !of.known)
            difference.added.append(package);
        else if (counts && !isKnown)
            difference.changed.append(package);
    }
    for (const PackageInfoPtr &package : known) {
        const Records of = records.value(PackageKey::of(*package));
        if (!of.listed && of.known == package)
            difference.removed.append(package);
    }
    return difference;
}
