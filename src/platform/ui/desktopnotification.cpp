// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/desktopnotification.h"

#include "platform/desktopintegration.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QThreadPool>
#include <QVariantMap>

namespace
{
void send(const QString &application, const QString &program, const QString &summary, const QString &body)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.Notifications"),
                                                       QStringLiteral("/org/freedesktop/Notifications"),
                                                       QStringLiteral("org.freedesktop.Notifications"),
                                                       QStringLiteral("Notify"));
    const uint replacesNone = 0;
    const int desktopsOwnTime = -1;
    // The body may hold markup, the summary may not.
    call.setArguments({application,
                       replacesNone,
                       program,
                       summary,
                       body.toHtmlEscaped(),
                       QStringList(),
                       QVariantMap{{QStringLiteral("desktop-entry"), program}},
                       desktopsOwnTime});
    // We need neither the number of the notification nor an error.
    bus.send(call);
}
} // namespace

void DesktopNotification::show(const QString &summary, const QString &body)
{
    // The first call connects to the bus, which may take long.
    QThreadPool::globalInstance()->start(
        [application = veltDisplayName(), program = QGuiApplication::desktopFileName(), summary, body] {
            send(application, program, summary, body);
        });
}
