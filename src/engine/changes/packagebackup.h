// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>

#include <memory>

class QTemporaryDir;

/**
 * Keeps the file of a package that is about to be replaced, so that it can be put back when the new one is refused.
 * The copy lies in the repository's own folder, as a link where the file system has links, and goes with the object:
 * at the end of the job, since the whole job is undone when the database breaks.
 */
class PackageBackup
{
public:
    /** `removed` are the packages that go for the new file; their descriptions are kept with the file of `package`. */
    PackageBackup(const QString &repoPath, const PackageInfo &package, const QList<PackageInfoPtr> &removed);
    ~PackageBackup();
    PackageBackup(PackageBackup &&other) noexcept;
    PackageBackup(const PackageBackup &) = delete;
    PackageBackup &operator=(const PackageBackup &) = delete;

    /** The kept file, under the name it has in the pool; empty when it could not be kept. */
    QString file() const { return m_file; }
    /** Leaves the file where it is when the object goes. */
    void keep();

    /** Folders of jobs that were killed. */
    static QStringList leftovers(const QString &repoPath);
    /** The packages whose file such a folder keeps; none when they had not been removed yet, or it says nothing. */
    static QList<PackageInfo> packagesIn(const QString &folder, const QString &repoPath);
    /** The file that such a folder keeps; empty when it has none. */
    static QString fileIn(const QString &folder);

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
    bool m_isKept = false;
};
