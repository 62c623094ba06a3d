// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/distributionsfile.h"
#include "engine/exportsession.h"
#include "engineharness.h"
#include "support/debbuilder.h"
#include "support/literals.h"
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
    writeFile(h.repoPath() + "/old/file"_s, "x");
    QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
    QSignalSpy stored(&h.shell, &RepoShell::requestForStoredInformation);
    h.create();
    QVERIFY(!QFile::exists(h.repoPath() + "/old"_s));
    QVERIFY(QFile::exists(h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s));
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
    h.info.codename = "../up"_s;
    QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::ERROR));
    QVERIFY2(!QFile::exists(h.repoPath()), "a repository that reprepro refuses does not stay behind");
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY2(h.criticals.first().startsWith("Failed to create repository!|Error"_s),
             qPrintable(h.criticals.first()));
    QCOMPARE(h.shell.path(), QString());

    h.clear();
    const QString open = h.folder.filePath("above/open"_s);
    writeFile(open + "/conf/distributions"_s, "x");
    h.shell.setOpenRepositories({open});
    h.info.codename = "dog"_s;
    QCOMPARE(h.shell.createRepo(QFileInfo(open).path(), h.info), int(RepoEnums::ERROR));
    QVERIFY(QFile::exists(open + "/conf/distributions"_s));
    QVERIFY(
        h.criticals.first().startsWith("Impossible to delete directory %1!"_s.arg(QFileInfo(open).path())));
}

void TestLifecycle::openListsWhatIsThere()
{
    EngineHarness h;
    h.info.architectures = "amd64 i386"_s;
    h.create();
    const QString all = DebBuilder("both"_s).architecture("all"_s).build(h.debs());
    const QString udeb = DebBuilder("small"_s).udeb().build(h.debs());
    h.run([&] { h.shell.addPackages({all, udeb}); });
    const QStringList expected = h.listed();
    QCOMPARE(expected.size(), 3);

    RepoShell other;
    EngineHarness reader;
    QSignalSpy merging(&reader.shell, &RepoShell::requestForMergingInformation);
    QCOMPARE(reader.run([&] { reader.shell.openRepo(h.repoPath()); }), int(RepoEnums::SUCCESS));
    QCOMPARE(reader.listed(), expected);
    QCOMPARE(reader.started, QStringList{"Opening repository"_s});
    QCOMPARE(reader.finished.size(), 1);
    QCOMPARE(reader.lastMessage(), "Repositry is opened"_s);
    QCOMPARE(reader.ranges, (QVector<int>{0, 3}));
    QCOMPARE(reader.events.size(), 3);
    QCOMPARE(merging.count(), 1);
    QCOMPARE(reader.shell.repoInfo().name, "repo"_s);
    QCOMPARE(reader.find("small"_s)->type, PackageType::Udeb);
    QVERIFY(QFile::exists(reader.find("both"_s)->filePath()));
    QCOMPARE(reader.shell.packageFilePath("both"_s, "main"_s, "i386"_s), reader.find("both"_s)->filePath());

    reader.shell.closeRepo();
    QCOMPARE(reader.shell.packageCount(), 0);
    QCOMPARE(reader.shell.path(), QString());
}

void TestLifecycle::openWithoutDescription()
{
    EngineHarness h;
    QDir().mkpath(h.repoPath());
    QSignalSpy import(&h.shell, &RepoShell::needImportRepo);
    const QString notFound = "File %1/conf/distributions not found!"_s.arg(h.repoPath());
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.questions, QStringList{QLatin1Char('|') + notFound + " Do you want to import repository?"_s});
    QCOMPARE(h.lastMessage(), notFound);
    QCOMPARE(import.count(), 0);
    h.answer = [](const QString &) { return true; };
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.lastMessage(), QString());
    QCOMPARE(import.count(), 1);
    QCOMPARE(h.shell.path(), QString());

    writeFile(h.repoPath() + "/conf/distributions"_s, "CODENAME: dog\n");
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::ERROR));
    QCOMPARE(h.criticals.size(), 1);
    QCOMPARE(h.lastMessage(), "Repositry is not opened"_s);
}

