// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/privateapt.h"
#include "engineharness.h"

#include <QtTest>

namespace
{
const QString Foo = "foo"_s;

PackageInfoPtr package(const char *text, PackageType type = PackageType::Deb)
{
    const QStringList words = QString::fromLatin1(text).split(QLatin1Char(' '));
    PackageInfo info;
    info.name = words.at(0);
    info.version = words.at(1);
    info.architecture = words.at(2);
    info.indexComponent = words.value(3, "main"_s);
    info.type = type;
    return QSharedPointer<PackageInfo>::create(info);
}

AptPackageRecord record(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '));
    return {words.at(0),
            words.at(1),
            words.at(2),
            words.value(4, "source"_s),
            words.value(3).isEmpty() ? QString() : "pool/x_%1.deb"_s.arg(words.at(3))};
}
} // namespace

/** Upgrading a repository from sources, with the real apt and reprepro. */
class TestUpgrade : public QObject
{
    Q_OBJECT
private:
    /** A repository as a source, with these packages in it. */
    static QString makeSource(RepoHarness &source, const QStringList &files)
    {
        source.shell.setCheckDependsOnAdd(false);
        source.add(files);
        if (!source.trouble().isEmpty())
            qFatal("%s", qPrintable(source.trouble()));
        return "[trusted=yes] file:%1 dogwood main contrib"_s.arg(source.repoPath());
    }

    static RepoEnums::ErrorCode prepare(RepoHarness &h, const QStringList &sources)
    {
        h.shell.setCheckDependsOnAdd(false);
        return h.run([&] { h.shell.prepareUpgrade(sources); });
    }

    static RepoEnums::ErrorCode upgrade(RepoHarness &h)
    {
        return h.run([&] { h.shell.upgradeRepo(h.shell.upgradablePackages()); });
    }

    /** Nothing of a job's own may stay in the cache folder; the lists may. */
    static QStringList leftovers()
    {
        return QDir(PrivateApt::cacheFolder()).entryList({"upgrade-*"_s}, QDir::Dirs);
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
    }

    void cleanup() { QVERIFY2(leftovers().isEmpty(), qPrintable(leftovers().join(QLatin1Char(' ')))); }

    void whichVersionWins_data()
    {
        QTest::addColumn<QString>("present");
        QTest::addColumn<QStringList>("offered");
        QTest::addColumn<QString>("expected");
        QTest::newRow("greatest") << "foo 1 amd64"
                                  << QStringList{"foo 2 amd64"_s, "foo 10 amd64"_s, "foo 9 amd64"_s}
                                  << "1 10 amd64";
        QTest::newRow("epoch") << "foo 9 amd64" << QStringList{"foo 1:1 amd64"_s, "foo 10 amd64"_s}
                               << "9 1:1 amd64";
        QTest::newRow("candidate of a release")
            << "foo 1.0~rc1 amd64" << QStringList{"foo 1.0 amd64"_s} << "1.0~rc1 1.0 amd64";
        QTest::newRow("equal") << "foo 1.0 amd64" << QStringList{"foo 1.00 amd64"_s} << "";
        QTest::newRow("older") << "foo 2 amd64" << QStringList{"foo 1.9 amd64"_s} << "";
        QTest::newRow("no version") << "foo 2 amd64" << QStringList{"foo x:3 amd64"_s, "foo 3 amd64"_s}
                                    << "2 3 amd64";
        QTest::newRow("another architecture") << "foo 1 i386" << QStringList{"foo 2 amd64"_s} << "";
        QTest::newRow("for all") << "foo 1 i386" << QStringList{"foo 2 amd64 2_all"_s} << "1 2 amd64";
        QTest::newRow("own beside all")
            << "foo 1 i386" << QStringList{"foo 2 amd64 2_all"_s, "foo 3 i386"_s} << "1 3 i386";
        QTest::newRow("another name") << "foo 1 amd64" << QStringList{"fo 2 amd64"_s} << "";
    }

    void whichVersionWins()
    {
        QFETCH(QString, present);
        QFETCH(QStringList, offered);
        QFETCH(QString, expected);
        QVector<AptPackageRecord> records;
        for (const QString &text : offered)
            records.append(record(text));
        const auto all = UpgradeRules::upgradable({package(present.toLatin1().constData())}, records);
        QStringList found;
        for (const UpgradablePackage &upgradable : all) {
            found.append(upgradable.oldVersion + QLatin1Char(' ') + upgradable.newVersion + QLatin1Char(' ')
                         + upgradable.fetchArchitecture);
            QVERIFY(UpgradeRules::isOffered(upgradable, records));
            QVERIFY(!UpgradeRules::isOffered(upgradable, {}));
        }
        QCOMPARE(found.join(QLatin1Char('|')), expected);
    }

