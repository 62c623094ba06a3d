// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QMetaType>

/**
 * What to do when a package that is being added is present already. One word of flag bits that lives for one job:
 * it starts at Ask, the user's answer replaces it, and an answer for all further packages ends the asking.
 */
struct PackageReplacementRules
{
    enum Rule : quint32 {
        Ask = 1, ///< ask at the next collision
        KeepThis = 2, ///< do not replace this one, ask again at the next
        ReplaceNone = 4, ///< never replace, never ask again
        ReplaceThis = 8, ///< replace this one, ask again at the next
        PreferHigher = 16, ///< replace only what is older than the file, never ask again
        PreferLower = 32, ///< replace only what is newer than the file, never ask again
        ReplaceAll = 48 ///< always replace, never ask again
    };

    quint32 value = Ask;

    /** True as long as the user has made no choice for the rest of the job. */
    bool mustAsk() const { return (value & (Ask | KeepThis | ReplaceThis)) != 0; }

    /** Whether these rules replace the present package; `collision` compares the present one with the file. */
    bool replaces(RepoEnums::ErrorCode collision) const
    {
        switch (collision) {
        case RepoEnums::PACKAGE_EXISTS_OLD_VERSION:
            return (value & (ReplaceThis | PreferHigher)) != 0;
        case RepoEnums::PACKAGE_EXISTS_NEW_VERSION:
            return (value & (ReplaceThis | PreferLower)) != 0;
        case RepoEnums::PACKAGE_EXISTS:
            return (value & ReplaceThis) != 0 || value == ReplaceAll;
        default:
            return false;
        }
    }
};

Q_DECLARE_METATYPE(PackageReplacementRules *)
