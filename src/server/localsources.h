// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The program's file of apt sources on this machine: each line of it holds one source. */
namespace LocalSources
{
inline const QString Path = QStringLiteral("/etc/apt/sources.list.d/velt-admin-repo.list");

/** Whether a line of `text` begins with `line`; false for an empty `line`. */
bool contains(const QString &text, const QString &line);
/** `text` with `line` as its new last line; `text` itself when it already contains the line. */
QString appended(const QString &text, const QString &line);
/** `text` without all lines that are equal to `line`. */
QString removed(const QString &text, const QString &line);

/** Whether a line of the file begins with `line`; false when the file cannot be read. */
bool fileContains(const QString &line, const QString &path = Path);
} // namespace LocalSources
