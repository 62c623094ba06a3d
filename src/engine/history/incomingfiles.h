// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Copies of files that the running job brings into the pool, in a folder beside the kept files: on the file system of
 * the pool, so that reprepro can link to them. The destructor deletes them; after a kill they go with the kept files.
 */
class IncomingFiles
{
public:
    explicit IncomingFiles(const QString &repoPath);
    ~IncomingFiles();
    IncomingFiles(const IncomingFiles &) = delete;
    IncomingFiles &operator=(const IncomingFiles &) = delete;

    QString folder() const { return m_folder; }
    /** Copies a regular file of at most `limit` bytes. Returns the copy's name in the folder; empty on failure. */
    QString add(const QString &path, qint64 limit);

private:
    QString m_keptFolder;
    QString m_folder;
    bool m_isMade;
    int m_count = 0;
};
