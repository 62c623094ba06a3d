// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "signing/signedpackages.h"
#include "support/standin.h"
#include "support/testkeys.h"

namespace
{
const QString KeyName = "Release key ü <r@example.org>"_s;
} // namespace

/** Signed packages with the real reprepro and gpg. */
class TestPackageSigning : public QObject
{
    Q_OBJECT
private:
    QString m_key;
    QString m_keyText;
    QString m_expired;

    AddOptions signedWith(const QString &key) const { return {QString(), true, key}; }
    /** The entries of packages.conf, as "component_architecture_name", sorted. */
    static QStringList recorded(const EngineHarness &h)
    {
        QStringList names
            = SignedPackages(SignedPackages::packagesConfPath(h.shell.path())).allKeyInfo().keys();
        names.sort();
        return names;
    }
    bool isSignedInPool(const EngineHarness &h, const PackageInfoPtr &package) const
    {
        return package->signingKey == m_keyText && TestKeys::verifies(package->filePath(), m_key)
               && recorded(h).contains(
                   "%1_%2_%3"_s.arg(package->component, package->architecture, package->name));
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("debsig-verify");
        m_key = TestKeys::make(KeyName);
        m_keyText = TestKeys::text(KeyName, m_key);
        m_expired = TestKeys::makeExpired("expired"_s);
    }

