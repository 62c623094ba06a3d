// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/sessionpoint.h"

#include "engine/history/keptfiles.h"
#include "engine/history/pointcommit.h"
#include "engine/history/repositorydigest.h"
#include "engine/history/repositoryhistory.h"
#include "engine/repository/distributionsfile.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/freespace.h"

#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <cstdlib>
#include <utility>

using RunningPoint::Outcome;
using RunningPoint::Place;

namespace
{
bool isShortOfRoom(const QString &repoPath)
{
    return freeSpace(repoPath) < RunningPoint::roomNeeded(repoPath);
}
} // namespace

SessionPoint::SessionPoint(QString repoPath, Tools tools)
    : m_repoPath(std::move(repoPath))
    , m_tools(std::move(tools))
{ }

std::optional<ProcessResult> SessionPoint::begin(const Run &run)
{
    if (m_refusal || m_isBegun)
        return m_refusal;
    if (RunningPoint::isLost(m_repoPath)) {
        refuse(tr("An earlier job was interrupted. Its copy of the database lay on another disk, and is not "
                  "there or belongs to another user. Look whether all packages are there."));
        return m_refusal;
    }
    if (!m_tools.lock()) {
        refuse(RepoLock::busyText(m_repoPath));
        return m_refusal;
    }
    // Only the copy is good, and the end of a job would delete it.
    if (RunningPoint::isCondemned(m_repoPath)) {
        refuse(tr("The database of the repository is damaged and could not be put back. Make room "
                  "on the disk, and open the repository again."));
        return m_refusal;
    }
    // The point of a job that was killed after its commit must not be taken for the one of this job.
    if (PointCommit::isPending(m_repoPath))
        PointCommit::finish(m_repoPath);
    else if (!RunningPoint::exists(m_repoPath))
        PointCommit::giveUp(m_repoPath);
    // What others have done since the last job must not look like the work of this one.
    if (!RunningPoint::exists(m_repoPath) && !m_tools.areIndicesOwed()
        && !RepositoryDigest::isCurrent(m_repoPath))
        RepositoryDigest::noteOutsideChange(m_repoPath);
    Outcome outcome = make();
    // Another program that works on the repository now and then can interfere twice, but hardly more often.
    for (int attempt = 0; attempt < 3 && outcome == Outcome::Locked; ++attempt) {
        // A run finds out whether the lock is stale, waits for it, or asks the user to remove it.
        const ProcessResult result = run(ReproCommand::dumpUnreferenced());
        if (!result.started || ReproAnswer::databaseLocked(result.errorOutput))
            return result;
        outcome = make();
    }
    m_isBegun = outcome == Outcome::Made && !m_refusal;
    if (!m_isBegun && !m_refusal)
        refuse(noCopyText());
    return m_refusal;
}

Outcome SessionPoint::make()
{
    if (m_tools.mayCopyToMemory) {
        const Outcome outcome = RunningPoint::make(m_repoPath, Place::OtherDisk);
        const bool isFull = outcome == Outcome::Failed && isShortOfRoom(m_repoPath);
        return isFull && m_tools.mayCopyToMemory() ? RunningPoint::make(m_repoPath, Place::Memory) : outcome;
    }
    const Outcome outcome = RunningPoint::make(m_repoPath);
    const bool mayAsk = m_tools.mayGoOnWithoutPoint && m_tools.limits().isOn;
    if (outcome != Outcome::Failed || !mayAsk || !isShortOfRoom(m_repoPath))
        return outcome;
    // The question comes when there is something to choose.
    const Outcome elsewhere = RunningPoint::make(m_repoPath, Place::OtherDisk);
    if (elsewhere == Outcome::Made && !m_tools.mayGoOnWithoutPoint()) {
        RunningPoint::drop(m_repoPath);
        refuse(noCopyText());
    }
    return elsewhere;
}

QString SessionPoint::noCopyText() const
{
    const qint64 needed = RunningPoint::roomNeeded(m_repoPath);
    const qint64 free = freeSpace(m_repoPath);
    if (free < 0 || free >= needed)
        return tr("The database of the repository could not be copied, so nothing was changed. "
                  "Is there room on the disk?");
    const QLocale locale;
    const QString text = tr("There is too little room on the disk of the repository for a copy of its "
                            "database, so nothing was changed. At least %1 must be free, and %2 are.")
                             .arg(locale.formattedDataSize(needed), locale.formattedDataSize(free));
    return m_tools.mayCopyToMemory ? text
                                   : text + QLatin1Char(' ') + tr("Packages can be removed all the same.");
}

