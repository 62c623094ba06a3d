// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/pointfiles.h"

#include "engine/history/pointfolders.h"
#include "engine/reprepro/poolfiles.h"
#include "files/regularfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

namespace
{
bool isSame(const QString &path, const PointFiles::Wanted &wanted)
{
    RegularFile file(path);
    if (!file.open(QIODevice::ReadOnly) || (wanted.size >= 0 && file.size() != wanted.size))
        return false;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return wanted.sha256.isEmpty() || (hash.addData(&file) && hash.result().toHex() == wanted.sha256);
}

/** Whether the file exists in the folder, and no folder on the way to it is a link. */
bool isThere(const QString &folder, const QString &file)
{
    const QFileInfo info(folder + QLatin1Char('/') + file);
    return PoolFiles::isInside(folder, file) && !QFileInfo(folder + QLatin1String("/pool")).isSymLink()
           && !info.isSymLink() && info.exists();
}
} // namespace

PointFiles::PointFiles(const QString &repoPath)
    : m_repoPath(repoPath)
{
    const QDir history(PointFolders::history(repoPath));
    if (!PointFolders::isOurs(repoPath, history.path()))
        return;
    const QStringList names = history.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names)
        if (const int number = name.toInt();
            number > 0 && PointFolders::isOurs(repoPath, history.filePath(name)))
            m_folders.insert(number, history.filePath(name));
}

std::optional<QString> PointFiles::fileOf(int point, const Wanted &wanted) const
{
    // The earliest point has the file of the time in question; later ones may have its successors.
    QString folder = m_repoPath;
    for (auto next = m_folders.lowerBound(point); next != m_folders.cend(); ++next) {
        if (!isThere(*next, wanted.file))
            continue;
        folder = *next;
        break;
    }
    const QString path = folder + QLatin1Char('/') + wanted.file;
    if (!PoolFiles::isInside(folder, wanted.file) || !isSame(path, wanted))
        return std::nullopt;
    return path;
}
