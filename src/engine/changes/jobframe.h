// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/changes/jobcontext.h"

#include <QCoreApplication>
#include <QElapsedTimer>

/**
 * What every job does first and last: announces itself, resets progress and stop, and ends with exactly one finished(),
 * also when the job's function returns early.
 */
class JobFrame
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    enum Subject {
        Packages, ///< an error can mean that another program has changed the packages, and then the user is told
        Repository ///< the job compares the repository itself, or reads the packages anew
    };

    JobFrame(JobContext &context, const QString &startMessage, Subject subject = Packages);
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
    const Subject m_subject;
    bool m_finished = false;
    QElapsedTimer m_sinceStep; ///< since quick items were told of

    void tellOfForeignChange();
};
