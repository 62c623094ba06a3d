// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/storedresults.h"

#include "depends/dependsdata.h"
#include "engine/control/jobsignals.h"

#include <QtConcurrent>

StoredResults::StoredResults(JobSignals &engineSignals,
                             const std::function<void(const QList<PackageInfoPtr> &packages)> &merged,
                             const std::function<void(const QString &keptAs)> &broken)
    : m_store(std::make_unique<DependsData>(DependsData::userFileName()))
{
    DependsData *const store = m_store.get();
    store->moveToThread(&m_thread);
    const auto serve = [&engineSignals, store](auto request, auto answer) {
        QObject::connect(&engineSignals, request, store, answer, Qt::BlockingQueuedConnection);
    };
    serve(&JobSignals::requestForStoredInformation, &DependsData::loadData);
    serve(&JobSignals::requestForMergingInformation, &DependsData::mergeStoredPackages);
    serve(&JobSignals::requestForMovingStoredInformation, &DependsData::changePath);
    serve(&JobSignals::requestForSavingPackages, &DependsData::savePackages);
    serve(&JobSignals::requestForClearingStoredInformation, &DependsData::removeRepoData);
    // On the store's thread, while the job waits that asked: so the list of packages is the job's to write.
    QObject::connect(store, &DependsData::packagesMerged, &engineSignals, merged, Qt::DirectConnection);
    QObject::connect(store, &DependsData::fileBroken, &engineSignals, broken);
    m_thread.start();
}

StoredResults::~StoredResults()
{
    // Without a job nothing is queued in the store's thread, so this does not wait for a file.
    m_thread.quit();
    m_thread.wait();
}

void StoredResults::removeInBackground(const QString &repoPath)
{
    QtConcurrent::run(
        [file = DependsData::userFileName(), repoPath] { DependsData(file, repoPath).removeRepoData(); });
}
