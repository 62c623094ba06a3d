// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * How this machine's apt gets at a repository in a local directory. It reads with the rights of a user of its own,
 * "_apt", as long as that one finds everything; a directory that is closed to him, apt lets root copy from.
 */
struct AptAccess
{
    enum Way {
        NoWay, ///< a source line cannot name the directory, or root may be locked out of its file system
        ByRoot, ///< the folders above or the indexes are closed to others
        ByAnybody
    };

    Way way = NoWay;
    /** Nobody but root and the user of this program can change what apt reads, now or when the directory has gone. */
    bool isGuarded = false;

    /** Looks at every file that is served, in the directory with this canonical path: not for the interface thread. */
    static AptAccess examine(const QString &directory);
};
