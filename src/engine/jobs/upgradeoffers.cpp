// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/upgradeoffers.h"

#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "engine/changes/jobcontext.h"
#include "engine/jobs/upgradesources.h"

namespace
{
constexpr int NamesPerRun = 500;
constexpr int Percents = 100;
} // namespace

UpgradeOffers::UpgradeOffers(JobContext &context, UpgradeSources &sources)
    : m_context(context)
    , m_apt(sources.apt(context.repoInfo().binaryArchitectures()))
{
    if (!m_apt)
        m_context.critical(tr("Failed to create file with selected sources"), PrivateApt::cacheFolder());
}

QStringList UpgradeOffers::environment() const
{
    return m_apt->environment();
}

bool UpgradeOffers::fetchLists()
{
    const auto showPercent = [this](int percent) {
        if (m_context.progress() == 0)
            m_context.setProgressRange(Percents);
        if (percent > m_context.progress()) {
            m_context.setProgress(percent);
            m_context.showProgress();
        }
    };
    const auto outcome = m_apt->fetch([this] { return m_context.isCanceled(); }, showPercent);
    if (m_context.progress() != 0) {
        // What follows has another measure.
        m_context.setProgress(0);
        m_context.setProgressRange(0);
        m_context.showProgress();
    }
    if (!outcome.problems.isEmpty())
        m_context.critical(outcome.problems.join(QLatin1Char('\n')),
                           outcome.details,
                           outcome.usable ? RepoEnums::WARNING : RepoEnums::CRITICAL);
    else if (!outcome.usable && !m_context.isCanceled())
        m_context.critical(tr("The chosen sources offer no packages for this repository."), outcome.details);
    return outcome.usable;
}

bool UpgradeOffers::askRecords(const QStringList &names, QVector<AptPackageRecord> *records)
{
    const auto stopped = [this] { return m_context.isCanceled(); };
    bool failed = false;
    AptUtils utils;
    utils.setEnvironment(environment());
    utils.setStopRequest(stopped);
    QObject::connect(&utils, &ProcessUtils::error, &utils, [&](const QString &text, const QString &details) {
        // That the sources know none of the names is an answer.
        if (details.contains(QLatin1String("No packages found")) || stopped())
            return;
        failed = true;
        m_context.critical(text, details);
    });
    for (int first = 0; first < names.size() && !failed && !stopped(); first += NamesPerRun)
        *records += utils.packageRecords(names.mid(first, NamesPerRun));
    return !failed && !stopped();
}
