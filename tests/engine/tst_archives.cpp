// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archiveutils.h"
#include "engine/archivewriter.h"
#include "engineharness.h"

#include <QtTest>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
const QString NotExported = "Repository is not exported"_s;

QString shell(const QString &script, const QString &folder = {})
{
    const ProcessResult result = runProcess({"bash"_s, {"-ec"_s, script}, folder, {}, -1});
    if (!result.succeeded())
        qFatal("%s: %s", qPrintable(script), qPrintable(result.errorOutput));
    return result.output;
}

/** Incompressible, and the same each time. */
QByteArray noise(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 1;
    for (char &byte : bytes)
        byte = static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
    return bytes;
}

/** A stand-in for the mount: unpacks the archive, so that the listing is real, and notes what was called. */
void playMount(const EngineHarness &h, const QByteArray &unmount = "rm -rf \"$2\"/*\n")
{
    const QByteArray head
        = "#!/bin/sh\necho \"${0##*/} $*\" >>'" + h.folder.filePath("runs"_s).toUtf8() + "'\n";
    writeScript(h.folder.filePath("bin/archivemount"_s),
                head + "tar xf \"$1\" -C \"$2\" --no-same-owner 2>/dev/null; [ -e \"$1\" ]\n");
    writeScript(h.folder.filePath("bin/fusermount"_s), head + unmount);
}

/** A program's place on PATH for one test. */
class PathFront
{
public:
    explicit PathFront(const QString &folder) { qputenv("PATH", (folder + ":"_s).toLocal8Bit() + m_path); }
    ~PathFront() { qputenv("PATH", m_path); }
    Q_DISABLE_COPY(PathFront)

private:
    QByteArray m_path = qgetenv("PATH");
};

