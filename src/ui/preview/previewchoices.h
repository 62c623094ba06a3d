// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/preview/changepreview.h"

namespace PreviewChoices
{
/**
 * Switches the rows of a preview that was made anew as the user had switched them in the earlier one. A row for which
 * another version is there, or comes, keeps its own choice: the user has not seen it. False when nothing was switched.
 */
bool carryOver(const ChangePreview &earlier, ChangePreview *anew);
} // namespace PreviewChoices
