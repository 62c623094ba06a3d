// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationaccess.h"

#include "server/sourceline.h"

#include <QDirIterator>
#include <QFileInfo>

#include <functional>

#include <sys/stat.h>

namespace
{
const QFile::Permissions list = QFile::ReadOther | QFile::ExeOther;

constexpr uint Root = 0;

/** The permissions that other users need to read this file or folder. */
QFile::Permissions needed(const QFileInfo &file)
{
    return file.isDir() ? list : QFile::Permissions(QFile::ReadOther);
}

bool grants(const QFileInfo &file, QFile::Permissions permissions)
{
    return (file.permissions() & permissions) == permissions;
}

/** The user whose rights the HTTP server uses for reading. Root means: no user's rights. */
uint httpReader(const QString &repoPath)
{
    const uint owner = QFileInfo(repoPath).ownerId();
    for (QString path = QFileInfo(repoPath).path();; path = QFileInfo(path).path()) {
        struct stat status = {};
        if (::stat(QFile::encodeName(path).constData(), &status) != 0
            || (status.st_uid != Root && status.st_uid != owner)
            || ((status.st_mode & S_IWOTH) != 0 && (status.st_mode & S_ISVTX) == 0))
            return Root;
        if (path == QLatin1String("/"))
            return owner;
    }
}

/** Whether a server can read the file or list the folder, with this user's rights or with no user's rights. */
bool isReadable(const QFileInfo &file, uint reader)
{
    if (reader == Root || file.ownerId() != reader)
        return grants(file, needed(file));
    return grants(file,
                  file.isDir() ? QFile::ReadOwner | QFile::ExeOwner : QFile::Permissions(QFile::ReadOwner));
}

/**
 * Visits everything that clients fetch; only reprepro uses the rest of a repository. Stops when `visit` returns false.
 */
void visitServed(const QString &repoPath, const std::function<bool(const QFileInfo &)> &visit)
{
    for (const char *folder : {"/dists", "/pool"}) {
        const QFileInfo top(repoPath + QLatin1String(folder));
        if (!top.isDir())
            continue;
        if (!visit(top))
            return;
        QDirIterator files(top.filePath(),
                           QDir::AllEntries | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            files.next();
            if (!visit(files.fileInfo()))
                return;
        }
    }
}
} // namespace

PublicationAccess PublicationAccess::examine(const QString &repoPath, int protocol)
{
    PublicationAccess access;
    const uint reader = protocol == FtpProtocol ? Root : httpReader(repoPath);
    access.isEntered = isReadable(QFileInfo(repoPath), reader);
    visitServed(repoPath, [&access, reader](const QFileInfo &file) {
        if (!isReadable(file, reader) && ++access.unreadableCount <= MostNamed)
            access.unreadable << file.filePath();
        return true;
    });
    return access;
}

QString PublicationAccess::openUp(const QString &repoPath)
{
    QString closed;
    const auto open = [&closed](const QFileInfo &file, QFile::Permissions permissions) {
        if (!grants(file, permissions)
            && !QFile::setPermissions(file.filePath(), file.permissions() | permissions))
            closed = file.filePath();
        return closed.isEmpty();
    };
    if (open(QFileInfo(repoPath), list))
        visitServed(repoPath, [&open](const QFileInfo &file) { return open(file, needed(file)); });
    return closed.isEmpty() ? QString() : tr("The access rights of %1 cannot be changed.").arg(closed);
}
