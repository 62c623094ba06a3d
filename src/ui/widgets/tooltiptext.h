// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * A text for a tool tip that shows all characters literally. Qt would interpret text that looks like markup, and the
 * text can come from anybody's package. A very long text is cut, because Qt lays out a tool tip as a whole.
 */
QString toolTipText(const QString &text);
