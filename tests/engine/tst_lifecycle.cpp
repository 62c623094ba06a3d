// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/distributionsfile.h"
#include "engine/exportsession.h"
#include "engineharness.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QtTest>

/** Creating, opening, changing and closing with the real reprepro. */
class TestLifecycle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }
    void createWipesAndOpensEmpty();
    void createRefusesAndCleansUp();
    void openListsWhatIsThere();
    void openWithoutDescription();
    void openCanBeStopped();
    void emptyArgumentsStartNothing();
    void changeOfSuiteKeepsEverything();
    void changeDropsArchitectureAndComponent();
    void changeOfCodenameDropsItsIndices();
    void changeMoves();
    void changeRefusesToDestroyItself();
    void failedChangeKeepsTheOldDescription();
    void changeGivesUpSigning();
    void oddPathsWork_data();
    void oddPathsWork();
};

void TestLifecycle::createWipesAndOpensEmpty()
{
    EngineHarness h;
    writeFile(h.repoPath() + QLatin1String("/old/file"), "x");
    QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
    QSignalSpy stored(&h.shell, &RepoShell::requestForStoredInformation);
    h.create();
    QVERIFY(!QFile::exists(h.repoPath() + QLatin1String("/old")));
    QVERIFY(QFile::exists(h.repoPath() + QLatin1String("/dists/dogwood/main/binary-amd64/Packages")));
    QCOMPARE(h.shell.path(), h.repoPath());
    QCOMPARE(h.shell.repoInfo(), h.info);
    QCOMPARE(paths.count(), 1);
    QCOMPARE(paths.first().first().toString(), QString());
    QCOMPARE(stored.first().first().toString(), h.repoPath());
    QVERIFY2(h.started.isEmpty() && h.finished.isEmpty(), "creation is no job");
}

void TestLifecycle::createRefusesAndCleansUp()
{
    EngineHarness h;
    h.info.codename = QStringLiteral("../up");
    QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::ERROR));
    QVERIFY2(!QFile::exists(h.repoPath()), "a repository that reprepro refuses does not stay behind");
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY2(h.criticals.first().startsWith(QLatin1String("Failed to create repository!|Error")),
             qPrintable(h.criticals.first()));
    QCOMPARE(h.shell.path(), QString());

    h.clear();
    const QString open = h.folder.filePath(QStringLiteral("above/open"));
    writeFile(open + QLatin1String("/conf/distributions"), "x");
    h.shell.setOpenRepositories({open});
    h.info.codename = QStringLiteral("dog");
    QCOMPARE(h.shell.createRepo(QFileInfo(open).path(), h.info), int(RepoEnums::ERROR));
    QVERIFY(QFile::exists(open + QLatin1String("/conf/distributions")));
    QVERIFY(h.criticals.first().startsWith(
        QStringLiteral("Impossible to delete directory %1!").arg(QFileInfo(open).path())));
}

void TestLifecycle::openListsWhatIsThere()
{
    EngineHarness h;
    h.info.architectures = QStringLiteral("amd64 i386");
    h.create();
    const QString all
        = DebBuilder(QStringLiteral("both")).architecture(QStringLiteral("all")).build(h.debs());
    const QString udeb = DebBuilder(QStringLiteral("small")).udeb().build(h.debs());
    h.run([&] { h.shell.addPackages({all, udeb}); });
    const QStringList expected = h.listed();
    QCOMPARE(expected.size(), 3);

    RepoShell other;
    EngineHarness reader;
    QSignalSpy merging(&reader.shell, &RepoShell::requestForMergingInformation);
    QCOMPARE(reader.run([&] { reader.shell.openRepo(h.repoPath()); }), int(RepoEnums::SUCCESS));
    QCOMPARE(reader.listed(), expected);
    QCOMPARE(reader.started, QStringList{QStringLiteral("Opening repository")});
    QCOMPARE(reader.finished.size(), 1);
    QCOMPARE(reader.lastMessage(), QStringLiteral("Repositry is opened"));
    QCOMPARE(reader.ranges, (QVector<int>{0, 3}));
    QCOMPARE(reader.events.size(), 3);
    QCOMPARE(merging.count(), 1);
    QCOMPARE(reader.shell.repoInfo().name, QStringLiteral("repo"));
    QCOMPARE(reader.find(QStringLiteral("small"))->type, PackageType::Udeb);
    QVERIFY(QFile::exists(reader.find(QStringLiteral("both"))->filePath()));
    QCOMPARE(
        reader.shell.packageFilePath(QStringLiteral("both"), QStringLiteral("main"), QStringLiteral("i386")),
        reader.find(QStringLiteral("both"))->filePath());

    reader.shell.closeRepo();
    QCOMPARE(reader.shell.packageCount(), 0);
    QCOMPARE(reader.shell.path(), QString());
}

