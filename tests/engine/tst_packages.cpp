// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "depends/dependencychecker.h"
#include "engine/exportsession.h"
#include "engineharness.h"
#include "signing/packagesigner.h"
#include "support/debbuilder.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QtTest>

#include <algorithm>

using Rules = PackageReplacementRules;

namespace
{
const QString Foo = "foo"_s;

/** Signs by copying, so that the contents stay includable, or refuses. */
class FakeSigner : public PackageSigner
{
public:
    bool works = true;
    QStringList signedFiles;

    SignOutcome sign(const QString &file, const QString &target, const QString &keyId) override
    {
        if (!works)
            return {QString(), "no key "_s + keyId, QString()};
        signedFiles.append(file);
        const QString copy = target + QLatin1Char('/') + QFileInfo(file).fileName();
        QFile::copy(file, copy);
        return {copy, QString(), QString()};
    }
};

class FakeChecker : public DependencyChecker
{
public:
    QStringList checked;

    QSharedPointer<const DependsInfo> check(const PackageInfo &package,
                                            const QList<PackageInfoPtr> &) override
    {
        checked.append(package.name);
        DependsInfo info;
        info.status = DependError;
        return QSharedPointer<DependsInfo>::create(info);
    }
};
} // namespace

/** Adding and removing packages with the real reprepro and dpkg. */
class TestPackages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("dpkg-deb");
    }
    void addOne();
    void addManyExportsTwice();
    void everyArchitectureOfAll();
    void debAndUdebOfOneName();
    void componentOfTheCaller();
    void missingSectionAndPriority();
    void rules_data();
    void rules();
    void sameVersionWithOtherContents();
    void replacedAllPackageWithOtherContents();
    void refusedReplacementPutsTheOldOneBack();
    void stopWhileAdding();
    void removeMany();
    void replacedFilesLeaveThePool();
    void signingSeam();
    void checkingSeam();
};

void TestPackages::addOne()
{
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo).version("2:1.0"_s).build(h.debs());
    QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.started, QStringList{"Adding package"_s});
    QCOMPARE(h.lastMessage(), "1 package(s) added: foo_1.0_amd64.deb"_s);
    QCOMPARE(h.ranges, QVector<int>{0});
    QCOMPARE(h.steps, (QVector<int>{0, 1}));
    QCOMPARE(h.events, QStringList{"+foo 2:1.0 amd64"_s});
    QCOMPARE(h.inIndices(), h.listed());
    QCOMPARE(saving.count(), 1);
    const PackageInfoPtr package = h.find(Foo);
    QVERIFY2(QFile::exists(package->filePath()), qPrintable(package->filePath()));
    QCOMPARE(package->section, "admin"_s);
    QCOMPARE(package->description(), "test package"_s);
    QVERIFY(!QFile::exists(h.repoPath() + "/db/velt-admin-repo.export-owed"_s));
}

void TestPackages::addManyExportsTwice()
{
    EngineHarness h;
    h.create();
    // A recorder in front of the real program: what is run, and in which configuration folder.
    const QString bin = h.folder.filePath("bin"_s);
    const QString log = h.folder.filePath("runs"_s);
    writeScript(bin + "/reprepro"_s,
                "#!/bin/sh\nprintf '%s %s\\n' \"${REPREPRO_CONFIG_DIR##*/}\" \"$*\" >>'" + log.toLocal8Bit()
                    + "'\nexec '" + QStandardPaths::findExecutable("reprepro"_s).toLocal8Bit()
                    + "' \"$@\"\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.toLocal8Bit() + ':' + path);
    QStringList files;
    for (const char *name : {"a", "b", "c", "d"})
        files.append(DebBuilder(QLatin1String(name)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    qputenv("PATH", path);

    QCOMPARE(h.lastMessage(),
             QStringLiteral(
                 "4 package(s) added: a_1.0_amd64.deb, b_1.0_amd64.deb, c_1.0_amd64.deb, d_1.0_amd64.deb"));
    QCOMPARE(h.ranges, (QVector<int>{0, 4}));
    const QStringList runs
        = QString::fromLocal8Bit(readFile(log)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(runs.size(), 5);
    const QString include = "-b %1 -C main -A amd64 -S admin includedeb dogwood %2"_s;
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(runs.at(i).section(QLatin1Char(' '), 1), include.arg(h.repoPath(), files.at(i)));
        QCOMPARE(runs.at(i).startsWith("conf "_s), i == 0);
    }
    QCOMPARE(runs.last(), "conf -b %1 export"_s.arg(h.repoPath()));
    QCOMPARE(h.inIndices().size(), 4);
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));
}

void TestPackages::everyArchitectureOfAll()
{
    EngineHarness h;
    h.info.architectures = "amd64 i386"_s;
    h.create();
    const QString file = DebBuilder(Foo).architecture("all"_s).build(h.debs());
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.listed(), (QStringList{"foo 1.0 main amd64"_s, "foo 1.0 main i386"_s}));
    QCOMPARE(h.lastMessage(), "1 package(s) added: foo_1.0_all.deb"_s);
    QCOMPARE(h.inIndices(), h.listed());
    h.run([&] { h.shell.removePackages({h.find(Foo, "i386"_s)}); });
    QCOMPARE(h.inDatabase(), QStringList{"dogwood|main|amd64: foo 1.0"_s});
    QVERIFY(QFile::exists(h.find(Foo)->filePath()));
}

