// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/countof.h"
#include "engine/changes/packagesourcerules.h"
#include "engine/engineharness.h"
#include "support/standin.h"

#include <algorithm>

using Rules = PackageReplacementRules;

namespace
{
const QString Foo = "foo"_s;
} // namespace

/** Adding and removing packages with the real reprepro and dpkg. */
class TestPackages : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    /** Of a large job most files go in together, also behind a file that is refused, and go out together. */
    void manyFilesTogether()
    {
        RepoHarness h;
        const QString log = h.at("runs");
        const StandIn recorder(h.at("bin"), "reprepro", "echo >>" + log.toLocal8Bit());
        h.add(h.debs("present"));
        QStringList files;
        for (int i = 10; i < 70; ++i)
            files += h.debs(qPrintable("p%1"_s.arg(i)));
        // A name that reprepro refuses, which dpkg does not mind.
        files.insert(3, h.deb(DebBuilder("pp"_s).field("Source"_s, "No_source"_s)));
        files.insert(30, h.debs("present", "2.0").first());
        h.choice = PackageReplacementRules::PreferHigher;
        QFile::remove(log);
        QCOMPARE(h.add(files), RepoEnums::SUCCESS);
        QVERIFY(h.complains("No_source"_s));
        QCOMPARE(h.listed().size(), 60 + 1);
        QCOMPARE(h.ranges, (QVector<int>{0, countOf(files)}));
        QVERIFY(h.settled());
        QVERIFY2(readFile(log).count('\n') < files.size() / 3, "few runs");

        // So with removing, also of what somebody else has removed already.
        h.reprepro({"--export=never"_s, "remove"_s, "dogwood"_s, "p11"_s, "p33"_s});
        QFile::remove(log);
        const auto packages = h.shell.packages();
        QCOMPARE(h.remove(packages), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QVERIFY(h.events.size() == packages.size() && h.shell.packages().isEmpty() && h.settled());
        QVERIFY2(readFile(log).count('\n') < packages.size() / 3, "few runs");

        // A stop waits for the end of a run, and what that has put in is told of.
        h.cancelAt(&RepoShell::packageAdded, 5);
        QCOMPARE(h.add(files), RepoEnums::CANCEL);
        QVERIFY(h.listed().size() > 5 && h.listed().size() < files.size() / 2 && h.settled());
        QCOMPARE(h.events.size(), h.listed().size());

        // So with removing: here it comes in the first of two runs, in the other of which are udebs of the same names.
        RepoHarness twins;
        QStringList both;
        for (const char *name : {"a", "b", "c"})
            both += {twins.deb(DebBuilder(QLatin1String(name))),
                     twins.deb(DebBuilder(QLatin1String(name)).udeb())};
        both += twins.deb(DebBuilder("d"_s));
        twins.add(both);
        const QString begun = twins.at("begun");
        const StandIn slow(twins.at("bin"),
                           "reprepro",
                           "case \"$*\" in *remove*) touch " + begun.toLocal8Bit() + ";; esac; sleep 0.5");
        QTimer watch;
        connect(&watch, &QTimer::timeout, &twins.shell, [&] {
            if (QFile::exists(begun))
                twins.shell.cancel();
        });
        watch.start(10);
        QCOMPARE(twins.remove(twins.shell.packages()), RepoEnums::CANCEL);
        QVERIFY(twins.events.size() >= 1 && !twins.listed().isEmpty() && twins.settled());
        QCOMPARE(twins.events.size() + twins.listed().size(), both.size());

        // One that comes when the last ones are in has stopped nothing.
        RepoHarness other;
        const QStringList plain = files.filter(QRegularExpression("/p\\d\\d_"_s)) + h.debs("q r s t u");
        const auto adding = other.cancelAt(&RepoShell::packageAdded, plain.size() - 1);
        QCOMPARE(other.add(plain), RepoEnums::SUCCESS);
        QVERIFY(other.lastMessage().startsWith("65 package(s) added: "_s));
        disconnect(adding);
        other.cancelAt(&RepoShell::packageRemoved, plain.size() - 1);
        QCOMPARE(other.remove(other.shell.packages()), RepoEnums::SUCCESS);
        QVERIFY(other.lastMessage().startsWith("65 packages removed: "_s) && other.settled());
    }

    /** Runs for many files leave what a run for each leaves: indices byte for byte, the listing, the words. */
    void sharedRunsAreEqualToSingleOnes()
    {
        RepoHarness many("amd64 i386"_s);
        RepoHarness single("amd64 i386"_s);
        // So many jobs of one file would prune their history all the time.
        HistoryLimits none;
        none.isOn = false;
        single.shell.setHistoryLimits(none);
        QStringList files;
        const QStringList sections{
            "net"_s, "contrib/net"_s, "libs"_s, " text "_s, "non-free/x11"_s, QString(), "main/games"_s};
        for (int i = 10; i < 75; ++i) {
            DebBuilder deb("p%1"_s.arg(i));
            deb.architecture(i % 3 == 0 ? "all"_s : i % 3 == 1 ? "amd64"_s : "i386"_s);
            deb.field("Section"_s, sections.at(i % sections.size()));
            if (i % 11 == 0)
                deb.field("Priority"_s, {});
            if (i % 13 == 0)
                deb.field("Source"_s, "No_source"_s);
            if (i % 17 == 0)
                deb.udeb();
            files += many.deb(deb);
        }
        files.insert(40, many.deb(DebBuilder("p20"_s).version("2.0"_s).architecture("i386"_s)));
        files.insert(41, many.deb(DebBuilder("p12"_s).version("0.5"_s).architecture("all"_s)));
        files.insert(42, many.deb(DebBuilder("strange"_s).architecture("armhf"_s)));
        files.insert(43, many.deb(DebBuilder("quoted"_s).fileName("a \"b\"  c.deb"_s)));
        files.insert(44, many.at("broken.deb"));
        writeFile(files.at(44), "no archive");
        QStringList newer;
        for (int i = 10; i < 75; ++i)
            newer += many.deb(DebBuilder("p%1"_s.arg(i))
                                  .version(i % 9 == 0 ? "1.0"_s : "3.0"_s)
                                  .architecture(i % 5 == 0   ? "all"_s
                                                : i % 3 == 1 ? "amd64"_s
                                                             : "i386"_s)
                                  .contents("newer"));
        // The first of the two goes in alone, and the other must not go in before it.
        files += many.deb(DebBuilder("order"_s));
        newer.insert(60, many.deb(DebBuilder("order"_s).version("1.5"_s).field("Priority"_s, {})));
        newer.insert(61, many.deb(DebBuilder("order"_s).version("4.0"_s)));
        many.choice = single.choice = Rules::PreferHigher;
        for (const QStringList &round : {files, newer}) {
            many.add(round);
            QStringList words;
            QStringList events;
            for (const QString &file : round) {
                single.add({file});
                words += single.criticals;
                events += single.events;
            }
            // Those that wait for what the repository lacks come last.
            words.sort();
            many.criticals.sort();
            QCOMPARE(many.criticals, words);
            QCOMPARE(many.events, events);
        }
        // Of some all architectures go, of others one.
        const auto goes = [](const PackageInfoPtr &package) {
            return package->name > "p60"_s || package->architecture == "i386"_s;
        };
        QList<PackageInfoPtr> going;
        for (const PackageInfoPtr &package : many.shell.packages())
            if (goes(package))
                going.append(package);
        many.remove(going);
        QCOMPARE(many.events.size(), going.size());
        for (const PackageInfoPtr &package : single.shell.packages())
            if (goes(package))
                single.remove({package});
        QCOMPARE(many.trouble() + single.trouble(), QString());
        QCOMPARE(many.inDatabase(), single.inDatabase());
        const QString indices = "find dists -name Packages -size +0 | sort | xargs tail -n +1"_s;
        const QString expected = runShell(indices, single.repoPath());
        QVERIFY(expected.count("Package: "_s) > 30);
        QCOMPARE(runShell(indices, many.repoPath()), expected);
        QVERIFY(many.settled() && single.settled());
    }

    /** Files that `reprepro update` takes from our own source leave what an inclusion of each leaves, byte for byte. */
    void updatesAreEqualToInclusions()
    {
        RepoHarness h("amd64 i386"_s);
        const QString conf = h.repoPath() + "/conf/"_s;
        // The administrator's own sources are not asked, and not forgotten.
        writeFile(conf + "updates"_s, "Name: own\nMethod: file:/nowhere\nSuite: x\nIgnoreRelease: yes\n");
        runShell("echo 'Update: own\n - ' >>conf/distributions; mkdir lists; echo kept >lists/kept"_s,
                 h.repoPath());
        const QString other = h.at("other");
        QDir().mkdir(other);
        runShell("cp -r repo/conf other"_s, h.folder.path());
        h.open(h.repoPath());
        const QStringList odd{"Depends: a (>= 1~),  b|c"_s,
                              "Depends: a,\n b,\n\tc"_s,
                              "Source: origin (1:2.0-1)"_s,
                              "Source: Bad"_s,
                              "Description: long\n one\n .\n  two \n ."_s,
                              "Maintainer: J\u00f6rg <j@example.org>"_s,
                              "XB-Own: x: y"_s,
                              "priority: extra"_s,
                              "Version: 1:2.0~rc1-1+b1"_s,
                              "Size: 7"_s,
                              "Filename: ./x.deb"_s,
                              "Tag: a::b,\n c::d"_s,
                              "Homepage: https://example.org/ #x"_s,
                              "Description-md5: 0123456789abcdef0123456789abcdef"_s,
                              "SHA256: 00"_s};
        QStringList files;
        QStringList newer;
        for (int i = 0; i < 70; ++i) {
            DebBuilder deb("p%1"_s.arg(i));
            deb.architecture(i % 3 == 0 ? "all"_s : i % 3 == 1 ? "amd64"_s : "i386"_s);
            const QString field = odd.value(i);
            if (field.startsWith("priority"_s))
                deb.field("Priority"_s, {});
            deb.field(field.section(": "_s, 0, 0), field.section(": "_s, 1)).contents(QByteArray::number(i));
            files += h.deb(deb);
            if (i > 15)
                newer += h.deb(deb.version("9"_s));
        }
        const QString log = h.at("runs");
        QByteArray runs;
        h.choice = Rules::PreferHigher;
        for (const QStringList &round : {files, newer}) {
            {
                const StandIn recorder(h.at("bin"), "reprepro", "echo \"$*\" >>" + log.toLocal8Bit());
                h.add(round);
            }
            runs = readFile(log);
            const int last = h.criticals.size();
            for (const QString &file : round)
                h.reprepro({"-b"_s, other, "-C"_s, "main"_s, "includedeb"_s, "dogwood"_s, file});
            QCOMPARE(h.listed().size(),
                     runProcess({"reprepro"_s, {"-b"_s, other, "list"_s, "dogwood"_s}, {}, {}, -1})
                         .output.count(u'\n'));
            QVERIFY(last <= 4);
            for (const char *script : {"find dists -name Packages | sort | xargs tail -n +1",
                                       "reprepro -b . _listchecksums | sort",
                                       "reprepro -b . dumpreferences | sort",
                                       "find pool -type f | sort | xargs sha256sum",
                                       "find pool -printf '%p %m %n\n' | sort"}) {
                const QString expected = runShell(QLatin1String(script), other);
                QVERIFY(expected.size() > 1000);
                QCOMPARE(runShell(QLatin1String(script), h.repoPath()), expected);
            }
        }
        QVERIFY(runs.count(" update dogwood") >= 3 && runs.count(" includedeb ") < 50);
        QVERIFY(h.settled());
        QCOMPARE(readFile(conf + "updates"_s), readFile(other + "/conf/updates"_s));
        QCOMPARE(runShell("ls lists"_s, h.repoPath()), "kept\n"_s);
    }

    void whatOnlyInclusionsTake()
    {
        using namespace PackageSourceRules;
        const FileChecksums sums{7, "m", "1", "2"};
        const QByteArray usual
            = "Package: foo\nVersion: 1\nArchitecture: all\nSection: net\nPriority: extra\n"
              "Description: d\n l\nTag: t\n";
        QCOMPARE(record(usual, sums, "f/0.deb").value_or(QByteArray()),
                 QByteArray("Package: foo\nVersion: 1\nArchitecture: all\nPriority: extra\nSection: net\n"
                            "Filename: f/0.deb\nSize: 7\nSHA256: 2\nSHA1: 1\nMD5sum: m\n"
                            "Description: d\n l\nTag: t\n\n"));
        QVERIFY(!record(usual, {}, "f"));
        for (const char *field : {"Size: 7",
                                  "sha256: 0",
                                  "package: bar",
                                  "Empty:",
                                  "Spaced : x",
                                  "Own: x ",
                                  "\tx",
                                  "# x",
                                  "",
                                  "Own: x\r",
                                  "Source: a_b",
                                  "Own: x\n\n\nPackage: y"})
            QVERIFY2(!record(usual + field + '\n', sums, "f"), field);
        for (const char *change : {"Section: net|Section: a/net",
                                   "Priority: extra\n|",
                                   "Description: d\n l\n|",
                                   "Version: 1|Version: a 1",
                                   "foo|Foo"}) {
            const QList<QByteArray> words = QByteArray(change).split('|');
            QVERIFY2(!record(QByteArray(usual).replace(words.at(0), words.at(1)), sums, "f"), change);
        }

        const QByteArray two
            = "Codename: other\nUpdate: a\n b\nLog: x\n\n# mine\nSuite: s\nCodename: own\nUpdate: a\n";
        QCOMPARE(
            description(two, "own"_s).value_or(QByteArray()),
            QByteArray(
                "Codename: other\nLog: x\n\n# mine\nSuite: s\nUpdate: velt-admin-repo\nCodename: own\n\n"));
        QVERIFY(!description(two, "other"_s) && !description(two, "s"_s)
                && !description("!include: x\n" + two, "own"_s));
        for (const char *field :
             {"DebOverride", "Tracking", "Contents", "Log", "deboverride ", "Codename", "New"})
            QVERIFY2(!description(two + field + ": own\n", "own"_s), field);

        QVERIFY(areOptionsPlain("# priority x\n\n--silent\noutdir +b/www\nexport=never\n"_s));
        for (const QString &option :
             {"priority x"_s, "--section=x"_s, "architecture i386"_s, "restrict a"_s, "methoddir /x"_s})
            QVERIFY(!areOptionsPlain("verbose\n"_s + option));
        QVERIFY(isPlain("/tmp/velt-1_2.x"_s) && !isPlain("/tmp/a b"_s) && !isPlain("a>b"_s) && !isPlain({}));
    }

    /** A copy that changes after the file was read fails the run for all. They go in nevertheless. */
    void changedAfterReading()
    {
        RepoHarness h;
        QStringList files;
        for (int i = 10; i < 70; ++i)
            files += h.deb(DebBuilder("p%1"_s.arg(i)));
        const QByteArray wanted = readFile(files.at(5));
        const QString later = DebBuilder("p15"_s).contents("later").build(h.at("later"));
        const QString log = h.at("runs");
        const StandIn changer(
            h.at("bin"),
            "reprepro",
            "case \"$*\" in *' update '*) cp '" + later.toLocal8Bit() + "' '" + h.repoPath().toLocal8Bit()
                + "/db/velt-admin-repo.kept/incoming/5.deb' && echo >>" + log.toLocal8Bit() + ";; esac");
        QCOMPARE(h.add(files), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QVERIFY(readFile(log).size() > 1);
        QCOMPARE(h.inPool("p15"_s), wanted);
        QCOMPARE(runShell("find pool -type f -links +1; find db -name incoming"_s, h.repoPath()), QString());
        QVERIFY(h.listed().size() == 60 && h.settled());
        // Where the database lies on another disk, the run makes no links.
        RepoHarness apart;
        const QTemporaryDir far("/dev/shm/veXXXXXX"_s);
        runShell("mv db/* '%1'; rmdir db; ln -s '%1' db"_s.arg(far.path()), apart.repoPath());
        apart.reply = true;
        apart.open(apart.repoPath());
        QCOMPARE(apart.add(files), RepoEnums::SUCCESS);
        QCOMPARE(apart.trouble(), QString());
        QVERIFY(apart.listed().size() == 60 && apart.settled());
        // A run that fails after it has put the files in.
        RepoHarness other;
        changer.set("case \"$*\" in *' update '*) PATH=$given \"$real\" \"$@\"; exit 254;; esac");
        const auto stopping = other.cancelAt(&RepoShell::packageAdded);
        QCOMPARE(other.add(files), RepoEnums::CANCEL);
        QVERIFY(other.listed().size() >= 25 && other.listed().size() < 60 && other.settled());
        disconnect(stopping);
        other.choice = Rules::PreferHigher;
        QCOMPARE(other.add(files), RepoEnums::SUCCESS);
        QVERIFY(other.trouble().isEmpty() && other.listed().size() == 60 && other.settled());
    }

    /** Removing is by name, and takes out nothing that another program has brought under a name meanwhile. */
    void foreignChangeBeforeRemoving()
    {
        RepoHarness h("amd64 i386"_s);
        QStringList names;
        for (int i = 10; i < 40; ++i)
            names += "p%1"_s.arg(i);
        const auto file = [&h](const QString &name, const char *architecture, const char *version = "1.0") {
            return h.deb(
                DebBuilder(name).architecture(QLatin1String(architecture)).version(QLatin1String(version)));
        };
        const auto addAll = [&] {
            QStringList files;
            for (const QString &name : names)
                files += file(name, name < "p20"_s ? "amd64" : name < "p30"_s ? "i386" : "all");
            h.add(files);
            QCOMPARE(h.listed().size(), 40);
        };
        addAll();
        {
            // Undisturbed, one run takes out all of them.
            const QString log = h.at("runs");
            const StandIn recorder(h.at("bin"), "reprepro", "echo \"$*\" >>" + log.toLocal8Bit());
            h.remove(h.shell.packages());
            QCOMPARE(readFile(log).count(" remove dogwood "), 1);
            QVERIFY(h.holds({}));
        }
        // A few packages are asked for by name, many with a listing of all.
        for (const int count : {4, 30}) {
            addAll();
            const auto foreign = [&h](const QString &newer) {
                const ProcessResult result = h.reprepro({"includedeb"_s, "dogwood"_s, newer});
                QVERIFY2(result.succeeded(), qPrintable(result.errorOutput));
            };
            foreign(file("p10"_s, "amd64", "2.0")); // a newer version
            foreign(file("p20"_s, "amd64")); // another architecture of the name
            foreign(file("p30"_s, "i386", "2.0")); // a newer version in one of two architectures
            QList<PackageInfoPtr> going;
            for (const PackageInfoPtr &package : h.shell.packages())
                if (count == 30 || QStringList{"p10"_s, "p11"_s, "p20"_s, "p30"_s}.contains(package->name))
                    going.append(package);
            h.remove(going);
            const QString told = ".deb was not removed: the repository holds another version by now."_s;
            QVERIFY(h.complains("p10_1.0_amd64"_s + told, 3) && h.complains("p30_1.0_all"_s + told, 3));
            QVERIFY(h.complains("Another program has changed the repository"_s, 3));
            const QStringList left{"dogwood|main|amd64: p10 2.0"_s,
                                   "dogwood|main|amd64: p20 1.0"_s,
                                   "dogwood|main|i386: p30 2.0"_s};
            QCOMPARE(h.inDatabase().filter(QRegularExpression(" p(10|11|20|30) "_s)), left);
            h.run([&] { h.shell.reloadRepo(); });
            QVERIFY(h.settled());
            h.remove(h.shell.packages());
            QVERIFY(h.holds({}));
        }
    }

    void everyArchitectureOfAll()
    {
        RepoHarness h("source amd64 i386"_s);
        runShell("sed -i '/^Architectures/s/$/ # both/' conf/distributions"_s, h.repoPath());
        h.open(h.repoPath());
        DebBuilder deb(Foo);
        QCOMPARE(h.add({h.deb(deb.architecture("all"_s))}), RepoEnums::SUCCESS);
        QCOMPARE(h.listed(), "foo 1.0 main amd64|foo 1.0 main i386"_list);
        QCOMPARE(h.lastMessage(), "1 package(s) added: foo_1.0_all.deb"_s);
        const QString other = h.deb(deb.contents("other"));
        h.choice = Rules::ReplaceThis;
        h.add({other});
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.inPool(Foo), readFile(other));
        QVERIFY(h.listed().size() == 2 && h.settled());
        // They share a file, so one answer is for both.
        QStringList together;
        h.whileAsked = [&] { together.append(h.shell.collidingFile().architectures.join(u'+')); };
        const QString third = h.deb(deb.contents("third"));
        h.choice = Rules::KeepThis;
        h.add({third});
        QVERIFY(h.inPool(Foo) == readFile(other) && h.notes.size() == 1 && h.settled());
        h.choice = Rules::ReplaceThis;
        h.add({third});
        QCOMPARE(together, "amd64+i386|amd64+i386"_list);
        QVERIFY(h.newcomers.first().endsWith("last"_s));
        QCOMPARE(h.inPool(Foo), readFile(third));
        QVERIFY(h.listed().size() == 2 && h.settled());
        h.remove({h.find(Foo, "i386"_s)});
        QCOMPARE(h.inDatabase(), QStringList{"dogwood|main|amd64: foo 1.0"_s});
        QVERIFY(h.settled());
        // Different files are replaced one by one, and nobody who ends the job is asked about the second.
        h.add({h.deb(DebBuilder(Foo).version("2.0"_s).architecture("i386"_s))});
        const QString fourth = h.deb(deb.version("1.5"_s));
        int asked = 0;
        h.whileAsked = [&] { h.choice = ++asked == 1 ? Rules::KeepThis : Rules::ReplaceThis; };
        h.add({fourth});
        QVERIFY(asked == 2 && h.newcomers.first().endsWith("1.5"_s));
        QVERIFY(h.holds("foo 1.0 main amd64,foo 1.5 main i386"_s));
        h.choice = Rules::KeepThis;
        h.whileAsked = [&] {
            ++asked;
            h.shell.cancel();
        };
        QCOMPARE(h.add({fourth, fourth}), RepoEnums::CANCEL);
        QVERIFY(asked == 3 && h.holds("foo 1.0 main amd64,foo 1.5 main i386"_s));
    }

    void debAndUdebOfOneName()
    {
        RepoHarness h;
        h.add({h.deb(DebBuilder(Foo)), h.deb(DebBuilder(Foo).udeb())});
        QVERIFY2(h.collisions.isEmpty(), "a package of the installer is another package");
        QCOMPARE(h.inDatabase().size(), 2);
        h.remove({h.shell.packageAt(0)});
        QCOMPARE(h.inDatabase(), QStringList{"u|dogwood|main|amd64: foo 1.0"_s});
        QVERIFY(h.settled());
        h.remove(h.shell.packages());
        QVERIFY(h.inDatabase().isEmpty());
    }

    void whatTheCallerOrNobodySays()
    {
        RepoHarness h;
        QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
        QCOMPARE(h.add(h.debs("foo", "2:1.0"), {"contrib"_s, false, QString()}), RepoEnums::SUCCESS);
        QCOMPARE(h.words(), "Adding package|1 package(s) added: foo_1.0_amd64.deb"_s);
        QVERIFY(h.ranges == QVector<int>{0} && h.steps == (QVector<int>{0, 1}) && saving.count() == 1);
        QCOMPARE(h.events, "+foo 2:1.0 amd64"_list);
        QVERIFY(h.find(Foo)->filePath().contains("/pool/contrib/"_s));
        h.add({h.deb(DebBuilder("bare"_s).field("Section"_s, QString()).field("Priority"_s, QString()))});
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.inIndices(), "bare 1.0 main amd64|foo 2:1.0 contrib amd64"_list);
        const QByteArray index = readFile(h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s);
        QVERIFY2(index.contains("\nPriority: optional\n"), index.constData());
        QVERIFY2(index.contains("\nSection: misc\n"), index.constData());
    }

    void rules()
    {
        // What is there after 1.0 met 2.0, 2.0 met 1.0 and 1.0 met another 1.0 twice, and how often the user was asked.
        // Those of the same version are last, when the indices are no longer written after each.
        const QVector<std::tuple<Rules::Rule, QString, int>> table{{Rules::KeepThis, "1.0 2.0 old"_s, 4},
                                                                   {Rules::ReplaceThis, "2.0 1.0 new"_s, 4},
                                                                   {Rules::PreferHigher, "2.0 2.0 old"_s, 1},
                                                                   {Rules::PreferLower, "1.0 1.0 old"_s, 1},
                                                                   {Rules::ReplaceAll, "2.0 1.0 new"_s, 1},
                                                                   {Rules::ReplaceNone, "1.0 2.0 old"_s, 1}};
        const auto older = RepoEnums::PACKAGE_EXISTS_OLD_VERSION;
        const auto newer = RepoEnums::PACKAGE_EXISTS_NEW_VERSION;
        const QVector<RepoEnums::ErrorCode> met{
            older, newer, RepoEnums::PACKAGE_EXISTS, RepoEnums::PACKAGE_EXISTS};
        for (const auto &[choice, left, asked] : table) {
            RepoHarness h;
            const QStringList old = h.debs("older same twin");
            h.add(old + h.debs("newer", "2.0"));
            const QStringList files
                = h.debs("older", "2.0") + h.debs("newer") + h.debs("same twin", "1.0", "other");
            h.choice = choice;
            QCOMPARE(h.add(files), RepoEnums::SUCCESS);
            QCOMPARE(h.trouble(), QString());
            const bool replaced = left.endsWith("new"_s);
            QCOMPARE(h.find("older"_s)->version + u' ' + h.find("newer"_s)->version, left.left(7));
            QCOMPARE(h.inPool("same"_s), readFile(replaced ? files.at(2) : old.at(1)));
            QCOMPARE(h.inPool("twin"_s), readFile(replaced ? files.at(3) : old.at(2)));
            QCOMPARE(h.events.filter("~same"_s).size(), replaced ? 1 : 0);
            QCOMPARE(h.collisions, met.mid(0, asked));
            QVERIFY(h.listed().size() == 4 && h.settled());
            h.choice = Rules::KeepThis;
            h.add({files.last()});
            QCOMPARE(h.singles, QVector<bool>{true}); // and the choice of the job before is forgotten
            QCOMPARE(h.lastMessage(), "0 package(s) added: "_s);
        }
    }

    void whatStaysOutIsTold()
    {
        RepoHarness h("amd64 i386"_s);
        const QString everywhere = h.deb(DebBuilder("all"_s).architecture("all"_s));
        h.add({h.debs("foo").first(), everywhere});
        const QStringList files = h.debs("foo", "2.0") + h.debs("foo", "0.5") + QStringList{everywhere};
        h.add(files);
        QCOMPARE(h.newcomers.join("|"_s),
                 "foo_2.0_amd64.deb 2.0|foo_0.5_amd64.deb 0.5|all_1.0_all.deb 1.0 last"_s);
        QCOMPARE(h.singles, QVector<bool>(3, false));
        QCOMPARE(h.notes.size(), 3);
        QVERIFY(h.notes.at(0).contains(files.at(0)) && h.notes.at(0).contains("older version 1.0"_s));
        QVERIFY(h.notes.at(1).contains(files.at(1)) && h.notes.at(1).contains("newer version 1.0"_s));
        QVERIFY(h.notes.at(2).contains("version 1.0 (amd64, i386)"_s));
        QVERIFY(h.criticals.isEmpty());

        // What reprepro says of our stand-in for the repository's configuration names the repository's own.
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const auto spoil = [&] { writeFile(conf, readFile(conf) + "nonsense\n"); };
        connect(&h.shell, &RepoShell::packageAdded, &h.shell, spoil, Qt::DirectConnection);
        h.add(h.debs("bar baz"));
        QVERIFY(h.criticals.first().contains("/baz_1.0_amd64.deb!"_s));
        QVERIFY2(h.trouble().contains(conf) && !h.trouble().contains("velt-admin-repo-work"_s),
                 qPrintable(h.trouble()));
    }

    void filesThatAreNoPackagesForIt()
    {
        RepoHarness h("source amd64 i386"_s);
        const QString pipe = h.at("pipe.deb");
        const QString empty = h.at("empty.deb");
        const QString text = h.at("a.txt");
        runShell("mkfifo '%1'; touch '%2' '%3'"_s.arg(pipe, empty, text));
        const QString arm = h.deb(DebBuilder("arm"_s).architecture("arm64"_s));
        const QString large = h.deb(DebBuilder("large"_s).field("Tag"_s, QString(5 << 20, u'x')));
        h.add(QStringList{"/no/such.deb"_s, text, pipe, empty, arm, large} + h.debs("good"));
        const QStringList reasons{
            "/no/such.deb:\nThere is no such file."_s,
            text + ":\nIts name does not end in .deb or .udeb."_s,
            pipe + ":\nIt is no regular file."_s,
            empty + ":\nThe file is empty."_s,
            large + ":\nThe control data of the package are too large."_s,
            arm
                + ":\nThe package is for the architecture arm64, and the repository has "
                  "these: amd64, i386."_s};
        QCOMPARE(
            h.criticals,
            QStringList(reasons).replaceInStrings(QRegularExpression("^"_s), "Error adding package!|"_s));
        QCOMPARE(h.lastMessage(), "1 package(s) added: good_1.0_amd64.deb"_s);
        QVERIFY(h.settled());
        // A list over several lines is read by reprepro alone.
        runShell("sed -i '/^Architectures/s/$/\\n arm64/' conf/distributions"_s, h.repoPath());
        h.add({arm});
        QCOMPARE(h.trouble(), QString());
    }

    /** One question for all files; then reprepro has them all, and what serves all architectures serves the new ones. */
    void whatTheRepositoryLacks()
    {
        RepoHarness h;
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        runShell("sed -i '/^Architectures/s/$/ # ours/' conf/distributions"_s, h.repoPath());
        writeFile(conf, readFile(conf) + "# by hand\nNotAutomatic: yes\n");
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        h.add(QStringList{h.deb(DebBuilder("every"_s).architecture("all"_s))});
        const auto file = [&h](const QString &name, const QString &architecture, const QString &section) {
            return h.deb(DebBuilder(name).architecture(architecture).field("Section"_s, section));
        };
        QStringList files{file("arm"_s, "arm64"_s, "net"_s),
                          file("side"_s, "amd64"_s, "extra/net"_s),
                          h.deb(DebBuilder("boot"_s).architecture("arm64"_s).udeb()),
                          file("odd"_s, "any"_s, "net"_s),
                          file("out"_s, "amd64"_s, "../net"_s),
                          h.debs("plain").first()};
        for (int i = 0; i < 60; ++i)
            files += file("many%1"_s.arg(i), i % 2 == 0 ? "arm64"_s : "armhf"_s, "net"_s);
        const QByteArray before = readFile(conf);
        h.add(files);
        QCOMPARE(h.questions.size(), 1);
        QVERIFY(h.questions.first().contains("arm64"_s) && h.questions.first().contains("extra"_s));
        QVERIFY(readFile(conf) == before && h.holds("every 1.0 main amd64,plain 1.0 main amd64"_s));

        h.reply = true;
        h.add(files);
        QCOMPARE(h.questions.size(), 1);
        QVERIFY2(h.criticals.size() == 2, qPrintable(h.trouble())); // what no description could take
        const QStringList listed = h.inDatabase();
        QCOMPARE(h.shell.repoInfo().binaryArchitectures().join(u' '), "amd64 arm64 armhf"_s);
        QVERIFY(readFile(conf).contains("# by hand\nNotAutomatic: yes\n"));
        QCOMPARE(h.listed().filter("many"_s).size(), 60);
        QCOMPARE(h.listed().filter("every"_s).join(u','),
                 "every 1.0 main amd64,every 1.0 main arm64,every 1.0 main armhf"_s);
        QCOMPARE(h.listed().filter("side"_s).join(u','), "side 1.0 extra amd64"_s);
        QVERIFY2(h.settled() && h.reprepro({"check"_s}).succeeded()
                     && h.reprepro({"checkpool"_s}).succeeded(),
                 qPrintable(listed.join(u'\n')));
        // What the opening reads is what the job has shown.
        const QStringList shown = h.listed();
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        QCOMPARE(h.listed(), shown);
        // Nobody is asked about a description that this program must not write anew.
        writeFile(conf, readFile(conf) + "\nCodename: other\nArchitectures: amd64\nComponents: main\n");
        h.add({file("late"_s, "mips"_s, "net"_s)});
        QVERIFY(h.questions.isEmpty() && h.complains("mips"_s));
    }

    void refusedReplacementPutsTheOldOneBack()
    {
        RepoHarness h;
        const QStringList old = h.debs("first foo");
        h.add(old);
        // dpkg reads this version, but reprepro refuses what stands in the control file.
        const QString refused = h.deb(DebBuilder(Foo).version("2.0"_s).field("Source"_s, "Bad_Source"_s));
        h.choice = Rules::ReplaceThis;
        h.add(QStringList{refused} + h.debs("last"));
        QVERIFY(h.complains("Error adding package %1!|"_s.arg(refused)));
        QCOMPARE(h.lastMessage(), "1 package(s) added: last_1.0_amd64.deb"_s);
        QCOMPARE(h.find(Foo)->version, "1.0"_s);
        QCOMPARE(h.inPool(Foo), readFile(old.last()));
        QVERIFY(h.settled());
    }

    void stop()
    {
        RepoHarness h;
        const QStringList files = h.debs("a b c d e");
        h.cancelAt(&RepoShell::packageAdded, 3);
        QCOMPARE(h.add(files), RepoEnums::CANCEL);
        QCOMPARE(
            h.lastMessage(),
            "Operation stopped. 3 of 5 package(s) added: a_1.0_amd64.deb, b_1.0_amd64.deb, c_1.0_amd64.deb"_s);
        QCOMPARE(h.finished.size(), 1);
        QVERIFY2(h.listed().size() == 3 && h.settled(), "what is in is also shown to clients");

        // Stopped at the last item there is nothing left to stop.
        QCOMPARE(h.add({files.last()}), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "1 package(s) added: e_1.0_amd64.deb"_s);

        h.cancelAt(&RepoShell::started);
        QCOMPARE(h.remove(h.shell.packages()), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. 0 of 4 packages(s) removed: "_s);
        QVERIFY(h.listed().size() == 4 && h.settled());

        // Nor does a stop wait for the tool that reads the files, neither for the next one nor for those after it.
        const StandIn slow(h.at("bin"), "dpkg", "sleep 60");
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(300, &h.shell, [&h] { h.shell.cancel(); });
        QCOMPARE(h.add(files), RepoEnums::CANCEL);
        QVERIFY(clock.elapsed() < 30000 && h.criticals.isEmpty());
    }

    void removeMany()
    {
        RepoHarness h;
        // The indices are written once, after the last one.
        const QString folders = h.at("folders");
        {
            const StandIn recorder(
                h.at("bin"), "reprepro", "echo ${REPREPRO_CONFIG_DIR##*/} >>" + folders.toLocal8Bit());
            h.add(h.debs("a b c d e"));
        }
        QCOMPARE(readFile(folders).count('\n'), 6);
        QCOMPARE(readFile(folders).count("conf\n"), 1);
        auto packages = h.shell.packages();
        const PackageInfoPtr last = packages.takeLast();
        QCOMPARE(h.remove({packages.takeFirst()}), RepoEnums::SUCCESS);
        QCOMPARE(h.ranges, QVector<int>{0});
        QCOMPARE(h.words(), "Removing package|1 packages removed: a_1.0_amd64.deb"_s);
        QCOMPARE(h.remove(packages), RepoEnums::SUCCESS);
        QCOMPARE(h.ranges, (QVector<int>{0, 3}));
        QCOMPARE(h.words(),
                 "Removing packages|3 packages removed: b_1.0_amd64.deb, c_1.0_amd64.deb, d_1.0_amd64.deb"_s);
        QVERIFY(h.holds("e 1.0 main amd64"_s));
        // Removing what somebody else has removed already brings the list up to date.
        h.reprepro({"--export=never"_s, "remove"_s, "dogwood"_s, "e"_s});
        QCOMPARE(h.inIndices().size(), 1);
        h.remove({last});
        QVERIFY(h.holds({}));
    }
};

VELT_TEST_MAIN(TestPackages, QCoreApplication)
#include "tst_packages.moc"