    void whatIsAskedAndFetchedOnce()
    {
        const QList<PackageInfoPtr> packages{package("foo 1 amd64"),
                                             package("foo 1 i386"),
                                             package("foo 1 i386 contrib"),
                                             package("installer 1 amd64", PackageType::Udeb),
                                             package("-o 1 amd64")};
        QCOMPARE(UpgradeRules::questions(packages, "amd64"_s), (QStringList{"foo:amd64"_s, "foo:i386"_s}));
        const auto all = UpgradeRules::upgradable(
            packages, {record("foo 2 amd64 2_all"_s), record("installer 2 amd64"_s)});
        QCOMPARE(all.size(), 3);
        QCOMPARE(all.last().component, "contrib"_s);
        QCOMPARE(UpgradeRules::byFile(all).size(), 1);
    }

    void upgradeTwoOfThree()
    {
        RepoHarness source;
        const QString line
            = makeSource(source, source.debs("foo bar", "1:2.0") + source.debs("same old", "1.0"));
        RepoHarness h;
        AddOptions contrib;
        contrib.component = "contrib"_s;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo"), contrib);
        h.add(h.debs("bar same own") + h.debs("old", "3") + QStringList{h.deb(DebBuilder(Foo).udeb())});
        const QStringList before = h.listed();

        QSignalSpy ready(&h.shell, &RepoShell::downloadablePackagesReady);
        QCOMPARE(prepare(h, {line}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.started + h.finished, (QStringList{"Downloading information"_s, "Ready for upgrade"_s}));
        QCOMPARE(ready.count(), 1);
        QCOMPARE(h.listed(), before);
        auto upgradable = h.shell.upgradablePackages();
        QCOMPARE(upgradable.size(), 2);
        QVERIFY(h.ranges.contains(100) && h.steps.last() == 0);
        for (const UpgradablePackage &package : qAsConst(upgradable)) {
            QCOMPARE(package.component, package.name == Foo ? "contrib"_s : "main"_s);
            QCOMPARE(package.source, "file:%1 dogwood amd64"_s.arg(source.repoPath()));
        }

        // A package that the repository has no longer is passed over.
        upgradable.append(upgradable.first());
        upgradable.last().name = "gone"_s;
        QCOMPARE(h.run([&] { h.shell.upgradeRepo(upgradable); }), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.lastMessage(), "Repo upgraded"_s);
        QCOMPARE(h.lastJob, RepoEnums::UPGRADE_JOB);
        QCOMPARE(h.notes.size(), 1);
        QCOMPARE(h.steps.last(), 2);
        QCOMPARE(h.listed(),
                 (QStringList{"bar 1:2.0 main amd64"_s,
                              "foo 1.0 main amd64"_s,
                              "foo 1:2.0 contrib amd64"_s,
                              "old 3 main amd64"_s,
                              "own 1.0 main amd64"_s,
                              "same 1.0 main amd64"_s}));
        QCOMPARE(h.inPool("bar"_s), source.inPool("bar"_s));
        QVERIFY(h.settled());

        h.shell.removeCustomSourcesListFile(RepoEnums::UPGRADE_JOB);
        QCOMPARE(
            QDir(PrivateApt::cacheFolder() + "/apt"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
            1);
        QDirIterator written(
            PrivateApt::cacheFolder(), {"*.list"_s, "*.conf"_s}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(!written.hasNext());

        prepare(h, {line});
        QCOMPARE(h.lastMessage(), "Nothing to upgrade"_s);
        QCOMPARE(h.criticals, QStringList{"No packages for upgrading|"_s});
        QVERIFY(h.shell.upgradablePackages().isEmpty());
        upgrade(h);
        QCOMPARE(h.lastMessage(), "Nothing to upgrade"_s);
    }

    void oneFileForAllArchitectures()
    {
        RepoHarness source("amd64 i386"_s);
        const QString line
            = makeSource(source,
                         {source.deb(DebBuilder(Foo).architecture("all"_s).version("2"_s)),
                          source.deb(DebBuilder("bar"_s).architecture("i386"_s).version("2"_s))});
        RepoHarness h("amd64 i386"_s);
        h.shell.setCheckDependsOnAdd(false);
        h.add(
            {h.deb(DebBuilder(Foo).architecture("all"_s)), h.deb(DebBuilder("bar"_s).architecture("all"_s))});
        prepare(h, {line});
        QCOMPARE(h.trouble(), QString());
        auto upgradable = h.shell.upgradablePackages();
        QCOMPARE(upgradable.size(), 3);
        // Only one architecture of foo was kept, but one file stands for both.
        upgradable.erase(std::remove_if(upgradable.begin(),
                                        upgradable.end(),
                                        [](const UpgradablePackage &package) {
                                            return package.name == Foo && package.architecture == "i386"_s;
                                        }),
                         upgradable.end());
        h.run([&] { h.shell.upgradeRepo(upgradable); });
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(
            h.listed(),
            (QStringList{
                "bar 1.0 main amd64"_s, "bar 2 main i386"_s, "foo 2 main amd64"_s, "foo 2 main i386"_s}));
        QVERIFY(h.settled());
    }

    void whatCannotBeFetchedStays()
    {
        RepoHarness source;
        const QString line = makeSource(source, source.debs("foo bar baz", "2.0"));
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo bar baz"));
        prepare(h, {line});
        QCOMPARE(h.shell.upgradablePackages().size(), 3);
        // One file breaks off, one is offered no longer.
        QFile half(source.find(Foo)->filePath());
        QVERIFY(half.resize(half.size() / 2));
        source.reprepro({"remove"_s, "dogwood"_s, "bar"_s});
        QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        QCOMPARE(h.criticals.size(), 2);
        QVERIFY2(h.trouble().contains("Apt: download package foo error|"_s)
                     && h.trouble().contains("no source offers bar 2.0 any more"_s),
                 qPrintable(h.trouble()));
        QCOMPARE(h.listed(),
                 (QStringList{"bar 1.0 main amd64"_s, "baz 2.0 main amd64"_s, "foo 1.0 main amd64"_s}));
        QVERIFY(h.settled());

        // An index that calls an old package a new one.
        const QString liar = h.folder.filePath("liar"_s);
        const QByteArray old = readFile(h.debs("foo").first());
        writeFile(liar + "/foo.deb"_s, old);
        writeFile(liar + "/dists/dogwood/main/binary-amd64/Packages"_s,
                  "Package: foo\nVersion: 9\nArchitecture: amd64\nMaintainer: x\nDescription: x\n"
                  "Filename: foo.deb\nSize: "
                      + QByteArray::number(old.size()) + "\nSHA256: "
                      + QCryptographicHash::hash(old, QCryptographicHash::Sha256).toHex() + '\n');
        prepare(h, {"[trusted=yes] file:%1 dogwood main"_s.arg(liar)});
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QVERIFY2(h.trouble().endsWith("is of another package: foo 1.0 (amd64)."_s), qPrintable(h.trouble()));
        QVERIFY(h.listed().contains("foo 1.0 main amd64"_s) && h.settled());

        // The whole source is gone.
        prepare(h, {line});
        QDir(source.repoPath()).removeRecursively();
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), "Repo is not upgraded"_s);
        QVERIFY(!h.criticals.isEmpty() && h.settled());
    }

    void stopAsks()
    {
        RepoHarness source;
        const QString line = makeSource(source, source.debs("a b c d", "2.0"));
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("a b c d"));
        prepare(h, {line});
        const auto stopAt = connect(
            &h.shell, &RepoShell::packageChanged, &h.shell, [&h] { h.shell.cancel(); }, Qt::DirectConnection);
        h.reply = true;
        QCOMPARE(upgrade(h), RepoEnums::CANCEL);
        QCOMPARE(h.questions, QStringList{"Upgrading repo|Are you sure?"_s});
        QCOMPARE(h.lastMessage(), "Canceled by user"_s);
        QCOMPARE(h.listed().filter("2.0"_s).size(), 1);
        QVERIFY(h.settled());
        // A no takes the stop back.
        h.reply = false;
        h.whileAsked = [&] { disconnect(stopAt); };
        QString message;
        const auto seen = connect(
            &h.shell,
            &RepoShell::packageRemoved,
            &h.shell,
            [&] { message = h.shell.startMessage(); },
            Qt::DirectConnection);
        QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        QCOMPARE(h.questions.size(), 1);
        QCOMPARE(message, "Upgrading repo"_s);
        QCOMPARE(h.listed().filter("2.0"_s).size(), 4);
        disconnect(seen);
        // The preparation stops without a question.
        connect(
            &h.shell, &RepoShell::started, &h.shell, [&h] { h.shell.cancel(); }, Qt::DirectConnection);
        QCOMPARE(prepare(h, {line}), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage() + h.trouble() + h.questions.join(QString()), "Canceled by user"_s);
    }

