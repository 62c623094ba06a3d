// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "depends/dependencychecker.h"
#include "engine/exportsession.h"
#include "engineharness.h"
#include "signing/packagesigner.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QtTest>

#include <algorithm>

using Rules = PackageReplacementRules;

namespace
{
const QString Foo = QStringLiteral("foo");

/** Signs by copying, so that the contents stay includable, or refuses. */
class FakeSigner : public PackageSigner
{
public:
    bool works = true;
    QStringList signedFiles;

    SignOutcome sign(const QString &file, const QString &target, const QString &keyId) override
    {
        if (!works)
            return {QString(), QStringLiteral("no key ") + keyId, QString()};
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
    void epochAloneDiffers();
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
    const QString file = DebBuilder(Foo).version(QStringLiteral("2:1.0")).build(h.debs());
    QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.started, QStringList{QStringLiteral("Adding package")});
    QCOMPARE(h.lastMessage(), QStringLiteral("1 package(s) added: foo_1.0_amd64.deb"));
    QCOMPARE(h.ranges, QVector<int>{0});
    QCOMPARE(h.steps, (QVector<int>{0, 1}));
    QCOMPARE(h.events, QStringList{QStringLiteral("+foo 2:1.0 amd64")});
    QCOMPARE(h.inIndices(), h.listed());
    QCOMPARE(saving.count(), 1);
    const PackageInfoPtr package = h.find(Foo);
    QVERIFY2(QFile::exists(package->filePath()), qPrintable(package->filePath()));
    QCOMPARE(package->section, QStringLiteral("admin"));
    QCOMPARE(package->description(), QStringLiteral("test package"));
    QVERIFY(!QFile::exists(h.repoPath() + QLatin1String("/db/velt-admin-repo.export-owed")));
}

void TestPackages::addManyExportsTwice()
{
    EngineHarness h;
    h.create();
    // A recorder in front of the real program: what is run, and in which configuration folder.
    const QString bin = h.folder.filePath(QStringLiteral("bin"));
    const QString log = h.folder.filePath(QStringLiteral("runs"));
    writeScript(bin + QLatin1String("/reprepro"),
                "#!/bin/sh\nprintf '%s %s\\n' \"${REPREPRO_CONFIG_DIR##*/}\" \"$*\" >>'" + log.toLocal8Bit()
                    + "'\nexec '" + QStandardPaths::findExecutable(QStringLiteral("reprepro")).toLocal8Bit()
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
    const QString include = QStringLiteral("-b %1 -C main -A amd64 -S admin includedeb dogwood %2");
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(runs.at(i).section(QLatin1Char(' '), 1), include.arg(h.repoPath(), files.at(i)));
        QCOMPARE(runs.at(i).startsWith(QLatin1String("conf ")), i == 0);
    }
    QCOMPARE(runs.last(), QStringLiteral("conf -b %1 export").arg(h.repoPath()));
    QCOMPARE(h.inIndices().size(), 4);
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));
}

void TestPackages::everyArchitectureOfAll()
{
    EngineHarness h;
    h.info.architectures = QStringLiteral("amd64 i386");
    h.create();
    const QString file = DebBuilder(Foo).architecture(QStringLiteral("all")).build(h.debs());
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.listed(),
             (QStringList{QStringLiteral("foo 1.0 main amd64"), QStringLiteral("foo 1.0 main i386")}));
    QCOMPARE(h.lastMessage(), QStringLiteral("1 package(s) added: foo_1.0_all.deb"));
    QCOMPARE(h.inIndices(), h.listed());
    h.run([&] { h.shell.removePackages({h.find(Foo, QStringLiteral("i386"))}); });
    QCOMPARE(h.inDatabase(), QStringList{QStringLiteral("dogwood|main|amd64: foo 1.0")});
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
    QCOMPARE(h.inDatabase(), QStringList{QStringLiteral("u|dogwood|main|amd64: foo 1.0")});
    QCOMPARE(h.listed().size(), 1);
    h.run([&] { h.shell.removePackages(h.shell.packages()); });
    QVERIFY(h.inDatabase().isEmpty());
}

void TestPackages::componentOfTheCaller()
{
    EngineHarness h;
    h.create();
    AddOptions options;
    options.component = QStringLiteral("contrib");
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}, options); });
    QCOMPARE(h.inIndices(), QStringList{QStringLiteral("foo 1.0 contrib amd64")});
    QVERIFY(h.find(Foo)->filePath().contains(QLatin1String("/pool/contrib/")));
}

