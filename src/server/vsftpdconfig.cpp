// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/vsftpdconfig.h"

#include "server/inivalue.h"

#include <QStringList>

namespace
{
/** The names that a configuration gives values to, in their order, each with a blank behind it. */
QString keysOf(const QString &config)
{
    QString keys;
    const QStringList lines = config.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        keys += line.section(QLatin1Char('='), 0, 0) + QLatin1Char(' ');
    return keys;
}
} // namespace

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

QString guard(const QString &path)
{
    // What the path leads to when it is bound may be another directory than the one that is there without a link; then
    // nothing is served. Reading the configuration anew would bring back its path.
    return QStringLiteral(
               R"(# Written by velt-admin-repo-helper for the repository that is published over FTP, and removed with it.
[Service]
BindReadOnlyPaths=-"%1":/run/velt-admin-repo-ftp
ExecStart=
ExecStart=/bin/sh -c "grep -qxF 'anon_root=%1' /etc/vsftpd.conf \
    || if [ \"$$(cut -d= -f1 /etc/vsftpd.conf | tr '\\n' ' ')\" = '%2' ]; \
    then echo 'Another directory is to be published than %1.' >&2; exit 1; \
    else exec /usr/sbin/vsftpd /etc/vsftpd.conf; fi; \
    cd '%1' && [ \"$$(/bin/pwd -P)\" = '%1' ] \
    && [ \"$$(stat -c %%d:%%i .)\" = \"$$(stat -c %%d:%%i /run/velt-admin-repo-ftp)\" ] \
    || { echo 'The directory %1 is not there, or reached through a link.' >&2; exit 1; }; \
    cd / && exec /usr/sbin/vsftpd /etc/vsftpd.conf -oanon_root=/run/velt-admin-repo-ftp"
ExecReload=
)")
        .arg(path, keysOf(text(path, 0)));
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
