// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

class DependsData;
class JobSignals;
class QThread;

/**
 * The stored results of the dependency checks, on a thread of their own. A job that asks for them waits until they are
 * read. It does not wait until they are written, which takes seconds where the file holds the results of many packages;
 * what any engine asks for later is read after that.
 */
class StoredResults
{
public:
    /**
     * Serves the requests of `engineSignals`. `merged` gets the packages with their stored results while the job waits
     * that asked; `broken` is called on the engine's thread when the file could not be understood and is kept under
     * another name.
     */
    StoredResults(JobSignals &engineSignals,
                  const std::function<void(const QList<PackageInfoPtr> &packages)> &merged,
                  const std::function<void(const QString &keptAs)> &broken);
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

private:
    JobSignals &m_signals;
    std::unique_ptr<QThread> m_thread;
    DependsData *m_store; ///< lives in m_thread, and is deleted with it

    /** Has the store's thread do it, without waiting. Any thread. */
    void write(const std::function<void(DependsData &data)> &work);
};
