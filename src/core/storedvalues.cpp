// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/storedvalues.h"

#include <QSettings>
#include <QVariant>

bool storedBool(const QSettings &settings, const QString &key, bool fallback)
{
    // QVariant converts nearly every string to true, so a damaged entry would turn a setting on.
    const QString text = settings.value(key).toString();
    if (text == QLatin1String("true"))
        return true;
    return text == QLatin1String("false") ? false : fallback;
}
