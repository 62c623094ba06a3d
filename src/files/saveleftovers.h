// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Temporary files that killed programs left while they saved a file. */
namespace SaveLeftovers
{
enum Age {
    Untouched, ///< older than a minute: another program can be saving the file right now
    Any ///< for somebody who has locked the file
};
/** Deletes the temporary files of `fileName` (by QSaveFile, and so QSettings) that are of this age. */
void remove(const QString &fileName, Age age = Untouched);
} // namespace SaveLeftovers
