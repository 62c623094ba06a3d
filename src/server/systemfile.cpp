// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/systemfile.h"

#include "files/descriptor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/** A path as two parts: its folder, which stays open, and the name in it. */
struct Place
{
    explicit Place(const QString &path)
        : folder(::open(QFile::encodeName(QFileInfo(path).path()).constData(),
                        O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC))
        , name(QFile::encodeName(QFileInfo(path).fileName()))
    { }

    Descriptor folder;
    QByteArray name;
};

bool fail(const QString &path, int error, QString *errorText)
{
    if (errorText != nullptr) {
        const QString reason
            = error == ELOOP ? QCoreApplication::translate("SystemFile", "it is a link or no regular file")
                             : qt_error_string(error);
        *errorText = QStringLiteral("%1: %2").arg(path, reason);
    }
    return false;
}

bool writeAll(const Descriptor &file, const QByteArray &contents)
{
    qint64 done = 0;
    while (done < contents.size()) {
        const ssize_t count = ::write(
            file.number(), contents.constData() + done, static_cast<std::size_t>(contents.size() - done));
        if (count < 0 && errno != EINTR)
            return false;
        done += std::max<ssize_t>(count, 0);
    }
    return true;
}

/** Creates a new file. The mode is set with fchmod(), so that the umask of the process does not reduce it. */
bool create(const Place &place, const QByteArray &name, const QByteArray &contents, mode_t mode)
{
    // Until the file is complete it has no name, so that nothing is left when we are killed.
    Descriptor file(
        ::openat(place.folder.number(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, S_IRUSR | S_IWUSR));
    const bool isUnnamed = file.isOpen();
    // Not every file system supports such files.
    if (!isUnnamed)
        file = Descriptor(::openat(place.folder.number(),
                                   name.constData(),
                                   O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                   S_IRUSR | S_IWUSR));
    if (!file.isOpen())
        return false;
    const QByteArray unnamed = "/proc/self/fd/" + QByteArray::number(file.number());
    const bool isWritten
        = writeAll(file, contents) && ::fchmod(file.number(), mode) == 0 && ::fsync(file.number()) == 0;
    if (isWritten && isUnnamed)
        return ::linkat(
                   AT_FDCWD, unnamed.constData(), place.folder.number(), name.constData(), AT_SYMLINK_FOLLOW)
               == 0;
    if (isWritten && file.close())
        return true;
    if (isUnnamed)
        return false;
    const int error = errno;
    ::unlinkat(place.folder.number(), name.constData(), 0);
    errno = error;
    return false;
}

const QByteArray temporarySuffix = ".new";

QByteArray temporaryName(const QByteArray &name)
{
    // The name begins with a dot and has a suffix that no reader of the folder looks for.
    return '.' + name + '.' + QByteArray::number(QRandomGenerator::system()->generate64(), 16)
           + temporarySuffix;
}

/** Deletes temporary files that a killed writer has left. A writer that still runs then fails without other harm. */
void removeTemporaries(const QString &path, const Place &place)
{
    static const QRegularExpression random(
        QRegularExpression::anchoredPattern(QStringLiteral("[0-9a-f]{1,16}")));
    const QString start = QFile::decodeName('.' + place.name + '.');
    const QString end = QFile::decodeName(temporarySuffix);
    const QStringList names = QDir(QFileInfo(path).path())
                                  .entryList({start + QLatin1Char('*') + end}, QDir::Files | QDir::Hidden);
    for (const QString &name : names) {
        if (random.match(name.mid(start.size(), name.size() - start.size() - end.size())).hasMatch())
            ::unlinkat(place.folder.number(), QFile::encodeName(name).constData(), 0);
    }
}
} // namespace

