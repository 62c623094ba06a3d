// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/settingskeys.h"

struct ChangePreview;

/** When the user sees a preview without having asked for it. */
namespace PreviewRules
{
/** Whether the preview, whose effect is known, is to be shown before the job. */
bool isDue(PreviewWhen when, const ChangePreview &preview);
/** Whether a preview has to be made at all before a job, to know that. */
bool isNeeded(PreviewWhen when);
/** The user's choice, from a stored number; the default for any other number. */
PreviewWhen whenFrom(int stored);
} // namespace PreviewRules
