// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/jobrecovery.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packagebackup.h"
#include "engine/recovery/poolleftovers.h"
#include "engine/recovery/replacedpackages.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/repositoryinspection.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/removetree.h"
#include "signing/signedpackages.h"

#include <QFile>
#include <QScopeGuard>
#include <QSet>

#include <optional>

namespace
{
bool isUnfinished(const QString &repoPath)
{
    return DatabaseCopy::exists(repoPath) || ExportSession::isExportOwed(repoPath)
           || !PackageBackup::leftovers(repoPath).isEmpty();
}
} // namespace

bool JobRecovery::mayRun(const QString &repoPath)
{
    if (!isUnfinished(repoPath) && !DatabaseCopy::isUnfinished(repoPath))
        return false;
    if (!m_context.lock.take(repoPath)) {
        m_context.errors.critical(
            RepoLock::busyText(repoPath), QString(), RepoEnums::WARNING, RepoEnums::REPOSITORY_BUSY);
        return false;
    }
    const bool isOwn = RepositoryInspection::belongsToUser(repoPath);
    // The job that had the lock may have finished meanwhile.
    if (!isUnfinished(repoPath)) {
        if (isOwn)
            DatabaseCopy::drop(repoPath);
        return false;
    }
    // A job that ends takes all three away, also when it could not write the indices.
    m_isInterrupted = DatabaseCopy::exists(repoPath) || DatabaseCopy::isLost(repoPath)
                      || !PackageBackup::leftovers(repoPath).isEmpty();
    const QString question
        = m_isInterrupted
              ? tr("A job on the repository %1 was interrupted. It belongs to another user. "
                   "Do you want to bring it in order now?")
              : tr("The indices of the repository %1 are not up to date. It belongs to another user. "
                   "Do you want to write them now?");
    // A user who has agreed to the programs of the repository is not asked again.
    const Admission::Verdict verdict = m_context.gate.admit(repoPath).verdict();
    if (verdict == Admission::Approved
        || (verdict == Admission::NothingNamed
            && (isOwn || m_context.control.ask(tr("Opening repository"), question.arg(repoPath), false))))
        return true;
    tellOfOldIndices(m_context.gate.admit(repoPath).reason());
    return false;
}

void JobRecovery::tellOfOldIndices(const QString &details)
{
    m_context.errors.critical(
        m_isInterrupted
            ? tr("An earlier job was interrupted, and the indices of the repository could not be "
                 "brought up to date. The packages shown may not be all that it holds.")
            : tr("The indices of the repository could not be brought up to date. The packages shown "
                 "may not be all that it holds."),
        details,
        RepoEnums::WARNING);
}

void JobRecovery::begin(const QString &repoPath)
{
    m_mayRun = mayRun(repoPath);
    if (!m_mayRun) {
        m_context.lock.release();
        return;
    }
    if (!DatabaseCopy::description(repoPath) || RepoLock::state(repoPath) == RepoLock::State::Held)
        return;
    DatabaseCopy::condemn(repoPath);
    DatabaseCopy::putDescriptionBack(repoPath);
    m_context.gate.forget();
    const Admission &admission = m_context.gate.admit(repoPath);
    m_mayRun = admission.isGranted();
    if (!m_mayRun) {
        tellOfOldIndices(admission.reason());
        m_context.lock.release();
    }
}

bool JobRecovery::mayGiveUpLostCopy()
{
    const QString loss
        = tr("An earlier job was interrupted. Its copy of the database lay on another disk, and is not "
             "there or belongs to another user. Look whether all packages are there.");
    // As long as the name of the copy stands there, a user who has the copy can bring the repository in order.
    if (m_context.control.ask(tr("Opening repository"),
                              loss + QLatin1Char(' ') + tr("Do you want to give the copy up?"),
                              false,
                              QuestionKind::GiveUp))
        return true;
    tellOfOldIndices(loss);
    return false;
}

