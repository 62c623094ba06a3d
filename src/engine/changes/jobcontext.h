// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "core/packagereplacementrules.h"
#include "core/processutils.h"
#include "core/repoenums.h"
#include "core/repoinfo.h"
#include "core/settingskeys.h"
#include "engine/changes/newcomer.h"
#include "engine/repository/openrepository.h"
#include "engine/repository/packagelist.h"
#include "engine/repository/repositorygate.h"
#include "engine/reprepro/joblock.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QMutex>
#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

class ExportSession;
class JobSignals;
class SignProcess;

/**
 * What a job may use of its engine: the open repository and its packages, reprepro, the words and numbers that it
 * tells the interface, and the user, who can be asked and who can ask for a stop. All of it is for the job's thread;
 * what others may call as well says so.
 */
class JobContext : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** What emits the signals outlives the context. */
    explicit JobContext(JobSignals &engineSignals);
    ~JobContext();
    JobContext(const JobContext &) = delete;
    JobContext &operator=(const JobContext &) = delete;

    // --- the repository --------------------------------------------------------------------------------------------

    OpenRepository &repository() { return m_repository; }
    const OpenRepository &repository() const { return m_repository; } ///< any thread
    QString path() const { return m_repository.path(); } ///< any thread
    RepoInfo repoInfo() const { return m_repository.info(); } ///< any thread
    PackageList &packages() { return m_packages; }
    const PackageList &packages() const { return m_packages; } ///< any thread
    /** False after critical() when reprepro may not be run on the open repository. May ask the user. */
    bool mayRun();
    /**
     * The same of a job that changes packages: false also when that would make a new database and empty the indices.
     */
    bool mayChange();

    // --- reprepro --------------------------------------------------------------------------------------------------

    /** Whether it may be run on this repository, which the user may be asked. Holds to the end of the job. */
    const Admission &admission(const QString &repoPath) { return m_gate.admit(repoPath); }
    /** For the start and the end of a job, and for a description that was put back from a copy, which anybody may have
     *  laid there. */
    void forgetAdmission() { m_gate.forget(); }
    /** The description is a new one of ours, and as approved as the old one was. */
    void renewAdmission() { m_gate.renew(path()); }
    void renewAdmissionForCopy(const QString &copyPath) { m_gate.renewForCopy(copyPath); }
    /** The exit code, or -1 after critical() when it could not be started or crashed. */
    int runReprepro(const QString &arguments);
    /** Tells as runReprepro() does; `environment` is additional. */
    ProcessResult runWith(const QString &arguments, const QStringList &environment);
    /** Output and error output of the last run; any thread. */
    QString lastOutput() const;
    QString lastErrorOutput() const;
    QString packageFilePath(const QString &name, const QString &component, const QString &architecture);
    /** False when another job works on the repository. The lock goes with the job, or when finishSession() is done. */
    bool lock(const QString &repoPath) { return m_lock.take(repoPath); }
    void unlock() { m_lock.release(); }
    enum SessionKind {
        UsualSession,
        RoomMakingSession ///< of a job that makes room: goes on when there is none, with a copy elsewhere
    };
    /** The changing runs of one job. */
    ExportSession makeSession(SessionKind kind = UsualSession);
    /** Writes what the session owes and tells when that failed. False when the database was damaged and everything
     *  that the session had done is undone, which has been told as well. */
    bool finishSession(ExportSession *session);
    SignProcess &signProcess() { return *m_signProcess; }

    // --- telling: each is the engine's signal of this name ---------------------------------------------------------

    void critical(const QString &text, const QString &details = QString(), ErrorType error = CRITICAL);
    /** critical() for what a run could not do; nothing when isLockedOut(), of which the user knows. */
    void runFailed(const QString &text, const QString &details);
    /**
     * After errors of a job: says that another program has changed the repository since it was read, if so, because
     * that may be the reason.
     */
    void tellOfForeignChange();
    void noted(const QString &text);
    void packageAdded(const PackageInfoPtr &package);
    void packageChanged(const PackageInfoPtr &package);
    void packageRemoved(const PackageInfoPtr &package);
    void dependsSummary(const QStringList &lines);
    void downloadablePackagesReady();
    /** Has the results of the checks of all packages stored; without any package what is stored stays. */
    void savePackages();
    /** Has the stored results deleted, because the last package is gone. */
    void clearStoredResults();

    // --- the job itself --------------------------------------------------------------------------------------------

    /** The next job begins: a stop that came after the last one had told its end belongs to that one. */
    void prepare()
    {
        m_canceled = m_closing.load();
        m_lockedOut = false;
        m_hasFailed = false;
    }
    void started(const QString &message);
    void finished(JobId jobId, const QString &message);
    /** Cleared by cancel(); any thread. */
    QString startMessage() const;
    void setStartMessage(const QString &message);

    int progress() const { return m_progress; } ///< any thread
    /** For setProgress() and countProgress() the interface gets no word; showProgress() tells it. */
    void setProgress(int items) { m_progress = items; }
    int countProgress() { return ++m_progress; }
    void showProgress();
    void setProgressRange(int range);

    // --- the user --------------------------------------------------------------------------------------------------

    void cancel(); ///< any thread
    void setClosing(); ///< any thread
    bool isCanceled() const { return m_canceled; }
    bool isClosing() const { return m_closing; }
    /** Whether the job has given up waiting for the database, which it has told of. */
    bool isLockedOut() const { return m_lockedOut; }
    /** Whether a job of several items is to begin no further one. */
    bool mustEnd() const { return m_canceled || m_lockedOut; }
    void resetCancel() { m_canceled = false; }
    /** Forgets a stop in the middle of the job, which can be asked for again; not that of a program that is closing. */
    void goOn();
    /** False when a question would get its safe answer without being asked. */
    bool canAsk() const;
    bool ask(const QString &title, const QString &text, bool safeAnswer);
    void setAnswer(bool answer) { m_answer = answer; } ///< the thread that is asked
    /** Has the user choose what becomes of `package`; without an answer the rules stay as they are. */
    void askForReplacement(ErrorCode collision,
                           PackageReplacementRules *rules,
                           const PackageInfoPtr &package,
                           bool singlePackage);
    Newcomer newcomer() const; ///< any thread
    void setNewcomer(const Newcomer &newcomer);

    // --- what the user has set: any thread -------------------------------------------------------------------------

    bool checksDependsOnAdd() const { return m_checksDependsOnAdd; }
    void setChecksDependsOnAdd(bool check) { m_checksDependsOnAdd = check; }
    int dependsRepoType() const { return m_dependsRepoType; }
    void setDependsRepoType(int type) { m_dependsRepoType = type; }
    void setExternalRepos(const ExternalRepos &repos);
    /** Whether packages of an origin that apt names count; for one thread. */
    std::function<bool(const QString &origin)> acceptedOrigins() const;

