// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/debarchive.h"
#include "engine/distributions.h"
#include "engine/distributionsfile.h"
#include "engine/packagesfile.h"
#include "engine/pathguard.h"
#include "engine/privateconfig.h"
#include "engine/repreprocommands.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QtTest>

class TestEngineRules : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void newDescriptions();
    void distributionsAreReadBack();
    void whatRewritingWouldLose_data();
    void whatRewritingWouldLose();
    void foreignFieldsAreKeptBeside();
    void systemVersion_data();
    void systemVersion();
    void wordsSurviveTheCommandLine_data();
    void wordsSurviveTheCommandLine();
    void commandLines();
    void poolFiles_data();
    void poolFiles();
    void indexPlaces_data();
    void indexPlaces();
    void silentOptions();
    void wipeGuard();
    void overlaps();
    void damagedArchives();
};

void TestEngineRules::newDescriptions()
{
    const RepoInfo dogwood = Distributions::repoInfoForCodename(QStringLiteral("dogwood"));
    QCOMPARE(dogwood.name, QStringLiteral("dogwood-repo"));
    QCOMPARE(dogwood.architectures, QStringLiteral("armhf"));
    QCOMPARE(dogwood.components, QStringLiteral("main contrib non-free rpi3"));
    QCOMPARE(Distributions::repoInfoForCodename(QStringLiteral("cedar")).architectures,
             QStringLiteral("e2k-8c"));
    const RepoInfo other = Distributions::repoInfoForCodename(QString());
    QCOMPARE(other.name, QStringLiteral("repo"));
    QCOMPARE(other.architectures, QStringLiteral("amd64"));
    QCOMPARE(other.components, QStringLiteral("main contrib non-free"));

    RepoInfo written = dogwood;
    written.version = QStringLiteral("1.6");
    written.signWith = true;
    QCOMPARE(Distributions::text(written),
             QStringLiteral(
                 "Origin: Debian\nCodename: dogwood\nSuite: stable\nVersion: 1.6\nArchitectures: armhf\n"
                 "Components: main contrib non-free rpi3\nUDebComponents: main contrib non-free rpi3\n"
                 "SignWith: yes\n"));
    QCOMPARE(Distributions::parse(Distributions::text(written), written.name), written);
    written.signWith = false;
    written.contents = true;
    QCOMPARE(Distributions::parse(Distributions::text(written), written.name), written);
}

void TestEngineRules::distributionsAreReadBack()
{
    const auto parsed
        = [](const char *text) { return Distributions::parse(QString::fromLatin1(text), QString()); };
    QCOMPARE(parsed("codename: x\nsuite:y").codename, QStringLiteral("x"));
    QCOMPARE(parsed("codename: x\nsuite:y").suite, QStringLiteral("y"));
    QCOMPARE(parsed("CODENAME: x\n").codename, QString());
    QCOMPARE(parsed("# Codename: old\nCodename: a\r\nComponents: main contrib\r\n").codename,
             QStringLiteral("a"));
    QCOMPARE(parsed("Codename: a\r\nComponents: main contrib\r\n").components,
             QStringLiteral("main contrib"));
    QCOMPARE(parsed("UDebComponents: x\nComponents: y\n").components, QStringLiteral("y"));
    QVERIFY(!parsed("SignWith: Yes\n").signWith);
    QVERIFY(!parsed("SignWith: default\nContents: .gz .bz2\n").contents);
    QCOMPARE(Distributions::fieldValue({QStringLiteral("Description: first"), QStringLiteral(" second")},
                                       QStringLiteral("Description")),
             QStringLiteral("first\n second"));
}

void TestEngineRules::whatRewritingWouldLose_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("more");
    RepoInfo info = Distributions::repoInfoForCodename(QStringLiteral("aspen"));
    info.signWith = true;
    info.contents = true;
    const QString own = Distributions::text(info);
    QTest::newRow("our own") << own << false;
    QTest::newRow("line ends of another system")
        << QString(own).replace(QLatin1String("\n"), QLatin1String("\r\n")) << false;
    QTest::newRow("another field") << own + QLatin1String("Log: log\n") << true;
    QTest::newRow("another key") << QString(own).replace(QLatin1String("yes"), QLatin1String("ABCD")) << true;
    QTest::newRow("another origin") << QString(own).replace(QLatin1String("Debian"), QLatin1String("Us"))
                                    << true;
    QTest::newRow("second distribution") << own + QLatin1String("\nCodename: b\n") << true;
    QTest::newRow("comment") << own + QLatin1String("# mine\n") << true;
}