    void signedWhileAdding()
    {
        RepoHarness h("amd64 i386"_s);
        const QStringList file = h.debs("foo");
        const QString everywhere = h.deb(DebBuilder("everywhere"_s).architecture("all"_s));
        QCOMPARE(h.add(file + QStringList{everywhere}, signedWith(m_key.right(8))), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QVERIFY(isSignedInPool(h, h.find("foo"_s)) && isSignedInPool(h, h.find("everywhere"_s, "i386"_s)));
        const QStringList all{"main_amd64_everywhere"_s, "main_amd64_foo"_s, "main_i386_everywhere"_s};
        QCOMPARE(recorded(h), all);
        QVERIFY(readFile(h.repoPath() + "/packages.conf"_s).startsWith("[KeyInfo]\nmain_amd64_everywhere="));
        QVERIFY(h.settled());
        // The next opening knows it from the record.
        h.open(h.repoPath());
        QCOMPARE(h.find("everywhere"_s, "i386"_s)->signingKey, m_keyText);

        // A key that fails costs nothing, neither the package that is there nor what is known of it.
        h.choice = PackageReplacementRules::ReplaceThis;
        const QStringList newer = h.debs("foo bar", "2.0");
        QCOMPARE(h.add(newer, signedWith(m_expired)), RepoEnums::SUCCESS);
        QCOMPARE(h.criticals.size(), 2);
        QVERIFY(h.criticals.first().startsWith("Failed to sign package foo!|"_s)
                && h.criticals.last().startsWith("Failed to sign package bar!|"_s)
                && h.criticals.last().endsWith("(expired): it expired on 2020-01-02\n"_s));
        QVERIFY(h.events.isEmpty() && isSignedInPool(h, h.find("foo"_s)) && recorded(h) == all);

        // Replaced by an unsigned one it is unsigned.
        QCOMPARE(h.add({newer.first()}), RepoEnums::SUCCESS);
        QVERIFY(!h.find("foo"_s)->isSigned() && !recorded(h).contains("main_amd64_foo"_s));
        h.remove({h.find("everywhere"_s, "i386"_s)});
        QCOMPARE(recorded(h), "main_amd64_everywhere"_list);
        QVERIFY(h.settled());
        // Nor does it inherit the key of one that was removed without us.
        h.reprepro({"remove"_s, "dogwood"_s, "everywhere"_s});
        h.open(h.repoPath());
        h.add({everywhere});
        QCOMPARE(recorded(h), QStringList());
    }

    void signJob()
    {
        RepoHarness h("amd64 i386"_s);
        h.shell.setDependsRepoType(DependsLocal);
        const QString everywhere
            = h.deb(DebBuilder("everywhere"_s).architecture("all"_s).field("Depends"_s, "foo"_s));
        // There is a foo for one of the architectures.
        const auto keepsItsResults = [&h] {
            return h.find("everywhere"_s, "amd64"_s)->dependStatus() == DependSuccess
                   && h.find("everywhere"_s, "i386"_s)->dependStatus() == DependError;
        };
        h.add(h.debs("foo bar") + QStringList{everywhere, h.deb(DebBuilder("u"_s).udeb())});
        const auto sign = [&](const QList<PackageInfoPtr> &packages, const QString &key) {
            return h.run([&] { h.shell.signPackages(packages, key); });
        };
        const QStringList before = h.listed();
        const QByteArray unsignedFile = h.inPool("foo"_s);
        QCOMPARE(sign({h.find("foo"_s), h.find("bar"_s)}, m_expired), RepoEnums::PACKAGE_UNSIGNED);
        QVERIFY(h.criticals.size() == 2 && h.events.isEmpty() && h.inPool("foo"_s) == unsignedFile);
        QCOMPARE(h.lastMessage(), "0 package(s) is signed: "_s);

        QCOMPARE(sign({h.find("foo"_s)}, m_key), RepoEnums::SUCCESS);
        QCOMPARE(h.words(), "Package signing|1 package(s) is signed: foo_1.0_amd64.deb"_s);
        QVERIFY(isSignedInPool(h, h.find("foo"_s)) && !h.find("bar"_s)->isSigned());
        QCOMPARE(h.events, "-foo 1.0 amd64|~foo 1.0 amd64"_list);

        // One file for two architectures is signed for both, whichever is chosen.
        QCOMPARE(sign({h.find("everywhere"_s, "i386"_s), h.find("u"_s)}, m_key), RepoEnums::SUCCESS);
        QCOMPARE(h.started, "Packages signing"_list);
        QVERIFY(isSignedInPool(h, h.find("everywhere"_s, "amd64"_s)));
        QVERIFY(isSignedInPool(h, h.find("everywhere"_s, "i386"_s)) && isSignedInPool(h, h.find("u"_s)));
        QVERIFY(h.trouble().isEmpty() && h.listed() == before && h.settled());
        QVERIFY(keepsItsResults());
        h.open(h.repoPath());
        QVERIFY(keepsItsResults());

        h.cancelAt(&RepoShell::packageChanged);
        QCOMPARE(sign({h.find("bar"_s), h.find("foo"_s)}, m_key), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. 1 of 2 package(s) is signed: bar_1.0_amd64.deb"_s);
        // What the opening had listed and the job has signed does not look like the work of another program.
        QVERIFY(h.settled());
    }

    void refusedCopyIsTakenBack()
    {
        RepoHarness h("amd64 i386"_s);
        h.add({h.deb(DebBuilder("everywhere"_s).architecture("all"_s))}, signedWith(m_key));
        const QByteArray before = h.inPool("everywhere"_s);
        const QByteArray runs = h.at("runs").toLatin1();
        const StandIn reprepro(h.at("bin"), "reprepro");
        // The first include, and the other architecture's.
        for (const char *refused : {"1", "2"}) {
            writeFile(h.at("runs"), "");
            reprepro.set("case \"$*\" in *includedeb*) echo >>" + runs + "; [ $(wc -l <" + runs
                         + ") != " + refused + " ] || { echo refused >&2; exit 254; };; esac");
            h.run([&] { h.shell.signPackages({h.find("everywhere"_s, "i386"_s)}, m_key); });
            QVERIFY2(h.trouble().endsWith("|refused\n"_s), qPrintable(h.trouble()));
            QVERIFY(h.inPool("everywhere"_s) == before && recorded(h).size() == 2);
            QVERIFY(isSignedInPool(h, h.find("everywhere"_s, "amd64"_s)) && h.settled());
        }
    }

    void recordAgreesWithTheRepository()
    {
        RepoHarness h("amd64 i386"_s);
        h.add({h.deb(DebBuilder("foo"_s)), h.deb(DebBuilder("bar"_s).architecture("i386"_s))},
              signedWith(m_key));
        const QStringList all{"main_amd64_foo"_s, "main_i386_bar"_s};
        QCOMPARE(recorded(h), all);
        {
            // The disk is full at the third package: all that the job has done is undone.
            const QByteArray failing = "echo 'BDB0060 write failed' >&2; exit 228;; esac";
            const StandIn reprepro(h.at("bin"), "reprepro", "case \"$*\" in *third*) " + failing);
            h.choice = PackageReplacementRules::ReplaceAll;
            h.add(h.debs("second", "2.0") + h.debs("third"), signedWith(m_key));
            h.add(h.debs("foo", "2.0") + h.debs("third"));
            // What was signed before the break is told as undone too, also of packages that an opening has listed.
            h.add(h.debs("second last"));
            h.open(h.repoPath());
            reprepro.set("case \"$*\" in *last_1*|*'dogwood last'*) " + failing);
            const QStringList names = h.listed();
            h.run([&] {
                h.shell.signPackages({h.find("second"_s), h.find("last"_s), h.find("foo"_s)}, m_key);
            });
            QCOMPARE(h.criticals.filter("put back as it was before"_s).size(), 1);
            QVERIFY2(h.criticals.size() == 3, qPrintable(h.trouble()));
            QVERIFY(h.shell.result() == RepoEnums::PACKAGE_UNSIGNED && h.listed() == names);
            QVERIFY2(h.lastMessage().startsWith("0 package(s) is signed"_s), qPrintable(h.lastMessage()));
            QVERIFY(h.find("second"_s)->signingKey.isEmpty());
        }
        h.remove({h.find("second"_s), h.find("last"_s)});
        QVERIFY(recorded(h) == all && isSignedInPool(h, h.find("foo"_s)) && h.settled());

        // What a kill between the database and the record leaves.
        PackageInfo gone = *h.find("foo"_s);
        gone.name = "gone"_s;
        QVERIFY(SignedPackages(SignedPackages::packagesConfPath(h.repoPath())).saveKeyInfo(gone));
        ExportSession::setMarker(h.repoPath());
        h.open(h.repoPath());
        QCOMPARE(recorded(h), all);

        h.info.architectures = "amd64"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(recorded(h) == all.mid(0, 1) && h.settled());
    }

    void staysInItsComponent()
    {
        RepoHarness h;
        const QString file = h.deb(DebBuilder("foo"_s).field("Section"_s, "non-free/admin"_s));
        QVERIFY(h.reprepro({"-C"_s, "main"_s, "includedeb"_s, "dogwood"_s, file}).succeeded());
        h.open(h.repoPath());
        QVERIFY(h.find("foo"_s)->component == "non-free"_s && h.find("foo"_s)->indexComponent == "main"_s);
        QCOMPARE(h.run([&] { h.shell.signPackages(h.shell.packages(), m_key); }), RepoEnums::SUCCESS);
        QCOMPARE(h.inDatabase(), QStringList{"dogwood|main|amd64: foo 1.0"_s});
        h.open(h.repoPath());
        QVERIFY(isSignedInPool(h, h.find("foo"_s)) && h.settled());
        h.remove(h.shell.packages());
        QVERIFY(h.trouble().isEmpty() && h.holds({}));
    }
};

VELT_TEST_MAIN(TestPackageSigning, QCoreApplication)
#include "tst_packagesigning.moc"
