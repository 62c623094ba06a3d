// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/removetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

bool removeTree(const QString &path)
{
    // With a slash at its end a link would be taken for what it names.
    const QFileInfo entry(QDir::cleanPath(path));
    if (entry.isSymLink() || (entry.exists() && !entry.isDir()))
        return QFile::remove(entry.filePath());
    return QDir(entry.filePath()).removeRecursively();
}
