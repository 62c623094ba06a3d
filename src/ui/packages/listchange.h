// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QVector>

/** One change of a repository's package list, in the order of the engine's changes. */
struct ListChange
{
    enum Kind : quint8 {
        Cleared, ///< the repository changed or was closed: no package is left
        Stored, ///< the package is new, or its record was replaced
        Removed
    };

    Kind kind = Cleared;
    PackageInfoPtr package; ///< null for Cleared
};

using ListChanges = QVector<ListChange>;
