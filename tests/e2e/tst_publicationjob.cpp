// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/throwawaysystem.h"

/**
 * Publication as it is used, in a throw-away system: the installed program's files, an ordinary user, the bus, polkit,
 * the service manager, the servers and apt are the real ones.
 */
class PublicationJobTest : public ThrowAwayTest
{
    Q_OBJECT

    QString publish(const QString &path, int port, int protocol) const
    {
        return m_system.publish(path, port, protocol);
    }
    QString unpublish(int port, int protocol) const { return m_system.unpublish(port, protocol); }

    QString httpCode(const QString &path, const QStringList &options = {}) const
    {
        return box("curl -s --path-as-is -o /dev/null -w '%{http_code}' \"$@\""_s,
                   options + QStringList{"http://127.0.0.1:8080"_s + path});
    }

private Q_SLOTS:
    void servesAptOverHttp()
    {
        QCOMPARE(publish(closedRepo, 8080, 0), "b true"_s);
        QCOMPARE(box("systemctl is-active public-repo-8080; systemctl is-enabled public-repo-8080"_s),
                 "active\nenabled"_s);
        QCOMPARE(box("systemd-analyze verify /etc/systemd/system/public-repo-8080.service 2>&1"_s),
                 QString());
        QCOMPARE(box("ps -o user:32= -p $(pgrep -x lighttpd)"_s), "tester"_s);

        const QString source = "deb [trusted=yes] http://127.0.0.1:8080/ birch main"_s;
        const QString first = m_system.apt(source, "update"_s);
        QVERIFY2(first.contains("Get:"_s) && !first.contains("W:"_s), qPrintable(first));
        const QString second = m_system.apt(source, "update"_s);
        QVERIFY2(second.contains("Hit:"_s) && !second.contains("Get:"_s), qPrintable(second));
        const QString suite
            = m_system.apt("deb [trusted=yes] http://127.0.0.1:8080/ stable main"_s, "update"_s);
        QVERIFY2(suite.contains("Get:"_s) && !suite.contains("W:"_s), qPrintable(suite));
        const QString download = m_system.apt(source, "download fizz"_s);
        const QString same
            = asUser("cmp ~/fizz_1.0_amd64.deb \"$1\"/pool/main/f/fizz/fizz_1.0_amd64.deb"_s, {closedRepo});
        QVERIFY2(same.isEmpty(), qPrintable(same + download));

        const QString package = "/pool/main/f/fizz/fizz_1.0_amd64.deb"_s;
        QCOMPARE(httpCode(package, {"-r"_s, "100000-"_s}), "206"_s);
        QCOMPARE(httpCode(package, {"-r"_s, "9000000-"_s}), "416"_s);
        QTRY_VERIFY_WITH_TIMEOUT(asUser("cat /tmp/http8080.log"_s).contains("\"GET "_s + package), 15000);
    }

    void hidesAllElseOverHttp()
    {
        const QStringList shown
            = "/|/dists/birch/Release|/dists/birch/main/Contents-amd64.gz|/dists/stable/Release"_list;
        const QStringList hidden
            = "/conf|/conf/distributions|//conf/distributions|/./conf/distributions|/%63onf/distributions|"
              "/pool/../conf/distributions|/pool/%2e%2e/conf/distributions|/pool/..%2fconf/distributions|/db/"
              "version|"
              "/logs/x|/packages.conf|/%70ackages.conf?x|/.hidden|/dists/stable/../../conf/distributions|"
              "/../../etc/passwd|/%2e%2e/%2e%2e/etc/passwd|//etc/passwd"_list;
        // The kernel refuses links, which the server takes for a fault.
        const QStringList links = "/pool/outwards|/dists/up/main/|/dists/outwards/usr/bin/env"_list;
        for (const auto &[paths, code] : {std::pair(shown, "200"_s),
                                          std::pair(hidden, "403"_s),
                                          std::pair("/dists/none"_list, "404"_s),
                                          std::pair(links, "500"_s)}) {
            const QString wrong = box(
                "expected=$1; shift; for path; do "
                "code=$(curl -s --path-as-is -o /dev/null -w '%{http_code}' \"http://127.0.0.1:8080$path\"); "
                "[ $code = $expected ] || echo $path $code; done"_s,
                QStringList{code} + paths);
            QCOMPARE(wrong, QString());
        }
    }

