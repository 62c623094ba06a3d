// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/plaintooltip.h"

#include <QTextDocument>

QString plainToolTip(const QString &text)
{
    // Escaped only where it would be taken for markup: elsewhere the escapes themselves would be shown, and read out.
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}
