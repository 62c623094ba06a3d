// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/indicesrestore.h"

#include "engine/history/runningpoint.h"
#include "files/openfolder.h"
#include "files/removetree.h"
#include "files/renamepath.h"
#include "files/trustedpath.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace
{
constexpr QDir::Filters Everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
constexpr qint64 LargestRelease = 64 << 20; // bytes

bool isFolder(const QFileInfo &info)
{
    return info.isDir() && !info.isSymLink();
}

/** Paths below the folder; a folder comes before what is in it. Links are not followed. */
QStringList pathsBelow(const QString &folder)
{
    QStringList paths;
    QDirIterator entries(folder, Everything, QDirIterator::Subdirectories);
    while (entries.hasNext())
        paths.append(entries.next().mid(folder.size() + 1));
    return paths;
}

/** Puts a link to the file, which may be a link of the tree itself, into the place of what is there. */
bool linkOver(const QString &source, const QString &target)
{
    // Renaming a file to another name of itself would leave both.
    if (FileId::of(source) == FileId::of(target))
        return true;
    const QString fresh = target + QLatin1String(".velt-new");
    QFile::remove(fresh);
    if (isFolder(QFileInfo(target)))
        removeTree(target);
    return ::linkat(AT_FDCWD,
                    QFile::encodeName(source).constData(),
                    AT_FDCWD,
                    QFile::encodeName(fresh).constData(),
                    0)
               == 0
           && renamePath(fresh, target);
}

bool makeFolder(const QString &path)
{
    if (const QFileInfo present(path); present.isSymLink() || (present.exists() && !present.isDir()))
        QFile::remove(path);
    return QDir().mkpath(path);
}
} // namespace

bool IndicesRestore::isReleaseReplaced(const QString &repoPath)
{
    const QString copy = RunningPoint::indicesFolder(repoPath);
    if (copy.isEmpty())
        return false;
    QDirIterator releases(copy,
                          {QStringLiteral("Release"), QStringLiteral("InRelease")},
                          QDir::Files | QDir::NoSymLinks,
                          QDirIterator::Subdirectories);
    while (releases.hasNext()) {
        const QString before = releases.next();
        const QString now = repoPath + QLatin1String("/dists") + before.mid(copy.size());
        // The Release files of components are only read together with that of their distribution.
        if (FileId::of(before) == FileId::of(now)
            || QFileInfo(before).path().contains(QLatin1String("/binary-")))
            continue;
        const auto present = OpenFolder::readFile(now, LargestRelease);
        if (present && present != OpenFolder::readFile(before, LargestRelease))
            return true;
    }
    return false;
}

bool IndicesRestore::putBack(const QString &repoPath, const QString &codename)
{
    const QString copy = RunningPoint::indicesFolder(repoPath);
    if (copy.isEmpty())
        return false;
    const QString dists = repoPath + QLatin1String("/dists");
    bool isDone = QDir().mkpath(dists);
    const QStringList before = pathsBelow(copy);
    QSet<QString> known;
    QSet<QString> distributions{codename.section(QLatin1Char('/'), 0, 0)};
    for (const QString &path : before) {
        known.insert(path);
        distributions.insert(path.section(QLatin1Char('/'), 0, 0));
        const QString source = copy + QLatin1Char('/') + path;
        const QString target = dists + QLatin1Char('/') + path;
        isDone = (isFolder(QFileInfo(source)) ? makeFolder(target) : linkOver(source, target)) && isDone;
    }
    const QStringList present = QDir(dists).entryList(Everything);
    for (const QString &top : present) {
        const QFileInfo info(dists + QLatin1Char('/') + top);
        // A suite is a link that leads to its distribution.
        const bool isOurs
            = info.isSymLink()
                  ? distributions.contains(QFile::symLinkTarget(info.filePath()).mid(dists.size() + 1))
                  : distributions.contains(top);
        if (!isOurs)
            continue;
        QStringList paths{top};
        if (isFolder(info))
            for (const QString &path : pathsBelow(info.filePath()))
                paths.append(top + QLatin1Char('/') + path);
        for (const QString &path : std::as_const(paths))
            if (!known.contains(path))
                isDone = removeBelow(repoPath, QLatin1String("dists/") + path) && isDone;
    }
    return isDone;
}
