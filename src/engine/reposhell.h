// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"
#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "core/repoinfo.h"
#include "core/settingskeys.h"
#include "engine/changes/addoptions.h"
#include "engine/control/collidingfile.h"
#include "engine/control/jobsignals.h"
#include "engine/control/question.h"
#include "engine/gathering/gatherplan.h"
#include "engine/history/repositoryhistory.h"
#include "engine/installability/checkscope.h"
#include "engine/preview/changepreview.h"
#include "engine/upgrade/upgraderules.h"
#include "installability/completecheckrecord.h"
#include "server/reposerver.h"

#include <QFuture>
#include <QMutex>
#include <QStringList>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

class CompleteCheckState;
struct CopySource;
class HelperClient;
struct JobContext;
struct PreviewRequest;
class RepoServers;
class ScratchFolder;
class StoredResults;
class UpgradeSources;

/**
 * The engine of one open repository: owns its path, its description and its package list, and carries out every
 * long operation as a job on the global thread pool. It lives in the interface thread.
 *
 * A job emits started(), then its progress and item signals, and exactly one finished(). Connect everything with
 * the default connection type except question() and requestForReplacementHandlingByUser(), which need
 * Qt::BlockingQueuedConnection: the job waits inside the emission for the answer. The engine does not refuse a
 * second job while one runs: the caller starts one at a time.
 */
class RepoShell : public JobSignals, public RepoEnums
{
    Q_OBJECT
public:
    explicit RepoShell(QObject *parent = nullptr);
    /** No job may be running. */
    ~RepoShell() override;

    // --- jobs: return at once, do nothing when the path or the list is empty -------------------------------------

    void openRepo(const QString &path);
    /** Reads the open repository again. Changes by another program go out as the signals of packages. */
    void reloadRepo();
    /**
     * Rewrites the description and, when `newPath` is another one, moves the repository there. Fields that the new
     * description cannot keep are lost only after a question. `info` was made from `given`, the text of
     * conf/distributions: when the file has another text now, nothing is done. Packages for which the new description
     * has no place are deleted; under a new code name these are all packages, unless `carriesPackages`.
     */
    void changeRepo(const QString &newPath,
                    const RepoInfo &info,
                    const std::optional<QByteArray> &given = {},
                    bool carriesPackages = false);
    void addPackages(const QStringList &files, const AddOptions &options = {});
    void removePackages(const QList<PackageInfoPtr> &packages);
    /**
     * Adds packages of another repository, with what is known of their signatures. Collisions are those of adding. Of
     * the options only the component counts. A source that is this repository and moves gives its packages another
     * component, in one job.
     */
    void copyPackages(const CopySource &source, const AddOptions &options = {});
    /**
     * Ends a move: removes those of the packages that the repository in the directory `target` has now, byte for byte.
     */
    void removeMoved(const QList<PackageInfoPtr> &packages, const QString &target);
    /**
     * Puts signed copies of the packages' files into their places. `keyId` is a key's fingerprint or its last 16 or 8
     * digits. A file that several architectures share is signed for all of them.
     */
    void signPackages(const QList<PackageInfoPtr> &packages, const QString &keyId);
    /** Fetches the packages from apt's sources and adds them; each is known by name, version and architecture. */
    void downloadPackages(const QList<PackageInfo> &packages, const AddOptions &options = {});
    /**
     * For each dependency, fetches and adds the best package that apt's sources offer, and checks the packages again
     * that lacked it. The dependencies come from the results of a check.
     */
    void addDependencies(const QVector<Dependency> &dependencies, const AddOptions &options = {});
    /**
     * Finds out what the packages lack and sources offer, with what that needs in turn; gatherPlanReady() tells. It is
     * to go into this component; empty: each package into its own.
     */
    void findMissing(const QList<PackageInfoPtr> &packages, const QString &component = {});
    /** Fetches and adds what the plan has on, checks again what it was made for, and tells what is left. */
    void gather(const GatherPlan &plan, const AddOptions &options = {});
    /**
     * Checks whether the packages' dependencies can be met; the records with the results go out as packageChanged().
     * Packages that are not in the repository any more are skipped.
     */
    void checkDepends(const QList<PackageInfoPtr> &packages);
    /**
     * Finds out which of the packages can really be installed, with all packages of the repository and the base at
     * hand; the records with the results go out as packageChanged(). Packages that are not in the repository any more
     * are skipped.
     */
    void checkCompletely(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base);
    /**
     * Writes the whole repository to the .tgz archive `target`. The archive replaces an existing file only when it is
     * complete, and not after a failure or a stop. The target cannot lie in the repository.
     */
    void exportRepo(const QString &target);
    /**
     * Writes the packages' files to the .tgz archive `target`; `withDepends` adds the packages of the repository on
     * which they depend. Like exportRepo(), but after a stop the archive has the files that were added before it.
     */
    void exportPackages(const QList<PackageInfoPtr> &packages, const QString &target, bool withDepends);
    /** Adds the packages in an archive, or those below a folder, without checking their dependencies. */
    void importRepo(const QString &archive, const AddOptions &options = {});
    /**
     * Looks for newer versions of the packages in these sources, each written as it follows "deb " in a sources list,
     * and emits downloadablePackagesReady() when upgradablePackages() has found some.
     */
    void prepareUpgrade(const QStringList &sources);
    /** Replaces the packages with the versions that prepareUpgrade() has found. Without packages it says so. */
    void upgradeRepo(const QVector<UpgradablePackage> &packages, const AddOptions &options = {});

