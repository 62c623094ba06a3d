// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QVector>

struct AddRun;
class JobContext;

/**
 * Puts several files into the repository with one run of reprepro, whose start takes longer than the inclusion itself.
 * It only takes files that nothing speaks against; whatever goes wrong with one of them is left to PackageInclusion,
 * which tries the file alone and finds out what to tell.
 */
class BatchInclusion
{
public:
    /** A file, and how it is to stand in the repository for one architecture. */
    struct Candidate
    {
        QString path;
        PackageInfo record;
    };

    BatchInclusion(JobContext &context, AddRun &run)
        : m_context(context)
        , m_run(run)
    { }

    /** Not with the first file of a job, whose run writes the indices and shows whether they can be signed. */
    static bool isPossible(const AddRun &run);
    /** Remembers in AddRun::ahead which candidates are in. */
    void include(const QVector<Candidate> &candidates);

private:
    JobContext &m_context;
    AddRun &m_run;

    bool isPlain(const Candidate &candidate) const;
    void includeGroup(const QVector<Candidate> &group);
    /** Paths in the pool of those packages that the database has. */
    QStringList filesInDatabase(const QVector<Candidate> &group);
};
