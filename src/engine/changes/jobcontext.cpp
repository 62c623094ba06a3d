// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobcontext.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobrecovery.h"
#include "engine/changes/jobsignals.h"
#include "engine/repository/packagelisting.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/repreprorunner.h"
#include "signing/signprocess.h"

#include <QFile>
#include <QFileInfo>
#include <QMutexLocker>
#include <QScopeGuard>
#include <QThread>
#include <QThreadPool>

#include <chrono>

JobContext::JobContext(JobSignals &engineSignals)
    : m_signals(engineSignals)
    , m_signProcess(std::make_unique<SignProcess>())
    , m_gate([this](const QString &title, const QString &text) { return ask(title, text, false); })
{ }

JobContext::~JobContext() = default;

// --- the repository ----------------------------------------------------------------------------------------------

bool JobContext::mayRun()
{
    const Admission &admitted = admission(path());
    if (!admitted.isGranted())
        critical(tr("Nothing was done.") + QLatin1Char(' ') + admitted.reason(), QString(), WARNING);
    return admitted.isGranted();
}

bool JobContext::mayChange()
{
    if (!QFileInfo(path()).isDir()) {
        critical(tr("The directory %1 does not exist any more. Its disk may be absent.").arg(path()));
        return false;
    }
    if (!mayRun())
        return false;
    const QString file = path() + QLatin1String("/db/packages.db");
    if (m_packages.count() == 0 || QFile::exists(file))
        return true;
    critical(tr("The database of the repository is missing. Any change would make a new one and take all "
                "packages out of the indices, so nothing was done."),
             file);
    return false;
}

// --- reprepro ----------------------------------------------------------------------------------------------------

int JobContext::runReprepro(const QString &arguments)
{
    const ProcessResult result = runWith(arguments, {});
    return result.crashed() || !result.started ? -1 : result.exitCode;
}

ProcessResult JobContext::runWith(const QString &arguments, const QStringList &environment)
{
    const QString repoPath = path();
    ProcessResult result = runReproOn(admission(repoPath), arguments, environment);
    QElapsedTimer waited;
    while (ReproAnswer::databaseLocked(result.errorOutput) && waitForLock(repoPath, &waited))
        result = runReproOn(admission(repoPath), arguments, environment);
    {
        const QMutexLocker lock(&m_mutex);
        m_lastOutput = result.output;
        m_lastErrorOutput = result.errorOutput;
    }
    if (!result.started)
        critical(tr("The program reprepro could not be started. Is it installed?"), result.errorOutput);
    else if (result.crashed())
        critical(tr("The process reprepro crashed!"));
    return result;
}

bool JobContext::waitForLock(const QString &repoPath, QElapsedTimer *waited)
{
    constexpr int Patience = 5000; // milliseconds
    // A job that was told to wait in vain tries the rest of what it has to do once.
    if (m_lockedOut)
        return false;
    // What follows a stop, as writing the indices does, is no less needed.
    const bool heedsStop = !m_canceled;
    bool wasStale = false;
    if (!waited->isValid())
        waited->start();
    while (pause(heedsStop)) {
        const RepoLock::State state = RepoLock::state(repoPath);
        // A program that has just begun has the lock before it has the database open.
        if (state == RepoLock::State::Stale && wasStale) {
            if (removeStaleLock(repoPath))
                return true;
            critical(tr("The database of the repository %1 stays locked, so nothing more was done.")
                         .arg(repoPath));
            break;
        }
        wasStale = state == RepoLock::State::Stale;
        if (!wasStale && waited->hasExpired(Patience)) {
            critical(tr("The repository %1 is being changed by another program. Try again when it is done.")
                         .arg(repoPath));
            break;
        }
        if (state == RepoLock::State::Free)
            return true;
    }
    m_lockedOut = true;
    return false;
}

bool JobContext::removeStaleLock(const QString &repoPath)
{
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
    return now != RepoLock::State::Stale || RepoLock::remove(repoPath);
}

