// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

/** What the answers of the sources mean for a dependency, an entry and a package. */
namespace DependsRules
{
/** Whether the version meets every constraint of the dependency; one without constraints is met by any. */
bool isSatisfiedBy(const Dependency &dependency, const QString &version);

/**
 * What each source offers for the dependency, by its label: of several versions the highest that satisfies it, or
 * else the highest.
 */
QMap<QString, FoundVersion> foundVersions(const Dependency &dependency, const QVector<Candidate> &candidates);

/**
 * The packages among `providers` that can stand for the dependency, each as a dependency that is still to be checked:
 * with the same constraints, or on just the version that provides the name as one that meets them. A package that
 * gives versions to what it provides and none that fits cannot stand for it, and is left out, as is the name itself.
 */
QVector<Dependency> providerDependencies(const Dependency &dependency, const QVector<Provider> &providers);

/** Success when a source has a satisfying version, else error. */
DependStatus dependencyStatus(const QMap<QString, FoundVersion> &found);

/** The best of its alternatives. */
DependStatus groupStatus(const DependencyGroup &group);

/** Error as soon as one entry is in error, else undefined if one is undefined; success also without entries. */
DependStatus packageStatus(const QMap<QString, DependencyGroup> &groups);
} // namespace DependsRules
