// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "installability/completecheckrecord.h"

#include <QList>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class DependsData;
class JobSignals;
class QThread;
class StoredChecks;

/**
 * The stored results of the dependency checks and of the complete checks, on a thread of their own. A job that asks for
 * them waits until they are read. It does not wait until they are written, which takes seconds where a file holds the
 * results of many packages; what any engine asks for later is read after that.
 */
class StoredResults
{
public:
    /** What the engine wants to know. */
    struct Listener
    {
        /** Gets the packages with their stored results while the job waits that asked. */
        std::function<void(const QList<PackageInfoPtr> &packages)> merged;
        /** The last complete check of the repository, from which results are merged; while the job waits that asked. */
        std::function<void(const CompleteCheckRecord &record)> checkRead;
        /** On the engine's thread: a file could not be understood and is kept under another name. */
        std::function<void(const QString &keptAs)> dependsBroken;
        std::function<void(const QString &keptAs)> checksBroken;
    };

    /** Serves the requests of `engineSignals`. */
    StoredResults(JobSignals &engineSignals, const Listener &listener);
    /** Returns at once: what is still to be written is written without the engine. */
    ~StoredResults();
    StoredResults(const StoredResults &) = delete;
    StoredResults &operator=(const StoredResults &) = delete;

    /** Blocks until this engine's results are written; for programs without an interface. */
    void waitUntilWritten() const;
    /** Blocks until those of engines that are gone are written: for the end of the program. */
    static void waitForAll();
    /** Deletes the results of the repository, behind those that are still to be written. Returns at once. */
    void removeLater();
    /**
     * Stores what a complete check has found of these packages, which must be the whole repository, behind what is
     * still to be written. Returns at once. Any thread.
     */
    void saveCompleteCheck(const QList<PackageInfoPtr> &packages, const CompleteCheckRecord &record);

private:
    JobSignals &m_signals;
    std::unique_ptr<QThread> m_thread;
    // They live in m_thread, and are deleted with it.
    DependsData *m_store;
    StoredChecks *m_checks;
    const std::shared_ptr<std::atomic<int>> m_newestCheck;

    void serveLoading(const Listener &listener);
    void serveChanges(const Listener &listener);
    /** Has the store's thread do it, without waiting. Any thread. */
    void write(const std::function<void()> &work);
};