void TestEngineRules::whatRewritingWouldLose()
{
    QFETCH(QString, text);
    QTEST(Distributions::holdsMore(text), "more");
}

void TestEngineRules::foreignFieldsAreKeptBeside()
{
    const QTemporaryDir folder;
    const QString conf = folder.filePath(QStringLiteral("conf/distributions"));
    const DistributionsFile file(folder.path());
    const RepoInfo info = Distributions::repoInfoForCodename(QStringLiteral("aspen"));
    QVERIFY(!file.read());
    QVERIFY(!file.write(info)); // there is no folder to write into
    writeFile(conf, "Codename: aspen\nLog: packages.log\n");
    QVERIFY(file.write(info));
    QCOMPARE(readFile(conf + QLatin1String(".orig")), QByteArray("Codename: aspen\nLog: packages.log\n"));
    writeFile(conf, "Codename: aspen\nLog: later\n");
    QVERIFY(file.write(info));
    QVERIFY2(readFile(conf + QLatin1String(".orig")).contains("packages.log"),
             "the first file is the one to keep");
    QCOMPARE(file.read()->codename, QStringLiteral("aspen"));
    QCOMPARE(file.read()->name, QFileInfo(folder.path()).fileName());
}

void TestEngineRules::systemVersion_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("version");
    QTest::newRow("three words") << QStringLiteral("Name 1.6 (x)\n") << QStringLiteral("1.6");
    QTest::newRow("four words") << QStringLiteral("Name 1.6 (x) y\n") << QStringLiteral("Name 1.6 (x) y");
    QTest::newRow("one word") << QStringLiteral("2.12\n") << QStringLiteral("2.12");
    QTest::newRow("nothing") << QStringLiteral("  ") << QString();
}

void TestEngineRules::systemVersion()
{
    QFETCH(QString, text);
    QTEST(Distributions::systemVersionFromText(text), "version");
}

void TestEngineRules::wordsSurviveTheCommandLine_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << QStringLiteral("/srv/repo");
    QTest::newRow("blanks") << QStringLiteral("/srv/my repo/two  blanks");
    QTest::newRow("place holders") << QStringLiteral("/srv/%1/%2%3%6");
    QTest::newRow("quotes") << QStringLiteral("/srv/a\"b\"/\"\"\"c'd");
    QTest::newRow("shell") << QStringLiteral("/srv/$(x);`y`&|\\n");
    QTest::newRow("letters") << QString::fromUtf8("/srv/пакет ö");
}

void TestEngineRules::wordsSurviveTheCommandLine()
{
    QFETCH(QString, path);
    const QString arguments = ReproCommand::include(QStringLiteral("dog"),
                                                    QStringLiteral("main"),
                                                    QStringLiteral("amd64"),
                                                    QStringLiteral("my section"),
                                                    path + QLatin1String(".deb"));
    const QStringList expected{QStringLiteral("reprepro"),
                               QStringLiteral("-b"),
                               path,
                               QStringLiteral("-C"),
                               QStringLiteral("main"),
                               QStringLiteral("-A"),
                               QStringLiteral("amd64"),
                               QStringLiteral("-S"),
                               QStringLiteral("my section"),
                               QStringLiteral("includedeb"),
                               QStringLiteral("dog"),
                               path + QLatin1String(".deb")};
    QCOMPARE(QProcess::splitCommand(ReproCommand::commandLine(path, arguments)), expected);
    const QStringList remove
        = QProcess::splitCommand(ReproCommand::remove(QStringLiteral("dog"), path, path, QString()));
    QCOMPARE(
        remove,
        (QStringList{QStringLiteral("-C"), path, QStringLiteral("remove"), QStringLiteral("dog"), path}));
}

void TestEngineRules::commandLines()
{
    const QString dog = QStringLiteral("dog");
    const QString main = QStringLiteral("main");
    const QString foo = QStringLiteral("foo");
    QCOMPARE(ReproCommand::include(
                 dog, main, QStringLiteral("amd64"), QStringLiteral("admin"), QStringLiteral("/a.udeb")),
             QStringLiteral("-C main -A amd64 -S admin includeudeb dog \"/a.udeb\""));
    QCOMPARE(ReproCommand::include(dog, main, QString(), QStringLiteral("admin"), QStringLiteral("/a.deb")),
             QStringLiteral("-C main -S admin includedeb dog \"/a.deb\""));
    QCOMPARE(ReproCommand::remove(dog, foo, main, QStringLiteral("amd64")),
             QStringLiteral("-C main -A amd64 remove dog foo"));
    QCOMPARE(ReproCommand::remove(dog, foo, QString(), QStringLiteral("all")),
             QStringLiteral("remove dog foo"));
    const auto udeb = PackageType::Udeb;
    QCOMPARE(ReproCommand::remove(dog, foo, QString(), QString(), &udeb),
             QStringLiteral("-T udeb remove dog foo"));
    QCOMPARE(ReproCommand::listFiles(dog, foo, main, QStringLiteral("amd64")),
             QStringLiteral("--list-format \"${filename}\n\" listfilter dog "
                            "\"Package (% foo), $Component (% main), $Architecture (% amd64)\""));
    QCOMPARE(ReproCommand::commandLine(QStringLiteral("/r"), ReproCommand::clearVanished()),
             QStringLiteral("reprepro -b /r  --delete clearvanished"));
}

