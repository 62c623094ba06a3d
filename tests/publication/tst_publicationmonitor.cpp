// SPDX-License-Identifier: GPL-3.0-or-later
#include "publication/localsourceswatch.h"
#include "publication/publicationmonitor.h"
#include "server/listeningports.h"
#include "server/publicationrules.h"
#include "server/reposervers.h"
#include "support/privatebus.h"
#include "support/testenvironment.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QTcpServer>

#include <condition_variable>
#include <mutex>

namespace
{
/** Gives a monitor its snapshots, each only when it is let go. */
struct Gate
{
    std::mutex mutex;
    std::condition_variable condition;
    int allowed = 0;
    int begun = 0;
    int ended = 0;
    int port = 1;

    static PublicationMonitor::Reader reader(const std::shared_ptr<Gate> &gate)
    {
        return [gate] {
            std::unique_lock lock(gate->mutex);
            ++gate->begun;
            gate->condition.wait(lock, [&] { return gate->ended < gate->allowed; });
            ++gate->ended;
            return PublicationMonitor::Snapshot{{{{gate->port, "HTTP"_s, "/srv/a"_s}, HttpProtocol, {}}}, {}};
        };
    }
    void allow(int readings)
    {
        const std::lock_guard lock(mutex);
        allowed += readings;
        condition.notify_all();
    }
    int count(int Gate::*counter)
    {
        const std::lock_guard lock(mutex);
        return this->*counter;
    }
};

/** A server whose settings name no port. */
class PortlessServer final : public RepoServer
{
public:
    bool publish(const QString & /*path*/, int /*port*/) override { return false; }
    bool unpublish(int /*port*/) override { return false; }
    std::optional<PublicationState> state(int /*port*/) override { return {}; }
    bool restore(int /*port*/, const PublicationState & /*state*/) override { return false; }
    bool isPublished(int /*port*/) override { return false; }
    QList<PublishedRepo> publishedRepos() override { return {{0, "FTP"_s, "/srv/a"_s}}; }
    QString log() override { return {}; }
};
} // namespace

class PublicationMonitorTest : public QObject
{
    Q_OBJECT
    PrivateBus m_bus;

private Q_SLOTS:
    void localSourcesWatch()
    {
        const QTemporaryDir folder;
        const QString list = folder.filePath("x.list"_s);
        writeFile(list, "deb http://a/ x main # mine\n");
        LocalSourcesWatch watch(nullptr, list);
        QSignalSpy changed(&watch, &LocalSourcesWatch::changed);
        QSignalSpy refreshed(&watch, &LocalSourcesWatch::refreshed);
        // Also the same list is told of, once however often it was asked for.
        watch.refresh();
        watch.refresh();
        QVERIFY(refreshed.wait());
        QCOMPARE(watch.sources().linesOf({{}, {}, "deb http://a/ x main"_s}),
                 QStringList("deb http://a/ x main # mine"_s));
        watch.refresh();
        QVERIFY(refreshed.wait());
        QCOMPARE(changed.count(), 1);
        QCOMPARE(refreshed.count(), 2);
    }

    void monitor()
    {
        const auto gate = std::make_shared<Gate>();
        auto monitor = std::make_unique<PublicationMonitor>(Gate::reader(gate), QStringList(), nullptr);
        QSignalSpy changed(monitor.get(), &PublicationMonitor::changed);
        QSignalSpy refreshed(monitor.get(), &PublicationMonitor::refreshed);
        // However often it is asked while it reads, it reads once more, and tells then.
        for (int i = 0; i < 5; ++i)
            monitor->refresh();
        QVERIFY(!monitor->isKnown() && monitor->publications().isEmpty());
        gate->allow(1);
        QTRY_COMPARE(gate->count(&Gate::begun), 2);
        QVERIFY(monitor->isKnown() && changed.count() == 1 && refreshed.isEmpty());
        gate->allow(1);
        QVERIFY(refreshed.wait());
        QVERIFY(changed.count() == 1 && refreshed.count() == 1);
        gate->port = 2; // nothing reads now
        monitor->setLive(true);
        gate->allow(1);
        QTRY_COMPARE(refreshed.count(), 2);
        QCOMPARE(changed.count(), 2);
        QCOMPARE(monitor->publicationsOf("/srv/a"_s).first().repo.port, 2);
        QVERIFY(monitor->publicationsOf({}).isEmpty());
        // Who is told may end it, and it may end while it reads.
        monitor->refresh();
        connect(monitor.get(), &PublicationMonitor::changed, this, [&monitor] { monitor.reset(); });
        gate->port = 3;
        gate->allow(1);
        QTRY_VERIFY(monitor == nullptr);
        PublicationMonitor(Gate::reader(gate), {}, nullptr).refresh();
        gate->allow(1);
        QTRY_COMPARE(gate->count(&Gate::ended), 5);
    }

