// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/historydifference.h"
#include "engine/history/pointrecord.h"
#include "engine/history/repositoryhistory.h"
#include "support/lists.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimeZone>

#include <csignal>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using Pruning = RepositoryHistory::Pruning;

namespace
{
const QString Digest(64, u'a');

PackageChange added(const QString &name, const QString &version = "1.0"_s)
{
    PackageChange change;
    change.name = name;
    change.component = "main"_s;
    change.architecture = "amd64"_s;
    change.after = {version, "pool/main/"_s + name + ".deb"_s, Digest, 7};
    return change;
}

RestorePoint pointOf(int number, const QVector<PackageChange> &changes = {})
{
    RestorePoint point;
    point.number = number;
    point.time = QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5, 678), QTimeZone::utc());
    point.changes = changes;
    point.isKept = true;
    return point;
}

/** A repository's folders, with points that nobody but the test has made. */
class MadeHistory
{
public:
    QTemporaryDir folder{"/tmp/vhXXXXXX"_s};

    MadeHistory() { QDir().mkpath(repo() + "/pool/main"_s); }

    QString repo() const { return folder.filePath("repo"_s); }
    QString point(int number) const { return RepositoryHistory::pointFolder(repo(), number); }
    void add(const RestorePoint &made) const
    {
        QDir().mkpath(point(made.number) + "/pool/main"_s);
        writeFile(point(made.number) + "/job.json"_s, PointRecord::toJson(made));
    }
    void file(int number, const QString &name, int size) const
    {
        writeFile(point(number) + "/pool/main/"_s + name, QByteArray(size, 'x'));
    }
    static void link(const QString &from, const QString &to)
    {
        if (::link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) != 0)
            qFatal("no hard link");
    }
    /** What another program says that the folder takes on the disk. */
    static qint64 taken(const QString &path)
    {
        QProcess du;
        du.start("du"_s, {"-s"_s, "--block-size=1"_s, path});
        du.waitForFinished();
        return du.readAll().split('\t').first().toLongLong();
    }
    RepositoryHistory read() const { return RepositoryHistory::read(repo()); }
    QVector<int> numbers() const
    {
        QVector<int> numbers;
        for (const RestorePoint &point : read().points)
            numbers.prepend(point.number);
        return numbers;
    }
};

using Rows = QStringList;

/** Each row in words, sorted. */
Rows rowsOf(const QVector<PackageChange> &changes)
{
    Rows rows;
    for (const PackageChange &change : changes)
        rows.append(QStringLiteral("%1 %2 %3%4 %5%6")
                        .arg(change.kind)
                        .arg(change.name, change.before.version, change.before.sha256)
                        .arg(change.after.version, change.after.sha256));
    rows.sort();
    return rows;
}
} // namespace

