// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktopnotification.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QVariantMap>

void DesktopNotification::show(const QString &summary, const QString &body)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    const QString program = QGuiApplication::desktopFileName();
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                                       QStringLiteral("/org/freedesktop/Notifications"),
                                                       QStringLiteral("org.freedesktop.Notifications"),
                                                       QStringLiteral("Notify"));
    const uint replacesNone = 0;
    const int desktopsOwnTime = -1;
    // The body may hold markup, the summary may not.
    call.setArguments({QGuiApplication::applicationDisplayName(),
                       replacesNone,
                       program,
                       summary,
                       body.toHtmlEscaped(),
                       QStringList(),
                       QVariantMap{{QStringLiteral("desktop-entry"), program}},
                       desktopsOwnTime});
    // The service's answer, the number of the notification or an error, is of no use to us.
    bus.send(call);
}
