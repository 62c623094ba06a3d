// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

struct JobContext;

/** Makes pool and database agree about files that a job which was cut short has left behind. */
class PoolLeftovers
{
public:
    explicit PoolLeftovers(JobContext &context)
        : m_context(context)
    { }

    /** Takes packages out of the database whose file is one of `files` and lies in the pool no longer. */
    void removeMissing(const QStringList &files);
    enum Fate {
        Delete,
        Keep ///< for the history, of whose newest state the files may be
    };
    /**
     * Deletes those of the files that no package needs. The names come from files that lie in the repository, so
     * anybody may have written them: only what is inside the pool is deleted. False when that could not be found out.
     */
    bool drop(const QStringList &files, Fate fate = Delete);

private:
    JobContext &m_context;
};
