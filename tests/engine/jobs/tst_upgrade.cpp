// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "engine/engineharness.h"
#include "engine/upgrade/listedrecords.h"
#include "support/standin.h"
#include "support/testkeys.h"

namespace
{
const QString Foo = "foo"_s;
constexpr int Many = 52;

PackageInfoPtr package(const QString &text, PackageType type = PackageType::Deb)
{
    const QStringList words = text.split(u' ');
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
    const QStringList words = text.split(u' ');
    return {words.at(0),
            words.at(1),
            words.at(2),
            words.value(4, "source"_s),
            words.value(3).isEmpty() ? QString() : "pool/x_%1.deb"_s.arg(words.at(3))};
}
/** Makes the repository a source with these packages in it. */
QString makeSource(RepoHarness &source, const QStringList &files)
{
    source.add(files);
    if (!source.trouble().isEmpty())
        qFatal("%s", qPrintable(source.trouble()));
    return "[trusted=yes] file:%1 dogwood main contrib"_s.arg(source.repoPath());
}

RepoEnums::ErrorCode prepare(RepoHarness &h, const QStringList &sources)
{
    return h.run([&] { h.shell.prepareUpgrade(sources); });
}

RepoEnums::ErrorCode upgrade(RepoHarness &h)
{
    return h.run([&] { h.shell.upgradeRepo(h.shell.upgradablePackages()); });
}

/** A repository that has 1.0 of some packages, and a source that has 2.0. */
class OldRepo : public RepoHarness
{
public:
    explicit OldRepo(const char *names)
        : line(makeSource(source, debs(names, "2.0")))
    {
        add(debs(names));
    }

    /** The same source under an address from which apt fetches the files. */
    QString distantLine() const
    {
        const QString link = source.at("far%");
        QFile::link(source.repoPath(), link);
        return QString(line).replace(source.repoPath(), link + "25"_s);
    }

    RepoHarness source;
    const QString line;
};
} // namespace

