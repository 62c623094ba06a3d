// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archiveutils.h"
#include "engine/archive/archivewriter.h"
#include "engine/engineharness.h"
#include "support/fulldisk.h"
#include "support/localapt.h"

#include <cerrno>
#include <optional>

#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString NotExported = "Repository is not exported"_s;

bool canMount()
{
    return ::access("/dev/fuse", R_OK | W_OK) == 0;
}
} // namespace

/** Export and import with the real reprepro and tar, and with archivemount where the machine can mount. */
class TestArchives : public QObject
{
    Q_OBJECT
private:
    static EngineHarness::Code exportTo(EngineHarness *h, const QString &target)
    {
        return h->run([&] { h->shell.exportRepo(target); });
    }
    static EngineHarness::Code importFrom(EngineHarness *h, const QString &source)
    {
        return h->run([&] { h->shell.importRepo(source); });
    }
    /** That there is the archive of before and nothing beside it. */
    static bool isUntouched(const EngineHarness &h)
    {
        return readFile(h.at("out/x.tgz")) == "old"
               && QDir(h.at("out")).entryList(QDir::Files | QDir::Hidden).size() == 1;
    }
    static QString members(const QString &archive)
    {
        return runShell("tar tzf '%1' | LC_ALL=C sort"_s.arg(archive));
    }

private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void repositorySurvives()
    {
        RepoHarness h;
        h.add(h.debs("foo bar"));
        const QString longName = "pool/"_s + QString(90, u'd') + "/"_s + QString(120, u'n') + " ж"_s;
        writeFile(h.repoPath() + "/"_s + longName, "long");
        writeFile(h.repoPath() + "/pool/big.deb"_s, noise(9 << 20));
        writeFile(h.repoPath() + "/pool/big.txt"_s, QByteArray(9 << 20, 'x') + noise(3 << 20));
        writeFile(h.repoPath() + "/db/lockfile"_s, {});
        writeFile(h.at("elsewhere/in"), "outside");
        runShell(
            "touch .hidden empty; chmod 4751 empty; touch -d @1000000000 empty; ln -s empty link; ln -s no "
            "dangling; ln -s ../elsewhere/in outfile; ln -s ../elsewhere outdir; mkfifo pipe; "
            "ln -s ../elsewhere ../elsewhere/circle"_s,
            h.repoPath());
        const QString target = h.at("out/x.tgz");
        writeFile(target, "old");
        QCOMPARE(exportTo(&h, target), RepoEnums::SUCCESS);
        QCOMPARE(h.words(), "Exporting repository|Repository exported."_s);
        QCOMPARE(QDir(h.at("out")).entryList(QDir::Files | QDir::Hidden).size(), 1);
        const int count = members(target).count(u'\n');
        QCOMPARE(h.ranges, (QVector<int>{0, count}));
        QCOMPARE(h.steps.last(), count);

        // What tar unpacks is what was there, but for links to elsewhere, which became what they stand for.
        const QString copy = h.at("copy");
        runShell("gzip -t '%1'; mkdir '%2'; tar xzpf '%1' -C '%2' 2>&1 | (! grep .)"_s.arg(target, copy));
        QVERIFY(!QFile::exists(copy + "/db/lockfile"_s));
        QCOMPARE(readFile(copy + "/outfile"_s), QByteArray("outside"));
        QVERIFY(!QFileInfo(copy + "/outfile"_s).isSymLink());
        QCOMPARE(readFile(copy + "/outdir/in"_s), QByteArray("outside"));
        runShell(
            "rm -rf outfile outdir db/lockfile db/velt-admin-repo.history pipe ../copy/outfile "
            "../copy/outdir; cd ..; diff -r "
            "--no-dereference repo copy; list() { find . ! -type d -printf '%p %m %s %Ts %l\\n' | sort; }; "
            "diff <(cd repo; list) <(cd copy; list)"_s,
            h.repoPath());
        EngineHarness restored;
        QCOMPARE(restored.open(copy), RepoEnums::SUCCESS);
        QCOMPARE(restored.trouble(), QString());
        QCOMPARE(restored.listed(), h.listed());
        QVERIFY(restored.reprepro({"check"_s}).succeeded() && restored.reprepro({"checkpool"_s}).succeeded());
    }

