// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class EngineHarness;

/** The changes of packages that a job may make. */
struct Request
{
    QMap<QString, QSet<QByteArray>> offered; ///< checksums of the files, by package name
    QSet<QString> removed; ///< package names

    void offer(const QStringList &files);
};

/** The state that a repository serves: the packages in its indices and their files. */
class RepoState
{
public:
    /** Reads the indices of all components and architectures below `path`. */
    static RepoState read(const QString &path);

    /** Describes what is wrong with this state after a job, which may have been interrupted; empty when all is well. */
    QString faultsAfter(const RepoState &before, const Request &request) const;
    QStringList names() const;
    friend bool operator==(const RepoState &a, const RepoState &b) { return a.m_sums == b.m_sums; }

    /** Describes inconsistencies of the open repository: between records, indices, database, pool and programs. */
    static QString faultsWithin(EngineHarness &engine);

private:
    QMap<QString, QByteArray> m_sums; ///< checksums of the pool files, by "name component architecture"
    QString m_faults; ///< found when reading
};
