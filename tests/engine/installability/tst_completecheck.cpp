// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/relatedpackages.h"

#include <QSignalSpy>

namespace
{
const QStringList Own{"app 1.0; Depends: lib (>= 2)"_s,
                      "clash 1.0; Depends: left, right"_s,
                      "left 1.0; Conflicts: right (<< 2)"_s,
                      "lib 1.0"_s,
                      "right 1.0"_s,
                      "user 1.0; Depends: tool"_s,
                      "wish 1.0; Recommends: nowhere, tool"_s};
const QStringList Offered{
    "core 1.0; Essential: yes; Depends: tool | far"_s, "far 1.0"_s, "lib 2.0"_s, "right 2.0"_s, "tool 1.0"_s};
} // namespace

/** The complete check of real repositories, with the real reprepro and apt. */
class TestCompleteCheck : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("dpkg-scanpackages");
    }

    void eachBase()
    {
        RelatedPackages h(Own, Offered);
        RepoHarness other;
        other.add(other.debs("tool"));

        const auto before = h.shell.packages();
        QCOMPARE(h.check(CompleteCheckBase::Nothing), RepoEnums::SUCCESS);
        QCOMPARE(h.words(),
                 "Complete check|Complete check done. Installable: 4, not installable: 3, undecided: 0"_s);
        QCOMPARE(h.lastJob, RepoEnums::CHECK_DEPENDS_JOB);
        QCOMPARE(h.broken(), "app clash user"_s);
        QCOMPARE(h.find("wish"_s)->installability->unmetRecommends.size(), 2);
        // A record that was handed out never changes.
        for (const PackageInfoPtr &package : before)
            QVERIFY(!package->installability);
        const auto reason = h.find("clash"_s)->installability->reason;
        QVERIFY(std::any_of(reason.cbegin(), reason.cend(), [](const InstallabilityStep &step) {
            return step.kind == InstallabilityStep::Excludes && step.relation == "right (<< 2)"_s;
        }));

        // What was found against one base does not stand beside what is found against another.
        h.run([&] { h.shell.checkCompletely({h.find("user"_s)}, {CompleteCheckBase::Essential, {}, {}}); });
        QCOMPARE(h.named(Installable) + h.broken(), "user"_s);
        h.check(CompleteCheckBase::Essential);
        QCOMPARE(h.broken(), "app clash"_s);
        QCOMPARE(h.find("wish"_s)->installability->unmetRecommends, QStringList{"nowhere"_s});
        h.check(CompleteCheckBase::Public);
        QCOMPARE(h.broken() + h.trouble(), QString());
        h.check(CompleteCheckBase::Repository, other.repoPath());
        QCOMPARE(h.broken(), "app clash"_s);

        // A source that is switched off in the program offers nothing.
        ExternalRepos repos;
        repos.merge({"[arch=amd64 trusted=yes] file:%1/public dogwood main"_s.arg(h.folder.path())});
        repos.setEnabled(0, false);
        h.shell.setExternalRepos(repos);
        h.check(CompleteCheckBase::Public);
        QCOMPARE(h.broken(), "app clash user"_s);

        const CompleteCheckRecord record = h.shell.completeCheck();
        QCOMPARE(h.check(CompleteCheckBase::Repository, h.at("none")), RepoEnums::ERROR);
        QVERIFY2(h.complains(h.at("none")), qPrintable(h.trouble()));
        QVERIFY(h.shell.completeCheck() == record && h.broken() == "app clash user"_s);
    }

    void unknownArchitectureAndNoLists()
    {
        RelatedPackages h({"lib 1.0"_s}, Offered);
        h.info.architectures = "amd64 arm64"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        h.addAll({"user 1.0; Depends: tool, lib"_s,
                  "all 1.0; Architecture: all; Depends: lib"_s,
                  "lib 1.0; Architecture: arm64"_s,
                  "own 1.0; Architecture: arm64; Depends: lib"_s,
                  "needy 1.0; Architecture: arm64; Depends: tool"_s});
        h.check(CompleteCheckBase::Public);
        // Both indices list the package for all architectures; on each system it meets another library.
        QCOMPARE(h.named(Installable), "all all lib lib own user"_s);
        QCOMPARE(h.broken(), "needy"_s);
        QVERIFY2(h.complains("arm64"_s), qPrintable(h.trouble()));
        // apt can keep its lists compressed.
        const QString pack = "cd lists; for list in *_Packages; do %1 <$list >$list.%2; mv $list ..; done"_s;
        const QString unpack = "cd lists; rm *_Packages.*; mv ../*_Packages ."_s;
        for (const auto &[tool, suffix] : {std::pair("gzip"_s, "gz"_s), std::pair("xz"_s, "xz"_s)}) {
            runShell(pack.arg(tool, suffix), h.folder.path());
            h.check(CompleteCheckBase::Public);
            QCOMPARE(h.broken(), "needy"_s);
            runShell(unpack, h.folder.path());
        }
        // Without lists, everything would seem to lack something: nothing is checked, and the last results stay.
        runShell("rm -r lists; mkdir lists"_s, h.folder.path());
        QCOMPARE(h.check(CompleteCheckBase::Public), RepoEnums::ERROR);
        QVERIFY2(h.complains("apt update"_s), qPrintable(h.trouble()));
        QCOMPARE(h.broken(), "needy"_s);
    }

    void installerPackages()
    {
        RelatedPackages h({"deb 1.0"_s}, Offered);
        h.add({h.deb(described("bit 1.0; Depends: piece"_s).udeb()),
               h.deb(described("piece 1.0"_s).udeb()),
               h.deb(described("lost 1.0; Depends: deb"_s).udeb())});
        h.check(CompleteCheckBase::Nothing);
        QCOMPARE(h.named(Installable) + u'|' + h.broken(), "bit deb piece|lost"_s);
        // The base may offer what is missing, in a list that apt does not fetch.
        h.check(CompleteCheckBase::Public);
        QCOMPARE(h.named(Installable) + u'|' + h.named(InstallabilityUnknown), "bit deb piece|lost"_s);
        QVERIFY(h.notes.join(u' ').contains("1 installer package"_s));
    }

    void staleness()
    {
        RelatedPackages h(Own, Offered);
        QVERIFY(!h.shell.completeCheck().isValid());
        h.check(CompleteCheckBase::Public);
        const CompleteCheckRecord record = h.shell.completeCheck();
        QVERIFY(record.isValid() && !record.isStale && record.base.kind == CompleteCheckBase::Public);
        QSignalSpy changed(&h.shell, &RepoShell::completeCheckChanged);
        const auto reopened = [&h] {
            EngineHarness again;
            again.open(h.repoPath());
            return again.shell.completeCheck();
        };
        QVERIFY(reopened() == record);
        {
            EngineHarness again;
            again.open(h.repoPath());
            QVERIFY(again.find("user"_s)->installabilityState() == Installable);
        }
        // A check of names changes records, and nothing that was found.
        h.run([&] { h.shell.checkDepends(h.shell.packages()); });
        QVERIFY(!h.shell.completeCheck().isStale && changed.isEmpty());
        h.addAll({"more 1.0"_s});
        QVERIFY(h.shell.completeCheck().isStale && changed.size() == 1 && reopened().isStale);
        QCOMPARE(h.named(InstallabilityUnknown), "more"_s);
        h.check(CompleteCheckBase::Public);
        QVERIFY(!h.shell.completeCheck().isStale && !reopened().isStale);

        // Another program changes the repository, and apt fetches another list.
        h.reprepro({"remove"_s, "dogwood"_s, "more"_s});
        QVERIFY(!h.shell.completeCheck().isStale);
        h.run([&] { h.shell.reloadRepo(); });
        QVERIFY(h.shell.completeCheck().isStale);
        h.check(CompleteCheckBase::Public);
        described("late 1.0"_s).build(h.at("public/pool"));
        runShell(
            "(cd public; dpkg-scanpackages -m pool >dists/dogwood/main/binary-amd64/Packages); apt-get -qq update"_s,
            h.folder.path());
        QVERIFY(reopened().isStale && !h.shell.completeCheck().isStale);
        h.run([&] { h.shell.reloadRepo(); });
        QVERIFY(h.shell.completeCheck().isStale);
    }

    void stopped()
    {
        RelatedPackages h(Own, Offered);
        h.check(CompleteCheckBase::Nothing);
        const CompleteCheckRecord record = h.shell.completeCheck();
        const auto packages = h.shell.packages();
        const auto stop = h.cancelAt(&RepoShell::started);
        QCOMPARE(h.check(CompleteCheckBase::Public), RepoEnums::CANCEL);
        QVERIFY2(h.lastMessage().contains("0 of 7"_s), qPrintable(h.lastMessage()));
        QVERIFY(h.shell.completeCheck() == record && h.shell.packages() == packages && h.trouble().isEmpty());
        disconnect(stop);
        QCOMPARE(h.check(CompleteCheckBase::Public), RepoEnums::SUCCESS);
        QCOMPARE(h.broken(), QString());
    }
};

VELT_TEST_MAIN(TestCompleteCheck, QCoreApplication)
#include "tst_completecheck.moc"
