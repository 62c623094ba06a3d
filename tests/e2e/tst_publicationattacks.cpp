// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/throwawaysystem.h"

/** What the owner of a published repository, or a client, tries in order to get at more than is meant to be served. */
class PublicationAttacksTest : public ThrowAwayTest
{
    Q_OBJECT

    QString httpCode(const QString &path) const
    {
        return box("curl -s --path-as-is -o /dev/null -w '%{http_code}' http://127.0.0.1:8080\"$1\""_s,
                   {path});
    }

    void prepare() override
    {
        for (const QString &script : {"exchange.py"_s, "hiddennames.py"_s, "manyclients.py"_s})
            QVERIFY(QFile::copy(QStringLiteral(SCRIPTS) + u'/' + script,
                                m_system.sharedFolder() + u'/' + script));
        QCOMPARE(box(R"(mkdir -m 700 /run/vault; echo secret >/run/vault/0; chmod 600 /run/vault/0
            for repo; do cd "$repo"; mkdir -p .gnupg backup pool/.git/objects
                for file in signing-key.asc backup/dump.sql repository-key.asc pool/.git/config .gnupg/key; do
                    echo "$file" >$file
                done
                chown -R tester: .
            done)"_s,
                     {closedRepo, openRepo}),
                 QString());
        QCOMPARE(m_system.publish(closedRepo, 8080, 0), "b true"_s);
        QCOMPARE(m_system.publish(openRepo, 2121, 1), "b true"_s);
    }

