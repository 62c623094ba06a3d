// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewrules.h"

#include "engine/preview/changepreview.h"

bool PreviewRules::isDue(PreviewWhen when, const ChangePreview &preview)
{
    switch (when) {
    case PreviewAlways:
        return true;
    case PreviewWhenBreaking:
        return preview.breaksSomething();
    case PreviewNever:
        return false;
    }
    return false;
}

bool PreviewRules::isNeeded(PreviewWhen when)
{
    return when != PreviewNever;
}

PreviewWhen PreviewRules::whenFrom(int stored)
{
    return stored >= PreviewAlways && stored <= PreviewNever ? static_cast<PreviewWhen>(stored)
                                                             : PreviewWhenBreaking;
}
