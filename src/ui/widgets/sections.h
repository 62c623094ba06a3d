// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The readable names of Debian's archive sections. */
namespace Sections
{
/** The translated name of a section; a code that the table lacks is returned as it is. Case matters. */
QString displayName(const QString &code);
/** "Name (code)" for a code of the table, the code alone for any other. */
QString nameWithCode(const QString &code);
} // namespace Sections