namespace SystemFile
{
std::optional<State> read(const QString &path, QString *errorText)
{
    const Place place(path);
    if (!place.folder.isOpen() && errno == ENOENT)
        return State();
    // O_NONBLOCK: opening must not wait for the other end of a pipe that somebody has put there.
    const Descriptor file(place.folder.isOpen() ? ::openat(place.folder.number(),
                                                           place.name.constData(),
                                                           O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)
                                                : -1);
    if (!file.isOpen()) {
        if (errno == ENOENT)
            return State();
        fail(path, errno, errorText);
        return {};
    }
    struct stat status = {};
    int error = ::fstat(file.number(), &status) == 0 ? 0 : errno;
    if (error == 0 && !S_ISREG(status.st_mode))
        error = ELOOP;
    if (error == 0 && status.st_size > SizeLimit)
        error = EFBIG;
    State state{true, {}, status.st_mode & 07777};
    std::array<char, 65536> block = {};
    while (error == 0) {
        const ssize_t count = ::read(file.number(), block.data(), block.size());
        if (count == 0)
            return state;
        if (count > 0)
            state.contents.append(block.data(), static_cast<int>(count));
        else if (errno != EINTR)
            error = errno;
        if (state.contents.size() > SizeLimit)
            error = EFBIG;
    }
    fail(path, error, errorText);
    return {};
}

bool write(
    const QString &path, const QByteArray &contents, mode_t mode, Existing existing, QString *errorText)
{
    const Place place(path);
    if (!place.folder.isOpen())
        return fail(path, errno, errorText);
    const int folder = place.folder.number();
    struct stat status = {};
    const bool isThere = ::fstatat(folder, place.name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    if (isThere && existing == Existing::Kept)
        return true;
    if (isThere && !S_ISREG(status.st_mode))
        return fail(path, ELOOP, errorText);

    removeTemporaries(path, place);
    const QByteArray temporary = temporaryName(place.name);
    if (!create(place, temporary, contents, mode))
        return fail(path, errno, errorText);
    const unsigned flags = existing == Existing::Kept ? RENAME_NOREPLACE : 0;
    if (::renameat2(folder, temporary.constData(), folder, place.name.constData(), flags) != 0) {
        const int error = errno;
        ::unlinkat(folder, temporary.constData(), 0);
        return (error == EEXIST && existing == Existing::Kept) || fail(path, error, errorText);
    }
    return ::fsync(folder) == 0 || fail(path, errno, errorText);
}

bool writeStaging(const QString &path, const QByteArray &contents, QString *errorText)
{
    const Place place(path);
    if (!place.folder.isOpen())
        return fail(path, errno, errorText);
    struct stat status = {};
    if (::fstatat(place.folder.number(), place.name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0) {
        const bool isOurs = S_ISREG(status.st_mode) && status.st_uid == ::geteuid();
        if (!isOurs && !S_ISLNK(status.st_mode))
            return fail(path, EEXIST, errorText);
        if (::unlinkat(place.folder.number(), place.name.constData(), 0) != 0)
            return fail(path, errno, errorText);
    }
    return create(place, place.name, contents, 0644) || fail(path, errno, errorText);
}

bool remove(const QString &path, QString *errorText)
{
    const Place place(path);
    if (!place.folder.isOpen())
        return errno == ENOENT || fail(path, errno, errorText);
    removeTemporaries(path, place);
    const int folder = place.folder.number();
    struct stat status = {};
    if (::fstatat(folder, place.name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return errno == ENOENT || fail(path, errno, errorText);
    if (!S_ISREG(status.st_mode))
        return fail(path, ELOOP, errorText);
    return (::unlinkat(folder, place.name.constData(), 0) == 0 && ::fsync(folder) == 0)
           || fail(path, errno, errorText);
}

bool makeFolder(const QString &path, QString *errorText)
{
    const Place place(path);
    if (!place.folder.isOpen())
        return fail(path, errno, errorText);
    if (::mkdirat(place.folder.number(), place.name.constData(), 0755) != 0)
        return errno == EEXIST || fail(path, errno, errorText);
    return ::fchmodat(place.folder.number(), place.name.constData(), 0755, 0) == 0
           || fail(path, errno, errorText);
}

bool removeEmptyFolder(const QString &path, QString *errorText)
{
    const Place place(path);
    if (place.folder.isOpen() && ::unlinkat(place.folder.number(), place.name.constData(), AT_REMOVEDIR) == 0)
        return true;
    return errno == ENOENT || errno == ENOTEMPTY || errno == EEXIST || fail(path, errno, errorText);
}

bool restore(const QString &path, const State &state, QString *errorText)
{
    return state.exists ? write(path, state.contents, state.mode, Existing::Replaced, errorText)
                        : remove(path, errorText);
}
} // namespace SystemFile
