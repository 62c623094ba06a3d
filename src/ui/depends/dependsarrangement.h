// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSet>
#include <QString>

/** The user's settings for the dependency trees; the same in every tab. */
struct DependsArrangement
{
    QSet<int> hiddenStates; ///< states whose rows are hidden
    QMap<QString, int> columnWidths; ///< in pixels, by source; only for columns that the user has resized
};
