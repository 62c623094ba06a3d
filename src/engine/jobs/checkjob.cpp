// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/checkjob.h"

#include "apt/aptutils.h"
#include "apt/publiccandidates.h"
#include "core/countof.h"
#include "core/settingskeys.h"
#include "depends/dependscheck.h"
#include "depends/dependsreport.h"
#include "depends/localcandidates.h"
#include "engine/changes/jobframe.h"
#include "engine/repository/presentrecords.h"

int CheckJob::run(const QList<PackageInfoPtr> &packages)
{
    JobFrame frame(m_context, tr("Checking depends"));
    const auto records = presentRecords(m_context.packages, packages);
    const bool isOn = m_context.choices.dependsRepoType() != DependsNowhere;
    const AddedSources added = isOn ? addedSources(ifPublic(ListsFetch::WhenOld)) : AddedSources();
    m_context.progress.setRange(countOf(records));
    const int checked = checkRecords(records, added, [&frame] { frame.quickItemDone(); });
    m_context.progress.show();
    if (checked > 0)
        Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    if (isOn && checked < records.size())
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n package(s) depends checked", nullptr, countOf(records))
                .arg(checked),
            CHECK_DEPENDS_JOB);
    return frame.finish(SUCCESS, tr("Depends checked"), CHECK_DEPENDS_JOB);
}

void CheckJob::checkPresent(const QList<PackageInfoPtr> &packages)
{
    const auto records = presentRecords(m_context.packages, packages);
    if (m_context.choices.dependsRepoType() == DependsNowhere)
        return;
    const int checked = checkRecords(records, addedSources(ifPublic(ListsFetch::WhenNew)));
    if (checked < records.size() && mustStop())
        Q_EMIT m_context.listener.noted(
            tr("Operation stopped. %1 of %n package(s) depends checked", nullptr, countOf(records))
                .arg(checked));
}

ListsFetch::When CheckJob::ifPublic(ListsFetch::When when) const
{
    // Where the repository alone counts, apt is only asked what could take the place of something missing.
    return (m_context.choices.dependsRepoType() & DependsPublic) != 0 ? when : ListsFetch::Never;
}

AddedSources CheckJob::addedSources(ListsFetch::When when)
{
    AddedSources sources(m_context.choices.externalRepos(),
                         m_context.repository.info().binaryArchitectures());
    ListsFetch(m_context.control, m_context.errors, m_context.progress).refresh(&sources, when);
    return sources;
}

int CheckJob::checkRecords(const QList<PackageInfoPtr> &records,
                           const AddedSources &added,
                           const std::function<void()> &itemDone)
{
    const int selection = m_context.choices.dependsRepoType();
    if (selection == DependsNowhere || records.isEmpty())
        return 0;
    LocalCandidates local(m_context.packages.all());
    PublicCandidates apt(m_context.choices.acceptedOrigins(), added.environment());
    QList<PackageInfoPtr> results;
    const int checked = DependsCheck(selection, &local, &apt)
                            .run(
                                records,
                                [&](const PackageInfoPtr &package, const auto &result) {
                                    const auto record = QSharedPointer<PackageInfo>::create(*package);
                                    record->dependsInfo = result;
                                    if (m_context.packages.replace(record))
                                        Q_EMIT m_context.listener.packageChanged(record);
                                    results.append(record);
                                    if (itemDone)
                                        itemDone();
                                },
                                [this] { return mustStop(); });
    tellAptFailure(&apt);
    // A user who only adds packages must not close a box each time. The summary in the log says the same.
    if (itemDone)
        tellUnknownArchitectures(DependsReport::summary(results).unknownArchitectures);
    if (!results.isEmpty())
        Q_EMIT m_context.listener.dependsSummary(DependsReport::summaryLines(results));
    return checked;
}

void CheckJob::tellAptFailure(PublicCandidates *sources)
{
    if (sources->failed())
        m_context.errors.critical(sources->errorText(), sources->errorDetail(), WARNING);
    else if (!mustStop() && sources->lacksSources())
        m_context.errors.critical(AptUtils::tr("Apt error"), AptUtils::noSourcesText(), WARNING);
}

void CheckJob::tellUnknownArchitectures(const QStringList &architectures)
{
    if (!architectures.isEmpty() && !mustStop())
        m_context.errors.critical(AptUtils::unknownArchitecturesText(architectures), QString(), WARNING);
}

bool CheckJob::mustStop() const
{
    return m_context.control.isCanceled() || m_context.control.isClosing();
}
