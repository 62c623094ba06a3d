// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packagereplacementrules.h"
#include "core/processutils.h"
#include "core/repoenums.h"
#include "core/repoinfo.h"
#include "core/settingskeys.h"
#include "depends/externalrepos.h"
#include "engine/newcomer.h"
#include "engine/packagelist.h"

#include <QCoreApplication>
#include <QMutex>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>

class ExportSession;
class RepoShell;
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
    explicit JobContext(RepoShell &shell);
    ~JobContext();
    JobContext(const JobContext &) = delete;
    JobContext &operator=(const JobContext &) = delete;

    // --- the repository --------------------------------------------------------------------------------------------

    QString path() const; ///< any thread
    RepoInfo repoInfo() const; ///< any thread
    PackageList &packages() { return m_packages; }
    const PackageList &packages() const { return m_packages; } ///< any thread
    /** False after critical() when a change would make a new database and empty the indices. */
    bool isDatabaseThere();

    // --- reprepro --------------------------------------------------------------------------------------------------

    /** The exit code, or -1 after critical() when it could not be started or crashed. */
    int runReprepro(const QString &arguments);
    /** Output and error output of the last run; any thread. */
    QString lastOutput() const;
    QString lastErrorOutput() const;
    QString packageFilePath(const QString &name, const QString &component, const QString &architecture);
    /** The changing runs of one job. */
    ExportSession makeSession();
    /** Writes what the session owes and tells when that failed. False when the database was damaged and everything
     *  that the session had done is undone, which has been told as well. */
    bool finishSession(ExportSession *session);
    SignProcess &signProcess() { return *m_signProcess; }

    // --- telling: each is the engine's signal of this name ---------------------------------------------------------

    void critical(const QString &text, const QString &details = QString(), ErrorType error = CRITICAL);
    void noted(const QString &text);
    void packageAdded(const PackageInfoPtr &package);
    void packageChanged(const PackageInfoPtr &package);
    void packageRemoved(const PackageInfoPtr &package);
    void dependsSummary(const QStringList &lines);
    void downloadablePackagesReady();
    /** Has the results of the checks of all packages stored. */
    void savePackages();

    // --- the job itself --------------------------------------------------------------------------------------------

    /** The next job begins: a stop that came after the last one had told its end belongs to that one. */
    void prepare() { m_canceled = m_closing.load(); }
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
    void resetCancel() { m_canceled = false; }
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
    RepoShell &m_shell;
    PackageList m_packages;
    std::unique_ptr<SignProcess> m_signProcess; ///< of the running job
    std::atomic<int> m_progress{0};
    std::atomic<bool> m_answer{false};
    std::atomic<bool> m_canceled{false};
    std::atomic<bool> m_closing{false};
    std::atomic<bool> m_checksDependsOnAdd{true};
    std::atomic<int> m_dependsRepoType{DependsEverywhere};

    mutable QMutex m_mutex; ///< guards what follows
    QString m_startMessage;
    QString m_lastOutput;
    QString m_lastErrorOutput;
    Newcomer m_newcomer;
    ExternalRepos m_externalRepos;

    ProcessResult runWith(const QString &arguments, const QStringList &environment);
    bool clearStaleLock(const QString &repoPath);
};