bool JobContext::pause(bool heedsStop)
{
    constexpr std::chrono::milliseconds Interval(100);
    std::unique_lock<std::mutex> lock(m_waiting);
    return !m_stopWish.wait_for(lock, Interval, [this, heedsStop] { return heedsStop && m_canceled; });
}

QString JobContext::lastOutput() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastOutput;
}

QString JobContext::lastErrorOutput() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastErrorOutput;
}

QString
JobContext::packageFilePath(const QString &name, const QString &component, const QString &architecture)
{
    runReprepro(ReproCommand::listFiles(repoInfo().codename, name, component, architecture));
    return path() + QLatin1Char('/') + lastOutput().split(QLatin1Char('\n')).first();
}

ExportSession JobContext::makeSession(SessionKind kind)
{
    const auto run = [this](const QString &arguments, const QStringList &environment) {
        return runWith(arguments, environment);
    };
    const auto lock = [this] {
        const bool isLocked = m_lock.take(path());
        if (!isLocked && !m_lockedOut.exchange(true))
            critical(tr("The repository %1 is being changed by another program. Try again when it is done.")
                         .arg(path()));
        return isLocked;
    };
    const auto configFolder = [this] { return admission(path()).configFolder(); };
    if (kind == UsualSession)
        return ExportSession(path(), {run, lock, configFolder});
    return ExportSession(path(), {run, lock, configFolder, [this] { return agreesToCopyInMemory(); }});
}

bool JobContext::agreesToCopyInMemory()
{
    return ask(
        tr("Disk is full"),
        tr("There is too little room on the disk of the repository for a copy of its database, which is "
           "kept as long as a job changes it, and there is none on another disk. The copy can be kept in "
           "memory: the repository may be damaged if the power fails or the system is shut down before "
           "the job ends. Do you want to go on?"),
        false);
}

bool JobContext::finishSession(ExportSession *session)
{
    const auto unlocked = qScopeGuard([this] { unlock(); });
    // A stop has ended the waiting for the lock, but the indices are still to be written.
    if (isCanceled())
        m_lockedOut = false;
    JobRecovery recovery(*this);
    // Before anything is written from a database that may have lost packages.
    if (session->isDisturbed() && recovery.undoJob())
        return false;
    const ProcessResult result = session->finish();
    if (session->isDamaged() && recovery.undoJob())
        return false;
    if (session->isDisturbed() && result.succeeded())
        recovery.repair();
    if (session->isBegun())
        DatabaseCopy::drop(path());
    // A run that could not start or crashed has been reported by the runner.
    if (result.succeeded() || !result.started || result.crashed())
        return true;
    if (ReproAnswer::signingFailed(result.errorOutput))
        critical(tr("Failed to sign repository!"), result.errorOutput);
    else
        critical(tr("The indices of the repository could not be written. They will be written when the "
                    "repository is opened the next time."),
                 result.errorOutput);
    return true;
}

// --- telling -----------------------------------------------------------------------------------------------------

void JobContext::critical(const QString &text, const QString &details, ErrorType error)
{
    m_hasFailed = m_hasFailed || error == CRITICAL;
    Q_EMIT m_signals.critical(text, details, error);
}

void JobContext::tellOfForeignChange()
{
    // While the job itself owes indices, they differ from the packages for that reason.
    if (!m_hasFailed.exchange(false) || m_lockedOut || m_closing || ExportSession::isExportOwed(path()))
        return;
    const auto listed = readListing(path(), repoInfo());
    if (listed && !compareListings(m_packages.all(), *listed).isEmpty())
        critical(tr("Another program has changed the repository since it was read, which may be the reason. "
                    "Reload it with F5, and try once more."),
                 QString(),
                 WARNING);
}

void JobContext::runFailed(const QString &text, const QString &details)
{
    if (!m_lockedOut)
        critical(text, details);
}

void JobContext::noted(const QString &text)
{
    Q_EMIT m_signals.noted(text);
}

void JobContext::packageAdded(const PackageInfoPtr &package)
{
    Q_EMIT m_signals.packageAdded(package);
}

void JobContext::packageChanged(const PackageInfoPtr &package)
{
    Q_EMIT m_signals.packageChanged(package);
}