bool canMount()
{
    return haveTool("archivemount") && ::access("/dev/fuse", R_OK | W_OK) == 0;
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
    static QStringList leftovers(const EngineHarness &h)
    {
        return QDir(h.folder.filePath("out"_s))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void repositorySurvives()
    {
        RepoHarness h;
        h.add(h.debs("foo bar"));
        const QString longName
            = "pool/"_s + QString(90, QLatin1Char('d')) + "/"_s + QString(120, QLatin1Char('n')) + " ж"_s;
        writeFile(h.repoPath() + "/"_s + longName, "long");
        writeFile(h.repoPath() + "/pool/big.deb"_s, noise(9 << 20));
        writeFile(h.repoPath() + "/pool/big.txt"_s, QByteArray(9 << 20, 'x') + noise(3 << 20));
        writeFile(h.repoPath() + "/db/lockfile"_s, {});
        writeFile(h.folder.filePath("elsewhere/in"_s), "outside");
        shell("touch .hidden empty; chmod 4751 empty; touch -d @1000000000 empty; ln -s empty link; ln -s no "
              "dangling; "
              "ln -s ../elsewhere/in outfile; ln -s ../elsewhere outdir; mkfifo pipe; "
              "ln -s ../elsewhere ../elsewhere/circle"_s,
              h.repoPath());
        const QString target = h.folder.filePath("out/x.tgz"_s);
        writeFile(target, "old");
        QCOMPARE(exportTo(&h, target), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.started, QStringList{"Exporting repository"_s});
        QCOMPARE(h.lastMessage(), "Repository exported."_s);
        QCOMPARE(leftovers(h), QStringList{"x.tgz"_s});
        const int count = shell("tar tzf '%1'"_s.arg(target)).count(QLatin1Char('\n'));
        QCOMPARE(h.ranges, (QVector<int>{0, count}));
        QCOMPARE(h.steps.last(), count);

        // What tar unpacks is what was there, but for links to elsewhere, which became what they stand for.
        const QString copy = h.folder.filePath("copy"_s);
        shell("gzip -t '%1'; mkdir '%2'; tar xzpf '%1' -C '%2' 2>&1 | (! grep .)"_s.arg(target, copy));
        QVERIFY(!QFile::exists(copy + "/db/lockfile"_s));
        QCOMPARE(readFile(copy + "/outfile"_s), QByteArray("outside"));
        QVERIFY(!QFileInfo(copy + "/outfile"_s).isSymLink());
        QCOMPARE(readFile(copy + "/outdir/in"_s), QByteArray("outside"));
        shell("rm -rf outfile outdir db/lockfile pipe ../copy/outfile ../copy/outdir; cd ..; diff -r "
              "--no-dereference "
              "repo copy; list() { find . ! -type d -printf '%p %m %s %Ts %l\\n' | sort; }; "
              "diff <(cd repo; list) <(cd copy; list)"_s,
              h.repoPath());
        EngineHarness restored;
        QCOMPARE(restored.open(copy), RepoEnums::SUCCESS);
        QCOMPARE(restored.trouble(), QString());
        QCOMPARE(restored.listed(), h.listed());
        QVERIFY(restored.reprepro({"check"_s}).succeeded() && restored.reprepro({"checkpool"_s}).succeeded());
    }

    void emptyRepository()
    {
        RepoHarness h;
        const QString target = h.folder.filePath("out.tgz"_s);
        shell("rm -rf *"_s, h.repoPath());
        QCOMPARE(exportTo(&h, target), RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Repository exported."_s);
        QCOMPARE(shell("tar tzf '%1'"_s.arg(target)), QString());
        QDir(h.repoPath()).removeRecursively();
        QCOMPARE(exportTo(&h, target), RepoEnums::ERROR);
        QVERIFY(h.trouble().startsWith("Can't open repository dir|"_s));
        QCOMPARE(h.lastMessage(), NotExported);
    }

    /** Whatever goes wrong, the older archive stays and nothing lies beside it. */
    void olderArchiveStays_data()
    {
        QTest::addColumn<QString>("target"); // in the harness's folder
        QTest::addColumn<QString>("before"); // script, in the repository
        QTest::addColumn<QString>("says");
        const QString full = "out/x.tgz"_s;
        QTest::newRow("disk full") << full << "head -c 5000000 /dev/urandom >pool/big.deb"_s
                                   << "x.tgz: "_s;
        QTest::newRow("too large") << full << "truncate -s 9G pool/huge.txt"_s
                                   << "huge.txt: It is larger"_s;
        QTest::newRow("in the repository")
            << "repo/conf/distributions"_s << QString() << "lies in the repository"_s;
        QTest::newRow("in it through a link") << "way/x.tgz"_s
                                              << "ln -s repo ../way"_s
                                              << "lies in the repository"_s;
        QTest::newRow("no folder") << "none/x.tgz"_s << QString() << "No such file"_s;
        QTest::newRow("a folder") << "out"_s << QString() << "directory"_s;
    }
    void olderArchiveStays()
    {
        QFETCH(QString, target);
        QFETCH(QString, before);
        QFETCH(QString, says);
        RepoHarness h;
        h.add(h.debs("foo"));
        writeFile(h.folder.filePath("out/x.tgz"_s), "old");
        shell(before, h.repoPath());
        const QByteArray description = readFile(h.repoPath() + "/conf/distributions"_s);
        struct rlimit limit = {};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        const auto restore = qScopeGuard([limit] { ::setrlimit(RLIMIT_FSIZE, &limit); });
        std::signal(SIGXFSZ, SIG_IGN);
        const struct rlimit small = {3 << 20, limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        QCOMPARE(exportTo(&h, h.folder.filePath(target)), RepoEnums::ERROR);
        QCOMPARE(h.lastMessage(), NotExported);
        QCOMPARE(h.criticals.size(), 1);
        QVERIFY2(h.trouble().startsWith("Can't create archive for export|"_s) && h.trouble().contains(says),
                 qPrintable(h.trouble()));
        QCOMPARE(readFile(h.folder.filePath("out/x.tgz"_s)), QByteArray("old"));
        QCOMPARE(leftovers(h), QStringList{"x.tgz"_s});
        QCOMPARE(readFile(h.repoPath() + "/conf/distributions"_s), description);
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
        const QString target = h.folder.filePath("x.tgz"_s);
        const auto members = [&] {
            QStringList names
                = shell("tar tzf '%1'"_s.arg(target)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            names.sort();
            return names;
        };
        const auto exportThese = [&](const QList<PackageInfoPtr> &packages, bool withDepends) {
            return h.run([&] { h.shell.exportPackages(packages, target, withDepends); });
        };
        QCOMPARE(exportThese({h.find("app"_s)}, true), RepoEnums::SUCCESS);
        QCOMPARE(h.started, QStringList{"Exporting package"_s});
        QCOMPARE(h.lastMessage(), "Export finished"_s);
        const QStringList closure{
            "app_1.0_amd64.deb"_s, "bar_1.0_amd64.deb"_s, "foo_1.0_amd64.deb"_s, "lib_1.0_all.deb"_s};
        QCOMPARE(members(), closure);
        QCOMPARE(exportThese(h.shell.packages(), false), RepoEnums::SUCCESS);
        QCOMPARE(h.started, QStringList{"Exporting packages"_s});
        // lib is there for two architectures with one file.
        QStringList all = closure + QStringList{"other_1.0_amd64.deb"_s, "foo_1.0_amd64.udeb"_s};
        all.sort();
        QCOMPARE(members(), all);
        for (const PackageInfoPtr &package : h.shell.packages()) {
            QCOMPARE(exportThese({package}, false), RepoEnums::SUCCESS);
            QCOMPARE(members(), QStringList{package->fileName()});
            shell("tar xzf '%1' -O | cmp - '%2'"_s.arg(target, package->filePath()));
        }

        // Different packages of one file name both get in.
        h.add({h.deb(DebBuilder("bar"_s).contents("other"))}, {"contrib"_s, false, QString()});
        QCOMPARE(exportThese(h.shell.packages(), false), RepoEnums::SUCCESS);
        QVERIFY(members().contains("contrib/bar_1.0_amd64.deb"_s)
                && members().contains("bar_1.0_amd64.deb"_s));

        // A file that another program has taken away is named, and the archive before stays.
        const QByteArray before = readFile(target);
        QFile::remove(h.find("foo"_s)->filePath());
        QCOMPARE(exportThese({h.find("bar"_s), h.find("foo"_s)}, false), RepoEnums::ERROR);
        QVERIFY(h.trouble().contains("foo_1.0_amd64."_s) && h.lastMessage() == NotExported);
        QCOMPARE(readFile(target), before);
    }

    void stopInALargeFile()
    {
        RepoHarness h;
        const QString target = h.folder.filePath("out/x.tgz"_s);
        writeFile(target, "old");
        int asked = 0;
        ArchiveWriter writer(target, [&asked] { return ++asked > 3; });
        QVERIFY(writer.open());
        for (const char *name : {"a.txt", "b.deb", "c.txt", "d.deb"})
            writeFile(h.folder.filePath(QLatin1String(name)),
                      QLatin1String(name) == "a.txt"_s ? "a" : noise(3 << 20));
        shell("truncate -s 20M large"_s, h.folder.path());
        const auto add = [&](const char *name) {
            return writer.add(h.folder.filePath(QLatin1String(name)), QLatin1String(name));
        };
        for (const char *name : {"a.txt", "b.deb", "c.txt", "d.deb"})
            QVERIFY(add(name) == ArchiveWriter::Result::Added);
        QVERIFY(add("large") == ArchiveWriter::Result::Stopped);
        QCOMPARE(asked, 4);
        QCOMPARE(readFile(target), QByteArray("old"));
        QVERIFY(writer.commit());
        QCOMPARE(shell("tar tzf '%1'; tar xzf '%1' -O | cmp - <(cat a.txt b.deb c.txt d.deb)"_s.arg(target),
                       h.folder.path()),
                 "a.txt\nb.deb\nc.txt\nd.deb\n"_s);
    }

    void stoppedExports()
    {
        RepoHarness h;
        h.add(h.debs("a b c"));
        const QString target = h.folder.filePath("out/x.tgz"_s);
        writeFile(target, "old");
        const auto stop = [&h] { h.shell.cancel(); };
        // The start text comes before the first file, from the job's own thread.
        QMetaObject::Connection early
            = connect(&h.shell, &RepoShell::started, this, stop, Qt::DirectConnection);
        QCOMPARE(exportTo(&h, target), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Repository not exported."_s);
        QCOMPARE(h.run([&] { h.shell.exportPackages({h.find("a"_s)}, target, false); }), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Package not exported."_s);
        disconnect(early);
        QCOMPARE(readFile(target), QByteArray("old"));
        QCOMPARE(leftovers(h), QStringList{"x.tgz"_s});
        connect(
            &h.shell,
            &RepoShell::progressStepChanged,
            this,
            [&h](int step) {
                if (step == 2)
                    h.shell.cancel();
            },
            Qt::DirectConnection);
        QCOMPARE(h.run([&] { h.shell.exportPackages(h.shell.packages(), target, false); }),
                 RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. Packages not exported."_s);
        QCOMPARE(shell("tar tzf '%1'"_s.arg(target)), "a_1.0_amd64.deb\nb_1.0_amd64.deb\n"_s);
    }

    void fromArchive_data()
    {
        QTest::addColumn<bool>("real");
        QTest::newRow("played mount") << false;
        QTest::newRow("real mount") << true;
    }
    void fromArchive()
    {
        QFETCH(bool, real);
        if (real && !canMount())
            QSKIP("this machine cannot mount archives");
        RepoHarness source;
        source.add(source.debs("a b c"));
        const QString archive = source.folder.filePath("x y.tgz"_s);
        exportTo(&source, archive);
        RepoHarness h;
        playMount(h);
        const PathFront front(real ? "/usr/bin"_s : h.folder.filePath("bin"_s));
        h.add(h.debs("b", "0.5"));
        h.choice = PackageReplacementRules::KeepThis;
        QCOMPARE(importFrom(&h, archive), RepoEnums::SUCCESS);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.started, QStringList{"Start repo import"_s});
        QCOMPARE(h.lastMessage(), "2 package(s) imported"_s);
        QCOMPARE(h.collisions, QVector<RepoEnums::ErrorCode>{RepoEnums::PACKAGE_EXISTS_OLD_VERSION});
        QVERIFY(h.settled() && h.listed().size() == 3);
        QVERIFY(!readFile("/proc/self/mountinfo"_s).contains("importTempDir"));
        if (!real)
            QCOMPARE(QString::fromUtf8(readFile(h.folder.filePath("runs"_s))),
                     "archivemount %1 %2\nfusermount -u %2\n"_s.arg(archive, ArchiveUtils::mountPoint()));
        QCOMPARE(QFileInfo("/tmp/velt-admin-repo"_s).permissions() & QFile::Permissions(0x0077),
                 QFile::Permissions());
        QCOMPARE(QDir(QDir::tempPath()).entryList({"velt-admin-repo-work-*"_s}), QStringList());

        // A damaged archive is found out before anything is added, and what a kill left mounted is no obstacle.
        if (real)
            shell("archivemount '%1' %2"_s.arg(archive, ArchiveUtils::mountPoint()));
        const QStringList before = h.listed();
        shell("head -c -20 '%1' >'%1.cut'"_s.arg(archive));
        QCOMPARE(importFrom(&h, archive + ".cut"_s), RepoEnums::ERROR);
        QCOMPARE(h.trouble(), "Can't open archive for import!|The archive is damaged: its end is missing."_s);
        QCOMPARE(h.lastMessage(), "Import error!"_s);
        QVERIFY(h.listed() == before && h.settled());
        QVERIFY(!readFile("/proc/self/mountinfo"_s).contains("importTempDir"));
    }

    void mountTroubles_data()
    {
        QTest::addColumn<QByteArray>("mount");
        QTest::addColumn<QByteArray>("unmount");
        QTest::addColumn<QString>("trouble"); // how each critical begins
        QTest::addColumn<QString>("message");
        const QByteArray good = "#!/bin/sh\ntar xf \"$1\" -C \"$2\"\n";
        const QByteArray goodEnd = "#!/bin/sh\nrm -rf \"$2\"/*\n";
        const QString cannot = "Can't open archive for import!|"_s;
        QTest::newRow("refused") << QByteArray("#!/bin/sh\necho no fuse >&2; exit 1\n") << goodEnd
                                 << cannot + "no fuse"_s
                                 << "Import error!"_s;
        QTest::newRow("no program")
            << QByteArray() << goodEnd
            << cannot + "The program archivemount could not be started. Install the package archivemount."_s
            << "Import error!"_s;
        QTest::newRow("busy") << good << QByteArray("#!/bin/sh\nrm -rf \"$2\"/*; echo busy >&2; exit 1\n")
                              << "Can't umount archive!|busy"_s
                              << "1 package(s) imported"_s;
    }
    void mountTroubles()
    {
        QFETCH(QByteArray, mount);
        QFETCH(QByteArray, unmount);
        QFETCH(QString, trouble);
        QFETCH(QString, message);
        RepoHarness h;
        const QString archive = h.folder.filePath("x.tgz"_s);
        shell("tar czf '%1' -C '%2' ."_s.arg(archive, QFileInfo(h.debs("a").first()).path()));
        const QString bin = h.folder.filePath("bin"_s);
        for (const QString &tool : {"reprepro"_s,
                                    "dpkg"_s,
                                    "dpkg-deb"_s,
                                    "tar"_s,
                                    "rm"_s,
                                    "gzip"_s,
                                    "sh"_s,
                                    "gpg"_s,
                                    "gpgconf"_s}) {
            QDir().mkpath(bin);
            QFile::link(QStandardPaths::findExecutable(tool), bin + "/"_s + tool);
        }
        if (!mount.isEmpty())
            writeScript(bin + "/archivemount"_s, mount);
        writeScript(bin + "/fusermount"_s, unmount);
        const auto restore = qScopeGuard([path = qgetenv("PATH")] { qputenv("PATH", path); });
        qputenv("PATH", bin.toLocal8Bit());
        importFrom(&h, archive);
        QVERIFY2(h.criticals.size() == 1 && h.trouble().startsWith(trouble), qPrintable(h.trouble()));
        QCOMPARE(h.lastMessage(), message);
    }

    void fromFolder()
    {
        RepoHarness h;
        const QString folder = h.folder.filePath("in"_s);
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

        connect(
            &h.shell, &RepoShell::started, this, [&h] { h.shell.cancel(); }, Qt::DirectConnection);
        QCOMPARE(importFrom(&h, folder), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Package(s) not imported"_s);
    }
};

VELT_TEST_MAIN(TestArchives, QCoreApplication)
#include "tst_archives.moc"
