// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>

#include <memory>

class QTemporaryDir;

/**
 * Keeps the file of a package that is about to be replaced, so that it can be put back when the new one is refused.
 * The copy lies in the repository's own folder, as a link where the file system has links, and goes with the object.
 */
class PackageBackup
{
public:
    PackageBackup(const QString &repoPath, const PackageInfo &package);
    ~PackageBackup();
    PackageBackup(const PackageBackup &) = delete;
    PackageBackup &operator=(const PackageBackup &) = delete;

    /** The kept file, under the name it has in the pool; empty when it could not be kept. */
    QString file() const { return m_file; }
    /** Leaves the file where it is when the object goes. */
    void keep();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;
};
