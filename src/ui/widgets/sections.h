// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** Readable names of the sections of the Debian archive. */
namespace Sections
{
/** The translated name of a section. A code that is not in the table is returned unchanged. Case matters. */
QString displayName(const QString &code);
/** "Name (code)" for a code in the table, only the code for any other. */
QString nameWithCode(const QString &code);
} // namespace Sections
