// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/storedresults.h"

#include "depends/dependsdata.h"
#include "engine/control/jobsignals.h"
#include "engine/storedchecks.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace
{
/** What all engines have still to write. */
class PendingWrites
{
public:
    void begin()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        ++m_count;
    }
    void end()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        --m_count;
        m_written.notify_all();
    }
    void wait()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_written.wait(lock, [this] { return m_count == 0; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_written;
    int m_count = 0;
};

PendingWrites &pendingWrites()
{
    static PendingWrites writes;
    return writes;
}

/** The threads of engines that are gone. */
class EndingThreads
{
public:
    void add(std::unique_ptr<QThread> thread)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto ended = [](const std::unique_ptr<QThread> &other) { return other->isFinished(); };
        m_threads.erase(std::remove_if(m_threads.begin(), m_threads.end(), ended), m_threads.end());
        m_threads.push_back(std::move(thread));
    }
    void waitForAll()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (const auto &thread : m_threads)
            thread->wait();
        m_threads.clear();
    }

private:
    std::mutex m_mutex;
    std::vector<std::unique_ptr<QThread>> m_threads;
};

EndingThreads &endingThreads()
{
    static EndingThreads threads;
    // Without the application object no thread can end its event loop.
    static const bool isRegistered = [] {
        qAddPostRoutine([] { threads.waitForAll(); });
        return true;
    }();
    Q_UNUSED(isRegistered)
    return threads;
}
} // namespace

StoredResults::StoredResults(JobSignals &engineSignals, const Listener &listener)
    : m_signals(engineSignals)
    , m_thread(std::make_unique<QThread>())
    , m_store(new DependsData(DependsData::userFileName()))
    , m_checks(new StoredChecks(InstallabilityStore::userFileName()))
    , m_newestCheck(std::make_shared<std::atomic<int>>(0))
{
    m_store->moveToThread(m_thread.get());
    m_checks->moveToThread(m_thread.get());
    serveLoading(listener);
    serveChanges(listener);
    QObject::connect(m_store, &DependsData::fileBroken, &engineSignals, listener.dependsBroken);
    QObject::connect(m_checks, &StoredChecks::fileBroken, &engineSignals, listener.checksBroken);
    m_thread->start();
}

void StoredResults::serveLoading(const Listener &listener)
{
    DependsData *const store = m_store;
    StoredChecks *const checks = m_checks;
    const auto load = [store, checks, listener](const QString &repoPath) {
        // An engine that is gone may have left results of the same repository to be written.
        pendingWrites().wait();
        store->loadData(repoPath);
        checks->load(repoPath);
        listener.checkRead({});
    };
    // On the store's thread, while the job waits that asked: so the list of packages is the job's to write.
    const auto merge = [store, checks, listener](const QList<PackageInfoPtr> &origin) {
        QList<PackageInfoPtr> packages = origin;
        const auto taking = QObject::connect(
            store, &DependsData::packagesMerged, [&packages](const auto &merged) { packages = merged; });
        store->mergeStoredPackages(origin);
        QObject::disconnect(taking);
        packages = checks->merged(packages);
        if (packages != origin)
            listener.merged(packages);
        listener.checkRead(checks->record());
    };
    constexpr auto Waiting = Qt::BlockingQueuedConnection;
    QObject::connect(&m_signals, &JobSignals::requestForStoredInformation, store, load, Waiting);
    QObject::connect(&m_signals, &JobSignals::requestForMergingInformation, store, merge, Waiting);
}

void StoredResults::serveChanges(const Listener &listener)
{
    DependsData *const store = m_store;
    StoredChecks *const checks = m_checks;
    const auto move = [store, checks](const QString &newPath) {
        store->changePath(newPath);
        checks->changePath(newPath);
    };
    const auto clear = [store, checks, listener] {
        store->removeRepoData();
        checks->remove();
        listener.checkRead({});
    };
    const auto save =
        [this, store, newest = std::make_shared<std::atomic<int>>(0)](const QList<PackageInfoPtr> &packages) {
            // Each has the results of the whole repository, so the last one is enough.
            write([store, newest, number = ++*newest, packages] {
                if (*newest == number)
                    store->savePackages(packages);
            });
        };
    constexpr auto Waiting = Qt::BlockingQueuedConnection;
    QObject::connect(&m_signals, &JobSignals::requestForMovingStoredInformation, store, move, Waiting);
    QObject::connect(&m_signals, &JobSignals::requestForClearingStoredInformation, store, clear, Waiting);
    QObject::connect(&m_signals, &JobSignals::requestForSavingPackages, store, save, Qt::DirectConnection);
}

StoredResults::~StoredResults()
{
    // The stores outlive the engine, and must not reach for it when it goes.
    QObject::disconnect(&m_signals, nullptr, m_store, nullptr);
    QObject::disconnect(m_store, nullptr, &m_signals, nullptr);
    QObject::disconnect(m_checks, nullptr, &m_signals, nullptr);
    // Behind the results that are still to be written.
    const auto end = [store = m_store, checks = m_checks, thread = m_thread.get()] {
        store->deleteLater();
        checks->deleteLater();
        thread->quit();
    };
    QMetaObject::invokeMethod(m_store, end, Qt::QueuedConnection);
    endingThreads().add(std::move(m_thread));
}

void StoredResults::waitUntilWritten() const
{
    QMetaObject::invokeMethod(
        m_store, [] {}, Qt::BlockingQueuedConnection);
}

void StoredResults::waitForAll()
{
    endingThreads().waitForAll();
}

void StoredResults::removeLater()
{
    write([store = m_store, checks = m_checks] {
        store->removeRepoData();
        checks->remove();
    });
}

void StoredResults::saveCompleteCheck(const QList<PackageInfoPtr> &packages,
                                      const CompleteCheckRecord &record)
{
    write([checks = m_checks, newest = m_newestCheck, number = ++*m_newestCheck, packages, record] {
        if (*newest == number)
            checks->save(packages, record);
    });
}

void StoredResults::write(const std::function<void()> &work)
{
    pendingWrites().begin();
    const auto writeNow = [work] {
        work();
        pendingWrites().end();
    };
    QMetaObject::invokeMethod(m_store, writeNow, Qt::QueuedConnection);
}