bool JobRecovery::run()
{
    if (!m_mayRun)
        return false;
    const auto unlocked = qScopeGuard([this] { m_context.lock.release(); });
    const QString path = m_context.path();
    const bool hasCopy = DatabaseCopy::exists(path);
    if (DatabaseCopy::isLost(path)) {
        if (!mayGiveUpLostCopy())
            return false;
        DatabaseCopy::drop(path);
    }
    // A large repository takes seconds. After a stop the interface shows no new message.
    const QString words = m_isInterrupted ? tr("Recovering repository after an interrupted job")
                                          : tr("Writing the indices of the repository");
    if (m_context.control.isCanceled())
        Q_EMIT m_context.listener.noted(words);
    else
        m_context.progress.announce(words);
    const bool undoesChange = DatabaseCopy::description(path).has_value();
    // The restoring below ends with indices that are right, and that takes the marker away.
    const QStringList files = ExportSession::filesLeft(path);
    if (hasCopy && m_database.isDamaged(files)) {
        if (!m_database.putBack())
            return false;
        if (undoesChange)
            m_context.errors.critical(
                tr("An earlier change of the repository was interrupted and has been undone. "
                   "Do it again if it is still wanted."),
                QString(),
                RepoEnums::WARNING);
        else
            m_database.tellOfDamage();
    }
    const QStringList kept = ReplacedPackages(m_context).putBack();
    std::optional<ProcessResult> repair;
    if (ExportSession::isExportOwed(path))
        repair = repairPutBack(files);
    if (repair && !repair->succeeded() && hasCopy && ReproAnswer::databaseTroubled(repair->errorOutput)
        && m_database.putBack()) {
        m_database.tellOfDamage();
        repair = repairPutBack(files);
    }
    const bool isRepaired = !repair || repair->succeeded();
    if (isRepaired)
        DatabaseCopy::drop(path);
    else
        tellOfOldIndices(repair->errorOutput);
    if (!kept.isEmpty())
        m_context.errors.critical(
            tr("An earlier job was interrupted while it replaced a package. The replaced files are kept "
               "in %1; add them again if they are missing.")
                .arg(kept.first()),
            QString(),
            RepoEnums::WARNING);
    return isRepaired;
}

ProcessResult JobRecovery::repair(const QStringList &filesLeft)
{
    const QString path = m_context.path();
    PoolLeftovers leftovers(m_context);
    leftovers.removeMissing(filesLeft + ExportSession::filesLeft(path));
    // A file that has lost its reference would be deleted with the files that no package needs.
    ProcessResult result = m_context.reprepro.run(ReproCommand::rereference());
    if (!result.succeeded())
        return result;
    result = m_context.reprepro.run(ReproCommand::exportIndices());
    // Where the disk has no room for the indices, the files of packages that the job has taken out make room.
    if (!result.succeeded() && ReproAnswer::diskFull(result.errorOutput)) {
        leftovers.drop(filesLeft + ExportSession::filesLeft(path));
        result = m_context.reprepro.run(ReproCommand::exportIndices());
    }
    if (!result.succeeded())
        return result;
    // Not earlier: the old indices may have named these files.
    leftovers.drop(filesLeft + ExportSession::filesLeft(path));
    ExportSession::clearMarker(path);
    return result;
}

ProcessResult JobRecovery::repairPutBack(const QStringList &filesLeft)
{
    const QStringList files = filesLeft + m_database.goneFiles();
    ProcessResult result = repair(files);
    // On a full disk the database that was replaced takes the room.
    const QString aside = DatabaseCopy::asideFolder(m_context.path());
    if (!result.succeeded() && m_database.isPutBack() && QFile::exists(aside) && removeTree(aside))
        result = repair(files);
    return result;
}

bool JobRecovery::undoJob()
{
    const QString path = m_context.path();
    const QStringList files = ExportSession::filesLeft(path);
    if (!DatabaseCopy::exists(path) || !m_database.isDamaged(files))
        return false;
    if (m_database.putBack()) {
        m_database.tellOfDamage();
        ReplacedPackages(m_context).putBack();
        if (repairPutBack(files).succeeded())
            DatabaseCopy::drop(path);
        showAnew(files);
    }
    return true;
}

bool JobRecovery::undoChange()
{
    const QString path = m_context.path();
    const bool wasDamaged = DatabaseCopy::isCondemned(path);
    DatabaseCopy::setDescriptionDue(path);
    if (!m_database.putBack())
        return false;
    if (wasDamaged)
        m_database.tellOfDamage();
    return repairPutBack({}).succeeded();
}

void JobRecovery::showAnew(const QStringList &filesLeft)
{
    PackageList &shown = m_context.packages;
    const QList<PackageInfoPtr> old = shown.all();
    QList<PackageInfoPtr> now = listPackages(m_context.path(), m_context.repository.info());
    sortPackages(&now);
    SignedPackages(SignedPackages::packagesConfPath(m_context.path())).mark(&now);
    QSet<PackageKey> unchanged;
    for (const PackageInfoPtr &package : old) {
        if (!filesLeft.contains(package->filePath().mid(m_context.path().size() + 1))) {
            unchanged.insert(PackageKey::of(*package));
            continue;
        }
        shown.take(PackageKey::of(*package));
        Q_EMIT m_context.listener.packageRemoved(package);
    }
    for (const PackageInfoPtr &package : qAsConst(now)) {
        if (unchanged.contains(PackageKey::of(*package)))
            continue;
        shown.append(package);
        Q_EMIT m_context.listener.packageAdded(package);
    }
}