    // --- preview: see before -----------------------------------------------------------------------------------------

    /**
     * Finds out what a job would do, without touching the repository. previewReady() comes with the rows, and once more
     * with the effect, unless the job was stopped between.
     */
    void preview(const PreviewRequest &request);
    /** Finds out the effect of a preview anew, of which rows were switched; previewReady() tells it. */
    void updatePreview(const ChangePreview &preview);
    /**
     * Runs the job that the preview was made of, which does what the rows say and asks about no collision. When the
     * repository or a file has changed since, nothing is done, and previewOutdated() comes before finished().
     */
    void apply(const ChangePreview &preview);

    // --- creating and closing --------------------------------------------------------------------------------------

    /**
     * Makes the repository `path`, wiping what is there, and opens it empty. Runs in the calling thread and starts
     * programs, so the interface uses createRepoAside(). Returns SUCCESS or, after critical(), ERROR.
     */
    int createRepo(const QString &path, const RepoInfo &info);
    /** Runs createRepo() on the thread pool; repoCreated() tells its result. */
    void createRepoAside(const QString &path, const RepoInfo &info);
    /** Forgets the repository: empties path and list, emits pathChanged() and needCloseRepo(). */
    void closeRepo();
    /** Closes a repository that is about to be deleted, and deletes the stored results of its packages. */
    void closeAndForgetRepo();

    // --- history: jobs, which return at once ----------------------------------------------------------------------

    /** Makes the repository what it was before this point, as a job that can be undone itself. */
    void goBack(int point);
    /** Adds the package again that the point has removed or replaced, with the version from before. */
    void bringBack(int point, const PackageChange &change);
    /** Deletes the oldest points that are more than the limits allow. */
    void pruneHistory();

    // --- what is open: callable from any thread --------------------------------------------------------------------

    QString path() const;
    /** path() with links resolved, as of the opening or the last move: to be compared, not to be shown. */
    QString canonicalPath() const;
    RepoInfo repoInfo() const;
    /** Whether the user may change the repository, as of its last reading. */
    bool isWritable() const;
    /** A copy of the package list; cheap, since the list is shared until it changes. */
    QList<PackageInfoPtr> packages() const;
    int packageCount() const;
    /** The package at `index`; null when there is none. */
    PackageInfoPtr packageAt(int index) const;
    int indexOfPackage(const PackageInfoPtr &package) const;
    /** The last complete check of the repository; not valid when there was none. */
    CompleteCheckRecord completeCheck() const;
    /**
     * Looks whether what the last complete check was made against has changed since; completeCheckChanged() tells.
     * Returns at once. While a job runs, nothing is done before its end.
     */
    void compareBase();
    /** For questions about installing (Cures, RemovalImpact); without other repositories, which the caller adds. */
    CheckScope checkScope(const CompleteCheckBase &base) const;
    /** What is open now, for the scope of another repository. */
    RepositorySnapshot snapshot() const;
    /** What the last prepareUpgrade() has found. */
    QVector<UpgradablePackage> upgradablePackages() const;
    /** Absolute path of the package's file in the pool as reprepro knows it. Runs reprepro: not for the interface. */
    QString packageFilePath(const QString &name, const QString &component, const QString &architecture);

    /** The history as it was read last, see watchHistory(). A cheap copy. */
    RepositoryHistory history() const;

    /** The line with which apt on a client uses the open repository; see SourceLine for the arguments. */
    QString
    sourceLine(bool trusted, const QString &architectures, int port, int protocol, const QString &host) const;
    /** Whether this machine's apt has this line from us. Reads a file. */
    static bool isInLocalSources(const QString &entry);

    // --- publication: what the privileged helper does for the interface thread -------------------------------------

    /**
     * These return at once. `answer` comes from the event loop, after critical() where there is something to tell; it
     * does not come when the engine is deleted before.
     */
    using HelperAnswer = std::function<void(bool done)>;
    /** `key` is the one that the entry names, in ASCII armor; empty when it names none. */
    void addLocalSource(const QString &entry, const HelperAnswer &answer, const QByteArray &key = {});
    void removeLocalSource(const QString &entry, const HelperAnswer &answer);
    void publishRepo(int port, int protocol, const HelperAnswer &answer);
    void unpublishRepo(int port, int protocol, const HelperAnswer &answer);
    /**
     * What is served from this machine. These ask the service manager: callable from any thread but the interface's.
     */
    QList<PublishedRepo> publishedRepos() const;
    bool isPublished(int port, int protocol) const;