    void sourcesThatFail_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("expected");
        QTest::newRow("no server") << "[trusted=yes] http://127.0.0.1:1/x dogwood main"
                                   << "The server could not be reached: http://127.0.0.1:1/x/";
        QTest::newRow("no signature") << "file:%1 dogwood main"
                                      << "is not trusted";
        QTest::newRow("no suite") << "file:%1 nosuch main"
                                  << "does not exist there";
        QTest::newRow("no component") << "[trusted=yes] file:%1 dogwood nosuch"
                                      << "does not have one of its components";
        QTest::newRow("no source") << "nonsense"
                                   << "Malformed";
    }

    void sourcesThatFail()
    {
        QFETCH(QString, source);
        QFETCH(QString, expected);
        RepoHarness good;
        const QString line = makeSource(good, good.debs("foo", "2.0"));
        RepoHarness other;
        makeSource(other, other.debs("foo", "3.0"));
        if (source.contains("%1"_s))
            source = source.arg(other.repoPath());
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo"));
        QCOMPARE(prepare(h, {source}), RepoEnums::ERROR);
        QCOMPARE(h.criticals.size(), 1);
        QVERIFY2(h.trouble().section(QLatin1Char('|'), 0, 0).contains(expected), qPrintable(h.trouble()));
        QCOMPARE(h.lastMessage(), "Information is not downloaded"_s);
        if (source == "nonsense"_s)
            return;
        // Beside a good one it is told of, and the other serves.
        QCOMPARE(prepare(h, {source, line}), RepoEnums::SUCCESS);
        QVERIFY2(h.trouble().contains(expected), qPrintable(h.trouble()));
        QCOMPARE(h.shell.upgradablePackages().value(0).newVersion, "2.0"_s);
    }

    void signedSource()
    {
        VELT_NEED_TOOL("gpg");
        const QStringList generate{
            "--batch"_s, "--passphrase"_s, QString(), "--quick-generate-key"_s, "T <t@example.org>"_s};
        QCOMPARE(QProcess::execute("gpg"_s, generate), 0);
        RepoHarness source;
        source.info.signWith = true;
        source.change(source.repoPath());
        QVERIFY2(!makeSource(source, source.debs("foo", "2.0")).isEmpty(), qPrintable(source.trouble()));
        const QString key = source.folder.filePath("key.gpg"_s);
        QCOMPARE(QProcess::execute("gpg"_s, {"--export"_s, "-o"_s, key}), 0);
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo"));
        const QString plain = "file:%1 dogwood main"_s.arg(source.repoPath());
        QCOMPARE(prepare(h, {plain}), RepoEnums::ERROR);
        QVERIFY2(h.trouble().contains("is not trusted"_s), qPrintable(h.trouble()));
        QCOMPARE(prepare(h, {"[signed-by=%1] %2"_s.arg(key, plain)}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());

        // What apt's own files say about the source holds for us too.
        writeFile(h.folder.filePath("etc/sources.list.d/own.sources"_s),
                  "Types: deb\nURIs: file:%1\nSuites: x dogwood\nComponents: main\nSigned-By:\n %2\n"_s
                      .arg(source.repoPath(), key)
                      .toUtf8());
        writeFile(h.folder.filePath("apt.conf"_s),
                  "Dir::Etc::sourceparts \"%1\";"_s.arg(h.folder.filePath("etc/sources.list.d"_s)).toUtf8());
        qputenv("APT_CONFIG", h.folder.filePath("apt.conf"_s).toLocal8Bit());
        const auto restore = qScopeGuard([] { qunsetenv("APT_CONFIG"); });
        QCOMPARE(prepare(h, {plain}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
    }

    void noCacheFolder()
    {
        RepoHarness source;
        const QString line = makeSource(source, source.debs("foo", "2.0"));
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo"));
        prepare(h, {line});
        const auto restore
            = qScopeGuard([old = qgetenv("XDG_CACHE_HOME")] { qputenv("XDG_CACHE_HOME", old); });
        const QString file = h.folder.filePath("file"_s);
        writeFile(file, "x");
        qputenv("XDG_CACHE_HOME", file.toLocal8Bit());
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QVERIFY2(h.trouble().startsWith("Unable to create cache folder|"_s), qPrintable(h.trouble()));
        QCOMPARE(h.listed(), QStringList{"foo 1.0 main amd64"_s});
    }
};

VELT_TEST_MAIN(TestUpgrade, QCoreApplication)
#include "tst_upgrade.moc"
