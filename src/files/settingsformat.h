// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSettings>

/**
 * Qt's INI format for settings, with one difference: when the disk is full, saving fails and the file stays unchanged.
 * Qt's own format would replace it with a truncated file (see WholeFile), and settings would be lost.
 */
namespace SettingsFormat
{
/** The format for settings that are opened with the path of their file. */
QSettings::Format ini();
/**
 * Makes the program's own settings (QSettings without arguments) use this format. The path of their file stays the
 * same.
 */
void useForOwnSettings();
} // namespace SettingsFormat
