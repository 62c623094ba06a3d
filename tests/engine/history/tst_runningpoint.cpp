// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/archivecontents.h"
#include "engine/engineharness.h"
#include "engine/history/keptfiles.h"
#include "engine/history/pointcommit.h"
#include "engine/history/pointrecord.h"
#include "engine/history/repositoryhistory.h"
#include "engine/history/runningpoint.h"
#include "support/standin.h"

#include <sys/mount.h>
#include <sys/stat.h>

namespace
{
struct stat statusOf(const QString &file)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(file).constData(), &status) != 0)
        status.st_ino = 0;
    return status;
}

/** The newest point of the repository. */
RestorePoint newest(const EngineHarness &h)
{
    return RepositoryHistory::read(h.shell.path()).points.value(0);
}

QString folderOf(const EngineHarness &h, const RestorePoint &point)
{
    return RepositoryHistory::pointFolder(h.shell.path(), point.number);
}

/** "name before>after" of the changes. */
QString rowsOf(const RestorePoint &point)
{
    QStringList rows;
    for (const PackageChange &change : point.changes)
        rows << "%1 %2>%3"_s.arg(change.name, change.before.version, change.after.version);
    rows.sort();
    return rows.join(u',');
}

/** What reprepro finds in the database that a point has kept. */
QString inDatabaseOf(const EngineHarness &h, const RestorePoint &point)
{
    const ProcessResult listed = h.reprepro({"--dbdir"_s, folderOf(h, point), "list"_s, "dogwood"_s});
    return listed.succeeded() ? listed.output : listed.errorOutput;
}

const QString Foo = "/pool/main/f/foo/foo_1.0_amd64.deb"_s;

/** A small file system in the memory, as long as it lives. */
class SmallDisk
{
public:
    explicit SmallDisk(const QString &folder, const char *options = "size=4m")
        : m_folder(QFile::encodeName(folder))
    {
        QDir().mkpath(folder);
        m_isMounted = ::geteuid() == 0 && ::mount("tmpfs", m_folder.constData(), "tmpfs", 0, options) == 0;
    }
    ~SmallDisk()
    {
        if (m_isMounted)
            ::umount(m_folder.constData());
    }
    bool isMounted() const { return m_isMounted; }

private:
    QByteArray m_folder;
    bool m_isMounted;
};
} // namespace

