// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"

#include <QDateTime>
#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

/**
 * Fetches the lists of the sources that the user added, without blocking the interface. Deleting the object ends apt
 * and does not wait for its end.
 */
class AddedListsFetch : public QObject
{
    Q_OBJECT
public:
    /** What is known after a run. */
    struct Result
    {
        bool isAny = false; ///< whether there are sources that apt does not know
        bool isFetched = false; ///< the lists can be others now
        bool isStopped = false;
        QDateTime fetchedAt; ///< when all lists were fetched; invalid when some are missing
        QStringList problems; ///< see PrivateApt::Outcome
        QString details;
    };

    explicit AddedListsFetch(AddedSources sources, QObject *parent = nullptr);
    ~AddedListsFetch() override;

    enum Wish {
        WhenDue, ///< see PrivateApt::isDue()
        Now
    };
    /** Nothing while a run goes on. */
    void start(Wish wish);
    void cancel();

Q_SIGNALS:
    /** apt is fetching, and goes on. */
    void progressed(int percent);
    /** After each start(). */
    void finished(const AddedListsFetch::Result &result);

private:
    /** What the two threads share. */
    struct Shared
    {
        std::atomic_bool isStopped{false};
        std::atomic_int percent{-1}; ///< negative as long as nothing is fetched
    };
    static Result run(AddedSources sources, Wish wish, const std::shared_ptr<Shared> &shared);

    const AddedSources m_sources; ///< never settled; each run works with a copy
    std::shared_ptr<Shared> m_shared;
    QFutureWatcher<Result> m_watcher;
    QTimer m_timer; ///< for the progress
};
