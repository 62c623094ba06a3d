// SPDX-License-Identifier: GPL-3.0-or-later
// Creating, opening and closing a repository.
#include "engine/archive/unpackplace.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobrecovery.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reposhell.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/systemrelease.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/asidedirectory.h"
#include "files/pathguard.h"
#include "files/regularfile.h"
#include "files/removetree.h"
#include "files/scratchfolder.h"
#include "signing/signedpackages.h"

#include <QDir>
#include <QFileInfo>
#include <QMutexLocker>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

/** What is wrong with a file that each run reads: for a pipe in its place reprepro would wait for ever. */
QString refusal(const QString &repoPath)
{
    for (const char *name : {"conf/distributions",
                             "conf/options",
                             "packages.conf",
                             "db/version",
                             "db/packages.db",
                             "db/references.db",
                             "db/checksums.db"}) {
        const QString reason = RegularFile::refusal(repoPath + QLatin1Char('/') + QLatin1String(name));
        if (!reason.isEmpty())
            return reason;
    }
    return {};
}

/** Whether reprepro can write where it writes for any change. */
bool mayWrite(const QString &repoPath)
{
    const QStringList folders{QStringLiteral("/db"), QStringLiteral("/dists"), QStringLiteral("/pool")};
    return std::all_of(folders.cbegin(), folders.cend(), [&repoPath](const QString &name) {
        const QFileInfo folder(repoPath + name);
        return folder.exists() ? folder.isWritable() : QFileInfo(repoPath).isWritable();
    });
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
    m_context->repository().set(path, info);
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
    std::error_code reason;
    std::filesystem::create_directories(QFile::encodeName(path + QLatin1String("/conf")).constData(), reason);
    if (reason) {
        Q_EMIT critical(tr("Impossible to create directory %1!").arg(path),
                        QString::fromLocal8Bit(reason.message().c_str()));
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
        const QStringList held = PathGuard::repositoriesBelow(repoPath);
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(repoPath),
            held.isEmpty()
                ? tr("It is a directory of the system, or holds a home directory or an open repository.")
                : tr("It holds these repositories: %1").arg(held.join(QLatin1String(", "))));
        return ERROR;
    }
    // What is there goes only when the new repository works, and not while a job is at work on it.
    JobLock lock;
    if (!lock.take(repoPath)) {
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(repoPath),
            tr("The repository %1 is being changed by another program. Try again when it is done.")
                .arg(repoPath));
        return ERROR;
    }
    AsideDirectory aside(repoPath);
    QString details;
    if (prepareRepoDir(repoPath, &aside) == SUCCESS) {
        setRepository(repoPath, info);
        m_isWritable = true;
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
        removeTree(repoPath);
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
    m_context->repository().setInfo(*info);
    Q_EMIT repoInfoAdded();
    return SUCCESS;
}

bool RepoShell::writeRepoInfo(const RepoInfo &info)
{
    const DistributionsFile file(path());
    if (file.write(info)) {
        m_context->renewAdmission();
        return true;
    }
    Q_EMIT critical(tr("Impossible to create file %1!").arg(file.fileName()));
    return false;
}

void RepoShell::reloadRepo()
{
    if (!path().isEmpty())
        startJob([this] { return reloadBody(); });
}

int RepoShell::reloadBody()
{
    JobFrame frame(*m_context, tr("Reading repository again"));
    const QString repoPath = path();
    QString reason = refusal(repoPath);
    const auto info = reason.isEmpty() ? DistributionsFile(repoPath).read() : std::nullopt;
    const auto listed = info ? readListing(repoPath, *info) : std::nullopt;
    if (!listed) {
        if (!QFileInfo(repoPath).isDir())
            reason = tr("The directory %1 does not exist any more. Its disk may be absent.").arg(repoPath);
        else if (reason.isEmpty())
            reason = tr("Its description or its indices are missing.");
        Q_EMIT critical(tr("The repository %1 cannot be read.").arg(repoPath), reason);
        return frame.finish(ERROR, tr("Repository is not read again"));
    }
    const bool isWritable = mayWrite(repoPath);
    if (*info != repoInfo() || isWritable != m_isWritable) {
        setRepository(repoPath, *info);
        m_isWritable = isWritable;
        Q_EMIT repoInfoAdded();
    }
    const ListingDifference difference = compareListings(m_context->packages().all(), *listed);
    m_context->packages().assign(difference.packages);
    for (const PackageInfoPtr &package : difference.removed)
        Q_EMIT packageRemoved(package);
    for (const PackageInfoPtr &package : difference.added)
        Q_EMIT packageAdded(package);
    for (const PackageInfoPtr &package : difference.changed)
        Q_EMIT packageChanged(package);
    if (difference.isEmpty())
        return frame.finish(SUCCESS, tr("Repository is unchanged"));
    m_context->savePackages();
    // Each number has a form of its own.
    const QStringList changes{tr("%n package(s) added", nullptr, difference.added.size()),
                              tr("%n package(s) replaced", nullptr, difference.changed.size()),
                              tr("%n package(s) removed", nullptr, difference.removed.size())};
    return frame.finish(
        SUCCESS, tr("Another program has changed the repository: %1").arg(changes.join(QLatin1String(", "))));
}

int RepoShell::openBody(const QString &path)
{
    JobFrame frame(*m_context, tr("Opening repository"));
    const QString reason = refusal(path);
    if (!reason.isEmpty()) {
        Q_EMIT critical(tr("The repository %1 cannot be opened.").arg(path), reason);
        return frame.finish(ERROR, tr("Repositry is not opened"));
    }
    JobRecovery recovery(*m_context);
    recovery.begin(path);
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
    setRepository(path, repoInfo());
    m_isWritable = mayWrite(path);
    const QStringList unpacked = UnpackPlace::besideRepository(path);
    for (const QString &folder : unpacked)
        ScratchFolder::removeLeftovers(folder);
    Q_EMIT pathChanged(QString());
    Q_EMIT requestForStoredInformation(path);
    const bool isRecovered = recovery.run();
    if (recovery.isPutBack())
        readRepoInfo(path);

    QList<PackageInfoPtr> packages = listPackages(path, repoInfo());
    sortPackages(&packages);
    // Where the listing may not be all that is there, what it lacks is no proof.
    const auto description = DistributionsFile(path).readBytes();
    if (isRecovered && !packages.isEmpty() && description
        && Distributions::unreadLine(QString::fromLocal8Bit(*description)).isEmpty())
        SignatureRecord::forgetOthers(m_context.get(), packages);
    SignedPackages(SignedPackages::packagesConfPath(path)).mark(&packages);
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
