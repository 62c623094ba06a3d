// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/dependsinfo.h"
#include "core/packageinfo.h"

#include <QVector>

/** What to fetch so that a repository itself meets its dependencies, according to the results of a check. */
namespace DependencyLacks
{
/**
 * Adds the alternative to fetch for this entry: the first one that another source offers, or else the first. Nothing is
 * added for an entry that was not checked or that the repository meets, and no name twice for one architecture.
 */
void collect(const DependencyGroup &group, QVector<Dependency> *lacks);

/** The same for all entries of these packages. */
QVector<Dependency> of(const QList<PackageInfoPtr> &packages);
} // namespace DependencyLacks