void JobContext::packageRemoved(const PackageInfoPtr &package)
{
    Q_EMIT m_signals.packageRemoved(package);
}

void JobContext::dependsSummary(const QStringList &lines)
{
    Q_EMIT m_signals.dependsSummary(lines);
}

void JobContext::downloadablePackagesReady()
{
    Q_EMIT m_signals.downloadablePackagesReady();
}

void JobContext::savePackages()
{
    Q_EMIT m_signals.requestForSavingPackages(m_packages.all());
}

void JobContext::clearStoredResults()
{
    Q_EMIT m_signals.requestForClearingStoredInformation();
}

// --- the job itself ----------------------------------------------------------------------------------------------

void JobContext::started(const QString &message)
{
    setStartMessage(message);
    Q_EMIT m_signals.started(message);
}

void JobContext::finished(JobId jobId, const QString &message)
{
    Q_EMIT m_signals.finished(jobId, message);
}

QString JobContext::startMessage() const
{
    const QMutexLocker lock(&m_mutex);
    return m_startMessage;
}

void JobContext::setStartMessage(const QString &message)
{
    const QMutexLocker lock(&m_mutex);
    m_startMessage = message;
}

void JobContext::showProgress()
{
    Q_EMIT m_signals.progressStepChanged(m_progress);
}

void JobContext::setProgressRange(int range)
{
    Q_EMIT m_signals.progressRangeChanged(range);
}

// --- the user ----------------------------------------------------------------------------------------------------

void JobContext::cancel()
{
    {
        const QMutexLocker lock(&m_mutex);
        m_canceled = true;
        m_startMessage.clear();
    }
    const std::lock_guard<std::mutex> waiting(m_waiting);
    m_stopWish.notify_all();
}

void JobContext::goOn()
{
    const bool wasCanceled = m_canceled.exchange(false);
    // The end of the program may have come in between, and nothing takes that back.
    if (m_closing)
        m_canceled = true;
    else if (wasCanceled)
        Q_EMIT m_signals.goingOn();
}

void JobContext::setClosing()
{
    m_closing = true;
    cancel();
}

bool JobContext::canAsk() const
{
    // On the interface thread nobody would be left to answer.
    return !m_closing && QThread::currentThread() != m_signals.thread();
}

bool JobContext::ask(const QString &title, const QString &text, bool safeAnswer)
{
    if (!canAsk())
        return safeAnswer;
    // When the receiver goes away while we wait, the emission returns without an answer.
    m_answer = safeAnswer;
    // A job that waits for its user must not keep the jobs of other tabs from running.
    QThreadPool::globalInstance()->releaseThread();
    Q_EMIT m_signals.question(title, text);
    QThreadPool::globalInstance()->reserveThread();
    return m_answer;
}

void JobContext::askForReplacement(ErrorCode collision,
                                   PackageReplacementRules *rules,
                                   const PackageInfoPtr &package,
                                   bool singlePackage)
{
    if (!canAsk())
        return;
    QThreadPool::globalInstance()->releaseThread();
    Q_EMIT m_signals.requestForReplacementHandlingByUser(collision, rules, package, singlePackage);
    QThreadPool::globalInstance()->reserveThread();
}

Newcomer JobContext::newcomer() const
{
    const QMutexLocker lock(&m_mutex);
    return m_newcomer;
}

void JobContext::setNewcomer(const Newcomer &newcomer)
{
    const QMutexLocker lock(&m_mutex);
    m_newcomer = newcomer;
}

// --- what the user has set ---------------------------------------------------------------------------------------

void JobContext::setExternalRepos(const ExternalRepos &repos)
{
    const QMutexLocker lock(&m_mutex);
    m_externalRepos = repos;
}

std::function<bool(const QString &origin)> JobContext::acceptedOrigins() const
{
    const QMutexLocker lock(&m_mutex);
    return [repos = m_externalRepos, known = QHash<QString, bool>()](const QString &origin) mutable {
        auto it = known.find(origin);
        if (it == known.end())
            it = known.insert(origin, repos.isOriginAsked(origin));
        return *it;
    };
}