void TestEngineRules::poolFiles_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("file");
    QTest::newRow("plain") << QByteArray() << QStringLiteral("foo") << QStringLiteral("1.0-1")
                           << QStringLiteral("pool/main/f/foo/foo_1.0-1_all.deb");
    QTest::newRow("library") << QByteArray() << QStringLiteral("libfoo2") << QStringLiteral("1")
                             << QStringLiteral("pool/main/libf/libfoo2/libfoo2_1_all.deb");
    QTest::newRow("just lib") << QByteArray() << QStringLiteral("lib") << QStringLiteral("1")
                              << QStringLiteral("pool/main/l/lib/lib_1_all.deb");
    QTest::newRow("source with version")
        << QByteArray("Source: bar (2.0)\n") << QStringLiteral("foo") << QStringLiteral("1")
        << QStringLiteral("pool/main/b/bar/foo_1_all.deb");
    QTest::newRow("epoch") << QByteArray() << QStringLiteral("foo") << QStringLiteral("2:1.0")
                           << QStringLiteral("pool/main/f/foo/foo_1.0_all.deb");
}

void TestEngineRules::poolFiles()
{
    QFETCH(QByteArray, control);
    QFETCH(QString, name);
    QFETCH(QString, version);
    PackageInfo package;
    package.name = name;
    package.version = version;
    package.component = QStringLiteral("main");
    package.control = ControlText(control);
    QTEST(ReproCommand::poolFile(package, QStringLiteral("all")), "file");
}

void TestEngineRules::indexPlaces_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("place"); // "component architecture kind", empty for none
    QTest::newRow("deb") << QStringLiteral("main/binary-amd64/Packages") << QStringLiteral("main amd64 0");
    QTest::newRow("udeb") << QStringLiteral("main/debian-installer/binary-armhf/Packages")
                          << QStringLiteral("main armhf 1");
    QTest::newRow("names with hyphens")
        << QStringLiteral("non-free/binary-e2k-8c/Packages") << QStringLiteral("non-free e2k-8c 0");
    QTest::newRow("nested component")
        << QStringLiteral("updates/main/binary-i386/Packages") << QStringLiteral("updates/main i386 0");
    QTest::newRow("no component") << QStringLiteral("binary-amd64/Packages") << QString();
    QTest::newRow("sources") << QStringLiteral("main/source/Packages") << QString();
}

void TestEngineRules::indexPlaces()
{
    QFETCH(QString, path);
    const auto place = indexPlace(path);
    const QString shown = place ? QStringLiteral("%1 %2 %3")
                                      .arg(place->component, place->architecture)
                                      .arg(place->type == PackageType::Udeb ? 1 : 0)
                                : QString();
    QTEST(shown, "place");
}

void TestEngineRules::silentOptions()
{
    const QString own
        = QStringLiteral("verbose\n--export changed\nkeepunreferencedfiles\nexport=never\noutdir /x\n");
    QCOMPARE(PrivateConfig::optionsText(own, PrivateConfig::Keep),
             QStringLiteral("verbose\noutdir /x\nexport silent-never\nkeepunreferencedfiles\n"));
    QCOMPARE(PrivateConfig::optionsText(QString(), PrivateConfig::Delete),
             QStringLiteral("export silent-never\n"));

    const QTemporaryDir repository;
    writeFile(repository.filePath(QStringLiteral("conf/distributions")), "Codename: dog\n");
    QVERIFY(!PrivateConfig::keepsUnreferencedFiles(repository.path()));
    writeFile(repository.filePath(QStringLiteral("conf/options")), own.toLatin1());
    QVERIFY(PrivateConfig::keepsUnreferencedFiles(repository.path()));
    PrivateConfig config(repository.path(), PrivateConfig::Keep);
    QVERIFY(config.isValid());
    QCOMPARE(config.environment().size(), 3);
    config.useWholeEnvironment();
    QCOMPARE(config.environment().size(), 1);
    // Programs of the administrator's own, told by reprepro, may need their PATH and their keys.
    writeFile(repository.filePath(QStringLiteral("conf/distributions")),
              "Codename: dog\nLog: packages.log\n tell.sh\n");
    QCOMPARE(PrivateConfig(repository.path(), PrivateConfig::Keep).environment().size(), 1);
    writeFile(repository.filePath(QStringLiteral("conf/distributions")), "Codename: dog\n");
    writeFile(repository.filePath(QStringLiteral("conf/options")), "endhook tell.sh\n");
    QCOMPARE(PrivateConfig(repository.path(), PrivateConfig::Keep).environment().size(), 1);
    const QString folder = config.environment().first().section(QLatin1Char('='), 1);
    QCOMPARE(readFile(folder + QLatin1String("/distributions")), QByteArray("Codename: dog\n"));
    QVERIFY(readFile(folder + QLatin1String("/options")).contains("silent-never"));
}

