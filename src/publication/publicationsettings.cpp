// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/publicationsettings.h"

#include "core/settingskeys.h"
#include "core/storedvalues.h"
#include "publication/publicationaddresses.h"
#include "server/portrange.h"

#include <QDir>
#include <QSettings>
#include <QStringList>

#include <algorithm>
#include <functional>

namespace
{
QString keyOf(int port, const QString &name)
{
    return SettingsKey::PublishedPrefix + QString::number(port) + QLatin1Char('/') + name;
}

bool isAmong(const QString &path, const QStringList &spellings)
{
    return !path.isEmpty() && spellings.contains(QDir::cleanPath(path));
}
} // namespace

QList<int> PublicationSettings::busyPorts(const QSettings &settings)
{
    QList<int> ports;
    const QStringList texts = settings.value(SettingsKey::BusyHttpPorts).toStringList();
    for (const QString &text : texts) {
        // A text that is not a number becomes zero.
        const int port = text.toInt();
        if (PortRange::contains(port) && !ports.contains(port))
            ports += port;
    }
    return ports;
}

QHash<int, QString> PublicationSettings::keptPaths(const QSettings &settings)
{
    QHash<int, QString> paths;
    const QList<int> ports = busyPorts(settings);
    for (const int port : ports)
        paths.insert(port, QDir::cleanPath(load(settings, port).repoPath));
    return paths;
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
                                                             const QStringList &spellings)
{
    const QList<int> ports = busyPorts(settings);
    for (const int port : ports) {
        if (auto stored = find(settings, spellings, port))
            return stored;
    }
    return std::nullopt;
}

std::optional<PublicationSettings>
PublicationSettings::find(const QSettings &settings, const QStringList &spellings, int port)
{
    PublicationSettings stored = load(settings, port);
    if (!busyPorts(settings).contains(port) || !isAmong(stored.repoPath, spellings))
        return std::nullopt;
    return stored;
}

void PublicationSettings::claim(QSettings &settings) const
{
    QList<int> ports = busyPorts(settings);
    if (!ports.contains(port))
        ports += port;
    storePorts(settings, ports);
    settings.setValue(keyOf(port, SettingsKey::PublishedTrusted), trusted);
    settings.setValue(keyOf(port, SettingsKey::PublishedArch), architectures);
    settings.setValue(keyOf(port, SettingsKey::PublishedType), protocol);
    settings.setValue(keyOf(port, SettingsKey::PublishedRepoPath), repoPath);
    settings.setValue(keyOf(port, SettingsKey::PublishedIp), host);
}

void PublicationSettings::release(QSettings &settings, const QStringList &spellings, const QList<int> &kept)
{
    QList<int> ports = busyPorts(settings);
    const auto isGivenUp
        = [&](int busy) { return !kept.contains(busy) && isAmong(load(settings, busy).repoPath, spellings); };
    const auto end = std::stable_partition(ports.begin(), ports.end(), std::not_fn(isGivenUp));
    if (end == ports.end())
        return;
    for (auto left = end; left != ports.end(); ++left)
        settings.remove(SettingsKey::PublishedPrefix + QString::number(*left));
    ports.erase(end, ports.end());
    storePorts(settings, ports);
}

void PublicationSettings::storePorts(QSettings &settings, const QList<int> &ports)
{
    QStringList texts;
    for (const int busy : ports)
        texts += QString::number(busy);
    settings.setValue(SettingsKey::BusyHttpPorts, texts);
}

bool PublicationSettings::applyLive(const QVector<Publication> &publications)
{
    const auto rank = [this](const Publication &one) {
        if (repoPath.isEmpty() || one.repo.path != repoPath)
            return 0;
        const bool isChosen = one.protocol == protocol && one.port() == port;
        return 1 + (isChosen ? 1 : 0) + (one.isRunning() ? 2 : 0);
    };
    const auto isBelow = [&rank](const Publication &a, const Publication &b) { return rank(a) < rank(b); };
    const auto live = std::max_element(publications.cbegin(), publications.cend(), isBelow);
    if (live == publications.cend() || rank(*live) == 0)
        return false;
    protocol = live->protocol;
    port = live->port();
    return true;
}
