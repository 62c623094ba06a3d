// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/outsidechange.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/history/repositorydigest.h"
#include "engine/history/repositoryhistory.h"
#include "engine/history/runningpoint.h"
#include "engine/repository/repositoryinspection.h"
#include "engine/reprepro/repolock.h"

#include <QScopeGuard>

void OutsideChange::note(JobContext &context)
{
    const QString repoPath = context.path();
    // Files of an administrator who only looks would be in the way of the owner's jobs.
    if (context.choices.isOnlyLooking() || !context.repository.isWritable()
        || !RepositoryInspection::belongsToUser(repoPath))
        return;
    const bool hasLeftovers = RepositoryHistory::hasLeftovers(repoPath);
    if ((!hasLeftovers && RepositoryDigest::isCurrent(repoPath)) || !context.lock.take(repoPath))
        return;
    const auto unlocked = qScopeGuard([&context] { context.lock.release(); });
    if (hasLeftovers)
        RepositoryHistory::prune(repoPath, RepositoryHistory::Pruning());
    // Its indices may be behind its database, and reprepro may be at work on both.
    if (RunningPoint::exists(repoPath) || ExportSession::isExportOwed(repoPath)
        || RepoLock::state(repoPath) == RepoLock::State::Held)
        return;
    RepositoryDigest::noteOutsideChange(repoPath);
}
