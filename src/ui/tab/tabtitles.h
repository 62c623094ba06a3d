// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace TabTitles
{
/**
 * What to call the repositories in these directories: each by the name of its folder, and where that is not
 * different for all, with as much of the path before it as tells those apart.
 */
QStringList of(const QStringList &paths);
} // namespace TabTitles
