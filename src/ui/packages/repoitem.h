// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>
#include <QVector>

#include <array>

/** State of an item that no dependency check applies to. */
constexpr int NoDependState = 2;

/** One node of the package tree. Nodes lie in one vector and name each other by their place in it, their id. */
struct RepoItem
{
    enum Kind : quint8 { Repository, Component, Section, Package };

    Kind kind = Package;
    int state = NoDependState; ///< of a package; a container's follows from its counters
    int parent = -1;
    int row = 0; ///< in the parent
    QVector<int> children;
    std::array<int, 3> stateCounts{}; ///< packages below a container, by dependency state
    int packageCount = 0; ///< packages below a container, of any state
    QString code; ///< of a component or section
    QString title; ///< of a container
    PackageInfoPtr package;
    bool differsInArchitecture = false; ///< from a package of the same name beside it
    bool differsInType = false; ///< likewise

    bool isContainer() const { return kind != Package; }

    /** One error makes a container erroneous, else one unchecked package makes it unchecked. */
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
};
