// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/replacingfile.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

ReplacingFile::ReplacingFile(const QString &target)
    // Of a link the file that it names is meant.
    : m_target(QFileInfo(target).isSymLink() && QFileInfo::exists(target)
                   ? QFileInfo(target).canonicalFilePath()
                   : target)
    , m_named(target)
{ }

bool ReplacingFile::open()
{
    const QFileInfo present(m_target);
    const bool isPlain = present.exists() ? present.isFile() && present.isWritable() : !present.isSymLink();
    const int descriptor = isPlain ? ::open(QFile::encodeName(present.path()).constData(),
                                            O_WRONLY | O_TMPFILE | O_CLOEXEC,
                                            S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH)
                                   : -1;
    if (descriptor >= 0
        && m_unnamed.open(
            descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle))
        return true;
    const bool isOpen = m_named.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    m_error = isOpen ? QString() : m_named.errorString();
    return isOpen;
}

QFileDevice *ReplacingFile::device()
{
    return m_unnamed.isOpen() ? static_cast<QFileDevice *>(&m_unnamed) : &m_named;
}

bool ReplacingFile::commit()
{
    if (!m_unnamed.isOpen()) {
        const bool isDone = m_named.commit();
        m_error = isDone ? QString() : m_named.errorString();
        return isDone;
    }
    const bool isDone = m_unnamed.error() == QFileDevice::NoError && putIntoPlace();
    if (!isDone)
        m_error
            = m_unnamed.error() == QFileDevice::NoError ? qt_error_string(errno) : m_unnamed.errorString();
    m_unnamed.close();
    return isDone;
}

bool ReplacingFile::putIntoPlace()
{
    const int file = m_unnamed.handle();
    const QByteArray source = "/proc/self/fd/" + QByteArray::number(file);
    const QByteArray target = QFile::encodeName(m_target);
    struct stat present = {};
    const bool isThere = ::stat(target.constData(), &present) == 0;
    if ((isThere && ::fchmod(file, present.st_mode & 07777) != 0) || ::fsync(file) != 0)
        return false;
    if (::linkat(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), AT_SYMLINK_FOLLOW) == 0)
        return true;
    if (errno != EEXIST)
        return false;
    // Always the same name, so that a kill between the two steps leaves no more than one file, which then goes.
    const QFileInfo info(m_target);
    const QByteArray between
        = QFile::encodeName(QStringLiteral("%1/.%2.velt-new").arg(info.path(), info.fileName()));
    ::unlink(between.constData());
    if (::linkat(AT_FDCWD, source.constData(), AT_FDCWD, between.constData(), AT_SYMLINK_FOLLOW) != 0)
        return false;
    if (std::rename(between.constData(), target.constData()) == 0)
        return true;
    const int error = errno;
    ::unlink(between.constData());
    errno = error;
    return false;
}
