// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QCoreApplication>
#include <QHash>
#include <QStringList>

class JobContext;
struct PackageInfo;

/** Brings a repository in order that is opened after a job on it was killed. What cannot be mended is told. */
class JobRecovery : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit JobRecovery(JobContext &context)
        : m_context(context)
    { }

    /**
     * Before the description is read: finds out whether there is something to do that may be done, and puts back the
     * description from before a change that was cut short while the database did not follow it yet. Nothing may be done
     * while another job is at work. In what belongs to another user, and where reprepro would run programs that the
     * user has not agreed to, he is asked.
     */
    void begin(const QString &repoPath);
    /**
     * Puts a damaged database back as it was, puts back what was taken out for a replacement that never came, writes
     * the indices, and deletes files that were left in the pool. After begin(); the context has its path and
     * description, but no packages yet. True when there was something to do and it is done.
     */
    bool run();
    /** Whether run() has put the database back, and with it the description from before a change. */
    bool isPutBack() const { return m_isPutBack; }
    /**
     * The same without the replacements: for the end of a job in which a program was killed. Deletes what the marker
     * names and `filesLeft`. False when it fails.
     */
    bool repair(const QStringList &filesLeft = {});
    /**
     * At the end of a job in which a program was killed or could not use the database: when the database was damaged,
     * makes it and the pool what they were before the job, as far as they can be read and written, and tells of it.
     * False when there was no damage and nothing was done.
     */
    bool undoJob();
    /** Makes the repository what it was before its description changed. The context has the earlier one again. */
    bool undoChange();

private:
    static QStringList linesOf(const QString &text);
    JobContext &m_context;
    bool m_mayRun = false;
    bool m_isInterrupted = false; ///< a job was cut short; else it has ended, and only the indices are owed
    bool m_isPutBack = false; ///< the database
    QStringList m_goneFiles; ///< that others have taken out since the copy was made
    QHash<QString, QByteArray> m_checksums; ///< SHA256 by pool file, once they were asked for

    bool mayRun(const QString &repoPath);
    void tellOfOldIndices(const QString &details);
    bool isDamaged(const QStringList &filesLeft);
    bool isReferenced(const QStringList &lines);
    bool putDatabaseBack();
    bool repairPutBack(const QStringList &filesLeft);
    QString codename() const;
    void tellOfDamage();
    void removeMissing(const QStringList &filesLeft);
    void showAnew(const QStringList &filesLeft);
    QByteArray checksumOf(const QString &poolFile);
    static bool putIntoPool(const QString &kept, const QString &target);
    QStringList restoreReplaced();
    bool restore(const QString &folder);
    bool isThere(const PackageInfo &package);
    bool isComplete(const PackageInfo &package, const QString &kept);
    void dropFiles(const QStringList &files);
};