    void refusesLargeRequestsOverHttp()
    {
        QCOMPARE(httpCode("/"_s, {"-H"_s, "X-Fill: "_s + QString(20000, u'a')}), "431"_s);
        QCOMPARE(httpCode("/"_s + QString(20000, u'a')), "431"_s);
        QCOMPARE(httpCode("/"_s, {"--data"_s, QString(20000, u'a')}), "413"_s);
        QCOMPARE(httpCode("/dists/birch/Release"_s), "200"_s);
    }

    void servesManyAtOnceOverHttp()
    {
        // Half of what one address may have at the same time.
        QCOMPARE(box(R"(seq 300 | xargs -P 50 -I {} curl -s -o /dev/null -w '%{http_code}\n' \
                    http://127.0.0.1:8080/pool/main/f/fizz/fizz_1.0_amd64.deb | sort | uniq -c | xargs)"_s),
                 "300 200"_s);
    }

    void keepsPublishingAfterAPowerCut()
    {
        QVERIFY(m_system.restart());
        QTRY_COMPARE_WITH_TIMEOUT(httpCode("/dists/birch/Release"_s), "200"_s, 30000);
    }

    void servesNothingElseInItsPlace()
    {
        // The repository's user puts links in the place of the directory and of the log, before the next start.
        const QString planted = asUser(R"(mv "$1" ~/aside; ln -s /etc "$1")"_s, {closedRepo});
        const QString told = box(R"(echo precious >/root/precious; rm -f /tmp/http8080.log
            runuser -u tester -- ln -s /root/precious /tmp/http8080.log
            systemctl restart public-repo-8080; sleep 0.5; systemctl is-active public-repo-8080 || true
            curl -s http://127.0.0.1:8080/passwd || true; cat /root/precious)"_s);
        const QString back = asUser(R"(rm "$1"; mv ~/aside "$1")"_s, {closedRepo});
        QCOMPARE(planted + told + back, "failed\nprecious"_s);
        QCOMPARE(box(R"(systemctl restart public-repo-8080; runuser -u tester -- mkfifo /tmp/pipe
            mv -f /tmp/pipe /tmp/http8080.log; systemctl restart public-repo-8080; readlink /tmp/http8080.log)"_s),
                 "/var/log/velt-admin-repo-http8080.log"_s);
        QTRY_COMPARE_WITH_TIMEOUT(httpCode("/dists/birch/Release"_s), "200"_s, 30000);
    }

    void feedsThisSystemsApt()
    {
        const QString file = "/etc/apt/sources.list.d/velt-admin-repo.list"_s;
        const QString byHand
            = "# Do not touch, спасибо\ndeb [trusted=yes] file:///usr/local/own ./\n\n#no end of line"_s;
        const QString entry = "deb [trusted=yes] http://127.0.0.1:8080/ birch main"_s;
        box("printf %s \"$1\" >\"$2\""_s, {byHand, file});
        box("mkdir /usr/local/own; touch /usr/local/own/Packages"_s);

        QCOMPARE(m_system.ask("AddLocalSource"_s, {"s"_s, entry}), "b true"_s);
        QCOMPARE(m_system.ask("AddLocalSource"_s, {"s"_s, entry}), "b true"_s);
        QCOMPARE(box("cat "_s + file), QString(byHand + "\n"_s + entry));
        const QString output = box("apt-get update 2>&1; apt-get install -y fizz 2>&1"_s);
        QCOMPARE(box("dpkg-query -W -f '${Version}' fizz"_s), "1.0"_s);
        QVERIFY2(output.contains("fizz"_s), qPrintable(output));

        QCOMPARE(m_system.ask("RemoveLocalSource"_s, {"s"_s, entry}), "b true"_s);
        QCOMPARE(box("cat "_s + file), byHand);
    }

    void endsPublishing()
    {
        // On a port that is served already another directory waits for the next start.
        const QString process = box("systemctl show -P MainPID public-repo-8080"_s);
        QCOMPARE(publish(openRepo, 8080, 0), "b true"_s);
        QCOMPARE(box("systemctl show -P MainPID public-repo-8080"_s), process);
        QCOMPARE(unpublish(8080, 0), "b true"_s);
        QCOMPARE(box("ls -R /etc/systemd/system | grep public-repo || true; ls /tmp/*.service || true"_s),
                 QString());
        QCOMPARE(box("systemctl is-active public-repo-8080 || true"_s), "inactive"_s);
        QVERIFY(httpCode("/"_s).startsWith("000"_s));
    }

    void doesOneOfManyCallsForAPort()
    {
        const QString before = m_system.state();
        const QString answers = asUser(R"(for i in {1..4}; do for repo in "$1" "$2"; do
                busctl call -- org.corvana.velt.repo / org.corvana.velt.repo.Manager PublishRepo sii "$repo" 8085 0 2>&1 &
            done; done | sort | uniq -c | xargs; wait)"_s,
                                       {closedRepo, openRepo});
        QCOMPARE(answers, "8 b true"_s);
        const QString served
            = box("systemctl show -P WorkingDirectory public-repo-8085; pgrep -cx lighttpd"_s);
        QVERIFY2(served == closedRepo + "\n1"_s || served == openRepo + "\n1"_s, qPrintable(served));
        QCOMPARE(unpublish(8085, 0), "b true"_s);
        QCOMPARE(m_system.state(), before);
    }

