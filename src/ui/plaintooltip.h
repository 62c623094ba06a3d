// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** What to set as tool tip so that `text` is shown as it stands, even where it looks like markup. */
QString plainToolTip(const QString &text);