    // --- the running job -------------------------------------------------------------------------------------------

    /** The text the running job was announced with; empty once it has been asked to stop. */
    QString startMessage() const;
    int progress() const;
    /** The file that collides with the package of requestForReplacementHandlingByUser(), while that waits. */
    CollidingFile collidingFile() const;
    /** The safe answer and the kind of the pending question(). */
    QuestionTraits questionTraits() const;
    /** Stores the answer to the pending question(); call it from the slot that question() is connected to. */
    void setAnswer(bool answer);
    /** Asks the running job to stop after the item it is at. */
    void cancel();
    /** Like cancel(), and from now on every question of a job gets its safe answer without being asked. */
    void setClosing();
    /** True from the start of a job until idle() has been emitted. */
    bool isRunning() const { return m_runningJobs > 0; }
    /** Blocks until the job has ended; for programs without an interface. */
    void waitForFinished() { m_future.waitForFinished(); }
    /** Blocks until the results of its checks are stored too. */
    void waitForStoring();
    /** Blocks until the job has ended and returns its ErrorCode; ERROR when there was none. */
    int result() const { return m_future.isCanceled() ? ERROR : m_future.result(); }

    /** Deletes what an import has unpacked; done by its end too. Nothing happens while a job runs. */
    void removeTempDir();

    // --- what jobs use ---------------------------------------------------------------------------------------------

    /** Whether opening a repository leaves every byte of it, unless it has to be repaired: for previews alone. */
    void setOnlyLooking(bool isOnlyLooking);
    /** Whether packages that are added get their dependencies checked within the same job. */
    void setCheckDependsOnAdd(bool check);
    /** Where dependencies are looked for, see DependsRepoType; with DependsNowhere nothing is checked. */
    void setDependsRepoType(int type);
    /** Which of apt's sources count: those that are switched off in the list do not. */
    void setExternalRepos(const ExternalRepos &repos);
    /** Directories of the repositories that are open elsewhere; creating or moving never wipes one of them. */
    void setOpenRepositories(const QStringList &paths);

    /** How much of a history the next jobs keep. */
    void setHistoryLimits(const HistoryLimits &limits);
    HistoryLimits historyLimits() const;
    /** Reads the history now and after each job, aside; historyChanged() tells. Without this nothing is read. */
    void watchHistory();

    /** Output and error output of the last reprepro run; only meaningful between jobs. */
    QString lastOutput() const;
    QString lastErrorOutput() const;

    /** The description a new repository starts with on this machine. Runs lsb_release. */
    static RepoInfo defaultRepoInfo();

public Q_SLOTS:
    /** Deletes the list of sources that a job of this kind has written for apt; to be connected to finished(). */
    void removeCustomSourcesListFile(RepoEnums::JobId jobId);

Q_SIGNALS:
    void criticalVelt(const QString &text, const QString &detailedtext = QString());
    void requestForRemovingStoredInformation();

    /** The job's thread is free again and the engine can be closed; follows finished(). */
    void idle();
    /** completeCheck() is another one, or its results have become stale. */
    void completeCheckChanged();
    /** history() is another one. */
    void historyChanged();
    void gatherPlanReady(const GatherPlan &plan);
    void previewReady(const ChangePreview &preview);
    /** apply() has done nothing: the preview must be made anew. */
    void previewOutdated();
    /** createRepoAside() has ended with this result. */
    void repoCreated(int result);

private:
    std::unique_ptr<JobContext> m_context; ///< with the open repository and the package list
    std::unique_ptr<UpgradeSources> m_upgradeSources;
    std::unique_ptr<StoredResults> m_storedResults;
    std::unique_ptr<CompleteCheckState> m_completeCheck;
    QFuture<int> m_future;
    QFuture<void> m_comparison; ///< of compareBase()
    QFuture<void> m_historyReading; ///< of watchHistory()
    mutable QMutex m_historyMutex; ///< guards the member below
    RepositoryHistory m_history;
    std::atomic<bool> m_watchesHistory{false};
    int m_runningJobs = 0; ///< of the interface thread alone
    std::unique_ptr<ScratchFolder> m_tempDir; ///< what an import has unpacked
    std::unique_ptr<HelperClient> m_helper;
    std::unique_ptr<const RepoServers> m_servers;

    void startJob(std::function<int()> job);
    /** Looks whether the results of the complete check still hold. On the thread of the job that has ended. */
    void compareCompleteCheck();
    /** Compares the base of the check, where that is open; true when its results became stale, or hold again. */
    bool compareOpenBase();
    void jobEnded();
    /** Reads the history where it is watched. For any thread but the interface's. */
    void readHistory();
};
