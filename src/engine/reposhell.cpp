// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"

#include "depends/dependsdata.h"
#include "engine/changes/jobcontext.h"
#include "engine/jobs/upgradesources.h"
#include "files/scratchfolder.h"
#include "publication/helperclient.h"
#include "server/reposervers.h"

#include <QMutexLocker>
#include <QtConcurrent>

#include <utility>

RepoShell::RepoShell(QObject *parent)
    : JobSignals(parent)
    , m_context(std::make_unique<JobContext>(*this))
    , m_upgradeSources(std::make_unique<UpgradeSources>())
    , m_helper(std::make_unique<HelperClient>())
    , m_servers(std::make_unique<const RepoServers>())
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
    return m_context->path();
}

QString RepoShell::place() const
{
    return m_context->repository().canonicalPath();
}

RepoInfo RepoShell::repoInfo() const
{
    return m_context->repoInfo();
}

void RepoShell::setOpenRepositories(const QStringList &paths)
{
    const QMutexLocker lock(&m_mutex);
    m_openRepositories = paths;
}

QList<PackageInfoPtr> RepoShell::packages() const
{
    return m_context->packages().all();
}

int RepoShell::packageCount() const
{
    return m_context->packages().count();
}

PackageInfoPtr RepoShell::packageAt(int index) const
{
    return m_context->packages().at(index);
}

int RepoShell::indexOfPackage(const PackageInfoPtr &package) const
{
    return m_context->packages().indexOf(package);
}

QString RepoShell::packageFilePath(const QString &name, const QString &component, const QString &architecture)
{
    return m_context->packageFilePath(name, component, architecture);
}

QString RepoShell::startMessage() const
{
    return m_context->startMessage();
}

int RepoShell::progress() const
{
    return m_context->progress();
}

RepoShell::Newcomer RepoShell::newcomer() const
{
    return m_context->newcomer();
}

QString RepoShell::lastOutput() const
{
    return m_context->lastOutput();
}

QString RepoShell::lastErrorOutput() const
{
    return m_context->lastErrorOutput();
}

void RepoShell::setAnswer(bool answer)
{
    m_context->setAnswer(answer);
}

void RepoShell::cancel()
{
    m_context->cancel();
}

void RepoShell::setClosing()
{
    m_context->setClosing();
}

void RepoShell::setCheckDependsOnAdd(bool check)
{
    m_context->setChecksDependsOnAdd(check);
}

void RepoShell::setDependsRepoType(int type)
{
    m_context->setDependsRepoType(type);
}

void RepoShell::setExternalRepos(const ExternalRepos &repos)
{
    m_context->setExternalRepos(repos);
}

void RepoShell::startJob(std::function<int()> job)
{
    ++m_runningJobs;
    m_context->prepare();
    m_future = QtConcurrent::run([this, job = std::move(job)] {
        // What was found may be another thing by now.
        m_context->forgetAdmission();
        const int result = job();
        m_context->forgetAdmission();
        m_context->unlock();
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