private Q_SLOTS:
    void readsNoMoreThanTheOwnerOverHttp()
    {
        // Whatever is put in the way of the server, it is no more than its owner and sees nothing else of the system.
        QCOMPARE(box(R"(process=$(pgrep -x lighttpd); cd /proc/$process
            grep -E '^(Uid|CapPrm|CapEff):' status | xargs; ls root root/dev root/srv | xargs)"_s),
                 "Uid: %1 %1 %1 %1 CapPrm: 0000000000000400 CapEff: 0000000000000400\n"
                 "root: bin dev etc %2 sbin srv usr root/dev: null requests root/srv: =repository"_s.arg(
                     box("id -u tester"_s), box("cd /; ls -d lib* | xargs"_s)));
        QCOMPARE(asUser("python3 /shared/exchange.py \"$1\" 8080 /run/vault 200000"_s, {closedRepo}),
                 "own"_s);

        // A file of root's that lies in a folder of the owner's can be moved by the owner, and not read.
        box("echo secret >/home/tester/roots; chmod 600 /home/tester/roots"_s);
        QCOMPARE(asUser("mv ~/roots \"$1\"/pool"_s, {closedRepo}), QString());
        QCOMPARE(httpCode("/pool/roots"_s), "403"_s);
        QCOMPARE(httpCode("/dists/birch/Release"_s), "200"_s);
    }

    void readsNothingOfOtherUsersOverHttp()
    {
        // Another user's repository in a folder of the owner's, who puts it into the place of the published one.
        const QString place = "/srv/both/repo"_s;
        QCOMPARE(box(R"(useradd -m bob; mkdir -p /srv/both; chown tester: /srv/both
            cp -r --preserve=mode "$1" "$2"; chown -R tester: "$2"
            cp -r "$2" /srv/both/bobs; chown -R bob: /srv/both/bobs; chmod 700 /srv/both/bobs)"_s,
                     {openRepo, place}),
                 QString());
        QCOMPARE(m_system.publish(place, 8081, 0), "b true"_s);
        const QString look
            = "systemctl reset-failed public-repo-8081; systemctl restart public-repo-8081; sleep 0.5; "
              "curl -s -o /dev/null -w '%{http_code}' http://127.0.0.1:8081/dists/birch/Release || true"_s;
        QCOMPARE(box(look), "200"_s);
        QCOMPARE(asUser("cd /srv/both; mv repo aside; mv bobs repo"_s), QString());
        QCOMPARE(box(look), "403"_s);
        // In root's own folder others cannot have put it there. Files of root's are read with nobody's rights.
        QCOMPARE(box("chown root: /srv/both; %1"_s.arg(look)), "200"_s);
        QCOMPARE(
            box("chown -R root: /srv/both; chmod 755 /srv/both/repo; chmod 600 /srv/both/repo/dists/birch/Release; %1"_s
                    .arg(look)),
            "403"_s);
        QCOMPARE(box("chmod 644 /srv/both/repo/dists/birch/Release; %1"_s.arg(look)), "200"_s);
        QCOMPARE(m_system.unpublish(8081, 0), "b true"_s);
    }

    void showsWhatClientsNeedAndNothingElse()
    {
        for (const char *path : {"/", "/dists/stable/Release", "/pool/", "/repository-key.asc"})
            QVERIFY2(httpCode(QString::fromUtf8(path)) == "200"_s, path);
        for (const char *path : {"/signing-key.asc",
                                 "/backup/dump.sql",
                                 "/conf/distributions",
                                 "/repository-key.asc.old",
                                 "/distsX",
                                 "/repository/conf/distributions",
                                 "/.gnupg/key",
                                 "/pool/.git/config",
                                 "/pool/%2egit/config",
                                 "/pool/.git/objects/"})
            QVERIFY2(httpCode(QString::fromUtf8(path)) == "403"_s, path);
        QCOMPARE(box("curl -s http://127.0.0.1:8080/ | grep -o 'href=\"[^\"]*' | cut -c7- | xargs"_s),
                 "dists/ pool/ repository-key.asc"_s);

        const QString ftp = R"(from ftplib import FTP
ftp = FTP(); ftp.connect("127.0.0.1", 2121, 20); ftp.login()
def seen(*commands):
    try:
        for command in commands[:-1]: ftp.sendcmd(command)
        lines = []; ftp.retrlines(commands[-1], lines.append); return " ".join(lines)
    except Exception as error: return str(error)[:3]
    finally: ftp.cwd("/")
print(seen("NLST"), seen("RETR repository-key.asc"), seen("CWD pool", "CWD ..", "NLST"))
print(*[seen(*commands.split(";")) for commands in ("RETR conf/distributions", "RETR signing-key.asc",
    "CWD dists;RETR ../conf/distributions", "RETR ../repository/conf/distributions", "CWD repository;NLST",
    "CWD pool/.git;NLST", "RETR pool/.hidden", "CWD pool;RETR .hidden")])
print(*[seen("RETR dists/" + suite + "/Release").split(" Date")[0] for suite in ("birch", "stable")]))"_s;
        box("echo x >\"$1\"/pool/.hidden"_s, {openRepo});
        QCOMPARE(box("python3 -c \"$1\""_s, {ftp}),
                 "dists pool repository-key.asc repository-key.asc dists pool repository-key.asc\n"
                 "550 550 550 550 550 550 550 550\n"
                 "Suite: stable Codename: birch Suite: stable Codename: birch"_s);
    }

    void hidesNamesWithADotAtEveryLevelOverFtp()
    {
        QCOMPARE(box("python3 /shared/hiddennames.py \"$1\""_s, {openRepo}),
                 "before: [] [] []\nlate: [] [] []\n"
                 "seen: ['CWD', 'LIST', 'MDTM', 'NLST', 'RETR', 'SIZE', 'STAT']\nrenamed: 550\nlink: []\n"
                 "listed in dists:\nlisted in pool:\nlisted in pool/main:\nlisted in dists/birch:"_s);
    }

    void showsFoldersThatAreMadeAnew()
    {
        // With the last package reprepro removes the folder pool.
        const QString look = R"(curl -s -l ftp://127.0.0.1:2121/ | xargs
            curl -s -o /dev/null -w '%{http_code} ' http://127.0.0.1:8080/pool/main/f/fizz/fizz_1.0_amd64.deb
            curl -s -I ftp://127.0.0.1:2121/pool/main/f/fizz/fizz_1.0_amd64.deb | grep -c Length || true)"_s;
        for (const QString &repo : {closedRepo, openRepo})
            QCOMPARE(asUser("rm -rf \"$1\"/pool/[!m]* \"$1\"/pool/.[!.]*; "
                            "reprepro -s -b \"$1\" remove birch fizz; ls -d \"$1\"/pool || true"_s,
                            {repo}),
                     QString());
        QTRY_COMPARE(box(look), "dists repository-key.asc\n404 0"_s);
        for (const QString &repo : {closedRepo, openRepo})
            QCOMPARE(asUser("reprepro -s -b \"$1\" includedeb birch ~/fizz_1.0_amd64.deb"_s, {repo}),
                     QString());
        QTRY_COMPARE(box(look), "dists pool repository-key.asc\n200 1"_s);
    }

    void leavesPlacesForOthersWhileOneAddressTakesAllItCan()
    {
        QCOMPARE(box("python3 /shared/manyclients.py flood"_s),
                 "open: 100\nothers: 200\nafter 25 seconds: 100\nothers: 200\nin the end: 200"_s);
        QCOMPARE(box("grep -c 'has 100 connections open' /tmp/http8080.log"_s), "1"_s);

        // What a busy client does is none of that; neither is apt beside one that takes all it can.
        QCOMPARE(box("curl -s -Z --parallel-max 60 -o /dev/null -w '%{http_code}\n' "
                     "'http://127.0.0.1:8080/dists/birch/Release?[1-600]' | sort | uniq -c | xargs"_s),
                 "600 200"_s);
        QCOMPARE(box("systemd-run -q --unit=flood python3 /shared/manyclients.py hold"_s), QString());
        QTRY_COMPARE(box("ss -Htn state established src 127.0.0.3 | wc -l"_s), "100"_s);
        const QString update
            = m_system.apt("deb [trusted=yes] http://127.0.0.1:8080/ birch main"_s, "update"_s);
        QVERIFY2(!update.contains("W:"_s) && !update.contains("E:"_s), qPrintable(update));
        box("systemctl stop flood"_s);
    }

    void endsTheLogAtItsMaximum()
    {
        QCOMPARE(
            box("curl -s -Z -o /dev/null -w '%{http_code}\n' \"http://127.0.0.1:8080/dists/birch/Release?$("
                "printf '%8000s' | tr ' ' x)[1-9000]\" | sort | uniq -c | xargs"_s),
            "9000 200"_s);
        const QString size = "stat -L -c %s /tmp/http8080.log"_s;
        QTRY_COMPARE_WITH_TIMEOUT(box(size), QString::number(64 * 1024 * 1024), 15000);
        QCOMPARE(httpCode("/dists/birch/Release"_s), "200"_s);
    }

    void leavesNothingMounted()
    {
        const QString look = "grep -c -e velt -e repo /proc/self/mountinfo || true; pgrep -c -f "
                             "velt-admin-repo-moun[t] || true; "
                             "ls /run | grep -e velt-admin -e public-repo || true"_s;
        QCOMPARE(box(look), "0\n2\npublic-repo-8080\nvelt-admin-repo-ftp"_s);
        QCOMPARE(
            box("systemctl kill -s KILL public-repo-8080 vsftpd; systemctl stop public-repo-8080; sleep 0.5; "_s
                + look),
            "0\n0"_s);
        for (const QString &server : {"lighttpd"_s, "vsftpd"_s}) {
            const int protocol = server == "vsftpd"_s ? 1 : 0;
            box("chmod -x /usr/sbin/"_s + server);
            QCOMPARE(m_system.publish(openRepo, 8082, protocol), "b false"_s);
            QCOMPARE(box("chmod +x /usr/sbin/%1; %2"_s.arg(server, look)), "0\n0"_s);
        }
        QCOMPARE(m_system.unpublish(8080, 0) + m_system.unpublish(2121, 1), "b trueb true"_s);
        QCOMPARE(box(look), "0\n0"_s);
    }
};

VELT_TEST_MAIN(PublicationAttacksTest, QCoreApplication)
#include "tst_publicationattacks.moc"
