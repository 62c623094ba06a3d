// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"

#include "core/processutils.h"
#include "core/scratchfolder.h"
#include "depends/dependsdata.h"
#include "engine/repolock.h"
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"
#include "engine/repreprorunner.h"
#include "server/helperclient.h"
#include "signing/signprocess.h"

#include <QFile>
#include <QMutexLocker>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrent>

#include <utility>

RepoShell::RepoShell(QObject *parent)
    : QObject(parent)
    , m_signProcess(std::make_unique<SignProcess>())
    , m_helper(std::make_unique<HelperClient>())
{
    qRegisterMetaType<PackageInfoPtr>();
    qRegisterMetaType<QList<PackageInfoPtr>>();
    qRegisterMetaType<PackageReplacementRules *>();
    qRegisterMetaType<RepoEnums::ErrorCode>();
    qRegisterMetaType<RepoEnums::ErrorType>();
    qRegisterMetaType<RepoEnums::JobId>();
    startStore();
}

RepoShell::~RepoShell()
{
    setClosing();
    m_future.waitForFinished();
    stopStore();
}

QString RepoShell::path() const
{
    const QMutexLocker lock(&m_mutex);
    return m_path;
}

RepoInfo RepoShell::repoInfo() const
{
    const QMutexLocker lock(&m_mutex);
    return m_repoInfo;
}

QString RepoShell::startMessage() const
{
    const QMutexLocker lock(&m_mutex);
    return m_startMessage;
}

QString RepoShell::lastOutput() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastOutput;
}

QString RepoShell::lastErrorOutput() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastErrorOutput;
}

void RepoShell::setOpenRepositories(const QStringList &paths)
{
    const QMutexLocker lock(&m_mutex);
    m_openRepositories = paths;
}

void RepoShell::setStartMessage(const QString &message)
{
    const QMutexLocker lock(&m_mutex);
    m_startMessage = message;
}

RepoShell::Newcomer RepoShell::newcomer() const
{
    const QMutexLocker lock(&m_mutex);
    return m_newcomer;
}

void RepoShell::setNewcomer(const Newcomer &newcomer)
{
    const QMutexLocker lock(&m_mutex);
    m_newcomer = newcomer;
}

void RepoShell::cancel()
{
    const QMutexLocker lock(&m_mutex);
    m_canceled = true;
    m_startMessage.clear();
}

void RepoShell::setClosing()
{
    m_closing = true;
    cancel();
}

void RepoShell::startJob(std::function<int()> job)
{
    ++m_runningJobs;
    // A stop that came after the last job had told its end belongs to that job.
    m_canceled = m_closing.load();
    m_future = QtConcurrent::run([this, job = std::move(job)] {
        const int result = job();
        // finished() comes from inside the job; only a call posted by the very end says that the thread is free.
        QMetaObject::invokeMethod(this, &RepoShell::jobEnded, Qt::QueuedConnection);
        return result;
    });
}

void RepoShell::jobEnded()
{
    if (--m_runningJobs == 0)
        Q_EMIT idle();
}

bool RepoShell::canAsk() const
{
    // On the interface thread nobody would be left to answer.
    return !m_closing && QThread::currentThread() != thread();
}

bool RepoShell::ask(const QString &title, const QString &text, bool safeAnswer)
{
    if (!canAsk())
        return safeAnswer;
    // When the receiver goes away while we wait, the emission returns without an answer.
    m_answer = safeAnswer;
    // A job that waits for its user must not keep the jobs of other tabs from running.
    QThreadPool::globalInstance()->releaseThread();
    Q_EMIT question(title, text);
    QThreadPool::globalInstance()->reserveThread();
    return m_answer;
}

bool RepoShell::isDatabaseThere()
{
    const QString file = path() + QLatin1String("/db/packages.db");
    if (m_packages.count() == 0 || QFile::exists(file))
        return true;
    Q_EMIT critical(
        tr("The database of the repository is missing. Any change would make a new one and take all "
           "packages out of the indices, so nothing was done."),
        file);
    return false;
}

int RepoShell::runReprepro(const QString &arguments)
{
    const ProcessResult result = runReproWith(arguments, {});
    return result.crashed() || !result.started ? -1 : result.exitCode;
}

ProcessResult RepoShell::runReproWith(const QString &arguments, const QStringList &environment)
{
    const QString repoPath = path();
    ProcessResult result = runReproOn(repoPath, arguments, environment);
    if (ReproAnswer::databaseLocked(result.errorOutput) && clearStaleLock(repoPath))
        result = runReproOn(repoPath, arguments, environment);
    {
        const QMutexLocker lock(&m_mutex);
        m_lastOutput = result.output;
        m_lastErrorOutput = result.errorOutput;
    }
    if (!result.started)
        Q_EMIT critical(tr("The program reprepro could not be started. Is it installed?"),
                        result.errorOutput);
    else if (result.crashed())
        Q_EMIT critical(tr("The process reprepro crashed!"));
    return result;
}

bool RepoShell::clearStaleLock(const QString &repoPath)
{
    const RepoLock::State state = RepoLock::state(repoPath);
    if (state == RepoLock::State::Free)
        return true; // whoever had it has just finished
    if (state != RepoLock::State::Stale) {
        Q_EMIT critical(
            tr("The repository %1 is being changed by another program. Try again when it is done.")
                .arg(repoPath));
        return false;
    }
    const bool remove
        = ask(tr("Repository is locked"),
              tr("The database of the repository %1 is locked, but no program uses it: an earlier run "
                 "was interrupted. Do you want to remove the lock and try again?")
                  .arg(repoPath),
              false);
    if (!remove)
        return false;
    // Between question and answer somebody else may have begun to work, or have finished.
    const RepoLock::State now = RepoLock::state(repoPath);
    return now == RepoLock::State::Free || (now == RepoLock::State::Stale && RepoLock::remove(repoPath));
}

QString RepoShell::packageFilePath(const QString &name, const QString &component, const QString &architecture)
{
    runReprepro(ReproCommand::listFiles(repoInfo().codename, name, component, architecture));
    return path() + QLatin1Char('/') + lastOutput().split(QLatin1Char('\n')).first();
}
