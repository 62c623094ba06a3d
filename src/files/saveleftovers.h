// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What killed programs have left of files that they were saving. */
namespace SaveLeftovers
{
/** Deletes what was to become `fileName` (by QSaveFile, and so QSettings), where nobody has written for a minute. */
void remove(const QString &fileName);
} // namespace SaveLeftovers