void SessionPoint::refuse(const QString &reason)
{
    m_refusal.emplace();
    m_refusal->started = true;
    m_refusal->exitCode = EXIT_FAILURE;
    m_refusal->errorOutput = reason;
}

bool SessionPoint::link(const QStringList &poolFiles)
{
    const bool areLinked = std::all_of(poolFiles.cbegin(), poolFiles.cend(), [this](const QString &file) {
        return !QFileInfo::exists(m_repoPath + QLatin1Char('/') + file) || KeptFiles::link(m_repoPath, file);
    });
    m_lacksLinks = m_lacksLinks || !areLinked;
    return areLinked;
}

bool SessionPoint::keepsFiles()
{
    return whyNotPossible().isEmpty() && (m_tools.limits().isOn || PointCommit::hasState(m_repoPath));
}

QString SessionPoint::tooLittleRoom()
{
    return tr("There was too little room on the disk.");
}

QString SessionPoint::whyNotPossible()
{
    if (m_isGivenUp || RunningPoint::isElsewhere(m_repoPath))
        return tooLittleRoom();
    if (!RunningPoint::exists(m_repoPath))
        return tr("The repository had no database yet.");
    if (!m_obstacle)
        m_obstacle = RepositoryHistory::obstacle(m_repoPath);
    // The system can also refuse links of single files, for example those of another user.
    m_lacksLinks = m_lacksLinks || (m_obstacle->isEmpty() && !KeptFiles::areLinksPossible(m_repoPath));
    if (!m_obstacle->isEmpty() || !m_lacksLinks)
        return *m_obstacle;
    return isShortOfRoom(m_repoPath) ? tooLittleRoom()
                                     : tr("The files of the pool could not be kept as hard links.");
}

void SessionPoint::giveUp()
{
    m_isGivenUp = true;
    RunningPoint::drop(m_repoPath);
    KeptFiles::drop(m_repoPath);
}

QString SessionPoint::commit(RestorePoint record, const std::function<void(bool)> &dropUnused)
{
    if (!m_isBegun)
        return {};
    const bool isOn = m_tools.limits().isOn;
    record.reason = isOn ? whyNotPossible() : tr("The history was switched off.");
    record.isKept = record.reason.isEmpty();
    record.changesDescription
        = RunningPoint::changesDescription(m_repoPath)
          && RunningPoint::description(m_repoPath) != DistributionsFile(m_repoPath).readBytes();
    const bool filesAreKept = keepsFiles();
    const bool isChange = !record.changes.isEmpty() || record.changesDescription;
    KeptFiles::releaseThosePresent(m_repoPath);
    // A record that cannot be written must not undo the job.
    const bool isWritten = isChange && PointCommit::write(m_repoPath, record);
    if (!isWritten)
        RunningPoint::drop(m_repoPath);
    // From here on the job stands, also after a kill.
    dropUnused(filesAreKept);
    bool isNoted = isWritten && PointCommit::finish(m_repoPath) > 0;
    if (!isWritten)
        PointCommit::giveUp(m_repoPath);
    if (isChange && !isWritten) {
        // The copy of the database has made room for it.
        if (record.isKept)
            record.reason = tooLittleRoom();
        record.isKept = false;
        isNoted = RepositoryHistory::addRecord(m_repoPath, record) > 0;
    }
    m_isBegun = false;
    if (!isChange || isNoted || !isOn)
        return {};
    return record.reason.isEmpty()
               ? tr("Its folder cannot be written: %1").arg(RepositoryHistory::folder(m_repoPath))
               : record.reason;
}

void SessionPoint::settle(bool areIndicesWritten)
{
    // By old indices the packages of the job would look like those of others, once the indices are written.
    if (areIndicesWritten)
        RepositoryDigest::write(m_repoPath);
    RepositoryHistory::prune(m_repoPath, m_tools.limits());
}
