// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/filemanager.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QStringList>
#include <QUrl>

void veltShowInFileManager(const QString &file, QObject *context, const std::function<void()> &failed)
{
    const auto openFolder = [file, failed] {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).path())))
            failed();
    };
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        openFolder();
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                                       QStringLiteral("/org/freedesktop/FileManager1"),
                                                       QStringLiteral("org.freedesktop.FileManager1"),
                                                       QStringLiteral("ShowItems"));
    const QStringList items{QString::fromLatin1(QUrl::fromLocalFile(file).toEncoded())};
    call.setArguments({items, QString()});
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, openFolder] {
        const QDBusPendingReply<> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            openFolder();
    });
}
