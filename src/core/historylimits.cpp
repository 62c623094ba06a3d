// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/historylimits.h"

#include "core/settingskeys.h"
#include "core/storedvalues.h"

#include <QSettings>

namespace
{
int storedCount(const QSettings &settings, const QString &key, int usual)
{
    bool isNumber = false;
    const int count = settings.value(key).toInt(&isNumber);
    return isNumber && count >= 0 ? count : usual;
}
} // namespace

HistoryLimits HistoryLimits::load(const QSettings &settings)
{
    HistoryLimits limits;
    limits.isOn = storedBool(settings, SettingsKey::HistoryIsOn, limits.isOn);
    limits.points = storedCount(settings, SettingsKey::HistoryPoints, limits.points);
    limits.days = storedCount(settings, SettingsKey::HistoryDays, limits.days);
    bool isNumber = false;
    const qint64 bytes = settings.value(SettingsKey::HistorySize).toLongLong(&isNumber);
    if (isNumber && bytes >= 0)
        limits.size = bytes;
    return limits;
}

void HistoryLimits::save(QSettings &settings) const
{
    settings.setValue(SettingsKey::HistoryIsOn, isOn);
    settings.setValue(SettingsKey::HistoryPoints, points);
    settings.setValue(SettingsKey::HistoryDays, days);
    settings.setValue(SettingsKey::HistorySize, size);
}
