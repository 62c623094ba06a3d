// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Readers of single values out of "key=value" texts with "[Section]" lines, as unit files and vsftpd's configuration
 * are. Values are taken as they stand: the characters that a general INI reader gives a meaning to (',' ';' '\' '"')
 * are ordinary parts of a path here.
 */
namespace IniValue
{
/** The value of the last line of this key; of lines before the first section when `section` is empty. */
QString find(const QString &text, const QString &section, const QString &key);
/** The last blank-separated word of a value as a decimal number; 0 when it is none. */
int lastNumber(const QString &value);
} // namespace IniValue
