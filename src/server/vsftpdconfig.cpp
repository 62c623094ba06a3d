// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/vsftpdconfig.h"

#include "server/inivalue.h"

#include <QStringList>

namespace
{
/** The keys of a configuration in their order, each followed by a blank. */
QString keysOf(const QString &config)
{
    QString keys;
    const QStringList lines = config.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        keys += line.section(QLatin1Char('='), 0, 0).trimmed() + QLatin1Char(' ');
    return keys;
}

/** Whether vsftpd reads the value as yes; `usual` is the default for a missing key. */
bool isSet(const QString &config, const QString &key, bool usual)
{
    const QString value = IniValue::find(config, {}, key).toUpper();
    return value.isEmpty() ? usual
                           : value == QLatin1String("YES") || value == QLatin1String("TRUE")
                                 || value == QLatin1String("1");
}

/** The command by which a guard shows its directory. */
QString mountCommand(const QString &path)
{
    return QStringLiteral("velt-admin-repo-mount '%1' /run/velt-admin-repo-ftp").arg(path);
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
    // The shell condition reads the configuration as vsftpd does: it skips leading blanks and uses the last of several
    // lines. If the configuration is ours but for another directory, the server must not start without the mount, with
    // or without added lines. ExecReload is cleared, because a reload would bring back the path of the configuration. A
    // server with another configuration usually works without the refused system calls, so such a call gives EPERM and
    // does not kill it.
    return QStringLiteral(
               R"(# Written by velt-admin-repo-helper for the repository that is published over FTP,
# and removed with it.
[Service]
RuntimeDirectory=velt-admin-repo-ftp
ExecStart=
ExecStart=/bin/sh -c "[ \"$$(sed -n 's/^[[:space:]]*anon_root=//p' /etc/vsftpd.conf | tail -n 1)\" = '%1' ] \
    || case \"$$(cut -d= -f1 /etc/vsftpd.conf | tr -d ' \\t' | tr '\\n' ' ')\" in '%2'*) \
    echo 'Another directory is to be published than %1.' >&2; exit 1 ;; \
    *) exec /usr/sbin/vsftpd /etc/vsftpd.conf ;; esac; \
    exec %3/%4 \
    /usr/bin/setpriv --bounding-set=-all,+sys_chroot,+setuid,+setgid,+net_bind_service \
    /usr/sbin/vsftpd /etc/vsftpd.conf -oanon_root=/run/velt-admin-repo-ftp/public '-odeny_file=.*' '-ohide_file=.*'"
ExecReload=

# For the start: CAP_SYS_ADMIN, CAP_DAC_READ_SEARCH and CAP_SETPCAP.
CapabilityBoundingSet=CAP_SYS_ADMIN CAP_DAC_READ_SEARCH CAP_SETPCAP
CapabilityBoundingSet=CAP_SYS_CHROOT CAP_SETUID CAP_SETGID CAP_NET_BIND_SERVICE
LockPersonality=yes
MemoryDenyWriteExecute=yes
NoNewPrivileges=yes
PrivateDevices=yes
PrivateIPC=yes
PrivateTmp=yes
ProtectClock=yes
ProtectControlGroups=yes
ProtectHostname=yes
ProtectKernelLogs=yes
ProtectKernelModules=yes
ProtectKernelTunables=yes
ProtectProc=invisible
ProtectSystem=full
RestrictAddressFamilies=AF_INET AF_INET6 AF_NETLINK AF_UNIX
RestrictNamespaces=mnt
RestrictRealtime=yes
RestrictSUIDSGID=yes
SystemCallArchitectures=native
SystemCallErrorNumber=EPERM
SystemCallFilter=@system-service @mount
SystemCallFilter=~@resources
)")
        .arg(path, keysOf(text(path, 0)), QStringLiteral(VELT_LIBEXECDIR), mountCommand(path));
}

bool isOurs(const QString &config)
{
    const PublishedRepo repo = read(config);
    return config == text(repo.path, repo.port);
}

bool isGuarded(const QString &config, const QString &guard)
{
    const QString path = read(config).path;
    return !path.isEmpty() && guard.contains(mountCommand(path))
           && isSet(config, QStringLiteral("anonymous_enable"), true)
           && !isSet(config, QStringLiteral("local_enable"), false);
}

QByteArray additions(const QByteArray &config, const QString &guard)
{
    const QString ownKeys = keysOf(text({}, 0));
    const QString configText = QString::fromUtf8(config);
    if (!isGuarded(configText, guard) && !keysOf(configText).startsWith(ownKeys))
        return {};
    const QList<QByteArray> own = ownKeys.toLatin1().split(' ');
    QByteArray added;
    // As bytes, because a comment can have any encoding.
    const QList<QByteArray> lines = config.split('\n');
    for (const QByteArray &line : lines)
        if (!line.isEmpty() && !own.contains(line.split('=').constFirst().trimmed()))
            added += line + '\n';
    return added;
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
