// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

class EngineHarness;

/** What a job is asked to do with a repository, as far as packages may differ afterwards. */
struct Request
{
    QMap<QString, QSet<QByteArray>> offered; ///< checksums of the files by the name of their packages
    QSet<QString> removed; ///< names

    void offer(const QStringList &files);
};

/** What a repository serves: the packages in its indices and their files. */
class RepoState
{
public:
    /** Reads the indices of all components and architectures below `path`. */
    static RepoState read(const QString &path);

    /** What is wrong with this state after the job, which may have been cut short; empty when nothing is. */
    QString faultsAfter(const RepoState &before, const Request &request) const;
    QStringList names() const;
    friend bool operator==(const RepoState &a, const RepoState &b) { return a.m_sums == b.m_sums; }

    /** What is wrong within the opened repository: between records, indices, database, pool and programs. */
    static QString faultsWithin(EngineHarness &engine);

private:
    QMap<QString, QByteArray> m_sums; ///< of the pool files, by "name component architecture"
    QString m_faults; ///< found when reading
};
