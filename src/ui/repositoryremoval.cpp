// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/repositoryremoval.h"

#include "engine/pathguard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace
{
class Reason
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryRemoval)
};
} // namespace

RepositoryRemoval::Outcome
RepositoryRemoval::remove(const QString &path, const QStringList &openRepositories, QString *reason)
{
    // The directory itself, not a link to it: behind a link everything would go but the directory.
    const QString directory = PathGuard::resolved(path);
    if (!QFileInfo::exists(directory))
        return Outcome::Absent;
    if (!QFileInfo(directory + QLatin1String("/conf/distributions")).isFile()) {
        *reason = Reason::tr("The directory %1 holds no repository.").arg(path);
        return Outcome::Refused;
    }
    if (!PathGuard::mayBeWiped(directory, openRepositories)) {
        *reason
            = Reason::tr(
                  "The directory %1 belongs to the system, or holds a home directory or an open repository.")
                  .arg(path);
        return Outcome::Refused;
    }
    if (!QDir(directory).removeRecursively()) {
        *reason = Reason::tr("Not everything in %1 could be deleted.").arg(path);
        return Outcome::Refused;
    }
    const QFileInfo link(path);
    if (link.isSymLink())
        QFile::remove(path);
    return Outcome::Deleted;
}
