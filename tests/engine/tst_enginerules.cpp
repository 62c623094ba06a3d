// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/debarchive.h"
#include "engine/distributions.h"
#include "engine/distributionsfile.h"
#include "engine/packagesfile.h"
#include "engine/pathguard.h"
#include "engine/privateconfig.h"
#include "engine/repreprocommands.h"
#include "support/debbuilder.h"
#include "support/literals.h"
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
    void whatRewritingWouldLose();
    void foreignFieldsAreKeptBeside();
    void systemVersion();
    void wordsSurviveTheCommandLine_data();
    void wordsSurviveTheCommandLine();
    void commandLines();
    void poolFiles();
    void indexPlaces();
    void silentOptions();
    void wipeGuard();
    void overlaps();
    void damagedArchives();
};

void TestEngineRules::newDescriptions()
{
    const RepoInfo dogwood = Distributions::repoInfoForCodename("dogwood"_s);
    QCOMPARE(dogwood.name, "dogwood-repo"_s);
    QCOMPARE(dogwood.architectures, "armhf"_s);
    QCOMPARE(dogwood.components, "main contrib non-free rpi3"_s);
    QCOMPARE(Distributions::repoInfoForCodename("cedar"_s).architectures, "e2k-8c"_s);
    const RepoInfo other = Distributions::repoInfoForCodename(QString());
    QCOMPARE(other.name, "repo"_s);
    QCOMPARE(other.architectures, "amd64"_s);
    QCOMPARE(other.components, "main contrib non-free"_s);

    RepoInfo written = dogwood;
    written.version = "1.6"_s;
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
    QCOMPARE(parsed("codename: x\nsuite:y").codename, "x"_s);
    QCOMPARE(parsed("codename: x\nsuite:y").suite, "y"_s);
    QCOMPARE(parsed("CODENAME: x\n").codename, QString());
    QCOMPARE(parsed("# Codename: old\nCodename: a\r\nComponents: main contrib\r\n").codename, "a"_s);
    QCOMPARE(parsed("Codename: a\r\nComponents: main contrib\r\n").components, "main contrib"_s);
    QCOMPARE(parsed("UDebComponents: x\nComponents: y\n").components, "y"_s);
    QVERIFY(!parsed("SignWith: Yes\n").signWith);
    QVERIFY(!parsed("SignWith: default\nContents: .gz .bz2\n").contents);
    QCOMPARE(Distributions::fieldValue({"Description: first"_s, " second"_s}, "Description"_s),
             "first\n second"_s);
}

void TestEngineRules::whatRewritingWouldLose()
{
    RepoInfo info = Distributions::repoInfoForCodename("aspen"_s);
    info.signWith = true;
    info.contents = true;
    const QString own = Distributions::text(info);
    QVERIFY(!Distributions::holdsMore(own));
    QVERIFY(!Distributions::holdsMore(QString(own).replace("\n"_s, "\r\n"_s)));
    QVERIFY(Distributions::holdsMore(own + "Log: log\n"_s));
    QVERIFY(Distributions::holdsMore(own + "\nCodename: b\n"_s));
    QVERIFY(Distributions::holdsMore(own + "# mine\n"_s));
    QVERIFY(Distributions::holdsMore(QString(own).replace("yes"_s, "ABCD"_s)));
    QVERIFY(Distributions::holdsMore(QString(own).replace("Debian"_s, "Us"_s)));
}

void TestEngineRules::foreignFieldsAreKeptBeside()
{
    const QTemporaryDir folder;
    const QString conf = folder.filePath("conf/distributions"_s);
    const DistributionsFile file(folder.path());
    const RepoInfo info = Distributions::repoInfoForCodename("aspen"_s);
    QVERIFY(!file.read());
    QVERIFY(!file.write(info)); // there is no folder to write into
    writeFile(conf, "Codename: aspen\nLog: packages.log\n");
    QVERIFY(file.write(info));
    QCOMPARE(readFile(conf + ".orig"_s), QByteArray("Codename: aspen\nLog: packages.log\n"));
    writeFile(conf, "Codename: aspen\nLog: later\n");
    QVERIFY(file.write(info));
    QVERIFY2(readFile(conf + ".orig"_s).contains("packages.log"), "the first file is the one to keep");
    QCOMPARE(file.read()->codename, "aspen"_s);
    QCOMPARE(file.read()->name, QFileInfo(folder.path()).fileName());
}

void TestEngineRules::systemVersion()
{
    QCOMPARE(Distributions::systemVersionFromText("Name 1.6 (x)\n"_s), "1.6"_s);
    QCOMPARE(Distributions::systemVersionFromText("Name 1.6 (x) y\n"_s), "Name 1.6 (x) y"_s);
    QCOMPARE(Distributions::systemVersionFromText("  "_s), QString());
}

