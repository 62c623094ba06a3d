// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"
#include "engine/changes/addoptions.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/** Packages of a repository that are to be copied into another one, or into another component of the same. */
struct CopySource
{
    QString path; ///< of their repository
    QList<PackageInfoPtr> packages; ///< those that the user has chosen
    QList<PackageInfoPtr> all
        = {}; ///< of the repository, where they are to move or to come with what they need
    bool withDepends = false; ///< also what they depend on and the target lacks
    bool moves = false; ///< within one repository: they leave the components that they are in

    /** What leaves with the chosen packages: those of all architectures that one of their files serves. */
    QList<PackageInfoPtr> leaving() const;
};

/** The files of a copy, and what is known of them. */
struct CopyPlan
{
    Q_DECLARE_TR_FUNCTIONS(RepoShell)
public:
    QStringList files; ///< absolute paths, each once, in the order of the packages
    std::shared_ptr<const CopiedFiles> copied;
    QHash<QString, PackageInfoPtr> packages; ///< one of each file, by path

    /**
     * Looks into the indices of the source: not for the interface thread. `component` is that of the target; empty:
     * each package goes into the one that it is in. `present` are the packages of the target.
     */
    static CopyPlan of(const CopySource &source,
                       const QString &component,
                       const QList<PackageInfoPtr> &present,
                       const std::function<bool()> &stopped);
};
