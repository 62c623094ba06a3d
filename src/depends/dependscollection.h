// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "depends/localcandidates.h"

/**
 * The packages of the repository that `packages` depend on, directly and through one another, each once and without
 * `packages` themselves. Of every entry only the first name is looked at, and not its constraint; of several versions
 * the highest is taken. What the repository lacks is passed over.
 */
QList<PackageInfoPtr> localDependencies(const QList<PackageInfoPtr> &packages, const LocalCandidates &local);

/** An entry of dependencies that is not met, as the field writes it. */
struct UnmetEntry
{
    QString text;
    QStringList packages; ///< the names of those that need it, sorted
};

/** What the packages need and none of them is or provides, sorted. Ends early, with nothing, when it was stopped. */
QVector<UnmetEntry> unmetEntries(const QList<PackageInfoPtr> &packages, const StopRequest &stopped = {});
