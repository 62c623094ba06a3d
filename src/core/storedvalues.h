// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QSettings;

/** The stored boolean; `fallback` when there is no value or the entry is damaged. */
bool storedBool(const QSettings &settings, const QString &key, bool fallback);
