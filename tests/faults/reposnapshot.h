// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

class EngineHarness;

/** Everything of a repository that must not get lost or come twice, as its files and reprepro itself say it. */
class RepoSnapshot
{
public:
    /** Of a repository that nobody works on. */
    static RepoSnapshot read(const QString &path);

    /** Where this state is another one than `wanted`; empty when it is equal. Times and signatures do not count. */
    QString differences(const RepoSnapshot &wanted) const;
    /** Whether each package is there as in one of the states, after a job that could do only a part of its work. */
    bool isBetween(const RepoSnapshot &before, const RepoSnapshot &after) const;
    /** Whether the same packages are in the same indices, maybe with other signatures. */
    bool isAlike(const RepoSnapshot &other) const
    {
        return m_faults.isEmpty() && m_packages.keys() == other.m_packages.keys();
    }
    /** Where the restore points are others than those of `before` and, at most, a new one; empty when all are there. */
    QString historyFaults(const RepoSnapshot &before, bool mayLackOld = false) const;
    /** Whether each point has the state before it. */
    bool isWholeHistory() const { return !m_kept.values().contains(false); }
    /** The number of the newest point when `before` lacks it and its state was kept; else 0. */
    int newPoint(const RepoSnapshot &before) const;

    /** Describes inconsistencies of the open repository: between records, indices, database, pool and programs. */
    static QString faultsWithin(const EngineHarness &engine);
    /** What the engine has complained about, but for the news that a job was undone. */
    static QString troubles(const EngineHarness &engine);
    /** What clients see, byte for byte, with the times and signatures. */
    static QString served(const QString &path);
    /** All files of the repository with their bytes, inodes and times. */
    static QStringList everything(const QString &path);

private:
    QMap<QString, QByteArray> m_parts; ///< digests of files, and what reprepro prints
    QMap<QString, QByteArray> m_packages; ///< digests of the pool files, by the place in the indices
    QMap<int, QByteArray> m_points; ///< digests of the folders, by number
    QMap<int, bool> m_kept; ///< whether the state of the point was kept
    QString m_faults; ///< found when reading
};
