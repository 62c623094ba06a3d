// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVector>

/**
 * The restore points of a repository. They lie below its db/, a folder for each, and are never changed: the oldest ones
 * are deleted whole. Reads and deletes only folders of users who may change the database, and follows no link.
 */
class RepositoryHistory
{
    Q_DECLARE_TR_FUNCTIONS(RepositoryHistory)
public:
    QVector<RestorePoint> points; ///< the newest first
    qint64 size
        = 0; ///< bytes that the whole history takes on the disk, without files that the repository has too
    QString unavailable; ///< why no state can be kept, in words of a user; empty when it can

    enum Rows {
        WithRows,
        WithoutRows ///< the points have no changes: enough for sizes and limits
    };
    /**
     * Reads files: not for the interface's thread. Rows of points that `known` has are not read again; it is an earlier
     * history of the same repository.
     */
    static RepositoryHistory
    read(const QString &repoPath, Rows rows = WithRows, const RepositoryHistory *known = nullptr);

    /** The point with this number; one with the number 0 when there is none. */
    RestorePoint pointOf(int number) const;

    /** The folder of all points. */
    static QString folder(const QString &repoPath);
    /** The folder of a committed point. */
    static QString pointFolder(const QString &repoPath, int number);
    /** The number of the next point. Numbers are never used again. */
    static int nextNumber(const QString &repoPath);
    /** The number of the newest point; 0 when there is none. */
    static int newestNumber(const QString &repoPath);
    /** The number of the newest point of which a state was kept; 0 when there is none. */
    static int newestKept(const QString &repoPath);
    /** Where a file of the history came from, as its records say; the path itself when it is another file. */
    static QString originOf(const QString &repoPath, const QString &path);
    /** Why no states can be kept here, in words of a user; empty when nothing speaks against it. */
    static QString obstacle(const QString &repoPath);
    /**
     * Makes a point that has a record alone, no state. Returns its number; 0 when it cannot be written. The caller
     * holds the lock of the job.
     */
    static int addRecord(const QString &repoPath, RestorePoint point);

    /** Points that go together. */
    struct Pruning
    {
        QVector<int> points; ///< the oldest first
        qint64 freed = 0; ///< bytes

        bool isEmpty() const { return points.isEmpty(); }
    };
    /** The oldest points that are more than the limits allow. */
    static Pruning
    toPrune(const RepositoryHistory &history, const HistoryLimits &limits, const QDateTime &now);
    /**
     * Deletes the points, and what a killed pruning has left. Each goes at once by a new name, so after a kill the rest
     * of the history is whole. False when something is left. The caller holds the lock of the job.
     */
    static bool prune(const QString &repoPath, const Pruning &pruning);
    /** Whether a killed pruning has left something. */
    static bool hasLeftovers(const QString &repoPath);
    /** Keeps to the limits; to be called after a job. */
    static bool prune(const QString &repoPath, const HistoryLimits &limits);

private:
    /** A file or folder, which several points can have by hard links. */
    struct StoredFile
    {
        qint64 size = 0; ///< bytes on the disk
        quint64 links = 1; ///< names that the file has anywhere
        QVector<int> points; ///< one entry for each name in the history; 0 stands for the history's own files
    };
    QVector<StoredFile> m_shared; ///< files with more than one name
    QHash<int, quint64> m_inodes; ///< of the points' folders
    QHash<int, qint64> m_sizes; ///< bytes of the files that have one name, by point

    void count(int descriptor, int point, int depth, QHash<QPair<quint64, quint64>, int> *shared);
    /** Bytes that deleting these points would free; 0 stands for the history's own files. */
    qint64 freedBy(const QVector<int> &deleted) const;
};