private:
    JobSignals &m_signals;
    OpenRepository m_repository;
    PackageList m_packages;
    std::unique_ptr<SignProcess> m_signProcess; ///< of the running job
    JobLock m_lock; ///< of the running job
    RepositoryGate m_gate;
    std::atomic<int> m_progress{0};
    std::atomic<bool> m_answer{false};
    std::atomic<bool> m_canceled{false};
    std::atomic<bool> m_closing{false};
    std::atomic<bool> m_lockedOut{false};
    std::atomic<bool> m_hasFailed{false}; ///< the running job has told of an error
    std::mutex m_waiting;
    std::condition_variable m_stopWish; ///< with m_waiting: m_canceled has become true
    std::atomic<bool> m_checksDependsOnAdd{true};
    std::atomic<int> m_dependsRepoType{DependsEverywhere};

    mutable QMutex m_mutex; ///< guards what follows
    QString m_startMessage;
    QString m_lastOutput;
    QString m_lastErrorOutput;
    Newcomer m_newcomer;
    ExternalRepos m_externalRepos;

    bool agreesToCopyInMemory();
    /** Whether it is worth while to try once more; false after critical(), or when the job has been stopped. */
    bool waitForLock(const QString &repoPath, QElapsedTimer *waited);
    bool removeStaleLock(const QString &repoPath);
    /** Lets a moment pass. False when the job has been stopped, and that counts. */
    bool pause(bool heedsStop);
};
