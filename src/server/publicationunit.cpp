// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationunit.h"

#include "server/inivalue.h"

namespace PublicationUnit
{
QString serviceName(int port)
{
    return QStringLiteral("public-repo-%1").arg(port);
}

QString fileName(int port)
{
    return QStringLiteral("%1.service").arg(serviceName(port));
}

QString text(const QString &unitTemplate, const QString &path, int port)
{
    // Not with QString::arg(), which reads "%21" as one placeholder. In one pass, because the path must not be
    // searched.
    QString filled;
    filled.reserve(unitTemplate.size() + 4 * path.size());
    for (int i = 0; i < unitTemplate.size(); ++i) {
        const QStringView pair = QStringView(unitTemplate).mid(i, 2);
        if (pair == QLatin1String("%1"))
            filled += path;
        else if (pair == QLatin1String("%2"))
            filled += QString::number(port);
        else if (pair == QLatin1String("%%")) // an escaped "%" of the unit file
            filled += QLatin1String("%%");
        else {
            filled += unitTemplate.at(i);
            continue;
        }
        ++i;
    }
    return filled;
}

PublishedRepo read(const QString &unit)
{
    const QString service = QStringLiteral("Service");
    return {IniValue::lastNumber(IniValue::find(unit, service, QStringLiteral("ExecStart"))),
            QStringLiteral("HTTP"),
            IniValue::find(unit, service, QStringLiteral("WorkingDirectory"))};
}
} // namespace PublicationUnit
