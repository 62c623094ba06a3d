// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"

#include "engine/changes/jobcontext.h"
#include "engine/installability/baseoffers.h"
#include "engine/installability/completecheckstate.h"
#include "engine/jobs/openjob.h"
#include "engine/repository/distributions.h"
#include "engine/repository/systemrelease.h"
#include "engine/storedresults.h"
#include "engine/upgrade/upgradesources.h"
#include "files/scratchfolder.h"
#include "publication/helperclient.h"
#include "server/reposervers.h"

#include <QtConcurrent>

#include <utility>

RepoShell::RepoShell(QObject *parent)
    : JobSignals(parent)
    , m_context(std::make_unique<JobContext>(*this))
    , m_upgradeSources(std::make_unique<UpgradeSources>())
    , m_completeCheck(std::make_unique<CompleteCheckState>())
    , m_helper(std::make_unique<HelperClient>())
    , m_servers(std::make_unique<const RepoServers>())
{
    qRegisterMetaType<PackageInfoPtr>();
    qRegisterMetaType<QList<PackageInfoPtr>>();
    qRegisterMetaType<PackageReplacementRules *>();
    qRegisterMetaType<RepoEnums::ErrorCode>();
    qRegisterMetaType<RepoEnums::ErrorType>();
    qRegisterMetaType<RepoEnums::ErrorCause>();
    qRegisterMetaType<RepoEnums::JobId>();
    qRegisterMetaType<ChangePreview>();
    qRegisterMetaType<GatherPlan>();
    StoredResults::Listener listener;
    listener.merged = [this](const QList<PackageInfoPtr> &packages) { m_context->packages.assign(packages); };
    listener.checkRead = [this](const CompleteCheckRecord &record) {
        m_completeCheck->setStored(record);
        Q_EMIT completeCheckChanged();
    };
    listener.dependsBroken = [this](const QString &keptAs) {
        Q_EMIT critical(tr("The stored results of the dependency checks could not be read. The file is kept "
                           "as %1; check the dependencies again.")
                            .arg(keptAs),
                        QString(),
                        WARNING);
    };
    listener.checksBroken = [this](const QString &keptAs) {
        Q_EMIT critical(tr("The stored results of the complete checks could not be read. The file is kept as "
                           "%1; check completely again.")
                            .arg(keptAs),
                        QString(),
                        WARNING);
    };
    m_storedResults = std::make_unique<StoredResults>(*this, listener);
    // The interface asks for this one, and its thread waits for nothing.
    connect(this, &RepoShell::requestForRemovingStoredInformation, this, [this] {
        m_storedResults->removeLater();
    });
}

RepoShell::~RepoShell()
{
    setClosing();
    m_future.waitForFinished();
    m_comparison.waitForFinished();
    m_historyReading.waitForFinished();
    // Its thread reaches nothing else of the engine from now on.
    m_storedResults.reset();
}

void RepoShell::waitForStoring()
{
    m_storedResults->waitUntilWritten();
}

RepoInfo RepoShell::defaultRepoInfo()
{
    RepoInfo info = Distributions::repoInfoForCodename(SystemRelease::codename());
    info.version = SystemRelease::version();
    return info;
}

// --- what is open ------------------------------------------------------------------------------------------------

QString RepoShell::path() const
{
    return m_context->path();
}

QString RepoShell::canonicalPath() const
{
    return m_context->repository.canonicalPath();
}

RepoInfo RepoShell::repoInfo() const
{
    return m_context->repository.info();
}

bool RepoShell::isWritable() const
{
    return m_context->repository.isWritable();
}

QList<PackageInfoPtr> RepoShell::packages() const
{
    return m_context->packages.all();
}

int RepoShell::packageCount() const
{
    return m_context->packages.count();
}

PackageInfoPtr RepoShell::packageAt(int index) const
{
    return m_context->packages.at(index);
}

int RepoShell::indexOfPackage(const PackageInfoPtr &package) const
{
    return m_context->packages.indexOf(package);
}

CompleteCheckRecord RepoShell::completeCheck() const
{
    return path().isEmpty() ? CompleteCheckRecord() : m_completeCheck->record();
}

CheckScope RepoShell::checkScope(const CompleteCheckBase &base) const
{
    return {snapshot(), base, m_context->choices.acceptedOrigins(), {}, m_context->choices.externalRepos()};
}

