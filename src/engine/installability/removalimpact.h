// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "engine/installability/checkscope.h"

/** What becomes of the packages of one repository when packages go. */
struct RepositoryImpact
{
    QString path;
    QList<PackageInfoPtr> direct; ///< they need a package that goes themselves
    QList<PackageInfoPtr> lost; ///< they can be installed now, and could not be any more
};

/**
 * Who needs packages of a repository: what would be lost without them. Each question reads the lists of the base and
 * takes up to a second: for any thread but the interface's.
 */
class RemovalImpact
{
public:
    explicit RemovalImpact(CheckScope scope);

    /**
     * What becomes of the scope's repository, which comes first, and of the others when `gone` leave the repository.
     * Repositories in which nothing changes are left out. Packages that go are not among the lost ones. Nothing after a
     * stop.
     */
    QVector<RepositoryImpact> of(const QList<PackageInfoPtr> &gone, const StopRequest &stopped) const;

private:
    CheckScope m_scope;
};
