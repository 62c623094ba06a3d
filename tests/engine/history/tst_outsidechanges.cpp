// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/history/historydifference.h"
#include "engine/history/repositorydigest.h"
#include "engine/history/repositoryhistory.h"
#include "files/pathguard.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

using Pruning = RepositoryHistory::Pruning;

namespace
{
QStringList rowsOf(const QVector<PackageChange> &changes)
{
    QStringList rows;
    for (const PackageChange &change : changes)
        rows.append(QStringList{QString::number(change.kind),
                                change.name,
                                change.architecture,
                                change.before.version,
                                change.before.file,
                                change.before.sha256,
                                change.after.version,
                                change.after.file,
                                change.after.sha256}
                        .join(u' '));
    rows.sort();
    return rows;
}

QString digestOf(const QString &file)
{
    return QString::fromLatin1(QCryptographicHash::hash(readFile(file), QCryptographicHash::Sha256).toHex());
}
} // namespace

/** What the history says of the work of other programs, and of our own between it. */
class TestOutsideChanges : public QObject
{
    Q_OBJECT
private:
    /** The points after opening the repository again, in a new engine. */
    static QVector<RestorePoint> pointsOf(const EngineHarness &harness)
    {
        EngineHarness other;
        if (other.open(harness.repoPath()) != RepoEnums::SUCCESS)
            qFatal("not opened: %s", qPrintable(other.trouble()));
        return RepositoryHistory::read(harness.repoPath()).points;
    }

private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void noticed()
    {
        RepoHarness h("amd64 i386"_s);
        QVERIFY(pointsOf(h).isEmpty());
        QVERIFY(RepositoryDigest::isCurrent(h.repoPath()));
        // What is stored is no repository, which would be in the way of deleting or moving this one.
        QVERIFY(PathGuard::repositoriesBelow(h.repoPath()).isEmpty());
        // Indices that are written anew, and files that are only touched, change nothing.
        QVERIFY(h.reprepro("export"_list).succeeded());
        QVERIFY(!RepositoryDigest::isCurrent(h.repoPath()));
        QVERIFY(pointsOf(h).isEmpty() && RepositoryDigest::isCurrent(h.repoPath()));
        runShell("touch db/*.db conf/distributions"_s, h.repoPath());
        QVERIFY(pointsOf(h).isEmpty());

        const QString foo = h.debs("foo").first();
        QVERIFY(h.reprepro({"includedeb"_s, "dogwood"_s, foo}).succeeded());
        QVector<RestorePoint> points = pointsOf(h);
        QCOMPARE(points.size(), 1);
        QCOMPARE(points.first().changes.size(), 1);
        const PackageChange row = points.first().changes.first();
        QVERIFY(points.first().kind == RestorePoint::Outside && points.first().number == 1
                && !points.first().isKept && !points.first().changesDescription
                && !points.first().user.isEmpty());
        QVERIFY(row.kind == PackageChange::Added && row.name == "foo"_s && row.component == "main"_s
                && row.architecture == "amd64"_s && row.before.isNone());
        QCOMPARE(row.after.sha256, digestOf(foo));
        QCOMPARE(row.after.size, QFileInfo(foo).size());
        QVERIFY(QFileInfo::exists(h.repoPath() + u'/' + row.after.file));
        QCOMPARE(pointsOf(h).size(), 1);

        // What a killed pruning has left goes when the repository is opened.
        const QString left = RepositoryHistory::pointFolder(h.repoPath(), 9) + ".unfinished"_s;
        writeFile(left + "/pool/main/x"_s, "x");
        QVERIFY(pointsOf(h).size() == 1 && !QFileInfo::exists(left));

        // The engine that has it open notes it when it reads again.
        QVERIFY(h.reprepro("remove|dogwood|foo"_list).succeeded());
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.reprepro({"includedeb"_s, "dogwood"_s, h.debs("bar").first()}).succeeded());
        QCOMPARE(h.run([&h] { h.shell.reloadRepo(); }), RepoEnums::SUCCESS);
        points = RepositoryHistory::read(h.repoPath()).points;
        QCOMPARE(points.size(), 3);
        QCOMPARE(points.at(1).changes.first().kind, PackageChange::Removed);
        QCOMPARE(points.at(1).changes.first().before.sha256, digestOf(foo));
        QCOMPARE(points.at(0).changes.first().name, "bar"_s);

        // Of the description, with and without packages that it drops.
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray text = readFile(conf);
        writeFile(conf, QByteArray(text).replace("Codename", "Description: ours\nCodename"));
        points = pointsOf(h);
        QVERIFY(points.size() == 4 && points.first().changesDescription && points.first().changes.isEmpty());
        writeFile(conf, QByteArray(text).replace("amd64 i386", "i386"));
        points = pointsOf(h);
        QVERIFY(points.size() == 5 && points.first().changesDescription);
        QCOMPARE(points.first().changes.first().kind, PackageChange::Removed);

