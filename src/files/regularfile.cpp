// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/regularfile.h"

#include "files/descriptor.h"

#include <QFileInfo>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

bool RegularFile::open(OpenMode mode)
{
    constexpr mode_t AsUsual = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    const int way = mode.testFlag(Append) ? O_WRONLY | O_CREAT | O_APPEND : O_RDONLY;
    Descriptor file(
        ::open(QFile::encodeName(fileName()).constData(), way | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, AsUsual));
    // For a pipe without a reader and for a socket, the system reports ENXIO.
    const bool isOther = !file.isOpen() && errno == ENXIO;
    if (!file.isOpen() && !isOther) {
        setErrorString(qt_error_string(errno));
        return false;
    }
    struct stat status = {};
    if (isOther || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        setErrorString(tr("%1 is no regular file.").arg(fileName()));
        return false;
    }
    return QFile::open(file.release(), mode, AutoCloseHandle);
}

QString RegularFile::refusal(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isFile() ? tr("%1 is no regular file.").arg(path) : QString();
}
