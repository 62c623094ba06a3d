// SPDX-License-Identifier: GPL-3.0-or-later
// Creating, opening, changing and closing a repository.
#include "core/processutils.h"
#include "engine/asidedirectory.h"
#include "engine/distributions.h"
#include "engine/distributionsfile.h"
#include "engine/exportsession.h"
#include "engine/jobframe.h"
#include "engine/jobrecovery.h"
#include "engine/packagelisting.h"
#include "engine/pathguard.h"
#include "engine/reposhell.h"
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"
#include "engine/signaturerecord.h"
#include "engine/systemrelease.h"

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

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
} // namespace

RepoInfo RepoShell::defaultRepoInfo()
{
    RepoInfo info = Distributions::repoInfoForCodename(SystemRelease::codename());
    info.version = SystemRelease::version();
    return info;
}

void RepoShell::setRepository(const QString &path, const RepoInfo &info)
{
    const QMutexLocker lock(&m_mutex);
    m_path = path;
    m_repoInfo = info;
}

QStringList RepoShell::openRepositories() const
{
    const QMutexLocker lock(&m_mutex);
    return m_openRepositories;
}

void RepoShell::closeRepo()
{
    m_context->packages().clear();
    setRepository(QString(), {});
    Q_EMIT pathChanged(QString());
    Q_EMIT needCloseRepo();
}

// --- create ------------------------------------------------------------------------------------------------------

void RepoShell::createRepoAside(const QString &path, const RepoInfo &info)
{
    startJob([this, path, info] {
        const int result = createRepo(path, info);
        Q_EMIT repoCreated(result);
        return result;
    });
}

int RepoShell::prepareRepoDir(const QString &path, AsideDirectory *aside)
{
    if (!aside->error().isEmpty()) {
        Q_EMIT critical(tr("Impossible to delete directory %1!").arg(path), aside->error());
        return ERROR;
    }
    if (!QDir().mkpath(path + QLatin1String("/conf"))) {
        Q_EMIT critical(tr("Impossible to create directory %1!").arg(path), QString());
        return ERROR;
    }
    return SUCCESS;
}

int RepoShell::createRepo(const QString &path, const RepoInfo &info)
{
    // Of a link the directory that it names is meant.
    const QString wanted = absolute(path);
    const QString repoPath = QFileInfo(wanted).isSymLink() ? PathGuard::resolved(wanted) : wanted;
    if (!PathGuard::mayBeWiped(repoPath, openRepositories())) {
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(repoPath),
            tr("It is a directory of the system, or holds a home directory or an open repository."));
        return ERROR;
    }
    // What is there goes only when the new repository works.
    AsideDirectory aside(repoPath);
    QString details;
    if (prepareRepoDir(repoPath, &aside) == SUCCESS) {
        setRepository(repoPath, info);
        m_context->packages().clear();
        if (writeRepoInfo(info)) {
            if (m_context->runReprepro(ReproCommand::exportIndices()) == 0) {
                if (!aside.remove())
                    Q_EMIT critical(
                        tr("Impossible to delete directory %1!").arg(aside.place()), QString(), WARNING);
                Q_EMIT pathChanged(QString());
                startStoredResultsAnew(repoPath);
                return SUCCESS;
            }
            details = lastErrorOutput();
        }
        setRepository(QString(), {});
        Q_EMIT critical(tr("Failed to create repository!"), details, CRITICAL);
    }
    if (aside.error().isEmpty()) {
        QDir(repoPath).removeRecursively();
        aside.putBack();
    }
    return ERROR;
}

// --- open --------------------------------------------------------------------------------------------------------

void RepoShell::openRepo(const QString &path)
{
    if (!path.isEmpty())
        startJob([this, repoPath = absolute(path)] { return openBody(repoPath); });
}

int RepoShell::readRepoInfo(const QString &path)
{
    const auto info = DistributionsFile(path).read();
    if (!info)
        return ERROR;
    {
        const QMutexLocker lock(&m_mutex);
        m_repoInfo = *info;
    }
    Q_EMIT repoInfoAdded();
    return SUCCESS;
}

bool RepoShell::writeRepoInfo(const RepoInfo &info)
{
    const DistributionsFile file(path());
    if (file.write(info))
        return true;
    Q_EMIT critical(tr("Impossible to create file %1!").arg(file.fileName()));
    return false;
}

