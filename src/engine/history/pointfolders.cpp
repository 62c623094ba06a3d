// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/pointfolders.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

QString PointFolders::inDatabase(const QString &repoPath, const QString &name)
{
    return repoPath + QLatin1String("/db/") + name;
}

QStringList PointFolders::databaseFiles(const QString &folder)
{
    QStringList files
        = QDir(folder).entryList({QStringLiteral("*.db"), QStringLiteral("version")}, QDir::Files);
    files.removeOne(QStringLiteral("contents.cache.db"));
    files.removeOne(QStringLiteral("release.caches.db"));
    return files;
}

QString PointFolders::kept(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.kept"));
}

QString PointFolders::history(const QString &repoPath)
{
    return inDatabase(repoPath, QStringLiteral("velt-admin-repo.history"));
}

bool PointFolders::isOurs(const QString &repoPath, const QString &folder)
{
    struct stat database = {};
    struct stat present = {};
    return ::stat(QFile::encodeName(inDatabase(repoPath, {})).constData(), &database) == 0
           && ::lstat(QFile::encodeName(folder).constData(), &present) == 0 && isOurs(present, database);
}

bool PointFolders::isOurs(const struct stat &folder, const struct stat &database)
{
    return S_ISDIR(folder.st_mode)
           && (folder.st_uid == ::geteuid() || folder.st_uid == database.st_uid || folder.st_uid == 0
               || (database.st_mode & S_IWOTH) == 0);
}
