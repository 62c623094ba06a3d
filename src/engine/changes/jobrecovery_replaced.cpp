// SPDX-License-Identifier: GPL-3.0-or-later
// Putting packages back whose replacement was cut short.
#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/jobrecovery.h"
#include "engine/changes/packagebackup.h"
#include "engine/changes/packageinclusion.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/regularfile.h"
#include "files/removetree.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace
{
QByteArray sha256(const QString &fileName)
{
    RegularFile file(fileName);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}
} // namespace

QStringList JobRecovery::restoreReplaced()
{
    QStringList kept;
    const QStringList folders = PackageBackup::leftovers(m_context.path());
    for (const QString &folder : folders)
        if (!restore(folder) || !removeTree(folder))
            kept.append(folder);
    return kept;
}

bool JobRecovery::restore(const QString &folder)
{
    const QString file = PackageBackup::fileIn(folder);
    const QList<PackageInfo> packages = PackageBackup::packagesIn(folder, m_context.path());
    // The file comes last into the folder, and before it is there nothing is taken out.
    if (file.isEmpty() || packages.isEmpty())
        return file.isEmpty() && QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty();
    // Another folder behind a link is not the pool, and nothing is put there.
    const bool areInside
        = std::all_of(packages.cbegin(), packages.cend(), [this](const PackageInfo &package) {
              return PoolFiles::isInside(m_context.path(), package.poolFile);
          });
    if (!areInside)
        return false;
    ExportSession session = m_context.makeSession();
    const bool restored = std::all_of(packages.cbegin(), packages.cend(), [&](const PackageInfo &package) {
        if (isThere(package))
            return isComplete(package, file);
        // A twin for another architecture may have the new file already, and they share one.
        return PackageInclusion(m_context).putBack(package, file, &session)
               || PackageInclusion(m_context).putBack(package, package.filePath(), &session);
    });
    // For repair(), if the package was there again and nothing had to be run.
    session.oweExport();
    return restored;
}

bool JobRecovery::isThere(const PackageInfo &package)
{
    const QString suffix
        = package.type == PackageType::Udeb ? QStringLiteral(".udeb") : QStringLiteral(".deb");
    m_context.runReprepro(
        ReproCommand::listFiles(codename(), package.name, package.indexComponent, package.architecture));
    const QStringList files = linesOf(m_context.lastOutput());
    return std::any_of(
        files.cbegin(), files.cend(), [&](const QString &file) { return file.endsWith(suffix); });
}

bool JobRecovery::isComplete(const PackageInfo &package, const QString &kept)
{
    const QStringList files = linesOf(m_context.lastOutput());
    if (!files.contains(package.poolFile))
        return true;
    const QByteArray checksum = checksumOf(package.poolFile);
    if (QFile::exists(package.filePath())) {
        // A database that was put back tells of the file that was replaced.
        const bool isOther
            = !checksum.isEmpty() && sha256(kept) == checksum && sha256(package.filePath()) != checksum;
        return !isOther || putIntoPool(kept, package.filePath());
    }
    // With a full disk a file can go although the database still has its package.
    return putIntoPool(kept, package.filePath())
           && (!checksum.isEmpty() || m_context.runReprepro(ReproCommand::detect(package.poolFile)) == 0);
}

bool JobRecovery::putIntoPool(const QString &kept, const QString &target)
{
    // The name without a known suffix keeps it out of every index until it is whole.
    const QString partial = target + QLatin1String(".velt-new");
    QFile::remove(partial);
    if (QDir().mkpath(QFileInfo(target).path()) && QFile::copy(kept, partial)
        && std::rename(QFile::encodeName(partial).constData(), QFile::encodeName(target).constData()) == 0)
        return true;
    QFile::remove(partial);
    return false;
}

QByteArray JobRecovery::checksumOf(const QString &poolFile)
{
    if (m_checksums.isEmpty() && m_context.runReprepro(ReproCommand::listChecksums()) == 0) {
        const QString mark = QStringLiteral(":2:");
        const QStringList lines = linesOf(m_context.lastOutput());
        for (const QString &line : lines) {
            const QStringList words = line.split(QLatin1Char(' '));
            const auto sum = std::find_if(
                words.cbegin(), words.cend(), [&](const QString &word) { return word.startsWith(mark); });
            if (sum != words.cend())
                m_checksums.insert(words.first(), sum->mid(mark.size()).toLatin1());
        }
    }
    return m_checksums.value(poolFile);
}
