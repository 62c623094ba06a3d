// SPDX-License-Identifier: GPL-3.0-or-later
// The engine's jobs: who may start one, and what it is given.
#include "engine/changes/jobcontext.h"
#include "engine/copying/copyjob.h"
#include "engine/copying/leavejob.h"
#include "engine/gathering/gatherjob.h"
#include "engine/installability/completecheckjob.h"
#include "engine/installability/completecheckstate.h"
#include "engine/jobs/addjob.h"
#include "engine/jobs/changejob.h"
#include "engine/jobs/checkjob.h"
#include "engine/jobs/createjob.h"
#include "engine/jobs/downloadjob.h"
#include "engine/jobs/exportjob.h"
#include "engine/jobs/importjob.h"
#include "engine/jobs/openjob.h"
#include "engine/jobs/reloadjob.h"
#include "engine/jobs/removejob.h"
#include "engine/jobs/signjob.h"
#include "engine/reposhell.h"
#include "engine/storedresults.h"
#include "engine/upgrade/prepareupgradejob.h"
#include "engine/upgrade/upgradejob.h"
#include "engine/upgrade/upgradesources.h"
#include "files/scratchfolder.h"

#include <QDir>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}
} // namespace

// --- the repository ----------------------------------------------------------------------------------------------

int RepoShell::createRepo(const QString &path, const RepoInfo &info)
{
    return CreateJob(*m_context).run(path, info);
}

void RepoShell::createRepoAside(const QString &path, const RepoInfo &info)
{
    startJob([this, path, info] {
        const int result = createRepo(path, info);
        Q_EMIT repoCreated(result);
        return result;
    });
}

void RepoShell::openRepo(const QString &path)
{
    if (!path.isEmpty())
        startJob([this, repoPath = absolute(path)] { return OpenJob(*m_context).run(repoPath); });
}

void RepoShell::reloadRepo()
{
    if (!path().isEmpty())
        startJob([this] {
            m_completeCheck->forgetBase();
            return ReloadJob(*m_context).run();
        });
}

void RepoShell::changeRepo(const QString &newPath,
                           const RepoInfo &info,
                           const std::optional<QByteArray> &given,
                           bool carriesPackages)
{
    if (!newPath.isEmpty() && !path().isEmpty())
        startJob([this, wish = ChangeJob::Wish{absolute(newPath), info, given, carriesPackages}] {
            return ChangeJob(*m_context).run(wish);
        });
}

// --- packages ----------------------------------------------------------------------------------------------------

void RepoShell::addPackages(const QStringList &files, const AddOptions &options)
{
    if (!files.isEmpty() && !path().isEmpty())
        startJob([this, files, options] { return AddJob(*m_context).run(files, options); });
}

void RepoShell::downloadPackages(const QList<PackageInfo> &packages, const AddOptions &options)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, options] { return DownloadJob(*m_context, options).download(packages); });
}

void RepoShell::addDependencies(const QVector<Dependency> &dependencies, const AddOptions &options)
{
    if (!dependencies.isEmpty() && !path().isEmpty())
        startJob([this, dependencies, options] {
            return DownloadJob(*m_context, options).addDependencies(dependencies);
        });
}

void RepoShell::findMissing(const QList<PackageInfoPtr> &packages, const QString &component)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, component] {
            return GatherJob(*m_context).find(packages, component, [this](const GatherPlan &plan) {
                Q_EMIT gatherPlanReady(plan);
            });
        });
}

void RepoShell::gather(const GatherPlan &plan, const AddOptions &options)
{
    if (!plan.packages().isEmpty() && !path().isEmpty())
        startJob(
            [this, plan, options] { return GatherJob(*m_context).fetch(plan, plan.packages(), options); });
}

void RepoShell::removePackages(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return RemoveJob(*m_context).run(packages); });
}

void RepoShell::copyPackages(const CopySource &source, const AddOptions &options)
{
    if (!source.packages.isEmpty() && !path().isEmpty())
        startJob([this, source, options] { return CopyJob(*m_context).run(source, options); });
}

void RepoShell::removeMoved(const QList<PackageInfoPtr> &packages, const QString &target)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, target] { return LeaveJob(*m_context).run(packages, target); });
}

void RepoShell::signPackages(const QList<PackageInfoPtr> &packages, const QString &keyId)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, keyId] { return SignJob(*m_context).run(packages, keyId); });
}

void RepoShell::checkDepends(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return CheckJob(*m_context).run(packages); });
}

void RepoShell::checkCompletely(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, base] {
            const auto keep = [this](const CompleteCheckRecord &record) {
                m_completeCheck->set(record);
                m_storedResults->saveCompleteCheck(this->packages(), record);
                Q_EMIT completeCheckChanged();
            };
            return CompleteCheckJob(*m_context, m_completeCheck->record(), keep).run(packages, base);
        });
}

// --- archives ----------------------------------------------------------------------------------------------------

void RepoShell::exportRepo(const QString &target)
{
    if (!target.isEmpty() && !path().isEmpty())
        startJob([this, target = absolute(target)] { return ExportJob(*m_context, target).exportRepo(); });
}

void RepoShell::exportPackages(const QList<PackageInfoPtr> &packages, const QString &target, bool withDepends)
{
    if (!packages.isEmpty() && !target.isEmpty() && !path().isEmpty())
        startJob([this, packages, target = absolute(target), withDepends] {
            return ExportJob(*m_context, target).exportPackages(packages, withDepends);
        });
}

void RepoShell::importRepo(const QString &archive, const AddOptions &options)
{
    if (!archive.isEmpty() && !path().isEmpty())
        startJob([this, archive = absolute(archive), options] {
            return ImportJob(*m_context, m_tempDir).run(archive, options);
        });
}

void RepoShell::removeTempDir()
{
    if (!isRunning())
        m_tempDir.reset();
}

// --- upgrade -----------------------------------------------------------------------------------------------------

void RepoShell::prepareUpgrade(const QStringList &sources)
{
    if (!sources.isEmpty() && !path().isEmpty())
        startJob([this, sources] { return PrepareUpgradeJob(*m_context, *m_upgradeSources).run(sources); });
}

void RepoShell::upgradeRepo(const QVector<UpgradablePackage> &packages, const AddOptions &options)
{
    if (!path().isEmpty())
        startJob([this, packages, options] {
            return UpgradeJob(*m_context, *m_upgradeSources).run(packages, options);
        });
}

void RepoShell::removeCustomSourcesListFile(RepoEnums::JobId jobId)
{
    if (jobId == UPGRADE_JOB || jobId == DOWNLOAD_JOB)
        m_upgradeSources->dropApt();
}
