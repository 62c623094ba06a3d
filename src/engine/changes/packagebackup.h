// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>

#include <memory>

class QTemporaryDir;

/**
 * Keeps the file of a package that a job replaces, so that it can be put back when the new file is refused. The kept
 * file is a hard link in the repository's folder, or a copy where the file system has no links. It is deleted with the
 * object at the end of the job, because a damaged database undoes the whole job.
 */
class PackageBackup
{
public:
    /** `removed` are the packages that the new file replaces. Their records are kept with the file of `package`. */
    PackageBackup(const QString &repoPath, const PackageInfo &package, const QList<PackageInfoPtr> &removed);
    ~PackageBackup();
    PackageBackup(PackageBackup &&other) noexcept;
    PackageBackup(const PackageBackup &) = delete;
    PackageBackup &operator=(const PackageBackup &) = delete;

    /** The kept file, under the name it has in the pool; empty when it could not be kept. */
    QString file() const { return m_file; }
    /** The object no longer deletes the file. */
    void keep();

    /** Folders of jobs that were killed. */
    static QStringList leftovers(const QString &repoPath);
    /** The packages whose file the folder keeps; none when nothing was removed yet, or the folder names none. */
    static QList<PackageInfo> packagesIn(const QString &folder, const QString &repoPath);
    /** The file that the folder keeps; empty when it has none. */
    static QString fileIn(const QString &folder);

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    bool m_isKept = false;
};