    void servesAptOverFtp()
    {
        const QString byHand
            = "# the administrator's\nlisten=YES\nlisten_ipv6=NO\nlisten_port=2100\nlocal_enable=YES"_s;
        box("printf '%s\n' \"$1\" >/etc/vsftpd.conf; systemctl start vsftpd"_s, {byHand});

        QCOMPARE(publish(openRepo, 2121, 1), "b true"_s);
        QCOMPARE(box("systemctl is-active vsftpd; systemctl is-enabled vsftpd"_s), "active\nenabled"_s);
        QCOMPARE(box("cat /etc/vsftpd.conf.velt-admin-repo.orig"_s), byHand);
        const QString package = "pool/main/f/fizz/fizz_1.0_amd64.deb"_s;
        QCOMPARE(box("curl -s ftp://127.0.0.1:2121/%1 | cmp - \"$1\"/%1"_s.arg(package), {openRepo}),
                 QString());
        // Newer versions of apt cannot be clients.
        if (QFile::exists("/usr/lib/apt/methods/ftp"_s)) {
            const QString source = "deb [trusted=yes] ftp://127.0.0.1:2121/ birch main"_s;
            const QString update = m_system.apt(source, "update"_s);
            QVERIFY2(update.contains("Get:"_s) && !update.contains("W:"_s), qPrintable(update));
            QCOMPARE(asUser("rm -f ~/fizz*.deb"_s), QString());
            const QString download = m_system.apt(source, "download fizz"_s);
            QVERIFY2(asUser("ls ~"_s).contains("fizz_1.0_amd64.deb"_s), qPrintable(download));
        }
        // Nobody writes.
        QVERIFY(box("curl -s -T /etc/hostname ftp://127.0.0.1:2121/pool/x"_s).contains("[25:"_s));

        // Another one on another port takes the place, and what was first written by hand is still kept.
        box("echo '# later' >>/etc/vsftpd.conf"_s);
        QCOMPARE(publish(openRepo, 2122, 1), "b true"_s);
        QCOMPARE(box("cat /etc/vsftpd.conf.velt-admin-repo.orig"_s), byHand);
        QCOMPARE(box("curl -s ftp://127.0.0.1:2122/dists/birch/Release | head -1"_s), "Suite: stable"_s);

        QCOMPARE(unpublish(2122, 1), "b true"_s);
        QCOMPARE(box("systemctl is-active vsftpd || true; systemctl is-enabled vsftpd || true"_s),
                 "inactive\ndisabled"_s);
    }

