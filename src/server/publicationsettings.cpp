// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationsettings.h"

#include "core/settingskeys.h"
#include "core/storedvalues.h"
#include "server/publicationaddresses.h"

#include <QDir>
#include <QSettings>
#include <QStringList>

namespace
{
QString keyOf(int port, const QString &name)
{
    return SettingsKey::PublishedPrefix + QString::number(port) + QLatin1Char('/') + name;
}
} // namespace

QList<int> PublicationSettings::busyPorts(const QSettings &settings)
{
    QList<int> ports;
    const QStringList texts = settings.value(SettingsKey::BusyHttpPorts).toStringList();
    for (const QString &text : texts) {
        // Zero is what a text that is no number gives.
        const int port = text.toInt();
        if (port >= LowestPort && port <= HighestPort && !ports.contains(port))
            ports += port;
    }
    return ports;
}

PublicationSettings PublicationSettings::load(const QSettings &settings, int port)
{
    const auto text = [&](const QString &name) { return settings.value(keyOf(port, name)).toString(); };
    PublicationSettings stored;
    stored.port = port;
    stored.repoPath = text(SettingsKey::PublishedRepoPath);
    stored.trusted = storedBool(settings, keyOf(port, SettingsKey::PublishedTrusted), stored.trusted);
    stored.architectures = text(SettingsKey::PublishedArch);
    const int protocol = text(SettingsKey::PublishedType).toInt();
    if (protocol >= HttpProtocol && protocol <= LocalDirectoryProtocol)
        stored.protocol = protocol;
    const QString host = text(SettingsKey::PublishedIp);
    if (PublicationAddresses::isAddress(host))
        stored.host = host;
    return stored;
}

std::optional<PublicationSettings> PublicationSettings::find(const QSettings &settings,
                                                             const QString &repoPath)
{
    const QList<int> ports = busyPorts(settings);
    for (const int port : ports) {
        const PublicationSettings stored = load(settings, port);
        if (!stored.repoPath.isEmpty() && QDir::cleanPath(stored.repoPath) == QDir::cleanPath(repoPath))
            return stored;
    }
    return std::nullopt;
}

void PublicationSettings::claim(QSettings &settings) const
{
    QList<int> ports = busyPorts(settings);
    if (!ports.contains(port))
        ports += port;
    QStringList texts;
    for (const int busy : qAsConst(ports))
        texts += QString::number(busy);
    settings.setValue(SettingsKey::BusyHttpPorts, texts);
    settings.setValue(keyOf(port, SettingsKey::PublishedTrusted), trusted);
    settings.setValue(keyOf(port, SettingsKey::PublishedArch), architectures);
    settings.setValue(keyOf(port, SettingsKey::PublishedType), protocol);
    settings.setValue(keyOf(port, SettingsKey::PublishedRepoPath), repoPath);
    settings.setValue(keyOf(port, SettingsKey::PublishedIp), host);
}
