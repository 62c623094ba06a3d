// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/publicationmonitor.h"

#include "server/listeningports.h"
#include "server/publicationunit.h"
#include "server/reposervers.h"
#include "service/systemdservice.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QFileInfo>
#include <QPointer>
#include <QtConcurrent>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
// In milliseconds. Changes come in groups: an upgrade of the system writes hundreds of files.
constexpr int gatheringTime = 400;
constexpr int liveInterval = 5000;

const QLatin1String systemd("org.freedesktop.systemd1");
const QLatin1String manager("org.freedesktop.systemd1.Manager");
const QLatin1String managerPath("/org/freedesktop/systemd1");
const QLatin1String ftpService("vsftpd");

QString stateOf(const PublishedRepo &repo, int protocol)
{
    // The name of a service contains its port. Without a port in the unit, the name is unknown.
    if (protocol == HttpProtocol && repo.port == 0)
        return {};
    const QString service
        = protocol == FtpProtocol ? QString(ftpService) : PublicationUnit::serviceName(repo.port);
    return VeltAdmin::SystemdService(service).activeState();
}
} // namespace

PublicationMonitor::Snapshot PublicationMonitor::read(const RepoServers &servers)
{
    PublicationMonitor::Snapshot snapshot;
    for (const int protocol : {int(HttpProtocol), int(FtpProtocol)}) {
        RepoServer *server = servers.server(protocol);
        if (server == nullptr)
            continue;
        const QList<PublishedRepo> repos = server->publishedRepos();
        for (PublishedRepo repo : repos) {
            repo.path = Publication::canonicalPathOf(repo.path);
            Publication publication{repo,
                                    protocol,
                                    stateOf(repo, protocol),
                                    QFileInfo(repo.path).isDir(),
                                    !server->isConfiguredByUs()};
            publication.repo.port = publication.port();
            snapshot.publications += publication;
        }
    }
    snapshot.listeningPorts = ListeningPorts::read();
    return snapshot;
}

bool PublicationMonitor::Snapshot::operator==(const Snapshot &other) const
{
    return publications == other.publications && listeningPorts == other.listeningPorts;
}

PublicationMonitor::PublicationMonitor(QObject *parent)
    : PublicationMonitor(std::make_shared<const RepoServers>(), parent)
{ }

PublicationMonitor::PublicationMonitor(const std::shared_ptr<const RepoServers> &servers, QObject *parent)
    : PublicationMonitor([servers] { return read(*servers); },
                         {QStringLiteral("/etc/systemd/system"), QStringLiteral("/etc/vsftpd.conf")},
                         parent)
{ }

PublicationMonitor::PublicationMonitor(Reader reader, QStringList watched, QObject *parent)
    : QObject(parent)
    , m_reader(std::move(reader))
    , m_watched(std::move(watched))
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(gatheringTime);
    m_live.setInterval(liveInterval);
    connect(&m_soon, &QTimer::timeout, this, &PublicationMonitor::refreshWhenFree);
    connect(&m_live, &QTimer::timeout, this, &PublicationMonitor::refreshSoon);
    connect(&m_reading, &QFutureWatcherBase::finished, this, &PublicationMonitor::takeReading);
    connect(&m_files, &QFileSystemWatcher::fileChanged, this, &PublicationMonitor::refreshSoon);
    connect(&m_files, &QFileSystemWatcher::directoryChanged, this, &PublicationMonitor::takeFolderChange);
    subscribe();
    startReading();
}

// A reading may still run. It ends by itself, and nobody gets its result.
PublicationMonitor::~PublicationMonitor() = default;

QVector<Publication> PublicationMonitor::publicationsOf(const QString &canonicalPath) const
{
    QVector<Publication> found;
    std::copy_if(
        m_snapshot.publications.cbegin(),
        m_snapshot.publications.cend(),
        std::back_inserter(found),
        [&canonicalPath](const Publication &publication) { return publication.repo.path == canonicalPath; });
    return found;
}

// --- reasons for a reading --------------------------------------------------------------------------------------

