// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archivecontents.h"

#include "core/packagenames.h"

#include <QDir>
#include <QFileInfo>
#include <QScopeGuard>
#include <QSet>

#include <algorithm>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace
{
constexpr QDir::Filters Everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;

bool isWithin(const QString &path, const QString &folder)
{
    if (folder.isEmpty() || folder == QLatin1String("/"))
        return !folder.isEmpty();
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

/** Whether the folder is in a file system of the kernel: it has many files, and none is a package. */
bool isKernelFolder(const QString &folder)
{
    struct statfs status = {};
    return ::statfs(QFile::encodeName(folder).constData(), &status) == 0
           && (status.f_type == PROC_SUPER_MAGIC || status.f_type == SYSFS_MAGIC);
}

FileId idOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino};
}

/**
 * The target of a link, or any other file. It stays open, so that the checks are about this file even if its path
 * changes.
 */
struct Target
{
    Descriptor file;
    struct stat status = {};
    QString path; ///< without links

    explicit Target(Descriptor opened)
        : file(std::move(opened))
    {
        if (!file.isOpen() || ::fstat(file.number(), &status) != 0)
            file = Descriptor();
        else
            path = QFile::decodeName(TrustedPath::pathOf(file));
    }

    bool isThere() const { return file.isOpen() && !path.isEmpty(); }
    bool isFolder() const { return S_ISDIR(status.st_mode); }
    bool isRegular() const { return S_ISREG(status.st_mode); }
};

Target targetOf(int folder, const QByteArray &name)
{
    return Target(Descriptor(::openat(folder, name.constData(), O_PATH | O_CLOEXEC)));
}

/** Whether every link on the way belongs to the user or to root. */
bool isTrusted(const Target &target, int folder, const QByteArray &name)
{
    const Target trusted(TrustedPath::open(folder, name));
    return trusted.isThere() && idOf(trusted.status) == idOf(target.status);
}

/** Lists the folder of a repository and all folders below it. */
class RepositoryWalk
{
public:
    explicit RepositoryWalk(const QString &root)
    {
        Descriptor folder(::open(QFile::encodeName(root).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        m_root = folder.isOpen() ? QFile::decodeName(TrustedPath::pathOf(folder)) : root;
        visit(std::move(folder), m_root, QString());
    }

    ArchiveContents::Listing takeListing() { return std::move(m_listing); }

private:
    QString m_root;
    QSet<QString> m_outside; ///< folders outside that were visited, because links can form circles
    ArchiveContents::Listing m_listing;

    void visit(Descriptor folder, const QString &path, const QString &prefix)
    {
        const int number = folder.number();
        const bool isOpen = folder.isOpen() && ::faccessat(number, ".", X_OK, AT_EACCESS) == 0;
        DIR *stream = isOpen ? ::fdopendir(number) : nullptr;
        if (stream == nullptr) {
            m_listing.error = path;
            return;
        }
        folder.release();
        const auto close = qScopeGuard([stream] { ::closedir(stream); });
        QByteArrayList names;
        while (const dirent *entry = ::readdir(stream))
            names.append(entry->d_name);
        std::sort(names.begin(), names.end());
        for (const QByteArray &name : std::as_const(names)) {
            const QString text = QFile::decodeName(name);
            // A file name that cannot be converted to QString and back could not be opened later.
            if (name != "." && name != ".." && QFile::encodeName(text) == name)
                take(number, name, path + QLatin1Char('/') + text, prefix + text);
        }
    }

    void take(int folder, const QByteArray &name, const QString &path, const QString &member)
    {
        // A restored lock file would lock the new repository for ever. The history can be many times as large as the
        // repository, and is of use for who has made it alone.
        struct stat status = {};
        if (member == QLatin1String("db/lockfile") || member == QLatin1String("db/velt-admin-repo.history")
            || ::fstatat(folder, name.constData(), &status, AT_SYMLINK_NOFOLLOW) != 0)
            return;
        if (S_ISLNK(status.st_mode))
            takeLink(folder, name, {path, member, idOf(status)});
        else if (S_ISDIR(status.st_mode))
            visit(openFolder(folder, name), path, member + QLatin1Char('/'));
        else if (S_ISREG(status.st_mode))
            m_listing.entries.append({path, member, idOf(status)});
    }

    void takeLink(int folder, const QByteArray &name, const ArchiveContents::Entry &link)
    {
        const Target target = targetOf(folder, name);
        const bool leadsOut = target.isThere() && !isWithin(target.path, m_root);
        if (!leadsOut || isWithin(m_root, target.path)
            || (target.isFolder() && m_outside.contains(target.path))) {
            m_listing.entries.append(link);
            return;
        }
        if (!target.isFolder() && !target.isRegular())
            return;
        if (!isTrusted(target, folder, name)) {
            m_listing.leftOut.append(link.member);
            return;
        }
        if (target.isRegular()) {
            m_listing.entries.append({target.path, link.member, idOf(target.status)});
            return;
        }
        m_outside.insert(target.path);
        visit(openFolder(target.file.number(), "."), target.path, link.member + QLatin1Char('/'));
    }

    static Descriptor openFolder(int above, const QByteArray &name)
    {
        return Descriptor(::openat(above, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    }
};

void findPackages(const QString &folder,
                  const QString &root,
                  const QString &skipped,
                  const std::function<bool()> &stopped,
                  QStringList *found)
{
    if (isWithin(folder, skipped) || isKernelFolder(folder)
        || PackageNames::isInRestorePoint(folder.mid(root.size())) || (stopped && stopped()))
        return;
    const QFileInfoList present = QDir(folder).entryInfoList(Everything, QDir::Name);
    for (const QFileInfo &info : present) {
        if (info.isDir() && !info.isSymLink()) {
            findPackages(info.filePath(), root, skipped, stopped, found);
        } else if (info.isFile() && PackageNames::isPackageFile(info.fileName())) {
            // The target of a link within the folder is found too, if it has the name of a package.
            const QString target = info.canonicalFilePath();
            if (!info.isSymLink() || (isWithin(target, root) && !PackageNames::isPackageFile(target)))
                found->append(info.filePath());
        }
    }
}
} // namespace

ArchiveContents::Listing ArchiveContents::ofRepository(const QString &path)
{
    return RepositoryWalk(path).takeListing();
}

std::optional<ArchiveContents::Entry>
ArchiveContents::fileOfRepository(const QString &path, const QString &file, const QString &member)
{
    const Target root = targetOf(AT_FDCWD, QFile::encodeName(path));
    const QByteArray name = QFile::encodeName(file);
    const Target target = targetOf(root.file.number(), name);
    if (target.isThere() && !isWithin(target.path, root.path) && !isTrusted(target, root.file.number(), name))
        return std::nullopt;
    // A missing file keeps its path for error messages.
    return Entry{
        target.isThere() ? target.path : path + QLatin1Char('/') + file, member, idOf(target.status)};
}

QStringList ArchiveContents::packagesBelow(const QString &folder,
                                           const QString &without,
                                           const std::function<bool()> &stopped)
{
    QStringList found;
    const QString root = QFileInfo(folder).canonicalFilePath();
    findPackages(root, root, QFileInfo(without).canonicalFilePath(), stopped, &found);
    return found;
}
