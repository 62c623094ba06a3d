// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/freespace.h"

#include <QFile>

#include <sys/statvfs.h>

qint64 freeSpace(const QString &folder)
{
    struct statvfs storage = {};
    if (::statvfs(QFile::encodeName(folder).constData(), &storage) != 0 || storage.f_blocks == 0)
        return -1;
    return static_cast<qint64>(storage.f_bavail) * static_cast<qint64>(storage.f_frsize);
}
