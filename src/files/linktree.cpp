// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/linktree.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <unistd.h>

bool linkTree(const QString &from, const QString &to)
{
    if (!QFileInfo(from).isReadable() || !QDir().mkdir(to))
        return false;
    // A folder comes before what is in it.
    QDirIterator entries(from,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString source = entries.next();
        const QString target = to + source.mid(from.size());
        const QFileInfo info = entries.fileInfo();
        const bool isFolder = info.isDir() && !info.isSymLink();
        // A folder that cannot be read would seem to be empty.
        const bool isMade = isFolder ? info.isReadable() && QDir().mkdir(target)
                                     : ::linkat(AT_FDCWD,
                                                QFile::encodeName(source).constData(),
                                                AT_FDCWD,
                                                QFile::encodeName(target).constData(),
                                                0)
                                           == 0;
        if (!isMade)
            return false;
    }
    return true;
}
