// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

class QRegularExpression;

/** The readable names of Debian's archive sections. */
namespace Sections
{
/** The codes of the table, in its order. */
QStringList codes();
/** The translated name of a section; a code that the table lacks is returned as it is. Case matters. */
QString displayName(const QString &code);
/** "Name (code)" for a code of the table, the code alone for any other. */
QString nameWithCode(const QString &code);

/** What stands between the first "[" and the last "]"; empty when there is no such pair. */
QString textInBrackets(const QString &text);
/** The first entry that matches; empty when none does. */
QString firstMatch(const QStringList &entries, const QRegularExpression &pattern);
} // namespace Sections
