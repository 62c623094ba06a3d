// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/keptfiles.h"

#include "engine/history/pointfolders.h"
#include "engine/reprepro/poolfiles.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/trustedpath.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

namespace
{
/** A name without a known suffix keeps a file out of every index until it is whole. */
const QString PartialSuffix = QStringLiteral(".velt-new");

/** The folder for files that came and went in the same job. No state before or after the job has them. */
const QString LaterFolder = QStringLiteral("/later/");

bool makeLink(const QString &from, const QString &to)
{
    return ::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/** Makes the folder above the file, below a folder of ours. */
bool makeFolderFor(const QString &repoPath, const QString &file)
{
    return KeptFiles::makeFolder(repoPath) && QDir().mkpath(QFileInfo(file).path());
}

/** The place of a file that a job has added itself and takes out again. */
QString laterPlace(const QString &repoPath, const QString &poolFile)
{
    const QString folder = KeptFiles::folder(repoPath) + LaterFolder;
    int number = 1;
    while (QFileInfo::exists(folder + QString::number(number)))
        ++number;
    return QStringLiteral("%1%2/%3").arg(folder).arg(number).arg(QFileInfo(poolFile).fileName());
}
} // namespace

QString KeptFiles::folder(const QString &repoPath)
{
    return PointFolders::kept(repoPath);
}

bool KeptFiles::makeFolder(const QString &repoPath)
{
    const QString path = folder(repoPath);
    if (QFileInfo(path).isSymLink())
        QFile::remove(path);
    QDir().mkdir(path);
    return PointFolders::isOurs(repoPath, path);
}

QStringList KeptFiles::list(const QString &repoPath)
{
    QStringList files;
    if (!PointFolders::isOurs(repoPath, folder(repoPath)))
        return files;
    const QString top = folder(repoPath) + QLatin1Char('/');
    QDirIterator entries(
        top + QLatin1String("pool"), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString file = entries.next().mid(top.size());
        if (PoolFiles::isInside(repoPath, file))
            files.append(file);
    }
    return files;
}

bool KeptFiles::areLinksPossible(const QString &repoPath)
{
    const QString probe = PointFolders::inDatabase(repoPath, QStringLiteral("velt-admin-repo.link"));
    QDirIterator files(repoPath + QLatin1String("/pool"), QDir::Files, QDirIterator::Subdirectories);
    const QString sample
        = files.hasNext() ? files.next() : PointFolders::inDatabase(repoPath, QStringLiteral("packages.db"));
    QFile::remove(probe);
    return makeLink(sample, probe) && QFile::remove(probe);
}

QString KeptFiles::keep(const QString &repoPath, const QString &poolFile, bool isOwn)
{
    const QString source = repoPath + QLatin1Char('/') + poolFile;
    const auto present = FileId::of(source);
    if (!present || !PoolFiles::isInside(repoPath, poolFile))
        return {};
    QString target = folder(repoPath) + QLatin1Char('/') + poolFile;
    const auto kept = FileId::of(target);
    if (kept == present)
        return target;
    // The state before the job has no file that came with it.
    if (kept || isOwn)
        target = laterPlace(repoPath, poolFile);
    if (!makeFolderFor(repoPath, target))
        return {};
    return makeLink(source, target) || RegularFile(source).copy(target) ? target : QString();
}

bool KeptFiles::link(const QString &repoPath, const QString &poolFile)
{
    const QString target = folder(repoPath) + QLatin1Char('/') + poolFile;
    // A file of this name from before the job is kept already. The present one came with the job.
    return PoolFiles::isInside(repoPath, poolFile)
           && (FileId::of(target)
               || (makeFolderFor(repoPath, target)
                   && makeLink(repoPath + QLatin1Char('/') + poolFile, target)));
}

void KeptFiles::releaseThosePresent(const QString &repoPath)
{
    const QStringList files = list(repoPath);
    for (const QString &file : files) {
        const QString path = folder(repoPath) + QLatin1Char('/') + file;
        if (FileId::of(path) == FileId::of(repoPath + QLatin1Char('/') + file))
            QFile::remove(path);
    }
}

void KeptFiles::removePartial(const QString &repoPath, const QStringList &poolFiles)
{
    for (const QString &file : poolFiles)
        if (PoolFiles::isInside(repoPath, file))
            QFile::remove(repoPath + QLatin1Char('/') + file + PartialSuffix);
}

bool KeptFiles::putIntoPool(const QString &repoPath, const QString &source, const QString &poolFile)
{
    if (!PoolFiles::isInside(repoPath, poolFile))
        return false;
    const QString target = repoPath + QLatin1Char('/') + poolFile;
    const auto wanted = FileId::of(source);
    // Renaming a file to another name of itself would leave both.
    if (wanted && wanted == FileId::of(target))
        return true;
    const QString partial = target + PartialSuffix;
    QFile::remove(partial);
    if (wanted && QDir().mkpath(QFileInfo(target).path())
        && (makeLink(source, partial) || RegularFile(source).copy(partial)) && renamePath(partial, target))
        return true;
    QFile::remove(partial);
    return false;
}

bool KeptFiles::drop(const QString &repoPath)
{
    return !PointFolders::isOurs(repoPath, folder(repoPath)) || removeTree(folder(repoPath));
}
