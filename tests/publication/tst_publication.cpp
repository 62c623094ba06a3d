// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settingskeys.h"
#include "publication/helperclient.h"
#include "publication/listedsources.h"
#include "publication/localsourcechoice.h"
#include "publication/publicationaddresses.h"
#include "publication/publicationmonitor.h"
#include "publication/publicationsettings.h"
#include "server/localsources.h"
#include "server/publicationaccess.h"
#include "server/sourcekey.h"
#include "support/testenvironment.h"

#include <QTcpServer>

#include <algorithm>
#include <array>
#include <functional>

#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

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

    void access()
    {
        const QTemporaryDir folder;
        const QString repo = folder.filePath("repo"_s);
        const QString file = repo + "/pool/a.deb"_s;
        writeFile(file, "x");
        const auto closed = [&repo](int protocol) {
            const PublicationAccess access = PublicationAccess::examine(repo, protocol);
            return access.unreadable + (access.isEntered ? QStringList() : QStringList{repo});
        };
        // Root lends its rights to no server.
        const uid_t owner = ::geteuid() == 0 ? 12345 : ::geteuid();
        for (const QString &path : {repo, QFileInfo(file).path(), file}) {
            const QByteArray name = QFile::encodeName(path);
            QVERIFY(::chown(name.constData(), owner, ::getegid()) == 0
                    && ::chmod(name.constData(), 0700) == 0);
        }
        QCOMPARE(closed(HttpProtocol), QStringList());
        QCOMPARE(closed(FtpProtocol), (QStringList{QFileInfo(file).path(), file, repo}));
        QCOMPARE(::chmod(QFile::encodeName(file).constData(), 0044), 0);
        QCOMPARE(closed(HttpProtocol), QStringList{file});
        // In a folder in which everybody can exchange it, a directory is read with nobody's rights.
        QCOMPARE(::chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
        QCOMPARE(closed(HttpProtocol), (QStringList{QFileInfo(file).path(), repo}));
        QCOMPARE(PublicationAccess::openUp(repo), QString());
        QCOMPARE(closed(HttpProtocol), QStringList());
    }

    void listedSources()
    {
        const QString http = "deb [arch=amd64 trusted=yes] http://127.0.0.1:8000/ birch main"_s;
        const QString named = "deb http://box.lan:8000/ birch main"_s;
        const QString signedBy
            = "deb [signed-by=%1] ftp://10.0.0.7:2121/ birch main"_s.arg(SourceKey::file(QString(40, u'A')));
        const QString file = "deb file:///srv/a%20b/ birch main contrib"_s;
        const QString copy = "deb [trusted=yes] copy:///srv/c/ birch main"_s;
        const QString byHand = "  deb [ trusted=yes ]  http://localhost:8000/x birch main # mine"_s;
        const QString usual = "deb http://127.1.2.3 birch main"_s;
        const QString far = "deb [trusted=yes] http://deb.example.org:8000/ birch main"_s;
        const QStringList all{http, named, signedBy, file, copy, byHand, usual, far};
        const ListedSources sources("# "_s + http + "\n\ndeb-src http://127.0.0.1:8000/ birch main\n"_s
                                        + "deb https://127.0.0.1:8000/ birch main\n"_s + all.join(u'\n'),
                                    {"box.lan"_s, "10.0.0.7"_s});
        const Publication onHttp{{8000, "HTTP"_s, "/srv/a b"_s}, HttpProtocol, "active"_s};
        const Publication onFtp{{2121, "FTP"_s, "/srv/a b"_s}, FtpProtocol, "failed"_s};
        QCOMPARE(sources.linesTo(onHttp), (QStringList{http, named, byHand}));
        QCOMPARE(sources.linesTo(onFtp), QStringList(signedBy));
        QCOMPARE(sources.linesWithoutService({onHttp, onFtp}), (QStringList{signedBy, usual}));
        QCOMPARE(sources.linesWithoutService({}), (QStringList{http, named, signedBy, byHand, usual}));
        QCOMPARE(sources.linesOf({{"/srv/a b"_s}, {{FtpProtocol, 2121}}, far.chopped(3)}),
                 (QStringList{signedBy, file, far}));
        QVERIFY(sources.linesOf({{"/srv"_s}, {{HttpProtocol, 8001}, {FtpProtocol, 8000}}, {}}).isEmpty());
        QStringList ours = all;
        ours.erase(std::remove_if(ours.begin(), ours.end(), std::not_fn(&ListedSources::isOurs)), ours.end());
        QCOMPARE(ours, (QStringList{http, named, signedBy, file, copy, far}));
    }

    void localSourceChoice_data()
    {
        // Who can read the directory and who can write into it; whether it is trusted, signed and published.
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("risk");
        const auto row = [](const char *name, const char *line, int risk = LocalSourceChoice::NoRisk) {
            QTest::newRow(name) << QString::fromLatin1(line) << risk;
        };
        row("open trusted published", "trusted=yes file:///r/");
        row("closed trusted", "trusted=yes copy:///r/");
        row("open trusted signed published", "KEY file:///r/");
        row("shared trusted published", "trusted=yes copy:///r/", LocalSourceChoice::OthersWrite);
        row("shared trusted signed published", "KEY copy:///r/");
        row("shared published", "copy:///r/");
        row("foreign trusted signed published", "KEY http://127.0.0.1:8000/");
        row("foreign trusted published",
            "trusted=yes http://127.0.0.1:8000/",
            LocalSourceChoice::OthersServe);
        row("foreign published", "http://127.0.0.1:8000/");
        row("foreign trusted", "");
        row("foreign ftp", "");
    }

    void localSourceChoice()
    {
        QFETCH(QString, line);
        const QString fingerprint(40, u'B');
        const QString words = QLatin1String(QTest::currentDataTag());
        const auto is = [&words](const char *word) { return words.contains(QLatin1String(word)); };
        LocalSourceFacts facts;
        facts.offered = {is("trusted"), "amd64"_s, -1, "10.0.0.7"_s, 9000, {}, "birch"_s, "main"_s};
        facts.directory = "/r"_s;
        facts.access = {is("foreign")  ? AptAccess::NoWay
                        : is("closed") ? AptAccess::ByRoot
                                       : AptAccess::ByAnybody,
                        !is("shared")};
        facts.fingerprint = is("signed") ? fingerprint : QString();
        if (is("published"))
            facts.publications = {{{21, "FTP"_s, "/r"_s}, FtpProtocol, "active"_s},
                                  {{8000, "HTTP"_s, "/r"_s}, HttpProtocol, "active"_s}};
        if (is("ftp")) {
            facts.publications = {{{21, "FTP"_s, "/r"_s}, FtpProtocol, "active"_s}};
            QCOMPARE(LocalSourceChoice::of(facts)->line.protocol, int(FtpProtocol));
            facts.hasFtp = false;
        }
        const std::optional<LocalSourceChoice> choice = LocalSourceChoice::of(facts);
        QCOMPARE(choice.has_value(), !line.isEmpty());
        if (!choice)
            return;
        line.replace("KEY"_s, "signed-by="_s + SourceKey::file(fingerprint));
        const QString options
            = line.contains(u' ') ? "arch=amd64 "_s + line.section(u' ', 0, 0) : "arch=amd64"_s;
        QCOMPARE(choice->line.text(), "deb [%1] %2 birch main"_s.arg(options, line.section(u' ', -1)));
        QTEST(int(choice->risk), "risk");
    }

    void aptAccess()
    {
        // Whoever makes a folder of this name in /tmp after a restart would be trusted.
        QTemporaryDir folder("/tmp/vaXXXXXX"_s);
        const QString repository = folder.filePath("r"_s);
        const QString index = repository + "/dists/birch/Release"_s;
        writeFile(index, "x");
        writeFile(repository + "/pool/a.deb"_s, "x");
        const auto way = [&] { return AptAccess::examine(repository).way; };
        QCOMPARE(way(), AptAccess::ByRoot);
        QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7711)));
        QCOMPARE(way(), AptAccess::ByAnybody);
        QVERIFY(!AptAccess::examine(repository).isGuarded);
        QVERIFY(QFile::setPermissions(repository + "/pool/a.deb"_s, QFile::ReadOwner));
        QCOMPARE(way(), AptAccess::ByAnybody);
        QVERIFY(QFile::setPermissions(index, QFile::ReadOwner));
        QCOMPARE(way(), AptAccess::ByRoot);
        QCOMPARE(AptAccess::examine(folder.filePath("a#b"_s)).way, AptAccess::NoWay);
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
};

VELT_TEST_MAIN(PublicationTest, QCoreApplication)
#include "tst_publication.moc"
