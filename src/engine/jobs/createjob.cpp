// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/createjob.h"

#include "engine/changes/jobcontext.h"
#include "engine/repository/descriptionfields.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/asidedirectory.h"
#include "files/pathguard.h"
#include "files/removetree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

int CreateJob::run(const QString &path, const RepoInfo &info)
{
    // A link stands for the directory that it names.
    const QString wanted = QDir::cleanPath(QDir(path).absolutePath());
    const QString repoPath = QFileInfo(wanted).isSymLink() ? PathGuard::resolved(wanted) : wanted;
    QString refusal = DescriptionFields::refusal(info);
    if (refusal.isEmpty())
        refusal = DescriptionFields::keyRefusal(info);
    if (!refusal.isEmpty())
        m_context.errors.critical(tr("Failed to create repository!"), refusal, CRITICAL);
    if (!refusal.isEmpty() || !mayWipe(repoPath))
        return ERROR;
    // A job that works on the repository at this path must not lose it.
    JobLock lock;
    if (!lock.take(repoPath)) {
        m_context.errors.critical(tr("Impossible to delete directory %1!").arg(repoPath),
                                  RepoLock::busyText(repoPath),
                                  CRITICAL,
                                  REPOSITORY_BUSY);
        return ERROR;
    }
    AsideDirectory aside(repoPath);
    if (prepareFolder(repoPath, aside) && fill(repoPath, info)) {
        if (!aside.remove())
            m_context.errors.critical(
                tr("Impossible to delete directory %1!").arg(aside.place()), QString(), WARNING);
        Q_EMIT m_context.listener.pathChanged(QString());
        // The stored results belong to the repository that the new one has replaced.
        Q_EMIT m_context.listener.requestForStoredInformation(repoPath);
        Q_EMIT m_context.listener.requestForClearingStoredInformation();
        return SUCCESS;
    }
    if (aside.error().isEmpty()) {
        removeTree(repoPath);
        aside.putBack();
    }
    return ERROR;
}

bool CreateJob::mayWipe(const QString &path)
{
    if (PathGuard::mayBeWiped(path, m_context.choices.openRepositories()))
        return true;
    const QStringList held = PathGuard::repositoriesBelow(path);
    m_context.errors.critical(
        tr("Impossible to delete directory %1!").arg(path),
        held.isEmpty()
            ? tr("It is a directory of the system, or holds a home directory or an open repository.")
            : tr("It holds these repositories: %1").arg(held.join(QLatin1String(", "))));
    return false;
}

bool CreateJob::prepareFolder(const QString &path, const AsideDirectory &aside)
{
    if (!aside.error().isEmpty()) {
        m_context.errors.critical(tr("Impossible to delete directory %1!").arg(path), aside.error());
        return false;
    }
    std::error_code reason;
    std::filesystem::create_directories(QFile::encodeName(path + QLatin1String("/conf")).constData(), reason);
    if (reason)
        m_context.errors.critical(tr("Impossible to create directory %1!").arg(path),
                                  QString::fromLocal8Bit(reason.message().c_str()));
    return !reason;
}

bool CreateJob::fill(const QString &path, const RepoInfo &info)
{
    m_context.repository.set(path, info);
    m_context.repository.setWritable(true);
    m_context.packages.clear();
    QString details;
    const DistributionsFile file(path);
    if (file.write(info)) {
        m_context.gate.renew(path);
        const ProcessResult exported = m_context.reprepro.run(ReproCommand::exportIndices());
        if (exported.succeeded())
            return true;
        details = exported.errorOutput;
    } else {
        m_context.errors.critical(tr("Impossible to create file %1!").arg(file.fileName()));
    }
    m_context.repository.set(QString(), {});
    m_context.errors.critical(tr("Failed to create repository!"), details, CRITICAL);
    return false;
}
