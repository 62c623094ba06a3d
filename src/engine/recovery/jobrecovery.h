// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"

#include <QCoreApplication>
#include <QString>

struct JobContext;

/**
 * Brings a repository in order that is opened after a job on it was killed. A job that had come to its end is finished,
 * any other one is undone. What cannot be mended is told.
 */
class JobRecovery
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit JobRecovery(JobContext &context)
        : m_context(context)
    { }

    /**
     * To be called before the description is read. Finds out whether there is something to do, and whether it may be
     * done: not while another job is at work, and only after a question where the repository belongs to another user
     * or reprepro would run programs that the user has not agreed to. Puts back the description from before a change
     * that was cut short.
     */
    void begin(const QString &repoPath);
    /**
     * Undoes or finishes the job, and writes indices that are owed. To be called after begin(), when the context has
     * its path and description but no packages yet. True when there was something to do and it is done.
     */
    bool run();
    /** Whether run() has undone a job, and so may have put back another description. */
    bool isPutBack() const { return m_isPutBack; }
    /**
     * Completes references and indices of a job that has ended, and deletes the files without use that its marker
     * names. Returns the last run of reprepro, which failed when this did.
     */
    ProcessResult repair();
    /**
     * For the end of a job in which a program was killed or could not use the database: makes the repository what it
     * was before the job, as far as it can be read and written, and tells of it. False when there is no running point
     * and nothing was done.
     */
    bool undoJob();
    /** Makes the repository what it was before the running job, whose failure is told by the caller. The context has
     *  the earlier description again. */
    void undoChange();

private:
    JobContext &m_context;
    bool m_mayRun = false;
    bool m_isPutBack = false;
    bool m_isInterrupted = false; ///< a job was cut short; else it has ended, and only the indices are owed

    bool mayRun(const QString &repoPath);
    bool mayGiveUpLostCopy();
    bool rollBack();
    void tellOfOldIndices(const QString &details);
    void tellOfDamage();
    ProcessResult rereference();
};
