// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

/** A change of a repository's description, and its effects on the packages. */
struct RepoChange
{
    RepoInfo before;
    RepoInfo after;
    bool carries = false; ///< whether packages are copied to a new code name

    bool isRenaming() const { return before.codename != after.codename; }
    /** Whether the old description has a component or architecture that the new one lacks. */
    bool dropsPlaces() const;
    /** Whether the package is still in its component and architecture after the change. */
    bool keepsPlace(const PackageInfo &package) const;
    /** The packages that are lost: no copy stays, and their files are deleted. One record for each file. */
    QList<PackageInfoPtr> lost(const QList<PackageInfoPtr> &packages) const;

    /** The new architectures that receive the architecture-independent packages of the others. */
    QStringList floodedArchitectures(const QList<PackageInfoPtr> &packages) const;
    /** Their records there: of several versions of a package in one component, reprepro takes the newest. */
    QList<PackageInfoPtr> flooded(const QList<PackageInfoPtr> &packages) const;
    /** What the repository holds after the change: the packages that keep their places, and the copies of flooding. */
    QList<PackageInfoPtr> left(const QList<PackageInfoPtr> &packages) const;
    /**
     * The temporary description with which reprepro can copy packages: it contains the old and the new components and
     * architectures. `old` is the text of the present description.
     */
    QByteArray bridge(const QByteArray &old) const;
};
