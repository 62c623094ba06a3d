// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

/**
 * Shows a help page, "name.html" or "name.html#anchor" (the table of contents when empty), in the program's only help
 * window. The window can be used while `parent` is open as a modal dialog. False when the pages are not installed.
 */
bool veltHelpShow(QWidget *parent, const QString &page = {});