void TestLifecycle::openWithoutDescription()
{
    EngineHarness h;
    QDir().mkpath(h.repoPath());
    QSignalSpy import(&h.shell, &RepoShell::needImportRepo);
    const QString notFound = QStringLiteral("File %1/conf/distributions not found!").arg(h.repoPath());
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.questions,
             QStringList{QLatin1Char('|') + notFound + QLatin1String(" Do you want to import repository?")});
    QCOMPARE(h.lastMessage(), notFound);
    QCOMPARE(import.count(), 0);
    h.answer = [](const QString &) { return true; };
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.lastMessage(), QString());
    QCOMPARE(import.count(), 1);
    QCOMPARE(h.shell.path(), QString());

    writeFile(h.repoPath() + QLatin1String("/conf/distributions"), "CODENAME: dog\n");
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.criticals.size(), 1);
    QCOMPARE(h.lastMessage(), QStringLiteral("Repositry is not opened"));
}

void TestLifecycle::openCanBeStopped()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    QSignalSpy closed(&h.shell, &RepoShell::needCloseRepo);
    // Stopped from inside, before the first package: a direct connection runs on the job's thread.
    const auto stop = connect(&h.shell, &RepoShell::requestForMergingInformation, [&] { h.shell.cancel(); });
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::CANCEL));
    QCOMPARE(h.lastMessage(), QStringLiteral("Repositry is not opened"));
    QCOMPARE(h.shell.path(), QString());
    QCOMPARE(closed.count(), 1);
    disconnect(stop);
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::SUCCESS));
}

void TestLifecycle::emptyArgumentsStartNothing()
{
    EngineHarness h;
    h.shell.openRepo(QString());
    h.shell.changeRepo(QString(), {});
    h.shell.addPackages({});
    h.shell.removePackages({});
    QVERIFY(!h.shell.isRunning());
    QCoreApplication::processEvents();
    QVERIFY(h.started.isEmpty());
}

void TestLifecycle::changeOfSuiteKeepsEverything()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    h.info.suite = QStringLiteral("testing");
    h.info.contents = true;
    QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(saving.count(), 1);
    QCOMPARE(h.started,
             (QStringList{QStringLiteral("Repository changing"), QStringLiteral("Opening repository")}));
    QCOMPARE(h.finished.size(), 2);
    QCOMPARE(h.lastMessage(), QStringLiteral("Repository is changed."));
    QCOMPARE(h.finished.last().job, RepoEnums::CHANGE_REPO_JOB);
    QCOMPARE(h.listed().size(), 1);
    QVERIFY(readFile(h.repoPath() + QLatin1String("/dists/dogwood/Release")).contains("Suite: testing"));
    QVERIFY(QFile::exists(h.repoPath() + QLatin1String("/dists/dogwood/main/Contents-amd64.gz")));
}

void TestLifecycle::changeDropsArchitectureAndComponent()
{
    EngineHarness h;
    h.info.architectures = QStringLiteral("amd64 i386");
    h.create();
    h.run([&] {
        h.shell.addPackages(
            {DebBuilder(QStringLiteral("foo")).build(h.debs()),
             DebBuilder(QStringLiteral("bar"))
                 .field(QStringLiteral("Section"), QStringLiteral("contrib/admin"))
                 .build(h.debs()),
             DebBuilder(QStringLiteral("baz")).architecture(QStringLiteral("i386")).build(h.debs())});
    });
    QCOMPARE(h.listed().size(), 3);
    h.info.architectures = QStringLiteral("amd64");
    h.info.components = QStringLiteral("main");
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.listed(), QStringList{QStringLiteral("foo 1.0 main amd64")});
    const QString dist = h.repoPath() + QLatin1String("/dists/dogwood/");
    QVERIFY(!QFile::exists(dist + QLatin1String("contrib")));
    QVERIFY(!QFile::exists(dist + QLatin1String("main/binary-i386")));
    QVERIFY(!QFile::exists(dist + QLatin1String("main/debian-installer/binary-i386")));
    QCOMPARE(h.inDatabase().size(), 1);
}

void TestLifecycle::changeOfCodenameDropsItsIndices()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    h.info.codename = QStringLiteral("aspen");
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QVERIFY(!QFile::exists(h.repoPath() + QLatin1String("/dists/dogwood")));
    QVERIFY(QFile::exists(h.repoPath() + QLatin1String("/dists/aspen/Release")));
}

