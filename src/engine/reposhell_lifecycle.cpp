// SPDX-License-Identifier: GPL-3.0-or-later
// Creating, opening, changing and closing a repository.
#include "core/processutils.h"
#include "engine/distributions.h"
#include "engine/distributionsfile.h"
#include "engine/exportsession.h"
#include "engine/jobframe.h"
#include "engine/packagelisting.h"
#include "engine/pathguard.h"
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"
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

/** A name beside `path` that nothing has yet. */
QString freeSibling(const QString &path)
{
    QString candidate;
    int number = 0;
    do {
        candidate = QStringLiteral("%1.replaced-%2").arg(path).arg(++number);
    } while (QFileInfo::exists(candidate));
    return candidate;
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

void RepoShell::closeRepo()
{
    m_packages.clear();
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

int RepoShell::prepareRepoDir(const QString &path)
{
    QDir folder(path);
    QStringList openRepositories;
    {
        const QMutexLocker lock(&m_mutex);
        openRepositories = m_openRepositories;
    }
    if (!PathGuard::mayBeWiped(path, openRepositories)) {
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(folder.absolutePath()),
            tr("It is a directory of the system, or holds a home directory or an open repository."));
        return ERROR;
    }
    if (folder.exists() && !folder.removeRecursively()) {
        Q_EMIT critical(tr("Impossible to delete directory %1!").arg(folder.absolutePath()), QString());
        return ERROR;
    }
    if (!QDir().mkpath(folder.absolutePath() + QLatin1String("/conf"))) {
        Q_EMIT critical(tr("Impossible to create directory %1!").arg(folder.absolutePath()), QString());
        return ERROR;
    }
    return SUCCESS;
}

int RepoShell::createRepo(const QString &path, const RepoInfo &info)
{
    const QString repoPath = absolute(path);
    if (prepareRepoDir(repoPath) != SUCCESS)
        return ERROR;
    setRepository(repoPath, info);
    m_packages.clear();
    QString details;
    if (writeRepoInfo(info)) {
        if (runReprepro(ReproCommand::exportIndices()) == 0) {
            Q_EMIT pathChanged(QString());
            Q_EMIT requestForStoredInformation(repoPath);
            return SUCCESS;
        }
        details = lastErrorOutput();
    }
    QDir(repoPath).removeRecursively();
    setRepository(QString(), {});
    Q_EMIT critical(tr("Failed to create repository!"), details, CRITICAL);
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
    JobFrame frame(*this, tr("Opening repository"));
    if (readRepoInfo(path) != SUCCESS) {
        const bool import
            = ask(QString(),
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
    recoverInterruptedJob(path);

    QList<PackageInfoPtr> packages = listPackages(path, repoInfo());
    sortPackages(&packages);
    m_packages.assign(packages);
    Q_EMIT requestForMergingInformation(packages);
    packages = m_packages.all();
    if (!packages.isEmpty())
        Q_EMIT progressRangeChanged(packages.size());
    for (const PackageInfoPtr &package : packages) {
        if (isCanceled()) {
            closeRepo();
            return frame.finish(CANCEL, tr("Repositry is not opened"));
        }
        ++m_progress;
        Q_EMIT packageAdded(package);
    }
    return frame.finish(SUCCESS, tr("Repositry is opened"));
}

void RepoShell::recoverInterruptedJob(const QString &path)
{
    if (ExportSession::isExportOwed(path)) {
        if (runReprepro(ReproCommand::exportIndices()) == 0)
            ExportSession::clearMarker(path);
        else
            Q_EMIT critical(
                tr("An earlier job was interrupted, and the indices of the repository could not be "
                   "brought up to date. The packages shown may not be all that it holds."),
                lastErrorOutput(),
                WARNING);
    }
    const QStringList kept = QDir(path).entryList({QStringLiteral(".replaced-*")}, QDir::Dirs | QDir::Hidden);
    if (!kept.isEmpty())
        Q_EMIT critical(
            tr("An earlier job was interrupted while it replaced a package. The replaced files are kept "
               "in %1; add them again if they are missing.")
                .arg(path + QLatin1Char('/') + kept.first()),
            QString(),
            WARNING);
}

// --- change ------------------------------------------------------------------------------------------------------

void RepoShell::changeRepo(const QString &newPath, const RepoInfo &info)
{
    if (!newPath.isEmpty())
        startJob([this, target = absolute(newPath), info] { return changeBody(target, info); });
}

int RepoShell::changeBody(const QString &newPath, const RepoInfo &info)
{
    JobFrame frame(*this, tr("Repository changing"));
    Q_EMIT requestForSavingPackages(m_packages.all());
    if (newPath != path() && !moveRepo(newPath))
        return frame.finish(ERROR, tr("Repository not changed"));

    const RepoInfo oldInfo = repoInfo();
    const auto oldText = DistributionsFile(newPath).readBytes();
    setRepository(newPath, info);
    removeVanishedIndices(oldInfo, info);
    bool changed = writeRepoInfo(info);
    QString details;
    if (changed) {
        changed = runReprepro(ReproCommand::clearVanished()) == 0 && exportOrGiveUpSigning(info);
        details = lastErrorOutput();
        if (!changed && oldText && DistributionsFile(newPath).restore(*oldText)) {
            // The description is the old one again, and so the indices must be.
            setRepository(newPath, oldInfo);
            runReprepro(ReproCommand::exportIndices());
        }
    }
    if (!changed) {
        Q_EMIT critical(tr("Failed to change repository!"), details, CRITICAL);
        return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
    }
    Q_EMIT pathChanged(newPath);
    openBody(newPath);
    return frame.finish(SUCCESS, tr("Repository is changed."), CHANGE_REPO_JOB);
}

bool RepoShell::moveRepo(const QString &newPath)
{
    const QString oldPath = path();
    QStringList openRepositories;
    {
        const QMutexLocker lock(&m_mutex);
        openRepositories = m_openRepositories;
    }
    if (PathGuard::overlap(oldPath, newPath) || !PathGuard::mayBeWiped(newPath, openRepositories)) {
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(newPath),
            tr("It is the repository itself, lies in it or holds it, or it is a directory of the system, "
               "or holds a home directory or an open repository."));
        return false;
    }
    // What lies at the new path goes only when the repository has arrived there.
    QString aside;
    if (QFileInfo::exists(newPath)) {
        aside = freeSibling(newPath);
        if (!QDir().rename(newPath, aside))
            return false;
    }
    QDir().mkpath(QFileInfo(newPath).path());
    if (!QDir().rename(oldPath, newPath)) {
        if (!aside.isEmpty())
            QDir().rename(aside, newPath);
        return false;
    }
    if (!aside.isEmpty() && !QDir(aside).removeRecursively())
        Q_EMIT critical(tr("Impossible to delete directory %1!").arg(aside), QString(), WARNING);
    setRepository(newPath, repoInfo());
    return true;
}

void RepoShell::removeVanishedIndices(const RepoInfo &oldInfo, const RepoInfo &newInfo)
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
    if (runReprepro(ReproCommand::exportIndices()) == 0 || !ReproAnswer::signingFailed(lastErrorOutput()))
        return true;
    Q_EMIT critical(tr("Failed to sign repository!"), lastErrorOutput(), CRITICAL);
    info.signWith = false;
    setRepository(path(), info);
    writeRepoInfo(info);
    return runReprepro(ReproCommand::exportIndices()) == 0;
}
