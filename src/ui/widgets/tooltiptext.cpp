// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/tooltiptext.h"

#include <QTextDocument>

QString toolTipText(const QString &text)
{
    constexpr int Longest = 4000;
    const QString shown = text.size() > Longest ? text.left(Longest) + QChar(0x2026) : text;
    // Escaped only when Qt would read it as markup; otherwise the escapes themselves would be visible.
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}
