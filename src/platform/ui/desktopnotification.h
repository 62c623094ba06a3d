// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Short desktop messages for a user who is looking at another window. */
namespace DesktopNotification
{
/**
 * Shows `summary` and, in smaller letters, `body` with the program's icon. Both are plain text. Returns at once.
 * Nothing happens without a session bus or without a desktop that shows notifications.
 */
void show(const QString &summary, const QString &body);
} // namespace DesktopNotification
