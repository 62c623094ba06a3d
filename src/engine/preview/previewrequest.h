// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/dependsinfo.h"
#include "core/packageinfo.h"
#include "core/packagereplacementrules.h"
#include "core/repoinfo.h"
#include "engine/changes/addoptions.h"
#include "engine/copying/copyplan.h"
#include "engine/gathering/gatherplan.h"
#include "engine/installability/checkscope.h"
#include "engine/preview/changepreview.h"
#include "engine/upgrade/upgraderules.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>
#include <optional>

/** The job that a preview is wanted of: what it would be started with. Only the members of its kind count. */
struct PreviewRequest
{
    ChangePreview::Kind kind = ChangePreview::Add;

    QStringList files; ///< Add
    std::optional<CopySource> copy; ///< Add: copies these packages; the files are found out then
    QString archive; ///< Import: an archive or a folder
    QList<PackageInfoPtr> packages; ///< Remove
    QList<PackageInfo> wanted; ///< Fetch: name, version and architecture
    QVector<Dependency> dependencies; ///< Fetch: the best package for each
    std::shared_ptr<const GatherPlan> gathered; ///< Fetch: the plan that `wanted` comes from
    QVector<UpgradablePackage> upgrades; ///< Upgrade
    AddOptions options; ///< Add, Fetch, Import, Upgrade
    bool extends = false; ///< Add, Fetch, Import: the repository gets first what it lacks for the packages
    /** Add, Fetch, Import: which collisions are switched on at first. */
    PackageReplacementRules collisions{PackageReplacementRules::PreferHigher};

    QString newPath; ///< Describe; empty: the repository stays where it is
    RepoInfo info; ///< Describe
    std::optional<QByteArray> given; ///< Describe: see RepoShell::changeRepo()
    bool carriesPackages = false; ///< Describe

    int point = 0; ///< Return: the number of the restore point whose state comes back
    QVector<PackageChange>
        back; ///< Add, instead of `files`: these changes of packages since `point` are taken back

    /** Against what installability is checked; nothing: what the last complete check was made against. */
    std::optional<CompleteCheckBase> base;
    QVector<RepositorySnapshot>
        others; ///< further open repositories, whose packages can need those of this one
    bool findsEffect = true; ///< false: the rows are enough
};
