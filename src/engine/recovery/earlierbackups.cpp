// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/earlierbackups.h"

#include "engine/changes/jobcontext.h"
#include "engine/history/keptfiles.h"
#include "engine/reprepro/poolfiles.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/removetree.h"

#include <QCryptographicHash>
#include <QDir>

#include <optional>

namespace
{
/** The path that the kept file had below the repository; empty when the folder does not say it. */
QString poolFileOf(const QString &repoPath, const QString &folder)
{
    constexpr qint64 LargestDescription = 16 << 20; // bytes
    constexpr int FileField = 6;
    // A line for each package that had the file, with its fields separated by tabs.
    const auto description = OpenFolder::readFile(folder + QLatin1String("/packages"), LargestDescription);
    const QString file
        = description ? QString::fromUtf8(*description).section(QLatin1Char('\t'), FileField, FileField)
                      : QString();
    return PoolFiles::isInside(repoPath, file) ? file : QString();
}

QByteArray sha256(const QString &fileName)
{
    RegularFile file(fileName);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}
} // namespace

QStringList EarlierBackups::folders(const QString &repoPath)
{
    QStringList folders;
    const QStringList names = QDir(repoPath).entryList({QStringLiteral(".replaced-*")},
                                                       QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QString &name : names)
        folders.append(repoPath + QLatin1Char('/') + name);
    return folders;
}

QStringList EarlierBackups::putBack(JobContext &context)
{
    const QString path = context.path();
    const QStringList present = folders(path);
    if (present.isEmpty())
        return {};
    const ProcessResult listed = context.reprepro.run(ReproCommand::listChecksums());
    const auto checksums = ReproListing::checksums(listed.output);
    QStringList left;
    for (const QString &folder : present) {
        const QStringList files = QDir(folder).entryList({QStringLiteral("*.deb"), QStringLiteral("*.udeb")},
                                                         QDir::Files | QDir::NoSymLinks);
        const QString kept = folder + QLatin1Char('/') + files.value(0);
        const QString poolFile = poolFileOf(path, folder);
        const bool isNeeded
            = files.size() == 1 && checksums.contains(poolFile) && checksums.value(poolFile) == sha256(kept);
        // The file comes last into the folder, and before it is there nothing was taken out.
        const bool isDone = files.isEmpty() || (isNeeded && KeptFiles::putIntoPool(path, kept, poolFile));
        if (!isDone || !removeTree(folder))
            left.append(folder);
    }
    return left;
}
