// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QVector>

/** State of a dependency and of a package; the order is used, combining alternatives takes the greatest. */
enum DependStatus : qint32 {
    DependUndefined = -1, ///< not checked, or nobody could be asked
    DependError = 0, ///< no source offers what is needed
    DependSuccess = 1
};

/** What one source offers for a dependency. */
struct FoundVersion
{
    QString version;
    DependStatus status = DependUndefined; ///< whether that version satisfies the constraints
};

/** One alternative of an entry, with what the last check found for it. */
struct Dependency
{
    QString name;
    QString architecture; ///< the architecture it is looked up for
    QString op; ///< comparison as dpkg writes it; empty without a constraint
    QString version;
    QString secondOp; ///< when the field constrains one name twice; both must hold
    QString secondVersion;
    DependStatus status = DependUndefined;
    QMap<QString, FoundVersion> foundVersions; ///< by source label
    QMap<QString, Dependency> providers; ///< by providing package; only when the name itself was not found
};

/** One Depends or Pre-Depends entry: its alternatives in the order written, and the best of their states. */
struct DependencyGroup
{
    DependStatus status = DependUndefined;
    QVector<Dependency> alternatives;
    bool isPreDepends = false;
};

/** The result of a package's dependency check. */
struct DependsInfo
{
    DependStatus status = DependUndefined;
    QMap<QString, DependencyGroup> groups; ///< by the name of the first alternative, while that is free
    int selection = 0; ///< the DependsRepoType that was asked; 0 when that is not known
};
