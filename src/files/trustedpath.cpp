// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/trustedpath.h"

#include <QByteArrayList>
#include <QFile>

#include <array>
#include <cerrno>
#include <climits>

#include <fcntl.h>
#include <sys/stat.h>

namespace
{
/** Most links on one path, the same limit as in the kernel. */
constexpr int MostLinks = 40;

QByteArray linkText(int folder, const QByteArray &name)
{
    std::array<char, PATH_MAX> text = {};
    const ssize_t size = ::readlinkat(folder, name.constData(), text.data(), text.size());
    return {text.data(), static_cast<int>(qMax<ssize_t>(size, 0))};
}

/** No descriptor, with errno set to the reason. */
Descriptor failed(int error)
{
    errno = error;
    return Descriptor();
}

Descriptor walk(int folder, const QByteArray &path, int *linksLeft)
{
    constexpr int Flags = O_PATH | O_NOFOLLOW | O_CLOEXEC;
    Descriptor current(path.startsWith('/') ? ::open("/", Flags) : ::openat(folder, ".", Flags));
    const QByteArrayList parts = path.split('/');
    for (const QByteArray &part : parts) {
        if (!current.isOpen() || part.isEmpty())
            continue;
        Descriptor next(::openat(current.number(), part.constData(), Flags));
        struct stat link = {};
        if (!next.isOpen() || ::fstat(next.number(), &link) != 0)
            return Descriptor();
        if (S_ISLNK(link.st_mode)) {
            if (link.st_uid != 0 && link.st_uid != ::geteuid())
                return failed(EACCES);
            if (--*linksLeft < 0)
                return failed(ELOOP);
            next = walk(current.number(), linkText(next.number(), ""), linksLeft);
            struct stat target = {};
            if (!next.isOpen() || ::fstat(next.number(), &target) != 0)
                return Descriptor();
            if (target.st_uid != link.st_uid)
                return failed(EACCES);
        }
        current = std::move(next);
    }
    return current;
}
} // namespace

std::optional<FileId> FileId::of(const QString &path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileId{status.st_dev, status.st_ino};
}

Descriptor TrustedPath::open(int folder, const QByteArray &path)
{
    int linksLeft = MostLinks;
    return walk(folder, path, &linksLeft);
}

QByteArray TrustedPath::pathOf(const Descriptor &file)
{
    const QByteArray path = linkText(AT_FDCWD, "/proc/self/fd/" + QByteArray::number(file.number()));
    return path.startsWith('/') ? path : QByteArray();
}
