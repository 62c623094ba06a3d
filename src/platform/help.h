// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/**
 * Shows the help pages in the user's browser or, where no program opens them, in a window of our own. False when the
 * pages are not installed.
 */
bool veltHelpShow(QWidget *parent);