void TestLifecycle::openCanBeStopped()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    QSignalSpy closed(&h.shell, &RepoShell::needCloseRepo);
    // Stopped from inside, before the first package: a direct connection runs on the job's thread.
    const auto stop = connect(&h.shell, &RepoShell::requestForMergingInformation, [&] { h.shell.cancel(); });
    QCOMPARE(h.run([&] { h.shell.openRepo(h.repoPath()); }), int(RepoEnums::CANCEL));
    QCOMPARE(h.lastMessage(), "Repositry is not opened"_s);
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
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    h.info.suite = "testing"_s;
    h.info.contents = true;
    QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(saving.count(), 1);
    QCOMPARE(h.started, (QStringList{"Repository changing"_s, "Opening repository"_s}));
    QCOMPARE(h.finished.size(), 2);
    QCOMPARE(h.lastMessage(), "Repository is changed."_s);
    QCOMPARE(h.finished.last().job, RepoEnums::CHANGE_REPO_JOB);
    QCOMPARE(h.listed().size(), 1);
    QVERIFY(readFile(h.repoPath() + "/dists/dogwood/Release"_s).contains("Suite: testing"));
    QVERIFY(QFile::exists(h.repoPath() + "/dists/dogwood/main/Contents-amd64.gz"_s));
}

void TestLifecycle::changeDropsArchitectureAndComponent()
{
    EngineHarness h;
    h.info.architectures = "amd64 i386"_s;
    h.create();
    h.run([&] {
        h.shell.addPackages({DebBuilder("foo"_s).build(h.debs()),
                             DebBuilder("bar"_s).field("Section"_s, "contrib/admin"_s).build(h.debs()),
                             DebBuilder("baz"_s).architecture("i386"_s).build(h.debs())});
    });
    QCOMPARE(h.listed().size(), 3);
    h.info.architectures = "amd64"_s;
    h.info.components = "main"_s;
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.listed(), QStringList{"foo 1.0 main amd64"_s});
    const QString dist = h.repoPath() + "/dists/dogwood/"_s;
    QVERIFY(!QFile::exists(dist + "contrib"_s));
    QVERIFY(!QFile::exists(dist + "main/binary-i386"_s));
    QVERIFY(!QFile::exists(dist + "main/debian-installer/binary-i386"_s));
    QCOMPARE(h.inDatabase().size(), 1);
}

void TestLifecycle::changeOfCodenameDropsItsIndices()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    h.info.codename = "aspen"_s;
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QVERIFY(!QFile::exists(h.repoPath() + "/dists/dogwood"_s));
    QVERIFY(QFile::exists(h.repoPath() + "/dists/aspen/Release"_s));
}

void TestLifecycle::changeMoves()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    const QString target = h.folder.filePath("deep er/new"_s);
    writeFile(target + "/old"_s, "x");
    QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
    QCOMPARE(h.run([&] { h.shell.changeRepo(target + QLatin1Char('/'), h.info); }), int(RepoEnums::SUCCESS));
    QVERIFY(!QFile::exists(h.repoPath()));
    QVERIFY(!QFile::exists(target + "/old"_s));
    QCOMPARE(QDir(QFileInfo(target).path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{"new"_s});
    QCOMPARE(h.shell.path(), target);
    QCOMPARE(paths.first().first().toString(), target);
    QCOMPARE(h.find("foo"_s)->filePath(), target + "/pool/main/f/foo/foo_1.0_amd64.deb"_s);
    QVERIFY(QFile::exists(h.find("foo"_s)->filePath()));
}

