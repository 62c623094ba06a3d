// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QSettings;
class QWidget;

/**
 * Stores where `window` stands and how large it is below a group with its class name; with `saveState` also where
 * the tool bars and docks of a main window are.
 */
void veltSaveGeometry(QWidget *window, QSettings &settings, bool saveState);

/**
 * Puts `window` back to what veltSaveGeometry() stored. Without a usable record it gets `defaultRect`. Either way it
 * ends up, with its title bar, on a screen that is there now, no larger than that screen.
 */
void veltRestoreGeometry(QWidget *window, QSettings &settings, const QRect &defaultRect, bool restoreState);
