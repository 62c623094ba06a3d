// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/pathguard.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
bool isAtOrAbove(const QString &upper, const QString &lower)
{
    return upper == QLatin1String("/") || lower == upper || lower.startsWith(upper + QLatin1Char('/'));
}

/** Whether the path is a folder of the hierarchy (hier(7)) that may contain repositories but must not become one. */
bool isSharedFolder(const QString &path)
{
    static const QStringList folders{QStringLiteral("/home"),
                                     QStringLiteral("/media"),
                                     QStringLiteral("/mnt"),
                                     QStringLiteral("/opt"),
                                     QStringLiteral("/root"),
                                     QStringLiteral("/run"),
                                     QStringLiteral("/srv"),
                                     QStringLiteral("/tmp"),
                                     QStringLiteral("/var"),
                                     QStringLiteral("/var/cache"),
                                     QStringLiteral("/var/lib"),
                                     QStringLiteral("/var/log"),
                                     QStringLiteral("/var/spool"),
                                     QStringLiteral("/var/tmp")};
    // The folders directly below /home are homes, also of other users.
    return folders.contains(path) || QFileInfo(path).path() == QLatin1String("/home");
}

/** Whether the path and all below it belong to the system. */
bool isOfSystem(const QString &path)
{
    static const QRegularExpression trees(
        QStringLiteral("\\A/(bin|boot|dev|etc|lib(32|64|x32)?|proc|sbin|sys|usr|var/lib/(apt|dpkg))(/|\\z)"));
    return trees.match(path).hasMatch();
}
} // namespace

QString PathGuard::resolved(const QString &path)
{
    // Only the existing part of the path can contain links.
    QString existing = QDir::cleanPath(QDir(path).absolutePath());
    QString rest;
    while (!QFileInfo::exists(existing) && existing != QLatin1String("/")) {
        const auto slash = existing.lastIndexOf(QLatin1Char('/'));
        rest.prepend(existing.mid(slash));
        existing = slash == 0 ? QStringLiteral("/") : existing.left(slash);
    }
    const QString canonical = QFileInfo(existing).canonicalFilePath();
    return QDir::cleanPath(canonical + rest);
}

bool PathGuard::mayBeWiped(const QString &path, const QStringList &openRepositories)
{
    if (!QDir::isAbsolutePath(path))
        return false;
    const QString target = resolved(path);
    if (isSharedFolder(target) || isOfSystem(target) || isAtOrAbove(target, resolved(QDir::homePath())))
        return false;
    if (!repositoriesBelow(target).isEmpty())
        return false;
    const QStringList open = writtenBelow({path, target}, openRepositories);
    return std::none_of(open.cbegin(), open.cend(), [&](const QString &repository) {
        return isAtOrAbove(target, resolved(repository));
    });
}

QStringList PathGuard::repositoriesBelow(const QString &path, const QStringList &remembered)
{
    constexpr int Levels = 3;
    constexpr int MostFolders = 50000; // a repository itself has only a few hundred folders
    const QString top = resolved(path);
    QStringList found;
    QStringList level{top};
    int folders = 0;
    for (int depth = 0; depth < Levels; ++depth) {
        QStringList below;
        for (const QString &parent : std::as_const(level)) {
            // The target of a link is not deleted with the folder.
            QDirIterator children(parent,
                                  QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks);
            while (children.hasNext() && folders < MostFolders) {
                below.append(children.next());
                ++folders;
            }
        }
        std::copy_if(below.cbegin(), below.cend(), std::back_inserter(found), &PathGuard::isRepository);
        // Folders that were not searched may hold a repository.
        if (folders == MostFolders)
            found.append(top);
        level = below;
    }
    const QStringList near = writtenBelow({path, top}, remembered);
    for (const QString &repository : near) {
        const QString place = resolved(repository);
        if (place != top && isAtOrAbove(top, place) && isRepository(place))
            found.append(place);
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

QStringList PathGuard::writtenBelow(const QStringList &folders, const QStringList &paths)
{
    const auto written = [](const QString &path) { return QDir::cleanPath(QDir(path).absolutePath()); };
    QStringList below;
    for (const QString &path : paths) {
        const auto holdsIt = [&written, place = written(path)](const QString &folder) {
            return isAtOrAbove(written(folder), place);
        };
        if (!path.isEmpty() && std::any_of(folders.cbegin(), folders.cend(), holdsIt))
            below.append(path);
    }
    return below;
}

bool PathGuard::isRepository(const QString &path)
{
    return QFileInfo(path + QLatin1String("/conf/distributions")).isFile();
}

bool PathGuard::overlap(const QString &a, const QString &b)
{
    const QString first = resolved(a);
    const QString second = resolved(b);
    return isAtOrAbove(first, second) || isAtOrAbove(second, first);
}
