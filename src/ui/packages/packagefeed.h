// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/packagechange.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QObject>
#include <QTimer>

class RepoShell;

/**
 * Carries the engine's package signals to the interface thread in batches. A job can emit tens of thousands of them;
 * queued one by one they would flood the event loop, here they are gathered on the job's thread and wake the
 * interface once. What was emitted before finished() or repoCreated() has been delivered when the queued slots of
 * these signals run, for every receiver that connected after this object.
 *
 * Lives in the interface thread; the engine must not run a job any more when it is destroyed.
 */
class PackageFeed : public QObject
{
    Q_OBJECT
public:
    explicit PackageFeed(QObject *parent = nullptr);

    /** Takes the changes of this engine. */
    void watch(const RepoShell &shell);

    /** Adds a change. Any thread. */
    void push(PackageChange change);
    /** Lets what was pushed so far arrive before anything that the calling thread posts afterwards. Any thread. */
    void endBurst();
    /** Delivers at once what has been pushed. Interface thread only. */
    void flush();

    /** Shortest time between two deliveries of a burst, in milliseconds. */
    static constexpr int Interval = 100;

Q_SIGNALS:
    void changesReady(const PackageChanges &changes);

private:
    QMutex m_mutex;
    PackageChanges m_pending;
    bool m_awake = false; ///< a wake-up is on its way, or the timer runs
    QTimer m_timer;
    QElapsedTimer m_sinceDelivery;

    void wake();
};
