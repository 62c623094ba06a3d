// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/completecheckjob.h"

#include "apt/aptutils.h"
#include "core/countof.h"
#include "engine/control/listsfetch.h"
#include "engine/installability/checkedsystem.h"
#include "engine/installability/completecheckstate.h"
#include "engine/repository/presentrecords.h"
#include "installability/installabilitycheck.h"
#include "installability/installabilityreasons.h"

#include <QElapsedTimer>

#include <algorithm>
#include <utility>

CompleteCheckJob::CompleteCheckJob(JobContext &context, CompleteCheckRecord previous, Keep keep)
    : m_context(context)
    , m_previous(std::move(previous))
    , m_keep(std::move(keep))
{ }

int CompleteCheckJob::run(const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base)
{
    JobFrame frame(m_context, tr("Complete check"));
    const auto records = presentRecords(m_context.packages, packages);
    const auto all = m_context.packages.all();
    const QStringList architectures = m_context.repository.info().binaryArchitectures();
    const CheckScope scope{{m_context.path(), architectures, all},
                           base,
                           m_context.choices.acceptedOrigins(),
                           {},
                           m_context.choices.externalRepos()};
    const auto stopped = [this] { return mustStop(); };
    if (BaseOffers::isOfPublicSources(base)) {
        AddedSources added = scope.addedSources();
        ListsFetch(m_context.control, m_context.errors, m_context.progress)
            .refresh(&added, ListsFetch::WhenOld);
    }
    m_context.progress.setRange(countOf(records));
    const BaseOffers offers = BaseOffers::read(scope, architectures + base.foreignArchitectures, stopped);
    // Against a base that is not there, or only in part, packages would seem to lack what they need.
    if (!offers.problem.isEmpty() && !mustStop()) {
        m_context.errors.critical(offers.problem, offers.problemDetails);
        return frame.finish(ERROR, tr("Complete check: nothing was checked"), CHECK_DEPENDS_JOB);
    }
    tellUnknownArchitectures(offers);
    for (const PackageType type : {PackageType::Deb, PackageType::Udeb}) {
        for (const QString &architecture : architectures) {
            const bool isAny
                = std::any_of(records.cbegin(), records.cend(), [&](const PackageInfoPtr &record) {
                      return record->type == type && record->architecture == architecture;
                  });
            if (!isAny || mustStop())
                continue;
            const CheckedSystem system(scope, offers, architecture, type, stopped);
            // apt fetches no lists of installer packages, so that one of them may need what only seems to be missing.
            const bool isComplete = type == PackageType::Deb || !BaseOffers::isOfPublicSources(base);
            checkSystem(system, system.nativeAmong(records), isComplete);
        }
    }
    // A stop before the first result has checked nothing: then the last check is still the last one.
    if (!m_results.isEmpty() || !mustStop()) {
        const QByteArray digest = CompleteCheckState::digestOf(all, offers.digest);
        publish(m_previous.base == base && m_previous.digest == digest);
        // What is stored knows whole seconds.
        const auto now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch()).toUTC();
        m_keep({base, now, digest, false});
    }
    m_context.progress.show();
    if (m_leftOut > 0)
        Q_EMIT m_context.listener.noted(
            tr("%n installer package(s) need what the repository does not hold, and apt fetches no lists of "
               "installer packages: whether they can be installed is not known.",
               nullptr,
               m_leftOut));
    if (mustStop())
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n package(s) checked completely", nullptr, countOf(records))
                .arg(m_results.size()),
            CHECK_DEPENDS_JOB);
    return frame.finish(SUCCESS,
                        tr("Complete check done. Installable: %1, not installable: %2, undecided: %3")
                            .arg(m_counts.value(Installable))
                            .arg(m_counts.value(NotInstallable))
                            .arg(m_counts.value(InstallabilityUndecided)),
                        CHECK_DEPENDS_JOB);
}

void CompleteCheckJob::checkSystem(const CheckedSystem &system, const QVector<int> &asked, bool isComplete)
{
    constexpr int StepInterval = 50; // milliseconds
    QElapsedTimer sinceStep;
    sinceStep.start();
    InstallabilityCheck check(system.universe());
    const int before = m_context.progress.step();
    const auto stopped = [this] { return mustStop(); };
    const auto progress = [&](int settled) {
        if (!sinceStep.hasExpired(StepInterval))
            return;
        sinceStep.start();
        m_context.progress.setStep(before + settled);
        m_context.progress.show();
    };
    // After a stop, the packages that are settled already keep their results.
    if (check.run(asked, stopped, progress))
        check.runRecommends(stopped);
    m_context.progress.setStep(before + countOf(asked));
    takeResults(system, asked, isComplete, check);
}

void CompleteCheckJob::takeResults(const CheckedSystem &system,
                                   const QVector<int> &asked,
                                   bool isComplete,
                                   InstallabilityCheck &check)
{
    InstallabilityReasons reasons(check);
    for (const int package : asked) {
        const auto info = QSharedPointer<InstallabilityInfo>::create();
        info->state = check.state(package);
        const auto records = system.recordsOf(QVector<int>{package});
        if (info->state != Installable && info->state != InstallabilityUnknown && !isComplete) {
            info->state = InstallabilityUnknown;
            m_leftOut += countOf(records);
        }
        if (info->state == InstallabilityUnknown)
            continue;
        info->unmetRecommends = check.unmetRecommends(package);
        if (info->state == InstallabilityUndecided)
            info->seconds = check.secondsOf(package);
        // A package without its reason would be a riddle: it is left for the next check.
        if (info->state == NotInstallable)
            info->reason = reasons.reason(package, [this] { return mustStop(); });
        if (info->state == NotInstallable && info->reason.isEmpty() && mustStop())
            continue;
        m_counts[info->state] += countOf(records);
        for (const PackageInfoPtr &record : records)
            m_results.insert(record, info);
    }
}

void CompleteCheckJob::publish(bool keepsOthers)
{
    const auto all = m_context.packages.all();
    for (const PackageInfoPtr &package : all) {
        const auto result = m_results.constFind(package);
        const bool isNew = result != m_results.constEnd();
        // What was found against another base, or before a change, must not stand beside these results.
        if (!isNew && (keepsOthers || !package->installability))
            continue;
        const auto record = QSharedPointer<PackageInfo>::create(*package);
        record->installability = isNew ? *result : nullptr;
        if (m_context.packages.replace(record))
            Q_EMIT m_context.listener.packageChanged(record);
    }
}

void CompleteCheckJob::tellUnknownArchitectures(const BaseOffers &offers)
{
    if (!mustStop() && !offers.unknownArchitectures.isEmpty())
        m_context.errors.critical(
            AptUtils::unknownArchitecturesText(offers.unknownArchitectures), QString(), WARNING);
}

bool CompleteCheckJob::mustStop() const
{
    return m_context.control.isCanceled() || m_context.control.isClosing();
}