void TestPackages::missingSectionAndPriority()
{
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo)
                             .field(QStringLiteral("Section"), QString())
                             .field(QStringLiteral("Priority"), QString())
                             .build(h.debs());
    QCOMPARE(h.run([&] { h.shell.addPackages({file}); }), int(RepoEnums::SUCCESS));
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    const QByteArray index
        = readFile(h.repoPath() + QLatin1String("/dists/dogwood/main/binary-amd64/Packages"));
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
    const QString one = QStringLiteral("1.0");
    const QString two = QStringLiteral("2.0");
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
    QTEST(h.find(QStringLiteral("older"))->version, "older");
    QTEST(h.find(QStringLiteral("newer"))->version, "newer");
    QCOMPARE(readFile(h.find(QStringLiteral("same"))->filePath()) == readFile(files.last()), same);
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
    QCOMPARE(h.lastMessage(), QStringLiteral("0 package(s) added: "));
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
        others.append(
            DebBuilder(QLatin1String(name)).contents("other\n").build(h.debs() + QLatin1String("/b")));
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceAll); };
    h.run([&] { h.shell.addPackages(others); });
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.events.filter(QStringLiteral("~")).size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(readFile(h.find(QString(QLatin1Char(char('a' + i))))->filePath()), readFile(others.at(i)));
    const ProcessResult check = runProcess({QStringLiteral("reprepro"),
                                            {QStringLiteral("-b"), h.repoPath(), QStringLiteral("checkpool")},
                                            {},
                                            {},
                                            -1});
    QVERIFY2(check.succeeded(), qPrintable(check.errorOutput));
    QVERIFY(
        QDir(h.repoPath()).entryList({QStringLiteral(".replaced-*")}, QDir::Dirs | QDir::Hidden).isEmpty());
}

void TestPackages::replacedAllPackageWithOtherContents()
{
    EngineHarness h;
    h.info.architectures = QStringLiteral("amd64 i386");
    h.create();
    DebBuilder deb(Foo);
    deb.architecture(QStringLiteral("all"));
    h.run([&] { h.shell.addPackages({deb.build(h.debs())}); });
    const QString other = deb.contents("other\n").build(h.debs() + QLatin1String("/b"));
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] { h.shell.addPackages({other}); });
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.inDatabase().size(), 2);
    QCOMPARE(readFile(h.find(Foo)->filePath()), readFile(other));
}

void TestPackages::epochAloneDiffers()
{
    // Both versions have one file name in the pool.
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}); });
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] {
        h.shell.addPackages(
            {DebBuilder(QStringLiteral("first")).build(h.debs()),
             DebBuilder(Foo).version(QStringLiteral("1:1.0")).build(h.debs() + QLatin1String("/b"))});
    });
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.find(Foo)->version, QStringLiteral("1:1.0"));
    QCOMPARE(h.inIndices(), h.listed());
}

void TestPackages::refusedReplacementPutsTheOldOneBack()
{
    EngineHarness h;
    h.create();
    const QString old = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("first")).build(h.debs()), old}); });
    // dpkg reads this version, but reprepro refuses what stands in the control file.
    const QString refused = DebBuilder(Foo)
                                .version(QStringLiteral("2.0"))
                                .field(QStringLiteral("Source"), QStringLiteral("Bad_Source"))
                                .build(h.debs());
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] { h.shell.addPackages({refused, DebBuilder(QStringLiteral("last")).build(h.debs())}); });
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY2(h.criticals.first().startsWith(QStringLiteral("Error adding package %1!|").arg(refused)),
             qPrintable(h.criticals.first()));
    QCOMPARE(h.lastMessage(), QStringLiteral("1 package(s) added: last_1.0_amd64.deb"));
    QCOMPARE(h.find(Foo)->version, QStringLiteral("1.0"));
    QCOMPARE(h.inIndices(), h.listed());
    QCOMPARE(readFile(h.find(Foo)->filePath()), readFile(old));
    QVERIFY(
        QDir(h.repoPath()).entryList({QStringLiteral(".replaced-*")}, QDir::Dirs | QDir::Hidden).isEmpty());
}

