// SPDX-License-Identifier: GPL-3.0-or-later
// The dependency check, and its stored results: who asks for what, and on which thread it happens.
#include "depends/dependsdata.h"
#include "engine/changes/checkjob.h"
#include "engine/changes/jobcontext.h"
#include "engine/reposhell.h"

#include <QtConcurrent>

// --- the check ---------------------------------------------------------------------------------------------------

void RepoShell::checkDepends(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return CheckJob(*m_context).run(packages); });
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
    connect(this,
            &RepoShell::requestForClearingStoredInformation,
            m_store.get(),
            &DependsData::removeRepoData,
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
