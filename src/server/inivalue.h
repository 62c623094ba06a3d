// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/**
 * Reads single values from texts of "key=value" lines and "[Section]" lines, such as unit files and vsftpd's
 * configuration. Values are taken literally: the characters that an INI reader interprets (',' ';' '\' '"') are
 * ordinary parts of a path here.
 */
namespace IniValue
{
/**
 * The value of the last line with this key in `section`; an empty `section` means the lines before the first section.
 */
QString find(const QString &text, const QString &section, const QString &key);
/** The last word of a value, separated by blanks, as a decimal number; 0 when it is no number. */
int lastNumber(const QString &value);
} // namespace IniValue
