// SPDX-License-Identifier: GPL-3.0-or-later
// Changing the description of a repository, and moving it.
#include "engine/asidedirectory.h"
#include "engine/databasecopy.h"
#include "engine/distributions.h"
#include "engine/distributionsfile.h"
#include "engine/exportsession.h"
#include "engine/jobframe.h"
#include "engine/jobrecovery.h"
#include "engine/pathguard.h"
#include "engine/reposhell.h"
#include "engine/repreproanswers.h"
#include "engine/signaturerecord.h"

#include <QDir>
#include <QFileInfo>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

/** A name that stays below its folder: a description can hold anything, and what it names gets deleted. */
bool isChildName(const QString &name)
{
    return !name.isEmpty() && QDir::cleanPath(name) == name && name != QLatin1String(".")
           && !name.startsWith(QLatin1String("..")) && !name.startsWith(QLatin1Char('/'));
}

void removeChild(const QDir &folder, const QString &name)
{
    if (isChildName(name))
        QDir(folder.filePath(name)).removeRecursively();
}

/** Whether a description that takes the place of the earlier one still names where the package stands. */
bool hasPlaceFor(const RepoInfo &info, const RepoInfo &earlier, const PackageInfo &package)
{
    return info.codename == earlier.codename && info.componentList().contains(package.indexComponent)
           && info.architectureList().contains(package.architecture);
}
} // namespace

void RepoShell::changeRepo(const QString &newPath, const RepoInfo &info)
{
    if (!newPath.isEmpty() && !path().isEmpty())
        startJob([this, target = absolute(newPath), info] { return changeBody(target, info); });
}

int RepoShell::changeBody(const QString &newPath, const RepoInfo &info)
{
    JobFrame frame(*m_context, tr("Repository changing"));
    Q_EMIT requestForSavingPackages(m_context->packages().all());
    const QString oldPath = path();
    if (!m_context->isDatabaseThere() || !mayChange(newPath))
        return frame.finish(ERROR, tr("Repository not changed"));
    const RepoInfo oldInfo = repoInfo();
    QString details;
    if (!keepForUndoing(&details)) {
        Q_EMIT critical(tr("Failed to change repository!"), details, CRITICAL);
        return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
    }
    if (newPath != oldPath && !moveRepo(newPath)) {
        DatabaseCopy::drop(oldPath);
        return frame.finish(ERROR, tr("Repository not changed"));
    }

    // Until the indices are those of the description again, whoever opens the repository has to write them.
    ExportSession::setMarker(newPath);
    if (rewriteRepo(info, &details)) {
        DatabaseCopy::drop(newPath);
        Q_EMIT pathChanged(newPath);
        // Between the steps of a change nothing can be stopped, and its end is no opening to be stopped either.
        if (!m_context->isClosing())
            m_context->resetCancel();
        openBody(newPath);
        return frame.finish(SUCCESS, tr("Repository is changed."), CHANGE_REPO_JOB);
    }
    // Back to where we were, so that "not changed" is true.
    setRepository(newPath, oldInfo);
    removeVanishedIndices(info, oldInfo);
    if (JobRecovery(*m_context).undoChange())
        DatabaseCopy::drop(newPath);
    if (newPath != oldPath && AsideDirectory::rename(newPath, oldPath).isEmpty()) {
        setRepository(oldPath, repoInfo());
        moveStoredResults(oldPath);
    }
    Q_EMIT critical(tr("Failed to change repository!"), details, CRITICAL);
    if (path() != oldPath)
        Q_EMIT pathChanged(newPath);
    return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
}

bool RepoShell::keepForUndoing(QString *details)
{
    const QString repoPath = path();
    const ProcessResult kept = m_context->makeSession().keep();
    *details = kept.errorOutput;
    if (!kept.succeeded())
        return false;
    const DistributionsFile file(repoPath);
    const auto text = file.readBytes();
    if (text && DatabaseCopy::keepDescription(repoPath, *text))
        return true;
    *details = file.fileName();
    DatabaseCopy::drop(repoPath);
    return false;
}

