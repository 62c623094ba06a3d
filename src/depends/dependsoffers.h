// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

/** The packages of a source that meet some dependencies. */
struct DependsOffers
{
    QList<PackageInfo>
        packages; ///< each once, in the order of the dependencies; identified by name, version and architecture
    QVector<Dependency> missing; ///< dependencies that the source cannot meet
};

/**
 * Finds for every dependency the highest version that meets it. When no package of this name does, it finds the first
 * provider, ordered by name. Questions that a stop request prevented count as missing.
 */
DependsOffers
findOffers(const QVector<Dependency> &dependencies, CandidateSource *source, const StopRequest &stopped = {});
