// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/jobrecovery.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/history/keptfiles.h"
#include "engine/history/pointcommit.h"
#include "engine/history/runningpoint.h"
#include "engine/recovery/databaseview.h"
#include "engine/recovery/earlierbackups.h"
#include "engine/recovery/packagerefresh.h"
#include "engine/recovery/pointrestore.h"
#include "engine/recovery/poolleftovers.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/repositoryinspection.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/renamepath.h"
#include "files/saveleftovers.h"

#include <QDir>
#include <QFile>
#include <QScopeGuard>

namespace
{
bool isUnfinished(const QString &repoPath)
{
    return RunningPoint::exists(repoPath) || ExportSession::isExportOwed(repoPath)
           || !EarlierBackups::folders(repoPath).isEmpty();
}

/** Earlier versions of this program kept the description only when a job changed it, and never index files. */
void adoptEarlierDescription(const QString &repoPath)
{
    const QString file = RunningPoint::folder(repoPath) + QLatin1String("/distributions");
    renamePath(file + QLatin1String(".done"), file);
    const auto kept = RunningPoint::description(repoPath);
    if (kept && RunningPoint::indicesFolder(repoPath).isEmpty() && !RunningPoint::isElsewhere(repoPath))
        RunningPoint::setChangesDescription(
            repoPath, *kept, DistributionsFile(repoPath).readBytes().value_or(QByteArray()));
}
} // namespace

bool JobRecovery::mayRun(const QString &repoPath)
{
    if (!isUnfinished(repoPath) && !RunningPoint::isUnfinished(repoPath)
        && !DatabaseView::hasLeftovers(repoPath))
        return false;
    if (!m_context.lock.take(repoPath)) {
        m_context.errors.critical(
            RepoLock::busyText(repoPath), QString(), RepoEnums::WARNING, RepoEnums::REPOSITORY_BUSY);
        return false;
    }
    const bool isOwn = RepositoryInspection::belongsToUser(repoPath);
    // The job that had the lock may have finished meanwhile.
    if (!isUnfinished(repoPath)) {
        if (isOwn) {
            RunningPoint::drop(repoPath);
            DatabaseView::removeLeftovers(repoPath);
        }
        return false;
    }
    // A job that ends takes all three away, also when it could not write the indices.
    m_isInterrupted = RunningPoint::exists(repoPath) || RunningPoint::isLost(repoPath)
                      || !EarlierBackups::folders(repoPath).isEmpty();
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
    if (!RunningPoint::exists(repoPath) || PointCommit::isPending(repoPath))
        return;
    adoptEarlierDescription(repoPath);
    if (!RunningPoint::changesDescription(repoPath) || RepoLock::state(repoPath) == RepoLock::State::Held)
        return;
    PointRestore::putDescriptionBack(repoPath);
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
    if (RunningPoint::isLost(path)) {
        if (!mayGiveUpLostCopy())
            return false;
        RunningPoint::drop(path);
    }
    // A large repository takes seconds. After a stop the interface shows no new message.
    const QString words = m_isInterrupted ? tr("Recovering repository after an interrupted job")
                                          : tr("Writing the indices of the repository");
    if (m_context.control.isCanceled())
        Q_EMIT m_context.listener.noted(words);
    else
        m_context.progress.announce(words);
    DatabaseView::removeLeftovers(path);
    SaveLeftovers::remove(DistributionsFile(path).fileName(), SaveLeftovers::Any);
    PointCommit::finish(path);
    if (RunningPoint::exists(path)) {
        if (!rollBack())
            return false;
    } else {
        PointCommit::giveUp(path);
    }
    const QStringList backups = EarlierBackups::putBack(m_context);
    if (!backups.isEmpty())
        m_context.errors.critical(
            tr("An earlier job was interrupted while it replaced a package. The replaced files are kept "
               "in %1; add them again if they are missing.")
                .arg(backups.first()),
            QString(),
            RepoEnums::WARNING);
    if (!ExportSession::isExportOwed(path))
        return true;
    const ProcessResult repaired = repair();
    if (!repaired.succeeded())
        tellOfOldIndices(repaired.errorOutput);
    return repaired.succeeded();
}

