// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>
#include <QVector>

#include <array>

/** State of an item without a dependency check. */
constexpr int NoDependState = 2;

/** One node of the package tree. All nodes are in one vector; their index is their id. */
struct RepoItem
{
    enum Kind : quint8 { Repository, Component, Section, Package };

    Kind kind = Package;
    int state = NoDependState; ///< of a package; the state of a container results from its counters
    int parent = -1;
    int row = 0; ///< row in the parent
    QVector<int> children;
    std::array<int, 3> stateCounts{}; ///< number of packages below a container, by dependency state
    int packageCount = 0; ///< number of packages below a container, in any state
    int notInstallable = 0; ///< number of packages below a container that cannot be installed
    int undecided = 0; ///< number of packages below a container on which the complete check took too long
    QString code; ///< of a component or section
    QString title; ///< of a container
    PackageInfoPtr package;
    qint64 added
        = 0; ///< when its file came into the pool, in seconds since the epoch; 0: not known, -1: no file
    bool differsInArchitecture = false; ///< an adjacent package has the same name and another architecture
    bool differsInType = false; ///< an adjacent package has the same name and another type

    bool isContainer() const { return kind != Package; }

    /** State of a container: error if one package has an error, else unchecked if one package is unchecked. */
    int dependState() const
    {
        if (!isContainer())
            return state;
        if (stateCounts[DependError - DependUndefined] > 0)
            return DependError;
        if (stateCounts[0] > 0)
            return DependUndefined;
        return stateCounts[DependSuccess - DependUndefined] > 0 ? int(DependSuccess) : NoDependState;
    }

    /** What the complete check says; of a container the worst, and nothing when there is nothing bad. */
    Installability installability() const
    {
        if (!isContainer())
            return package ? package->installabilityState() : InstallabilityUnknown;
        if (notInstallable > 0)
            return NotInstallable;
        return undecided > 0 ? InstallabilityUndecided : InstallabilityUnknown;
    }
};
