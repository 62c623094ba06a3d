// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packagedetails.h"

#include <QStringList>

QString PackageDetails::descriptionHtml(const QString &description)
{
    QStringList lines = description.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = line == QLatin1String(" .") ? QString() : line.toHtmlEscaped();
    lines.first() = QStringLiteral("<b>%1</b>").arg(lines.constFirst());
    return lines.join(QLatin1String("<br>"));
}
