// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/repositoryremoval.h"

#include "core/removetree.h"
#include "engine/joblock.h"
#include "engine/pathguard.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace
{
class Reason
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryRemoval)
};

bool removeContents(const QString &directory, const QString &except)
{
    bool isDone = true;
    const QFileInfoList entries = QDir(directory).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System
                                                                | QDir::NoDotAndDotDot);
    for (const QFileInfo &entry : entries) {
        if (entry.fileName() != except)
            isDone = removeTree(entry.filePath()) && isDone;
    }
    return isDone;
}

/** As long as anything else is left, the directory stays what can be opened and deleted: a repository. */
bool removeDescriptionLast(const QString &directory)
{
    const QString conf = directory + QLatin1String("/conf");
    return removeContents(directory, QStringLiteral("conf"))
           && (QFileInfo(conf).isSymLink() || removeContents(conf, QStringLiteral("distributions")))
           && removeTree(conf) && removeTree(directory);
}
QString busyReason(const QString &path)
{
    return QCoreApplication::translate(
               "RepoShell",
               "The repository %1 is being changed by another program. Try again when it is done.")
        .arg(path);
}

/** The refusal but for that of the lock; `directory` is the path with links resolved. */
QString refusalOf(const QString &path, const QString &directory, const RepositoryRemoval::Known &known)
{
    if (!PathGuard::isRepository(directory))
        return Reason::tr("The directory %1 holds no repository.").arg(path);
    const QStringList held = PathGuard::repositoriesBelow(directory, known.remembered);
    if (!held.isEmpty())
        return Reason::tr("It holds these repositories: %1").arg(held.join(QLatin1String(", ")));
    if (!PathGuard::mayBeWiped(directory, known.open))
        return Reason::tr(
                   "The directory %1 belongs to the system, or holds a home directory or an open repository.")
            .arg(path);
    const QString parent = QFileInfo(directory).path();
    if (!QFileInfo(parent).isWritable())
        return Reason::tr("Nothing was deleted, because the directory %1 cannot be written.").arg(parent);
    return {};
}
} // namespace

QString RepositoryRemoval::refusal(const QString &path, const Known &known)
{
    const QString directory = PathGuard::resolved(path);
    if (!QFileInfo::exists(directory))
        return {};
    const QString reason = refusalOf(path, directory, known);
    return reason.isEmpty() && !JobLock().take(directory) ? busyReason(path) : reason;
}

RepositoryRemoval::Outcome RepositoryRemoval::remove(const QString &path, const Known &known, QString *reason)
{
    // The directory itself, not a link to it: behind a link everything would go but the directory.
    const QString directory = PathGuard::resolved(path);
    if (!QFileInfo::exists(directory))
        return Outcome::Absent;
    *reason = refusalOf(path, directory, known);
    if (!reason->isEmpty())
        return Outcome::Refused;
    JobLock lock;
    if (!lock.take(directory)) {
        *reason = busyReason(path);
        return Outcome::Refused;
    }
    if (!removeDescriptionLast(directory)) {
        *reason = Reason::tr("Not everything in %1 could be deleted.").arg(path);
        return Outcome::Refused;
    }
    const QFileInfo link(path);
    if (link.isSymLink())
        QFile::remove(path);
    return Outcome::Deleted;
}
