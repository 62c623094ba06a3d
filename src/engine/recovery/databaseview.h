// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>

class QTemporaryDir;

/**
 * A folder with links to the files of a database, for reprepro's --dbdir while it only reads. reprepro makes a lock and
 * caches in its folder, and a run that dies leaves them: so it reads neither a restore point nor a database that may be
 * damaged in its own place. On a full disk the view is a copy among the system's temporary files. Only one view of a
 * repository can exist at a time.
 */
class DatabaseView
{
public:
    /** `database` is a folder on the file system of the repository. */
    DatabaseView(const QString &repoPath, const QString &database);
    ~DatabaseView();
    DatabaseView(const DatabaseView &) = delete;
    DatabaseView &operator=(const DatabaseView &) = delete;

    /** False when the view lacks a file, mostly because the disk is full: reprepro would make an empty one. */
    bool isMade() const { return m_isMade; }
    QString path() const { return m_path; }

    /** Whether a killed program has left its view; another program at work can have one too. */
    static bool hasLeftovers(const QString &repoPath);
    /** Deletes what a killed program has left. */
    static void removeLeftovers(const QString &repoPath);

private:
    /** Whether `folder` has a link or a copy of each file now. */
    static bool fill(const QString &folder, const QString &database);

    std::unique_ptr<QTemporaryDir> m_elsewhere; ///< null as long as the view lies in the repository
    QString m_path;
    bool m_isMade = false;
};
