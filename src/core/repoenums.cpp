// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/repoenums.h"

// moc needs a translation unit for the gadget's tables.
#include "moc_repoenums.cpp"
