// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"

/** What a source has to meet dependencies with. */
struct DependsOffers
{
    QList<PackageInfo>
        packages; ///< each once, in the order of the dependencies; known by name, version, architecture
    QVector<Dependency> missing; ///< what nothing is offered for
};

/**
 * For every dependency the highest version that meets it or, where nothing of its name does, the first package by name
 * that stands for it. What a stop request has kept from being asked counts as missing.
 */
DependsOffers
findOffers(const QVector<Dependency> &dependencies, CandidateSource *source, const StopRequest &stopped = {});
