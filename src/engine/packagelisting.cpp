// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/packagelisting.h"

#include "engine/packagesfile.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>

QList<PackageInfoPtr> listPackages(const QString &root, const RepoInfo &info)
{
    const QDir dists(QStringLiteral("%1/dists/%2").arg(root, info.codename));
    QStringList files;
    QDirIterator walk(dists.path(), {QStringLiteral("Packages")}, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        files.append(dists.relativeFilePath(walk.next()));
    // The order of a folder's entries is the file system's; a list that is the same each time is easier to follow.
    files.sort();

    QList<PackageInfoPtr> packages;
    for (const QString &file : qAsConst(files)) {
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
