// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

class ExportSession;
struct JobContext;

/**
 * Makes a repository equal to the state before a point of its history, for a job with a running point of its own. The
 * point stays as it is: its database is copied, and its files are linked.
 */
class PointReturn
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** `folder` is the point's. */
    PointReturn(JobContext &context, int point, QString folder);

    /** Compares the state with the present one. False when one of both cannot be read; see details(). */
    bool read();
    /** The files of the state that are nowhere, or are other ones. Reads files of the history; a stop ends it. */
    QStringList findFiles();
    /** Makes the changes, all but the indices. Call it after ExportSession::keep(). False after a failure, see
     *  details(): then the running point must be put back. */
    bool apply(ExportSession *session);
    /** Deletes the indices for which the description of the state has no place. */
    void removeVanished();

    /** Why something failed. */
    QString details() const { return m_details; }
    /** The pool files that are other ones than before, as paths below the repository. */
    QStringList changedFiles() const { return m_sources.keys() + m_leaving; }

private:
    /** What a database says of the files in the pool. */
    struct Files
    {
        QHash<QString, QByteArray> checksums; ///< of all files that it knows
        QSet<QString> needed; ///< by packages
    };

    JobContext &m_context;
    int m_point;
    QString m_folder;
    QString m_details;
    Files m_earlier;
    Files m_present;
    QHash<QString, QString>
        m_sources; ///< absolute paths of the files that are missing in the pool, by pool path
    QStringList m_leaving; ///< the files that no package will need
    QByteArray m_replaced; ///< the present description

    static QString noRoomText();
    bool readFiles(const QString &database, Files *files);
    bool putFiles(ExportSession *session);
    bool putDescription();
    bool putDatabase();
    bool putSignatures();
    /** Makes the database know the files of the pool that it did not know, and no others. */
    bool matchPool();
    bool runForFiles(QString (*command)(const QStringList &), const QStringList &files);
    QString inRepository(const QString &path) const;
};
