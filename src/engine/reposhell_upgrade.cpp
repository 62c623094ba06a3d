// SPDX-License-Identifier: GPL-3.0-or-later
// Upgrading the repository's packages from chosen sources.
#include "engine/jobs/prepareupgradejob.h"
#include "engine/jobs/upgradejob.h"
#include "engine/jobs/upgradesources.h"
#include "engine/reposhell.h"

QVector<UpgradablePackage> RepoShell::upgradablePackages() const
{
    return m_upgradeSources->found();
}

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
