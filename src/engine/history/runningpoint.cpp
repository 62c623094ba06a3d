// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/runningpoint.h"

#include "engine/history/pointfolders.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/copyelsewhere.h"
#include "files/descriptor.h"
#include "files/freespace.h"
#include "files/linktree.h"
#include "files/openfolder.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/wholefile.h"
#include "signing/signedpackages.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <future>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using PointFolders::databaseFiles;
using PointFolders::inDatabase;
using PointFolders::isOurs;

namespace
{
constexpr int BlockSize = 1 << 20;
constexpr mode_t NewFileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
/** Bytes for the growth of the database, and for small files beside it. */
constexpr qint64 SpareRoom = 1 << 20;
constexpr qint64 LargestDescription = 16 << 20; // bytes

const QString PackagesFile = QStringLiteral("packages.db");
/** reprepro's cache of the index files that it has written. It is wrong after a restore. */
const QString ReleaseCache = QStringLiteral("release.caches.db");

/** The record of the signed packages; an empty file in the copy when there was no record. */
const QString SignatureFile = QStringLiteral("packages.conf");
const QString DescriptionFile = QStringLiteral("/distributions");
/** It says that the job replaces the description, and holds the new one. */
const QString DescriptionChangesFile = QStringLiteral("/description-changes");
const QString IndicesFolder = QStringLiteral("/dists");

/** The path of the copy; it can have one of three names. */
QString inHome(const QString &repoPath, const QString &name)
{
    const QString elsewhere = CopyElsewhere::folder(repoPath);
    return elsewhere.isEmpty() ? inDatabase(repoPath, name) : elsewhere + QLatin1Char('/') + name;
}

QString place(const QString &repoPath)
{
    return inHome(repoPath, QStringLiteral("velt-admin-repo.before"));
}

QString condemnedPlace(const QString &repoPath)
{
    return inHome(repoPath, QStringLiteral("velt-admin-repo.put-back"));
}

QString unfinishedPlace(const QString &repoPath)
{
    return inHome(repoPath, QStringLiteral("velt-admin-repo.copying"));
}

/** Shares the blocks where the file system can: QFile::copy() asks for a clone first. */
bool copyWhole(const QString &source, const QString &copy)
{
    return RegularFile(source).copy(copy) && QFileInfo(copy).size() == QFileInfo(source).size();
}

/**
 * Writes the copy over an existing file, so that a full disk needs no more space. After an interruption the copy still
 * exists.
 */
bool copyOver(const QString &copy, const QString &target)
{
    RegularFile source(copy);
    Descriptor file(::open(
        QFile::encodeName(target).constData(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_CLOEXEC, NewFileMode));
    QFile written;
    if (!source.open(QIODevice::ReadOnly) || !file.isOpen()
        || !written.open(file.number(), QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    while (!source.atEnd()) {
        const QByteArray part = source.read(BlockSize);
        if (part.isEmpty() || written.write(part) != part.size())
            return false;
    }
    return ::ftruncate(file.number(), source.size()) == 0 && ::fsync(file.number()) == 0;
}

/**
 * Restores a file from a copy on another disk. The old file is kept aside; without space for both, it is overwritten.
 */
bool copyBack(const QString &copy, const QString &target, const QString &aside)
{
    const QString fresh = target + QLatin1String(".velt-new");
    const bool isWhole = copyOver(copy, fresh);
    if (isWhole)
        renamePath(target, aside);
    if (isWhole && renamePath(fresh, target))
        return true;
    QFile::remove(fresh);
    return copyOver(copy, target);
}

bool copySignatures(const QString &repoPath, const QString &target)
{
    const QString source = SignedPackages::packagesConfPath(repoPath);
    const QString copy = target + QLatin1Char('/') + SignatureFile;
    return QFile::exists(source) ? copyWhole(source, copy) : QFile(copy).open(QIODevice::WriteOnly);
}

bool putSignaturesBack(const QString &repoPath, const QString &source)
{
    const QString copy = source + QLatin1Char('/') + SignatureFile;
    const QString target = SignedPackages::packagesConfPath(repoPath);
    // After an earlier interruption, the copy may already be in its place.
    if (!QFile::exists(copy))
        return true;
    if (QFileInfo(copy).size() > 0)
        return renamePath(copy, target) || copyOver(copy, target);
    return !QFile::exists(target) || QFile::remove(target);
}

bool copyDescription(const QString &repoPath, const QString &target)
{
    const auto bytes = DistributionsFile(repoPath).readBytes();
    return !bytes || WholeFile::replace(target + DescriptionFile, *bytes).isEmpty();
}

/** The index files cost nothing as links. Copies of them would not be worth their room: they can be written anew. */
void linkIndices(const QString &repoPath, const QString &target)
{
    const QString indices = repoPath + IndicesFolder;
    if (QFileInfo(indices).isDir() && !linkTree(indices, target + IndicesFolder))
        removeTree(target + IndicesFolder);
}

bool copyFiles(const QString &repoPath)
{
    const QString target = unfinishedPlace(repoPath);
    removeTree(target);
    if (!QDir().mkdir(target))
        return false;
    // The disk takes one file while another is read.
    std::vector<std::future<bool>> copies;
    const QStringList files = databaseFiles(inDatabase(repoPath, {}));
    for (const QString &file : files)
        copies.push_back(std::async(std::launch::async | std::launch::deferred,
                                    [source = inDatabase(repoPath, file), target, file] {
                                        return copyWhole(source, target + QLatin1Char('/') + file);
                                    }));
    const auto failed = std::count_if(copies.begin(), copies.end(), [](auto &copy) { return !copy.get(); });
    const bool isComplete
        = failed == 0 && copySignatures(repoPath, target) && copyDescription(repoPath, target);
    if (isComplete)
        linkIndices(repoPath, target);
    if (isComplete && renamePath(target, place(repoPath)))
        return true;
    removeTree(target);
    return false;
}

/** Moves a file of the copy to its place, and the old file aside. */
bool putFileBack(const QString &repoPath, const QDir &copy, const QString &file)
{
    const QString target = inDatabase(repoPath, file);
    const QString aside = RunningPoint::asideFolder(repoPath) + QLatin1Char('/') + file;
    if (!CopyElsewhere::folder(repoPath).isEmpty())
        return copyBack(copy.filePath(file), target, aside);
    // If the old file cannot be kept aside, it is replaced: the good file is more important.
    renamePath(target, aside);
    return renamePath(copy.filePath(file), target);
}

qint64 sizeOfIndices(const QString &repoPath)
{
    qint64 size = 0;
    QDirIterator files(repoPath + QLatin1String("/dists"), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

qint64 sizeOfCopy(const QString &repoPath)
{
    qint64 size = QFileInfo(SignedPackages::packagesConfPath(repoPath)).size();
    const QStringList files = databaseFiles(inDatabase(repoPath, {}));
    for (const QString &file : files)
        size += QFileInfo(inDatabase(repoPath, file)).size();
    return size;
}

bool copyTo(const QString &repoPath, RunningPoint::Place place)
{
    using Kind = CopyElsewhere::Kind;
    const qint64 free = freeSpace(inDatabase(repoPath, {}));
    const bool isShort = free >= 0 && free < RunningPoint::roomNeeded(repoPath);
    if (place == RunningPoint::Place::Beside || !isShort)
        return copyFiles(repoPath);
    const qint64 size = sizeOfCopy(repoPath) + SpareRoom;
    if (place == RunningPoint::Place::Memory)
        return !CopyElsewhere::make(repoPath, size, Kind::Memory).isEmpty() && copyFiles(repoPath);
    // Without another disk, the space on this disk may still be enough.
    CopyElsewhere::make(repoPath, size, Kind::Disk);
    return copyFiles(repoPath);
}
} // namespace

RunningPoint::Outcome RunningPoint::make(const QString &repoPath, Place where)
{
    if (exists(repoPath) || !QFile::exists(inDatabase(repoPath, PackagesFile)))
        return Outcome::Made;
    const QByteArray lock = QFile::encodeName(inDatabase(repoPath, QStringLiteral("lockfile")));
    const int descriptor
        = ::open(lock.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0 && errno != EEXIST)
        return errno == EACCES || errno == EROFS ? Outcome::Made : Outcome::Failed;
    if (descriptor < 0)
        return Outcome::Locked;
    ::close(descriptor);
    // A remainder of an earlier copy on another disk must not be used for this copy.
    CopyElsewhere::drop(repoPath);
    // A folder cannot be renamed over a link.
    for (const QString &path : {place(repoPath), condemnedPlace(repoPath)})
        if (QFileInfo(path).isSymLink())
            QFile::remove(path);
    const bool isMade = copyTo(repoPath, where);
    ::unlink(lock.constData());
    if (!isMade)
        CopyElsewhere::drop(repoPath);
    return isMade ? Outcome::Made : Outcome::Failed;
}

qint64 RunningPoint::roomNeeded(const QString &repoPath)
{
    return sizeOfCopy(repoPath) + sizeOfIndices(repoPath) + SpareRoom;
}

bool RunningPoint::exists(const QString &repoPath)
{
    return isOurs(repoPath, place(repoPath)) || isCondemned(repoPath);
}

QString RunningPoint::folder(const QString &repoPath)
{
    return isCondemned(repoPath) ? condemnedPlace(repoPath) : place(repoPath);
}

void RunningPoint::condemn(const QString &repoPath)
{
    // Renaming needs no space on a full disk.
    renamePath(place(repoPath), condemnedPlace(repoPath));
}

bool RunningPoint::isCondemned(const QString &repoPath)
{
    return isOurs(repoPath, condemnedPlace(repoPath));
}

bool RunningPoint::putDatabaseBack(const QString &repoPath)
{
    QDir source(folder(repoPath));
    const QStringList files = databaseFiles(source.path());
    QFile::remove(inDatabase(repoPath, ReleaseCache));
    const QString aside = asideFolder(repoPath);
    if (!isOurs(repoPath, aside)) {
        removeTree(aside);
        QDir().mkdir(aside);
    }
    return putSignaturesBack(repoPath, source.path())
           && std::all_of(files.cbegin(), files.cend(), [&](const QString &file) {
                  return putFileBack(repoPath, source, file);
              });
}

void RunningPoint::drop(const QString &repoPath)
{
    // The name of an unfinished copy marks a half-deleted copy as unusable.
    const QString rest = unfinishedPlace(repoPath);
    for (const QString &path : {place(repoPath), condemnedPlace(repoPath)}) {
        if (!isOurs(repoPath, path))
            continue;
        removeTree(rest);
        removeTree(renamePath(path, rest) ? rest : path);
    }
    removeTree(rest);
    CopyElsewhere::drop(repoPath);
}

bool RunningPoint::isElsewhere(const QString &repoPath)
{
    return !CopyElsewhere::folder(repoPath).isEmpty();
}

bool RunningPoint::isUnfinished(const QString &repoPath)
{
    return isOurs(repoPath, unfinishedPlace(repoPath)) || CopyElsewhere::isNamed(repoPath);
}

bool RunningPoint::isLost(const QString &repoPath)
{
    return CopyElsewhere::isNamed(repoPath) && CopyElsewhere::folder(repoPath).isEmpty();
}

QString RunningPoint::asideFolder(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.damaged"));
}

QString RunningPoint::indicesFolder(const QString &repoPath)
{
    const QString indices = folder(repoPath) + IndicesFolder;
    return QFileInfo(indices).isDir() ? indices : QString();
}

// --- the description ---------------------------------------------------------------------------------------------

std::optional<QByteArray> RunningPoint::description(const QString &repoPath)
{
    if (!isOurs(repoPath, folder(repoPath)))
        return std::nullopt;
    return OpenFolder::readFile(folder(repoPath) + DescriptionFile, LargestDescription);
}

bool RunningPoint::setChangesDescription(const QString &repoPath,
                                         const QByteArray &present,
                                         const QByteArray &wanted)
{
    const QDir database(inDatabase(repoPath, {}));
    const bool isThere
        = exists(repoPath) || (database.mkpath(database.path()) && database.mkdir(place(repoPath)));
    // Another program may have edited the description since the copy was made, and a change starts from it.
    return isThere && WholeFile::replace(folder(repoPath) + DescriptionFile, present).isEmpty()
           && WholeFile::replace(folder(repoPath) + DescriptionChangesFile, wanted).isEmpty();
}

std::optional<QByteArray> RunningPoint::wantedDescription(const QString &repoPath)
{
    const auto wanted
        = changesDescription(repoPath)
              ? OpenFolder::readFile(folder(repoPath) + DescriptionChangesFile, LargestDescription)
              : std::nullopt;
    // The points of earlier versions of this program do not say it.
    return wanted && wanted->isEmpty() ? std::nullopt : wanted;
}

bool RunningPoint::changesDescription(const QString &repoPath)
{
    return isOurs(repoPath, folder(repoPath)) && QFile::exists(folder(repoPath) + DescriptionChangesFile);
}

bool RunningPoint::putDescriptionBack(const QString &repoPath)
{
    const auto kept = changesDescription(repoPath) ? description(repoPath) : std::nullopt;
    const DistributionsFile file(repoPath);
    if (!kept || file.readBytes() == kept || file.restore(*kept))
        return true;
    return renamePath(folder(repoPath) + DescriptionFile, file.fileName());
}
