// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/prunejob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/history/repositoryhistory.h"
#include "engine/reprepro/repolock.h"

#include <QLocale>

int PruneJob::run()
{
    JobFrame frame(m_context, tr("Deleting old restore points"), JobFrame::Repository);
    const QString repoPath = m_context.path();
    if (!m_context.lock.take(repoPath)) {
        m_context.errors.critical(RepoLock::busyText(repoPath), QString(), CRITICAL, REPOSITORY_BUSY);
        return frame.finish(ERROR, tr("No restore points deleted"));
    }
    const auto history = RepositoryHistory::read(repoPath, RepositoryHistory::WithoutRows);
    const auto pruning = RepositoryHistory::toPrune(
        history, m_context.choices.historyLimits(), QDateTime::currentDateTimeUtc());
    if (!RepositoryHistory::prune(repoPath, pruning)) {
        m_context.errors.critical(
            tr("Not all of the old restore points could be deleted. May you write to the folder %1?")
                .arg(RepositoryHistory::folder(repoPath)));
        return frame.finish(ERROR, tr("Not all restore points deleted"));
    }
    return frame.finish(SUCCESS,
                        tr("%n restore point(s) deleted, %1 freed", nullptr, countOf(pruning.points))
                            .arg(QLocale().formattedDataSize(pruning.freed)));
}
