// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagesfile.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/poolfiles.h"
#include "signing/signedpackages.h"
#include "support/standin.h"

#include <sys/stat.h>
#include <unistd.h>

/** Creating, opening, changing and closing with the real reprepro. */
class TestLifecycle : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void createWipesAndOpensEmpty()
    {
        EngineHarness h;
        writeFile(h.repoPath() + "/old/file"_s, "x");
        QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
        QSignalSpy stored(&h.shell, &RepoShell::requestForStoredInformation);
        QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::SUCCESS));
        QVERIFY(!QFile::exists(h.repoPath() + "/old"_s));
        QVERIFY(QFile::exists(h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s));
        QVERIFY(h.shell.path() == h.repoPath() && h.shell.repoInfo() == h.info);
        QVERIFY(paths.count() == 1 && paths.first().first().toString().isEmpty());
        QCOMPARE(stored.first().first().toString(), h.repoPath());
        h.shell.openRepo(QString());
        h.shell.changeRepo(QString(), {});
        h.shell.addPackages({});
        h.shell.removePackages({});
        QVERIFY(!h.shell.isRunning());
        QCoreApplication::processEvents();
        QVERIFY2(h.started.isEmpty() && h.finished.isEmpty(), "creation is no job, nor is doing nothing");
    }

    void createRefusesAndCleansUp()
    {
        EngineHarness h;
        writeFile(h.at("file"), "x");
        QCOMPARE(h.shell.createRepo(h.at("file/repo"), h.info), int(RepoEnums::ERROR));
        QVERIFY(h.complains("Not a directory"_s));
        writeFile(h.at("shelf/a/conf/distributions"), "x");
        QCOMPARE(h.shell.createRepo(h.at("shelf"), h.info), int(RepoEnums::ERROR));
        QVERIFY(h.complains("repositories: "_s + h.at("shelf/a"), 2));
        h.criticals.clear();
        h.info.codename = "../up"_s;
        QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::ERROR));
        QVERIFY2(!QFile::exists(h.repoPath()), "a repository that reprepro refuses does not stay behind");
        h.criticals.clear();
        writeFile(h.repoPath() + "/old"_s, "x");
        QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::ERROR));
        QVERIFY2(QFile::exists(h.repoPath() + "/old"_s), "and what it was to replace does");
        QVERIFY(h.complains("Failed to create repository!|Error"_s));
        QCOMPARE(h.shell.path(), QString());

        // Nor is a repository replaced, by a new one or by one that moves, while a job is at work on it.
        RepoHarness busy;
        RepoHarness moving;
        JobLock lock;
        QVERIFY(lock.take(busy.repoPath()));
        h.criticals.clear();
        h.info.codename = "dog"_s;
        QCOMPARE(h.shell.createRepo(busy.repoPath(), h.info), int(RepoEnums::ERROR));
        QVERIFY(h.complains("being changed by another program"_s));
        QCOMPARE(moving.change(busy.repoPath()), RepoEnums::ERROR);
        QVERIFY(moving.complains("being changed by another program"_s));
        QVERIFY(moving.shell.path() == moving.repoPath() && moving.settled() && busy.settled());
        h.criticals.clear();
        lock.release();
        QCOMPARE(moving.change(busy.repoPath()), RepoEnums::SUCCESS);

        const QString above = h.at("above");
        writeFile(above + "/open/conf/distributions"_s, "x");
        h.shell.setOpenRepositories({above + "/open"_s});
        QCOMPARE(h.shell.createRepo(above, h.info), int(RepoEnums::ERROR));
        QVERIFY(QFile::exists(above + "/open/conf/distributions"_s));
        QVERIFY(h.criticals.last().startsWith("Impossible to delete directory %1!"_s.arg(above)));
    }

    void linksAreNotWhatTheyPointTo()
    {
        RepoHarness h;
        const QString target = h.at("target");
        const QString link = h.at("link");
        writeFile(target + "/precious"_s, "x");
        QVERIFY(QFile::link(target, link));
        QCOMPARE(h.change(link), RepoEnums::SUCCESS);
        QVERIFY(QFile::exists(target + "/precious"_s) && !QFileInfo(link).isSymLink());
        QCOMPARE(h.shell.path(), link);
        EngineHarness other;
        QVERIFY(QFile::link(target, h.at("second")));
        QCOMPARE(other.shell.createRepo(h.at("second"), other.info), int(RepoEnums::SUCCESS));
        QCOMPARE(other.shell.path(), target);
        QVERIFY(other.settled());
    }

    /** What a description or reprepro names below the repository is not looked for behind other people's links. */
    void linksInsideAreNoWay()
    {
        RepoHarness h;
        const QString elsewhere = h.at("elsewhere");
        for (const char *file : {"/dogwood/precious", "/main/f/precious"})
            writeFile(elsewhere + QLatin1String(file), "x");
        runShell("mv dists/dogwood/* ../elsewhere/dogwood; rm -r dists; ln -s ../elsewhere dists; rm -rf "
                 "pool; ln -s "
                 "../elsewhere pool"_s,
                 h.repoPath());
        h.info.codename = "aspen"_s;
        h.reply = true;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(QFile::exists(elsewhere + "/dogwood/precious"_s));

        if (::geteuid() == 0)
            runShell("chown -h 65534 pool"_s, h.repoPath());
        PoolFiles::remove(h.repoPath(), "pool/main/f/precious"_s);
        QCOMPARE(QFile::exists(elsewhere + "/main/f/precious"_s), ::geteuid() == 0);
        // A pool on another disk is the administrator's own.
        if (::geteuid() == 0)
            runShell("chown -h 0 pool"_s, h.repoPath());
        PoolFiles::remove(h.repoPath(), "pool/main/f/precious"_s);
        QVERIFY(!QFile::exists(elsewhere + "/main"_s));
    }

    /** Whoever waits for what comes out of a pipe waits for ever. */
    void pipesAreNoFiles()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        for (const char *name : {"packages.conf", "conf/options", "db/version", "conf/distributions"}) {
            const QString file = h.repoPath() + u'/' + QLatin1String(name);
            runShell("[ ! -e '%1' ] || mv '%1' kept; mkfifo '%1'"_s.arg(file), h.folder.path());
            EngineHarness other;
            QCOMPARE(other.open(h.repoPath()), RepoEnums::ERROR);
            QVERIFY2(other.trouble().endsWith(file + " is no regular file."_s), qPrintable(other.trouble()));
            QVERIFY(other.shell.path().isEmpty() && other.questions.isEmpty());
            runShell("rm '%1'; [ ! -e kept ] || mv kept '%1'"_s.arg(file), h.folder.path());
        }
        // One that comes later is told of as well, where it would be read.
        runShell("mkfifo packages.conf db/velt-admin-repo.export-owed"_s, h.repoPath());
        QVERIFY(SignedPackages(h.repoPath() + "/packages.conf"_s).allKeyInfo().isEmpty());
        QVERIFY(ExportSession::filesLeft(h.repoPath()).isEmpty());
        QVERIFY(readPackagesFile(h.repoPath() + "/packages.conf"_s, {}, {}).isEmpty());
        const QString pipe = h.at("x.tgz");
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QCOMPARE(h.run([&] { h.shell.importRepo(pipe); }), RepoEnums::ERROR);
        QCOMPARE(h.trouble(), "Can't open archive for import!|%1 is no regular file."_s.arg(pipe));
    }

    /** Lists that are read in part, and places of which the description knows nothing, would cost packages. */
    void whatIsNotReadFullyIsNotChanged()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo") + QStringList{h.deb(DebBuilder("baz"_s).architecture("i386"_s))});
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray own = readFile(conf);
        for (const char *lists : {"Architectures: amd64\n i386\n", "ARCHITECTURES: amd64 i386\n"}) {
            writeFile(conf, QByteArray(own).replace("Architectures: amd64 i386\n", lists));
            h.open(h.repoPath());
            h.info.architectures = "amd64"_s;
            QVERIFY(h.shell.repoInfo().architectures != "amd64 i386"_s);
            h.reply = true;
            QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR);
            QVERIFY(h.complains(lists[1] == 'R' ? "does not name: dogwood|main|i386"_s
                                                : "does not read fully"_s));
            QVERIFY(readFile(conf).contains(lists));
            QCOMPARE(h.inDatabase().size(), 2);
        }
    }

    /** Other fields go after a question that names them; packages that only tracks keep go, too. */
    void nothingIsLostWithoutAQuestion()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo") + QStringList{h.deb(DebBuilder("baz"_s).architecture("i386"_s))});
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray own = readFile(conf);
        h.info.suite = "testing"_s;
        const QByteArray key = "SignWith: default\n";
        writeFile(conf, own + "Tracking: keep\n");
        h.open(h.repoPath());
        h.reprepro({"retrack"_s});
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("foo", "2.0"));
        writeFile(conf, own + "Tracking: keep\n" + key);
        h.info.architectures = "amd64 i386"_s;
        h.reply = false;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::CANCEL);
        QCOMPARE(readFile(conf), own + "Tracking: keep\n" + key);
        QVERIFY(h.questions.size() == 1 && h.trouble().isEmpty());
        for (const QString &said :
             QStringList{"Tracking: keep\n"_s, QLatin1String(key), conf + ".orig"_s, "no longer be signed"_s})
            QVERIFY2(h.questions.first().contains(said), qPrintable(h.questions.first()));
        h.reply = true;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(readFile(conf + ".orig"_s), own + "Tracking: keep\n" + key);
        QVERIFY(h.holds("baz 1.0 main i386,foo 2.0 main amd64"_s));
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.questions.isEmpty());
    }

    /** Whoever has edited the file while it was shown keeps the edit. */
    void editsMeanwhileStay()
    {
        RepoHarness h;
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray shown = readFile(conf);
        writeFile(conf, QByteArray(shown).replace("stable", "edited"));
        h.info.suite = "testing"_s;
        QCOMPARE(h.run([&] { h.shell.changeRepo(h.repoPath(), h.info, shown); }), RepoEnums::ERROR);
        QVERIFY(h.complains("meanwhile"_s) && readFile(conf).contains("edited"));
    }

    void severalDistributionsAreLeftAlone()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        writeFile(conf, readFile(conf) + "\nCodename: second\nArchitectures: amd64\nComponents: main\n");
        h.reprepro({"copy"_s, "second"_s, "dogwood"_s, "foo"_s});
        h.info.suite = "testing"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR);
        QVERIFY(h.complains("several distributions"_s));
        QVERIFY(readFile(conf).contains("Codename: second"));
    }

    void indicesOutliveALockedChange()
    {
        RepoHarness h;
        h.add(h.debs("foo"), {"contrib"_s, false, QString()});
        writeFile(h.repoPath() + "/db/lockfile"_s, "");
        h.info.components = "main"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR); // and nobody lets us remove the lock
        QCOMPARE(h.inIndices(), "foo 1.0 contrib amd64"_list);
        QFile::remove(h.repoPath() + "/db/lockfile"_s);
        h.open(h.repoPath());
        QVERIFY(h.settled());
        // A stop that was meant for a change does not close what it has changed, nor stop the job after it.
        h.cancelAt(&RepoShell::requestForSavingPackages);
        h.info.components = "main contrib"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.settled());
        h.shell.cancel();
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
    }

    void openListsWhatIsThere()
    {
        RepoHarness h("amd64 i386"_s);
        h.add({h.deb(DebBuilder("both"_s).architecture("all"_s)), h.deb(DebBuilder("small"_s).udeb())});
        QCOMPARE(h.listed().size(), 3);
        EngineHarness reader;
        QSignalSpy merging(&reader.shell, &RepoShell::requestForMergingInformation);
        QCOMPARE(reader.open(h.repoPath()), RepoEnums::SUCCESS);
        QCOMPARE(reader.listed(), h.listed());
        QCOMPARE(reader.words(), "Opening repository|Repositry is opened"_s);
        QVERIFY(reader.ranges == (QVector<int>{0, 3}) && reader.events.size() == 3 && merging.count() == 1);
        QCOMPARE(reader.shell.repoInfo().name, "repo"_s);
        QCOMPARE(reader.find("small"_s)->type, PackageType::Udeb);
        QVERIFY(reader.settled());
        QCOMPARE(reader.shell.packageFilePath("both"_s, "main"_s, "i386"_s),
                 reader.find("both"_s)->filePath());
        // Stopped from inside, before the first package.
        QSignalSpy closed(&reader.shell, &RepoShell::needCloseRepo);
        reader.cancelAt(&RepoShell::requestForMergingInformation);
        QCOMPARE(reader.open(h.repoPath()), RepoEnums::CANCEL);
        QCOMPARE(reader.lastMessage(), "Repositry is not opened"_s);
        QVERIFY(reader.shell.path().isEmpty() && closed.count() == 1);
        h.shell.closeRepo();
        QVERIFY(h.shell.packageCount() == 0 && h.shell.path().isEmpty());
    }

    void openWithoutCodename()
    {
        EngineHarness h;
        writeFile(h.at("conf/distributions"), "CODENAME: dog\n");
        QCOMPARE(h.open(h.folder.path()), RepoEnums::ERROR);
        QVERIFY(h.criticals.size() == 1 && h.shell.path().isEmpty());
        QCOMPARE(h.lastMessage(), "Repositry is not opened"_s);
    }

    /** As a client sees them, for which a list that is there and not named, or named and gone, is a fault. */
    void contentsThatAreTurnedOff()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo") + QStringList{h.deb(DebBuilder("bar"_s).udeb())});
        // How many lists of contents apt has, how many there are, and how often Release names one.
        const auto update = [&h] {
            return runShell(R"(mkdir -p state/lists/partial cache/archives/partial; : >state/status
                echo "deb [trusted=yes arch=amd64] file:$PWD/repo dogwood main" >state/list
                apt-get -qq update -o Dir::Etc::SourceList=$PWD/state/list -o Dir::Etc::SourceParts=/dev/null \
                    -o Dir::State=$PWD/state -o Dir::State::status=$PWD/state/status -o Dir::Cache=$PWD/cache \
                    -o APT::Sandbox::User= -o APT::Update::Error-Mode=any \
                    -o 'Acquire::IndexTargets::deb::Contents-deb::MetaKey=$(COMPONENT)/Contents-$(ARCHITECTURE)' \
                    -o Acquire::IndexTargets::deb::Contents-deb::ShortDescription=Contents \
                    -o 'Acquire::IndexTargets::deb::Contents-deb::Description=$(SITE) Contents' 2>&1
                ls state/lists | grep -c Contents || true
                find repo/dists -name 'Contents-*' | wc -l; grep -c Contents repo/dists/dogwood/Release || true)"_s,
                            h.folder.path())
                .simplified();
        };
        QCOMPARE(update(), "0 0 0"_s);
        h.info.contents = true;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        const QString with = update();
        QVERIFY2(with.startsWith("1 "_s) && !with.endsWith(" 0"_s), qPrintable(with));
        h.info.contents = false;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QCOMPARE(update(), "0 0 0"_s);
        QVERIFY(h.trouble().isEmpty() && h.settled());
    }

    void changeOfSuitePathAndCodename()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        h.info.suite = "testing"_s;
        QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(saving.count() == 1 && h.lastJob == RepoEnums::CHANGE_REPO_JOB);
        QCOMPARE(h.words(),
                 "Repository changing|Opening repository|Repositry is opened|Repository is changed."_s);
        QVERIFY(h.holds("foo 1.0 main amd64"_s));
        QVERIFY(readFile(h.repoPath() + "/dists/dogwood/Release"_s).contains("Suite: testing"));
        const QString target = h.at("deep er/new");
        writeFile(target + "/old"_s, "x");
        QSignalSpy paths(&h.shell, &RepoShell::pathChanged);
        QCOMPARE(h.change(target + u'/'), RepoEnums::SUCCESS);
        QVERIFY(!QFile::exists(h.repoPath()) && !QFile::exists(target + "/old"_s));
        QCOMPARE(QDir(h.at("deep er")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
        QCOMPARE(h.shell.path(), target);
        QCOMPARE(paths.first().first().toString(), target);
        QCOMPARE(h.find("foo"_s)->filePath(), target + "/pool/main/f/foo/foo_1.0_amd64.deb"_s);
        QVERIFY(h.settled());

        h.info.codename = "aspen"_s;
        QCOMPARE(h.change(target), RepoEnums::SUCCESS);
        QVERIFY(!QFile::exists(target + "/dists/dogwood"_s)
                && QFile::exists(target + "/dists/aspen/Release"_s));
        QVERIFY(h.holds({}));
        QCOMPARE(h.notes, "1 package(s) deleted: foo_1.0_amd64.deb"_list);
    }

    void movesToAnotherFileSystem()
    {
        // Nothing may be moved to there, but from there it may.
        const QTemporaryDir far("/dev/shm/veXXXXXX"_s);
        RepoHarness h;
        if (!far.isValid() || QStorageInfo(far.path()).device() == QStorageInfo(h.repoPath()).device())
            QSKIP("there is one file system alone");
        h.add(h.debs("foo bar"));
        writeFile(h.repoPath() + "/conf/own"_s, "x");
        QVERIFY(QFile::link("own"_s, h.repoPath() + "/conf/link"_s));
        const QString origin = far.filePath("repo"_s);
        runShell("mv '%1' '%2'"_s.arg(h.repoPath(), origin));
        h.open(origin);
        const QString list = "cd '%1' && find . -path ./db -prune -o -path ./dists -prune -o -type f "
                             "-exec md5sum {} + -o -printf '%p %y %l\\n' | sort"_s;
        const QString before = runShell(list.arg(origin));
        const QString target = h.at("deep/repo");
        writeFile(target + "/old"_s, "x");
        const auto isWhere = [&](const QString &path) {
            const QDir parent(h.at("deep"));
            return h.shell.path() == path && runShell(list.arg(path)) == before
                   && parent.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size() == 1
                   && QFile::exists(target + "/old"_s) == (path != target) && h.settled();
        };
        // A stop leaves both places as they were.
        const auto stopping = h.cancelAt(&RepoShell::progressRangeChanged, 2);
        QCOMPARE(h.change(target), RepoEnums::CANCEL);
        disconnect(stopping);
        QVERIFY(h.trouble().isEmpty() && isWhere(origin));
        // So does a copy that is not like the original.
        {
            const StandIn sync(h.at("sync"), "sync", "echo y >\"$2\"/conf/own");
            QCOMPARE(h.change(target), RepoEnums::ERROR);
        }
        QVERIFY(h.complains("/conf/own differ"_s) && isWhere(origin));
        // A change that fails behind the copying leaves no copy.
        const QString other = h.at("other");
        h.info.architectures = "i386 all"_s;
        QCOMPARE(h.change(other), RepoEnums::ERROR);
        QVERIFY(!QFile::exists(other) && isWhere(origin));
        h.info.architectures = "amd64"_s;
        // Neither does one in which another program's package would be missing.
        {
            const StandIn diff(h.at("diff"),
                               "diff",
                               "$real \"$@\" && reprepro -b \"$4\" includedeb dogwood '"
                                   + h.debs("late").first().toUtf8() + "'; exit");
            QCOMPARE(h.change(target), RepoEnums::ERROR);
        }
        QVERIFY(h.complains("changed by another program"_s) && h.inDatabase().filter("late"_s).size() == 1);
        h.reprepro({"remove"_s, "dogwood"_s, "late"_s});
        QVERIFY(isWhere(origin));
        // A link that would lead elsewhere from there is named.
        QVERIFY(QFile::link("../../outside"_s, origin + "/dists/way"_s));
        h.reply = true;
        QCOMPARE(h.change(target), RepoEnums::ERROR);
        h.reply = false;
        QVERIFY(h.complains(origin + "/dists/way"_s) && QFile::remove(origin + "/dists/way"_s));
        // What a killed run has left of one is no obstacle.
        writeFile(target + ".velt-admin-repo-moving/conf/other"_s, "x");
        // Files of the pool that a restore point has too are not copied twice.
        const QString file = "pool/main/f/foo/foo_1.0_amd64.deb"_s;
        const QString point = "db/velt-admin-repo.history/000001/"_s;
        runShell("mkdir -p %2pool/main/f/foo && ln %1 %2%1"_s.arg(file, point), origin);
        QCOMPARE(h.change(target), RepoEnums::SUCCESS);
        QVERIFY(QFile::exists(target + u'/' + point + "packages.db"_s));
        QCOMPARE(runShell("stat -c %h "_s + file, target), "2\n"_s);
        QVERIFY(h.trouble().isEmpty() && isWhere(target));
        QVERIFY(!QFile::exists(origin));
        QVERIFY2(h.ranges.value(1) > 20 && h.steps.contains(h.ranges.value(1)), "each file is a step");
    }

    void packagesAreCarriedToANewCodename()
    {
        VELT_NEED_TOOL("apt-get");
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo")
              + QStringList{h.deb(DebBuilder("every"_s).architecture("all"_s)),
                            h.deb(DebBuilder("side"_s).field("Section"_s, "contrib/admin"_s)),
                            h.deb(DebBuilder("old"_s).architecture("i386"_s)),
                            h.deb(DebBuilder("small"_s).udeb())});
        const auto pool = [&h] {
            QMap<QString, QByteArray> files;
            for (const PackageInfoPtr &package : h.shell.packages())
                files.insert(package->filePath(), readFile(package->filePath()));
            return files;
        };
        auto files = pool();
        const QStringList listed = h.listed();
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        writeFile(conf, readFile(conf) + "Tracking: minimal\n");
        h.reprepro({"retrack"_s});
        h.reply = true;
        // A code name that is the name of the suite too, which has led to the old one.
        const QString dists = h.repoPath() + "/dists/"_s;
        QVERIFY(QFile::link("dogwood"_s, dists + "stable"_s) && QFile::link("dogwood"_s, dists + "second"_s));
        h.info.codename = "stable"_s;
        QCOMPARE(h.change(h.repoPath(), true), RepoEnums::SUCCESS);
        QVERIFY(h.trouble().isEmpty() && h.settled());
        QVERIFY(!QFileInfo(dists + "stable"_s).isSymLink() && QFile::exists(dists + "second/Release"_s));
        QVERIFY(h.listed() == listed && pool() == files);
        QVERIFY(h.notes.filter("deleted"_s).isEmpty() && h.notes.filter("carried over"_s).size() == 1);
        QVERIFY(h.reprepro({"check"_s}).errorOutput.isEmpty());
        QVERIFY(!h.reprepro({"dumpreferences"_s}).output.contains("dogwood"_s));

        // A new architecture gets what is for all, also in the place of the only one that had it.
        h.info.codename = "aspen"_s;
        h.info.architectures = "arm64 riscv64"_s;
        QCOMPARE(h.change(h.repoPath(), true), RepoEnums::SUCCESS);
        QVERIFY(h.trouble().isEmpty() && h.holds("every 1.0 main arm64,every 1.0 main riscv64"_s));
        QCOMPARE(h.notes.last(),
                 "4 package(s) deleted: foo_1.0_amd64.deb, old_1.0_i386.deb, side_1.0_amd64.deb, "
                 "small_1.0_amd64.udeb"_s);
        // What a client gets of it.
        const QString apt = R"(mkdir -p apt/lists/partial apt/cache/archives/partial; touch apt/status
            echo "deb [trusted=yes] copy:$PWD/repo aspen main" >apt/list
            set -- -qq -o Dir::State=$PWD/apt -o Dir::State::status=$PWD/apt/status -o Dir::Cache=$PWD/apt/cache \
                -o Dir::Etc::sourcelist=$PWD/apt/list -o Dir::Etc::sourceparts=- -o APT::Sandbox::User= \
                -o APT::Architecture=arm64 -o APT::Architectures=arm64
            apt-get "$@" update && apt-get "$@" download every && cmp every_1.0_all.deb repo/pool/*/*/*/*.deb
            echo $?)"_s;
        QCOMPARE(runShell(apt, h.folder.path()).trimmed(), "0"_s);
    }

    void changeDropsArchitectureAndComponent()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo")
              + QStringList{h.deb(DebBuilder("bar"_s).field("Section"_s, "contrib/admin"_s)),
                            h.deb(DebBuilder("baz"_s).architecture("i386"_s))});
        const QStringList before = h.listed();
        const QString components = h.shell.repoInfo().components;
        QCOMPARE(before.size(), 3);
        h.info.architectures = "amd64"_s;
        h.info.components = "main"_s;
        {
            const QByteArray folder = h.folder.path().toLocal8Bit();
            // What is there before and after the runs of the change, which is what is left when the program dies.
            const StandIn reprepro(h.at("bin"), "reprepro", "cd " + folder + R"(
                for run in '--delete clearvanished' export; do case "$*" in *"$run")
                    run=${run#--delete }; cp -a repo before-$run; $real "$@"; code=$?; cp -a repo after-$run
                    cp -a repo torn-$run; truncate -s 4096 torn-$run/db/packages.db; exit $code;;
                esac; done)");
            QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        }
        QVERIFY(h.holds("foo 1.0 main amd64"_s));
        for (const char *moment :
             {"before-clearvanished", "after-clearvanished", "torn-clearvanished", "after-export"}) {
            EngineHarness next;
            next.open(h.folder.filePath(QString::fromLatin1(moment)));
            QVERIFY2(next.listed() == before && next.settled(), moment);
            QVERIFY2(next.shell.repoInfo().components == components, moment);
            QVERIFY2(next.started.contains("Recovering repository after an interrupted job"_s), moment);
            QVERIFY2(next.complains("has been undone"_s), moment);
        }
        for (const QString &gone : {"contrib"_s, "main/binary-i386"_s, "main/debian-installer/binary-i386"_s})
            QVERIFY2(!QFile::exists(h.repoPath() + "/dists/dogwood/"_s + gone), qPrintable(gone));
    }

    /** The change stands, and nothing was interrupted: only the indices are behind. */
    void indicesOfChangeCannotBeWritten()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString inTheWay = h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages.new"_s;
        writeFile(inTheWay + "/x"_s, "x");
        h.info.components = "main other"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.complains("The indices of the repository could not be brought up to date."_s));
        QVERIFY2(!h.words().contains("interrupted"_s), qPrintable(h.words()));
        QVERIFY(h.isExportOwed());
        QVERIFY(QDir(inTheWay).removeRecursively());
        h.open(h.repoPath());
        QCOMPARE(h.started, "Opening repository|Writing the indices of the repository"_list);
        QVERIFY(h.trouble().isEmpty() && h.holds("foo 1.0 main amd64"_s));
    }

    void refusedAndFailedChangesLeaveEverything()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        QVERIFY(QFile::link(h.repoPath(), h.at("link")));
        const QString open = h.at("open");
        writeFile(open + "/conf/distributions"_s, "x");
        h.shell.setOpenRepositories({open});
        const QStringList targets{
            h.folder.path(), h.repoPath() + "/inside"_s, h.at("link"), QDir::homePath(), open};
        for (const QString &target : targets) {
            QCOMPARE(h.change(target), RepoEnums::ERROR);
            QCOMPARE(h.lastMessage(), "Repository not changed"_s);
            QVERIFY(h.lastJob == RepoEnums::COMMON_JOB && h.criticals.size() == 1);
            QVERIFY(QFile::exists(open + "/conf/distributions"_s));
            QVERIFY(h.shell.path() == h.repoPath() && h.holds("foo 1.0 main amd64"_s));
        }

        h.info.architectures = "i386 all"_s; // reprepro refuses "all"
        QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), "Repository is not changed."_s);
        QCOMPARE(h.lastJob, RepoEnums::CHANGE_REPO_JOB);
        QVERIFY(h.complains("Failed to change repository!|"_s));
        QVERIFY2(!h.criticals.first().endsWith(u'|'), "the tool's own words belong to the message");
        QCOMPARE(DistributionsFile(h.repoPath()).read()->architectures, "amd64"_s);
        QCOMPARE(h.shell.repoInfo().architectures, "amd64"_s);
        QVERIFY(h.listed().size() == 1 && h.settled());

        // Nor does one leave less that fails when packages have gone already, even without room on the disk.
        const StandIn reprepro(h.at("bin"), "reprepro", R"($real "$@" || exit
            case "$*" in *clearvanished) echo 'BDB0060 write: No space left on device' >&2; exit 228;; esac; exit 0)");
        h.info.architectures = "i386"_s;
        QCOMPARE(h.change(h.at("moved")), RepoEnums::ERROR);
        QVERIFY(h.complains("No space left on device"_s, 2));
        QVERIFY(h.shell.path() == h.repoPath() && h.holds("foo 1.0 main amd64"_s));
        // Nothing is dropped that has not arrived under the new code name, nor what has lain there before.
        const QString foreign = h.repoPath() + "/dists/aspen/keep"_s;
        writeFile(foreign, "x");
        reprepro.set("case \"$*\" in *copymatched*) exit 0;; esac");
        h.info.architectures = "amd64"_s;
        h.info.codename = "aspen"_s;
        QCOMPARE(h.change(h.repoPath(), true), RepoEnums::ERROR);
        QVERIFY(h.complains("1 package(s) did not arrive"_s) && h.holds("foo 1.0 main amd64"_s));
        QVERIFY(QFile::exists(foreign));
        QCOMPARE(h.change("/proc"_s), RepoEnums::ERROR);
        QVERIFY(h.complains("root of a disk"_s));
    }

    void changeGivesUpSigning()
    {
        VELT_NEED_TOOL("gpg");
        RepoHarness h;
        h.info.signWith = true; // and this home has no key at all
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.complains("Failed to sign repository!|"_s));
        QVERIFY(!h.shell.repoInfo().signWith);
        QVERIFY(!readFile(h.repoPath() + "/conf/distributions"_s).contains("SignWith"));
    }

    void oddPathsWork()
    {
        for (const QString &name :
             {"my  repo"_s, "100%1%2 %n"_s, "the \"best\" 'one'"_s, "$(touch x)&;|"_s, "репозиторий"_s}) {
            EngineHarness h;
            QCOMPARE(h.shell.createRepo(h.folder.filePath(name), h.info), int(RepoEnums::SUCCESS));
            h.add({h.deb(DebBuilder("foo"_s).fileName(name + ".deb"_s)),
                   DebBuilder("bar"_s).build(h.folder.filePath(name + "-debs"_s)),
                   h.deb(DebBuilder("baz"_s))});
            QCOMPARE(h.trouble(), QString());
            QVERIFY2(h.listed().size() == 3 && h.settled(), qPrintable(name));
            QCOMPARE(h.shell.packageFilePath("foo"_s, QString(), QString()), h.find("foo"_s)->filePath());
            h.remove(h.shell.packages());
            QVERIFY2(h.holds({}), qPrintable(name));
        }
    }
};

VELT_TEST_MAIN(TestLifecycle, QCoreApplication)
#include "tst_lifecycle.moc"
