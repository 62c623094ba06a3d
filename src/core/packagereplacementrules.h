// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"

#include <QMetaType>

/**
 * Decides what to do when a package that is being added is already in the repository. The value is a set of flags for
 * one job. It starts as Ask. The user's answer replaces it, and an answer for all further packages ends the questions.
 */
struct PackageReplacementRules
{
    enum Rule : quint32 {
        Ask = 1, ///< ask at the next collision
        KeepThis = 2, ///< do not replace this package, ask again at the next collision
        ReplaceNone = 4, ///< never replace, never ask again
        ReplaceThis = 8, ///< replace this package, ask again at the next collision
        PreferHigher = 16, ///< replace a package only when the file is newer, never ask again
        PreferLower = 32, ///< replace a package only when the file is older, never ask again
        ReplaceAll = 48 ///< always replace, never ask again
    };

    quint32 value = Ask;

    /** True as long as the user has made no choice for the rest of the job. */
    bool mustAsk() const { return (value & (Ask | KeepThis | ReplaceThis)) != 0; }

    /** Whether the package in the repository is replaced; `collision` says how it compares with the file. */
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
