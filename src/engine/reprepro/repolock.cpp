// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/repolock.h"

#include "files/descriptor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{
QString lockFile(const QString &repoPath)
{
    return repoPath + QLatin1String("/db/lockfile");
}
} // namespace

RepoLock::State RepoLock::state(const QString &repoPath)
{
    const QString folder = QFileInfo(repoPath + QLatin1String("/db")).canonicalFilePath();
    if (folder.isEmpty())
        return State::Free; // without the folder there is no database
    const QString database = folder + QLatin1Char('/');
    State state = State::Stale;
    const QStringList processes
        = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    for (const QString &process : processes) {
        const QString about = QLatin1String("/proc/") + process;
        QFile name(about + QLatin1String("/comm"));
        // Only reprepro writes the database; a file manager that shows the folder does not hold the lock.
        if (!name.open(QIODevice::ReadOnly) || name.readAll().trimmed() != "reprepro")
            continue;
        const QDir descriptors(about + QLatin1String("/fd"));
        if (!QFileInfo(descriptors.path()).isReadable()) {
            state = State::Unknown;
            continue;
        }
        const QFileInfoList open
            = descriptors.entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
        const bool holds = std::any_of(open.cbegin(), open.cend(), [&](const QFileInfo &descriptor) {
            return descriptor.symLinkTarget().startsWith(database);
        });
        if (holds)
            return State::Held;
    }
    // Checked last, because a program that has ended meanwhile has deleted its lock.
    return QFile::exists(lockFile(repoPath)) ? state : State::Free;
}

bool RepoLock::take(const QString &repoPath)
{
    return Descriptor(::open(QFile::encodeName(lockFile(repoPath)).constData(),
                             O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                             S_IRUSR | S_IWUSR))
        .isOpen();
}

bool RepoLock::remove(const QString &repoPath)
{
    return QFile::remove(lockFile(repoPath));
}

void RepoLock::removeUnfinishedFiles(const QString &repoPath)
{
    // Berkeley DB creates a file as "__db.NAME" and renames it when its first page is written. The others are ours.
    QDir database(repoPath + QLatin1String("/db"));
    const QStringList files = database.entryList(
        {QStringLiteral("__db.*"), QStringLiteral("*.velt-new"), QStringLiteral("velt-admin-repo.link")},
        QDir::Files | QDir::System | QDir::Hidden);
    for (const QString &file : files)
        database.remove(file);
}

QString RepoLock::busyText(const QString &repoPath)
{
    return QCoreApplication::translate(
               "RepoShell",
               "The repository %1 is being changed by another program. Try again when it is done.")
        .arg(repoPath);
}
