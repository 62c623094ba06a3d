// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/control/listsfetch.h"

#include "engine/control/jobcontrol.h"
#include "engine/control/joberrors.h"
#include "engine/control/jobprogress.h"

namespace
{
constexpr int Percents = 100;
}

PrivateApt::Outcome ListsFetch::fetch(PrivateApt &apt) const
{
    // A job that has counted packages already counts on.
    const bool showsPercents = m_progress.step() == 0;
    const auto showPercent = [this, showsPercents](int percent) {
        if (showsPercents && m_progress.step() == 0)
            m_progress.setRange(Percents);
        if (showsPercents && percent > m_progress.step()) {
            m_progress.setStep(percent);
            m_progress.show();
        }
    };
    const auto outcome
        = apt.fetch([this] { return m_control.isCanceled() || m_control.isClosing(); }, showPercent);
    if (showsPercents && m_progress.step() != 0) {
        // The next part of the job counts packages and not percents.
        m_progress.setStep(0);
        m_progress.setRange(0);
        m_progress.show();
    }
    return outcome;
}

void ListsFetch::refresh(AddedSources *sources, When when) const
{
    const auto stopped = [this] { return m_control.isCanceled() || m_control.isClosing(); };
    sources->settle(stopped);
    if (sources->isEmpty() || when == Never || stopped())
        return;
    if (sources->apt() == nullptr) {
        m_errors.critical(tr("Failed to create file with selected sources"),
                          PrivateApt::cacheFolder(),
                          RepoEnums::WARNING,
                          RepoEnums::SOURCES_NOT_WRITTEN);
        return;
    }
    PrivateApt &apt = *sources->apt();
    PrivateApt::Outcome outcome;
    if (when == WhenNew ? apt.isNew() : apt.isDue()) {
        const QString message = m_progress.startMessage();
        m_progress.announce(tr("Fetching the lists of your own sources"));
        outcome = fetch(apt);
        m_progress.announce(message);
    } else if (when == WhenOld) {
        outcome.problems = apt.lastProblems();
    }
    if (!outcome.problems.isEmpty())
        m_errors.critical(outcome.problems.join(QLatin1Char('\n')), outcome.details, RepoEnums::WARNING);
}
