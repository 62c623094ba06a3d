// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/reprepro.h"

#include "engine/control/jobcontrol.h"
#include "engine/control/joberrors.h"
#include "engine/repository/openrepository.h"
#include "engine/repository/repositorygate.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/repreprorunner.h"
#include "engine/reprepro/reprolisting.h"

#include <QElapsedTimer>
#include <QMutexLocker>

ProcessResult Reprepro::run(const QString &arguments, const QStringList &environment)
{
    const QString repoPath = m_repository.path();
    ProcessResult result = runReproOn(m_gate.admit(repoPath), arguments, environment);
    QElapsedTimer waited;
    while (ReproAnswer::databaseLocked(result.errorOutput) && waitForLock(repoPath, &waited))
        result = runReproOn(m_gate.admit(repoPath), arguments, environment);
    {
        const QMutexLocker lock(&m_mutex);
        m_lastResult = result;
    }
    if (!result.started)
        m_errors.critical(tr("The program reprepro could not be started. Is it installed?"),
                          result.errorOutput);
    else if (result.crashed())
        m_errors.critical(tr("The process reprepro crashed!"));
    return result;
}

QString Reprepro::packageFilePath(const QString &name, const QString &component, const QString &architecture)
{
    const ProcessResult listed
        = run(ReproCommand::listFiles(m_repository.info().codename, name, component, architecture));
    return m_repository.path() + QLatin1Char('/') + ReproListing::files(listed.output).value(0);
}

ProcessResult Reprepro::lastResult() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastResult;
}

bool Reprepro::waitForLock(const QString &repoPath, QElapsedTimer *waited)
{
    constexpr int Patience = 5000; // milliseconds
    // A job that has waited in vain tries each further run once.
    if (m_control.isLockedOut())
        return false;
    // After a stop there is still work to do, for example to write the indices. That waits for the lock as well.
    const bool heedsStop = !m_control.isCanceled();
    bool wasStale = false;
    if (!waited->isValid())
        waited->start();
    while (m_control.pause(heedsStop)) {
        const RepoLock::State state = RepoLock::state(repoPath);
        // A program that has just begun has the lock before it opens the database.
        if (state == RepoLock::State::Stale && wasStale) {
            if (removeStaleLock(repoPath))
                return true;
            m_errors.critical(tr("The database of the repository %1 stays locked, so nothing more was done.")
                                  .arg(repoPath));
            break;
        }
        wasStale = state == RepoLock::State::Stale;
        if (!wasStale && waited->hasExpired(Patience)) {
            m_errors.critical(
                RepoLock::busyText(repoPath), QString(), RepoEnums::CRITICAL, RepoEnums::REPOSITORY_BUSY);
            break;
        }
        if (state == RepoLock::State::Free)
            return true;
    }
    m_control.setLockedOut(true);
    return false;
}

bool Reprepro::removeStaleLock(const QString &repoPath)
{
    const bool remove = m_control.ask(
        tr("Repository is locked"),
        tr("The database of the repository %1 is locked, but no program uses it: an earlier run "
           "was interrupted. Do you want to remove the lock and try again?")
            .arg(repoPath),
        false);
    if (!remove)
        return false;
    // Between question and answer another program may have begun to work, or have finished.
    const RepoLock::State now = RepoLock::state(repoPath);
    return now != RepoLock::State::Stale || RepoLock::remove(repoPath);
}
