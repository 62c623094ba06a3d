// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/listchange.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QTimer>

class RepoShell;

/**
 * Passes the engine's package signals to the interface thread in batches. A job can emit tens of thousands of signals,
 * which would flood the event loop if they were queued one by one. They are collected on the thread of the job and wake
 * the interface thread once. All changes before finished() or repoCreated() are delivered before the queued slots of
 * these signals run, if the receiver connected after this object.
 *
 * Lives in the interface thread. The engine must not run a job when it is destroyed.
 */
class PackageFeed : public QObject
{
    Q_OBJECT
public:
    explicit PackageFeed(QObject *parent = nullptr);

    /** Collects the changes of this engine. */
    void watch(const RepoShell &shell);

    /** Adds a change. Thread-safe. */
    void push(ListChange change);
    /** All changes so far arrive before anything that the calling thread posts afterwards. Thread-safe. */
    void endBurst();
    /** Delivers the collected changes at once. Interface thread only. */
    void flush();

    /** Shortest time between two deliveries, in milliseconds. */
    static constexpr int Interval = 100;

Q_SIGNALS:
    /** A batch of changes in the engine's order. */
    void changesReady(const ListChanges &changes);

private:
    QMutex m_mutex;
    ListChanges m_pending;
    bool m_awake = false; ///< a wake-up is queued, or the timer runs
    QTimer m_timer;
    QElapsedTimer m_sinceDelivery;

    void wake();
};
