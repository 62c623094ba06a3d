// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Keeps the jobs of all programs like ours apart that work on one repository. reprepro's own lock is free between the
 * runs of a job. Held on a descriptor of the database's folder, so that it goes with the process, leaves nothing
 * behind, and stays with a repository that is moved.
 */
class JobLock
{
public:
    JobLock() = default;
    ~JobLock();
    JobLock(const JobLock &) = delete;
    JobLock &operator=(const JobLock &) = delete;

    /**
     * False when another job has it. True also when this object has it already, and where nothing can be locked: there
     * is no database yet, or its file system has no locks.
     */
    bool take(const QString &repoPath);
    void release();

private:
    int m_folder = -1; ///< descriptor
};
