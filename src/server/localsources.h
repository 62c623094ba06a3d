// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The sources of this machine's apt that the program keeps: a file with one source line a line. */
namespace LocalSources
{
inline const QString Path = QStringLiteral("/etc/apt/sources.list.d/velt-admin-repo.list");

/** Whether a line of `text` begins with `line`. An empty line is never there. */
bool contains(const QString &text, const QString &line);
/** `text` with `line` as its last line, or `text` itself when it contains the line. */
QString appended(const QString &text, const QString &line);
/** `text` without the lines that are exactly `line`. */
QString removed(const QString &text, const QString &line);

/** Whether a line of the file begins with `line`; false when the file cannot be read. */
bool fileContains(const QString &line, const QString &path = Path);
} // namespace LocalSources
