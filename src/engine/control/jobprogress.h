// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QMutex>
#include <QString>

#include <atomic>

class JobSignals;

/** The beginning, the progress and the end of the running job, which the engine's signals carry. For its thread. */
class JobProgress
{
public:
    /** `engineSignals` outlives the object. */
    explicit JobProgress(JobSignals &engineSignals)
        : m_signals(engineSignals)
    { }

    /** Begins a job with no items done, of an unknown number. */
    void start(const QString &message);
    /** The running job comes to another part, and tells of it. */
    void announce(const QString &message);
    void finish(RepoEnums::JobId jobId, const QString &message);
    /** The message that the job began with; any thread. */
    QString startMessage() const;

    /** The number of items; 0 when it is not known. */
    void setRange(int items);
    int step() const { return m_step; } ///< items that are done; any thread
    void setStep(int items) { m_step = items; }
    /** Counts one more item, and says how many there are now. The interface learns of it by show(). */
    int count() { return ++m_step; }
    void show();

private:
    JobSignals &m_signals;
    std::atomic<int> m_step{0};
    mutable QMutex m_mutex; ///< guards m_startMessage
    QString m_startMessage;
};
