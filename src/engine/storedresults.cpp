// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/storedresults.h"

#include "depends/dependsdata.h"
#include "engine/control/jobsignals.h"

#include <QCoreApplication>
#include <QThread>

#include <algorithm>
#include <atomic>
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

StoredResults::StoredResults(JobSignals &engineSignals,
                             const std::function<void(const QList<PackageInfoPtr> &packages)> &merged,
                             const std::function<void(const QString &keptAs)> &broken)
    : m_signals(engineSignals)
    , m_thread(std::make_unique<QThread>())
    , m_store(new DependsData(DependsData::userFileName()))
{
    DependsData *const store = m_store;
    store->moveToThread(m_thread.get());
    const auto serve = [&engineSignals, store](auto request, auto answer, Qt::ConnectionType type) {
        QObject::connect(&engineSignals, request, store, answer, type);
    };
    constexpr auto Waiting = Qt::BlockingQueuedConnection;
    // An engine that is gone may have left results of the same repository to be written.
    const auto load = [store](const QString &repoPath) {
        pendingWrites().wait();
        store->loadData(repoPath);
    };
    serve(&JobSignals::requestForStoredInformation, load, Waiting);
    serve(&JobSignals::requestForMergingInformation, &DependsData::mergeStoredPackages, Waiting);
    serve(&JobSignals::requestForMovingStoredInformation, &DependsData::changePath, Waiting);
    const auto save
        = [this, newest = std::make_shared<std::atomic<int>>(0)](const QList<PackageInfoPtr> &packages) {
              // Each has the results of the whole repository, so the last one is enough.
              write([newest, number = ++*newest, packages](DependsData &data) {
                  if (*newest == number)
                      data.savePackages(packages);
              });
          };
    serve(&JobSignals::requestForSavingPackages, save, Qt::DirectConnection);
    serve(&JobSignals::requestForClearingStoredInformation, &DependsData::removeRepoData, Waiting);
    // On the store's thread, while the job waits that asked: so the list of packages is the job's to write.
    QObject::connect(store, &DependsData::packagesMerged, &engineSignals, merged, Qt::DirectConnection);
    QObject::connect(store, &DependsData::fileBroken, &engineSignals, broken);
    m_thread->start();
}

StoredResults::~StoredResults()
{
    // The store outlives the engine, and must not reach for it when it goes.
    QObject::disconnect(&m_signals, nullptr, m_store, nullptr);
    QObject::disconnect(m_store, nullptr, &m_signals, nullptr);
    // Behind the results that are still to be written.
    const auto end = [store = m_store, thread = m_thread.get()] {
        store->deleteLater();
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
    write([](DependsData &data) { data.removeRepoData(); });
}

void StoredResults::write(const std::function<void(DependsData &data)> &work)
{
    pendingWrites().begin();
    const auto writeNow = [store = m_store, work] {
        work(*store);
        pendingWrites().end();
    };
    QMetaObject::invokeMethod(m_store, writeNow, Qt::QueuedConnection);
}
