// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/openfolder.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <climits>
#include <utility>

#include <dirent.h>
#include <fcntl.h>

namespace
{
constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;
/** Opening does not wait for the other end of a pipe, and does not make a terminal our controlling terminal. */
constexpr int FileFlags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

constexpr qint64 SmallestPart = 4096; // bytes

int flagOf(OpenFolder::Links links)
{
    return links == OpenFolder::Follow ? 0 : O_NOFOLLOW;
}

std::optional<OpenFolder::File> readOpened(const Descriptor &descriptor, qint64 limit)
{
    OpenFolder::File result;
    if (!descriptor.isOpen() || ::fstat(descriptor.number(), &result.status) != 0
        || !S_ISREG(result.status.st_mode) || result.status.st_size > limit)
        return std::nullopt;
    QFile file;
    if (!file.open(descriptor.number(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    // QIODevice::read() allocates all that it may read, and the limits are far above the usual sizes. The size is 0 for
    // files of the kernel, and the file may have grown since fstat().
    const qint64 expected = std::max<qint64>(result.status.st_size + 1, SmallestPart);
    while (result.contents.size() <= limit) {
        const QByteArray part = file.read(std::min(expected, limit + 1 - result.contents.size()));
        if (part.isEmpty())
            break;
        result.contents += part;
    }
    if (result.contents.size() > limit || file.error() != QFileDevice::NoError)
        return std::nullopt;
    return result;
}
} // namespace

OpenFolder::OpenFolder(const QString &path)
    : m_descriptor(::open(QFile::encodeName(path).constData(), FolderFlags))
{ }

OpenFolder OpenFolder::folder(const QByteArray &name, Links links) const
{
    return OpenFolder(Descriptor(
        isOpen() ? ::openat(m_descriptor.number(), name.constData(), FolderFlags | flagOf(links)) : -1));
}

std::optional<struct stat> OpenFolder::status() const
{
    struct stat status = {};
    return isOpen() && ::fstat(m_descriptor.number(), &status) == 0 ? std::optional(status) : std::nullopt;
}

std::optional<struct stat> OpenFolder::statusOf(const QByteArray &name) const
{
    struct stat status = {};
    const bool isThere
        = isOpen() && ::fstatat(m_descriptor.number(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0;
    return isThere ? std::optional(status) : std::nullopt;
}

QByteArray OpenFolder::linkTarget(const QByteArray &name) const
{
    std::array<char, PATH_MAX> target = {};
    const ssize_t size
        = isOpen() ? ::readlinkat(m_descriptor.number(), name.constData(), target.data(), target.size()) : -1;
    return size < 0 ? QByteArray() : QByteArray(target.data(), static_cast<int>(size));
}

QList<QByteArray> OpenFolder::names() const
{
    // The stream takes over its descriptor and needs a read position of its own.
    const OpenFolder again = folder(".");
    DIR *stream
        = again.isOpen() ? ::fdopendir(::fcntl(again.m_descriptor.number(), F_DUPFD_CLOEXEC, 0)) : nullptr;
    if (stream == nullptr)
        return {};
    QList<QByteArray> names;
    while (const dirent *entry = ::readdir(stream)) {
        const QByteArray name(entry->d_name);
        if (name != "." && name != "..")
            names.append(name);
    }
    ::closedir(stream);
    std::sort(names.begin(), names.end());
    return names;
}

std::optional<OpenFolder::File> OpenFolder::read(const QByteArray &name, qint64 limit, Links links) const
{
    if (!isOpen())
        return std::nullopt;
    return readOpened(
        Descriptor(::openat(m_descriptor.number(), name.constData(), FileFlags | flagOf(links))), limit);
}

std::optional<QByteArray> OpenFolder::readFile(const QString &path, qint64 limit, Links links)
{
    auto file = readOpened(Descriptor(::open(QFile::encodeName(path).constData(), FileFlags | flagOf(links))),
                           limit);
    return file ? std::optional(std::move(file->contents)) : std::nullopt;
}

bool isFolderAt(int folder, const QString &path)
{
    struct stat open = {};
    struct stat present = {};
    return ::fstat(folder, &open) == 0 && ::lstat(QFile::encodeName(path).constData(), &present) == 0
           && open.st_dev == present.st_dev && open.st_ino == present.st_ino;
}
