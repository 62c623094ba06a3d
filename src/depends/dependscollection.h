// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "depends/localcandidates.h"

/**
 * The packages of the repository that `packages` depend on, directly or indirectly, each once and without `packages`
 * themselves. Only the first name of each entry is used, without its constraint. Of several versions the highest is
 * taken. Packages that the repository lacks are skipped.
 */
QList<PackageInfoPtr> localDependencies(const QList<PackageInfoPtr> &packages, const LocalCandidates &local);

/** An unmet entry of a dependency field, as the field contains it. */
struct UnmetEntry
{
    QString text;
    QStringList packages; ///< sorted names of the packages that need it
};

/** The dependencies that none of these packages meets or provides, sorted. After a stop the result is empty. */
QVector<UnmetEntry> unmetEntries(const QList<PackageInfoPtr> &packages, const StopRequest &stopped = {});

/**
 * The packages among `offered` that must be added to `present`, beside `packages` themselves, to meet what these depend
 * on, and what those need in turn; each once. What nobody has is skipped, and so is all the rest after a stop.
 */
QList<PackageInfoPtr> missingDependencies(const QList<PackageInfoPtr> &packages,
                                          const QList<PackageInfoPtr> &present,
                                          const QList<PackageInfoPtr> &offered,
                                          const StopRequest &stopped);
