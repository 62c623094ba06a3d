// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

/** The words for restore points and their changes. */
class HistoryText
{
    Q_DECLARE_TR_FUNCTIONS(HistoryText)
public:
    /** How many packages changed in each way. */
    struct Counts
    {
        int added = 0;
        int replaced = 0;
        int removed = 0;

        void add(PackageChange::Kind kind);
        static Counts of(const QVector<PackageChange> &changes);
        int all() const { return added + replaced + removed; }
    };

    /** "3 added, 1 replaced"; says so when nothing changed. */
    static QString counts(const Counts &counts);
    static QString kind(PackageChange::Kind kind);
    /** When the job ended, in the user's time zone. */
    static QString time(const RestorePoint &point);
    /** What the job said of itself, or who made the change. */
    static QString title(const RestorePoint &point);
    /** title() with counts(). `counts` can be those of a part. */
    static QString change(const RestorePoint &point, const Counts &counts);
    /** Whether the state before the point was kept, and why not. */
    static QString state(const RestorePoint &point);
    /** Names the state before the point. */
    static QString before(const RestorePoint &point);
    /** The first changes, a line each, and how many more there are. */
    static QString firstRows(const QVector<PackageChange> &changes);
};
