// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Short messages of the desktop, for a user who looks at something else at the moment. */
namespace DesktopNotification
{
/**
 * Shows `summary` and, smaller, `body` (plain text both) with the program's icon. Returns at once; without a session
 * bus, or without a desktop that shows notifications, nothing happens.
 */
void show(const QString &summary, const QString &body);
} // namespace DesktopNotification