int RepoShell::openBody(const QString &path)
{
    JobFrame frame(*m_context, tr("Opening repository"));
    if (readRepoInfo(path) != SUCCESS) {
        const bool import = m_context->ask(
            QString(),
            tr("File %1/conf/distributions not found! Do you want to import repository?").arg(path),
            false);
        if (!import)
            return frame.finish(ERROR, tr("File %1/conf/distributions not found!").arg(path));
        Q_EMIT needImportRepo();
        return frame.finish(ERROR, QString());
    }
    if (repoInfo().codename.isEmpty()) {
        Q_EMIT critical(
            tr("File %1/conf/distributions names no distribution: its field Codename is missing or empty.")
                .arg(path));
        return frame.finish(ERROR, tr("Repositry is not opened"));
    }
    {
        const QMutexLocker lock(&m_mutex);
        m_path = path;
    }
    Q_EMIT pathChanged(QString());
    Q_EMIT requestForStoredInformation(path);
    JobRecovery(*m_context).run();

    QList<PackageInfoPtr> packages = listPackages(path, repoInfo());
    sortPackages(&packages);
    SignatureRecord::mark(&packages, path);
    m_context->packages().assign(packages);
    Q_EMIT requestForMergingInformation(packages);
    packages = m_context->packages().all();
    if (!packages.isEmpty())
        m_context->setProgressRange(packages.size());
    for (const PackageInfoPtr &package : packages) {
        if (m_context->isCanceled()) {
            closeRepo();
            return frame.finish(CANCEL, tr("Repositry is not opened"));
        }
        m_context->countProgress();
        Q_EMIT packageAdded(package);
    }
    return frame.finish(SUCCESS, tr("Repositry is opened"));
}

// --- change ------------------------------------------------------------------------------------------------------

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
    if (!m_context->isDatabaseThere() || !mayChange(newPath) || (newPath != oldPath && !moveRepo(newPath)))
        return frame.finish(ERROR, tr("Repository not changed"));

    const RepoInfo oldInfo = repoInfo();
    const auto oldText = DistributionsFile(newPath).readBytes();
    // Until the indices are those of the description again, whoever opens the repository has to write them.
    ExportSession::setMarker(newPath);
    QString details;
    if (rewriteRepo(info, &details)) {
        Q_EMIT pathChanged(newPath);
        // Between the steps of a change nothing can be stopped, and its end is no opening to be stopped either.
        if (!m_context->isClosing())
            m_context->resetCancel();
        openBody(newPath);
        return frame.finish(SUCCESS, tr("Repository is changed."), CHANGE_REPO_JOB);
    }
    // Back to where we were, so that "not changed" is true.
    setRepository(newPath, oldInfo);
    if (oldText && DistributionsFile(newPath).restore(*oldText)
        && m_context->runReprepro(ReproCommand::exportIndices()) == 0)
        ExportSession::clearMarker(newPath);
    if (newPath != oldPath && AsideDirectory::rename(newPath, oldPath).isEmpty()) {
        setRepository(oldPath, repoInfo());
        moveStoredResults(oldPath);
    }
    Q_EMIT critical(tr("Failed to change repository!"), details, CRITICAL);
    if (path() != oldPath)
        Q_EMIT pathChanged(newPath);
    return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
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
    setRepository(path(), info);
    if (!writeRepoInfo(info))
        return false;
    if (m_context->runReprepro(ReproCommand::clearVanished()) != 0) {
        *details = lastErrorOutput();
        return false;
    }
    removeVanishedIndices(oldInfo, info);
    const bool exported = exportOrGiveUpSigning(info);
    *details = lastErrorOutput();
    return exported;
}

void RepoShell::removeVanishedIndices(const RepoInfo &oldInfo, const RepoInfo &newInfo) const
{
    const QDir dists(path() + QLatin1String("/dists"));
    if (oldInfo.codename != newInfo.codename) {
        removeChild(dists, oldInfo.codename);
        return;
    }
    if (!isChildName(oldInfo.codename))
        return;
    const QStringList components = newInfo.componentList();
    const QStringList architectures = newInfo.architectureList();
    const QDir distribution(dists.filePath(oldInfo.codename));
    const QStringList oldComponents = oldInfo.componentList();
    const QStringList oldArchitectures = oldInfo.architectureList();
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

bool RepoShell::exportOrGiveUpSigning(RepoInfo info)
{
    bool exported = m_context->runReprepro(ReproCommand::exportIndices()) == 0;
    // Any other failure leaves the new description in force, and the marker that indices are owed.
    bool changed = true;
    if (!exported && ReproAnswer::signingFailed(lastErrorOutput())) {
        Q_EMIT critical(tr("Failed to sign repository!"), lastErrorOutput(), CRITICAL);
        info.signWith = false;
        setRepository(path(), info);
        writeRepoInfo(info);
        exported = m_context->runReprepro(ReproCommand::exportIndices()) == 0;
        changed = exported;
    }
    if (exported)
        ExportSession::clearMarker(path());
    return changed;
}
