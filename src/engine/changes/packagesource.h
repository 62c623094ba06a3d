// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/archive/filechecksums.h"
#include "engine/history/incomingfiles.h"
#include "engine/reprepro/privateconfig.h"
#include "files/scratchfolder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

class ConfigFolder;

/**
 * A source of packages in a private folder, from which `reprepro update` takes files into the repository. Unlike an
 * inclusion of many files, that run writes its database to the disk at its end and not after each file. It refuses
 * files whose checksums have changed. The run links to copies that are made here: a link to the user's file would let a
 * later change of the file change the pool.
 */
class PackageSource
{
public:
    /** A file and its future records in the repository, one for each architecture. */
    struct Package
    {
        QString path;
        QVector<PackageInfo> records;
        QByteArray control
            = {}; ///< the bytes of its control file, and the checksums: see PackageFile::ForIndex
        FileChecksums checksums = {};
        bool isForeign = false; ///< others can change it: only a run that compares checksums takes it
    };

    /** Whether the source leaves what inclusions leave, on a repository with this configuration. */
    static bool suits(const ConfigFolder &own, const QString &codename);
    /** Whether the source leaves what an inclusion leaves, with this file. */
    static bool suits(const Package &package);

    /** All of the packages must suit. Only for a job that has begun: it has the lock, see IncomingFiles. */
    PackageSource(const QString &repoPath,
                  const ConfigFolder &own,
                  const QString &codename,
                  const QVector<Package> &packages);

    /** False when the folder or a copy could not be made. */
    bool isValid() const { return m_config && m_config->isValid(); }
    /** For the run, which gets the arguments. */
    PrivateConfig &config() { return *m_config; }
    QString arguments() const;

private:
    ScratchFolder m_folder;
    QString m_codename;
    std::optional<PrivateConfig> m_config;
    IncomingFiles m_copies;

    bool
    write(const QVector<Package> &packages, const QStringList &components, const QStringList &architectures);
};
