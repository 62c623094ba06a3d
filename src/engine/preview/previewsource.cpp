// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewsource.h"

#include "engine/archive/filechecksums.h"

#include <QFile>
#include <QThreadPool>

#include <algorithm>

#include <sys/stat.h>

namespace
{
qint64 nanoseconds(const timespec &time)
{
    constexpr qint64 Second = 1000000000;
    return static_cast<qint64>(time.tv_sec) * Second + time.tv_nsec;
}
} // namespace

PreviewSource::File PreviewSource::File::of(const QString &path)
{
    struct stat status = {};
    File file;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return file;
    file.size = status.st_size;
    file.changed = nanoseconds(status.st_mtim);
    file.inodeChanged = nanoseconds(status.st_ctim);
    file.inode = status.st_ino;
    return file;
}

void PreviewSource::keepFolder(std::unique_ptr<ScratchFolder> unpacked)
{
    // The last copy can be that of the interface, which must not wait for a disk.
    folder = std::shared_ptr<ScratchFolder>(unpacked.release(), [](ScratchFolder *last) {
        QThreadPool::globalInstance()->start([last] { const std::unique_ptr<ScratchFolder> owned(last); });
    });
}

bool PreviewSource::isCurrent() const
{
    return std::all_of(states.keyBegin(), states.keyEnd(), [this](const QString &path) {
        const File then = states.value(path);
        const File now = File::of(path);
        if (now.size != then.size || now.changed != then.changed)
            return false;
        // A file that was copied over with its times has another inode, or its inode has changed.
        if (now.inode == then.inode && now.inodeChanged == then.inodeChanged)
            return true;
        return !then.sha256.isEmpty() && FileChecksums::of(path).sha256 == then.sha256;
    });
}
