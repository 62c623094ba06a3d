// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/reloadjob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/outsidechange.h"
#include "engine/recovery/packagerefresh.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/repositoryaccess.h"

#include <QFileInfo>

int ReloadJob::run()
{
    JobFrame frame(m_context, tr("Reading repository again"), JobFrame::Repository);
    const QString repoPath = m_context.path();
    QString reason = RepositoryAccess::refusal(repoPath);
    const auto info = reason.isEmpty() ? DistributionsFile(repoPath).read() : std::nullopt;
    const auto listed = info ? readListing(repoPath, *info) : std::nullopt;
    if (!listed) {
        if (!QFileInfo(repoPath).isDir())
            reason = tr("The directory %1 does not exist any more. Its disk may be absent.").arg(repoPath);
        else if (reason.isEmpty())
            reason = tr("Its description or its indices are missing.");
        m_context.errors.critical(tr("The repository %1 cannot be read.").arg(repoPath), reason);
        return frame.finish(ERROR, tr("Repository is not read again"));
    }
    const bool isWritable = RepositoryAccess::mayWrite(repoPath);
    if (*info != m_context.repository.info() || isWritable != m_context.repository.isWritable()) {
        m_context.repository.set(repoPath, *info);
        m_context.repository.setWritable(isWritable);
        Q_EMIT m_context.listener.repoInfoAdded();
    }
    const ListingDifference difference = PackageRefresh::show(m_context, *listed, {});
    OutsideChange::note(m_context);
    if (difference.isEmpty())
        return frame.finish(SUCCESS, tr("Repository is unchanged"));
    Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    // Each number has its own plural form.
    const QStringList changes{tr("%n package(s) added", nullptr, countOf(difference.added)),
                              tr("%n package(s) replaced", nullptr, countOf(difference.changed)),
                              tr("%n package(s) removed", nullptr, countOf(difference.removed))};
    return frame.finish(
        SUCCESS, tr("Another program has changed the repository: %1").arg(changes.join(QLatin1String(", "))));
}
