// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace TabTitles
{
/**
 * Titles for the repositories in these directories: the name of the folder. Equal names get as much of the path as
 * makes them different.
 */
QStringList of(const QStringList &paths);
} // namespace TabTitles
