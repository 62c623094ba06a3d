// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/gathering/gatherjob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/control/listsfetch.h"
#include "engine/gathering/gathersearch.h"
#include "engine/gathering/gathertext.h"
#include "engine/jobs/downloadjob.h"
#include "engine/repository/presentrecords.h"

#include <QElapsedTimer>
#include <QSet>

#include <algorithm>
#include <iterator>

int GatherJob::find(const QList<PackageInfoPtr> &packages,
                    const QString &component,
                    const std::function<void(const GatherPlan &plan)> &publish)
{
    constexpr int StepInterval = 50; // milliseconds
    JobFrame frame(m_context, tr("Looking for missing packages"), JobFrame::Repository);
    const auto stopped = [this] { return m_context.control.isCanceled() || m_context.control.isClosing(); };
    const auto wanted = presentRecords(m_context.packages, packages);
    const QStringList architectures = m_context.repository.info().binaryArchitectures();
    const CheckScope scope{{m_context.path(), architectures, m_context.packages.all()},
                           {CompleteCheckBase::Public, {}, {}},
                           m_context.choices.acceptedOrigins(),
                           {},
                           m_context.choices.externalRepos()};
    AddedSources added = scope.addedSources();
    ListsFetch(m_context.control, m_context.errors, m_context.progress).refresh(&added, ListsFetch::WhenOld);
    const BaseOffers offers = BaseOffers::read(scope, architectures, stopped);
    // What stands in a list that cannot be read would seem not to be offered.
    if (!offers.problem.isEmpty() && !stopped()) {
        m_context.errors.critical(offers.problem, offers.problemDetails);
        return frame.finish(ERROR, tr("It is not known what is missing."), PREVIEW_JOB);
    }
    m_context.progress.setRange(countOf(wanted));
    QElapsedTimer sinceStep;
    sinceStep.start();
    GatherSearch search(scope, offers, stopped, component);
    const GatherPlan plan = search.find(wanted, [&](int visited) {
        if (!sinceStep.hasExpired(StepInterval))
            return;
        sinceStep.start();
        m_context.progress.setStep(std::min(visited, static_cast<int>(wanted.size())));
        m_context.progress.show();
    });
    if (!plan.isComplete)
        return frame.finish(CANCEL, tr("The search for missing packages was stopped."), PREVIEW_JOB);
    publish(plan);
    return frame.finish(SUCCESS, tr("%n package(s) to be fetched", nullptr, countOf(plan.rows)), PREVIEW_JOB);
}

int GatherJob::fetch(const GatherPlan &plan, const QList<PackageInfo> &packages, const AddOptions &options)
{
    return DownloadJob(m_context, options).gather(packages, unsettled(plan), [&] { return tellLeft(plan); });
}

QList<PackageInfoPtr> GatherJob::unsettled(const GatherPlan &plan) const
{
    const auto keyOf = [](const PackageInfo &package) -> QString {
        return package.name + QLatin1Char(' ') + package.architecture;
    };
    QSet<QString> lacking;
    for (const GatherPlan::Need &need : plan.needs)
        lacking.insert(keyOf(need.owner));
    QList<PackageInfoPtr> packages;
    const auto wanted = presentRecords(m_context.packages, plan.wanted);
    std::copy_if(wanted.cbegin(), wanted.cend(), std::back_inserter(packages), [&](const auto &package) {
        const bool isGreen = package->hasDependsInfo() && package->dependsInfo->status == DependSuccess;
        return !isGreen || lacking.contains(keyOf(*package));
    });
    return packages;
}

QString GatherJob::tellLeft(const GatherPlan &plan)
{
    const auto left = plan.after(m_context.packages.all()).left();
    if (!left.isEmpty())
        m_context.errors.critical(
            GatherText::summary(left), GatherText::lines(left).join(QLatin1Char('\n')), WARNING);
    return GatherText::summary(left);
}
