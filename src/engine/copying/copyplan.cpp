// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/copying/copyplan.h"

#include "depends/dependscollection.h"
#include "engine/history/indexedfiles.h"
#include "engine/history/packagechange.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
QByteArray listedChecksum(const PackageInfo &package, const QHash<QString, IndexedFiles::Entry> &listed)
{
    const PackageChange::State state = PackageChange::stateOf(package);
    // The record of a package that was signed here has the text of the unsigned file.
    if (!package.isSigned() && !state.sha256.isEmpty())
        return state.sha256.toLatin1();
    return listed.value(state.file).sha256.toLatin1();
}
} // namespace

QList<PackageInfoPtr> CopySource::leaving() const
{
    QSet<QString> files;
    for (const PackageInfoPtr &package : packages)
        files.insert(package->filePath());
    QList<PackageInfoPtr> leaving;
    std::copy_if(all.cbegin(), all.cend(), std::back_inserter(leaving), [&files](const auto &package) {
        return files.contains(package->filePath());
    });
    return leaving;
}

CopyPlan CopyPlan::of(const CopySource &source,
                      const QString &component,
                      const QList<PackageInfoPtr> &present,
                      const std::function<bool()> &stopped)
{
    QList<PackageInfoPtr> packages = source.packages;
    if (source.withDepends)
        packages += missingDependencies(source.packages, present, source.all, stopped);
    QSet<QString> unknown; // paths below the repository
    for (const PackageInfoPtr &package : std::as_const(packages))
        if (listedChecksum(*package, {}).isEmpty())
            unknown.insert(PackageChange::stateOf(*package).file);
    const auto listed = unknown.isEmpty()
                            ? QHash<QString, IndexedFiles::Entry>()
                            : IndexedFiles::find(source.path + QLatin1String("/dists"), unknown);
    QHash<QString, QList<PackageInfoPtr>> leaving;
    const auto allLeaving = source.moves ? source.leaving() : QList<PackageInfoPtr>();
    for (const PackageInfoPtr &package : allLeaving)
        leaving[package->filePath()].append(package);

    const auto copied = std::make_shared<CopiedFiles>();
    copied->origin = tr("the repository %1").arg(QFileInfo(source.path).fileName());
    CopyPlan plan;
    for (const PackageInfoPtr &chosenPackage : std::as_const(packages)) {
        const PackageInfo &package = *chosenPackage;
        const QString path = package.filePath();
        if (path.isEmpty() || copied->files.contains(path))
            continue;
        CopiedFiles::File file;
        file.component = component.isEmpty() ? package.indexComponent : component;
        file.sha256 = listedChecksum(package, listed);
        file.signingKey = package.signingKey;
        if (file.component != package.indexComponent)
            file.leaving = leaving.value(path);
        copied->files.insert(path, file);
        plan.files.append(path);
        plan.packages.insert(path, chosenPackage);
    }
    plan.copied = copied;
    return plan;
}
