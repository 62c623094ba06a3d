// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/recovery/databaserestore.h"

#include <QCoreApplication>
#include <QStringList>

struct JobContext;

/** Brings a repository in order that is opened after a job on it was killed. What cannot be mended is told. */
class JobRecovery
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit JobRecovery(JobContext &context)
        : m_context(context)
        , m_database(context)
    { }

    /**
     * To be called before the description is read. Finds out whether there is something to do, and whether it may be
     * done: not while another job is at work, and only after a question where the repository belongs to another user
     * or reprepro would run programs that the user has not agreed to. Puts back the description from before a change
     * that was cut short, as long as the database does not follow the new one yet.
     */
    void begin(const QString &repoPath);
    /**
     * Puts back a damaged database, puts back packages whose replacement never came, writes the indices, and deletes
     * files that were left in the pool. To be called after begin(), when the context has its path and description but
     * no packages yet. True when there was something to do and it is done.
     */
    bool run();
    /** Whether run() has put back the database, and with it the description from before a change. */
    bool isPutBack() const { return m_database.isPutBack(); }
    /**
     * Completes references and indices at the end of a job in which a program was killed. Deletes the files that the
     * marker of the job names, and `filesLeft`. Returns the last run of reprepro, which failed when this did.
     */
    ProcessResult repair(const QStringList &filesLeft = {});
    /**
     * For the end of a job in which a program was killed or could not use the database: when the database was damaged,
     * makes it and the pool what they were before the job, as far as they can be read and written, and tells of it.
     * False when there was no damage and nothing was done.
     */
    bool undoJob();
    /** Makes the repository what it was before its description changed. The context has the earlier one again. */
    bool undoChange();

private:
    JobContext &m_context;
    DatabaseRestore m_database;
    bool m_mayRun = false;
    bool m_isInterrupted = false; ///< a job was cut short; else it has ended, and only the indices are owed

    bool mayRun(const QString &repoPath);
    bool mayGiveUpLostCopy();
    void tellOfOldIndices(const QString &details);
    ProcessResult repairPutBack(const QStringList &filesLeft);
    void showAnew(const QStringList &filesLeft);
};