void TestPackages::debAndUdebOfOneName()
{
    EngineHarness h;
    h.create();
    const QStringList files{DebBuilder(Foo).build(h.debs()), DebBuilder(Foo).udeb().build(h.debs())};
    h.run([&] { h.shell.addPackages(files); });
    QVERIFY2(h.collisions.isEmpty(), "a package of the installer is another package");
    QCOMPARE(h.inDatabase().size(), 2);
    h.run([&] { h.shell.removePackages({h.shell.packageAt(0)}); });
    QCOMPARE(h.inDatabase(), QStringList{"u|dogwood|main|amd64: foo 1.0"_s});
    QCOMPARE(h.listed().size(), 1);
    h.run([&] { h.shell.removePackages(h.shell.packages()); });
    QVERIFY(h.inDatabase().isEmpty());
}

void TestPackages::componentOfTheCaller()
{
    EngineHarness h;
    h.create();
    AddOptions options;
    options.component = "contrib"_s;
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}, options); });
    QCOMPARE(h.inIndices(), QStringList{"foo 1.0 contrib amd64"_s});
    QVERIFY(h.find(Foo)->filePath().contains("/pool/contrib/"_s));
}

void TestPackages::missingSectionAndPriority()
{
    EngineHarness h;
    h.create();
    const QString file
        = DebBuilder(Foo).field("Section"_s, QString()).field("Priority"_s, QString()).build(h.debs());
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    const QByteArray index = readFile(h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s);
    QVERIFY2(index.contains("\nPriority: optional\n"), index.constData());
    QVERIFY2(index.contains("\nSection: misc\n"), index.constData());
}

void TestPackages::rules_data()
{
    QTest::addColumn<quint32>("choice");
    QTest::addColumn<QString>(
        "older"); // what is there after 1.0 met 2.0, 2.0 met 1.0 and 1.0 met another 1.0
    QTest::addColumn<QString>("newer");
    QTest::addColumn<bool>("same");
    QTest::addColumn<int>("asked");
    const QString one = "1.0"_s;
    const QString two = "2.0"_s;
    QTest::newRow("no") << quint32(Rules::KeepThis) << one << two << false << 3;
    QTest::newRow("yes") << quint32(Rules::ReplaceThis) << two << one << true << 3;
    QTest::newRow("higher") << quint32(Rules::PreferHigher) << two << two << false << 1;
    QTest::newRow("lower") << quint32(Rules::PreferLower) << one << one << false << 1;
    QTest::newRow("all") << quint32(Rules::ReplaceAll) << two << one << true << 1;
    QTest::newRow("none") << quint32(Rules::ReplaceNone) << one << two << false << 1;
}

void TestPackages::rules()
{
    QFETCH(quint32, choice);
    QFETCH(bool, same);
    EngineHarness h;
    h.create();
    const auto build = [&](const char *name, const char *version, const char *folder, const char *contents) {
        return DebBuilder(QLatin1String(name))
            .version(QLatin1String(version))
            .contents(contents)
            .build(h.debs() + QLatin1String(folder));
    };
    h.run([&] {
        h.shell.addPackages(
            {build("older", "1.0", "", "x"), build("newer", "2.0", "", "x"), build("same", "1.0", "", "x")});
    });
    const QStringList files{
        build("older", "2.0", "", "x"), build("newer", "1.0", "", "x"), build("same", "1.0", "/b", "y")};
    h.resolve = [&](RepoEnums::ErrorCode) { return choice; };
    QCOMPARE(h.run([&] { h.shell.addPackages(files); }), int(RepoEnums::SUCCESS));
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QTEST(int(h.collisions.size()), "asked");
    QTEST(h.find("older"_s)->version, "older");
    QTEST(h.find("newer"_s)->version, "newer");
    QCOMPARE(readFile(h.find("same"_s)->filePath()) == readFile(files.last()), same);
    QCOMPARE(h.inIndices(), h.listed());
    QCOMPARE(h.listed().size(), 3);
    if (h.collisions.size() == 3) {
        QCOMPARE(h.collisions,
                 (QVector<RepoEnums::ErrorCode>{RepoEnums::PACKAGE_EXISTS_OLD_VERSION,
                                                RepoEnums::PACKAGE_EXISTS_NEW_VERSION,
                                                RepoEnums::PACKAGE_EXISTS}));
        QVERIFY(!h.singles.contains(true));
    }
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::KeepThis); };
    h.run([&] { h.shell.addPackages({files.last()}); });
    QCOMPARE(h.singles, QVector<bool>{true}); // and the choice of the job before is forgotten
    QCOMPARE(h.lastMessage(), "0 package(s) added: "_s);
}

