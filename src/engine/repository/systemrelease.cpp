// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/systemrelease.h"

#include "core/processutils.h"

#include <QFile>
#include <QStringList>

QString SystemRelease::codename()
{
    ProcessUtils lsbRelease;
    if (!lsbRelease.run(QStringLiteral("lsb_release"), {QStringLiteral("-cs")}))
        return {};
    return lsbRelease.output().trimmed();
}

QString SystemRelease::version()
{
    QFile file(QStringLiteral("/etc/orlan_version"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return versionFromText(QString::fromLocal8Bit(file.readAll()));
}

QString SystemRelease::versionFromText(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    return words.size() == 3 ? words.at(1) : text.trimmed();
}
