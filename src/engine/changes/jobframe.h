// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/changes/jobcontext.h"

#include <QElapsedTimer>

/**
 * What every job does first and last: announces itself, resets progress and cancellation, and ends with exactly one
 * finished(), also when the job's function returns early.
 */
class JobFrame
{
public:
    JobFrame(JobContext &context, const QString &startMessage);
    ~JobFrame();
    JobFrame(const JobFrame &) = delete;
    JobFrame &operator=(const JobFrame &) = delete;

    /** Counts one item; the range of a job with several items is told after its first. */
    void itemDone(int itemCount);
    /** Counts one of many items that take no time; tells of them now and then. */
    void quickItemDone();
    /** Ends the job with this message and returns `result`. */
    int finish(int result, const QString &message, RepoEnums::JobId jobId = RepoEnums::COMMON_JOB);

private:
    JobContext &m_context;
    bool m_finished = false;
    QElapsedTimer m_sinceStep; ///< since quick items were told of
};
