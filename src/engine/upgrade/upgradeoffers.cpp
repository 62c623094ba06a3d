// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgradeoffers.h"

#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "engine/changes/jobcontext.h"
#include "engine/control/listsfetch.h"
#include "engine/upgrade/listedrecords.h"
#include "engine/upgrade/upgradesources.h"

UpgradeOffers::UpgradeOffers(JobContext &context, UpgradeSources &sources)
    : m_context(context)
    , m_sources(sources)
    , m_apt(sources.apt(context.repository.info().binaryArchitectures()))
{
    if (!m_apt)
        m_context.errors.critical(tr("Failed to create file with selected sources"),
                                  PrivateApt::cacheFolder(),
                                  RepoEnums::CRITICAL,
                                  RepoEnums::SOURCES_NOT_WRITTEN);
}

QStringList UpgradeOffers::environment() const
{
    return m_apt->environment();
}

bool UpgradeOffers::fetchLists()
{
    const auto outcome = ListsFetch(m_context.control, m_context.errors, m_context.progress).fetch(*m_apt);
    m_lists = outcome.lists;
    if (!outcome.problems.isEmpty())
        m_context.errors.critical(outcome.problems.join(QLatin1Char('\n')),
                                  outcome.details,
                                  outcome.usable ? RepoEnums::WARNING : RepoEnums::CRITICAL);
    else if (!outcome.usable && !m_context.control.isCanceled() && !m_context.control.isClosing())
        m_context.errors.critical(tr("The chosen sources offer no packages for this repository."),
                                  outcome.details);
    return outcome.usable;
}

bool UpgradeOffers::askRecords(const QStringList &names, QVector<AptPackageRecord> *records)
{
    if (const auto known = m_sources.offered(names, m_lists)) {
        *records = *known;
        return true;
    }
    const auto stopped = [this] { return m_context.control.isCanceled(); };
    QString problem;
    const auto lists = m_apt->lists(stopped, &problem);
    if (lists)
        *records = ListedRecords::find(*lists, names, stopped, &problem);
    if (stopped())
        return false;
    if (!lists || !problem.isEmpty()) {
        m_context.errors.critical(AptUtils::tr("Apt error"), problem);
        return false;
    }
    m_sources.setOffered(names, m_lists, *records);
    return true;
}
