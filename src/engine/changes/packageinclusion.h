// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "engine/changes/addoptions.h"
#include "engine/changes/fileinclusion.h"
#include "engine/changes/packagesigner.h"
#include "engine/repository/packagelist.h"

#include <QCoreApplication>
#include <QList>
#include <QMultiHash>

struct AddedFile;
class ExportSession;
struct JobContext;

/** Puts the files of one job into the repository, in the place of packages that are there or beside them. */
class PackageInclusion : public RepoEnums
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    PackageInclusion(JobContext &context, ExportSession &session, const AddOptions &options)
        : m_context(context)
        , m_session(session)
        , m_signer(context, options)
        , m_inclusion(context, session)
    { }

    bool isSigning() const { return m_signer.isSigning(); }
    /**
     * Puts the file into the repository as `record` says. Without `replace`, a package in its place gives the code of
     * their collision and stays. A file that cannot go in leaves what is there, and ERROR has been told.
     */
    ErrorCode include(AddedFile *file, const PackageInfo &record, bool replace);

    /** A run for several files has put this file into this place before its turn. include() must still be called. */
    void setAhead(const QString &path, const PackageKey &place) { m_ahead.insert(path, place); }
    bool isAhead(const QString &path) const { return m_ahead.contains(path); }
    bool isAhead(const QString &path, const PackageKey &place) const { return m_ahead.contains(path, place); }

    /** The packages that went in, once for each architecture. */
    const QList<PackageInfoPtr> &included() const { return m_included; }
    /** What went in has been undone. */
    void forgetIncluded() { m_included.clear(); }

private:
    JobContext &m_context;
    ExportSession &m_session;
    PackageSigner m_signer;
    FileInclusion m_inclusion;
    QMultiHash<QString, PackageKey> m_ahead; ///< places by the files' paths
    QList<PackageInfoPtr> m_included;

    ErrorCode collisionOf(const QString &file, const PackageInfo &package, const PackageInfo &present);
    ErrorCode replacePackage(AddedFile *file, const PackageInfo &record, const PackageInfo &present);
    ErrorCode includeFile(AddedFile *file, const PackageInfo &record, bool replaces);
    /** The record of a file that a shared run has put into the place of an older version. */
    ErrorCode takePlace(AddedFile *file, const PackageInfo &record, const PackageInfoPtr &replaced);
    QList<PackageInfoPtr> packagesInTheWay(const PackageInfo &present, const PackageInfo &record) const;
    PackageInfoPtr packageIncluded(const PackageInfo &record, bool replaced);
    /** Puts packages back whose file is kept there. */
    void restorePackages(const QList<PackageInfoPtr> &packages, const QString &keptFile);
};
