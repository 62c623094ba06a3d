// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "core/repoinfo.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

/** A change of a repository's description, and what it does to the packages. */
struct RepoChange
{
    RepoInfo before;
    RepoInfo after;
    bool carries = false; ///< whether packages are carried over to a new code name

    bool isRenaming() const { return before.codename != after.codename; }
    /** Whether the new description lacks a place that the old one has. */
    bool dropsPlaces() const;
    /** Whether the place where the package is listed is there after the change, with the package in it. */
    bool keepsPlace(const PackageInfo &package) const;
    /** Those of which no copy stays: their files go. One record for each file. */
    QList<PackageInfoPtr> lost(const QList<PackageInfoPtr> &packages) const;

    /** The new architectures that get the architecture-independent packages of the others. */
    QStringList floodedArchitectures(const QList<PackageInfoPtr> &packages) const;
    /**
     * The description under which reprepro can carry packages over: it names the old places and the new ones. `old` is
     * the text of the description in force.
     */
    QByteArray bridge(const QByteArray &old) const;
};
