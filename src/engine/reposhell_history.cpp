// SPDX-License-Identifier: GPL-3.0-or-later
// The history of the open repository: the jobs that use it, and its reading.
#include "engine/changes/jobcontext.h"
#include "engine/jobs/bringbackjob.h"
#include "engine/jobs/prunejob.h"
#include "engine/jobs/restorejob.h"
#include "engine/reposhell.h"

#include <QMutexLocker>
#include <QtConcurrent>

void RepoShell::goBack(int point)
{
    if (!path().isEmpty())
        startJob([this, point] { return RestoreJob(*m_context).run(point); });
}

void RepoShell::bringBack(int point, const PackageChange &change)
{
    if (!path().isEmpty())
        startJob([this, point, change] { return BringBackJob(*m_context).run(point, change); });
}

void RepoShell::pruneHistory()
{
    if (!path().isEmpty())
        startJob([this] { return PruneJob(*m_context).run(); });
}

RepositoryHistory RepoShell::history() const
{
    const QMutexLocker lock(&m_historyMutex);
    return m_history;
}

void RepoShell::setHistoryLimits(const HistoryLimits &limits)
{
    m_context->choices.setHistoryLimits(limits);
}

HistoryLimits RepoShell::historyLimits() const
{
    return m_context->choices.historyLimits();
}

void RepoShell::watchHistory()
{
    m_watchesHistory = true;
    // A running job reads at its end.
    if (!isRunning() && m_historyReading.isFinished())
        m_historyReading = QtConcurrent::run([this] { readHistory(); });
}

void RepoShell::readHistory()
{
    if (!m_watchesHistory)
        return;
    const QString repoPath = path();
    const RepositoryHistory known = history();
    RepositoryHistory now;
    if (!repoPath.isEmpty())
        now = RepositoryHistory::read(repoPath, RepositoryHistory::WithRows, &known);
    {
        const QMutexLocker lock(&m_historyMutex);
        m_history = now;
    }
    Q_EMIT historyChanged();
}