    void keepsToItsDirectoryOverFtp()
    {
        const QString listing = "curl -s -l ftp://127.0.0.1:2121/ | sort | xargs"_s;
        box(R"(useradd -m bob; mkdir /home/bob/private; echo bob >/home/bob/private/secret; chmod 700 /home/bob)"_s);
        // Its own owner could write into it, and so could everybody.
        box("chown ftp \"$1\"; chmod 777 \"$1\""_s, {openRepo});
        QCOMPARE(publish(openRepo, 2121, 1), "b true"_s);
        QCOMPARE(box(listing), "dists pool"_s);
        QCOMPARE(box("chown tester \"$1\"; chmod 755 \"$1\"; systemd-analyze verify vsftpd.service 2>&1"_s,
                     {openRepo}),
                 QString());

        QCOMPARE(asUser(R"(mv "$1" ~/aside; ln -s /home/bob/private "$1")"_s, {openRepo}), QString());
        QCOMPARE(box(listing), "dists pool"_s);
        const QString ended = "systemctl is-active vsftpd || true; %1"_s.arg(listing);
        QCOMPARE(box("systemctl reload vsftpd 2>/dev/null || true; "_s + listing), "dists pool"_s);
        QCOMPARE(box("systemctl restart vsftpd; sleep 0.5; "_s + ended), "failed"_s);
        QVERIFY(m_system.restart());
        QTRY_COMPARE(box(ended), "failed"_s);
        QCOMPARE(box("rm \"$1\"; systemctl restart vsftpd; sleep 0.5; %1"_s.arg(ended), {openRepo}),
                 "failed"_s);
        QCOMPARE(asUser("mv ~/aside \"$1\""_s, {openRepo}), QString());
        QCOMPARE(box("systemctl restart vsftpd; sleep 0.5; "_s + listing), "dists pool"_s);

        // A configuration that was cut off from its guard is not served; one of the administrator's own is.
        QCOMPARE(
            box("sed -i 's,^anon_root=.*,anon_root=/home/bob/private,' /etc/vsftpd.conf; systemctl restart vsftpd; sleep 0.5; "_s
                + ended),
            "failed"_s);
        QCOMPARE(
            box(R"(mkdir -p /srv/ftp/own; printf '%s\n' listen=YES anonymous_enable=YES listen_port=2121 \
                >/etc/vsftpd.conf; systemctl restart vsftpd; sleep 0.5; )"_s
                + listing),
            "own"_s);
        QCOMPARE(publish(openRepo, 2121, 1), "b true"_s);
        QCOMPARE(unpublish(2121, 1), "b true"_s);
        QCOMPARE(box("ls -d /etc/systemd/system/vsftpd* || true"_s), QString());
    }

