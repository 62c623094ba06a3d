// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/reprepro/repreproanswers.h"

#include <unistd.h>

namespace
{
const auto Before = "/db/velt-admin-repo.before"_s;
const auto PutBack = "/db/velt-admin-repo.put-back"_s;

/** What a job leaves that is killed when it has copied the database to this folder. */
void leaveJob(const RepoHarness &h, const QString &copy = Before)
{
    runShell("mkdir -p .%1 && cp db/*.db db/version .%1 && touch .%1/packages.conf"_s.arg(copy),
             h.repoPath());
    ExportSession::setMarker(h.repoPath());
}
} // namespace

/** What is found, and done about it, when a job has not come to its end. */
class TestRecovery : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void linksAreNotFollowed()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QString precious = h.at("victim/main/precious");
        writeFile(precious, "x");
        const QString victim = h.at("victim");
        for (const QString &name : {Before,
                                    PutBack,
                                    "/db/velt-admin-repo.copying"_s,
                                    "/db/velt-admin-repo.damaged"_s,
                                    "/db/velt-admin-repo.kept"_s,
                                    "/db/velt-admin-repo.history"_s}) {
            const QString place = h.repoPath() + name;
            QDir(place).removeRecursively();
            QVERIFY(QFile::link(victim, place));
            ExportSession::setMarker(h.repoPath());
            h.open(h.repoPath());
            h.add(h.debs("bar"));
            h.remove({h.find("bar"_s)});
            QVERIFY2(QFile::exists(precious)
                         && QDir(victim).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size() == 1,
                     qPrintable(place));
            QFile::remove(place);
        }
        QVERIFY(h.holds("foo 1.0 main amd64"_s));
        const QString contrib = h.repoPath() + "/dists/dogwood/contrib"_s;
        QVERIFY(QDir(contrib).removeRecursively() && QFile::link(victim, contrib));
        h.info.components = "main"_s;
        h.reply = true;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.questions.first().contains("dists/dogwood/contrib is a link to "_s + victim));
        QVERIFY(QFile::exists(precious) && !QFileInfo(contrib).isSymLink());
    }

    void laterChangesOfOthersStay()
    {
        RepoHarness h("amd64 i386"_s);
        const QString all = h.deb(DebBuilder("all"_s).architecture("all"_s));
        h.add(h.debs("foo gone kept") + QStringList{all});
        leaveJob(h);
        const auto reprepro
            = [&h](const QStringList &arguments) { QVERIFY(h.reprepro(arguments).succeeded()); };
        reprepro("includedeb|dogwood"_list + h.debs("foo", "2.0"));
        reprepro("includedeb|dogwood"_list + h.debs("new"));
        reprepro({"remove"_s, "dogwood"_s, "gone"_s});
        reprepro({"-A"_s, "i386"_s, "remove"_s, "dogwood"_s, "all"_s});
        reprepro({"--keepunreferencedfiles"_s, "remove"_s, "dogwood"_s, "kept"_s});
        h.open(h.repoPath());
        QVERIFY(h.complains("interrupted and has been undone"_s));
        const QString now = "all 1.0 main amd64,foo 2.0 main amd64,new 1.0 main amd64"_s;
        QCOMPARE(h.listed().join(u','), now);
        reprepro({"deleteunreferenced"_s});
        QVERIFY(h.settled());

        // A package that went although somebody still needs its file was lost.
        const QString database = h.repoPath() + "/db/packages.db"_s;
        const QByteArray older = readFile(database);
        h.add(h.debs("last"));
        leaveJob(h);
        writeFile(database, older);
        h.open(h.repoPath());
        QVERIFY(h.complains("interrupted and has been undone"_s));
        QVERIFY(h.listed().contains("last 1.0 main amd64"_s) && h.settled());
    }

    /** Their copies have no index files, the description only while it changes, and replaced files in folders. */
    void jobsOfEarlierVersionsAreUndone()
    {
        RepoHarness h("amd64 i386"_s);
        h.add(h.debs("foo"));
        const QString file = "pool/main/f/foo/foo_1.0_amd64.deb"_s;
        const QByteArray bytes = h.inPool("foo"_s);
        const QByteArray description = readFile(h.repoPath() + "/conf/distributions"_s);
        QDir(h.repoPath() + "/db/velt-admin-repo.history"_s).removeRecursively();
        const QString kept = h.repoPath() + "/.replaced-abcdef"_s;
        writeFile(kept + "/packages"_s, "foo\tdeb\tamd64\tmain\tmain\tadmin\t" + file.toUtf8() + "\t\n");
        writeFile(kept + "/foo_1.0_amd64.deb"_s, bytes);
        leaveJob(h);
        writeFile(h.repoPath() + "/db/velt-admin-repo.export-owed"_s, file.toUtf8() + '\n');
        QVERIFY(h.reprepro({"remove"_s, "dogwood"_s, "foo"_s}).succeeded());
        QVERIFY(h.reprepro("includedeb|dogwood"_list + h.debs("foo", "1.0", "longer contents")).succeeded());
        h.open(h.repoPath());
        QVERIFY(h.complains("interrupted and has been undone"_s) && h.holds("foo 1.0 main amd64"_s));
        QVERIFY(h.inPool("foo"_s) == bytes && !QFile::exists(kept));

        leaveJob(h);
        writeFile(h.repoPath() + Before + "/distributions.done"_s, description);
        runShell(
            "sed -i '/^Architectures/s/ i386//; s/dogwood/elm/' conf/distributions; "_s
            "reprepro -b . --keepunreferencedfiles --delete clearvanished; reprepro -b . export; rm -r dists/dogwood"_s,
            h.repoPath());
        h.open(h.repoPath());
        QVERIFY(h.holds("foo 1.0 main amd64"_s) && !QFile::exists(h.repoPath() + "/dists/elm"_s));
        QCOMPARE(readFile(h.repoPath() + "/conf/distributions"_s), description);
        // What nobody can put into its place is not passed over in silence.
        writeFile(kept + "/old.deb"_s, "x");
        h.open(h.repoPath());
        QVERIFY(h.complains(kept) && QFile::exists(kept + "/old.deb"_s));
    }

    void jobAtWorkIsLeftAlone()
    {
        RepoHarness first;
        first.add(first.debs("foo"));
        EngineHarness second;
        second.open(first.repoPath());
        const QStringList other = second.debs("bar more");
        const QString refusal = "is being changed by another program"_s;
        bool isLeft = false;
        first.choice = PackageReplacementRules::ReplaceThis;
        first.whileAsked = [&] {
            const auto state
                = [&] { return runShell("find db dists -type f | xargs sha256sum"_s, first.repoPath()); };
            const QString before = state();
            second.open(first.repoPath());
            isLeft = second.complains(refusal) && second.shell.result() == RepoEnums::SUCCESS;
            second.add(other);
            isLeft = isLeft && second.complains(refusal);
            second.info.components = "main"_s;
            isLeft = isLeft && second.change(first.repoPath()) == RepoEnums::ERROR
                     && second.trouble().contains(refusal) && state() == before;
        };
        first.add(first.debs("new") + first.debs("foo", "2.0"));
        QVERIFY(isLeft && first.trouble().isEmpty());
        QVERIFY(first.holds("foo 2.0 main amd64,new 1.0 main amd64"_s));
        second.open(first.repoPath());
        second.add(other);
        QVERIFY(second.trouble().isEmpty() && second.settled() && second.listed().size() == 4);
    }

    void onlyGoodStateIsKept()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        leaveJob(h, PutBack);
        writeFile(h.repoPath() + "/db/packages.db"_s, "broken");
        h.add(h.debs("bar"));
        QVERIFY(h.trouble().contains("could not be put back"_s));
        h.remove(h.shell.packages());
        h.change(h.repoPath());
        QVERIFY(QFile::exists(h.repoPath() + PutBack + "/packages.db"_s));
        h.open(h.repoPath());
        QVERIFY(h.complains("put back as it was before"_s) && h.holds("foo 1.0 main amd64"_s));

        // Half a copy is none, and goes when nobody is at it.
        for (const QString &name : {"copying"_s, "reading"_s}) {
            const QString half = h.repoPath() + "/db/velt-admin-repo."_s + name;
            writeFile(half + "/packages.db"_s, "half");
            h.open(h.repoPath());
            QVERIFY(h.trouble().isEmpty() && !QFile::exists(half) && h.settled());
        }
    }

    void namesAreNoTrouble()
    {
        for (const char *fine : {"Error opening deb file '/home/BDB0060 x/foo.deb': none\n",
                                 "/srv/BDB/pool\n BDB0060 is a folder\n",
                                 "No file 'returned corrupted data!.deb'\n"})
            QVERIFY2(!ReproAnswer::databaseTroubled(QLatin1String(fine)), fine);
        for (const char *bad :
             {"x\nBDB0060 write: No space left on device\n",
              "Database packages.db(dog|main|amd64) returned corrupted (not paired) data!\n",
              "Database references.db returned corrupted data!\n",
              "Internal error of the underlying BerkeleyDB database:\nWithin packages.db subtable "
              "sid|main|amd64 at get: BDB0075 DB_PAGE_NOTFOUND: Requested page not found\n",
              "db_open(/r/db/references.db:references)[-30986]: BDB0075 DB_PAGE_NOTFOUND\n"})
            QVERIFY2(ReproAnswer::databaseTroubled(QLatin1String(bad)), bad);
    }

    void othersAreAskedFor()
    {
        if (::geteuid() != 0)
            QSKIP("giving a folder to another user needs root");
        RepoHarness h;
        h.add(h.debs("foo"));
        constexpr uid_t Nobody = 65534;
        for (const char *folder : {"/conf", "/db"}) {
            const QByteArray given = h.repoPath().toLatin1() + folder;
            QCOMPARE(::chown(given.constData(), Nobody, Nobody), 0);
            ExportSession::setMarker(h.repoPath());
            h.reply = false;
            h.open(h.repoPath());
            QVERIFY(h.questions.size() == 1 && h.questions.first().contains("another user"_s));
            QVERIFY(h.complains("could not be brought up to date"_s));
            QVERIFY(h.isExportOwed() && h.listed().size() == 1);
            h.reply = true;
            h.open(h.repoPath());
            QVERIFY(h.trouble().isEmpty() && !h.isExportOwed());
            h.open(h.repoPath());
            QVERIFY(h.questions.isEmpty());
            QCOMPARE(::chown(given.constData(), 0, 0), 0);
        }
    }

    void othersFilesStayInThePool()
    {
        RepoHarness h;
        const QStringList left = h.debs("stranger taken");
        h.add(left + h.debs("a b c"));
        for (const QString &name : {"stranger"_s, "taken"_s})
            h.reprepro({"--keepunreferencedfiles"_s, "remove"_s, "dogwood"_s, name});
        const QString stranger = h.repoPath() + "/pool/main/s/stranger/stranger_1.0_amd64.deb"_s;
        h.open(h.repoPath());
        h.remove({h.find("a"_s), h.find("b"_s)});
        QVERIFY(QFile::exists(stranger));
        QVERIFY(!QFile::exists(h.repoPath() + "/pool/main/b"_s)
                && QFile::exists(h.repoPath() + "/pool/main/c"_s));
        // Of the two, only the one that is in the way of a new file makes room.
        h.add(h.debs("taken", "1.0", "other contents"));
        QVERIFY(h.trouble().isEmpty() && h.listed().contains("taken 1.0 main amd64"_s));
        QVERIFY(QFile::exists(stranger));
        // Neither does an interrupted job's end take it along, nor what only looks like a copy that apt was writing.
        const QString cut = "pool/main/k/k/k_1.0_amd64.deb"_s;
        const QString ours = h.repoPath() + u'/' + cut;
        for (const char *ending : {".aB3xyZ", ".orig"})
            writeFile(ours + QLatin1String(ending), "half");
        ExportSession::setMarker(h.repoPath());
        writeFile(h.repoPath() + "/db/velt-admin-repo.export-owed"_s, cut.toUtf8() + '\n');
        h.open(h.repoPath());
        QVERIFY(!QFile::exists(ours + ".aB3xyZ"_s) && QFile::remove(ours + ".orig"_s));
        QVERIFY(QDir().rmpath(QFileInfo(ours).path()));
        QVERIFY(h.trouble().isEmpty() && QFile::exists(stranger));
        QCOMPARE(h.reprepro({"dumpunreferenced"_s}).output.trimmed(), stranger.mid(h.repoPath().size() + 1));
        QFile::remove(stranger);
        QVERIFY(h.reprepro({"deleteunreferenced"_s}).succeeded() && h.settled());
    }
};

VELT_TEST_MAIN(TestRecovery, QCoreApplication)
#include "tst_recovery.moc"