void TestPackages::sameVersionWithOtherContents()
{
    // In the middle of a job, when the indices are written only at its end.
    EngineHarness h;
    h.create();
    QStringList files;
    for (const char *name : {"a", "b", "c"})
        files.append(DebBuilder(QLatin1String(name)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    QStringList others;
    for (const char *name : {"a", "b", "c"})
        others.append(DebBuilder(QLatin1String(name)).contents("other\n").build(h.debs() + "/b"_s));
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceAll); };
    h.run([&] { h.shell.addPackages(others); });
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.events.filter("~"_s).size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(readFile(h.find(QString(QLatin1Char(char('a' + i))))->filePath()), readFile(others.at(i)));
    const ProcessResult check = runProcess({"reprepro"_s, {"-b"_s, h.repoPath(), "checkpool"_s}, {}, {}, -1});
    QVERIFY2(check.succeeded(), qPrintable(check.errorOutput));
    QVERIFY(QDir(h.repoPath()).entryList({".replaced-*"_s}, QDir::Dirs | QDir::Hidden).isEmpty());
}

void TestPackages::replacedAllPackageWithOtherContents()
{
    EngineHarness h;
    h.info.architectures = "amd64 i386"_s;
    h.create();
    DebBuilder deb(Foo);
    deb.architecture("all"_s);
    h.run([&] { h.shell.addPackages({deb.build(h.debs())}); });
    const QString other = deb.contents("other\n").build(h.debs() + "/b"_s);
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] { h.shell.addPackages({other}); });
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.inDatabase().size(), 2);
    QCOMPARE(readFile(h.find(Foo)->filePath()), readFile(other));
}

void TestPackages::refusedReplacementPutsTheOldOneBack()
{
    EngineHarness h;
    h.create();
    const QString old = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({DebBuilder("first"_s).build(h.debs()), old}); });
    // dpkg reads this version, but reprepro refuses what stands in the control file.
    const QString refused
        = DebBuilder(Foo).version("2.0"_s).field("Source"_s, "Bad_Source"_s).build(h.debs());
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] { h.shell.addPackages({refused, DebBuilder("last"_s).build(h.debs())}); });
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY2(h.criticals.first().startsWith("Error adding package %1!|"_s.arg(refused)),
             qPrintable(h.criticals.first()));
    QCOMPARE(h.lastMessage(), "1 package(s) added: last_1.0_amd64.deb"_s);
    QCOMPARE(h.find(Foo)->version, "1.0"_s);
    QCOMPARE(h.inIndices(), h.listed());
    QCOMPARE(readFile(h.find(Foo)->filePath()), readFile(old));
    QVERIFY(QDir(h.repoPath()).entryList({".replaced-*"_s}, QDir::Dirs | QDir::Hidden).isEmpty());
}

