// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

/** How the user has arranged the dependency trees; the same in every tab. */
struct DependsArrangement
{
    QSet<int> hiddenStates; ///< rows in these states are not shown
    QMap<QString, int> columnWidths; ///< in pixels, by source; columns that were never moved are absent
};
