// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/pathguard.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{
bool isAtOrAbove(const QString &upper, const QString &lower)
{
    return upper == QLatin1String("/") || lower == upper || lower.startsWith(upper + QLatin1Char('/'));
}

/** A top-level folder of the hierarchy (hier(7)); a repository may lie in one, but not be one. */
bool isSystemFolder(const QString &path)
{
    static const QStringList folders{QStringLiteral("/bin"),
                                     QStringLiteral("/boot"),
                                     QStringLiteral("/dev"),
                                     QStringLiteral("/etc"),
                                     QStringLiteral("/home"),
                                     QStringLiteral("/lib"),
                                     QStringLiteral("/lib64"),
                                     QStringLiteral("/media"),
                                     QStringLiteral("/mnt"),
                                     QStringLiteral("/opt"),
                                     QStringLiteral("/proc"),
                                     QStringLiteral("/root"),
                                     QStringLiteral("/run"),
                                     QStringLiteral("/sbin"),
                                     QStringLiteral("/srv"),
                                     QStringLiteral("/sys"),
                                     QStringLiteral("/tmp"),
                                     QStringLiteral("/usr"),
                                     QStringLiteral("/var")};
    return folders.contains(path);
}
} // namespace

QString PathGuard::resolved(const QString &path)
{
    // The part that exists decides where the rest would lie.
    QString existing = QDir::cleanPath(QDir(path).absolutePath());
    QString rest;
    while (!QFileInfo::exists(existing) && existing != QLatin1String("/")) {
        const int slash = existing.lastIndexOf(QLatin1Char('/'));
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
    if (isSystemFolder(target) || isAtOrAbove(target, resolved(QDir::homePath())))
        return false;
    return std::none_of(openRepositories.cbegin(), openRepositories.cend(), [&](const QString &repository) {
        return !repository.isEmpty() && isAtOrAbove(target, resolved(repository));
    });
}

bool PathGuard::overlap(const QString &a, const QString &b)
{
    const QString first = resolved(a);
    const QString second = resolved(b);
    return isAtOrAbove(first, second) || isAtOrAbove(second, first);
}
