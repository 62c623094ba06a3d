// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settingskeys.h"
#include "server/helperclient.h"
#include "server/localsources.h"
#include "server/publicationaddresses.h"
#include "server/publicationmonitor.h"
#include "server/publicationsettings.h"
#include "support/lists.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QSettings>
#include <QTcpServer>
#include <QtTest>

#include <array>

#include <sys/socket.h>

class PublicationTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void localSources()
    {
        using namespace LocalSources;
        const QString two = "# deb b\ndeb a main contrib\n"_s;
        QCOMPARE(appended(two, "deb a main"_s), two); // the start of a line is enough
        QCOMPARE(removed("deb b\n\n#\ndeb b"_s, "deb b"_s), "\n#\n"_s);
        QCOMPARE(appended(two, {}) + removed(two, {}), two + two);
        const QTemporaryDir folder;
        const QString file = folder.filePath("sources.list"_s);
        QVERIFY(!fileContains("deb a main"_s, file));
        writeFile(file, two.toUtf8());
        QVERIFY(fileContains("deb a main"_s, file));
        QVERIFY(!fileContains("deb b"_s, file) && !fileContains({}, file));
    }

    void settings()
    {
        const QTemporaryDir folder;
        QSettings store(folder.filePath("x.conf"_s), QSettings::IniFormat);
        const QStringList garbage{"x"_s, "0"_s, "8001"_s, "65536"_s, "8001"_s, "-1"_s, "8002"_s, QString()};
        store.setValue(SettingsKey::BusyHttpPorts, garbage);
        QCOMPARE(PublicationSettings::busyPorts(store), (QList<int>{8001, 8002}));
        const QHash<QString, QVariant> wrong{{"repoPath"_s, "/srv/a/"_s},
                                             {"trustedRepo"_s, "perhaps"_s},
                                             {"arch"_s, "a|b"_list},
                                             {"type"_s, 3},
                                             {"ip"_s, "1.2.3"_s}};
        for (auto value = wrong.cbegin(); value != wrong.cend(); ++value)
            store.setValue("Published8002/"_s + value.key(), value.value());
        QVERIFY(!PublicationSettings::find(store, {QString()})
                && !PublicationSettings::find(store, {"/srv/b"_s, "/srv"_s}));
        auto found = PublicationSettings::find(store, {"/srv/link"_s, "/srv/a"_s});
        QVERIFY(found && found->trusted && found->architectures.isEmpty() && found->host.isEmpty());
        QCOMPARE(found->port, 8002);
        QCOMPARE(found->protocol, int(HttpProtocol));

        const PublicationSettings taken{9000, "/srv/b"_s, false, "i386"_s, FtpProtocol, "10.0.0.1"_s};
        taken.claim(store);
        QCOMPARE(store.value(SettingsKey::BusyHttpPorts).toStringList(), "8001|8002|9000"_list);
        found = PublicationSettings::find(store, {"/srv/b"_s});
        QVERIFY(found && !found->trusted && found->protocol == FtpProtocol);
        QCOMPARE(QStringList({found->architectures, found->host}), "i386|10.0.0.1"_list);

        // The system is right about protocol and port, by the first publication that is the repository's.
        const QVector<Publication> live{{{1, "HTTP"_s, "/srv/c"_s}, HttpProtocol, {}},
                                        {{2, "HTTP"_s, "/srv/b"_s}, HttpProtocol, {}},
                                        {{21, "FTP"_s, "/srv/b"_s}, FtpProtocol, {}}};
        QVERIFY(found->applyLive(live) && found->port == 2 && found->protocol == HttpProtocol);
        QVERIFY(!found->trusted && !found->applyLive({}) && !PublicationSettings().applyLive({{}}));

        found->repoPath = "/srv/./b/"_s;
        found->claim(store);
        PublicationSettings::release(store, {QString()});
        PublicationSettings::release(store, {"/srv/b"_s}, {2});
        QCOMPARE(PublicationSettings::busyPorts(store), (QList<int>{8001, 8002, 2}));
        QVERIFY(!store.contains("Published9000/ip"_s) && store.contains("Published2/ip"_s));
    }

    void addresses()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QHostAddress host = server.serverAddress();
        const auto search = [](const PublicationAddresses::Target &target) {
            PublicationAddresses addresses(target, nullptr);
            QSignalSpy found(&addresses, &PublicationAddresses::found);
            addresses.start();
            if (!found.wait() || found.first().first().toStringList().contains("127.0.0.1"_s))
                return "not told, or with what stays inside"_s;
            found.wait(50); // and never a second time
            return found.count() == 1 ? found.first().last().toString() : "told twice"_s;
        };
        QCOMPARE(search({host, server.serverPort(), 3000}), "127.0.0.1"_s);
        const quint16 port = server.serverPort();
        server.close();
        QCOMPARE(search({host, port, 3000}), QString());
        // A host that does not answer: its queue of connections is full.
        const int silent = ::socket(AF_INET, SOCK_STREAM, 0);
        QVERIFY(::listen(silent, 0) == 0); // on a port of the system's choice, where QTcpServer finds it
        QVERIFY(server.setSocketDescriptor(silent));
        server.pauseAccepting();
        const quint16 silentPort = server.serverPort();
        std::array<QTcpSocket, 4> queue;
        for (QTcpSocket &waiting : queue)
            waiting.connectToHost(host, silentPort);
        QTRY_COMPARE(queue.front().state(), QAbstractSocket::ConnectedState);
        QCOMPARE(search({host, silentPort, 20}), QString());
        PublicationAddresses(nullptr).start(); // gone before anything has come
        QVERIFY(PublicationAddresses::isAddress("300.1.1.1"_s));
        QVERIFY(!PublicationAddresses::isAddress("1.2.3.4\n"_s));
    }

    void withoutBus()
    {
        QStringList told;
        HelperClient client;
        client.publishRepo("/srv/a"_s, 8000, FtpProtocol, [&told](const HelperClient::Result &result) {
            told << result.errorText << result.details;
        });
        QVERIFY2(told.isEmpty(), "the answer never comes from within the call");
        QTRY_COMPARE(
            told,
            (QStringList{"The repository is not published!"_s,
                         "The call/process/message was sent after QDBusConnection disconnected."_s}));
        PublicationMonitor monitor;
        QSignalSpy refreshed(&monitor, &PublicationMonitor::refreshed);
        QVERIFY(refreshed.wait());
    }
};

VELT_TEST_MAIN(PublicationTest, QCoreApplication)
#include "tst_publication.moc"
