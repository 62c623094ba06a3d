// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

/**
 * Shows the help pages in the user's browser or, where no program opens them, in a window of our own. Says so in a
 * message box when the pages are not installed.
 */
void veltHelpShow(QWidget *parent);