class TestRestorePoints : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void record()
    {
        RestorePoint point = pointOf(17, {added("a"_s), added("b"_s, "1:2~\u00e4+1"_s)});
        point.kind = RestorePoint::Return;
        point.user = "ann"_s;
        point.summary = "Say \"hi\"\u2026"_s;
        point.changesDescription = true;
        point.changes[0].origin = "/home/ann/\x1b[31mred\n.deb"_s;
        point.changes[1].type = PackageType::Udeb;
        point.changes[1].kind = PackageChange::Replaced;
        point.changes[1].before = {"0"_s, "pool/x/b"_s, QString(), 0};
        const auto read = PointRecord::fromJson(PointRecord::toJson(point));
        QVERIFY(read);
        QVERIFY(read->number == 17 && read->kind == point.kind && read->time == point.time && read->isKept
                && read->user == point.user && read->summary == point.summary && read->changesDescription);
        QCOMPARE(rowsOf(read->changes), rowsOf(point.changes));
        QVERIFY(read->changes[1].type == PackageType::Udeb && read->changes[0].after.size == 7);
        // A name on the disk must not write to the terminal of whoever lists it.
        QVERIFY(read->changes[0].origin.endsWith("red\ufffd.deb"_s)
                && !read->changes[0].origin.contains(u'\x1b'));

        // Members of a later version are passed over, and the rows need not be read.
        QByteArray later = PointRecord::toJson(point);
        later.replace("\"user\"", "\"new\":[{\"changes\":[1,{\"version\":9}]},-1e9,null],\"user\"");
        QCOMPARE(rowsOf(PointRecord::fromJson(later)->changes), rowsOf(point.changes));
        const QByteArray cut = later.left(later.indexOf("[", later.indexOf("\"changes\": [")));
        QVERIFY(!PointRecord::fromJson(cut));
        const auto head = PointRecord::fromJson(cut, PointRecord::WithoutChanges);
        QVERIFY(head && head->number == 17 && head->changes.isEmpty());
    }

    void hostileRecord_data()
    {
        QTest::addColumn<QByteArray>("from");
        QTest::addColumn<QByteArray>("to");
        const auto row = [](const char *from, const QByteArray &to) {
            QTest::addRow("%s -> %s", from, to.left(40).constData()) << QByteArray(from) << to;
        };
        for (const char *path : {"/etc/passwd",
                                 "pool/../conf/distributions",
                                 "pool/..",
                                 "pool/./a",
                                 "pool//a",
                                 "pool/a/",
                                 "pool",
                                 "db/a",
                                 "",
                                 "poolx/a",
                                 "pool/\\u0000a",
                                 "pool/\\u001b[2Ja",
                                 "pool/a\\nb"})
            row("pool/main/a.deb", path);
        row("pool/main/a.deb", "pool/" + QByteArray(5000, 'x'));
        row("\"package\": \"a\"", "\"package\": \"\"");
        row("\"package\": \"a\"", "\"package\": \"a\\u001b\"");
        row("\"version\": \"1.0\"", "\"version\": \"1.0\\u0007\"");
        row("\"added\"", "\"removed\"");
        row("\"added\"", "\"replaced\"");
        row("\"added\"", "\"grown\"");
        row("\"size\": 7", "\"size\": -7");
        row("aaaaaaaa\"", "aaaaaaa/\"");
        row("aaaaaaaa\"", "\"");
        row("\"version\": 1,", "\"version\": 2,");
        row("\"number\": 3", "\"number\": 0");
        row("\"number\": 3", "\"number\": 99999999999999999999999");
        row("\"kind\": \"job\"", "\"kind\": \"king\"");
        row("\"time\": \"2026", "\"time\": \"today");
        row("\"user\": \"", "\"user\": \"\xff");
        row("\"user\"", "\"x\": " + QByteArray(1'000'000, '[') + ",\"user\"");
        row("\"changes\": [", "\"changes\": [1,");
        row("\"changes\": [", "\"changes\": [");
        row("]", "");
    }
    void hostileRecord()
    {
        QFETCH(const QByteArray, from);
        QFETCH(const QByteArray, to);
        QByteArray json = PointRecord::toJson(pointOf(3, {added("a"_s)}));
        QVERIFY(json.contains(from));
        const bool isSame = from == to;
        json.replace(json.lastIndexOf(from), from.size(), to);
        QCOMPARE(PointRecord::fromJson(json).has_value(), isSame);
    }

    void hostileFolders()
    {
        const MadeHistory h;
        for (int number = 1; number <= 6; ++number)
            h.add(pointOf(number, {added("a"_s)}));
        const QString outside = h.folder.filePath("outside"_s);
        QVERIFY(QDir().mkpath(outside));
        QVERIFY(QFile::copy(h.point(2) + "/job.json"_s, outside + "/job.json"_s));
        writeFile(outside + "/big"_s, QByteArray(100'000, 'x'));
        // The record of another point, a link, a pipe, links to folders.
        QVERIFY(QFile::remove(h.point(1) + "/job.json"_s)
                && QFile::copy(h.point(2) + "/job.json"_s, h.point(1) + "/job.json"_s));
        QVERIFY(QFile::remove(h.point(2) + "/job.json"_s)
                && QFile::link(outside + "/job.json"_s, h.point(2) + "/job.json"_s));
        QVERIFY(QFile::remove(h.point(3) + "/job.json"_s)
                && ::mkfifo(QFile::encodeName(h.point(3) + "/job.json"_s).constData(), 0600) == 0);
        QVERIFY(QDir(h.point(4)).removeRecursively() && QFile::link(outside, h.point(4)));
        QVERIFY(QFile::link(outside, h.point(5) + "/pool/main/away"_s));
        const RepositoryHistory history = h.read();
        QStringList readable;
        for (const RestorePoint &point : history.points)
            readable.append(point.isReadable ? QString::number(point.number) : "-"_s);
        QCOMPARE(readable, "6|5|-|-|-|-"_list);
        QVERIFY(history.size < 100'000);
        QVERIFY(!HistoryDifference::between(history.points, 1, HistoryDifference::Now));
        QVERIFY(HistoryDifference::between(history.points, 5, HistoryDifference::Now));
        // Nothing behind a link is deleted, and what is newer than a link stays.
        QVERIFY(!RepositoryHistory::prune(h.repo(), Pruning{{1, 2, 3, 4, 5}, 0}));
        QCOMPARE(h.numbers(), QVector<int>({4, 5, 6}));
        QVERIFY(QFile::remove(h.point(4)));
        QVERIFY(RepositoryHistory::prune(h.repo(), Pruning{{5}, 0}));
        QCOMPARE(h.numbers(), QVector<int>({6}));
        QCOMPARE(QFileInfo(outside + "/big"_s).size(), 100'000);
        if (::geteuid() != 0)
            return;
        // A folder of somebody else, where anybody may make one.
        h.add(pointOf(7));
        QVERIFY(::chown(QFile::encodeName(h.point(7)).constData(), 4321, 4321) == 0);
        QVERIFY(h.read().points.first().isReadable);
        QVERIFY(::chmod(QFile::encodeName(h.repo() + "/db"_s).constData(), 01777) == 0);
        QVERIFY(!h.read().points.first().isReadable && h.read().points.last().isReadable);
        QVERIFY(!RepositoryHistory::prune(h.repo(), Pruning{{7}, 0})
                && QFileInfo::exists(h.point(7) + "/job.json"_s));
    }

    /** What goes is what the disk has more then, whatever the links are. */
    void sizes()
    {
        const MadeHistory h;
        for (int number = 1; number <= 4; ++number) {
            h.add(pointOf(number, {added("p"_s + QString::number(number))}));
            h.file(number, "own"_s, number * 10'000);
        }
        const QString pool = h.repo() + "/pool/main/"_s;
        const auto in = [&h](int number, const char *name) -> QString {
            return h.point(number) + "/pool/main/"_s + QLatin1String(name);
        };
        h.file(1, "inpool"_s, 300'000);
        MadeHistory::link(in(1, "inpool"), pool + "inpool"_s);
        h.file(2, "shared"_s, 500'000);
        MadeHistory::link(in(2, "shared"), in(3, "shared"));
        h.file(3, "twice"_s, 70'000);
        MadeHistory::link(in(3, "twice"), in(3, "again"));
        h.file(1, "everywhere"_s, 900'000);
        MadeHistory::link(in(1, "everywhere"), in(4, "everywhere"));
        MadeHistory::link(in(1, "everywhere"), pool + "everywhere"_s);
        writeFile(RepositoryHistory::folder(h.repo()) + "/head.json"_s, QByteArray(9'000, 'x'));
        QFile sparse(in(4, "sparse"));
        QVERIFY(sparse.open(QIODevice::WriteOnly) && sparse.resize(5'000'000));
        sparse.close();

        const auto withoutHistory = [&h] { return MadeHistory::taken(h.repo()) - h.read().size; };
        QVERIFY(QDir(h.folder.filePath("bare/db"_s)).mkpath("."_s));
        const RepositoryHistory history = h.read();
        // du counts a file with two names once: without the history the pool's names are left.
        QCOMPARE(withoutHistory(),
                 MadeHistory::taken(pool) + 3 * MadeHistory::taken(h.folder.filePath("bare/db"_s)));
        QCOMPARE(history.points.size(), 4);
        HistoryLimits limits;
        limits.points = 4;
        limits.size = history.size;
        const QDateTime now = history.points.first().time.addDays(10);
        QVERIFY(RepositoryHistory::toPrune(history, limits, now).isEmpty());
        limits.size = history.size - 1;
        QCOMPARE(RepositoryHistory::toPrune(history, limits, now).points, QVector<int>({1}));
        limits.size = 0;
        QCOMPARE(RepositoryHistory::toPrune(history, limits, now).points, QVector<int>({1, 2, 3}));
        limits = {};
        limits.days = 9;
        QCOMPARE(RepositoryHistory::toPrune(history, limits, now).points.size(), 3);
        limits.days = 11;
        QVERIFY(RepositoryHistory::toPrune(history, limits, now).isEmpty());
        for (int left = 3; left >= 0; --left) {
            limits.points = left;
            const qint64 before = MadeHistory::taken(h.repo());
            const qint64 alone = h.read().points.last().size;
            const auto pruning = RepositoryHistory::toPrune(h.read(), limits, now);
            QCOMPARE(pruning.points, QVector<int>({4 - left}));
            QCOMPARE(pruning.freed, alone);
            QVERIFY(RepositoryHistory::prune(h.repo(), pruning));
            QCOMPARE(before - MadeHistory::taken(h.repo()), pruning.freed);
        }
        QCOMPARE(QFileInfo(pool + "inpool"_s).size(), 300'000);
    }

    /** After a kill at any moment the newest points are there whole, and the next pruning deletes the rest. */
    void killedPruning()
    {
        constexpr int Points = 8;
        constexpr int Files = 20;
        constexpr int Attempts = 15;
        int cutShort = 0;
        qint64 whole = 0; // nanoseconds of a pruning without a kill
        for (int attempt = 0; attempt <= Attempts; ++attempt) {
            const MadeHistory h;
            Pruning all;
            for (int number = 1; number <= Points; ++number) {
                h.add(pointOf(number));
                for (int i = 0; i < Files; ++i)
                    h.file(number, QString::number(i), 10);
                if (number < Points)
                    all.points.append(number);
            }
            const pid_t child = ::fork();
            if (child == 0) {
                RepositoryHistory::prune(h.repo(), all);
                ::_exit(0);
            }
            QElapsedTimer timer;
            timer.start();
            while (attempt > 0 && timer.nsecsElapsed() < whole * attempt / Attempts)
                ;
            if (attempt > 0)
                ::kill(child, SIGKILL);
            ::waitpid(child, nullptr, 0);
            if (attempt == 0)
                whole = timer.nsecsElapsed();
            const QVector<int> left = h.numbers();
            cutShort += left.size() < Points && left.size() > 1 ? 1 : 0;
            QVERIFY(!left.isEmpty() && left.last() == Points);
            for (int i = 0; i < left.size(); ++i) {
                QCOMPARE(left.at(i), Points - left.size() + 1 + i);
                QCOMPARE(QDir(h.point(left.at(i)) + "/pool/main"_s).count(), uint(Files + 2));
                QVERIFY(h.read().points.at(i).isReadable);
            }
            QVERIFY(RepositoryHistory::prune(h.repo(), Pruning{{}, 0}));
            QCOMPARE(QDir(RepositoryHistory::folder(h.repo()))
                         .entryList(QDir::AllEntries | QDir::NoDotAndDotDot)
                         .size(),
                     left.size());
        }
        QVERIFY2(cutShort > 2, qPrintable(QString::number(cutShort)));
    }

    void numbers()
    {
        const MadeHistory h;
        QVERIFY(QDir().mkpath(h.repo() + "/db"_s));
        QCOMPARE(RepositoryHistory::nextNumber(h.repo()), 1);
        QCOMPARE(RepositoryHistory::addRecord(h.repo(), pointOf(9, {added("a"_s)})), 1);
        QCOMPARE(RepositoryHistory::addRecord(h.repo(), pointOf(9, {added("b"_s)})), 2);
        h.add(pointOf(1'000'000));
        QCOMPARE(RepositoryHistory::nextNumber(h.repo()), 1'000'001);
        const RepositoryHistory history = h.read();
        QCOMPARE(h.numbers(), QVector<int>({1, 2, 1'000'000}));
        QCOMPARE(history.points.at(1).changes.first().name, "b"_s);
        const auto named = HistoryDifference::ofPackage(history.points, "a"_s);
        QVERIFY(named.size() == 1 && named.first().number == 1);
    }
};

VELT_TEST_MAIN(TestRestorePoints, QCoreApplication)
#include "tst_restorepoints.moc"
