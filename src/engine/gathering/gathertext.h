// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/gathering/gatherplan.h"

#include <QCoreApplication>

/** The words for what stays missing. */
class GatherText
{
    Q_DECLARE_TR_FUNCTIONS(GatherText)
public:
    /** The names of those that need the row's package; of many, the first and how many more. */
    static QString neededBy(const GatherPlan::Row &row);
    /** Why the entry is not met, as a sentence. */
    static QString reason(const GatherPlan::Left &left);
    /** Whose entry it is, the entry, and the reason. */
    static QString line(const GatherPlan::Left &left);
    /** One line for each entry. */
    static QStringList lines(const QVector<GatherPlan::Left> &left);
    /** How many entries are not met, as a sentence; that none is left, too. */
    static QString summary(const QVector<GatherPlan::Left> &left);
};