/** Upgrading a repository from sources, with the real apt and reprepro. */
class TestUpgrade : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
    }

    /** Nothing of a job's own may stay in the cache folder; the lists may. */
    void cleanup()
    {
        QCOMPARE(QDir(PrivateApt::cacheFolder()).entryList({"velt-admin-repo-work-*"_s}, QDir::Dirs),
                 QStringList());
    }

    void whichVersionWins()
    {
        // What is there, what is offered, and old version, new version and architecture of what comes of it.
        for (const char *text : {"foo 1 amd64,foo 2 amd64,foo 10 amd64,foo 9 amd64,1 10 amd64",
                                 "foo 9 amd64,foo 1:1 amd64,foo 10 amd64,9 1:1 amd64",
                                 "foo 1.0~rc1 amd64,foo 1.0 amd64,1.0~rc1 1.0 amd64",
                                 "foo 1.0 amd64,foo 1.00 amd64,",
                                 "foo 2 amd64,foo 1.9 amd64,",
                                 "foo 2 amd64,foo x:3 amd64,foo 3 amd64,2 3 amd64",
                                 "foo 1 i386,foo 2 amd64,",
                                 "foo 1 i386,foo 2 amd64 2_all,1 2 amd64",
                                 "foo 1 i386,foo 2 amd64 2_all,foo 3 i386,1 3 i386",
                                 "foo 1 amd64,fo 2 amd64,"}) {
            QStringList words = QString::fromLatin1(text).split(u',');
            const QString present = words.takeFirst();
            const QString expected = words.takeLast();
            QVector<AptPackageRecord> records;
            for (const QString &offered : std::as_const(words))
                records.append(record(offered));
            QStringList found;
            for (const UpgradablePackage &upgradable :
                 UpgradeRules::upgradable({package(present)}, records)) {
                found.append("%1 %2 %3"_s.arg(
                    upgradable.oldVersion, upgradable.newVersion, upgradable.fetchArchitecture));
                QVERIFY(UpgradeRules::isOffered(upgradable, records));
                QVERIFY(!UpgradeRules::isOffered(upgradable, {}));
            }
            QVERIFY2(found.join(u',') == expected, text);
        }
    }

    void whatIsAskedAndFetchedOnce()
    {
        const QList<PackageInfoPtr> packages{package("foo 1 amd64"_s),
                                             package("foo 1 i386"_s),
                                             package("foo 1 i386 contrib"_s),
                                             package("installer 1 amd64"_s, PackageType::Udeb),
                                             package("-o 1 amd64"_s)};
        QCOMPARE(UpgradeRules::questions(packages, "amd64"_s), "foo:amd64|foo:i386"_list);
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
        h.add(h.debs("foo"), {"contrib"_s, false, QString()});
        h.add(h.debs("bar same own") + h.debs("old", "3") + QStringList{h.deb(DebBuilder(Foo).udeb())});
        const QStringList before = h.listed();

        QSignalSpy ready(&h.shell, &RepoShell::downloadablePackagesReady);
        QCOMPARE(prepare(h, {line}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.words(), "Downloading information|Ready for upgrade"_s);
        QCOMPARE(ready.count(), 1);
        QCOMPARE(h.listed(), before);
        auto upgradable = h.shell.upgradablePackages();
        QCOMPARE(upgradable.size(), 2);
        QVERIFY(h.ranges.contains(100) && h.steps.last() == 0);
        for (const UpgradablePackage &package : std::as_const(upgradable)) {
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
        QCOMPARE(h.listed().join(u','),
                 "bar 1:2.0 main amd64,foo 1.0 main amd64,foo 1:2.0 contrib amd64,old 3 main amd64,"
                 "own 1.0 main amd64,same 1.0 main amd64"_s);
        QCOMPARE(h.inPool("bar"_s), source.inPool("bar"_s));
        QVERIFY(h.settled());

        h.shell.removeCustomSourcesListFile(RepoEnums::UPGRADE_JOB);
        QCOMPARE(
            QDir(PrivateApt::cacheFolder() + "/apt"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
            1);
        QDirIterator written(
            PrivateApt::cacheFolder(), {"*.list"_s, "*.conf"_s}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(!written.hasNext());
    }

    void listsAnswerAsAptDoes()
    {
        const QTemporaryDir folder;
        const auto list = [&folder](const char *path, const QString &packages) {
            QByteArray text;
            for (const QString &package : packages.split(u',', Qt::SkipEmptyParts)) {
                const QStringList words = package.split(u' ');
                text += "Package: %1\nVersion: %2\nArchitecture: %3\nMaintainer: x\nFilename: "
                        "pool/%1_%2_%3.deb\n"
                        "Size: 1\nSHA256: %4\nDescription: x\n SHA256: 0\n\n"_s
                            .arg(words.at(0), words.at(1), words.at(2), QString(64, words.at(3).front()))
                            .toLatin1();
            }
            writeFile(folder.filePath(QString::fromLatin1(path)), text);
        };
        list("s/dists/x/main/binary-amd64/Packages",
             "foo 1 amd64 a,foo 1:2 amd64 b,g++-1.2 3 amd64 c,every 1 all d,here 1 all e,fo 1 amd64 f"_s);
        list("s/dists/x/main/binary-i386/Packages", "foo 1 i386 1,every 1 all d,there 1 i386 2"_s);
        list("s/dists/x/contrib/binary-amd64/Packages", "foo 1 amd64 3,foo 4 amd64 4"_s);
        list("s/dists/x/contrib/binary-i386/Packages", {});
        list("flat/Packages", "foo 5 i386 5,every 2 all 6"_s);
        PrivateApt apt(
            "[trusted=yes] file:%1/s x main contrib|[trusted=yes] file:%1/flat ./"_s.arg(folder.path())
                .split(u'|'),
            "amd64 i386"_s.split(u' '));
        QVERIFY(apt.fetch({}, {}).usable);
        QStringList words
            = "foo:amd64 foo:i386 g++-1.2:amd64 every:amd64 every:i386 here:amd64 there:amd64 there:i386"_s
                  .split(u' ');
        for (int i = 0; i < 600; ++i)
            words.append("lib.+%1:amd64"_s.arg(i));
        const auto sorted = [](const QVector<AptPackageRecord> &records) {
            QStringList lines;
            for (const AptPackageRecord &r : records)
                lines.append(
                    QStringList{r.name, r.version, r.architecture, r.repository, r.file, r.sha256}.join(
                        u' '));
            lines.sort();
            return lines;
        };
        AptUtils judge;
        judge.setEnvironment(apt.environment());
        QStringList expected = sorted(judge.packageRecords(words));
        QCOMPARE(expected.size(), 10);
        // apt tells one source of each version.
        expected.insert(1, QString(expected.first()).replace("amd64"_s, "i386"_s));
        QString problem;
        QCOMPARE(sorted(ListedRecords::find(apt.lists({}).value(), words, {}, &problem)), expected);
        QCOMPARE(problem, QString());
    }

    void oneFileForAllArchitectures()
    {
        RepoHarness source("amd64 i386"_s);
        const QString line
            = makeSource(source,
                         {source.deb(DebBuilder(Foo).architecture("all"_s).version("2"_s)),
                          source.deb(DebBuilder("here"_s).architecture("all"_s).version("2"_s)),
                          source.deb(DebBuilder("bar"_s).architecture("i386"_s).version("2"_s))});
        RepoHarness h("amd64 i386"_s);
        h.add(
            {h.deb(DebBuilder(Foo).architecture("all"_s)), h.deb(DebBuilder("bar"_s).architecture("all"_s))});
        // What one architecture does not have does not come to it with the others'.
        h.add(h.debs("here"));
        prepare(h, {line});
        QCOMPARE(h.trouble(), QString());
        // Only one architecture of foo is chosen, but one file stands for both.
        QVector<UpgradablePackage> chosen;
        for (const UpgradablePackage &package : h.shell.upgradablePackages())
            if (package.name != Foo || package.architecture != "i386"_s)
                chosen.append(package);
        QCOMPARE(chosen.size(), 3);
        h.run([&] { h.shell.upgradeRepo(chosen); });
        QCOMPARE(h.trouble(), QString());
        QVERIFY(h.holds("bar 1.0 main amd64,bar 2 main i386,foo 2 main amd64,foo 2 main i386,"
                        "here 2 main amd64"_s));
    }

    void databaseThatBreaksEndsTheJob()
    {
        OldRepo h("bar foo");
        prepare(h, {h.line});
        h.open(h.repoPath());
        const StandIn reprepro(h.at("bin"),
                               "reprepro",
                               "case \"$*\" in *foo_2*) echo 'BDB0060 write failed' >&2; exit 228;; esac");
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), "Repo is not upgraded"_s);
        QCOMPARE(h.criticals.filter("put back as it was before"_s).size(), 1);
        QVERIFY(h.holds("bar 1.0 main amd64,foo 1.0 main amd64"_s));
    }

    void whatCannotBeFetchedStays()
    {
        OldRepo h("good foo bar baz other");
        prepare(h, {h.distantLine()});
        QCOMPARE(h.shell.upgradablePackages().size(), 5);
        // One file breaks off, one is offered no longer.
        QFile half(h.source.find(Foo)->filePath());
        QVERIFY(half.resize(half.size() / 2));
        h.source.reprepro({"remove"_s, "dogwood"_s, "bar"_s});
        // The failed run for all of them leaves one more file that is not what it should be.
        const QByteArray record = "echo \"${0##*/} $*\" >>'" + h.at("calls").toUtf8() + "'\n";
        {
            const StandIn one(h.at("bin"), "apt", record);
            const StandIn many(h.at("bin2"),
                               "apt-get",
                               record
                                   + "[ \"$1\" = -q ] && [ \"$2\" = download ] || exec \"$real\" \"$@\"\n"
                                     "\"$real\" \"$@\" && exit 1\n"
                                     "size=$(stat -c %s baz_2.0_amd64.deb)\n"
                                     "head -c \"$size\" /dev/zero >baz_2.0_amd64.deb; exit 100");
            QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        }
        const QString together = "-q download good:amd64=2.0 foo:amd64=2.0 baz:amd64=2.0 other:amd64=2.0"_s;
        const QStringList calls = QString::fromUtf8(readFile(h.at("calls"))).split(u'\n');
        QCOMPARE(calls.filter(" download "_s),
                 (QStringList{"apt-get "_s + together,
                              "apt-get --print-uris "_s + together,
                              "apt download foo:amd64=2.0"_s,
                              "apt download baz:amd64=2.0"_s}));
        for (const QString &name : "baz good other"_s.split(u' '))
            QCOMPARE(h.inPool(name), h.source.inPool(name));
        QCOMPARE(h.criticals.size(), 2);
        QVERIFY2(h.trouble().contains("Apt: download package foo error|"_s)
                     && h.trouble().contains("no source offers bar 2.0 any more"_s),
                 qPrintable(h.trouble()));
        QVERIFY(h.holds("bar 1.0 main amd64,baz 2.0 main amd64,foo 1.0 main amd64,good 2.0 main amd64,"
                        "other 2.0 main amd64"_s));

        // An index that calls an old package a new one.
        const QString liar = h.at("liar");
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
        prepare(h, {h.distantLine()});
        QDir(h.source.repoPath()).removeRecursively();
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), "Repo is not upgraded"_s);
        QVERIFY(!h.criticals.isEmpty() && h.settled());
    }

    /** Files of a source on this computer are taken from there, and only as apt's lists describe them. */
    void filesInPlace()
    {
        OldRepo h("bad foo good late more other");
        prepare(h, {h.line});
        QFile half(h.source.find("bad"_s)->filePath());
        QVERIFY(half.resize(half.size() / 2));
        const QString late = h.source.find("late"_s)->filePath();
        const QByteArray wanted = readFile(late);
        const QString changed
            = DebBuilder("late"_s).version("2.0"_s).contents("later").build(h.at("changed"));
        const QByteArray record = "echo \"$*\" >>'" + h.at("calls").toUtf8() + "'\n";
        const StandIn get(h.at("bin"), "apt-get", record);
        const StandIn apt(h.at("bin2"), "apt", record);
        {
            // Copies that change before the run for all of them fail it, and then the file is another one.
            const StandIn changer(h.at("bin3"),
                                  "reprepro",
                                  "case \"$*\" in *' update '*) for copy in '" + h.repoPath().toLocal8Bit()
                                      + "'/db/velt-admin-repo.kept/incoming/* '" + late.toLocal8Bit()
                                      + "'; do cp '" + changed.toLocal8Bit() + "' \"$copy\"; done;; esac");
            QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        }
        const QByteArray calls = readFile(h.at("calls"));
        QCOMPARE(calls, QByteArray("download bad:amd64=2.0\ndownload late:amd64=2.0\n"));
        QCOMPARE(h.criticals.size(), 2);
        QVERIFY(h.trouble().contains("Apt: download package late error|"_s));
        QVERIFY(h.holds("bad 1.0 main amd64,foo 2.0 main amd64,good 2.0 main amd64,late 1.0 main amd64,"
                        "more 2.0 main amd64,other 2.0 main amd64"_s));
        QVERIFY(QFile::exists(late) && h.settled());
        for (const QString &name : "foo good more other"_s.split(u' '))
            QCOMPARE(h.inPool(name), h.source.inPool(name));

        writeFile(late, wanted);
        QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        QVERIFY(h.listed().contains("late 2.0 main amd64"_s));
        QCOMPARE(h.inPool("late"_s), wanted);
    }

    void stopAsks()
    {
        // The first run fetches 25 of them.
        QByteArray names = "p00";
        for (int i = 1; i < Many; ++i)
            names += " p" + QByteArray::number(i).rightJustified(2, '0');
        OldRepo h(names.constData());
        prepare(h, {h.distantLine()});
        const auto stopAt = h.cancelAt(&RepoShell::packageChanged);
        h.reply = true;
        QCOMPARE(upgrade(h), RepoEnums::CANCEL);
        QCOMPARE(h.questions, QStringList{"Upgrading repo|Are you sure?"_s});
        QCOMPARE(h.lastMessage(), "Canceled by user"_s);
        const int upgraded = h.listed().filter("2.0"_s).size();
        QVERIFY2(upgraded > 0 && upgraded < Many, qPrintable(QString::number(upgraded)));
        QVERIFY(h.settled());
        prepare(h, {h.distantLine()});
        // A no takes the stop back, and another one can be asked for.
        QSignalSpy goingOn(&h.shell, &RepoShell::goingOn);
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
        QCOMPARE(goingOn.count(), 1);
        QCOMPARE(h.listed().filter("2.0"_s).size(), Many);
        QVERIFY(h.settled());
        for (const PackageInfoPtr &package : h.shell.packages())
            QCOMPARE(h.inPool(package->name), h.source.inPool(package->name));
        disconnect(seen);
        // The preparation stops without a question.
        h.cancelAt(&RepoShell::started);
        QCOMPARE(prepare(h, {h.line}), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage() + h.trouble() + h.questions.join(QString()), "Canceled by user"_s);
    }

    void stopWhileServerIsSilent()
    {
        OldRepo h("foo bar");
        prepare(h, {h.distantLine()});
        const QString waiting = h.at("waiting");
        const StandIn apt(
            h.at("bin"), "apt-get", "case $* in *download*) : >'" + waiting.toUtf8() + "'; sleep 600;; esac");
        QTimer watch;
        connect(&watch, &QTimer::timeout, &h.shell, [&] {
            if (QFile::remove(waiting))
                h.shell.cancel();
        });
        watch.start(10);
        h.reply = true;
        QCOMPARE(upgrade(h), RepoEnums::CANCEL);
        QCOMPARE(h.questions, QStringList{"Upgrading repo|Are you sure?"_s});
        QCOMPARE(h.trouble(), QString());
        QVERIFY(h.holds("bar 1.0 main amd64,foo 1.0 main amd64"_s));
    }

    void sourcesThatFail()
    {
        OldRepo h("foo");
        RepoHarness other;
        makeSource(other, other.debs("foo", "3.0"));
        const QString file = "file:%1 "_s.arg(other.repoPath());
        QCOMPARE(prepare(h, {"nonsense"_s}), RepoEnums::ERROR);
        QVERIFY(h.complains("Malformed"_s));
        const QVector<QPair<QString, QString>> failures{
            {"[trusted=yes] http://127.0.0.1:1/x dogwood main"_s,
             "The server could not be reached: http://127.0.0.1:1/x/"_s},
            {file + "dogwood main"_s, "is not trusted"_s},
            {file + "nosuch main"_s, "does not exist there"_s},
            {"[trusted=yes] "_s + file + "dogwood nosuch"_s, "does not have one of its components"_s}};
        for (const auto &[source, expected] : failures) {
            QCOMPARE(prepare(h, {source}), RepoEnums::ERROR);
            QCOMPARE(h.criticals.size(), 1);
            QVERIFY2(h.trouble().section(u'|', 0, 0).contains(expected), qPrintable(h.trouble()));
            QCOMPARE(h.lastMessage(), "Information is not downloaded"_s);
            // Beside a good one it is told of, and the other serves.
            QCOMPARE(prepare(h, {source, h.line}), RepoEnums::SUCCESS);
            QVERIFY(h.complains(expected));
            QCOMPARE(h.shell.upgradablePackages().value(0).newVersion, "2.0"_s);
        }
    }

    void signedSource()
    {
        VELT_NEED_TOOL("gpg");
        const QString fingerprint = TestKeys::make("T <t@example.org>"_s);
        RepoHarness source;
        source.info.signWith = true;
        source.change(source.repoPath());
        makeSource(source, source.debs("foo", "2.0"));
        const QString key = source.at("key.gpg");
        TestKeys::gpg({"-o"_s, key, "--export"_s, fingerprint});
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString plain = "file:%1 dogwood main"_s.arg(source.repoPath());
        QCOMPARE(prepare(h, {plain}), RepoEnums::ERROR);
        QVERIFY(h.complains("is not trusted"_s));
        QCOMPARE(prepare(h, {"[signed-by=%1] %2"_s.arg(key, plain)}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());

        // What apt's own files say about the source holds for us too.
        writeFile(h.at("etc/sources.list.d/own.sources"),
                  "Types: deb\nURIs: file:%1\nSuites: x dogwood\nComponents: main\nSigned-By:\n %2\n"_s
                      .arg(source.repoPath(), key)
                      .toUtf8());
        writeFile(h.at("apt.conf"),
                  "Dir::Etc::sourceparts \"%1\";"_s.arg(h.at("etc/sources.list.d")).toUtf8());
        const ScopedVariable config("APT_CONFIG", h.at("apt.conf"));
        QCOMPARE(prepare(h, {plain}), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
    }

    void noCacheFolder()
    {
        OldRepo h("foo");
        prepare(h, {h.line});
        writeFile(h.at("file"), "x");
        const ScopedVariable cache("XDG_CACHE_HOME", h.at("file"));
        QCOMPARE(upgrade(h), RepoEnums::ERROR);
        QVERIFY(h.complains("Unable to create cache folder|"_s));
        QCOMPARE(h.listed(), "foo 1.0 main amd64"_list);
    }

    void sourceThatIsOneFolder()
    {
        RepoHarness source;
        makeSource(
            source,
            source.debs("foo bar", "2.0")
                + QStringList{source.deb(DebBuilder("both"_s).version("2.0"_s).architecture("all"_s))});
        writeFile(source.repoPath() + "/Packages"_s,
                  readFile(source.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s));
        RepoHarness h;
        h.shell.setCheckDependsOnAdd(false);
        h.add(h.debs("foo") + QStringList{h.deb(DebBuilder("both"_s).architecture("all"_s))});
        QCOMPARE(prepare(h, {"[trusted=yes] file:%1 ./"_s.arg(source.repoPath())}), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Ready for upgrade"_s);
        QCOMPARE(h.shell.upgradablePackages().first().source, "file:%1 ./"_s.arg(source.repoPath()));
        QCOMPARE(upgrade(h), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        for (const QString &line : h.listed())
            QVERIFY2(line.contains(" 2.0 "_s), qPrintable(line));
    }
};

VELT_TEST_MAIN(TestUpgrade, QCoreApplication)
#include "tst_upgrade.moc"

#include <utility>
