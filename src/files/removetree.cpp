// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/removetree.h"

#include "files/descriptor.h"
#include "files/trustedpath.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace
{
constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int WayFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;

/** Identity of an open folder. */
struct Identity
{
    FileId file;
    quint64 mount = 0; ///< number of the mount; the device when the system does not number its mounts

    static std::optional<Identity> of(int folder)
    {
        struct statx status = {};
        if (::statx(folder, "", AT_EMPTY_PATH, STATX_INO | STATX_MNT_ID, &status) != 0)
            return std::nullopt;
        const dev_t device = makedev(status.stx_dev_major, status.stx_dev_minor);
        const bool isNumbered = (status.stx_mask & STATX_MNT_ID) != 0;
        return Identity{{device, status.stx_ino}, isNumbered ? status.stx_mnt_id : device};
    }
};

bool isOwnOrParent(const char *name)
{
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

/** The names in the folder in reverse order; nothing when the folder cannot be read to its end. */
std::optional<std::vector<QByteArray>> namesIn(int folder)
{
    const int copy = ::fcntl(folder, F_DUPFD_CLOEXEC, 0);
    DIR *stream = copy < 0 ? nullptr : ::fdopendir(copy);
    if (stream == nullptr) {
        if (copy >= 0)
            ::close(copy);
        return std::nullopt;
    }
    std::vector<QByteArray> names;
    ::rewinddir(stream);
    errno = 0;
    while (const dirent *entry = ::readdir(stream)) {
        if (!isOwnOrParent(entry->d_name))
            names.emplace_back(entry->d_name);
    }
    const bool isWhole = errno == 0;
    ::closedir(stream);
    std::reverse(names.begin(), names.end());
    return isWhole ? std::make_optional(std::move(names)) : std::nullopt;
}

/** Deletes trees of any depth. It does not recurse, and keeps only the last folders on the way down open. */
class Removal
{
public:
    /** Without `mount`, the first folder that is entered decides which mount is meant. */
    Removal(int folder, std::vector<QByteArray> names, std::optional<quint64> mount)
        : m_mount(mount)
    {
        Frame first;
        first.folder = Descriptor(::fcntl(folder, F_DUPFD_CLOEXEC, 0));
        first.names = std::move(names);
        m_frames.push_back(std::move(first));
    }

    bool run()
    {
        while (m_frames.size() > 1 || !m_frames.front().names.empty()) {
            Frame &top = m_frames.back();
            if (top.names.empty()) {
                if (!leave())
                    return false;
                continue;
            }
            const QByteArray name = std::move(top.names.back());
            top.names.pop_back();
            take(name);
        }
        return m_frames.front().isDone;
    }

private:
    struct Frame
    {
        Descriptor folder; ///< closed when the frame is far above the last frame
        Identity identity;
        QByteArray name; ///< name in the folder above
        std::vector<QByteArray> names; ///< entries that are still to be deleted
        bool isDone = true; ///< everything so far was deleted
    };

    static constexpr std::size_t MostOpen = 16;

    std::vector<Frame> m_frames;
    std::optional<quint64> m_mount;
    int m_retries = 100; ///< for names that somebody else may exchange meanwhile

    /** Deletes the entry of this name in the last frame's folder. A folder that is not empty becomes the last frame. */
    void take(const QByteArray &name)
    {
        const int folder = m_frames.back().folder.number();
        if (::unlinkat(folder, name.constData(), 0) == 0 || errno == ENOENT)
            return;
        // A folder that cannot be deleted may still contain entries that can.
        const bool wasFolder = errno == EISDIR;
        Descriptor child(::openat(folder, name.constData(), FolderFlags));
        const bool isFolder = child.isOpen() || (errno != ENOTDIR && errno != ELOOP);
        if (child.isOpen())
            enter(std::move(child), name);
        else if (!isFolder && wasFolder)
            takeAgain(name);
        // An empty folder is deleted without being read.
        else if (!isFolder || (::unlinkat(folder, name.constData(), AT_REMOVEDIR) != 0 && errno != ENOENT))
            m_frames.back().isDone = false;
    }

    /** The name stands for something else now; tries it again later. */
    void takeAgain(const QByteArray &name)
    {
        Frame &top = m_frames.back();
        if (--m_retries >= 0)
            top.names.push_back(name);
        else
            top.isDone = false;
    }

    void enter(Descriptor folder, const QByteArray &name)
    {
        const auto identity = Identity::of(folder.number());
        if (identity && !m_mount)
            m_mount = identity->mount;
        auto names = identity && identity->mount == m_mount ? namesIn(folder.number()) : std::nullopt;
        if (!names) {
            m_frames.back().isDone = false;
            return;
        }
        Frame frame;
        frame.folder = std::move(folder);
        frame.identity = *identity;
        frame.name = name;
        frame.names = std::move(*names);
        m_frames.push_back(std::move(frame));
        if (m_frames.size() > MostOpen + 1)
            m_frames[m_frames.size() - MostOpen - 1].folder = Descriptor();
    }

    /** Deletes the folder of the last frame, which is empty by now, and goes up. False when there is no way up. */
    bool leave()
    {
        const Frame done = std::move(m_frames.back());
        m_frames.pop_back();
        Frame &above = m_frames.back();
        if (!above.folder.isOpen()) {
            above.folder = Descriptor(::openat(done.folder.number(), "..", FolderFlags));
            const auto identity = Identity::of(above.folder.number());
            // Somebody moved the folder: the folder above it is not ours now.
            if (!identity || identity->file != above.identity.file)
                return false;
        }
        const bool isGone = done.isDone
                            && (::unlinkat(above.folder.number(), done.name.constData(), AT_REMOVEDIR) == 0
                                || errno == ENOENT);
        const bool isOther = done.isDone && (errno == ENOTDIR || errno == ENOTEMPTY || errno == EEXIST);
        if (!isGone && isOther)
            takeAgain(done.name);
        else if (!isGone)
            above.isDone = false;
        return true;
    }
};

/** Whether a folder on the way does not exist, so that there is nothing to delete. */
bool isNothingThere(const Descriptor &folder)
{
    return !folder.isOpen() && errno == ENOENT;
}

bool isEntryName(const QByteArray &name)
{
    return !name.isEmpty() && !name.contains('/') && !isOwnOrParent(name.constData());
}
} // namespace

bool removeTree(const QString &path)
{
    const QByteArray clean = QFile::encodeName(QDir::cleanPath(path));
    const auto slash = clean.lastIndexOf('/');
    const QByteArray name = clean.mid(slash + 1);
    if (!isEntryName(name))
        return false;
    const QByteArray above = slash < 0 ? QByteArray(".") : clean.left(slash + 1);
    const Descriptor parent(::open(above.constData(), WayFlags));
    if (!parent.isOpen())
        return errno == ENOENT || errno == ENOTDIR;
    return Removal(parent.number(), {name}, std::nullopt).run();
}

bool removeBelow(const QString &folder, const QString &relative)
{
    QByteArrayList parts = QFile::encodeName(relative).split('/');
    const QByteArray name = parts.takeLast();
    if (!isEntryName(name))
        return false;
    Descriptor parent(::open(QFile::encodeName(folder).constData(), WayFlags));
    for (const QByteArray &part : std::as_const(parts)) {
        if (!isEntryName(part) || !parent.isOpen())
            return isNothingThere(parent) && isEntryName(part);
        parent = Descriptor(::openat(parent.number(), part.constData(), WayFlags | O_NOFOLLOW));
    }
    return parent.isOpen() ? removeEntry(parent.number(), name) : isNothingThere(parent);
}

bool removeEntry(int folder, const QByteArray &name)
{
    const auto identity = Identity::of(folder);
    return isEntryName(name) && identity && Removal(folder, {name}, identity->mount).run();
}

bool removeContents(int folder, const QByteArray &except)
{
    const auto identity = Identity::of(folder);
    auto names = namesIn(folder);
    if (!identity || !names)
        return false;
    if (!except.isEmpty())
        names->erase(std::remove(names->begin(), names->end(), except), names->end());
    return Removal(folder, std::move(*names), identity->mount).run();
}
