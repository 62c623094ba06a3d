// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/processutils.h"
#include "engine/reprepro/databasecopy.h"

#include <QCoreApplication>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class PrivateConfig;

/**
 * The reprepro runs of one job that change a repository. The first run writes the indices, so that a signing failure
 * shows at once; when it went well, the further ones leave them alone and finish() writes them once. Writing them
 * each time makes a job's time grow with the square of its packages.
 *
 * From the first change to the end of the job a marker lies in the repository's db folder, so that whoever opens the
 * repository after a crash writes them first. It names the files that the job was about. Before the first change the
 * repository is locked against other jobs, and the database is copied.
 */
class ExportSession
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Runs reprepro with these arguments and additional environment. */
    using Run = std::function<ProcessResult(const QString &arguments, const QStringList &environment)>;

    /**
     * Locks the repository for the whole job, which may have several sessions, or finds that it has the lock. False,
     * which it tells, when another job has it.
     */
    using Lock = std::function<bool()>;

    struct Tools
    {
        Run run;
        Lock lock;
        std::function<QString()> configFolder; ///< what reprepro reads as the configuration of the repository
        /** For a job that makes room on the disk: whether the copy of the database may be in memory, when no disk has
         *  room for it. Without this function it must be beside the database. */
        std::function<bool()> mayCopyToMemory = {};
    };

    ExportSession(const QString &repoPath, Tools tools);
    /** Does not export: without finish() the marker stays for the next one who opens the repository. */
    ~ExportSession();
    ExportSession(const ExportSession &) = delete;
    ExportSession &operator=(const ExportSession &) = delete;

    /** Runs one changing command. */
    ProcessResult modify(const QString &arguments);
    /**
     * Like modify(), for a command that takes a package out of the repository. Its pool file stays until finish(),
     * because the old indices name it; with `makesRoom` it goes at once, for another file of the same name.
     */
    ProcessResult remove(const QString &arguments, bool makesRoom = false);
    /**
     * Copies the database before something else than a run changes the repository. A result that failed says why that
     * may not be.
     */
    ProcessResult keep();
    enum Vanished { OnlyEmpty, WithPackages };
    /** Takes out what the description has no place for any more; after keep(). The pool files stay until finish(). */
    ProcessResult clearVanished(Vanished parts);
    /** Runs a command under another description than the one in force; after keep(). */
    ProcessResult changeUnder(const QByteArray &description, const QString &arguments);
    /** Makes the database forget which files belonged to which source; after keep(), with the pool files as above. */
    ProcessResult dropTracks(const QString &codename);
    /** Whether nothing may be changed, which the first try has said. */
    bool isRefused() const { return m_refusal.has_value(); }
    /** Whether further runs leave the indices alone. */
    bool isSilent() const { return m_silentConfig != nullptr; }
    /** Tells, before the run, of a file that would lie in the pool without use if the run were cut short. */
    void recordAtRisk(const QString &poolFile);
    /** For when the indices turned out not to tell what is in the database. */
    void requireExport();
    /** Makes room for a file that an earlier, interrupted run has left in the pool without use, and that recordAtRisk() was
     *  told of. False when the repository's own options ask to keep such files, or when the indices may still name
     *  them. */
    bool dropUnreferencedFiles();

    /** Writes what is owed and drops the files that no index names any more. A result that failed leaves the
     *  marker; nothing owed is a success. */
    ProcessResult finish();
    /** Whether a run died or could not write the database. Then the marker stays, and JobRecovery has work to do. */
    bool isDisturbed() const { return m_disturbed; }
    /** Whether it may have changed anything. */
    bool isBegun() const { return m_isKept; }
    /** Whether the database could not be read or written. From then on nothing is run any more, and the copy of it
     *  from before the session (DatabaseCopy) is the one to use. */
    bool isDamaged() const { return m_trouble.has_value(); }

    /** Whether the repository's indices may be behind its database. */
    static bool isExportOwed(const QString &repoPath);
    /** The files that jobs which were cut short may have left in the pool, as paths below the repository. */
    static QStringList filesLeft(const QString &repoPath);
    /** Says for whoever opens the repository next that its indices may be behind. */
    static void setMarker(const QString &repoPath);
    /** Takes the marker away, after an export that went well. */
    static void clearMarker(const QString &repoPath);

private:
    QString m_repoPath;
    Tools m_tools;
    std::unique_ptr<PrivateConfig> m_silentConfig; ///< set once the first run has gone well
    std::unique_ptr<PrivateConfig> m_deletingConfig; ///< made when a removal has to make room
    bool m_exportOwed;
    bool m_removed = false; ///< files may lie in the pool that nothing needs any more
    bool m_disturbed = false;
    QSet<QString> m_atRisk; ///< what recordAtRisk() was told: on a full disk the marker does not hold it
    std::optional<QStringList>
        m_strangers; ///< files that were without use when the database was kept by keep()
    bool m_isKept = false; ///< the database has been copied
    std::optional<ProcessResult> m_trouble; ///< of the run that met a damaged database
    std::optional<ProcessResult> m_refusal; ///< why nothing may be changed

    ProcessResult run(const QString &arguments, const QStringList &environment = {});
    std::optional<ProcessResult> keepDatabase();
    DatabaseCopy::Outcome copyDatabase();
    QString noCopyText() const;
    void refuse(const QString &reason);
    bool keepsUnreferencedFiles() const;
    ProcessResult dropUnused();
    ProcessResult change(const QString &arguments, PrivateConfig *config);
    ProcessResult changeSilently(const QString &arguments, const QByteArray &description = {});
    ProcessResult writeIndices();
};