/** What a job keeps of the repository as it was, and what becomes of it at the end of the job. */
class TestRunningPoint : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    /** Every way in which a file leaves the pool. */
    void filesMoveIntoThePoint()
    {
        RepoHarness h;
        const QStringList foo = h.debs("foo");
        h.add(foo + h.debs("bar baz other"));
        QVERIFY(newest(h).isKept && newest(h).changes.size() == 4);
        const auto isMoved = [&](const QString &file, const struct stat &before) {
            const struct stat kept = statusOf(folderOf(h, newest(h)) + file);
            return before.st_ino != 0 && kept.st_ino == before.st_ino && kept.st_nlink == 1;
        };
        struct stat file = statusOf(h.repoPath() + Foo);
        // The one run of this job deletes the file itself.
        h.remove({h.find("foo"_s)});
        QVERIFY(isMoved(Foo, file) && h.settled());
        QCOMPARE(rowsOf(newest(h)), "foo 1.0>"_s);
        QVERIFY(newest(h).isKept && !newest(h).changesDescription);
        QVERIFY(inDatabaseOf(h, newest(h)).contains("foo 1.0"_s));
        QVERIFY(!QFile::exists(folderOf(h, newest(h)) + "/dists"_s));

        // Files that are unused at the end of a job of many runs.
        h.add(foo);
        file = statusOf(h.repoPath() + Foo);
        h.remove({h.find("foo"_s), h.find("bar"_s)});
        QVERIFY(isMoved(Foo, file) && h.settled());

        // A newer version, and another file of the same name.
        h.add(foo);
        file = statusOf(h.repoPath() + Foo);
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("foo", "2.0"));
        QVERIFY(isMoved(Foo, file) && rowsOf(newest(h)) == "foo 1.0>2.0"_s);
        h.remove({h.find("foo"_s)});
        h.add(foo);
        file = statusOf(h.repoPath() + Foo);
        h.add(h.debs("foo", "1.0", "other contents"));
        QVERIFY(isMoved(Foo, file) && rowsOf(newest(h)) == "foo 1.0>1.0"_s);
        QCOMPARE(readFile(folderOf(h, newest(h)) + Foo), readFile(foo.first()));
        QVERIFY(h.holds("baz 1.0 main amd64,foo 1.0 main amd64,other 1.0 main amd64"_s));

        // A job without a change leaves no point, and one that fails neither.
        const int number = newest(h).number;
        h.choice = PackageReplacementRules::KeepThis;
        h.add(foo);
        writeFile(h.at("broken.deb"), "x");
        h.add({h.at("broken.deb")});
        QVERIFY(newest(h).number == number && h.settled());
    }

    /** A file that both went and came in one job, and one whose replacement is refused. */
    void firstFileIsTheOneOfBefore()
    {
        RepoHarness h;
        const QStringList first = h.debs("foo");
        h.add(first);
        h.choice = PackageReplacementRules::ReplaceAll;
        h.add(h.debs("foo", "1.0", "second") + h.debs("foo", "1.0", "third"));
        QCOMPARE(readFile(folderOf(h, newest(h)) + Foo), readFile(first.first()));
        QVERIFY(h.settled() && newest(h).changes.size() == 1);

        const int number = newest(h).number;
        const QByteArray third = h.inPool("foo"_s);
        const StandIn reprepro(
            h.at("bin"),
            "reprepro",
            "case \"$*\" in *includedeb*/velt-admin-repo.kept/*) ;; *includedeb*) exit 9;; esac");
        h.add(h.debs("foo", "1.0", "refused"));
        QVERIFY(h.inPool("foo"_s) == third && h.settled());
        QCOMPARE(newest(h).number, number);

        // Where the old one cannot be put back either, nothing of the job stays.
        reprepro.set("case \"$*\" in *includedeb*foo*) exit 9;; esac");
        h.add(h.debs("bar") + h.debs("foo", "1.0", "refused"));
        QVERIFY(h.trouble().contains("could not be put back"_s) && h.trouble().contains("undone"_s));
        QVERIFY(h.inPool("foo"_s) == third && h.holds("foo 1.0 main amd64"_s));
        QCOMPARE(newest(h).number, number);
    }

    /** The index files are linked for as long as the job runs. */
    void indicesOfBeforeAreLinked()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString state = h.at("state");
        runShell("ln -s . dists/dogwood/here"_s, h.repoPath());
        const struct stat release = statusOf(h.repoPath() + "/dists/dogwood/Release"_s);
        {
            const StandIn reprepro(h.at("bin"),
                                   "reprepro",
                                   "cd '" + h.repoPath().toUtf8()
                                       + R"('; case "$*" in *remove*) "$real" "$@"; code=$?
                cp db/velt-admin-repo.before/distributions )"
                                       + state.toUtf8() + R"(
                stat -c %i db/velt-admin-repo.before/dists/dogwood/Release >>)"
                                       + state.toUtf8() + R"(
                readlink db/velt-admin-repo.before/dists/dogwood/here >>)"
                                       + state.toUtf8() + R"(
                exit $code;; esac)");
            h.remove({h.find("foo"_s)});
        }
        QCOMPARE(readFile(state),
                 readFile(h.repoPath() + "/conf/distributions"_s)
                     + QByteArray::number(quint64(release.st_ino)) + "\n.\n");
        QVERIFY(statusOf(h.repoPath() + "/dists/dogwood/Release"_s).st_ino != release.st_ino);
    }

    /** A program that is killed anywhere between the record and the end leaves what the next one finishes. */
    void commitIsFinishedFromEverywhere()
    {
        RepoHarness h;
        h.add(h.debs("foo bar"));
        h.shell.closeRepo();
        const QString repo = h.repoPath();
        QCOMPARE(RunningPoint::make(repo), RunningPoint::Outcome::Made);
        QVERIFY(!KeptFiles::keep(repo, Foo.mid(1), false).isEmpty() && !PointCommit::isPending(repo));
        RestorePoint record;
        record.time = QDateTime::currentDateTimeUtc();
        record.isKept = true;
        PackageChange change;
        change.kind = PackageChange::Removed;
        change.name = "foo"_s;
        change.component = "main"_s;
        change.architecture = "amd64"_s;
        change.before = {"1.0"_s, Foo.mid(1), QString(64, u'0'), 1};
        record.changes = {change};
        const int number = RepositoryHistory::nextNumber(repo);
        const auto state = [&](const QString &path) {
            return runShell("cd '%1/db' && ls velt-admin-repo.* && cd velt-admin-repo.history/%2 && "
                            "find . -type f | sort | xargs sha256sum"_s.arg(path)
                                .arg(QFileInfo(RepositoryHistory::pointFolder(path, number)).fileName()));
        };
        for (const bool isKept : {true, false}) {
            record.isKept = isKept;
            record.reason = isKept ? QString() : "for a reason"_s;
            QVERIFY(PointCommit::write(repo, record));
            const QString before = "velt-admin-repo.before"_s;
            const QString gone = isKept ? ":"_s : "rm -r dists *.db"_s;
            QString whole;
            for (const QString &done : {":"_s,
                                        "rm -r dists/dogwood/main"_s,
                                        isKept ? "mv ../velt-admin-repo.kept/pool ."_s : "rm -r dists *.db"_s,
                                        "rm -r dists; rm -rf ../velt-admin-repo.kept/later"_s}) {
                const QString copy = h.at("copy");
                runShell(
                    "rm -rf '%2' && cp -a '%1' '%2' && cd '%2/db/%3' && %4"_s.arg(repo, copy, before, done));
                QVERIFY(PointCommit::isPending(copy));
                QCOMPARE(PointCommit::finish(copy), number);
                QVERIFY2(whole.isEmpty() || state(copy) == whole, qPrintable(done + state(copy)));
                whole = state(copy);
                QCOMPARE(whole.contains(Foo), isKept);
                QCOMPARE(whole.contains("packages.db"_s), isKept);
                QVERIFY(!whole.contains(before) && !whole.contains("velt-admin-repo.kept"_s));
                QCOMPARE(PointCommit::finish(copy), 0);
            }
        }
    }

    /** The pool lies where no link of it can be made. */
    void withoutLinks()
    {
        RepoHarness h;
        const SmallDisk pool(h.repoPath() + "/pool"_s);
        if (!pool.isMounted())
            QSKIP("mounting a small file system needs root");
        h.add(h.debs("foo bar baz"));
        h.remove({h.find("foo"_s)});
        QVERIFY(h.trouble().isEmpty() && h.settled());
        QVERIFY(!newest(h).isKept && newest(h).reason.contains("different file systems"_s));
        QCOMPARE(rowsOf(newest(h)), "foo 1.0>"_s);
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("bar", "2.0"));
        h.add(h.debs("baz", "1.0", "other contents"));
        QVERIFY(h.trouble().isEmpty() && h.holds("bar 2.0 main amd64,baz 1.0 main amd64"_s));
        QCOMPARE(QDir(folderOf(h, newest(h))).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{PointRecord::FileName});
        // What others do is noticed without links of the indices too.
        {
            const SmallDisk indices(h.repoPath() + "/dists"_s);
            QVERIFY(h.reprepro("export"_list).succeeded());
            QCOMPARE(h.run([&h] { h.shell.reloadRepo(); }), RepoEnums::SUCCESS);
            QVERIFY(h.reprepro("remove|dogwood|baz"_list).succeeded());
            QCOMPARE(h.run([&h] { h.shell.reloadRepo(); }), RepoEnums::SUCCESS);
            QVERIFY(newest(h).kind == RestorePoint::Outside && rowsOf(newest(h)) == "baz 1.0>"_s);
        }
        h.shell.closeRepo();
    }

    /** Whatever is in the way of noting a job, the user is told. */
    void whereNothingCanBeNoted()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString history = RepositoryHistory::folder(h.repoPath());
        QVERIFY(QDir(history).removeRecursively() && QDir().mkpath(h.at("away"))
                && QFile::link(h.at("away"), history));
        h.remove({h.find("foo"_s)});
        QVERIFY2(h.settled() && h.holds({}) && h.complains("history could not note it"_s),
                 qPrintable(h.trouble()));
        QVERIFY(h.trouble().contains("is a link or a file"_s) && QDir(h.at("away")).isEmpty());
        QVERIFY(RepositoryHistory::read(h.repoPath()).unavailable.contains(history));
        QVERIFY(QFile::remove(history));
        h.add(h.debs("foo"));
        QVERIFY(h.trouble().isEmpty() && newest(h).isKept);
    }

    void switchedOff()
    {
        RepoHarness h;
        h.shell.setHistoryLimits({false, 20, 0, qint64(2) << 30});
        h.add(h.debs("foo bar"));
        h.remove(h.shell.packages());
        QVERIFY(h.trouble().isEmpty() && h.holds({}));
        const RestorePoint point = newest(h);
        QVERIFY(!point.isKept && point.reason.contains("switched off"_s) && point.changes.size() == 2);
        QVERIFY(!QFile::exists(folderOf(h, point) + "/packages.db"_s));
        QCOMPARE(runShell("find db -name '*.deb'"_s, h.repoPath()), QString());
    }

    void fullDiskIsAskedFor()
    {
        EngineHarness h;
        const QString disk = h.at("disk");
        const SmallDisk mounted(disk);
        if (!mounted.isMounted())
            QSKIP("mounting a small file system needs root");
        const auto closed = qScopeGuard([&h] { h.shell.closeRepo(); });
        const QString repo = disk + "/repo"_s;
        QCOMPARE(h.shell.createRepo(repo, h.info), int(RepoEnums::SUCCESS));
        h.add(h.debs("foo"));
        runShell("fallocate -l $(($(stat -f -c '%a * %S' .) - 60 * 1024)) filler"_s, disk);
        const QString before = runShell("find . -type f | sort | xargs sha256sum"_s, repo);
        const QStringList bar = h.debs("bar");
        h.add(bar);
        QVERIFY(h.questions.size() == 1 && h.questions.first().contains("without a restore point"_s));
        QVERIFY(h.complains("nothing was changed"_s));
        QCOMPARE(runShell("find . -type f | sort | xargs sha256sum"_s, repo), before);
        h.reply = true;
        h.add(bar);
        QVERIFY(h.trouble().isEmpty() && h.listed().size() == 2 && h.settled());
        QVERIFY(!newest(h).isKept && newest(h).reason.contains("too little room"_s));
        const QString copies = qEnvironmentVariable("XDG_DATA_HOME") + "/velt-admin-repo/databases"_s;
        QVERIFY(QDir(copies).exists() && QDir(copies).isEmpty());
    }

    void historyIsNeitherExportedNorImported()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        h.remove({h.find("foo"_s)});
        QVERIFY(newest(h).isKept);
        QStringList members;
        for (const ArchiveContents::Entry &entry : ArchiveContents::ofRepository(h.repoPath()).entries)
            members << entry.member;
        QVERIFY(members.contains("db/packages.db"_s) && members.filter("velt-admin-repo"_s).isEmpty());

        // Neither does another repository get its packages, also from an archive that another program has made.
        QVERIFY(QFile::exists(folderOf(h, newest(h)) + Foo));
        h.add(h.debs("bar"));
        runShell("tar cf all.tar repo"_s, h.folder.path());
        for (const QString &source : {h.repoPath(), h.at("all.tar")}) {
            RepoHarness other;
            other.run([&] { other.shell.importRepo(source); });
            QVERIFY2(other.trouble().isEmpty() && other.holds("bar 1.0 main amd64"_s), qPrintable(source));
        }
    }
};

VELT_TEST_MAIN(TestRunningPoint, QCoreApplication)
#include "tst_runningpoint.moc"