        // What was not stored is not known: no point, and from now on it is.
        QVERIFY(QFile::remove(RepositoryHistory::folder(h.repoPath()) + "/head.json"_s));
        writeFile(conf, text);
        QCOMPARE(pointsOf(h).size(), 5);
        QVERIFY(RepositoryDigest::isCurrent(h.repoPath()));
        // Numbers go on, also where all points were deleted.
        QVERIFY(RepositoryHistory::prune(h.repoPath(), Pruning{{1, 2, 3, 4, 5}, 0}));
        QCOMPARE(RepositoryHistory::nextNumber(h.repoPath()), 6);
    }

    /** What others do while an engine keeps its list is their change alone, also where a job meets it first. */
    void besideAnOpenList()
    {
        RepoHarness h;
        h.add(h.debs("foo bar"));
        h.remove({h.find("foo"_s)});
        QVERIFY(h.reprepro("--keepunreferencedfiles|remove|dogwood|bar"_list).succeeded());
        QVERIFY(h.reprepro({"includedeb"_s, "dogwood"_s, h.debs("baz").first()}).succeeded());
        QCOMPARE(h.run([&h] { h.shell.goBack(2); }), RepoEnums::SUCCESS);
        const QVector<RestorePoint> points = RepositoryHistory::read(h.repoPath()).points;
        QVERIFY(h.trouble().isEmpty() && points.size() == 4 && points.at(1).kind == RestorePoint::Outside);
        QCOMPARE(rowsOf(*HistoryDifference::between(points, 2, HistoryDifference::Now)), QStringList());
        QCOMPARE(points.first().changes.size(), 3);
    }

    /** The state after a job is known by its record, also when a kill came before it was stored itself. */
    void afterCommit()
    {
        RepoHarness h;
        QVERIFY(pointsOf(h).isEmpty());
        QVERIFY(h.reprepro({"includedeb"_s, "dogwood"_s, h.debs("foo").first()}).succeeded());
        RestorePoint own;
        own.time = QDateTime::currentDateTimeUtc();
        const auto listed = readListing(h.repoPath(), h.info);
        own.changes = PackageChange::between({}, *listed);
        QCOMPARE(RepositoryHistory::addRecord(h.repoPath(), own), 1);
        QCOMPARE(pointsOf(h).size(), 1);
        QVERIFY(RepositoryDigest::isCurrent(h.repoPath()));
    }

    /** Differences made of records are those of the listings, for any two states and both ways. */
    void differences()
    {
        RepoHarness h("amd64 i386"_s);
        QVERIFY(pointsOf(h).isEmpty());
        QRandomGenerator random(20);
        const auto pick = [&random](int count) { return random.bounded(count); };
        QVector<QList<PackageInfoPtr>> states{*readListing(h.repoPath(), h.info)};
        QVector<RestorePoint> points;
        while (points.size() < 14) {
            for (int changes = 1 + pick(4); changes > 0; --changes) {
                const QString name = "abcde"_s.mid(pick(5), 1);
                const QStringList architectures = "amd64|i386|all"_list;
                const QString deb = h.deb(DebBuilder(name)
                                              .version(QString::number(1 + pick(3)))
                                              .architecture(architectures.at(pick(3)))
                                              .contents(QByteArray::number(pick(2))));
                // reprepro itself refuses an older version, and other contents of a file that is there.
                if (pick(3) > 0)
                    h.reprepro({"includedeb"_s, "dogwood"_s, deb});
                else
                    h.reprepro({"remove"_s, "dogwood"_s, name});
            }
            const auto now = pointsOf(h);
            states.append(*readListing(h.repoPath(), h.info));
            if (now.size() == points.size())
                states.removeLast();
            else
                QCOMPARE(now.size(), points.size() + 1);
            points = now;
        }
        for (int from = 0; from < states.size(); ++from) {
            for (int to = 0; to < states.size(); ++to) {
                const auto number = [&](int state) {
                    return state + 1 == states.size() ? HistoryDifference::Now : state + 1;
                };
                const auto changes = HistoryDifference::between(points, number(from), number(to));
                QVERIFY(changes);
                QCOMPARE(rowsOf(*changes), rowsOf(PackageChange::between(states.at(from), states.at(to))));
            }
        }
        QVERIFY(!HistoryDifference::between(points, 99, HistoryDifference::Now));
        points.remove(3);
        QVERIFY(!HistoryDifference::between(points, 1, HistoryDifference::Now));
    }
};

VELT_TEST_MAIN(TestOutsideChanges, QCoreApplication)
#include "tst_outsidechanges.moc"
