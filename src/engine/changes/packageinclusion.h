// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"

#include <QCoreApplication>
#include <QList>

struct AddedFile;
class ExportSession;
class JobContext;
class PackageBackup;
struct ProcessResult;

/** Puts files into the repository, in the place of what is there or not. */
class PackageInclusion : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    explicit PackageInclusion(JobContext &context)
        : m_context(context)
    { }

    /**
     * Puts the file into the repository as `record` says. Without `replace`, a package in its place gives the code of
     * their collision and stays. A file that cannot go in leaves what is there, and ERROR has been told.
     */
    ErrorCode include(AddedFile *file, const PackageInfo &record, bool replace);
    /** Puts the file of a package that an interrupted job has taken out back in. */
    bool putBack(const PackageInfo &record, const QString &file, ExportSession *session);

private:
    JobContext &m_context;

    ErrorCode collisionOf(const QString &file, const PackageInfo &package, const PackageInfo &present);
    ErrorCode replacePackage(AddedFile *file, const PackageInfo &record, const PackageInfo &present);
    ErrorCode includeFile(AddedFile *file, const PackageInfo &record, bool replaces);
    /** Why it was not included: in words of our own where the user can do something about it, or else reprepro's. */
    QString reason(const QString &errorOutput, const PackageInfo &record) const;
    bool isIncluded(const ProcessResult &result, const PackageInfo &record);
    QList<PackageInfoPtr> packagesInTheWay(const PackageInfo &present, const PackageInfo &record) const;
    PackageInfoPtr packageIncluded(const PackageInfo &record, bool replaced);
    void
    restorePackages(const QList<PackageInfoPtr> &packages, PackageBackup *backup, ExportSession *session);
    static ProcessResult runInclude(const QString &arguments, ExportSession *session);
};
