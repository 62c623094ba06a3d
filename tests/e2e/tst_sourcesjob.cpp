// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/throwawaysystem.h"

/** What this machine's own apt makes of the lines that the program gives it, and others of the ports they lead to. */
class SourcesJobTest : public ThrowAwayTest
{
    Q_OBJECT

    QString m_fingerprint;
    QString m_key;

    /** The version of the package that root's apt installs, and takes away again. */
    QString installed() const
    {
        return box(R"(rm -rf /var/lib/apt/lists/*; apt-get clean
            { apt-get update; apt-get install -y fizz; } >/tmp/apt.log 2>&1 || true
            dpkg-query -W -f '${Version}' fizz 2>/dev/null || echo none
            dpkg --purge fizz >/dev/null 2>&1)"_s);
    }

    QString window(const QString &function) const
    {
        return asUser(R"(export QT_QPA_PLATFORM=offscreen
            export DBUS_SYSTEM_BUS_ADDRESS=unix:path=/run/dbus/system_bus_socket
            timeout 120 /shared/window "$1" 2>&1)"_s,
                      {function});
    }

    void prepare() override
    {
        QVERIFY(QFile::copy(QStringLiteral(WINDOW_PROGRAM), m_system.sharedFolder() + "/window"_s));
        // The same repository once more, signed; and what another user would like to see installed.
        m_fingerprint = asUser(R"(cd
            gpg -q --batch --passphrase '' --quick-gen-key 'T <t@example.org>' ed25519 sign never 2>/dev/null
            key=$(gpg --with-colons --list-keys | awk -F: '$1 == "fpr" { print $10; exit }')
            cp -r "$1" signed; echo "SignWith: $key" >>signed/conf/distributions
            reprepro -s -b signed export; echo "$key")"_s,
                               {openRepo});
        QCOMPARE(m_fingerprint.size(), 40);
        m_key = asUser("gpg --armor --export-options export-minimal --export"_s) + u'\n';
        QCOMPARE(box(R"(useradd -m mallory; cd /home/mallory; mkdir -p evil/conf package/DEBIAN
            cp "$1"/conf/distributions evil/conf
            printf '%s\n' 'Package: fizz' 'Version: 6.66' 'Architecture: amd64' 'Maintainer: M <m@example.org>' \
                'Section: admin' 'Priority: optional' 'Description: test' >package/DEBIAN/control
            dpkg-deb --root-owner-group -b package fizz.deb >/dev/null
            gpg -q --batch --passphrase '' --quick-gen-key 'T <t@example.org>' ed25519 sign never 2>/dev/null
            echo "SignWith: yes" >>evil/conf/distributions
            reprepro -s -b evil includedeb birch fizz.deb; chmod -R a+rX /home/mallory)"_s,
                     {openRepo}),
                 QString());
    }

private Q_SLOTS:
    void keepsTheNextOwnerOfThePortOut_data()
    {
        QTest::addColumn<bool>("isSigned");
        QTest::addColumn<QString>("version");
        // The first shows that the danger is real.
        QTest::newRow("trusted") << false << "6.66"_s;
        QTest::newRow("signed") << true << "none"_s;
    }

    void keepsTheNextOwnerOfThePortOut()
    {
        QFETCH(bool, isSigned);
        const QString keyFile = "/etc/apt/keyrings/velt-admin-repo-%1.asc"_s.arg(m_fingerprint);
        const QString entry = "deb [%1] http://127.0.0.1:8080/ birch main"_s.arg(
            isSigned ? "signed-by="_s + keyFile : "trusted=yes"_s);
        QCOMPARE(m_system.publish("/home/tester/signed"_s, 8080, 0), "b true"_s);
        QCOMPARE(isSigned ? m_system.ask("AddSignedLocalSource"_s, {"ss"_s, entry, m_key})
                          : m_system.ask("AddLocalSource"_s, {"s"_s, entry}),
                 "b true"_s);
        QCOMPARE(box("stat -c '%U %a' \"$1\" 2>/dev/null || echo none"_s, {keyFile}),
                 isSigned ? "root 644"_s : "none"_s);
        QCOMPARE(installed(), "1.0"_s);

        QCOMPARE(m_system.unpublish(8080, 0), "b true"_s);
        QCOMPARE(box(R"(systemd-run -q --unit=mallory --uid=mallory --working-directory=/home/mallory/evil \
                    /usr/bin/python3 -m http.server 8080
                until curl -s -o /dev/null http://127.0.0.1:8080/; do sleep 0.1; done)"_s),
                 QString());
        const QString version = installed();
        QCOMPARE(box("systemctl stop mallory"_s), QString());
        QTEST(version, "version");

        QCOMPARE(m_system.ask("RemoveLocalSource"_s, {"s"_s, entry}), "b true"_s);
        QCOMPARE(box("ls /etc/apt/keyrings; cat /etc/apt/sources.list.d/*"_s), QString());
    }

    void usesWhatTheWindowAdds()
    {
        const QString added = window("addsSources"_s);
        QVERIFY2(added.contains("3 passed, 0 failed, 0 skipped"_s), qPrintable(added));
        const QString list = "/etc/apt/sources.list.d/velt-admin-repo.list"_s;
        for (const QString &line : {"1p"_s, "2p"_s}) {
            // One of the two at a time, out of a home that is closed to apt's own user.
            QCOMPARE(box("cp \"$1\" /root/list; sed -n \"$2\" /root/list >\"$1\""_s, {list, line}),
                     QString());
            const QString version = installed();
            QCOMPARE(box("cat /root/list >\"$1\""_s, {list}), QString());
            QCOMPARE(version, "1.0"_s);
        }
        // Open to everybody, the packages are used where they lie.
        const QString open = "deb [trusted=yes] file:///home/tester/open%20repo/ birch main"_s;
        QCOMPARE(box("chmod 755 /home/tester; echo \"$1\" >/etc/apt/sources.list.d/open.list; : >\"$2\""_s,
                     {open, list}),
                 QString());
        QCOMPARE(installed(), "1.0"_s);
        QCOMPARE(box("ls /var/cache/apt/archives/*.deb 2>/dev/null || true"_s), QString());
        QCOMPARE(box("cat /root/list >\"$1\"; rm /etc/apt/sources.list.d/open.list"_s, {list}), QString());

        const QString port = "deb [trusted=yes] http://localhost:8080/ birch main"_s;
        QCOMPARE(m_system.ask("AddLocalSource"_s, {"s"_s, port}), "b true"_s);
        const QString removed = window("removesSources"_s);
        QVERIFY2(removed.contains("3 passed, 0 failed, 0 skipped"_s), qPrintable(removed));
        QCOMPARE(box("ls /etc/apt/keyrings"_s), QString());
    }
};

VELT_TEST_MAIN(SourcesJobTest, QCoreApplication)
#include "tst_sourcesjob.moc"
