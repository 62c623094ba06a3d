// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/databasecopy.h"

#include "core/wholefile.h"
#include "engine/distributionsfile.h"
#include "signing/signprocess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace
{
const QString PackagesFile = QStringLiteral("packages.db");
/** What it remembers of the index files that it has written, which are other ones by now. */
const QString ReleaseCache = QStringLiteral("release.caches.db");

/** The record of the signed packages; empty in the copy when there was none. */
const QString SignatureFile = QStringLiteral("packages.conf");
const QString DescriptionFile = QStringLiteral("/distributions");
const QString DoneDescriptionFile = QStringLiteral("/distributions.done");

QString inDatabase(const QString &repoPath, const QString &name)
{
    return repoPath + QLatin1String("/db/") + name;
}

QString place(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.before"));
}

QString condemnedPlace(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.put-back"));
}

QString unfinishedPlace(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.copying"));
}

bool rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

/** Without what can be made anew, of which the contents of all packages can be the largest part of the database. */
QStringList filesToCopy(const QString &repoPath)
{
    QStringList files = QDir(inDatabase(repoPath, {}))
                            .entryList({QStringLiteral("*.db"), QStringLiteral("version")}, QDir::Files);
    files.removeOne(QStringLiteral("contents.cache.db"));
    files.removeOne(ReleaseCache);
    return files;
}

bool copyWhole(const QString &source, const QString &copy)
{
    return QFile::copy(source, copy) && QFileInfo(copy).size() == QFileInfo(source).size();
}

bool copySignatures(const QString &repoPath, const QString &target)
{
    const QString source = SignProcess::packagesConfPath(repoPath);
    const QString copy = target + QLatin1Char('/') + SignatureFile;
    return QFile::exists(source) ? copyWhole(source, copy) : QFile(copy).open(QIODevice::WriteOnly);
}

bool putSignaturesBack(const QString &repoPath, const QString &source)
{
    const QString copy = source + QLatin1Char('/') + SignatureFile;
    const QString target = SignProcess::packagesConfPath(repoPath);
    // When this was cut short before, the copy has gone to its place.
    if (!QFile::exists(copy))
        return true;
    if (QFileInfo(copy).size() > 0)
        return rename(copy, target);
    return !QFile::exists(target) || QFile::remove(target);
}

bool copyFiles(const QString &repoPath)
{
    const QString target = unfinishedPlace(repoPath);
    QDir(target).removeRecursively();
    if (!QDir().mkdir(target))
        return false;
    const QStringList files = filesToCopy(repoPath);
    const bool copied = std::all_of(files.cbegin(), files.cend(), [&](const QString &file) {
        return copyWhole(inDatabase(repoPath, file), target + QLatin1Char('/') + file);
    });
    if (copied && copySignatures(repoPath, target) && rename(target, place(repoPath)))
        return true;
    QDir(target).removeRecursively();
    return false;
}
} // namespace

DatabaseCopy::Outcome DatabaseCopy::make(const QString &repoPath)
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
    const bool isMade = copyFiles(repoPath);
    ::unlink(lock.constData());
    return isMade ? Outcome::Made : Outcome::Failed;
}

bool DatabaseCopy::exists(const QString &repoPath)
{
    return QFile::exists(place(repoPath)) || isCondemned(repoPath);
}

QString DatabaseCopy::folder(const QString &repoPath)
{
    return isCondemned(repoPath) ? condemnedPlace(repoPath) : place(repoPath);
}

QDateTime DatabaseCopy::time(const QString &repoPath)
{
    return QFileInfo(folder(repoPath) + QLatin1Char('/') + PackagesFile).lastModified();
}

void DatabaseCopy::condemn(const QString &repoPath)
{
    // A new name needs no room on a disk that is full.
    rename(place(repoPath), condemnedPlace(repoPath));
}

bool DatabaseCopy::isCondemned(const QString &repoPath)
{
    return QFile::exists(condemnedPlace(repoPath));
}

bool DatabaseCopy::putBack(const QString &repoPath)
{
    QDir source(folder(repoPath));
    QStringList files = source.entryList({QStringLiteral("*.db"), QStringLiteral("version")}, QDir::Files);
    // Last, since its time tells when the copy was made.
    if (files.removeOne(PackagesFile))
        files.append(PackagesFile);
    QFile::remove(inDatabase(repoPath, ReleaseCache));
    return putSignaturesBack(repoPath, source.path())
           && std::all_of(
               files.cbegin(),
               files.cend(),
               [&](const QString &file) { return rename(source.filePath(file), inDatabase(repoPath, file)); })
           && source.removeRecursively();
}

void DatabaseCopy::drop(const QString &repoPath)
{
    // Under the name of a copy that is not finished, half of it is taken for what it is.
    const QString rest = unfinishedPlace(repoPath);
    for (const QString &path : {place(repoPath), condemnedPlace(repoPath)}) {
        if (!QFile::exists(path))
            continue;
        QDir(rest).removeRecursively();
        QDir(rename(path, rest) ? rest : path).removeRecursively();
    }
    if (QFile::exists(rest))
        QDir(rest).removeRecursively();
}

// --- the description ---------------------------------------------------------------------------------------------

bool DatabaseCopy::keepDescription(const QString &repoPath, const QByteArray &bytes)
{
    return (exists(repoPath) || QDir().mkpath(place(repoPath)))
           && WholeFile::replace(folder(repoPath) + DescriptionFile, bytes).isEmpty();
}

std::optional<QByteArray> DatabaseCopy::description(const QString &repoPath)
{
    QFile file(folder(repoPath) + DescriptionFile);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

void DatabaseCopy::setDescriptionDone(const QString &repoPath)
{
    rename(folder(repoPath) + DescriptionFile, folder(repoPath) + DoneDescriptionFile);
}

void DatabaseCopy::setDescriptionDue(const QString &repoPath)
{
    rename(folder(repoPath) + DoneDescriptionFile, folder(repoPath) + DescriptionFile);
}

bool DatabaseCopy::putDescriptionBack(const QString &repoPath)
{
    const auto kept = description(repoPath);
    const DistributionsFile file(repoPath);
    if (!kept || file.readBytes() == kept || file.restore(*kept))
        return true;
    return rename(folder(repoPath) + DescriptionFile, file.fileName());
}
