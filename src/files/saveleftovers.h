// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Temporary files that killed programs left while they saved a file. */
namespace SaveLeftovers
{
/** Deletes the temporary files of `fileName` (by QSaveFile, and so QSettings) that are older than a minute. */
void remove(const QString &fileName);
} // namespace SaveLeftovers