    void endsWhatTheAdministratorHasAddedTo()
    {
        const QString added = "# for the firewall\npasv_min_port=30000\npasv_max_port=30010"_s;
        QCOMPARE(publish(openRepo, 2121, 1), "b true"_s);
        QCOMPARE(box("printf '%s\n' \"$1\" >>/etc/vsftpd.conf"_s, {added}), QString());
        const auto startedWith = [this](const QString &change) {
            return box(
                change
                + "; systemctl reset-failed vsftpd; systemctl restart vsftpd; sleep 0.5; "
                  "systemctl is-active vsftpd || true; curl -s -l ftp://127.0.0.1:2121/ | sort | xargs"_s);
        };
        // What vsftpd reads as the same is shown in the same way, and of no other directory more is shown.
        QCOMPARE(startedWith("sed -i 's/^anon_root/ \tanon_root/' /etc/vsftpd.conf"_s),
                 "active\ndists pool"_s);
        QCOMPARE(startedWith("echo anon_root=/srv >>/etc/vsftpd.conf"_s), "failed"_s);
        QCOMPARE(startedWith("sed -i '$d; s,anon_root=.*,anon_root=/srv,' /etc/vsftpd.conf"_s), "failed"_s);
        QCOMPARE(startedWith("sed -i 's,anon_root=.*,anon_root=%1,' /etc/vsftpd.conf"_s.arg(openRepo)),
                 "active\ndists pool"_s);

        // Published elsewhere or once more, it ends with the same lines.
        const QString lastLines = "tail -n +9 /etc/vsftpd.conf"_s;
        QCOMPARE(publish(openRepo, 2122, 1), "b true"_s);
        QCOMPARE(box(lastLines), added);
        QCOMPARE(unpublish(2122, 1), "b true"_s);
        QCOMPARE(publish(openRepo, 2121, 1), "b true"_s);
        QCOMPARE(box(lastLines), added);

        QCOMPARE(box("sed -i /listen_port/d /etc/vsftpd.conf; "
                     "systemctl restart vsftpd; sleep 0.5; curl -s -l ftp://127.0.0.1/ | sort | xargs"_s),
                 "dists pool"_s);
        // Where his users are let in, too, the server is not ours to stop.
        QCOMPARE(box("echo local_enable=YES >>/etc/vsftpd.conf"_s), QString());
        QCOMPARE(unpublish(21, 1), "b false"_s);
        QCOMPARE(box("systemctl is-active vsftpd; sed -i '$d' /etc/vsftpd.conf"_s), "active"_s);
        QCOMPARE(unpublish(21, 1), "b true"_s);
        QCOMPARE(box("systemctl is-active vsftpd || true; ls -d /etc/systemd/system/vsftpd* || true; "
                     "tail -n 3 /etc/vsftpd.conf"_s),
                 QString("inactive\n"_s + added));
    }

    void worksOnTheCommandLine()
    {
        const auto call = [this](const QString &arguments) {
            return asUser("velt-admin-repo-cli "_s + arguments + " 2>&1"_s, {closedRepo, openRepo});
        };
        QCOMPARE(call("published --json"_s), "{\"published\":[]}"_s);
        QVERIFY(call("source-line \"$1\""_s).contains("is not published"_s));
        QVERIFY(m_system.allow(false).isEmpty());
        const QString denied = call("publish \"$1\" --http 8085 --json"_s);
        QVERIFY2(denied.startsWith("{\"error\":{\"code\":\"denied\""_s) && denied.contains("[3:"_s),
                 qPrintable(denied));
        QVERIFY(m_system.allow(true).isEmpty());

        QVERIFY(call("publish \"$1\" --http 8085"_s).endsWith("is published over HTTP on the port 8085."_s));
        QVERIFY(call("publish \"$1\" --http 8085"_s).contains("is published already"_s));
        QVERIFY(call("publish \"$2\" --http 8085"_s).contains("[3:"_s));
        const QString line = call("source-line \"$1\" --host 127.0.0.1 --trusted"_s);
        QCOMPARE(line, "deb [trusted=yes] http://127.0.0.1:8085/ birch main"_s);
        const QString update = m_system.apt(line, "update"_s);
        QVERIFY2(update.contains("Get:"_s) && !update.contains("W:"_s), qPrintable(update));
        // Nobody is there to agree to another configuration of the FTP server.
        QVERIFY(call("publish \"$2\" --ftp 2121"_s).contains("[3:"_s));
        QVERIFY(call("publish \"$2\" --ftp 2121 --yes"_s).endsWith("over FTP on the port 2121."_s));
        QCOMPARE(call("published"_s), "HTTP 8085 active %1\nFTP 2121 active %2"_s.arg(closedRepo, openRepo));

        QVERIFY(call("unpublish 8085"_s).contains("no longer published over HTTP"_s));
        QVERIFY(call("unpublish \"$2\""_s).contains("no longer published over FTP"_s));
        QVERIFY(call("unpublish \"$2\""_s).contains("[3:"_s));
        QCOMPARE(box("systemctl is-active vsftpd public-repo-8085 || true"_s), "inactive\ninactive"_s);
        // Without a bus the reason is told at once.
        const QString unreachable
            = asUser("DBUS_SYSTEM_BUS_ADDRESS=unix:path=/none velt-admin-repo-cli publish \"$1\" 2>&1"_s,
                     {closedRepo});
        QVERIFY2(unreachable.contains("The system bus cannot be reached"_s), qPrintable(unreachable));
    }

