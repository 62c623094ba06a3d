// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptfetch.h"
#include "engine/engineharness.h"
#include "support/testkeys.h"

/** The description as a whole, with the real reprepro and gpg; gpgv and apt see what clients see. */
class TestDescription : public QObject
{
    Q_OBJECT
private:
    QString m_first; ///< gpg's default key
    QString m_second;

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("gpgv");
        VELT_NEED_TOOL("apt-get");
        m_first = TestKeys::make("First <f@example.org>"_s);
        m_second = TestKeys::make("Second <s@example.org>"_s);
    }

    void clientsSeeTheNewValues()
    {
        RepoHarness h("amd64 i386"_s);
        for (const QString &key : {m_first, m_second})
            TestKeys::gpg({"-o"_s, h.folder.filePath(key + ".gpg"_s), "--export"_s, key});
        h.add(h.debs("foo") + QStringList{h.deb(DebBuilder("bar"_s).udeb())});
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray others
            = "# by hand: ü\nNotAutomatic: yes\nTracking: minimal\nContentsArchitectures: amd64\n";
        writeFile(conf, readFile(conf) + others);
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        h.reprepro({"retrack"_s});
        const auto change = [&h](const std::function<void(RepoInfo &)> &edit) {
            h.info = h.shell.repoInfo();
            edit(h.info);
            return h.change(h.repoPath(), true) == RepoEnums::SUCCESS && h.questions.isEmpty()
                   && h.trouble().isEmpty() && h.settled();
        };
        const auto isSignedBy = [&h](const QString &key) {
            const QString dists = h.repoPath() + "/dists/"_s + h.shell.repoInfo().codename;
            const QStringList keyring{"--keyring"_s, h.folder.filePath(key + ".gpg"_s)};
            return runProcess({"gpgv"_s, keyring + QStringList{dists + "/InRelease"_s}, {}, {}, -1})
                       .succeeded()
                   && runProcess({"gpgv"_s,
                                  keyring + QStringList{dists + "/Release.gpg"_s, dists + "/Release"_s},
                                  {},
                                  {},
                                  -1})
                          .succeeded();
        };
        // What apt says with the public part of this key: nothing when it is content.
        const auto update = [&h](const QString &key, const QString &option = {}) {
            return runShell(R"(mkdir -p state/lists/partial cache/archives/partial; : >state/status
                echo "deb [signed-by=$PWD/%1.gpg arch=amd64] file:$PWD/repo %2 main" >state/list
                apt-get -qq update -o Dir::Etc::SourceList=$PWD/state/list -o Dir::Etc::SourceParts=/dev/null \
                    -o Dir::State=$PWD/state -o Dir::State::status=$PWD/state/status -o Dir::Cache=$PWD/cache \
                    -o APT::Sandbox::User= -o APT::Update::Error-Mode=any %3 2>&1 || true)"_s.arg(
                                key, h.shell.repoInfo().codename, option),
                            h.folder.path())
                .trimmed();
        };

        QVERIFY2(change([](RepoInfo &info) { info.signWith = true; }), qPrintable(h.words()));
        QVERIFY(isSignedBy(m_first) && !isSignedBy(m_second));
        QCOMPARE(update(m_first), QString());
        QVERIFY2(change([this](RepoInfo &info) {
                     info.label = "Ours"_s;
                     info.description = "Tools: of our own"_s;
                     info.signKey = m_second;
                     info.contents = true;
                     info.contentsChoices = ". .xz udebs"_s;
                     info.validFor = 42;
                 }),
                 qPrintable(h.words()));
        const QByteArray release = readFile(h.repoPath() + "/dists/dogwood/Release"_s);
        for (const char *line : {"Label: Ours\n", "Description: Tools: of our own\n", "NotAutomatic: yes\n"})
            QVERIFY2(release.contains(line), release.constData());
        const QString until = runShell("date -ud \"$(sed -n 's/^Date: //p' Release) + 42 days\" +%s; "
                                       "date -ud \"$(sed -n 's/^Valid-Until: //p' Release)\" +%s"_s,
                                       h.repoPath() + "/dists/dogwood"_s);
        QCOMPARE(until.section(u'\n', 0, 0), until.section(u'\n', 1, 1));
        const QString listed = runShell("find . -name 'Contents*' -printf '%f\n' | sort -u | tr '\n' ' '"_s,
                                        h.repoPath() + "/dists"_s);
        QCOMPARE(listed.trimmed(),
                 "Contents-amd64 Contents-amd64.xz Contents-udeb-amd64 Contents-udeb-amd64.xz"_s);
        QVERIFY(isSignedBy(m_second) && !isSignedBy(m_first));
        const QString said = update(m_first);
        QVERIFY2(AptFetch::problems(said).join(u' ').contains("is not trusted"_s), qPrintable(said));
        QVERIFY(update(m_second).contains("'Label'"_s));
        QCOMPARE(update(m_second, "--allow-releaseinfo-change"_s), QString());

        // The packages and the tracks go along, and what was written by hand.
        QVERIFY2(change([](RepoInfo &info) {
                     info.codename = "elm"_s;
                     info.contentsChoices.clear();
                     info.validFor = 0;
                 }),
                 qPrintable(h.words()));
        QVERIFY2(h.holds("bar 1.0 main amd64,foo 1.0 main amd64"_s), qPrintable(h.listed().join(u'\n')));
        QVERIFY(readFile(conf).endsWith(QByteArray("Contents: .gz\n" + others)));
        QVERIFY(isSignedBy(m_second) && update(m_second).isEmpty());
        QVERIFY(!QFile::exists(conf + ".orig"_s));
    }

    void aKeyThatCannotSignChangesNothing()
    {
        RepoHarness h;
        h.info.signWith = true;
        const QByteArray before = readFile(h.repoPath() + "/conf/distributions"_s);
        const QString expired = TestKeys::makeExpired("old"_s);
        for (const auto &[key, said] : {std::pair(expired, "expired"_s),
                                        {"0123456789ABCDEF"_s, "no secret key"_s},
                                        {"!evil.sh"_s, "8 to 40"_s}}) {
            h.info.signKey = key;
            QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR);
            QVERIFY2(h.complains(said), qPrintable(h.trouble()));
            QCOMPARE(readFile(h.repoPath() + "/conf/distributions"_s), before);
            QVERIFY(h.shell.createRepo(h.at("other"), h.info) != RepoEnums::SUCCESS);
            QVERIFY(!QFile::exists(h.at("other")));
        }
    }
};

VELT_TEST_MAIN(TestDescription, QCoreApplication)
#include "tst_description.moc"
