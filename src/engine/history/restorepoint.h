// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/historylimits.h"
#include "engine/history/packagechange.h"

#include <QDateTime>
#include <QString>
#include <QVector>

/** One change of a repository, and the way back to the state before it. */
struct RestorePoint
{
    enum Kind : quint8 {
        Job, ///< a job of this program
        Return, ///< a job that went back to an earlier state
        Outside ///< another program; noticed when the repository was opened
    };

    int number = 0; ///< rises by one with each point of a repository
    Kind kind = Job;
    QDateTime time; ///< UTC; of the end of the job
    QString user; ///< login name
    QString summary; ///< what the job said of itself
    QVector<PackageChange> changes;
    bool isReadable = true; ///< false: the record is damaged, and nothing but the number is known
    bool changesDescription = false; ///< conf/distributions is another one since this change
    /** Whether the state before the change was kept; reason() in words of a user otherwise. */
    bool isKept = false;
    QString reason; ///< why the state was not kept; empty when it was
    qint64 size = 0; ///< bytes that deleting the point would free
};
