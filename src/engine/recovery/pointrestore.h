// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/recovery/foreignchanges.h"

#include <QCoreApplication>
#include <QStringList>

struct JobContext;

/**
 * Makes a repository equal to the running point: the job that has made the point is undone, whatever it was doing.
 * Each step can be repeated, so after a kill the next opening goes on. Changes that other programs have made since are
 * made again.
 */
class PointRestore
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit PointRestore(JobContext &context)
        : m_context(context)
    { }

    /**
     * Puts back the description, the database with the record of signed packages, the pool files that the job has taken
     * out, and the index files. Deletes the files that came with the job, and the point. False, after an error, when
     * the database could not be put back; then the point stays for the next opening.
     */
    bool run();
    /** Whether the database could not be used any more. After run(). */
    bool wasDamaged() const { return m_wasDamaged; }

    /** Puts back the description alone, before anything is read by it. False when it cannot be written. */
    static bool putDescriptionBack(const QString &repoPath);

private:
    JobContext &m_context;
    bool m_wasDamaged = false;
    bool m_writesIndices = false; ///< the indices that are put back would not be right
    ForeignChanges m_foreign;

    bool fail();
    /** What cannot be found out later is kept with the point. */
    void findOut(const QStringList &files);
    void forgetContents();
    void removeNewDatabaseFiles();
    bool putFilesBack();
    /** False when the indices must be written. */
    bool putIndicesBack();
    bool writeIndices(const QStringList &files);
};