    void leavesTheUnitOfAServiceThatGoesOn_data()
    {
        QTest::addColumn<QString>("service");
        QTest::addColumn<QString>("file");
        QTest::newRow("HTTP") << "public-repo-8084"_s
                              << "public-repo-8084.service"_s;
        QTest::newRow("FTP") << "vsftpd"_s
                             << "vsftpd.service.d/velt-admin-repo.conf"_s;
    }

    void leavesTheUnitOfAServiceThatGoesOn()
    {
        QFETCH(QString, service);
        QFETCH(QString, file);
        const int protocol = service == "vsftpd"_s ? 1 : 0;
        QCOMPARE(publish(openRepo, 8084, protocol), "b true"_s);
        const QString look
            = "systemctl is-active %1 || true; cd /etc/systemd/system; ls %2 || true"_s.arg(service, file);
        const QString own = "/run/systemd/system/%1.service.d"_s.arg(service);
        QCOMPARE(
            box("mkdir -p \"$1\"; printf '[Unit]\nRefuseManualStop=yes\n' >\"$1\"/test.conf; systemctl daemon-reload"_s,
                {own}),
            QString());
        QCOMPARE(unpublish(8084, protocol), "b true"_s);
        QCOMPARE(box(look), "active\n"_s + file);
        QCOMPARE(box("rm -r \"$1\"; systemctl daemon-reload"_s, {own}), QString());
        QCOMPARE(unpublish(8084, protocol), "b true"_s);
        QCOMPARE(box(look), "inactive"_s);
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("answer");
        const auto publishing = [](const char *name, const QString &answer, const QString &path) {
            QTest::newRow(name) << "PublishRepo"_s << QStringList{"sii"_s, path, "8081"_s, "0"_s} << answer;
        };
        // The text alone is judged in the tests of the helper; here it reaches no file.
        publishing("a line more",
                   "The directory is not an absolute path"_s,
                   openRepo + "\nExecStartPre=/bin/touch /etc/hacked"_s);
        const QString canonical = "is not the canonical path"_s;
        publishing("no repository", canonical, "/etc"_s);
        publishing("nothing there", canonical, "/home/tester/none"_s);
        publishing("a link", canonical, "/home/tester/link"_s);
        publishing("in a temporary folder", canonical, "/var/tmp/repo"_s);
        publishing("not allowed", "Access denied"_s, openRepo);
        QTest::newRow("somebody else's FTP") << "UnpublishRepo"_s
                                             << "ii|21|1"_list
                                             << "b false"_s;
    }

    void refuses()
    {
        QFETCH(QString, method);
        QFETCH(QStringList, arguments);
        QFETCH(QString, answer);
        const bool isAllowed = QByteArray(QTest::currentDataTag()) != "not allowed";
        box(R"(cd /home/tester; [ -e link ] || ln -s open\ repo link
            [ -e /var/tmp/repo ] || cp -r open\ repo /var/tmp/repo
            echo 'listen=YES' >/etc/vsftpd.conf)"_s);
        if (!isAllowed)
            QCOMPARE(m_system.allow(false), QString());
        const QString before = m_system.state();
        const QString told = m_system.ask(method, arguments);
        const QString after = m_system.state();
        if (!isAllowed)
            QCOMPARE(m_system.allow(true), QString());
        QVERIFY2(told.contains(answer), qPrintable(told));
        QCOMPARE(after, before);
    }

