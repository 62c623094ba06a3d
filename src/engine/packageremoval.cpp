// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/packageremoval.h"

#include "engine/exportsession.h"
#include "engine/jobcontext.h"
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"
#include "engine/signaturerecord.h"

#include <algorithm>

bool PackageRemoval::remove(const PackageInfoPtr &package, bool makesRoom)
{
    PackageKey twin = PackageKey::of(*package);
    twin.type = package->type == PackageType::Deb ? PackageType::Udeb : PackageType::Deb;
    const PackageType *only = m_context.packages().find(twin) ? &package->type : nullptr;
    m_session->mayLeave(package->filePath());
    const ProcessResult result = m_session->remove(ReproCommand::remove(m_context.repoInfo().codename,
                                                                        package->name,
                                                                        package->indexComponent,
                                                                        package->architecture,
                                                                        only),
                                                   makesRoom);
    // When only the indices could not be written, the package has left the database all the same, and the end of the
    // job tells of the indices.
    const bool removed
        = result.succeeded() || ReproAnswer::indicesOutdated(result.errorOutput)
          || ReproAnswer::signingFailed(result.errorOutput)
          || ((result.crashed() || ReproAnswer::databaseTroubled(result.errorOutput)) && isGone(*package));
    if (!removed) {
        if (result.started && !result.crashed())
            m_context.critical(tr("Error removing package %1!").arg(package->name), result.errorOutput);
        return false;
    }
    if (ReproAnswer::nothingRemoved(result.errorOutput))
        m_session->oweExport();
    if (const PackageInfoPtr listed = m_context.packages().take(PackageKey::of(*package))) {
        SignatureRecord::forget(&m_context, *listed);
        m_context.packageRemoved(listed);
    }
    return true;
}

bool PackageRemoval::isGone(const PackageInfo &package)
{
    const bool isKnown
        = m_context.runReprepro(ReproCommand::listFiles(
              m_context.repoInfo().codename, package.name, package.indexComponent, package.architecture))
          == 0;
    const QStringList files = m_context.lastOutput().split(QLatin1Char('\n'));
    return isKnown && std::none_of(files.cbegin(), files.cend(), [&](const QString &file) {
               return m_context.path() + QLatin1Char('/') + file == package.filePath();
           });
}