    void portOfAnFtpServerThatNamesNone()
    {
        RepoServers::Servers servers;
        servers.emplace(FtpProtocol, std::make_unique<PortlessServer>());
        PublicationMonitor monitor(std::make_shared<const RepoServers>(std::move(servers)), nullptr);
        QTRY_VERIFY(monitor.isKnown());
        QCOMPARE(monitor.publications().constFirst().repo.port, 21);
    }

    void whatCallsForAReading()
    {
        const QTemporaryDir folder;
        const QString units = folder.filePath("units"_s);
        const QString config = folder.filePath("etc/vsftpd.conf"_s);
        writeFile(units + "/x"_s, {});
        writeFile(folder.filePath("etc/passwd"_s), {});
        const auto gate = std::make_shared<Gate>();
        gate->allow(1000);
        PublicationMonitor monitor(Gate::reader(gate), {units, config}, nullptr);
        QSignalSpy refreshed(&monitor, &PublicationMonitor::refreshed);
        const auto reads = [&refreshed](const std::function<void()> &change, int limit = 5000) {
            refreshed.clear();
            change();
            return refreshed.wait(limit);
        };
        QVERIFY(reads([] {})); // the first
        QVERIFY(reads([&] { writeFile(units + "/y"_s, {}); }));
        QVERIFY(reads([&] { writeFile(config, "a"); }));
        QVERIFY(reads([&] { writeFile(config, "b"); }));
        writeFile(folder.filePath("new"_s), "c");
        QVERIFY(reads([&] { std::rename(qPrintable(folder.filePath("new"_s)), qPrintable(config)); }));
        QVERIFY(reads([&] { QFile::remove(config); }));

        const QString connection = "sender"_s;
        const QDBusConnection sender = QDBusConnection::connectToBus(m_bus.address(), connection);
        const auto send =
            [&](const QString &path, const char *interface, const char *name, const QVariantList &arguments) {
                QDBusMessage message = QDBusMessage::createSignal(
                    "/org/freedesktop/systemd1"_s + path, QLatin1String(interface), QLatin1String(name));
                message.setArguments(arguments);
                sender.send(message);
            };
        const auto endJob = [&](const QString &unit) {
            const auto job = QVariant::fromValue(QDBusObjectPath("/job"_s));
            send({}, "org.freedesktop.systemd1.Manager", "JobRemoved", {1U, job, unit, "done"_s});
        };
        const auto changeUnit = [&](const QString &unit) {
            send("/unit/"_s + unit,
                 "org.freedesktop.DBus.Properties",
                 "PropertiesChanged",
                 {"org.freedesktop.systemd1.Unit"_s, QVariantMap(), QStringList()});
        };
        QVERIFY(reads([&] { endJob("public-repo-8000.service"_s); }));
        QVERIFY(reads([&] { changeUnit("vsftpd_2eservice"_s); }));
        QVERIFY(reads([&] { changeUnit("public_2drepo_2d80_2eservice"_s); }));
        QVERIFY(reads([&] { send({}, "org.freedesktop.systemd1.Manager", "Reloading", {false}); }));
        const auto changeOthers = [&] {
            endJob("cron.service"_s);
            changeUnit("cron_2eservice"_s);
            writeFile(folder.filePath("etc/group"_s), {});
        };
        QVERIFY(!reads(changeOthers, 1000));
        QDBusConnection::disconnectFromBus(connection);
    }

    void ports()
    {
        // As Linux 6.1 writes it, with a connection from port 22; then what is no table at all.
        const QByteArray table
            = "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid\n"
              "   0: 0100007F:0277 00000000:0000 0A 00000000:00000000 00:00000000 00000000     0\n"
              "   2: 0100007F:0016 0100007F:D2A4 01 00000000:00000000 02:000A1B2C 00000000     0\n"
              "  10: 00000000000000000000000001000000:1F40 00000000000000000000000000000000:0000 0A 0:0\n"
              "x: y:zz a 0A\n   3: 0100007F:0 0 0A\n 0A\n\n   4: 0100007F:00";
        QCOMPARE(ListeningPorts::parse(table), (QSet<int>{631, 8000}));
        QTcpServer listening;
        QVERIFY(listening.listen(QHostAddress::AnyIPv6));
        QVERIFY(ListeningPorts::read().contains(listening.serverPort()));
    }

