// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/repositorymove.h"

#include "engine/changes/jobframe.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repositorycopy.h"
#include "files/asidedirectory.h"
#include "files/pathguard.h"
#include "files/renamepath.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace
{
/** A relative link in the repository's upper folders whose target is outside of it; empty when there is none. */
QString outwardLink(const QString &repoPath)
{
    for (const char *folder : {"", "/dists", "/pool", "/conf", "/db"}) {
        const QDir directory(repoPath + QLatin1String(folder));
        const QFileInfoList entries
            = directory.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : entries) {
            std::error_code error;
            const auto target
                = std::filesystem::read_symlink(QFile::encodeName(entry.filePath()).toStdString(), error);
            if (error || target.is_absolute())
                continue;
            const QString place = QDir::cleanPath(
                directory.filePath(QFile::decodeName(QByteArray::fromStdString(target.string()))));
            if (!place.startsWith(repoPath + QLatin1Char('/')))
                return entry.filePath();
        }
    }
    return {};
}

/** Whether a rename between the two is impossible. The system is asked with an empty folder. */
bool isOnOtherFileSystem(const QString &repoPath, const QString &newPath)
{
    const QTemporaryDir probe(repoPath + QLatin1String("/db/velt-admin-repo.move-XXXXXX"));
    const QString target = newPath + QLatin1Char('.') + QFileInfo(probe.path()).fileName();
    if (!renamePath(probe.path(), target))
        return errno == EXDEV;
    QDir().rmdir(target);
    return false;
}
} // namespace

RepositoryMove::RepositoryMove(JobContext &context, QString newPath)
    : m_context(context)
    , m_from(context.path())
    , m_to(std::move(newPath))
{ }

RepositoryMove::~RepositoryMove() = default;

bool RepositoryMove::isPossible()
{
    if (!isNeeded())
        return true;
    QString refusal;
    // Newer Qt takes a folder that is not there for a root.
    if (QFileInfo::exists(m_to) && QStorageInfo(m_to).rootPath() == m_to)
        refusal = tr("%1 is the root of a disk. Choose a folder in it.").arg(m_to);
    else if (const QString link = outwardLink(m_from); !link.isEmpty())
        refusal
            = tr("The link %1 leads out of the repository by a relative path, and would lead elsewhere from "
                 "the new place. Make it absolute first.")
                  .arg(link);
    if (!refusal.isEmpty()) {
        failed(refusal);
        return false;
    }
    if (!PathGuard::overlap(m_from, m_to)
        && PathGuard::mayBeWiped(m_to, m_context.choices.openRepositories()))
        return true;
    const QStringList held = PathGuard::repositoriesBelow(m_to);
    m_context.errors.critical(
        tr("Impossible to delete directory %1!").arg(m_to),
        held.isEmpty()
            ? tr("It is the repository itself, lies in it or holds it, or it is a directory of the "
                 "system, or holds a home directory or an open repository.")
            : tr("It holds these repositories: %1").arg(held.join(QLatin1String(", "))));
    return false;
}

RepoEnums::ErrorCode RepositoryMove::run(JobFrame *frame)
{
    // What lies at the new path goes only when the repository has arrived there, and not while a job works on it.
    JobLock lock;
    if (!lock.take(m_to))
        return failed(RepoLock::busyText(m_to));
    QDir().mkpath(QFileInfo(m_to).path());
    if (isOnOtherFileSystem(m_from, m_to)) {
        const ErrorCode copied = makeCopy(frame);
        if (copied != SUCCESS)
            return copied;
    }
    AsideDirectory aside(m_to);
    QString error = aside.error();
    if (error.isEmpty()) {
        error = takePlace();
        if (!error.isEmpty())
            aside.putBack();
    }
    if (!error.isEmpty())
        return failed(error);
    if (!aside.remove())
        m_context.errors.critical(
            tr("Impossible to delete directory %1!").arg(aside.place()), QString(), WARNING);
    if (m_copy)
        m_context.gate.renewForCopy(m_to);
    settleAt(m_to);
    return SUCCESS;
}

RepoEnums::ErrorCode RepositoryMove::failed(const QString &reason)
{
    m_context.errors.critical(tr("The repository could not be moved to %1.").arg(m_to), reason);
    return ERROR;
}

RepoEnums::ErrorCode RepositoryMove::makeCopy(JobFrame *frame)
{
    m_copy = std::make_unique<RepositoryCopy>(m_from, m_to);
    m_context.progress.setRange(m_copy->stepCount());
    const bool isMade = m_copy->make([this] { return m_context.control.isCanceled(); },
                                     [frame](int steps) {
                                         for (int step = 0; step < steps; ++step)
                                             frame->quickItemDone();
                                     });
    if (!isMade)
        return m_copy->error().isEmpty() ? CANCEL : failed(m_copy->error());
    m_context.progress.show();
    return SUCCESS;
}

QString RepositoryMove::takePlace()
{
    if (!m_copy)
        return AsideDirectory::rename(m_from, m_to);
    return m_copy->takePlace() ? QString() : m_copy->error();
}

void RepositoryMove::settleAt(const QString &path)
{
    m_context.repository.set(path, m_context.repository.info());
    Q_EMIT m_context.listener.requestForMovingStoredInformation(path);
}

void RepositoryMove::removeOriginal()
{
    if (m_copy && !m_copy->removeOriginal())
        m_context.errors.critical(
            tr("Impossible to delete directory %1!").arg(m_copy->leftAt()), m_copy->error(), WARNING);
}

bool RepositoryMove::undo()
{
    if (!isNeeded())
        return true;
    if (m_copy)
        m_copy->undo();
    else if (!AsideDirectory::rename(m_to, m_from).isEmpty())
        return false;
    settleAt(m_from);
    return true;
}
