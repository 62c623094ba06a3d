// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>

/**
 * Qt's own INI format of settings, but for one thing: when the disk is full, saving fails and the file stays as it was.
 * With Qt's own a file that was cut takes its place (see WholeFile), and settings are lost.
 */
namespace SettingsFormat
{
/** The format, for settings that are opened by the path of their file. */
QSettings::Format ini();
/**
 * Makes the program's own settings, QSettings without arguments, use the format; the place of their file is the same.
 */
void useForOwnSettings();
} // namespace SettingsFormat