    void rules()
    {
        const QString own = "/srv/a"_s;
        const auto http
            = [](int port, const QString &path, const char *state = "active", bool isThere = true) {
                  return Publication{{port, "HTTP"_s, path}, HttpProtocol, QLatin1String(state), isThere};
              };
        const auto ftp = [](int port, const QString &path, bool isThere = true) {
            return Publication{{port, "FTP"_s, path}, FtpProtocol, "active"_s, isThere};
        };
        const auto overHttp = [&own](int port, const QString &registered = {}) {
            return PublicationRequest{own, HttpProtocol, port, registered};
        };
        const auto overFtp = [&own](int port, const QString &registered = {}) {
            return PublicationRequest{own, FtpProtocol, port, registered};
        };
        const auto moved = http(8000, "/old"_s, "active", false);
        const auto movedDead = http(8000, "/old"_s, "failed", false);
        const auto another = http(8000, "/srv/b"_s);
        const QString otherRepo = "Another repository is published;"_s;
        const QString already = "The repository is published already; own"_s;
        const QString temporary = "What lies below /tmp or /var/tmp cannot be published: services have these "
                                  "folders for themselves. Move the repository to another place;"_s;
        struct Row
        {
            PublicationRequest request;
            QVector<Publication> publications;
            QString expected; ///< the obstacle, and what else is found
        };
        const QVector<Row> rows{
            {overHttp(8000), {}, ";"_s},
            {overHttp(80), {}, ";"_s},
            {overHttp(0), {}, "There is no port 0;"_s},
            {overHttp(70000), {}, "There is no port 70000;"_s},
            {overHttp(631), {}, "Another program uses the port 631;"_s},
            {{{}, HttpProtocol, 8000, {}}, {http(8000, {})}, "There is no repository;"_s},
            {{own, -1, 8000, {}}, {http(8000, own)}, "Choose a server type; elsewhere"_s},
            {{own, LocalDirectoryProtocol, 8000, {}}, {}, "Choose a server type;"_s},
            {{"/srv/%h"_s, HttpProtocol, 8000, {}}, {}, "The path /srv/%h cannot be served;"_s},
            {{"/srv/мой репо"_s, HttpProtocol, 8000, {}}, {}, ";"_s},
            {{"/var/tmp/a"_s, HttpProtocol, 8000, {}}, {}, temporary},
            {{"/tmp/a"_s, FtpProtocol, 21, {}}, {ftp(21, "/tmp/a"_s)}, temporary + " own"_s},
            {{"/tmpx/tmp/a"_s, HttpProtocol, 8000, {}}, {}, ";"_s},
            // HTTP
            {overHttp(8000), {http(8000, own)}, already},
            {overHttp(8000), {http(8000, own, "")}, already},
            {overHttp(8000), {http(8000, own, "failed")}, "; own"_s},
            {overHttp(631), {http(631, own, "failed")}, "Another program uses the port 631; own"_s},
            {overHttp(8000), {http(80, "/srv/b"_s), http(8001, own)}, "; elsewhere"_s},
            {overHttp(8000), {another}, otherRepo},
            {overHttp(8000), {http(8000, "/srv/b"_s, "inactive")}, "; replaced"_s},
            // a directory that has moved, and what is not ours although it once was
            {overHttp(8000, own), {moved}, "; own stop"_s},
            {overHttp(8000, own), {movedDead}, "; own"_s},
            {overHttp(8000), {moved}, otherRepo},
            {overHttp(8000, own), {another}, otherRepo},
            // FTP, which has one place
            {overFtp(21), {http(8000, own), ftp(21, own)}, already + " elsewhere"_s},
            {overFtp(2121), {ftp(21, own)}, "; own"_s},
            {overFtp(21, own), {ftp(21, "/old"_s, false)}, "; own"_s},
            {overFtp(2121), {ftp(21, "/srv/b"_s)}, "; replaced"_s},
            {overFtp(21), {ftp(21, "/srv/b"_s)}, otherRepo},
            {overFtp(21), {ftp(0, {})}, ";"_s}, // the administrator's server
            // one port, two protocols
            {overHttp(21), {ftp(0, {})}, "Another program uses the port 21;"_s},
            {overHttp(21),
             {ftp(21, own)},
             "The repository is published on this port over FTP. Unpublish it first; elsewhere"_s},
            {overFtp(8000), {another}, otherRepo},
        };
        for (const Row &row : rows) {
            QSet<int> listening{631, 21};
            for (const Publication &publication : row.publications) {
                if (publication.isRunning())
                    listening += publication.repo.port;
            }
            const auto found = PublicationRules::judge(row.request, row.publications, listening);
            QString told = found.reason.section(". It may"_s, 0, 0);
            if (told.endsWith("."_s))
                told.chop(1);
            told += ";"_s + (found.mayUnpublish() ? " own"_s : QString())
                    + (found.replaced ? " replaced"_s : QString())
                    + (found.stopsFirst ? " stop"_s : QString())
                    + (found.elsewhere.isEmpty() ? QString() : " elsewhere"_s);
            const auto number = std::to_string(&row - rows.data());
            QVERIFY2(told == row.expected, ("row " + number + ": " + told.toStdString()).c_str());
            QVERIFY(found.mayPublish() == row.expected.startsWith(";"_s));
            QCOMPARE(found.obstacle == PublicationRules::Obstacle::OtherRepository,
                     row.expected.startsWith(otherRepo));
        }
        QCOMPARE(PublicationRules::proposedPort(FtpProtocol, 8000, {21}), 8000);
        QCOMPARE(PublicationRules::proposedPort(FtpProtocol, 2121, {}), 2121);
    }
};

VELT_TEST_MAIN(PublicationMonitorTest, QCoreApplication)
#include "tst_publicationmonitor.moc"
