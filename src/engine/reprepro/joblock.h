// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Prevents two instances of this program from running jobs on one repository, because reprepro's own lock is free
 * between the runs of a job. The lock is held on a descriptor of the database's folder. So it ends with the process,
 * leaves nothing behind, and stays valid when the repository is moved.
 */
class JobLock
{
public:
    JobLock() = default;
    ~JobLock();
    JobLock(const JobLock &) = delete;
    JobLock &operator=(const JobLock &) = delete;

    /**
     * False when another job has the lock. True also when this object has it already, and when locking is not possible:
     * there is no database yet, or its file system has no locks.
     */
    bool take(const QString &repoPath);
    /** Releases the lock if this object has it. */
    void release();

private:
    int m_folder = -1; ///< descriptor of the folder; holds the lock
};
