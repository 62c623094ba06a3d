// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/replacedpackages.h"

#include "core/packagenames.h"
#include "engine/changes/fileinclusion.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/jobsession.h"
#include "engine/changes/packagebackup.h"
#include "engine/recovery/databaserestore.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/renamepath.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace
{
QByteArray sha256(const QString &fileName)
{
    RegularFile file(fileName);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}

bool putIntoPool(const QString &kept, const QString &target)
{
    // The name without a known suffix keeps the file out of every index until it is whole.
    const QString partial = target + QLatin1String(".velt-new");
    QFile::remove(partial);
    if (QDir().mkpath(QFileInfo(target).path()) && QFile::copy(kept, partial) && renamePath(partial, target))
        return true;
    QFile::remove(partial);
    return false;
}
} // namespace

QStringList ReplacedPackages::putBack()
{
    QStringList failed;
    const QStringList folders = PackageBackup::leftovers(m_context.path());
    for (const QString &folder : folders)
        if (!putBackFrom(folder) || !removeTree(folder))
            failed.append(folder);
    return failed;
}

bool ReplacedPackages::putBackFrom(const QString &folder)
{
    const QString file = PackageBackup::fileIn(folder);
    const QList<PackageInfo> packages = PackageBackup::packagesIn(folder, m_context.path());
    // The file comes last into the folder, and before it is there nothing is taken out.
    if (file.isEmpty() || packages.isEmpty())
        return file.isEmpty() && QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty();
    // A link can lead from the pool to another folder, and nothing is put there.
    const bool areInside
        = std::all_of(packages.cbegin(), packages.cend(), [this](const PackageInfo &package) {
              return PoolFiles::isInside(m_context.path(), package.poolFile);
          });
    if (!areInside)
        return false;
    ExportSession session = JobSession::begin(m_context);
    FileInclusion inclusion(m_context, session);
    const bool restored = std::all_of(packages.cbegin(), packages.cend(), [&](const PackageInfo &package) {
        const QStringList poolFiles = poolFilesOf(package);
        if (!poolFiles.isEmpty())
            return isComplete(package, file, poolFiles);
        // The same package for another architecture may have the new file already, and both share one file.
        return inclusion.putBack(package, file).isIncluded
               || inclusion.putBack(package, package.filePath()).isIncluded;
    });
    // JobRecovery writes the indices also when the package was there already and nothing had to be run.
    session.requireExport();
    return restored;
}

QStringList ReplacedPackages::poolFilesOf(const PackageInfo &package)
{
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
        DatabaseRestore::codename(m_context), package.name, package.indexComponent, package.architecture));
    QStringList files = ReproListing::files(listed.output);
    const bool isThere = std::any_of(files.cbegin(), files.cend(), [&](const QString &file) {
        return PackageNames::typeOfFile(file) == package.type;
    });
    return isThere ? files : QStringList();
}

bool ReplacedPackages::isComplete(const PackageInfo &package,
                                  const QString &kept,
                                  const QStringList &poolFiles)
{
    if (!poolFiles.contains(package.poolFile))
        return true;
    const QByteArray checksum = checksumOf(package.poolFile);
    if (QFile::exists(package.filePath())) {
        // A database that was put back describes the file that was replaced.
        const bool isOther
            = !checksum.isEmpty() && sha256(kept) == checksum && sha256(package.filePath()) != checksum;
        return !isOther || putIntoPool(kept, package.filePath());
    }
    // On a full disk the file can be gone although the database still has its package.
    return putIntoPool(kept, package.filePath())
           && (!checksum.isEmpty()
               || m_context.reprepro.run(ReproCommand::detect(package.poolFile)).succeeded());
}

QByteArray ReplacedPackages::checksumOf(const QString &poolFile)
{
    if (m_checksums.isEmpty()) {
        const ProcessResult listed = m_context.reprepro.run(ReproCommand::listChecksums());
        if (listed.succeeded())
            m_checksums = ReproListing::checksums(listed.output);
    }
    return m_checksums.value(poolFile);
}
