// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/packagerefresh.h"

#include "core/countof.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/repository/distributionsfile.h"
#include "signing/signedpackages.h"

#include <QHash>
#include <QSet>

#include <utility>

void PackageRefresh::show(JobContext &context, const QStringList &changedFiles)
{
    QList<PackageInfoPtr> listed = listPackages(context.path(), context.repository.info());
    sortPackages(&listed);
    SignedPackages(SignedPackages::packagesConfPath(context.path())).mark(&listed);
    show(context, listed, changedFiles);
}

bool PackageRefresh::takeOver(JobContext &context)
{
    // Indices that have still to be written do not list the packages.
    const QString path = context.path();
    const auto info = DistributionsFile(path).read();
    const auto listed = !info || ExportSession::isExportOwed(path) ? std::nullopt : readListing(path, *info);
    return listed && !show(context, *listed, {}).isEmpty();
}

ListingDifference PackageRefresh::show(JobContext &context,
                                       const QList<PackageInfoPtr> &listed,
                                       const QStringList &changedFiles)
{
    const QSet<QString> changed(changedFiles.cbegin(), changedFiles.cend());
    const int prefix = countOf(context.path()) + 1;
    QList<PackageInfoPtr> known;
    QHash<PackageKey, PackageInfoPtr> otherFile;
    const QList<PackageInfoPtr> shown = context.packages.all();
    for (const PackageInfoPtr &package : shown) {
        if (!changed.contains(package->filePath().mid(prefix)))
            known.append(package);
        else
            otherFile.insert(PackageKey::of(*package), package);
    }
    ListingDifference difference = compareListings(known, listed);
    const QList<PackageInfoPtr> coming = std::exchange(difference.added, {});
    for (const PackageInfoPtr &package : coming)
        (otherFile.remove(PackageKey::of(*package)) > 0 ? difference.changed : difference.added)
            .append(package);
    difference.removed += otherFile.values();
    context.packages.assign(difference.packages);
    for (const PackageInfoPtr &package : std::as_const(difference.removed))
        Q_EMIT context.listener.packageRemoved(package);
    for (const PackageInfoPtr &package : std::as_const(difference.added))
        Q_EMIT context.listener.packageAdded(package);
    for (const PackageInfoPtr &package : std::as_const(difference.changed))
        Q_EMIT context.listener.packageChanged(package);
    return difference;
}
