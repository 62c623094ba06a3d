// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QSettings;

/** The stored truth value; `fallback` when there is none or the entry is damaged. */
bool storedBool(const QSettings &settings, const QString &key, bool fallback);