void TestPackages::stopWhileAdding()
{
    EngineHarness h;
    h.create();
    QStringList files;
    for (int i = 0; i < 5; ++i)
        files.append(DebBuilder(QStringLiteral("p%1").arg(i)).build(h.debs()));
    std::atomic<int> added{0};
    const auto stop = connect(&h.shell, &RepoShell::packageAdded, [&] {
        if (++added == 3)
            h.shell.cancel();
    });
    QCOMPARE(h.run([&] { h.shell.addPackages(files); }), int(RepoEnums::CANCEL));
    disconnect(stop);
    QCOMPARE(h.lastMessage(),
             QStringLiteral("Operation stopped. 3 of 5 package(s) added: p0_1.0_amd64.deb, p1_1.0_amd64.deb, "
                            "p2_1.0_amd64.deb"));
    QCOMPARE(h.finished.size(), 1);
    QCOMPARE(h.inIndices().size(), 3); // what is in is also shown to clients
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));

    // Stopped at the last item there is nothing left to stop.
    added = 2;
    const auto late = connect(&h.shell, &RepoShell::packageAdded, [&] { h.shell.cancel(); });
    QCOMPARE(h.run([&] { h.shell.addPackages({files.last()}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.lastMessage(), QStringLiteral("1 package(s) added: p4_1.0_amd64.deb"));
    disconnect(late);
}

void TestPackages::removeMany()
{
    EngineHarness h;
    h.create();
    QStringList files;
    for (int i = 0; i < 5; ++i)
        files.append(DebBuilder(QStringLiteral("p%1").arg(i)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    auto packages = h.shell.packages();
    packages.removeLast();
    QCOMPARE(h.run([&] { h.shell.removePackages({packages.takeFirst()}); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.ranges, QVector<int>{0});
    QCOMPARE(h.started, QStringList{QStringLiteral("Removing package")});
    QCOMPARE(h.lastMessage(), QStringLiteral("1 packages removed: p0_1.0_amd64.deb"));
    QCOMPARE(h.run([&] { h.shell.removePackages(packages); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.started, QStringList{QStringLiteral("Removing packages")});
    QCOMPARE(h.ranges, (QVector<int>{0, 3}));
    QCOMPARE(h.lastMessage(),
             QStringLiteral("3 packages removed: p1_1.0_amd64.deb, p2_1.0_amd64.deb, p3_1.0_amd64.deb"));
    QCOMPARE(h.inIndices(), QStringList{QStringLiteral("p4 1.0 main amd64")});
    QCOMPARE(h.listed(), h.inIndices());
    QVERIFY(!QFile::exists(packages.last()->filePath()));
    // Removing what somebody else has removed already brings the list up to date.
    const auto last = h.shell.packages();
    runProcess({QStringLiteral("reprepro"),
                {QStringLiteral("-b"),
                 h.repoPath(),
                 QStringLiteral("--export=never"),
                 QStringLiteral("remove"),
                 QStringLiteral("dogwood"),
                 QStringLiteral("p4")},
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
        files.append(DebBuilder(QStringLiteral("p%1").arg(i)).build(h.debs()));
    h.run([&] { h.shell.addPackages(files); });
    QStringList old;
    for (const auto &package : h.shell.packages())
        old.append(package->filePath());
    QStringList newer;
    for (int i = 0; i < 3; ++i)
        newer.append(DebBuilder(QStringLiteral("p%1").arg(i)).version(QStringLiteral("2.0")).build(h.debs()));
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
    options.signKeyId = QStringLiteral("ABCD");
    const QString file = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({file}, options); });
    QVERIFY2(h.listed().isEmpty() && h.criticals.size() == 1, "without a signer nothing goes in unsigned");
    h.shell.setPackageSigner(signer);
    h.run([&] { h.shell.addPackages({file}, options); });
    QCOMPARE(signer->signedFiles, QStringList{file});
    QCOMPARE(h.listed().size(), 1);

    signer->works = false;
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(Rules::ReplaceThis); };
    h.run([&] {
        h.shell.addPackages({DebBuilder(Foo).version(QStringLiteral("2.0")).build(h.debs())}, options);
    });
    QCOMPARE(h.criticals, QStringList{QStringLiteral("no key ABCD|")});
    QCOMPARE(h.inIndices(), QStringList{QStringLiteral("foo 1.0 main amd64")});
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
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("bar")).build(h.debs())}); });
    QCOMPARE(checker->checked.size(), 1);
    QVERIFY(!h.find(QStringLiteral("bar"))->hasDependsInfo());
}

VELT_TEST_MAIN(TestPackages, QCoreApplication)
#include "tst_packages.moc"