RepositorySnapshot RepoShell::snapshot() const
{
    return {path(), repoInfo().binaryArchitectures(), packages()};
}

QVector<UpgradablePackage> RepoShell::upgradablePackages() const
{
    return m_upgradeSources->found();
}

QString RepoShell::packageFilePath(const QString &name, const QString &component, const QString &architecture)
{
    return m_context->reprepro.packageFilePath(name, component, architecture);
}

QString RepoShell::lastOutput() const
{
    return m_context->reprepro.lastResult().output;
}

QString RepoShell::lastErrorOutput() const
{
    return m_context->reprepro.lastResult().errorOutput;
}

void RepoShell::closeAndForgetRepo()
{
    // Before the path is forgotten, by which the results are found.
    Q_EMIT requestForRemovingStoredInformation();
    closeRepo();
}

void RepoShell::closeRepo()
{
    OpenJob::close(*m_context);
}

// --- what the user has set ---------------------------------------------------------------------------------------

void RepoShell::setCheckDependsOnAdd(bool check)
{
    m_context->choices.setChecksDependsOnAdd(check);
}

void RepoShell::setDependsRepoType(int type)
{
    m_context->choices.setDependsRepoType(type);
}

void RepoShell::setExternalRepos(const ExternalRepos &repos)
{
    m_context->choices.setExternalRepos(repos);
    compareBase();
}

void RepoShell::compareBase()
{
    m_completeCheck->forgetBase();
    // A running job compares at its end.
    if (isRunning() || !m_comparison.isFinished() || !m_completeCheck->isBaseOpen())
        return;
    m_comparison = QtConcurrent::run([this] {
        // What changes meanwhile is compared again.
        bool isChanged = false;
        do
            isChanged = compareOpenBase() || isChanged;
        while (m_completeCheck->isBaseOpen() && !m_context->control.isClosing());
        if (isChanged)
            Q_EMIT completeCheckChanged();
    });
}

void RepoShell::setOpenRepositories(const QStringList &paths)
{
    m_context->choices.setOpenRepositories(paths);
}

// --- the running job ---------------------------------------------------------------------------------------------

QString RepoShell::startMessage() const
{
    return m_context->control.isCanceled() ? QString() : m_context->progress.startMessage();
}

int RepoShell::progress() const
{
    return m_context->progress.step();
}

CollidingFile RepoShell::collidingFile() const
{
    return m_context->control.collidingFile();
}

QuestionTraits RepoShell::questionTraits() const
{
    return m_context->control.questionTraits();
}

void RepoShell::setAnswer(bool answer)
{
    m_context->control.setAnswer(answer);
}

void RepoShell::cancel()
{
    m_context->control.cancel();
}

void RepoShell::setClosing()
{
    m_context->control.setClosing();
}

void RepoShell::startJob(std::function<int()> job)
{
    ++m_runningJobs;
    m_context->control.prepare();
    m_future = QtConcurrent::run([this, job = std::move(job)] {
        // The repository may have changed since the last job looked at it.
        m_context->gate.forget();
        const int result = job();
        compareCompleteCheck();
        readHistory();
        m_context->gate.forget();
        m_context->lock.release();
        // finished() comes from inside the job; only a call posted by the very end says that the thread is free.
        QMetaObject::invokeMethod(this, &RepoShell::jobEnded, Qt::QueuedConnection);
        return result;
    });
}

void RepoShell::compareCompleteCheck()
{
    const CompleteCheckRecord before = m_completeCheck->record();
    compareOpenBase();
    m_completeCheck->comparePackages(packages());
    if (m_completeCheck->record() != before)
        Q_EMIT completeCheckChanged();
}

bool RepoShell::compareOpenBase()
{
    if (!m_completeCheck->isBaseOpen())
        return false;
    const CompleteCheckRecord before = m_completeCheck->record();
    const int changes = m_completeCheck->baseChanges();
    const auto stopped = [this] { return m_context->control.isClosing(); };
    const QByteArray digest = BaseOffers::digestOf(checkScope(before.base), stopped);
    if (!stopped())
        m_completeCheck->compareBase(before, changes, digest);
    return m_completeCheck->record() != before;
}

void RepoShell::jobEnded()
{
    if (--m_runningJobs == 0)
        Q_EMIT idle();
}