void TestEngineRules::wordsSurviveTheCommandLine_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << "/srv/repo"_s;
    QTest::newRow("blanks") << "/srv/my repo/two  blanks"_s;
    QTest::newRow("place holders") << "/srv/%1/%2%3%6"_s;
    QTest::newRow("quotes") << "/srv/a\"b\"/\"\"\"c'd"_s;
    QTest::newRow("shell") << "/srv/$(x);`y`&|\\n"_s;
    QTest::newRow("letters") << "/srv/пакет ö"_s;
}

void TestEngineRules::wordsSurviveTheCommandLine()
{
    QFETCH(QString, path);
    const QString arguments
        = ReproCommand::include("dog"_s, "main"_s, "amd64"_s, "my section"_s, path + ".deb"_s);
    const QStringList expected{"reprepro"_s,
                               "-b"_s,
                               path,
                               "-C"_s,
                               "main"_s,
                               "-A"_s,
                               "amd64"_s,
                               "-S"_s,
                               "my section"_s,
                               "includedeb"_s,
                               "dog"_s,
                               path + ".deb"_s};
    QCOMPARE(QProcess::splitCommand(ReproCommand::commandLine(path, arguments)), expected);
    const QStringList remove = QProcess::splitCommand(ReproCommand::remove("dog"_s, path, path, QString()));
    QCOMPARE(remove, (QStringList{"-C"_s, path, "remove"_s, "dog"_s, path}));
}

void TestEngineRules::commandLines()
{
    const QString dog = "dog"_s;
    const QString main = "main"_s;
    const QString foo = "foo"_s;
    QCOMPARE(ReproCommand::include(dog, main, "amd64"_s, "admin"_s, "/a.udeb"_s),
             "-C main -A amd64 -S admin includeudeb dog \"/a.udeb\""_s);
    QCOMPARE(ReproCommand::include(dog, main, QString(), "admin"_s, "/a.deb"_s),
             "-C main -S admin includedeb dog \"/a.deb\""_s);
    QCOMPARE(ReproCommand::remove(dog, foo, main, "amd64"_s), "-C main -A amd64 remove dog foo"_s);
    QCOMPARE(ReproCommand::remove(dog, foo, QString(), "all"_s), "remove dog foo"_s);
    const auto udeb = PackageType::Udeb;
    QCOMPARE(ReproCommand::remove(dog, foo, QString(), QString(), &udeb), "-T udeb remove dog foo"_s);
    QCOMPARE(ReproCommand::listFiles(dog, foo, main, "amd64"_s),
             "--list-format \"${filename}\n\" listfilter dog "
             "\"Package (% foo), $Component (% main), $Architecture (% amd64)\""_s);
    QCOMPARE(ReproCommand::commandLine("/r"_s, ReproCommand::clearVanished()),
             "reprepro -b /r  --delete clearvanished"_s);
}

void TestEngineRules::poolFiles()
{
    const auto poolFile = [](const char *control, const char *name, const char *version) {
        PackageInfo package;
        package.name = QLatin1String(name);
        package.version = QLatin1String(version);
        package.component = "main"_s;
        package.control = ControlText(control);
        return ReproCommand::poolFile(package, "all"_s);
    };
    QCOMPARE(poolFile("", "libfoo2", "1"), "pool/main/libf/libfoo2/libfoo2_1_all.deb"_s);
    QCOMPARE(poolFile("", "lib", "1"), "pool/main/l/lib/lib_1_all.deb"_s);
    QCOMPARE(poolFile("Source: bar (2.0)\n", "foo", "1"), "pool/main/b/bar/foo_1_all.deb"_s);
    QCOMPARE(poolFile("", "foo", "2:1.0-1"), "pool/main/f/foo/foo_1.0-1_all.deb"_s);
}

void TestEngineRules::indexPlaces()
{
    const auto place = [](const QString &path) {
        const auto found = indexPlace(path);
        return found ? found->component + QLatin1Char(' ') + found->architecture
                           + (found->type == PackageType::Udeb ? " udeb"_s : QString())
                     : QString();
    };
    QCOMPARE(place("main/debian-installer/binary-armhf/Packages"_s), "main armhf udeb"_s);
    QCOMPARE(place("non-free/binary-e2k-8c/Packages"_s), "non-free e2k-8c"_s);
    QCOMPARE(place("updates/main/binary-i386/Packages"_s), "updates/main i386"_s);
    QCOMPARE(place("binary-amd64/Packages"_s), QString());
    QCOMPARE(place("main/source/Packages"_s), QString());
}

