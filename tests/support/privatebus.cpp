// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/privatebus.h"

#include <QFile>

namespace
{
const QLatin1String
    configuration(R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=%1</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_type="method_call"/>
    <allow send_type="signal"/>
    <allow send_requested_reply="true" send_type="method_return"/>
    <allow send_requested_reply="true" send_type="error"/>
    <allow receive_type="method_call"/>
    <allow receive_type="signal"/>
    <allow receive_type="method_return"/>
    <allow receive_type="error"/>
    <allow send_destination="org.freedesktop.DBus"/>
  </policy>
</busconfig>
)");
} // namespace

PrivateBus::PrivateBus()
{
    QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    const QString socket = m_folder.filePath(QStringLiteral("socket"));
    if (!file.open(QIODevice::WriteOnly) || file.write(QString(configuration).arg(socket).toUtf8()) < 0)
        qFatal("no configuration of a bus");
    file.close();
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + file.fileName(),
                    QStringLiteral("--nofork"),
                    QStringLiteral("--print-address=1")});
    while (!m_daemon.canReadLine()) {
        if (!m_daemon.waitForReadyRead(10000))
            qFatal("no bus: %s", m_daemon.readAllStandardError().constData());
    }
    m_address = QString::fromLatin1(m_daemon.readLine()).trimmed();
    m_variable.emplace("DBUS_SYSTEM_BUS_ADDRESS", m_address);
}

PrivateBus::~PrivateBus()
{
    m_daemon.terminate();
    m_daemon.waitForFinished();
}
