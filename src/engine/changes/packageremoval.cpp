// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packageremoval.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QMap>

#include <algorithm>

void PackageRemoval::removeTogether(const QList<PackageInfoPtr> &packages)
{
    QMap<QString, QList<PackageInfoPtr>> groups;
    for (const PackageInfoPtr &package : packages) {
        const QString sameArguments = ReproCommand::remove(m_context.repository.info().codename,
                                                           QStringList{QStringLiteral("name")},
                                                           package->indexComponent,
                                                           package->architecture,
                                                           kindToName(*package));
        groups[sameArguments].append(package);
    }
    for (const QList<PackageInfoPtr> &group : qAsConst(groups)) {
        if (group.size() == 1 || m_session->isDamaged())
            continue;
        QStringList names;
        for (const PackageInfoPtr &package : group) {
            m_session->recordAtRisk(package->filePath());
            names.append(package->name);
        }
        const PackageInfo &first = *group.first();
        const ProcessResult result
            = m_session->remove(ReproCommand::remove(m_context.repository.info().codename,
                                                     names,
                                                     first.indexComponent,
                                                     first.architecture,
                                                     kindToName(first)));
        // When the run fails, each package is tried alone. Removing a package that is out already is no error.
        if (!result.succeeded() || ReproAnswer::databaseTroubled(result.errorOutput))
            continue;
        if (ReproAnswer::nothingRemoved(result.errorOutput))
            m_session->requireExport();
        for (const PackageInfoPtr &package : group)
            m_gone.insert(PackageKey::of(*package));
    }
}

bool PackageRemoval::remove(const PackageInfoPtr &package, bool makesRoom)
{
    if (!m_gone.remove(PackageKey::of(*package)) && !removeFromDatabase(*package, makesRoom))
        return false;
    if (const PackageInfoPtr listed = m_context.packages.take(PackageKey::of(*package))) {
        SignatureRecord::forget(&m_context, *listed);
        Q_EMIT m_context.listener.packageRemoved(listed);
    }
    return true;
}

const PackageType *PackageRemoval::kindToName(const PackageInfo &package) const
{
    PackageKey twin = PackageKey::of(package);
    twin.type = package.type == PackageType::Deb ? PackageType::Udeb : PackageType::Deb;
    return m_context.packages.find(twin) ? &package.type : nullptr;
}

bool PackageRemoval::removeFromDatabase(const PackageInfo &package, bool makesRoom)
{
    m_session->recordAtRisk(package.filePath());
    const ProcessResult result = m_session->remove(ReproCommand::remove(m_context.repository.info().codename,
                                                                        QStringList{package.name},
                                                                        package.indexComponent,
                                                                        package.architecture,
                                                                        kindToName(package)),
                                                   makesRoom);
    // When only the indices could not be written, the package has left the database nevertheless. The end of the job
    // tells of the indices.
    const bool removed
        = result.succeeded() || ReproAnswer::indicesOutdated(result.errorOutput)
          || ReproAnswer::signingFailed(result.errorOutput)
          || ((result.crashed() || ReproAnswer::databaseTroubled(result.errorOutput)) && isGone(package));
    if (!removed && result.started && !result.crashed())
        m_context.errors.runFailed(tr("Error removing package %1!").arg(package.name), result.errorOutput);
    if (removed && ReproAnswer::nothingRemoved(result.errorOutput))
        m_session->requireExport();
    return removed;
}

bool PackageRemoval::isGone(const PackageInfo &package)
{
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
        m_context.repository.info().codename, package.name, package.indexComponent, package.architecture));
    const QStringList files = ReproListing::files(listed.output);
    return listed.succeeded() && std::none_of(files.cbegin(), files.cend(), [&](const QString &file) {
               return m_context.path() + QLatin1Char('/') + file == package.filePath();
           });
}