    void leavesEverythingWhenItFails_data()
    {
        QTest::addColumn<QString>("obstacle");
        QTest::addColumn<QString>("relief");
        QTest::addColumn<int>("protocol");
        QTest::addColumn<QString>("reason");
        const QString taken
            = "systemd-run -q --unit=other --service-type=exec /usr/bin/python3 -m http.server 8082; "
              "until curl -s -o /dev/null http://127.0.0.1:8082/; do sleep 0.1; done"_s;
        const QString freed = "systemctl stop other"_s;
        QTest::newRow("HTTP, port taken") << taken << freed << 0 << "Address already in use"_s;
        QTest::newRow("FTP, port taken")
            << taken << freed << 1 << "vsftpd.service: Failed with result 'exit-code'"_s;
        QTest::newRow("FTP, port taken, another runs")
            << taken << freed << 1 << "vsftpd.service: Failed with result 'exit-code'"_s;
        QTest::newRow("HTTP, no server")
            << "chmod -x /usr/sbin/lighttpd"_s
            << "chmod +x /usr/sbin/lighttpd"_s << 0 << "failed to execute /usr/sbin/lighttpd"_s;
        QTest::newRow("FTP, no server")
            << "chmod -x /usr/sbin/vsftpd"_s
            << "chmod +x /usr/sbin/vsftpd"_s << 1 << "failed to execute /usr/sbin/vsftpd"_s;
        QTest::newRow("HTTP, server crashes")
            << "printf '#!/usr/bin/perl\nprint unpack \"p\", pack \"J\", 1;\n' >/run/crash; chmod +x "
               "/run/crash; "
               "mount --bind /run/crash /usr/sbin/lighttpd"_s
            << "umount /usr/sbin/lighttpd; journalctl -u public-repo-8082 -o cat | grep -c status=11/SEGV >/dev/null"_s
            << 0 << "status=11/SEGV"_s;
        QTest::newRow("HTTP, masked")
            << "systemctl -q mask public-repo-8082"_s
            << "test -L /etc/systemd/system/public-repo-8082.service; systemctl -q unmask public-repo-8082"_s
            << 0 << "it is a link or no regular file"_s;
        QTest::newRow("units cannot be written")
            << "mount --bind /etc/systemd/system /etc/systemd/system; "
               "mount -o remount,bind,ro /etc/systemd/system; systemctl stop velt-admin-repo-helper"_s
            << "systemctl stop velt-admin-repo-helper; umount /etc/systemd/system"_s << 0
            << "Read-only file system"_s;
    }

    void leavesEverythingWhenItFails()
    {
        QFETCH(QString, obstacle);
        QFETCH(QString, relief);
        QFETCH(int, protocol);
        QFETCH(QString, reason);
        const bool anotherRuns = QByteArray(QTest::currentDataTag()).endsWith("runs");
        box("printf 'listen=YES\n# by hand\n' >/etc/vsftpd.conf; rm -f /etc/vsftpd.conf.velt*; systemctl %1 vsftpd"_s
                .arg(anotherRuns ? "start"_s : "stop"_s));
        const QString before = m_system.state();
        QCOMPARE(box(obstacle), QString());
        const QString journal = "journalctl --sync; journalctl -q -o cat --cursor-file=/run/cursor"_s;
        box(journal);
        const QString told = publish(openRepo, 8082, protocol);
        QCOMPARE(box(relief), QString());
        QCOMPARE(told, "b false"_s);
        QCOMPARE(m_system.state(), before);
        // Although the unit has gone, the reason can be looked up: in the log of this very start, or in the journal.
        const QString logs
            = box("[ \"$1\" = 1 ] || cat /tmp/http8082.log; "_s + journal, {QString::number(protocol)});
        QVERIFY2(logs.contains(reason), qPrintable(logs));

        // Nothing that was left over is in the way of the next attempt.
        QCOMPARE(publish(openRepo, 8082, protocol), "b true"_s);
        QCOMPARE(unpublish(8082, protocol), "b true"_s);
    }

    void publishesFromTheWindow()
    {
        QVERIFY(QFile::copy(QStringLiteral(WINDOW_PROGRAM), m_system.sharedFolder() + "/window"_s));
        const QString output = asUser(R"(export QT_QPA_PLATFORM=offscreen
            export DBUS_SYSTEM_BUS_ADDRESS=unix:path=/run/dbus/system_bus_socket
            timeout 80 /shared/window publishes 2>&1)"_s);
        QVERIFY2(output.contains("4 passed, 0 failed, 0 skipped"_s), qPrintable(output));
    }
};

VELT_TEST_MAIN(PublicationJobTest, QCoreApplication)
#include "tst_publicationjob.moc"
