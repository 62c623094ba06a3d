// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/**
 * Tells the desktop which program this is, and makes all icon names of the program available: the desktop's theme comes
 * first, then breeze (or breeze-dark with a dark palette), and then our own icons for names that no theme has. Needs a
 * graphical application. Call it once after veltInit().
 */
void veltSetUpDesktop();
