// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/repositoryremoval.h"

#include "engine/reprepro/joblock.h"
#include "engine/reprepro/repolock.h"
#include "files/descriptor.h"
#include "files/pathguard.h"
#include "files/removetree.h"
#include "files/trustedpath.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace
{
class Reason
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryRemoval)
};

/** Opens the directory. Not open when a link or another directory has taken its place meanwhile. */
Descriptor openDirectory(const QString &directory)
{
    const QByteArray path = QFile::encodeName(directory);
    Descriptor folder(::open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return folder.isOpen() && TrustedPath::pathOf(folder) == path ? std::move(folder) : Descriptor();
}

/** Deletes the description last: until then the directory is a repository, which can be opened and deleted. */
bool removeDescriptionLast(const QString &directory)
{
    constexpr const char *Conf = "conf";
    const Descriptor repository = openDirectory(directory);
    if (!repository.isOpen() || !removeContents(repository.number(), Conf))
        return false;
    const Descriptor conf(
        ::openat(repository.number(), Conf, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return (!conf.isOpen() || removeContents(conf.number(), "distributions"))
           && removeEntry(repository.number(), Conf)
           && ::rmdir(QFile::encodeName(directory).constData()) == 0;
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
    return reason.isEmpty() && !JobLock().take(directory) ? RepoLock::busyText(path) : reason;
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
        *reason = RepoLock::busyText(path);
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
