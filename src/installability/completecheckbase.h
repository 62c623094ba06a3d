// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/** What the packages of a repository are checked against: what else a system has at hand that uses the repository. */
struct CompleteCheckBase
{
    /** The numbers are stored and must not change. */
    enum Kind : qint32 {
        Nothing = 0, ///< the repository alone
        Essential
        = 1, ///< what every system has: the essential packages of the public sources, and what these need
        Public = 2, ///< all that the public sources offer
        Repository = 3 ///< another repository on this machine
    };

    Kind kind = Public;
    QString repository; ///< path of the other repository
    /** Further architectures of the system; the architecture of the checked packages is always its own one. */
    QStringList foreignArchitectures;

    friend bool operator==(const CompleteCheckBase &a, const CompleteCheckBase &b)
    {
        return a.kind == b.kind && a.repository == b.repository
               && a.foreignArchitectures == b.foreignArchitectures;
    }
    friend bool operator!=(const CompleteCheckBase &a, const CompleteCheckBase &b) { return !(a == b); }
};

Q_DECLARE_METATYPE(CompleteCheckBase)
