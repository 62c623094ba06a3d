// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archivecontents.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <utility>

#include <linux/magic.h>
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

bool isReadable(const QString &folder)
{
    return ::access(QFile::encodeName(folder).constData(), R_OK | X_OK) == 0;
}

/** Files that exist only in the kernel's memory: there are many, and none is a package. */
bool isKernelFolder(const QString &folder)
{
    struct statfs status = {};
    return ::statfs(QFile::encodeName(folder).constData(), &status) == 0
           && (status.f_type == PROC_SUPER_MAGIC || status.f_type == SYSFS_MAGIC);
}

/** Lists a repository's folder and those below it. */
class RepositoryWalk
{
public:
    explicit RepositoryWalk(const QString &root)
        : m_root(QFileInfo(root).canonicalFilePath())
    {
        visit(m_root, QString());
    }

    ArchiveContents::Listing takeListing() { return std::move(m_listing); }

private:
    QString m_root;
    QSet<QString> m_outside; ///< folders elsewhere that were taken, since links can make circles
    ArchiveContents::Listing m_listing;

    void visit(const QString &folder, const QString &prefix)
    {
        if (!isReadable(folder)) {
            m_listing.error = folder;
            return;
        }
        const QFileInfoList present = QDir(folder).entryInfoList(Everything, QDir::Name);
        for (const QFileInfo &info : present)
            take(info, prefix + info.fileName());
    }

    void take(const QFileInfo &info, const QString &member)
    {
        // Whoever restores the archive would find a repository that is locked for ever.
        if (member == QLatin1String("db/lockfile"))
            return;
        QString path = info.filePath();
        bool isFolder = info.isDir();
        if (info.isSymLink()) {
            const QString target = info.canonicalFilePath();
            const bool leadsOut = !target.isEmpty() && !isWithin(target, m_root);
            if (!leadsOut || isWithin(m_root, target) || (isFolder && m_outside.contains(target))) {
                m_listing.entries.append({path, member});
                return;
            }
            path = target;
            if (isFolder)
                m_outside.insert(target);
        }
        if (isFolder)
            visit(path, member + QLatin1Char('/'));
        else if (info.isFile())
            m_listing.entries.append({path, member});
    }
};

void findPackages(const QString &folder,
                  const QString &root,
                  const QString &skipped,
                  const std::function<bool()> &stopped,
                  QStringList *found)
{
    if (isWithin(folder, skipped) || isKernelFolder(folder) || (stopped && stopped()))
        return;
    const QFileInfoList present = QDir(folder).entryInfoList(Everything, QDir::Name);
    for (const QFileInfo &info : present) {
        if (info.isDir() && !info.isSymLink()) {
            findPackages(info.filePath(), root, skipped, stopped, found);
        } else if (info.isFile() && ArchiveContents::isPackageName(info.fileName())) {
            // What a link within the folder names is found by itself, if it has the name of a package.
            const QString target = info.canonicalFilePath();
            if (!info.isSymLink() || (isWithin(target, root) && !ArchiveContents::isPackageName(target)))
                found->append(info.filePath());
        }
    }
}
} // namespace

ArchiveContents::Listing ArchiveContents::ofRepository(const QString &path)
{
    return RepositoryWalk(path).takeListing();
}

bool ArchiveContents::isPackageName(const QString &name)
{
    return name.endsWith(QLatin1String(".deb")) || name.endsWith(QLatin1String(".udeb"));
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
