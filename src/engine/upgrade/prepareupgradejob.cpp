// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/prepareupgradejob.h"

#include "engine/changes/jobframe.h"
#include "engine/upgrade/upgradeoffers.h"
#include "engine/upgrade/upgraderules.h"
#include "engine/upgrade/upgradesources.h"

int PrepareUpgradeJob::run(const QStringList &sources)
{
    JobFrame frame(m_context, tr("Downloading information"));
    m_sources.choose(sources);
    UpgradeOffers offers(m_context, m_sources);
    const QString failure = tr("Information is not downloaded");
    if (!offers.isValid())
        return frame.finish(ERROR, failure);
    const bool fetched = offers.fetchLists();
    QVector<AptPackageRecord> records;
    const QString ownArchitecture = m_context.repository.info().binaryArchitectures().value(0);
    const auto packages = m_context.packages.all();
    const bool asked
        = fetched && offers.askRecords(UpgradeRules::questions(packages, ownArchitecture), &records);
    if (m_context.control.isCanceled())
        return frame.finish(CANCEL, tr("Canceled by user"));
    if (!asked)
        return frame.finish(ERROR, failure);

    const auto upgradable = UpgradeRules::upgradable(packages, records);
    if (upgradable.isEmpty()) {
        m_context.errors.critical(tr("No packages for upgrading"), QString(), WARNING, NOTHING_TO_UPGRADE);
        return frame.finish(SUCCESS, tr("Nothing to upgrade"));
    }
    m_sources.setFound(upgradable);
    Q_EMIT m_context.listener.downloadablePackagesReady();
    return frame.finish(SUCCESS, tr("Ready for upgrade"));
}