void TestLifecycle::changeMoves()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    const QString target = h.folder.filePath(QStringLiteral("deep er/new"));
    writeFile(target + QLatin1String("/old"), "x");
    QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
    QCOMPARE(h.run([&] { h.shell.changeRepo(target + QLatin1Char('/'), h.info); }), int(RepoEnums::SUCCESS));
    QVERIFY(!QFile::exists(h.repoPath()));
    QVERIFY(!QFile::exists(target + QLatin1String("/old")));
    QCOMPARE(QDir(QFileInfo(target).path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("new")});
    QCOMPARE(h.shell.path(), target);
    QCOMPARE(paths.first().first().toString(), target);
    QCOMPARE(h.find(QStringLiteral("foo"))->filePath(),
             target + QLatin1String("/pool/main/f/foo/foo_1.0_amd64.deb"));
    QVERIFY(QFile::exists(h.find(QStringLiteral("foo"))->filePath()));
}

void TestLifecycle::changeRefusesToDestroyItself()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    QVERIFY(QFile::link(h.repoPath(), h.folder.filePath(QStringLiteral("link"))));
    const QString open = h.folder.filePath(QStringLiteral("open"));
    writeFile(open + QLatin1String("/conf/distributions"), "x");
    h.shell.setOpenRepositories({open});
    const QStringList targets{h.folder.path(),
                              h.repoPath() + QLatin1String("/inside"),
                              h.folder.filePath(QStringLiteral("link")),
                              QDir::homePath(),
                              open};
    for (const QString &target : targets) {
        QCOMPARE(h.run([&] { h.shell.changeRepo(target, h.info); }), int(RepoEnums::ERROR));
        QCOMPARE(h.lastMessage(), QStringLiteral("Repository not changed"));
        QCOMPARE(h.finished.last().job, RepoEnums::COMMON_JOB);
        QCOMPARE(h.criticals.size(), 1);
        QCOMPARE(h.inDatabase().size(), 1);
        QVERIFY(QFile::exists(open + QLatin1String("/conf/distributions")));
    }
    QCOMPARE(h.shell.path(), h.repoPath());
}

void TestLifecycle::failedChangeKeepsTheOldDescription()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(QStringLiteral("foo")).build(h.debs())}); });
    const RepoInfo old = h.info;
    h.info.architectures = QStringLiteral("i386 all"); // reprepro refuses "all"
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::ERROR));
    QCOMPARE(h.lastMessage(), QStringLiteral("Repository is not changed."));
    QCOMPARE(h.finished.last().job, RepoEnums::CHANGE_REPO_JOB);
    QVERIFY(h.criticals.first().startsWith(QLatin1String("Failed to change repository!|")));
    QVERIFY2(!h.criticals.first().endsWith(QLatin1Char('|')), "the tool's own words belong to the message");
    QCOMPARE(DistributionsFile(h.repoPath()).read()->architectures, old.architectures);
    QCOMPARE(h.shell.repoInfo().architectures, old.architectures);
    QCOMPARE(h.inIndices(), QStringList{QStringLiteral("foo 1.0 main amd64")});
}

void TestLifecycle::changeGivesUpSigning()
{
    VELT_NEED_TOOL("gpg");
    EngineHarness h;
    h.create();
    h.info.signWith = true; // and this home has no key at all
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY(h.criticals.first().startsWith(QLatin1String("Failed to sign repository!|")));
    QVERIFY(!h.shell.repoInfo().signWith);
    QVERIFY(!readFile(h.repoPath() + QLatin1String("/conf/distributions")).contains("SignWith"));
}

void TestLifecycle::oddPathsWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << QStringLiteral("my  repo");
    QTest::newRow("place holders") << QStringLiteral("100%1%2 %n");
    QTest::newRow("quotes") << QStringLiteral("the \"best\" 'one'");
    QTest::newRow("shell") << QStringLiteral("$(touch x)&;|");
    QTest::newRow("letters") << QString::fromUtf8("репозиторий");
}

void TestLifecycle::oddPathsWork()
{
    QFETCH(QString, name);
    EngineHarness h;
    const QString path = h.folder.filePath(name);
    QCOMPARE(h.shell.createRepo(path, h.info), int(RepoEnums::SUCCESS));
    const QStringList files{
        DebBuilder(QStringLiteral("foo")).fileName(name + QLatin1String(".deb")).build(h.debs()),
        DebBuilder(QStringLiteral("bar")).build(h.folder.filePath(name + QLatin1String("-debs"))),
        DebBuilder(QStringLiteral("baz")).build(h.debs())};
    QCOMPARE(h.run([&] { h.shell.addPackages(files); }), int(RepoEnums::SUCCESS));
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.inIndices().size(), 3);
    QCOMPARE(h.shell.packageFilePath(QStringLiteral("foo"), QString(), QString()),
             h.find(QStringLiteral("foo"))->filePath());
    h.run([&] { h.shell.removePackages(h.shell.packages()); });
    QVERIFY(h.inDatabase(path).isEmpty());
    QVERIFY(!ExportSession::isExportOwed(path));
}

VELT_TEST_MAIN(TestLifecycle, QCoreApplication)
#include "tst_lifecycle.moc"
