// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/vsftpdconfig.h"

#include "server/inivalue.h"

namespace VsftpdConfig
{
QString text(const QString &path, int port)
{
    return QStringLiteral("listen=yes\n"
                          "listen_ipv6=no\n"
                          "listen_port=%1\n"
                          "anonymous_enable=yes\n"
                          "local_enable=no\n"
                          "anon_root=%2\n"
                          "no_anon_password=yes\n"
                          "hide_ids=yes\n")
        .arg(QString::number(port), path);
}

bool isOurs(const QString &config)
{
    const PublishedRepo repo = read(config);
    return config == text(repo.path, repo.port);
}

PublishedRepo read(const QString &config)
{
    return {IniValue::lastNumber(IniValue::find(config, {}, QStringLiteral("listen_port"))),
            QStringLiteral("FTP"),
            IniValue::find(config, {}, QStringLiteral("anon_root"))};
}

bool mentionsPort(const QString &config, int port)
{
    return config.contains(QStringLiteral("listen_port=%1").arg(port));
}
} // namespace VsftpdConfig
