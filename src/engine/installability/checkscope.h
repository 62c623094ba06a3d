// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/addedsources.h"
#include "core/packageinfo.h"
#include "installability/completecheckbase.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>

/** The packages of a repository at one moment. */
struct RepositorySnapshot
{
    QString path;
    QStringList architectures; ///< those of binary packages
    QList<PackageInfoPtr> packages;
};

/** What a question about installing is asked of. A value: any thread can work with a copy. */
struct CheckScope
{
    RepositorySnapshot repository;
    CompleteCheckBase base;
    /** Whether packages of this origin of apt's lists count; one thread may call a copy. Null: all do. */
    std::function<bool(const QString &origin)> acceptsOrigin;
    /** Further open repositories whose packages can need those of `repository`. */
    QVector<RepositorySnapshot> others;
    /** Of these the sources that the user added count like apt's, as far as their lists were fetched. */
    ExternalRepos externalRepos = {};

    /** All questions about a repository find the same lists, for whichever of its architectures they are. */
    AddedSources addedSources() const
    {
        return {externalRepos, repository.architectures + base.foreignArchitectures};
    }
};
