// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/**
 * Gives this program and its children a /tmp, /var/tmp, /dev/shm, /srv and /etc of their own, where it may (it needs
 * root): what they leave there goes with them, and nobody else's programs meet what is broken on purpose.
 */
namespace PrivatePlaces
{
/** To be called before there are threads; false when it is not allowed. */
bool enter();
} // namespace PrivatePlaces