void TestEngineRules::wipeGuard()
{
    const QTemporaryDir folder;
    const QString home = QDir::homePath();
    const auto may
        = [](const QString &path, const QStringList &open = {}) { return PathGuard::mayBeWiped(path, open); };
    QVERIFY(may(folder.filePath(QStringLiteral("new"))));
    QVERIFY(may(home + QLatin1String("/repo")));
    QVERIFY(may(QStringLiteral("/srv/repo")));
    const QStringList refused{QStringLiteral("/"),
                              QStringLiteral("//"),
                              QStringLiteral("/srv"),
                              home,
                              home + QLatin1String("/x/.."),
                              QFileInfo(home).path(),
                              QStringLiteral("repo"),
                              QString()};
    for (const QString &path : refused)
        QVERIFY2(!may(path), qPrintable(path));

    const QString open = folder.filePath(QStringLiteral("a/open"));
    QDir().mkpath(open);
    QVERIFY(!may(open, {open}));
    QVERIFY(!may(folder.filePath(QStringLiteral("a")), {open}));
    QVERIFY(may(open + QLatin1String("/inside"), {open}));
    QVERIFY(may(folder.filePath(QStringLiteral("a/opened")), {open, QString()}));
    // A link to a folder above the repository is that folder.
    QVERIFY(QFile::link(folder.filePath(QStringLiteral("a")), folder.filePath(QStringLiteral("link"))));
    QVERIFY(!may(folder.filePath(QStringLiteral("link")), {open}));
}

void TestEngineRules::overlaps()
{
    const QTemporaryDir folder;
    const QString repository = folder.filePath(QStringLiteral("repo"));
    QDir().mkpath(repository);
    QVERIFY(QFile::link(repository, folder.filePath(QStringLiteral("link"))));
    QVERIFY(PathGuard::overlap(repository, folder.filePath(QStringLiteral("link"))));
    QVERIFY(PathGuard::overlap(repository, repository + QLatin1String("/new/deep")));
    QVERIFY(PathGuard::overlap(repository, folder.path()));
    QVERIFY(PathGuard::overlap(folder.filePath(QStringLiteral("link/in")), repository));
    QVERIFY(!PathGuard::overlap(repository, folder.filePath(QStringLiteral("repository"))));
}

void TestEngineRules::damagedArchives()
{
    VELT_NEED_TOOL("dpkg-deb");
    const QTemporaryDir folder;
    const QString whole
        = DebBuilder(QStringLiteral("foo")).contents(QByteArray(5000, 'x')).build(folder.path());
    QCOMPARE(debArchiveState(whole), DebArchiveState::Whole);
    const QByteArray bytes = readFile(whole);
    const QString cut = folder.filePath(QStringLiteral("cut.deb"));
    for (const int size : {bytes.size() - 1000, 200, 100, 70}) {
        writeFile(cut, bytes.left(size));
        QVERIFY2(debArchiveState(cut) == DebArchiveState::Truncated, qPrintable(QString::number(size)));
    }
    writeFile(cut, "no package\n");
    QCOMPARE(debArchiveState(cut), DebArchiveState::NoArchive);
    writeFile(cut, bytes.left(8) + QByteArray(60, 'z'));
    QCOMPARE(debArchiveState(cut), DebArchiveState::NoArchive);
    QCOMPARE(debArchiveState(folder.filePath(QStringLiteral("none"))), DebArchiveState::NoArchive);
}

VELT_TEST_MAIN(TestEngineRules, QCoreApplication)
#include "tst_enginerules.moc"
