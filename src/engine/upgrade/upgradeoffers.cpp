// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgradeoffers.h"

#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "engine/changes/jobcontext.h"
#include "engine/control/listsfetch.h"
#include "engine/upgrade/upgradesources.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr int NamesPerRun = 2000;
constexpr int ManyNames = 500;

/** Without the names that no source has: with hundreds of them apt takes long. */
QStringList namesOnOffer(const QStringList &names, AptUtils *apt)
{
    const auto known = apt->packageNames();
    if (!known)
        return names;
    QStringList offered;
    std::copy_if(names.cbegin(), names.cend(), std::back_inserter(offered), [&known](const QString &name) {
        return known->contains(name.section(QLatin1Char(':'), 0, 0));
    });
    return offered;
}
} // namespace

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
    bool failed = false;
    AptUtils utils;
    utils.setEnvironment(environment());
    utils.setStopRequest(stopped);
    QObject::connect(&utils, &ProcessUtils::error, &utils, [&](const QString &text, const QString &details) {
        // "No packages found" is an answer: the sources know none of the names.
        if (details.contains(QLatin1String("No packages found")) || stopped())
            return;
        failed = true;
        m_context.errors.critical(text, details);
    });
    const QStringList asked = names.size() > ManyNames ? namesOnOffer(names, &utils) : names;
    for (int first = 0; first < asked.size() && !failed && !stopped(); first += NamesPerRun)
        *records += utils.packageRecords(asked.mid(first, NamesPerRun));
    if (failed || stopped())
        return false;
    m_sources.setOffered(names, m_lists, *records);
    return true;
}
