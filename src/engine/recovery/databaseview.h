// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * A folder with links to the files of a database, for reprepro's --dbdir while it only reads. reprepro makes a lock and
 * caches in its folder, and a run that dies leaves them: so it reads neither a restore point nor a database that may be
 * damaged in its own place. Only one view of a repository can exist at a time.
 */
class DatabaseView
{
public:
    /** `database` is a folder on the file system of the repository. */
    DatabaseView(const QString &repoPath, const QString &database);
    ~DatabaseView();
    DatabaseView(const DatabaseView &) = delete;
    DatabaseView &operator=(const DatabaseView &) = delete;

    /** Empty when the view could not be made. */
    QString path() const { return m_path; }

    /** Whether a killed program has left its view; another program at work can have one too. */
    static bool hasLeftovers(const QString &repoPath);
    /** Deletes what a killed program has left. */
    static void removeLeftovers(const QString &repoPath);

private:
    QString m_path;
};
