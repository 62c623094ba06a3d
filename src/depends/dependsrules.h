// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

/** Rules that turn the answers of sources into the state of a dependency, an entry and a package. */
namespace DependsRules
{
/** Whether the version meets all constraints of the dependency. Without constraints every version does. */
bool isSatisfiedBy(const Dependency &dependency, const QString &version);

/**
 * The version that each source offers for the dependency, by source label: the highest satisfying version, or else the
 * highest version.
 */
QMap<QString, FoundVersion> foundVersions(const Dependency &dependency, const QVector<Candidate> &candidates);

/**
 * The members of `providers` that can replace the dependency, each as a new dependency that must still be checked. It
 * has the same constraints, or it requires exactly the version of the package that provides a suitable version of the
 * name. A package whose provided versions all fail the constraint is left out, and so is a package with the name
 * itself.
 */
QVector<Dependency> providerDependencies(const Dependency &dependency, const QVector<Provider> &providers);

/** Success when a source has a satisfying version, else error. */
DependStatus dependencyStatus(const QMap<QString, FoundVersion> &found);

/** The best status of the alternatives. */
DependStatus groupStatus(const DependencyGroup &group);

/** Error when at least one entry is in error; else undefined when at least one is undefined; else success. */
DependStatus packageStatus(const QVector<DependencyGroup> &groups);
} // namespace DependsRules