void TestLifecycle::changeRefusesToDestroyItself()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    QVERIFY(QFile::link(h.repoPath(), h.folder.filePath("link"_s)));
    const QString open = h.folder.filePath("open"_s);
    writeFile(open + "/conf/distributions"_s, "x");
    h.shell.setOpenRepositories({open});
    const QStringList targets{
        h.folder.path(), h.repoPath() + "/inside"_s, h.folder.filePath("link"_s), QDir::homePath(), open};
    for (const QString &target : targets) {
        QCOMPARE(h.run([&] { h.shell.changeRepo(target, h.info); }), int(RepoEnums::ERROR));
        QCOMPARE(h.lastMessage(), "Repository not changed"_s);
        QCOMPARE(h.finished.last().job, RepoEnums::COMMON_JOB);
        QCOMPARE(h.criticals.size(), 1);
        QCOMPARE(h.inDatabase().size(), 1);
        QVERIFY(QFile::exists(open + "/conf/distributions"_s));
    }
    QCOMPARE(h.shell.path(), h.repoPath());
}

void TestLifecycle::failedChangeKeepsTheOldDescription()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder("foo"_s).build(h.debs())}); });
    const RepoInfo old = h.info;
    h.info.architectures = "i386 all"_s; // reprepro refuses "all"
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::ERROR));
    QCOMPARE(h.lastMessage(), "Repository is not changed."_s);
    QCOMPARE(h.finished.last().job, RepoEnums::CHANGE_REPO_JOB);
    QVERIFY(h.criticals.first().startsWith("Failed to change repository!|"_s));
    QVERIFY2(!h.criticals.first().endsWith(QLatin1Char('|')), "the tool's own words belong to the message");
    QCOMPARE(DistributionsFile(h.repoPath()).read()->architectures, old.architectures);
    QCOMPARE(h.shell.repoInfo().architectures, old.architectures);
    QCOMPARE(h.inIndices(), QStringList{"foo 1.0 main amd64"_s});
}

void TestLifecycle::changeGivesUpSigning()
{
    VELT_NEED_TOOL("gpg");
    EngineHarness h;
    h.create();
    h.info.signWith = true; // and this home has no key at all
    QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info); }), int(RepoEnums::SUCCESS));
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY(h.criticals.first().startsWith("Failed to sign repository!|"_s));
    QVERIFY(!h.shell.repoInfo().signWith);
    QVERIFY(!readFile(h.repoPath() + "/conf/distributions"_s).contains("SignWith"));
}

void TestLifecycle::oddPathsWork_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << "my  repo"_s;
    QTest::newRow("place holders") << "100%1%2 %n"_s;
    QTest::newRow("quotes") << "the \"best\" 'one'"_s;
    QTest::newRow("shell") << "$(touch x)&;|"_s;
    QTest::newRow("letters") << "репозиторий"_s;
}

void TestLifecycle::oddPathsWork()
{
    QFETCH(QString, name);
    EngineHarness h;
    const QString path = h.folder.filePath(name);
    QCOMPARE(h.shell.createRepo(path, h.info), int(RepoEnums::SUCCESS));
    const QStringList files{DebBuilder("foo"_s).fileName(name + ".deb"_s).build(h.debs()),
                            DebBuilder("bar"_s).build(h.folder.filePath(name + "-debs"_s)),
                            DebBuilder("baz"_s).build(h.debs())};
    QCOMPARE(h.run([&] { h.shell.addPackages(files); }), int(RepoEnums::SUCCESS));
    QVERIFY2(h.criticals.isEmpty(), qPrintable(h.criticals.join(QLatin1Char('\n'))));
    QCOMPARE(h.inIndices().size(), 3);
    QCOMPARE(h.shell.packageFilePath("foo"_s, QString(), QString()), h.find("foo"_s)->filePath());
    h.run([&] { h.shell.removePackages(h.shell.packages()); });
    QVERIFY(h.inDatabase(path).isEmpty());
    QVERIFY(!ExportSession::isExportOwed(path));
}

VELT_TEST_MAIN(TestLifecycle, QCoreApplication)
#include "tst_lifecycle.moc"
