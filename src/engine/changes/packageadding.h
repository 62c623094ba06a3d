// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/changes/addrun.h"

#include <QCoreApplication>
#include <QStringList>

class JobContext;
class JobFrame;
struct PackageFile;

/** The part that all jobs have in common that add packages. */
class PackageAdding : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** The options must outlive it; `singlePackage` says that the job has one package. */
    PackageAdding(JobContext &context,
                  const AddOptions &options,
                  bool singlePackage,
                  bool checksDepends = true);

    /** Adds the files one by one and finishes; CANCEL after a stop. */
    ErrorCode addFiles(const QStringList &files, JobFrame *frame);
    /** Adds a file for the architectures that it serves. */
    void addReadFile(const PackageFile &read, bool isLast);
    /** Writes the indices, checks what went in and has the results stored. False when all that was done is undone,
     *  which has been told. */
    bool finish();

    /** For those that include files themselves. */
    AddRun &run() { return m_run; }
    int addedCount() const { return m_run.added.size(); }
    /** The files that are in. */
    QString addedNames() const { return m_run.added.join(QLatin1String(", ")); }

private:
    /** A file in the repository that an added one collides with. */
    struct PresentFile
    {
        PackageInfoPtr package; ///< for the first of the architectures
        QStringList architectures; ///< that it serves
        bool isAll = false; ///< no other file is in the way
    };

    JobContext &m_context;
    AddRun m_run;

    /** Puts those of the files into the repository for which that can be done with few runs. */
    void includeTogether(const QVector<PackageFile> &files);
    /** How the package of a file is to stand in the repository, once for each architecture that it is for. */
    QVector<PackageInfo> recordsOf(const PackageInfo &package) const;
    ErrorCode addFile(AddedFile *file, const QVector<PackageInfo> &records);
    /** What the first of these records collides with, and which of the others do. */
    PresentFile presentFile(const QVector<PackageInfo> &records) const;
    /** Why a file that collided stayed out. */
    static QString keptText(ErrorCode collision, const QString &file, const PresentFile &present);
    void askToKeepUnsigned(const AddedFile &file, const PackageInfo &record);
    bool mustReplace(ErrorCode collision, const PackageInfoPtr &package);
};