void PublicationMonitor::watchFiles()
{
    // The watcher loses a file that is replaced or deleted. The watch on the folder sees the new file.
    for (const QString &path : std::as_const(m_watched)) {
        for (const QString &wanted : {path, QFileInfo(path).path()}) {
            if (!isWatched(wanted) && QFileInfo::exists(wanted))
                m_files.addPath(wanted);
        }
    }
}

bool PublicationMonitor::isWatched(const QString &path) const
{
    return m_files.files().contains(path) || m_files.directories().contains(path);
}

void PublicationMonitor::takeFolderChange(const QString &folder)
{
    // Other files in the folder do not matter, and a watched file reports its own changes.
    const auto isMatter = [this, &folder](const QString &path) {
        return path == folder
               || (QFileInfo(path).path() == folder && !isWatched(path) && QFileInfo::exists(path));
    };
    if (std::any_of(m_watched.cbegin(), m_watched.cend(), isMatter))
        refreshSoon();
}

void PublicationMonitor::subscribe()
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return;
    // Without a sender: QtDBus would ask the bus for its owner and wait. A false message costs only a reading.
    for (const char *name : {"JobRemoved", "UnitFilesChanged", "Reloading"})
        bus.connect({},
                    managerPath,
                    manager,
                    QString::fromLatin1(name),
                    this,
                    SLOT(takeServiceMessage(QDBusMessage)));
    // These arrive when a service ends by itself.
    bus.connect({},
                {},
                QStringLiteral("org.freedesktop.DBus.Properties"),
                QStringLiteral("PropertiesChanged"),
                {QStringLiteral("org.freedesktop.systemd1.Unit")},
                QStringLiteral("sa{sv}as"),
                this,
                SLOT(takeServiceMessage(QDBusMessage)));
    QDBusMessage subscription
        = QDBusMessage::createMethodCall(systemd, managerPath, manager, QStringLiteral("Subscribe"));
    subscription.setAutoStartService(false);
    bus.asyncCall(subscription);
}

void PublicationMonitor::takeServiceMessage(const QDBusMessage &message)
{
    // Object paths contain the unit's name in an escaped form.
    QString unit;
    if (message.member() == QLatin1String("PropertiesChanged"))
        unit = message.path().section(QLatin1Char('/'), -1);
    else if (message.member() == QLatin1String("JobRemoved"))
        unit = message.arguments().value(2).toString();
    if (unit.isEmpty() || unit.startsWith(QLatin1String("public_2drepo"))
        || unit.startsWith(QLatin1String("public-repo")) || unit.startsWith(ftpService))
        refreshSoon();
}

void PublicationMonitor::setLive(bool live)
{
    if (live == m_live.isActive())
        return;
    if (live) {
        m_live.start();
        refresh();
    } else {
        m_live.stop();
    }
}

void PublicationMonitor::refresh()
{
    if (m_reading.isRunning())
        m_again = true;
    else
        startReading();
}

void PublicationMonitor::refreshSoon()
{
    // A running timer is not restarted: endless changes must not delay the reading for ever.
    if (!m_soon.isActive())
        m_soon.start();
}

void PublicationMonitor::refreshWhenFree()
{
    if (m_reading.isRunning())
        m_soon.start();
    else
        startReading();
}

// --- the reading ------------------------------------------------------------------------------------------------

void PublicationMonitor::startReading()
{
    // The watch begins before the reading, so that no change is missed.
    watchFiles();
    m_reading.setFuture(QtConcurrent::run(m_reader));
}

void PublicationMonitor::takeReading()
{
    const Snapshot snapshot = m_reading.result();
    const bool isNew = !m_known || !(snapshot == m_snapshot);
    const bool again = std::exchange(m_again, false);
    m_known = true;
    m_snapshot = snapshot;
    if (again)
        startReading();
    // The signals come last: a receiver may delete the monitor.
    const QPointer<PublicationMonitor> self(this);
    if (isNew)
        Q_EMIT changed();
    if (self && !again)
        Q_EMIT refreshed();
}