bool RepoShell::mayChange(const QString &newPath)
{
    const QString oldPath = path();
    const auto text = DistributionsFile(oldPath).readBytes();
    if (text && Distributions::distributionCount(QString::fromLocal8Bit(*text)) > 1) {
        Q_EMIT critical(
            tr("The repository holds several distributions. A change would delete all but the first, so "
               "nothing was done."),
            DistributionsFile(oldPath).fileName());
        return false;
    }
    if (newPath != oldPath
        && (PathGuard::overlap(oldPath, newPath) || !PathGuard::mayBeWiped(newPath, openRepositories()))) {
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(newPath),
            tr("It is the repository itself, lies in it or holds it, or it is a directory of the system, "
               "or holds a home directory or an open repository."));
        return false;
    }
    return true;
}

bool RepoShell::moveRepo(const QString &newPath)
{
    // What lies at the new path goes only when the repository has arrived there.
    AsideDirectory aside(newPath);
    QString error = aside.error();
    if (error.isEmpty()) {
        QDir().mkpath(QFileInfo(newPath).path());
        error = AsideDirectory::rename(path(), newPath);
        if (!error.isEmpty())
            aside.putBack();
    }
    if (!error.isEmpty()) {
        Q_EMIT critical(tr("The repository could not be moved to %1.").arg(newPath), error);
        return false;
    }
    if (!aside.remove())
        Q_EMIT critical(tr("Impossible to delete directory %1!").arg(aside.place()), QString(), WARNING);
    setRepository(newPath, repoInfo());
    moveStoredResults(newPath);
    return true;
}

bool RepoShell::rewriteRepo(const RepoInfo &info, QString *details)
{
    const RepoInfo oldInfo = repoInfo();
    ExportSession session = m_context->makeSession();
    ProcessResult result = session.keep();
    QList<PackageInfoPtr> staying;
    const QList<PackageInfoPtr> packages = m_context->packages().all();
    for (const PackageInfoPtr &package : packages) {
        if (hasPlaceFor(info, oldInfo, *package))
            staying.append(package);
        else
            session.mayLeave(path() + package->filePath().mid(package->root.size()));
    }
    setRepository(path(), info);
    if (!result.succeeded() || !writeRepoInfo(info))
        return false;
    result = session.clearVanished();
    *details = result.errorOutput;
    if (!result.succeeded())
        return false;
    removeVanishedIndices(oldInfo, info);
    // Whoever finds the repository like this has to go on with the change rather than to undo it.
    DatabaseCopy::setDescriptionDone(path());
    const bool exported = exportOrGiveUpSigning(info, &session);
    *details = lastErrorOutput();
    if (exported)
        SignatureRecord::forgetOthers(m_context.get(), staying);
    return exported;
}

void RepoShell::removeVanishedIndices(const RepoInfo &before, const RepoInfo &after) const
{
    const QDir dists(path() + QLatin1String("/dists"));
    if (before.codename != after.codename) {
        removeChild(dists, before.codename);
        return;
    }
    if (!isChildName(before.codename))
        return;
    const QStringList components = after.componentList();
    const QStringList architectures = after.architectureList();
    const QDir distribution(dists.filePath(before.codename));
    const QStringList oldComponents = before.componentList();
    const QStringList oldArchitectures = before.architectureList();
    for (const QString &component : oldComponents) {
        if (!components.contains(component)) {
            removeChild(distribution, component);
            continue;
        }
        if (!isChildName(component))
            continue;
        const QDir folder(distribution.filePath(component));
        for (const QString &architecture : oldArchitectures) {
            if (architectures.contains(architecture))
                continue;
            removeChild(folder, QLatin1String("binary-") + architecture);
            removeChild(folder, QLatin1String("debian-installer/binary-") + architecture);
        }
    }
}

bool RepoShell::exportOrGiveUpSigning(RepoInfo info, ExportSession *session)
{
    const ProcessResult result = session->finish();
    if (!ReproAnswer::signingFailed(result.errorOutput))
        // Any other failure leaves the new description in force, and the marker that indices are owed.
        return !session->isDamaged();
    Q_EMIT critical(tr("Failed to sign repository!"), result.errorOutput, CRITICAL);
    info.signWith = false;
    setRepository(path(), info);
    writeRepoInfo(info);
    return session->finish().succeeded();
}
