// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

class QSettings;
class QWidget;

/**
 * Stores the position and size of `window` in a group with its class name. With `saveState` it also stores the tool
 * bars and docks of a main window.
 */
void veltSaveGeometry(QWidget *window, QSettings &settings, bool saveState);

/**
 * Restores the result of veltSaveGeometry(). Without a usable record the window gets `defaultRect`. In both cases the
 * window with its title bar ends on an existing screen and is not larger than this screen.
 */
void veltRestoreGeometry(QWidget *window, QSettings &settings, const QRect &defaultRect, bool restoreState);