bool JobRecovery::rollBack()
{
    const bool undoesChange = RunningPoint::changesDescription(m_context.path());
    PointRestore restore(m_context);
    m_isPutBack = true;
    if (!restore.run())
        return false;
    if (restore.wasDamaged() && !undoesChange)
        tellOfDamage();
    else
        m_context.errors.critical(
            tr("An earlier change of the repository was interrupted and has been undone. "
               "Do it again if it is still wanted."),
            QString(),
            RepoEnums::WARNING);
    return true;
}

void JobRecovery::tellOfDamage()
{
    // The damaged database is kept aside only where the disk has room for both.
    const QString aside = RunningPoint::asideFolder(m_context.path());
    m_context.errors.critical(
        tr("The database of the repository was damaged while a job changed it. It was put back "
           "as it was before, and what the job had done is undone. Make room on the disk, and "
           "do it again."),
        QFile::exists(aside) ? aside : QString());
}

ProcessResult JobRecovery::repair()
{
    const QString path = m_context.path();
    const QStringList files = ExportSession::filesLeft(path);
    if (RepoLock::state(path) != RepoLock::State::Held)
        RepoLock::removeUnfinishedFiles(path);
    PoolLeftovers leftovers(m_context);
    leftovers.removeMissing(files);
    KeptFiles::removePartial(path, files);
    // A file that has lost its reference would be deleted with the files that no package needs.
    ProcessResult result = rereference();
    if (!result.succeeded())
        return result;
    result = m_context.reprepro.run(ReproCommand::exportIndices());
    // Where the disk has no room for the indices, the files of packages that the job has taken out make room.
    if (!result.succeeded() && ReproAnswer::diskFull(result.errorOutput)) {
        leftovers.drop(files);
        result = m_context.reprepro.run(ReproCommand::exportIndices());
    }
    if (!result.succeeded())
        return result;
    // Not earlier: the old indices may have named these files.
    const bool areDropped = leftovers.drop(files, PoolLeftovers::Keep);
    if (!RunningPoint::exists(path))
        PointCommit::giveUp(path);
    // On a full disk files can stay, and the marker names them.
    if (areDropped)
        ExportSession::clearMarker(path);
    return result;
}

ProcessResult JobRecovery::rereference()
{
    const QString path = m_context.path();
    ProcessResult result = m_context.reprepro.run(ReproCommand::rereference());
    // A run that was killed right here can have torn the references, and of a job that stands there is no copy.
    // reprepro makes them anew from the packages, which that run has only read.
    const QString references = QStringLiteral("references.db");
    if (result.succeeded() || RunningPoint::exists(path) || !ReproAnswer::databaseTroubled(result.errorOutput)
        || !result.errorOutput.contains(references))
        return result;
    const QString aside = RunningPoint::asideFolder(path);
    if (QDir().mkpath(aside)
        && renamePath(path + QLatin1String("/db/") + references, aside + QLatin1Char('/') + references))
        result = m_context.reprepro.run(ReproCommand::rereference());
    return result;
}

bool JobRecovery::undoJob()
{
    const QString path = m_context.path();
    if (!RunningPoint::exists(path) || PointCommit::isPending(path))
        return false;
    const QStringList files = ExportSession::filesLeft(path);
    const bool changesDescription = RunningPoint::changesDescription(path);
    PointRestore restore(m_context);
    if (!restore.run())
        return true;
    if (const auto info = DistributionsFile(path).read(); info && changesDescription) {
        m_context.repository.setInfo(*info);
        Q_EMIT m_context.listener.repoInfoAdded();
    }
    if (restore.wasDamaged())
        tellOfDamage();
    else
        m_context.errors.critical(tr("The job could not be brought to an end. What it had done is undone. "
                                     "Do it again if it is still wanted."));
    PackageRefresh::show(m_context, files);
    return true;
}

void JobRecovery::undoChange()
{
    PointRestore restore(m_context);
    if (restore.run() && restore.wasDamaged())
        tellOfDamage();
}
