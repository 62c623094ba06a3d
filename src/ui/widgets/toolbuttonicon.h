// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QAction;
class QToolBar;

/**
 * Gives the button of `action` in `toolBar` a theme icon, when the action itself has none. A button with text would
 * push the buttons after it out of view. The text is shown as a tool tip. Without such an icon in the theme nothing
 * changes.
 */
void setToolButtonIcon(QToolBar *toolBar, QAction *action, const QString &iconName);
