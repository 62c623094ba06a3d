// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/baseoffers.h"
#include "installability/installsystem.h"

/**
 * Of what the lists offer to a system, the packages that every system has: the essential ones, and what these need. Of
 * alternatives the first one is taken, and of versions the newest.
 */
QVector<OfferList>
essentialOffers(const QVector<OfferList> &lists, const InstallSystem &system, const StopRequest &stopped);
