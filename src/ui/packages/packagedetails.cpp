// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packagedetails.h"

#include "core/countof.h"

#include <QStringList>

QString PackageDetails::descriptionHtml(const QString &description)
{
    QStringList lines = description.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = line == QLatin1String(" .") ? QString() : line.toHtmlEscaped();
    lines.first() = QStringLiteral("<b>%1</b>").arg(lines.constFirst());
    return lines.join(QLatin1String("<br>"));
}

QString PackageDetails::summary(const QList<PackageInfoPtr> &packages, const RepoInfo &info)
{
    return tr("%n package(s): %1", nullptr, countOf(packages)).arg(names(packages, info));
}

QString PackageDetails::names(const QList<PackageInfoPtr> &packages, const RepoInfo &info, Meant meant)
{
    constexpr int NamesShown = 5;
    const bool hasSeveral = info.binaryArchitectures().size() > 1;
    QStringList names;
    for (const PackageInfoPtr &package : packages.mid(0, NamesShown)) {
        const QString architecture
            = meant == Meant::Files ? package->ownArchitecture() : package->architecture;
        names << (hasSeveral ? tr("%1 (%2)").arg(package->name, architecture) : package->name);
    }
    if (packages.size() > NamesShown)
        names << QString(QChar(0x2026));
    return names.join(QLatin1String(", "));
}
