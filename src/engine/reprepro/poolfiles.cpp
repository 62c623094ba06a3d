// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/poolfiles.h"

#include "engine/reprepro/repreprocommands.h"
#include "files/trustedpath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>

namespace
{
/** Small enough for the system's limit of program arguments, even with long paths. */
constexpr int FilesInARun = 100;

bool isNameInPool(const QString &file)
{
    return file.startsWith(QLatin1String("pool/")) && QDir::cleanPath(file) == file;
}
} // namespace

ProcessResult PoolFiles::dropUnused(const QString &repoPath, const Dropping &dropping)
{
    ProcessResult result = dropping.run(ReproCommand::dumpUnreferenced());
    if (!result.succeeded())
        return result;
    const QStringList unused = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QStringList toDelete;
    for (const QString &file : unused)
        if (dropping.areOurs(file))
            toDelete.append(file);
    // A run that was cut short has deleted files that the database still knows.
    const auto isKeptOrGone = [&](const QString &file) {
        return !QFileInfo::exists(repoPath + QLatin1Char('/') + file) || dropping.keep(file);
    };
    if (dropping.keep && !std::all_of(toDelete.cbegin(), toDelete.cend(), isKeptOrGone))
        return {};
    if (!toDelete.isEmpty() && toDelete.size() == unused.size())
        return dropping.run(ReproCommand::deleteUnreferenced());
    for (int first = 0; first < toDelete.size() && result.succeeded(); first += FilesInARun) {
        const QStringList some = toDelete.mid(first, FilesInARun);
        result = dropping.run(ReproCommand::forget(some));
        // Deletes the files only after reprepro has forgotten them.
        for (const QString &file : some)
            if (result.succeeded())
                remove(repoPath, file);
    }
    return result;
}

bool PoolFiles::isInside(const QString &repoPath, const QString &file)
{
    if (!isNameInPool(file))
        return false;
    const QString pool = repoPath + QLatin1String("/pool");
    QString folder = repoPath + QLatin1Char('/') + file.section(QLatin1Char('/'), 0, -2);
    for (; folder.size() > pool.size(); folder = folder.section(QLatin1Char('/'), 0, -2))
        if (QFileInfo(folder).isSymLink())
            return false;
    return true;
}

void PoolFiles::remove(const QString &repoPath, const QString &file)
{
    if (!isNameInPool(file))
        return;
    const Descriptor repository(
        ::open(QFile::encodeName(repoPath).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    QByteArray path = QFile::encodeName(file);
    for (int flags = 0; path.contains('/'); flags = AT_REMOVEDIR) {
        const auto slash = path.lastIndexOf('/');
        // The pool may be a link of the administrator to another disk, but other users' links are not followed.
        const Descriptor folder = TrustedPath::open(repository.number(), path.left(slash));
        const bool isGone
            = folder.isOpen()
              && (::unlinkat(folder.number(), path.constData() + slash + 1, flags) == 0 || errno == ENOENT);
        if (!isGone)
            return;
        path.truncate(slash);
    }
}
