// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>
#include <QThread>

#include <functional>
#include <memory>

class DependsData;
class JobSignals;

/**
 * The stored results of the dependency checks, on a thread of their own. A job that asks for them waits until they are
 * read or written, so what it emits next, idle() among it, comes after that.
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
    ~StoredResults();
    StoredResults(const StoredResults &) = delete;
    StoredResults &operator=(const StoredResults &) = delete;

    /** Deletes the results of the repository on the thread pool. The engine, and the program, may be gone before. */
    static void removeInBackground(const QString &repoPath);

private:
    QThread m_thread; ///< of m_store; free whenever no job runs
    std::unique_ptr<DependsData> m_store;
};
