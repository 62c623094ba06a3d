// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "depends/dependscollection.h"
#include "engine/archive/archivewriter.h"
#include "engine/repository/packagelist.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

struct JobContext;
class JobFrame;

/** Writes the repository, or the files of some of its packages, to an archive. */
class ExportJob : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** `target` is an absolute path. */
    ExportJob(JobContext &context, QString target);

    int exportRepo();
    int exportPackages(const QList<PackageInfoPtr> &packages, bool withDepends);

private:
    JobContext &m_context;
    const QString m_target;

    bool mayExport();
    int failed(JobFrame *frame, const QString &reason);
    /** Adds a file of the pool. A link that other people control is not followed; its name goes to `leftOut`. */
    ArchiveWriter::Result
    add(ArchiveWriter *writer, const QString &file, const QString &member, QStringList *leftOut);
    static QString leftOutText(const QStringList &names);
    /** Puts the names of links that were not followed into the log. */
    void noteLeftOut(const QStringList &names);
    /** Tells of the links that were not followed; nothing when there were none. */
    void warnOfLeftOut(const QStringList &names);
    /** Adds the list of dependencies that the archive lacks; nothing when it lacks none. */
    static ArchiveWriter::Result addMissing(ArchiveWriter *writer, const QVector<UnmetEntry> &missing);
    void warnOfMissing(const QVector<UnmetEntry> &missing);
    /** The path of the file below the repository. */
    QString poolFile(const QString &file) const;
    QHash<PackageKey, QString> poolFiles(const QList<PackageInfoPtr> &packages);
};
