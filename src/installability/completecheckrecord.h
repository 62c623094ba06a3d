// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/completecheckbase.h"

#include <QByteArray>
#include <QDateTime>

/** What is known of the last complete check of a repository. */
struct CompleteCheckRecord
{
    CompleteCheckBase base;
    QDateTime time; ///< its end, in UTC; invalid: there was none
    /** Of the repository's packages and of what the base offered. With another one the results are stale. */
    QByteArray digest;
    bool isStale = false; ///< the packages or the base have changed since; not stored

    bool isValid() const { return time.isValid(); }

    friend bool operator==(const CompleteCheckRecord &a, const CompleteCheckRecord &b)
    {
        return a.base == b.base && a.time == b.time && a.digest == b.digest && a.isStale == b.isStale;
    }
    friend bool operator!=(const CompleteCheckRecord &a, const CompleteCheckRecord &b) { return !(a == b); }
};

Q_DECLARE_METATYPE(CompleteCheckRecord)
