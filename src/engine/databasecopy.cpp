// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/databasecopy.h"

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

bool copyFiles(const QString &repoPath)
{
    const QString target = unfinishedPlace(repoPath);
    QDir(target).removeRecursively();
    if (!QDir().mkdir(target))
        return false;
    const QStringList files = filesToCopy(repoPath);
    const bool copied = std::all_of(files.cbegin(), files.cend(), [&](const QString &file) {
        const QString source = inDatabase(repoPath, file);
        const QString copy = target + QLatin1Char('/') + file;
        return QFile::copy(source, copy) && QFileInfo(copy).size() == QFileInfo(source).size();
    });
    if (copied && rename(target, place(repoPath)))
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
    return std::all_of(
               files.cbegin(),
               files.cend(),
               [&](const QString &file) { return rename(source.filePath(file), inDatabase(repoPath, file)); })
           && source.removeRecursively();
}

void DatabaseCopy::drop(const QString &repoPath)
{
    for (const QString &path : {place(repoPath), condemnedPlace(repoPath), unfinishedPlace(repoPath)})
        if (QFile::exists(path))
            QDir(path).removeRecursively();
}
