// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QSettings;

/** How much of the history of a repository is kept; the oldest points go first. A choice of the user. */
struct HistoryLimits
{
    bool isOn = true; ///< jobs keep what is needed to go back
    int points = 20; ///< at most
    int days = 0; ///< older ones go; 0: they stay
    qint64 size = qint64(2) << 30; ///< bytes

    /** What the user has set; the defaults where nothing sensible is stored. */
    static HistoryLimits load(const QSettings &settings);
    void save(QSettings &settings) const;

    bool operator==(const HistoryLimits &other) const
    {
        return isOn == other.isOn && points == other.points && days == other.days && size == other.size;
    }
};
