// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** How files are added to a repository. */
struct AddOptions
{
    QString component; ///< replaces the component of every package; empty: the package's own
    bool sign = false; ///< sign a copy of each file and add that
    QString signKeyId; ///< the key to sign with
};
