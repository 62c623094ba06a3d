// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * How this machine's apt reads a repository in a local directory. Apt reads as the user "_apt" where that user may read
 * everything. From a directory that is closed to that user, apt copies as root.
 */
struct AptAccess
{
    enum Way {
        NoWay, ///< a source line cannot name the directory, or its file system may refuse root
        ByRoot, ///< the folders above or the indexes are closed to others
        ByAnybody
    };

    Way way = NoWay;
    /** Only root and the user of this program can change what apt reads, also after the directory was deleted. */
    bool isGuarded = false;

    /** Looks at every served file in this directory, whose path is canonical. Slow: not for the interface thread. */
    static AptAccess examine(const QString &directory);
    /** Whether this machine's apt has what fetches over FTP, even if it must be told to use it; newer ones have not. */
    static bool hasFtp();
};
