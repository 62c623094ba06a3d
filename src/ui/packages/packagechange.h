// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QVector>

/** One step in the life of a repository's package list, in the order the engine took it. */
struct PackageChange
{
    enum Kind : quint8 {
        Cleared, ///< another repository, or none: no package is left
        Stored, ///< the package is new or its record was replaced
        Removed
    };

    Kind kind = Cleared;
    PackageInfoPtr package; ///< null for Cleared
};

using PackageChanges = QVector<PackageChange>;
