// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/companionsizes.h"
#include "engine/installability/cures.h"
#include "engine/installability/relatedpackages.h"
#include "engine/installability/removalimpact.h"

namespace
{
const StopRequest Never;

CompleteCheckBase against(CompleteCheckBase::Kind kind)
{
    return {kind, {}, {}};
}

QString shown(const QVector<Cure> &cures)
{
    QStringList lines;
    for (const Cure &cure : cures)
        lines.append("%1 %2 %3 %4%5"_s.arg(cure.kind).arg(
            cure.package, cure.version, cure.architecture, cure.isComplete ? QString() : " and more"_s));
    return lines.join(u'|');
}

QString shown(const QVector<RepositoryImpact> &impacts)
{
    QStringList lines;
    for (const RepositoryImpact &impact : impacts)
        lines.append(
            "%1: %2; %3"_s.arg(QFileInfo(impact.path).fileName(), names(impact.direct), names(impact.lost)));
    return lines.join(u'|');
}
} // namespace

/** What a change of a repository does to other packages, with the real reprepro and apt as judges. */
class TestCures : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("dpkg-scanpackages");
    }

    /** Each cure is carried out, and then the check says what was foretold. */
    void curesHelp()
    {
        RelatedPackages h({"app 1.0; Depends: lib (>= 2)"_s,
                           "clash 1.0; Depends: left, right"_s,
                           "left 1.0; Conflicts: right (<< 2)"_s,
                           "lib 1.0"_s,
                           "old 1.0; Depends: lib (<< 2)"_s,
                           "right 1.0"_s,
                           "user 1.0; Depends: tool"_s,
                           "wide 1.0; Depends: far"_s,
                           "without 1.0; Depends: nowhere"_s},
                          {"core 1.0; Essential: yes"_s,
                           "far 1.0; Depends: farther"_s,
                           "farther 1.0"_s,
                           "left 1.0~old"_s,
                           "lib 1.5"_s,
                           "lib 2.0"_s,
                           "right 2.0"_s,
                           "tool 1.0; Architecture: all"_s});
        const CompleteCheckBase base = against(CompleteCheckBase::Nothing);
        h.check(base.kind);
        QCOMPARE(h.broken(), "app clash user wide without"_s);
        const auto cures = [&](const char *name) {
            return Cures(h.shell.checkScope(base)).of(h.find(QLatin1String(name)), Never);
        };
        QCOMPARE(shown(cures("app")), "2 lib 2.0 amd64"_s);
        QCOMPARE(shown(cures("clash")), "2 right 2.0 amd64"_s);
        QCOMPARE(shown(cures("user")), "0 tool 1.0 amd64"_s);
        QCOMPARE(shown(cures("wide")), "0 far 1.0 amd64 and more"_s);
        QCOMPARE(shown(cures("without")), QString());
        QCOMPARE(shown(cures("lib")), QString());
        QVERIFY(Cures(h.shell.checkScope(base)).of(h.find("app"_s), [] { return true; }).isEmpty());

        for (const char *name : {"app", "clash", "user"}) {
            const Cure cure = cures(name).first();
            const CureEffect effect = Cures(h.shell.checkScope(base)).effectOf(cure, Never);
            QCOMPARE(names(effect.gained), QLatin1String(name));
            const QString broken = h.broken();
            PackageInfo wanted;
            wanted.name = cure.package;
            wanted.version = cure.version;
            wanted.architecture = cure.architecture;
            QCOMPARE(h.run([&] { h.shell.downloadPackages({wanted}); }), RepoEnums::SUCCESS);
            QVERIFY(h.shell.completeCheck().isStale);
            h.check(base.kind);
            QStringList expected = broken.split(u' ') + names(effect.lost).split(u' ', Qt::SkipEmptyParts);
            expected.removeAll(QLatin1String(name));
            expected.sort();
            QCOMPARE(h.broken(), expected.join(u' '));
        }
        QCOMPARE(h.broken(), "old wide without"_s);
    }

    /** Of an essential package that cannot be installed, no system is possible. */
    void essentialInTheWay()
    {
        RelatedPackages h({"bad 1.0; Essential: yes; Depends: nowhere"_s, "good 1.0"_s}, {"other 1.0"_s});
        const CompleteCheckBase base = against(CompleteCheckBase::Nothing);
        h.check(base.kind);
        QCOMPARE(h.broken(), "bad good"_s);
        const Cures cures(h.shell.checkScope(base));
        const auto found = cures.of(h.find("good"_s), Never);
        QCOMPARE(shown(found), "1 bad 1.0 amd64"_s);
        QCOMPARE(names(cures.effectOf(found.first(), Never).gained), "good"_s);
        h.remove({h.find("bad"_s)});
        h.check(base.kind);
        QCOMPARE(h.broken(), QString());
    }

    void whatIsLost()
    {
        RelatedPackages h({"app 1.0; Depends: lib"_s,
                           "chain 1.0; Depends: app"_s,
                           "either 1.0; Depends: lib | tool"_s,
                           "fallen 1.0; Depends: lib, nowhere"_s,
                           "lib 1.0"_s,
                           "tool 1.0"_s},
                          {"lib 1.0"_s});
        RepoHarness other;
        other.add({other.deb(described("far 1.0; Depends: chain"_s)), other.deb(described("own 1.0"_s))});
        CheckScope scope = h.shell.checkScope(against(CompleteCheckBase::Nothing));
        RepositorySnapshot snapshot = other.shell.snapshot();
        snapshot.path = "/other"_s;
        scope.others = {snapshot};
        const auto impact = [&](const char *name) {
            return shown(RemovalImpact(scope).of({h.find(QLatin1String(name))}, Never));
        };
        QCOMPARE(impact("lib"), "repo: app either fallen; app chain|other: ; far"_s);
        QCOMPARE(impact("app"), "repo: chain; chain|other: ; far"_s);
        QCOMPARE(impact("chain"), "other: far; far"_s);
        QCOMPARE(impact("tool"), "repo: either; "_s);
        // What goes itself is not lost.
        QCOMPARE(shown(RemovalImpact(scope).of({h.find("lib"_s), h.find("app"_s)}, Never)),
                 "repo: chain either fallen; chain|other: ; far"_s);
        QVERIFY(RemovalImpact(scope).of({h.find("lib"_s)}, [] { return true; }).isEmpty());
        // The same package stays at hand elsewhere.
        scope.base = against(CompleteCheckBase::Public);
        QCOMPARE(impact("lib"), QString());
        AddOptions options;
        options.component = "contrib"_s;
        h.add({h.deb(described("lib 1.0"_s))}, options);
        scope = h.shell.checkScope(against(CompleteCheckBase::Nothing));
        QCOMPARE(h.listed().filter("lib"_s).size(), 2);
        QCOMPARE(impact("lib"), QString());
    }

    void companions()
    {
        RelatedPackages h({"app 1.0; Depends: far; Installed-Size: 7"_s, "lone 1.0; Depends: nowhere"_s},
                          {"far 1.0; Depends: none | farther, fork"_s,
                           "farther 1.0; Installed-Size: 1000"_s,
                           "fork 1.0; Depends: farther"_s,
                           "idle 1.0"_s});
        const CompanionSizes sizes(h.shell.checkScope(against(CompleteCheckBase::Public)));
        QVERIFY(sizes.of(h.find("lone"_s), Never).isEmpty());
        const auto companions = sizes.of(h.find("app"_s), Never);
        QStringList installed;
        qint64 download = 0;
        qint64 disk = 0;
        for (const Companion &companion : companions) {
            installed.append(companion.package.name);
            download += companion.downloadSize;
            disk += companion.installedSize;
        }
        QCOMPARE(installed.value(0), "app"_s);
        installed.sort();
        // apt as a client that has both.
        const QString simulation = runShell(
            "echo 'deb [trusted=yes arch=amd64] file:%1 dogwood main' >>etc/sources.list; apt-get -qq update;"
            " apt-get -s install app | sed -n 's/^Inst \\([^ ]*\\).*/\\1/p' | sort | tr '\\n' ' '"_s.arg(
                h.repoPath()),
            h.folder.path());
        QCOMPARE(installed.join(u' '), simulation.trimmed());
        QCOMPARE(disk, 1007 * 1024);
        const QString packed = runShell(
            "stat -c %s public/pool/fa* public/pool/fork* repo/pool/main/a/app/* | awk '{ sum += $1 } END { print sum }'"_s,
            h.folder.path());
        QCOMPARE(download, packed.toLongLong());
    }
};

VELT_TEST_MAIN(TestCures, QCoreApplication)
#include "tst_cures.moc"
