// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/systemrelease.h"

#include "core/processutils.h"
#include "engine/distributions.h"

#include <QFile>

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
    return Distributions::systemVersionFromText(QString::fromLocal8Bit(file.readAll()));
}
