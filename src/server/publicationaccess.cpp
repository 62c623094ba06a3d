// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationaccess.h"

#include "server/sourceline.h"

#include <QDirIterator>
#include <QFileInfo>

#include <functional>

namespace
{
const QFile::Permissions list = QFile::ReadOther | QFile::ExeOther;

/** What others need of this file or folder to read it. */
QFile::Permissions needed(const QFileInfo &file)
{
    return file.isDir() ? list : QFile::Permissions(QFile::ReadOther);
}

bool grants(const QFileInfo &file, QFile::Permissions permissions)
{
    return (file.permissions() & permissions) == permissions;
}

/** Visits what clients fetch; the rest of a repository is reprepro's own. Stops when `visit` says so. */
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
    if (protocol != FtpProtocol)
        return access;
    access.isEntered = grants(QFileInfo(repoPath), list);
    visitServed(repoPath, [&access](const QFileInfo &file) {
        if (!grants(file, needed(file)) && ++access.unreadableCount <= MostNamed)
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
