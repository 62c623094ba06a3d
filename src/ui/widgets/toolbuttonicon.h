// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QAction;
class QToolBar;

/**
 * Gives the button of `action` in `toolBar` a theme icon of its own, for an action that has none: its text would
 * push the buttons behind it out of sight. The text is shown as the tool tip. Without such an icon nothing changes.
 */
void setToolButtonIcon(QToolBar *toolBar, QAction *action, const QString &iconName);
