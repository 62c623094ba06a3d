// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/changes/sessionpoint.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/leanenvironment.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class PrivateConfig;

/**
 * The reprepro runs of one job that change a repository. Writing the indices in each run makes the time of a job grow
 * with the square of its packages: so the first run writes them, which shows at once whether they can be signed, the
 * further runs do not, and finish() writes them once. A job of many runs begins with startSilently(): where nothing is
 * signed, its first run leaves them alone too.
 *
 * From the first change to the end of the job a marker lies in the repository's db folder. After a crash, the next
 * opening finds the marker and writes the indices first. The marker names the files that the job has worked on. Before
 * the first change the repository is locked against other jobs, and the database is copied.
 */
class ExportSession
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Runs reprepro with these arguments and additional environment. */
    using Run = std::function<ProcessResult(const QString &arguments, const QStringList &environment)>;

    struct Tools
    {
        Run run;
        std::function<QString()> configFolder; ///< what reprepro reads as the configuration of the repository
        SessionPoint::Tools point;
    };

    ExportSession(const QString &repoPath, Tools tools);
    /** Does not write the indices: without finish() the marker stays for the next opening. */
    ~ExportSession();
    ExportSession(const ExportSession &) = delete;
    ExportSession &operator=(const ExportSession &) = delete;

    /** Has the first run leave the indices alone too, unless it may show that the repository cannot be signed. */
    void startSilently();
    /** Runs one changing command. */
    ProcessResult modify(const QString &arguments);
    /** Like modify(), with a configuration of the caller. For a session that isSilent(). */
    ProcessResult modifyWith(PrivateConfig *config, const QString &arguments)
    {
        return change(arguments, config);
    }
    /**
     * Like modify(), for a command that takes a package out of the repository. Its pool file stays until finish(),
     * because the old indices name it. With `makesRoom` the file is deleted at once, so that another file can have
     * the name; the caller keeps it before (KeptFiles::keep()).
     */
    ProcessResult remove(const QString &arguments, bool makesRoom = false);
    /**
     * Copies the database before a change that is not made by a run. A failed result says why the repository must not
     * be changed.
     */
    ProcessResult keep();
    enum Vanished { OnlyEmpty, WithPackages };
    /** Takes out packages for which the description has no place any more. Call it after keep(). The pool files stay
     *  until finish(). */
    ProcessResult clearVanished(Vanished parts);
    /** Runs a command with another description than the one on the disk. Call it after keep(). */
    ProcessResult changeUnder(const QByteArray &description, const QString &arguments);
    /** Makes the database forget which files belong to which source. Call it after keep(). The pool files stay until
     *  finish(). */
    ProcessResult dropTracks(const QString &codename);
    /** Whether the repository must not be changed, which the result of the first try has said. */
    bool isRefused() const { return m_point.isRefused(); }
    /** Whether further runs leave the indices alone. */
    bool isSilent() const { return m_silentConfig != nullptr; }
    /** Records, before the run, files that would lie in the pool without use if the run were killed. */
    void recordAtRisk(const QStringList &poolFiles);
    /** Records, before the run, the files of packages that the run replaces. The files stay until finish(). */
    void recordFreed(const QStringList &poolFiles);
    /** KeptFiles::keep() for a file that a replacement takes away, a path below the repository. */
    QString keepAside(const QString &poolFile);
    /** Has finish() write the indices, because they differ from the database. */
    void requireExport();
    /** Deletes files without use that an earlier, interrupted run has left in the pool and that recordAtRisk() was
     *  told of. False when the repository's own options keep such files, or when the indices may still name them. */
    bool dropUnreferencedFiles();

    /** Writes the indices if they are owed, and moves the files that no index names any more out of the pool. When
     *  nothing is owed, that is a success. The job must still be committed. */
    ProcessResult finish();
    /** After finish(): makes a point of the history with this record, and takes the marker away unless the indices are
     *  still owed. A killed job is undone before, and stands after this call. Returns the words of
     *  SessionPoint::commit(). */
    QString commit(const RestorePoint &record);
    /** A package was lost that the job was not to take out: the end of the job undoes all of it. */
    void setDisturbed() { m_disturbed = true; }
    /** Whether a run died or could not write the database. Then the marker stays, and JobRecovery has work to do. */
    bool isDisturbed() const { return m_disturbed; }
    /** Whether it may have changed anything. */
    bool isBegun() const { return m_point.isBegun(); }
    /** Whether the indices are behind the database. After finish(): they could not be written. */
    bool owesIndices() const { return m_exportOwed; }
    /** Whether the database could not be read or written. From then on the session runs nothing more, and the copy
     *  from before the session (RunningPoint) replaces the database. */
    bool isDamaged() const { return m_trouble.has_value(); }
    /** What reprepro has said about the damage; empty without damage. */
    QString trouble() const { return m_trouble ? m_trouble->errorOutput : QString(); }

    /** Whether the repository's indices may be behind its database. */
    static bool isExportOwed(const QString &repoPath);
    /** The files that killed jobs may have left in the pool, as paths below the repository. */
    static QStringList filesLeft(const QString &repoPath);
    /** Tells the next opening that the indices may be behind the database. */
    static void setMarker(const QString &repoPath);
    /** Deletes the marker, after the indices have been written. */
    static void clearMarker(const QString &repoPath);

private:
    QString m_repoPath;
    Tools m_tools;
    std::optional<LeanEnvironment> m_lean; ///< made when the indices are first written
    std::unique_ptr<PrivateConfig> m_silentConfig; ///< set when the runs leave the indices alone
    std::unique_ptr<PrivateConfig> m_deletingConfig; ///< made when a removal has to make room
    bool m_exportOwed;
    bool m_removed = false; ///< the pool may have files that no package needs any more
    bool m_disturbed = false;
    QSet<QString> m_atRisk; ///< the files of recordAtRisk(): on a full disk the marker lacks them
    QSet<QString> m_own; ///< those of m_atRisk that were not there before the job
    std::optional<QStringList>
        m_strangers; ///< files that were without use when the database was kept by keep()
    QStringList m_next; ///< the files that were recorded since the last run
    SessionPoint m_point;
    std::optional<ProcessResult> m_trouble; ///< of the run that met a damaged database

    ProcessResult run(const QString &arguments, const QStringList &environment = {});
    std::optional<ProcessResult> keepDatabase();
    ConfigFolder config() const { return ConfigFolder(m_tools.configFolder()); }
    /** For runs that write the indices and have no configuration of their own. */
    QStringList environmentForIndices();
    /** The files of the job that were there before it, and may be without use now. Empty when none are kept. */
    QStringList filesBefore();
    enum Unused { Delete, Keep, Copy };
    /** Takes the unused files that are ours out of the pool. Keep and Copy keep them for the history and for undoing
     *  the job, Copy also where the file system has no links. */
    ProcessResult dropUnused(Unused fate);
    /** SessionPoint::link() for the files that are older than the job. */
    bool link(const QStringList &poolFiles);
    /** Whether finish() or commit() has files to take out of the pool, and may do it. */
    bool mustDropUnused() const;
    void beSilent();
    ProcessResult change(const QString &arguments, PrivateConfig *config);
    ProcessResult changeSilently(const QString &arguments, const QByteArray &description = {});
    /** A run that writes the indices, in the small environment where that has all that it needs. */
    ProcessResult runWritingIndices(const QString &arguments);
    ProcessResult writeIndices();
};
