// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/historylimits.h"
#include "core/processutils.h"
#include "engine/history/restorepoint.h"
#include "engine/history/runningpoint.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

/**
 * The running point of a session (ExportSession): it is made before the first change, gets the pool files that the job
 * takes out, and is committed to the history at the end of the job.
 */
class SessionPoint
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    struct Tools
    {
        /** Locks the repository for the whole job, which can have several sessions; true also when the job has the lock
         *  already. False, after an error, when another job has it. */
        std::function<bool()> lock;
        /** For a job that makes room on the disk: whether the copy of the database may lie in memory when no disk has
         *  room for it. Without this function the copy must lie beside the database. */
        std::function<bool()> mayCopyToMemory = {};
        std::function<HistoryLimits()> limits; ///< of the history
        std::function<bool()> areIndicesOwed; ///< whether an earlier job could not write the indices
        /** Asked when the disk has too little room for a restore point: whether the job may go on without one, which
         *  it then does with a copy of the database on another disk. */
        std::function<bool()> mayGoOnWithoutPoint = {};
    };
    using Run = std::function<ProcessResult(const QString &arguments)>;

    SessionPoint(QString repoPath, Tools tools);

    /** Makes the point unless that is done. A result says why the repository must not be changed. `run` runs reprepro,
     *  which waits for the lock of another program. */
    std::optional<ProcessResult> begin(const Run &run);
    bool isBegun() const { return m_isBegun; }
    bool isRefused() const { return m_refusal.has_value(); }

    /** Keeps files of the pool without copying any. False when that is not possible for all of those that exist. */
    bool link(const QStringList &poolFiles);
    /** Whether files that the job takes out of the pool are kept: for its own point, or for earlier ones. */
    bool keepsFiles();
    /** From now on the job's state is not kept: the room that it takes is needed, and there is no way back. */
    void giveUp();
    /**
     * Commits the job. `dropUnused` is called after the commit, with keepsFiles(): it takes unused files out of the
     * pool that are still there, and keeps them then. Returns why the history has no record of the job, in words of a
     * user; empty when it has one, or needs none.
     */
    QString commit(RestorePoint record, const std::function<void(bool isKept)> &dropUnused);
    /** After commit(), when the repository is as the job leaves it: notes that, unless the indices are still old, and
     *  keeps the history to its limits. */
    void settle(bool areIndicesWritten);

private:
    QString m_repoPath;
    Tools m_tools;
    bool m_isBegun = false;
    bool m_isGivenUp = false;
    bool m_lacksLinks = false; ///< a file could not be kept
    std::optional<QString> m_obstacle; ///< of the file system, once that was tried
    std::optional<ProcessResult> m_refusal; ///< why nothing may be changed

    void refuse(const QString &reason);
    RunningPoint::Outcome make();
    QString noCopyText() const;
    static QString tooLittleRoom();
    /** Why the state cannot be kept, in words of a user; empty when it can. */
    QString whyNotPossible();
};
