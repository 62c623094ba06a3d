// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/copying/leavejob.h"

#include "core/countof.h"
#include "engine/archive/filechecksums.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/jobs/removejob.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"

#include <QHash>

#include <algorithm>

int LeaveJob::run(const QList<PackageInfoPtr> &packages, const QString &target)
{
    return RemoveJob(m_context).run(
        packages, [&](const QList<PackageInfoPtr> &present) { return arrived(present, target); });
}

QList<PackageInfoPtr> LeaveJob::arrived(const QList<PackageInfoPtr> &packages, const QString &target)
{
    const auto info = DistributionsFile(target).read();
    // Indices that have still to be written do not list what has come in.
    const auto listed = info && !ExportSession::isExportOwed(target) ? readListing(target, *info)
                                                                     : std::optional<QList<PackageInfoPtr>>();
    QMultiHash<QString, PackageInfoPtr> byName;
    for (const PackageInfoPtr &package : listed.value_or(QList<PackageInfoPtr>()))
        byName.insert(package->name, package);
    QHash<QString, QByteArray> checksums;
    const auto checksumOf = [&checksums](const PackageInfo &package) {
        const QString file = package.filePath();
        if (!checksums.contains(file))
            checksums.insert(file, FileChecksums::of(file).sha256);
        return checksums.value(file);
    };
    QList<PackageInfoPtr> arrived;
    QStringList staying;
    for (const PackageInfoPtr &package : packages) {
        const auto others = byName.values(package->name);
        const bool isThere = std::any_of(others.cbegin(), others.cend(), [&](const PackageInfoPtr &other) {
            return other->version == package->version && other->architecture == package->architecture
                   && other->type == package->type && !checksumOf(*package).isEmpty()
                   && checksumOf(*other) == checksumOf(*package);
        });
        if (isThere)
            arrived.append(package);
        else
            staying.append(QStringLiteral("%1 (%2)").arg(displayFileName(*package), package->architecture));
    }
    if (!staying.isEmpty())
        m_context.errors.critical(
            tr("%n package(s) stay(s) here, since the repository %1 does not have the same.",
               nullptr,
               countOf(staying))
                .arg(target),
            staying.join(QLatin1Char('\n')),
            WARNING);
    return arrived;
}
