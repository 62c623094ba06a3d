// SPDX-License-Identifier: GPL-3.0-or-later
// The dependency check, and its stored results: who asks for what, and on which thread it happens.
#include "depends/aptcandidates.h"
#include "depends/aptutils.h"
#include "depends/dependscheck.h"
#include "depends/dependsdata.h"
#include "depends/dependsreport.h"
#include "depends/localcandidates.h"
#include "engine/jobframe.h"
#include "engine/reposhell.h"

#include <QMutexLocker>
#include <QSet>
#include <QtConcurrent>

// --- the check ---------------------------------------------------------------------------------------------------

void RepoShell::checkDepends(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return checkBody(packages); });
}

int RepoShell::checkBody(const QList<PackageInfoPtr> &packages)
{
    JobFrame frame(*m_context, tr("Checking depends"));
    const auto records = presentRecords(packages);
    m_context->setProgressRange(records.size());
    const bool isOn = m_context->dependsRepoType() != DependsNowhere;
    const int checked = checkRecords(records, [&frame] { frame.quickItemDone(); });
    m_context->showProgress();
    if (checked > 0)
        Q_EMIT requestForSavingPackages(m_context->packages().all());
    if (isOn && checked < records.size())
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n package(s) depends checked", nullptr, records.size())
                .arg(checked),
            CHECK_DEPENDS_JOB);
    return frame.finish(SUCCESS, tr("Depends checked"), CHECK_DEPENDS_JOB);
}

QList<PackageInfoPtr> RepoShell::presentRecords(const QList<PackageInfoPtr> &packages) const
{
    QList<PackageInfoPtr> records;
    QSet<PackageInfoPtr> seen;
    for (const PackageInfoPtr &package : packages) {
        const PackageInfoPtr record = m_context->packages().find(PackageKey::of(*package));
        if (!record || seen.contains(record))
            continue;
        seen.insert(record);
        records.append(record);
    }
    return records;
}

int RepoShell::checkRecords(const QList<PackageInfoPtr> &records, const std::function<void()> &itemDone)
{
    const int selection = m_context->dependsRepoType();
    if (selection == DependsNowhere || records.isEmpty())
        return 0;
    LocalCandidates local(m_context->packages().all());
    AptCandidates apt(QString(), m_context->acceptedOrigins());
    QList<PackageInfoPtr> results;
    const int checked = DependsCheck(selection, &local, &apt)
                            .run(
                                records,
                                [&](const PackageInfoPtr &package, const auto &result) {
                                    const auto record = QSharedPointer<PackageInfo>::create(*package);
                                    record->dependsInfo = result;
                                    if (m_context->packages().replace(record))
                                        Q_EMIT packageChanged(record);
                                    results.append(record);
                                    if (itemDone)
                                        itemDone();
                                },
                                [this] { return m_context->isCanceled() || m_context->isClosing(); });
    tellAptFailure(&apt);
    if (!results.isEmpty())
        Q_EMIT dependsSummary(DependsReport::summaryLines(results));
    return checked;
}

void RepoShell::tellAptFailure(AptCandidates *apt)
{
    if (apt->failed())
        Q_EMIT critical(apt->errorText(), apt->errorDetail(), WARNING);
    else if (!m_context->isCanceled() && !m_context->isClosing() && apt->lacksSources())
        Q_EMIT critical(AptUtils::tr("Apt error"), AptUtils::noSourcesText(), WARNING);
}

// --- stored results ----------------------------------------------------------------------------------------------

void RepoShell::startStore()
{
    m_store = std::make_unique<DependsData>(DependsData::userFileName());
    m_store->moveToThread(&m_storeThread);
    // Jobs wait for the store: what they emit next, idle() among it, comes when the results are read or written.
    connect(this,
            &RepoShell::requestForStoredInformation,
            m_store.get(),
            &DependsData::loadData,
            Qt::BlockingQueuedConnection);
    connect(this,
            &RepoShell::requestForMergingInformation,
            m_store.get(),
            &DependsData::mergeStoredPackages,
            Qt::BlockingQueuedConnection);
    connect(this,
            &RepoShell::requestForSavingPackages,
            m_store.get(),
            &DependsData::savePackages,
            Qt::BlockingQueuedConnection);
    // On the store's thread, while the job that asked waits: so the list is the job's to write.
    connect(
        m_store.get(),
        &DependsData::packagesMerged,
        this,
        [this](const QList<PackageInfoPtr> &packages) { m_context->packages().assign(packages); },
        Qt::DirectConnection);
    connect(m_store.get(), &DependsData::fileBroken, this, [this](const QString &keptAs) {
        Q_EMIT critical(tr("The stored results of the dependency checks could not be read. The file is kept "
                           "as %1; check the dependencies again.")
                            .arg(keptAs),
                        QString(),
                        WARNING);
    });
    // The interface asks for this one, and its thread waits for nothing.
    connect(
        this,
        &RepoShell::requestForRemovingStoredInformation,
        this,
        [this] { removeStoredResultsAside(); },
        Qt::DirectConnection);
    m_storeThread.start();
}

void RepoShell::stopStore()
{
    // Without a job nothing is queued in the store's thread, so this does not wait for a file.
    m_storeThread.quit();
    m_storeThread.wait();
}

void RepoShell::removeStoredResultsAside() const
{
    // The engine may be gone in the next moment, and the program too; it ends when the pool has nothing left to do.
    QtConcurrent::run(
        [file = DependsData::userFileName(), path = path()] { DependsData(file, path).removeRepoData(); });
}

void RepoShell::startStoredResultsAnew(const QString &repoPath)
{
    Q_EMIT requestForStoredInformation(repoPath);
    // What was stored belongs to the repository that the new one has replaced.
    QMetaObject::invokeMethod(m_store.get(), &DependsData::removeRepoData, Qt::BlockingQueuedConnection);
}

void RepoShell::moveStoredResults(const QString &newPath)
{
    QMetaObject::invokeMethod(
        m_store.get(),
        [store = m_store.get(), newPath] { store->changePath(newPath); },
        Qt::BlockingQueuedConnection);
}
