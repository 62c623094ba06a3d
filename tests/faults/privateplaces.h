// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/**
 * Gives this program and its children private instances of /tmp, /var/tmp, /dev/shm and /srv. It needs root.
 * Files in them are deleted at the end, and other programs do not meet things that are broken on purpose.
 */
namespace PrivatePlaces
{
/** Call it before any thread starts. False when it is not permitted. */
bool enter();
} // namespace PrivatePlaces