void TestEngineRules::silentOptions()
{
    const QString own = "verbose\n--export changed\nkeepunreferencedfiles\nexport=never\noutdir /x\n"_s;
    QCOMPARE(PrivateConfig::optionsText(own, PrivateConfig::Keep),
             "verbose\noutdir /x\nexport silent-never\nkeepunreferencedfiles\n"_s);
    QCOMPARE(PrivateConfig::optionsText(QString(), PrivateConfig::Delete), "export silent-never\n"_s);

    const QTemporaryDir repository;
    writeFile(repository.filePath("conf/distributions"_s), "Codename: dog\n");
    QVERIFY(!PrivateConfig::keepsUnreferencedFiles(repository.path()));
    writeFile(repository.filePath("conf/options"_s), own.toLatin1());
    QVERIFY(PrivateConfig::keepsUnreferencedFiles(repository.path()));
    PrivateConfig config(repository.path(), PrivateConfig::Keep);
    QVERIFY(config.isValid());
    QCOMPARE(config.environment().size(), 3);
    config.useWholeEnvironment();
    QCOMPARE(config.environment().size(), 1);
    // Programs of the administrator's own, told by reprepro, may need their PATH and their keys.
    writeFile(repository.filePath("conf/distributions"_s), "Codename: dog\nLog: packages.log\n tell.sh\n");
    QCOMPARE(PrivateConfig(repository.path(), PrivateConfig::Keep).environment().size(), 1);
    writeFile(repository.filePath("conf/distributions"_s), "Codename: dog\n");
    writeFile(repository.filePath("conf/options"_s), "endhook tell.sh\n");
    QCOMPARE(PrivateConfig(repository.path(), PrivateConfig::Keep).environment().size(), 1);
    const QString folder = config.environment().first().section(QLatin1Char('='), 1);
    QCOMPARE(readFile(folder + "/distributions"_s), QByteArray("Codename: dog\n"));
    QVERIFY(readFile(folder + "/options"_s).contains("silent-never"));
}

void TestEngineRules::wipeGuard()
{
    const QTemporaryDir folder;
    const QString home = QDir::homePath();
    const auto may
        = [](const QString &path, const QStringList &open = {}) { return PathGuard::mayBeWiped(path, open); };
    QVERIFY(may(folder.filePath("new"_s)));
    QVERIFY(may(home + "/repo"_s));
    QVERIFY(may("/srv/repo"_s));
    const QStringList refused{
        "/"_s, "//"_s, "/srv"_s, home, home + "/x/.."_s, QFileInfo(home).path(), "repo"_s, QString()};
    for (const QString &path : refused)
        QVERIFY2(!may(path), qPrintable(path));

    const QString open = folder.filePath("a/open"_s);
    QDir().mkpath(open);
    QVERIFY(!may(open, {open}));
    QVERIFY(!may(folder.filePath("a"_s), {open}));
    QVERIFY(may(open + "/inside"_s, {open}));
    QVERIFY(may(folder.filePath("a/opened"_s), {open, QString()}));
    // A link to a folder above the repository is that folder.
    QVERIFY(QFile::link(folder.filePath("a"_s), folder.filePath("link"_s)));
    QVERIFY(!may(folder.filePath("link"_s), {open}));
}

void TestEngineRules::overlaps()
{
    const QTemporaryDir folder;
    const QString repository = folder.filePath("repo"_s);
    QDir().mkpath(repository);
    QVERIFY(QFile::link(repository, folder.filePath("link"_s)));
    QVERIFY(PathGuard::overlap(repository, folder.filePath("link"_s)));
    QVERIFY(PathGuard::overlap(repository, repository + "/new/deep"_s));
    QVERIFY(PathGuard::overlap(repository, folder.path()));
    QVERIFY(PathGuard::overlap(folder.filePath("link/in"_s), repository));
    QVERIFY(!PathGuard::overlap(repository, folder.filePath("repository"_s)));
}

void TestEngineRules::damagedArchives()
{
    VELT_NEED_TOOL("dpkg-deb");
    const QTemporaryDir folder;
    const QString whole = DebBuilder("foo"_s).contents(QByteArray(5000, 'x')).build(folder.path());
    QCOMPARE(debArchiveState(whole), DebArchiveState::Whole);
    const QByteArray bytes = readFile(whole);
    const QString cut = folder.filePath("cut.deb"_s);
    for (const int size : {bytes.size() - 1000, 200, 100, 70}) {
        writeFile(cut, bytes.left(size));
        QVERIFY2(debArchiveState(cut) == DebArchiveState::Truncated, qPrintable(QString::number(size)));
    }
    writeFile(cut, "no package\n");
    QCOMPARE(debArchiveState(cut), DebArchiveState::NoArchive);
    writeFile(cut, bytes.left(8) + QByteArray(60, 'z'));
    QCOMPARE(debArchiveState(cut), DebArchiveState::NoArchive);
    QCOMPARE(debArchiveState(folder.filePath("none"_s)), DebArchiveState::NoArchive);
}

VELT_TEST_MAIN(TestEngineRules, QCoreApplication)
#include "tst_enginerules.moc"
