// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Makes a tool tip show the text as it stands: one that looks like markup would be read as such, and it can come from
 * anybody's package. A very long text is cut, because a tool tip is laid out as a whole.
 */
QString toolTipText(const QString &text);
