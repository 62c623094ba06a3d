// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QVector>

/** State of a dependency and of a package. The order matters: a group of alternatives takes the greatest state. */
enum DependStatus : qint32 {
    DependUndefined = -1, ///< not checked, or no source could be asked
    DependError = 0, ///< no source offers the needed package
    DependSuccess = 1
};

/** What one source offers for a dependency. */
struct FoundVersion
{
    QString version;
    DependStatus status = DependUndefined; ///< whether this version satisfies the constraints

    friend bool operator==(const FoundVersion &a, const FoundVersion &b)
    {
        return a.version == b.version && a.status == b.status;
    }
};

/** One alternative of an entry, with the result of the last check. */
struct Dependency
{
    QString name;
    QString architecture; ///< the architecture for which the package is looked up
    QString op; ///< comparison as dpkg writes it; empty without a constraint
    QString version;
    QString secondOp; ///< for a field that constrains one name twice; both constraints must hold
    QString secondVersion;
    DependStatus status = DependUndefined;
    QMap<QString, FoundVersion> foundVersions; ///< by source label
    QMap<QString, Dependency> providers; ///< by package name; only when no package has the wanted name

    friend bool operator==(const Dependency &a, const Dependency &b)
    {
        return a.name == b.name && a.architecture == b.architecture && a.op == b.op && a.version == b.version
               && a.secondOp == b.secondOp && a.secondVersion == b.secondVersion && a.status == b.status
               && a.foundVersions == b.foundVersions && a.providers == b.providers;
    }
};

/** One entry of Depends or Pre-Depends: its alternatives in the written order, and the best of their states. */
struct DependencyGroup
{
    DependStatus status = DependUndefined;
    QVector<Dependency> alternatives;
    bool isPreDepends = false;
    QString key = {}; ///< differs within a package: the name of the first alternative, or another free text
};

/** The entries with their keys, in the order of the keys. Packages keep this list, which is far smaller than a map. */
inline QVector<DependencyGroup> sortedGroups(const QMap<QString, DependencyGroup> &byKey)
{
    QVector<DependencyGroup> result;
    result.reserve(byKey.size());
    for (auto group = byKey.cbegin(); group != byKey.cend(); ++group) {
        result.append(*group);
        result.last().key = group.key();
    }
    return result;
}

/** The result of a package's dependency check. */
struct DependsInfo
{
    DependStatus status = DependUndefined;
    QVector<DependencyGroup> groups; ///< in the order of their keys
    int selection = 0; ///< the DependsRepoType of the check; 0 when it is not known
};
