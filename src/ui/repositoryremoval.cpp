// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/repositoryremoval.h"

#include "engine/pathguard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
QString tr(const char *text)
{
    return QCoreApplication::translate("RepositoryRemoval", text);
}
} // namespace

bool RepositoryRemoval::remove(const QString &path, const QStringList &openRepositories, QString *reason)
{
    // The directory itself, not a link to it: behind a link everything would go but the directory.
    const QString directory = PathGuard::resolved(path);
    if (!QFileInfo(directory + QLatin1String("/conf/distributions")).isFile()) {
        *reason = tr("The directory %1 holds no repository.").arg(path);
        return false;
    }
    if (!PathGuard::mayBeWiped(directory, openRepositories)) {
        *reason
            = tr("The directory %1 belongs to the system, or holds a home directory or an open repository.")
                  .arg(path);
        return false;
    }
    if (!QDir(directory).removeRecursively()) {
        *reason = tr("Not everything in %1 could be deleted.").arg(path);
        return false;
    }
    const QFileInfo link(path);
    if (link.isSymLink())
        QFile::remove(path);
    return true;
}