    /** What links of others lead to could be what only the exporter may read. */
    void linksOfOthers()
    {
        if (::geteuid() != 0)
            QSKIP("only root can give links to somebody else");
        RepoHarness h;
        h.add(h.debs("foo bar"));
        runShell("mkdir -p ../secret/.ssh; echo private >../secret/.ssh/id; ln -s ../secret/.ssh own; "
                 "for i in {1..12}; do ln -s ../secret/.ssh f$i; done; ln -s \"$PWD/f1/id\" through; ln -s "
                 "conf inside; mv pool/main/f/foo/*.deb ../secret; ln -s $PWD/../secret/foo*.deb "
                 "pool/main/f/foo; mv pool/main/b ../secret; ln -s ../../../secret/b pool/main; "
                 "chown -h 65534 f* inside pool/main/f/foo/*"_s,
                 h.repoPath());
        const QString target = h.at("x.tgz");
        QCOMPARE(exportTo(&h, target), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Repository exported."_s);
        const QString packed = members(target);
        QVERIFY2(packed.contains("own/id\n"_s) && packed.contains("inside\n"_s)
                     && packed.contains("b/bar/bar_1.0_amd64.deb\n"_s),
                 qPrintable(packed));
        QVERIFY2(
            !packed.contains(QRegularExpression("^f\\d|foo_|through"_s, QRegularExpression::MultilineOption)),
            qPrintable(packed));
        QCOMPARE(runShell("tar xzf '%1' -O | grep -c private"_s.arg(target)), "1\n"_s);
        QVERIFY2(h.criticals.size() == 1 && h.trouble().startsWith("14 link"_s)
                     && h.trouble().contains("f1\n"_s) && h.trouble().endsWith(QChar(0x2026)),
                 qPrintable(h.trouble()));
        QCOMPARE(h.notes.size(), 14);

        const auto exportThese = [&](const QList<PackageInfoPtr> &packages) {
            return h.run([&] { h.shell.exportPackages(packages, target, false); });
        };
        QCOMPARE(exportThese({h.find("foo"_s), h.find("bar"_s)}), RepoEnums::SUCCESS);
        QCOMPARE(members(target), "bar_1.0_amd64.deb\n"_s);
        QVERIFY(h.complains("pool/main/f/foo/foo_1.0_amd64.deb"_s));
        // An archive of nothing does not take the place of the older one.
        QCOMPARE(exportThese({h.find("foo"_s)}), RepoEnums::ERROR);
        QCOMPARE(members(target), "bar_1.0_amd64.deb\n"_s);
    }

    /** What is read is what was judged, and nobody else reads what is not whole. */
    void archiveIsPrivateUntilWhole()
    {
        const QTemporaryDir folder;
        const QString target = folder.filePath("x.tgz"_s);
        runShell("mkdir in out; echo inside >in/f; echo outside >out/f; mkfifo pipe"_s, folder.path());
        struct stat judged = {};
        QCOMPARE(::stat(QFile::encodeName(folder.filePath("in/f"_s)).constData(), &judged), 0);
        const FileId id{judged.st_dev, judged.st_ino};
        const mode_t usual = ::umask(027);
        const auto restore = qScopeGuard([usual] { ::umask(usual); });
        for (const bool isChanged : {false, true}) {
            ArchiveWriter writer(target, {});
            QVERIFY(writer.open());
            // It has no name yet, but its descriptor can be seen.
            QStringList modes;
            for (int number = 3; number < 64; ++number) {
                struct stat status = {};
                const QString link = QFileInfo("/proc/self/fd/%1"_s.arg(number)).symLinkTarget();
                if (link.startsWith(folder.path()) && ::fstat(number, &status) == 0
                    && S_ISREG(status.st_mode))
                    modes.append(QString::number(status.st_mode & 0777, 8));
            }
            QCOMPARE(modes, "600"_list);
            if (isChanged)
                runShell("mv in in.old; ln -s out in"_s, folder.path());
            const auto result = writer.add(folder.filePath("in/f"_s), "f"_s, id);
            QVERIFY(result == (isChanged ? ArchiveWriter::Result::Failed : ArchiveWriter::Result::Added));
            if (isChanged)
                continue;
            QVERIFY(writer.commit());
            QCOMPARE(QFileInfo(target).permissions() & QFile::Permissions(0x0fff),
                     QFile::Permissions(0x0640));
        }
        ArchiveWriter writer(target, {});
        QVERIFY(writer.open()
                && writer.add(folder.filePath("pipe"_s), "p"_s) == ArchiveWriter::Result::Failed);
    }

    void emptyRepository()
    {
        RepoHarness h;
        const QString target = h.at("out.tgz");
        runShell("rm -rf *"_s, h.repoPath());
        QCOMPARE(exportTo(&h, target), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Repository exported."_s);
        QCOMPARE(members(target), QString());
        QDir(h.repoPath()).removeRecursively();
        QCOMPARE(exportTo(&h, target), RepoEnums::ERROR);
        QVERIFY(h.complains("Can't open repository dir|"_s));
        QCOMPARE(h.lastMessage(), NotExported);
    }

    /** Whatever goes wrong, the older archive stays and nothing lies beside it. */
    void olderArchiveStays()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        writeFile(h.at("out/x.tgz"), "old");
        const QByteArray description = readFile(h.repoPath() + "/conf/distributions"_s);
        struct Case
        {
            const char *target; ///< in the harness's folder
            const char *before; ///< script, in the repository
            const char *says;
        };
        // The disk is full, a file is too large, and places where no archive may or can be.
        for (const Case &c :
             {Case{"repo/conf/distributions", "", "lies in the repository"},
              Case{"way/x.tgz", "ln -s repo ../way", "lies in the repository"},
              Case{"none/x.tgz", "", "No such file"},
              Case{"out", "", "directory"},
              Case{"out/x.tgz", "head -c 5000000 /dev/urandom >pool/big.deb", "x.tgz: "},
              Case{"out/x.tgz", "rm pool/big.deb; truncate -s 9G pool/huge.txt", "huge.txt: It is larger"}}) {
            runShell(QLatin1String(c.before), h.repoPath());
            std::optional<FullDisk> full(3 << 20);
            const auto code = exportTo(&h, h.folder.filePath(QLatin1String(c.target)));
            full.reset();
            QCOMPARE(code, RepoEnums::ERROR);
            QCOMPARE(h.lastMessage(), NotExported);
            QCOMPARE(h.criticals.size(), 1);
            QVERIFY2(h.trouble().startsWith("Can't create archive for export|"_s)
                         && h.trouble().contains(QLatin1String(c.says)),
                     qPrintable(h.trouble()));
            QVERIFY(isUntouched(h));
            QCOMPARE(readFile(h.repoPath() + "/conf/distributions"_s), description);
        }
    }

    void packagesWithDependencies()
    {
        RepoHarness h("amd64 i386"_s);
        DebBuilder app("app"_s);
        DebBuilder udeb("foo"_s);
        h.add(h.debs("foo bar other")
              + QStringList{h.deb(app.field("Depends"_s, "foo (>= 9) | other, lib, nowhere"_s)),
                            h.deb(DebBuilder("lib"_s).architecture("all"_s).field("Depends"_s, "bar, app"_s)),
                            h.deb(udeb.udeb().contents("installer"))});
        QCOMPARE(h.trouble(), QString());
        const QString target = h.at("x.tgz");
        const auto exportThese = [&](const QList<PackageInfoPtr> &packages, bool withDepends) {
            return h.run([&] { h.shell.exportPackages(packages, target, withDepends); });
        };
        QCOMPARE(exportThese({h.find("app"_s)}, true), RepoEnums::SUCCESS);
        QCOMPARE(h.started + h.finished, "Exporting package|Export finished"_list);
        QCOMPARE(members(target),
                 "app_1.0_amd64.deb\nbar_1.0_amd64.deb\nfoo_1.0_amd64.deb\nlib_1.0_all.deb\n"
                 "missing-dependencies.txt\n"_s);
        QCOMPARE(exportThese(h.shell.packages(), false), RepoEnums::SUCCESS);
        QCOMPARE(h.started, "Exporting packages"_list);
        // lib is there for two architectures with one file.
        QCOMPARE(members(target),
                 "app_1.0_amd64.deb\nbar_1.0_amd64.deb\nfoo_1.0_amd64.deb\nfoo_1.0_amd64.udeb\n"
                 "lib_1.0_all.deb\nother_1.0_amd64.deb\n"_s);
        for (const PackageInfoPtr &package : h.shell.packages()) {
            QCOMPARE(exportThese({package}, false), RepoEnums::SUCCESS);
            QCOMPARE(members(target), package->fileName() + u'\n');
            runShell("tar xzf '%1' -O | cmp - '%2'"_s.arg(target, package->filePath()));
        }

        // Different packages of one file name both get in.
        h.add({h.deb(DebBuilder("bar"_s).contents("other"))}, {"contrib"_s, false, QString()});
        QCOMPARE(exportThese(h.shell.packages(), false), RepoEnums::SUCCESS);
        QVERIFY(members(target).contains("\nbar_1.0_amd64.deb\ncontrib/bar_1.0_amd64.deb\n"_s));

        // A file that another program has taken away is named, and the archive before stays.
        const QByteArray before = readFile(target);
        QFile::remove(h.find("foo"_s)->filePath());
        QCOMPARE(exportThese({h.find("bar"_s), h.find("foo"_s)}, false), RepoEnums::ERROR);
        QVERIFY(h.trouble().contains("foo_1.0_amd64."_s) && h.lastMessage() == NotExported);
        QCOMPARE(readFile(target), before);
    }

    /** What installs from the archive alone is what the list does not name, as apt sees it. */
    void missingDependencies()
    {
        RepoHarness h("amd64 i386"_s);
        const auto build = [&h](const QString &name, const QString &depends) {
            return h.deb(DebBuilder(name).field("Depends"_s, depends));
        };
        h.add({build("app"_s, "old (>= 9) | other, lib, gate, nowhere, mta"_s),
               build("mail"_s, "libx"_s),
               h.deb(DebBuilder("lib"_s).architecture("all"_s).field("Pre-Depends"_s, "libx (>= 2)"_s)),
               h.deb(DebBuilder("gate"_s).field("Provides"_s, "mta"_s)),
               h.debs("old").first(),
               h.debs("other").first()});
        QCOMPARE(h.trouble(), QString());
        const QString target = h.at("x.tgz");
        const auto exportThese = [&](const QList<PackageInfoPtr> &packages, bool withDepends) {
            return h.run([&] { h.shell.exportPackages(packages, target, withDepends); });
        };
        const auto list = [&] { return runShell("tar xzf '%1' -O missing-dependencies.txt"_s.arg(target)); };
        QCOMPARE(exportThese({h.find("app"_s)}, true), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Export finished"_s);
        QVERIFY2(h.complains("3 dependenc"_s) && h.complains(target), qPrintable(h.trouble()));
        QCOMPARE(h.trouble().section(u'|', 1), "libx (>= 2): lib\nnowhere: app\nold (>= 9) | other: app"_s);
        QVERIFY(list().endsWith("\n\nlibx (>= 2): lib\nnowhere: app\nold (>= 9) | other: app\n"_s));

        // apt, which has nothing but the archive, misses the same.
        const QString root = h.at("apt");
        runShell("mkdir -p '%2/source/pool'; tar xzf '%1' -C '%2/source/pool'"_s.arg(target, root));
        const LocalApt apt(root, {"source"_s});
        QCOMPARE(runShell("apt-cache unmet | sed -n 's/.*Depends: //p' | LC_ALL=C sort"_s),
                 "libx (>= 2)\nnowhere\nold (>= 9) | other\n"_s);

        // What the archive is said to lack is no package of it.
        RepoHarness into("amd64 i386"_s);
        if (canMount()) {
            QCOMPARE(importFrom(&into, target), RepoEnums::SUCCESS);
            QCOMPARE(into.trouble(), QString());
            QCOMPARE(into.lastMessage(), "4 package(s) imported"_s);
        }

        // Without dependencies nobody asked for them, and an archive that lacks nothing has nothing to list.
        QCOMPARE(exportThese({h.find("app"_s)}, false), RepoEnums::SUCCESS);
        QVERIFY(h.trouble().isEmpty() && !members(target).contains("missing"_s));
        QCOMPARE(exportThese({h.find("gate"_s)}, true), RepoEnums::SUCCESS);
        QVERIFY(h.trouble().isEmpty() && !members(target).contains("missing"_s));

        // The message names some, the list all.
        QStringList wanted;
        for (int i = 0; i < 30; ++i)
            wanted << "need%1"_s.arg(i, 2, 10, QLatin1Char('0'));
        QStringList files;
        for (const char *name : {"a", "b", "c", "d", "e", "f", "g"})
            files << build(QLatin1String(name), wanted.join(QLatin1String(", ")));
        h.add(files);
        QCOMPARE(exportThese(h.shell.packages(), true), RepoEnums::SUCCESS);
        QVERIFY2(h.complains("need07: a, b, c, d, e, \u2026\n"_s) && !h.trouble().contains("need08"_s)
                     && h.trouble().endsWith(QChar(0x2026)),
                 qPrintable(h.trouble()));
        QVERIFY2(list().contains("need29: a, b, c, d, e, f, g\n"_s), qPrintable(list()));
    }

    void stopInALargeFile()
    {
        RepoHarness h;
        const QString target = h.at("out/x.tgz");
        writeFile(target, "old");
        int asked = 0;
        ArchiveWriter writer(target, [&asked] { return ++asked > 3; });
        QVERIFY(writer.open());
        const auto add = [&](const char *name) {
            return writer.add(h.folder.filePath(QLatin1String(name)), QLatin1String(name));
        };
        for (const char *name : {"a.txt", "b.deb", "c.txt", "d.deb"}) {
            writeFile(h.folder.filePath(QLatin1String(name)), *name == 'a' ? "a" : noise(3 << 20));
            QVERIFY(add(name) == ArchiveWriter::Result::Added);
        }
        runShell("truncate -s 20M large"_s, h.folder.path());
        QVERIFY(add("large") == ArchiveWriter::Result::Stopped);
        QCOMPARE(asked, 4);
        QCOMPARE(readFile(target), QByteArray("old"));
        QVERIFY(writer.commit());
        QCOMPARE(
            runShell("tar tzf '%1'; tar xzf '%1' -O | cmp - <(cat a.txt b.deb c.txt d.deb)"_s.arg(target),
                     h.folder.path()),
            "a.txt\nb.deb\nc.txt\nd.deb\n"_s);
    }

    void stoppedExports()
    {
        RepoHarness h;
        h.add(h.debs("a b c"));
        const QString target = h.at("out/x.tgz");
        writeFile(target, "old");
        // The start text comes before the first file.
        const auto early = h.cancelAt(&RepoShell::started);
        QCOMPARE(exportTo(&h, target), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Repository not exported."_s);
        QCOMPARE(h.run([&] { h.shell.exportPackages({h.find("a"_s)}, target, false); }), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Package not exported."_s);
        disconnect(early);
        QVERIFY(isUntouched(h));
        h.cancelAt(&RepoShell::progressStepChanged, 3);
        QCOMPARE(h.run([&] { h.shell.exportPackages(h.shell.packages(), target, false); }),
                 RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Packages not exported."_s);
        QCOMPARE(members(target), "a_1.0_amd64.deb\nb_1.0_amd64.deb\n"_s);
    }

    void fromArchive()
    {
        VELT_NEED_TOOL("archivemount");
        if (!canMount())
            QSKIP("this machine cannot mount archives");
        RepoHarness source;
        source.add(source.debs("a b c"));
        const QString archive = source.at("x y.tgz");
        exportTo(&source, archive);
        RepoHarness h;
        h.add(h.debs("b", "0.5"));
        h.choice = PackageReplacementRules::KeepThis;
        QCOMPARE(importFrom(&h, archive), RepoEnums::SUCCESS);
        QCOMPARE(h.words(), "Start repo import|2 package(s) imported"_s);
        QCOMPARE(h.collisions, QVector<RepoEnums::ErrorCode>{RepoEnums::PACKAGE_EXISTS_OLD_VERSION});
        QVERIFY(h.settled() && h.listed().size() == 3);
        QVERIFY(!readFile("/proc/self/mountinfo"_s).contains("importTempDir"));
        QVERIFY2(!QFileInfo::exists(ArchiveUtils().mountPoint()), "nothing stays in another user's way");
        QCOMPARE(QDir(QDir::tempPath()).entryList({"velt-admin-repo-work-*"_s}), QStringList());

        // A damaged archive is found out before anything is added, and what a kill left mounted is no obstacle.
        runShell("mkdir -p %2; archivemount '%1' %2"_s.arg(archive, ArchiveUtils().mountPoint()));
        const QStringList before = h.listed();
        runShell("head -c -20 '%1' >'%1.cut'"_s.arg(archive));
        QCOMPARE(importFrom(&h, archive + ".cut"_s), RepoEnums::ERROR);
        QCOMPARE(h.trouble(), "Can't open archive for import!|The archive is damaged: its end is missing."_s);
        QCOMPARE(h.lastMessage(), "Import error!"_s);
        QVERIFY(h.listed() == before && h.settled());
        QVERIFY(!readFile("/proc/self/mountinfo"_s).contains("importTempDir"));
    }

    void tooLittleRoomToUnpack()
    {
        VELT_NEED_TOOL("archivemount");
        RepoHarness h;
        const QString small = h.at("small");
        const QByteArray mount = small.toLocal8Bit();
        QDir().mkpath(small);
        if (!canMount() || ::geteuid() != 0
            || ::mount("tmpfs", mount.constData(), "tmpfs", 0, "size=6m") != 0)
            QSKIP("mounting archives and a small file system needs root");
        const auto unmount = qScopeGuard([&] { ::umount(mount.constData()); });
        const QByteArray contents = noise(2500000).toHex();
        const QString archive = h.at("x.tgz");
        runShell("tar czf '%1' -C '%2' ."_s.arg(
            archive, QFileInfo(h.debs("large", "1.0", contents.constData()).first()).path()));
        const ScopedVariable temporary("TMPDIR", small);
        // What a killed import has left goes when the repository is opened.
        const QStringList left{h.at("velt-admin-repo-work-ab"), h.repoPath() + "/velt-admin-repo-work-cd"_s};
        for (const QString &folder : left)
            QVERIFY(QDir().mkdir(folder));
        h.open(h.repoPath());
        QVERIFY(!QFileInfo::exists(left.at(0)) && !QFileInfo::exists(left.at(1)));

        QCOMPARE(importFrom(&h, archive), RepoEnums::SUCCESS);
        QCOMPARE(h.words(), "Start repo import|1 package(s) imported"_s);
        QVERIFY(h.holds("large 1.0 main amd64"_s));
        QVERIFY(QDir(h.folder.path()).entryList({"velt-admin-repo-work-*"_s}).isEmpty());

        // The repository itself lies on the small disk too.
        EngineHarness other;
        QCOMPARE(other.shell.createRepo(small + "/repo"_s, other.info), int(RepoEnums::SUCCESS));
        QCOMPARE(importFrom(&other, archive), RepoEnums::ERROR);
        QVERIFY(other.complains("its packages need 4."_s) && other.trouble().contains(small + ": 5."_s));
        other.shell.closeRepo();
    }

    /** What is wrong with a package is said of the member of the archive, not of what it was unpacked to. */
    void membersAreNamed()
    {
        VELT_NEED_TOOL("archivemount");
        if (!canMount())
            QSKIP("this machine cannot mount archives");
        RepoHarness h;
        const QString good = h.debs("good").first();
        const QString folder = QFileInfo(good).path();
        writeFile(folder + "/sub/bad.deb"_s, readFile(good).chopped(700));
        const QString links
            = "import tarfile; t = tarfile.open('x.tgz', 'a:'); i = tarfile.TarInfo('l.deb'); "
              "i.type = tarfile.LNKTYPE; i.linkname = 'none.deb'; t.addfile(i); t.close()"_s;
        runShell("tar cf x.tgz *.deb sub; tar cJf x.txz *.deb sub; python3 -c \"%1\""_s.arg(links), folder);
        for (const QString &archive : {"x.tgz"_s, "x.txz"_s}) {
            importFrom(&h, folder + u'/' + archive);
            QVERIFY(h.complains("Error adding package!|"_s + archive + ": sub/bad.deb:\n"_s));
            QVERIFY2(!QString(h.trouble() + h.notes.join(QString())).contains("velt-admin-repo-work"_s),
                     qPrintable(h.trouble()));
            QCOMPARE(h.listed().size(), 1);
            QVERIFY(archive == "x.txz"_s || h.notes.join(QString()).contains("Not added: x.tgz: l.deb"_s));
        }
        // What is mounted then looks as if it were empty.
        runShell("xz -c <x.tgz >l.txz"_s, folder);
        QCOMPARE(importFrom(&h, folder + "/l.txz"_s), RepoEnums::ERROR);
        QVERIFY(h.complains("a link to a file that it lacks"_s));
    }

    void mountTroubles()
    {
        RepoHarness h;
        const QString archive = h.at("x.tgz");
        runShell("tar czf '%1' -C '%2' ."_s.arg(archive, QFileInfo(h.debs("a").first()).path()));
        const QString bin = h.at("bin");
        runShell("mkdir '%1'; for tool in reprepro dpkg dpkg-deb tar rm gzip sh gpg gpgconf stat; do "
                 "ln -s $(type -p $tool) '%1'; done"_s.arg(bin));
        const ScopedVariable path("PATH", bin);
        const auto import = [&](const char *unmount) -> QString {
            writeScript(bin + "/fusermount"_s, QByteArray("#!/bin/sh\nrm -rf \"$2\"/*\n") + unmount);
            importFrom(&h, archive);
            return h.trouble() + u'|' + h.lastMessage();
        };
        QVERIFY(import("").startsWith(
            "Can't open archive for import!|The program archivemount could not be started. Install"_s));
        writeScript(bin + "/archivemount"_s, "#!/bin/sh\necho no fuse >&2; exit 1\n");
        QCOMPARE(import(""), "Can't open archive for import!|no fuse\n|Import error!"_s);
        writeScript(bin + "/archivemount"_s, "#!/bin/sh\ntar xf \"$1\" -C \"$2\"\n");
        QCOMPARE(import("echo busy >&2; exit 1\n"), "Can't umount archive!|busy\n|1 package(s) imported"_s);

        // The place can be another user's.
        if (::geteuid() != 0)
            QSKIP("only root can give a folder to somebody else");
        constexpr const char *Usual = "/tmp/velt-admin-repo";
        constexpr uid_t Nobody = 65534;
        for (const uid_t owner : {::geteuid(), Nobody}) {
            QVERIFY(::mkdir(Usual, 0755) == 0 || errno == EEXIST);
            QCOMPARE(::chown(Usual, owner, owner), 0);
            writeScript(
                bin + "/archivemount"_s,
                "#!/bin/sh\nstat -c '%a %n' \"$2\" \"$2/..\" >\"$1.place\"\ntar xf \"$1\" -C \"$2\"\n");
            QCOMPARE(import(""), "|0 package(s) imported"_s);
            const QStringList place = QString::fromLocal8Bit(readFile(archive + ".place"_s)).split(u'\n');
            QVERIFY(place.at(0).startsWith("700 "_s) && place.at(1).startsWith("700 "_s));
            QCOMPARE(place.at(0).mid(4) == QLatin1String(Usual) + "/importTempDir/"_s, owner == ::geteuid());
            QVERIFY(!QFileInfo::exists(place.at(0).mid(4)));
        }
        ::rmdir(Usual);
    }

    void fromFolder()
    {
        RepoHarness h;
        const QString folder = h.at("in");
        const auto build = [&](const char *name, const char *below) {
            return DebBuilder(QLatin1String(name)).build(folder + QLatin1String(below));
        };
        build("a", "");
        build("b", "/deep/er");
        const QString outside = h.deb(DebBuilder("out"_s));
        QFile::link(outside, folder + "/out_1.0_amd64.deb"_s);
        QFile::link(QFileInfo(outside).path(), folder + "/outside"_s);
        QFile::link(folder, folder + "/circle"_s);
        writeFile(folder + "/c.txt"_s, "no package");
        QCOMPARE(importFrom(&h, folder), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.lastMessage(), "2 package(s) imported"_s);
        QCOMPARE(h.inDatabase(), (QStringList{"dogwood|main|amd64: a 1.0"_s, "dogwood|main|amd64: b 1.0"_s}));

        // The repository's own packages are not offered to it, and a folder without any is told of.
        QCOMPARE(importFrom(&h, h.repoPath()), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), "Import failed: there are no packages by selected path"_s);
        QVERIFY(h.settled());

        h.cancelAt(&RepoShell::started);
        QCOMPARE(importFrom(&h, folder), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Package(s) not imported"_s);
        QVERIFY(h.notes.isEmpty());
    }

    void stoppedImports()
    {
        RepoHarness h;
        h.cancelAt(&RepoShell::packageAdded, 2);
        const QString folder = h.at("in");
        for (const char *name : {"a", "b", "c", "d"})
            DebBuilder(QLatin1String(name)).build(folder);
        QCOMPARE(importFrom(&h, folder), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Package(s) not imported"_s);
        QCOMPARE(h.notes, "2 package(s) had been imported before the stop."_list);
        QVERIFY(h.listed().size() == 2 && h.settled());
    }
};

VELT_TEST_MAIN(TestArchives, QCoreApplication)
#include "tst_archives.moc"