void TestPackages::stopWhileAdding()
{
    EngineHarness h;
    h.create();
    QStringList files;
    for (int i = 0; i < 5; ++i)
        files.append(DebBuilder("p%1"_s.arg(i)).build(h.debs()));
    std::atomic<int> added{0};
    const auto stop = connect(&h.shell, &RepoShell::packageAdded, [&] {
        if (++added == 3)
            h.shell.cancel();
    });
    QCOMPARE(h.run([&] { h.shell.addPackages(files); }), int(RepoEnums::CANCEL));
    disconnect(stop);
    QCOMPARE(h.lastMessage(),
             "Operation stopped. 3 of 5 package(s) added: p0_1.0_amd64.deb, p1_1.0_amd64.deb, "
             "p2_1.0_amd64.deb"_s);
    QCOMPARE(h.finished.size(), 1);
    QCOMPARE(h.inIndices().size(), 3); // what is in is also shown to clients
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));

    // Stopped at the last item there is nothing left to stop.
    added = 2;
    const auto late = connect(&h.shell, &RepoShell::packageAdded, [&] { h.shell.cancel(); });
    QCOMPARE(h.run([&] { h.shell.addPackages({files.last()}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.lastMessage(), "1 package(s) added: p4_1.0_amd64.deb"_s);
    disconnect(late);
}

void TestPackages::removeMany()
{
    EngineHarness h;
    h.create();
    QStringList files;
    for (int i = 0; i < 5; ++i)
        files.append(DebBuilder("p%1"_s.arg(i)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    auto packages = h.shell.packages();
    packages.removeLast();
    QCOMPARE(h.run([&] { h.shell.removePackages({packages.takeFirst()}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.ranges, QVector<int>{0});
    QCOMPARE(h.started, QStringList{"Removing package"_s});
    QCOMPARE(h.lastMessage(), "1 packages removed: p0_1.0_amd64.deb"_s);
    QCOMPARE(h.run([&] { h.shell.removePackages(packages); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.started, QStringList{"Removing packages"_s});
    QCOMPARE(h.ranges, (QVector<int>{0, 3}));
    QCOMPARE(h.lastMessage(), "3 packages removed: p1_1.0_amd64.deb, p2_1.0_amd64.deb, p3_1.0_amd64.deb"_s);
    QCOMPARE(h.inIndices(), QStringList{"p4 1.0 main amd64"_s});
    QCOMPARE(h.listed(), h.inIndices());
    QVERIFY(!QFile::exists(packages.last()->filePath()));
    // Removing what somebody else has removed already brings the list up to date.
    const auto last = h.shell.packages();
    runProcess({"reprepro"_s,
                {"-b"_s, h.repoPath(), "--export=never"_s, "remove"_s, "dogwood"_s, "p4"_s},
                {},
                {},
                -1});
    QCOMPARE(h.inIndices().size(), 1);
    h.run([&] { h.shell.removePackages(last); });
    QVERIFY(h.inIndices().isEmpty());
    QCOMPARE(h.shell.packageCount(), 0);
}

void TestPackages::replacedFilesLeaveThePool()
{
    EngineHarness h;
    h.create();
    QStringList files;
    for (int i = 0; i < 3; ++i)
        files.append(DebBuilder("p%1"_s.arg(i)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    QStringList old;
    for (const auto &package : h.shell.packages())
        old.append(package->filePath());
    QStringList newer;
    for (int i = 0; i < 3; ++i)
        newer.append(DebBuilder("p%1"_s.arg(i)).version("2.0"_s).build(h.debs()));
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::PreferHigher); };
    h.run([&] { h.shell.addPackages(newer); });
    QCOMPARE(h.collisions.size(), 1);
    for (const QString &file : qAsConst(old))
        QVERIFY2(!QFile::exists(file), qPrintable(file));
    for (const auto &package : h.shell.packages())
        QVERIFY(QFile::exists(package->filePath()));
}

void TestPackages::signingSeam()
{
    EngineHarness h;
    h.create();
    const auto signer = std::make_shared<FakeSigner>();
    AddOptions options;
    options.sign = true;
    options.signKeyId = "ABCD"_s;
    const QString file = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({file}, options); });
    QVERIFY2(h.listed().isEmpty() && h.criticals.size() == 1, "without a signer nothing goes in unsigned");
    h.shell.setPackageSigner(signer);
    h.run([&] { h.shell.addPackages({file}, options); });
    QCOMPARE(signer->signedFiles, QStringList{file});
    QCOMPARE(h.listed().size(), 1);

    signer->works = false;
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).version("2.0"_s).build(h.debs())}, options); });
    QCOMPARE(h.criticals, QStringList{"no key ABCD|"_s});
    QCOMPARE(h.inIndices(), QStringList{"foo 1.0 main amd64"_s});
    QVERIFY2(h.events.isEmpty(), "a key that fails must not cost the package that is there");
}

void TestPackages::checkingSeam()
{
    EngineHarness h;
    h.create();
    const auto checker = std::make_shared<FakeChecker>();
    h.shell.setDependencyChecker(checker);
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}); });
    QCOMPARE(checker->checked, QStringList{Foo});
    QCOMPARE(h.find(Foo)->dependStatus(), DependError);
    h.shell.setCheckDependsOnAdd(false);
    h.run([&] { h.shell.addPackages({DebBuilder("bar"_s).build(h.debs())}); });
    QCOMPARE(checker->checked.size(), 1);
    QVERIFY(!h.find("bar"_s)->hasDependsInfo());
}

VELT_TEST_MAIN(TestPackages, QCoreApplication)
#include "tst_packages.moc"
