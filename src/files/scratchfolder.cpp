// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/scratchfolder.h"

#include "files/openfolder.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
QString namePrefix()
{
    return QStringLiteral("velt-admin-repo-work-");
}

/** Opens a folder; -1 when it does not exist or is a link. Programs that we start do not inherit the descriptor. */
int openFolder(const QString &path)
{
    return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

bool isOurs(int folder)
{
    struct stat status = {};
    return ::fstat(folder, &status) == 0 && status.st_uid == ::geteuid();
}

/** Deletes the contents of the open folder, and the empty folder at `path`. */
void removeFolder(int folder, const QString &path)
{
    // Only the open folder is emptied, even if another folder is at the path by now. The folder itself must be deleted
    // by its path; rmdir() fails on a link.
    removeContents(folder);
    ::rmdir(QFile::encodeName(path).constData());
}

/** Whether the arguments or the environment of a process contain this path. */
bool isNamedByProcess(const QString &path)
{
    const QByteArray wanted = QFile::encodeName(path);
    const QStringList processes
        = QDir(QStringLiteral("/proc")).entryList({QStringLiteral("[0-9]*")}, QDir::Dirs);
    return std::any_of(processes.cbegin(), processes.cend(), [&wanted](const QString &process) {
        for (const char *name : {"environ", "cmdline"}) {
            QFile file(QStringLiteral("/proc/%1/%2").arg(process, QLatin1String(name)));
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(wanted))
                return true;
        }
        return false;
    });
}
} // namespace

ScratchFolder::ScratchFolder(const QString &parent)
{
    // Before the folder is locked, another start of the program may delete it as a leftover.
    constexpr int Attempts = 5;
    for (int attempt = 0; attempt < Attempts; ++attempt) {
        auto folder = std::make_unique<QTemporaryDir>(parent + QLatin1Char('/') + namePrefix()
                                                      + QLatin1String("XXXXXX"));
        if (!folder->isValid())
            return;
        folder->setAutoRemove(false);
        const int lock = openFolder(folder->path());
        if (lock >= 0 && ::flock(lock, LOCK_EX) == 0 && isFolderAt(lock, folder->path())) {
            m_lock = lock;
            m_folder = std::move(folder);
            return;
        }
        if (lock >= 0)
            ::close(lock);
        removeTree(folder->path());
    }
}

ScratchFolder::~ScratchFolder()
{
    if (m_lock < 0)
        return;
    removeFolder(m_lock, m_folder->path());
    ::close(m_lock);
}

bool ScratchFolder::isSafePlace(const QString &parent)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(parent).constData(), &status) != 0)
        return false;
    // If others can rename our folder, its path could name another folder when it is deleted.
    const bool ownerIsTrusted = status.st_uid == 0 || status.st_uid == ::geteuid();
    return ownerIsTrusted && ((status.st_mode & (S_IWGRP | S_IWOTH)) == 0 || (status.st_mode & S_ISVTX) != 0);
}

void ScratchFolder::removeLeftovers(const QString &parent)
{
    if (!isSafePlace(parent))
        return;
    const QDir folders(parent);
    const QStringList names
        = folders.entryList({namePrefix() + QLatin1Char('*')}, QDir::Dirs | QDir::NoSymLinks);
    for (const QString &name : names) {
        const QString path = folders.filePath(name);
        const int folder = openFolder(path);
        if (folder < 0)
            continue;
        if (isOurs(folder) && ::flock(folder, LOCK_EX | LOCK_NB) == 0 && !isNamedByProcess(path))
            removeFolder(folder, path);
        ::close(folder);
    }
}
