// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/replacingfile.h"

#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** The mode of a new file with the user's umask. umask(2) cannot read it without changing it for all threads. */
mode_t usualMode()
{
    constexpr mode_t Wanted = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    constexpr const char *Field = "Umask:";
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    const QByteArrayList lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        bool isNumber = false;
        const uint mask = line.mid(int(qstrlen(Field))).trimmed().toUInt(&isNumber, 8);
        if (line.startsWith(Field) && isNumber)
            return Wanted & ~mask;
    }
    return S_IRUSR | S_IWUSR;
}

/** The file that a link names, even when this file does not exist yet; another path as it is. */
QString meant(QString target)
{
    constexpr int MostLinks = 40;
    for (int i = 0; i < MostLinks && QFileInfo(target).isSymLink(); ++i)
        target = QFileInfo(target).symLinkTarget();
    return target;
}
} // namespace

ReplacingFile::ReplacingFile(const QString &target)
    : m_target(meant(target))
{ }

ReplacingFile::~ReplacingFile()
{
    if (!m_name.isEmpty())
        ::unlink(m_name.constData());
}

bool ReplacingFile::open()
{
    const int file = makeFile();
    if (file < 0) {
        m_error = qt_error_string(errno);
        return false;
    }
    return m_file.open(file, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

int ReplacingFile::makeFile()
{
    const QFileInfo present(m_target);
    if (present.isDir())
        errno = EISDIR;
    else if (present.exists() && !(present.isFile() && present.isWritable()))
        errno = EACCES;
    else if (!present.exists() && present.isSymLink())
        errno = ELOOP;
    else
        errno = 0;
    if (errno != 0)
        return -1;
    const int file = ::open(
        QFile::encodeName(present.path()).constData(), O_WRONLY | O_TMPFILE | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0)
        return file;
    // Not every file system supports files without a name.
    QByteArray name = QFile::encodeName(m_target) + ".XXXXXX";
    const int named = ::mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0)
        m_name = name;
    return named;
}

bool ReplacingFile::commit()
{
    const bool isWritten = m_file.error() == QFileDevice::NoError;
    const bool isDone = isWritten && setMode() && ::fsync(m_file.handle()) == 0 && putIntoPlace();
    if (!isDone)
        m_error = isWritten ? qt_error_string(errno) : m_file.errorString();
    m_file.close();
    return isDone;
}

bool ReplacingFile::setMode() const
{
    struct stat present = {};
    const bool isThere = ::stat(QFile::encodeName(m_target).constData(), &present) == 0;
    return ::fchmod(m_file.handle(), isThere ? present.st_mode & 07777 : usualMode()) == 0;
}

bool ReplacingFile::putIntoPlace()
{
    if (!m_name.isEmpty()) {
        const bool isMoved = moveIntoPlace(m_name);
        m_name.clear();
        return isMoved;
    }
    const QByteArray target = QFile::encodeName(m_target);
    const QByteArray source = "/proc/self/fd/" + QByteArray::number(m_file.handle());
    if (::linkat(AT_FDCWD, source.constData(), AT_FDCWD, target.constData(), AT_SYMLINK_FOLLOW) == 0)
        return true;
    if (errno != EEXIST)
        return false;
    // The name is always the same: a kill between the two steps leaves at most one file, and the next run deletes it.
    const QFileInfo info(m_target);
    const QByteArray between
        = QFile::encodeName(QStringLiteral("%1/.%2.velt-new").arg(info.path(), info.fileName()));
    ::unlink(between.constData());
    return ::linkat(AT_FDCWD, source.constData(), AT_FDCWD, between.constData(), AT_SYMLINK_FOLLOW) == 0
           && moveIntoPlace(between);
}

bool ReplacingFile::moveIntoPlace(const QByteArray &name)
{
    if (std::rename(name.constData(), QFile::encodeName(m_target).constData()) == 0)
        return true;
    const int error = errno;
    ::unlink(name.constData());
    errno = error;
    return false;
}
