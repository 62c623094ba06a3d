// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reprepro/reprolisting.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

struct JobContext;

/**
 * Finds out whether the database was damaged while a job changed it, and puts back the copy from before the job.
 * reprepro writes the database in place, so a kill or a full disk can tear it.
 */
class DatabaseRestore
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit DatabaseRestore(JobContext &context)
        : m_context(context)
    { }

    /** Compares the database with its copy. `filesLeft` are the pool files that the job has worked on. */
    bool isDamaged(const QStringList &filesLeft);
    /** The pool files that other programs have deleted since the copy was made. After isDamaged(). */
    QStringList goneFiles() const { return m_goneFiles; }
    /** Puts the copy back, with the description that belongs to it. False after an error. */
    bool putBack();
    bool isPutBack() const { return m_isPutBack; }
    /** Tells the user that what the job had done is undone. */
    void tellOfDamage();

    /** The code name of the description on the disk, which can be an older one than the engine knows. */
    static QString codename(const JobContext &context);

private:
    JobContext &m_context;
    bool m_isPutBack = false;
    QStringList m_goneFiles;

    bool isReferenced(const QVector<ReproListing::Package> &packages);
};
