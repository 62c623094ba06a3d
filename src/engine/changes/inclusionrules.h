// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoenums.h"
#include "core/repoinfo.h"
#include "engine/repository/packagelist.h"
#include "engine/repository/repositoryextension.h"

#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QVector>

#include <functional>
#include <optional>

/** What becomes of a package file in a repository: decided for the jobs that add files, and for their previews. */
class InclusionRules
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    /** Where the files go. */
    struct Target
    {
        QString path; ///< of the repository
        RepoInfo info;
        /** False when the description names more than `info` does: reprepro can have further architectures. */
        bool isDescriptionRead = true;
        QStringList udebComponents = {}; ///< those that take packages for the installer
        QString component; ///< replaces the component of every package; empty: the package's own

        static Target of(const QString &path, const RepoInfo &info, const QString &component);
    };
    using Find = std::function<PackageInfoPtr(const PackageKey &)>;

    /** The future records of a package, one for each architecture of the repository; none: architectureRefusal(). */
    static QVector<PackageInfo> records(const PackageInfo &package, const Target &target);
    /** What the repository must get so that the package can go in; empty when that is nothing, or would not do. */
    static RepositoryExtension lacking(const PackageInfo &package, const Target &target);
    /** How the version of an added package compares with the present one; nothing when dpkg refuses one of them. */
    static std::optional<RepoEnums::ErrorCode> collision(const QString &version, const QString &present);
    /**
     * The packages that must go before the file of `record` can come into the place of `present`, which is the first of
     * them. `find` looks packages of the repository up.
     */
    static QList<PackageInfoPtr> inTheWay(const PackageInfo &present,
                                          const PackageInfo &record,
                                          const QStringList &architectures,
                                          const Find &find);

    // Texts for the user: why a package cannot go in.

    /** Whatever is known beforehand of what reprepro or dpkg would refuse about a record; empty: nothing. */
    static QString refusal(const PackageInfo &record, const Target &target);
    static QString architectureRefusal(const PackageInfo &package, const RepoInfo &info);
    static QString componentRefusal(const QString &component, const RepoInfo &info);
    static QString installerRefusal(const QString &component);
};
