// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packagedetails.h"

#include <QHash>
#include <QStringList>

QString PackageDetails::descriptionHtml(const QString &description)
{
    QStringList lines = description.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = line == QLatin1String(" .") ? QString() : line.toHtmlEscaped();
    lines.first() = QStringLiteral("<b>%1</b>").arg(lines.constFirst());
    return lines.join(QLatin1String("<br>"));
}

QString PackageDetails::summary(const QList<PackageInfoPtr> &packages)
{
    constexpr int NamesShown = 5;
    QHash<QString, int> counts;
    for (const PackageInfoPtr &package : packages)
        ++counts[package->name];
    QStringList names;
    for (const PackageInfoPtr &package : packages.mid(0, NamesShown))
        names << (counts.value(package->name) == 1 ? package->name
                                                   : tr("%1 (%2)").arg(package->name, package->architecture));
    if (packages.size() > NamesShown)
        names << QString(QChar(0x2026));
    return tr("%n package(s): %1", nullptr, packages.size()).arg(names.join(QLatin1String(", ")));
}
