// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsdata.h"
#include "engine/control/jobsignals.h"
#include "engine/engineharness.h"
#include "engine/storedresults.h"
#include "installability/installabilitystore.h"

#include <memory>

namespace
{
/** The stored status of every package, as "repository package status", separated by commas. */
QString inFile()
{
    const QJsonObject root = QJsonDocument::fromJson(readFile(DependsData::userFileName())).object();
    QStringList lines;
    for (const QString &path : root.keys()) {
        const QJsonObject packages = root[path].toObject();
        for (const QString &name : packages.keys())
            lines << "%1 %2 %3"_s.arg(QFileInfo(path).fileName(), name)
                         .arg(packages[name].toObject()["dependsStatus"_s].toInt(-9));
    }
    return lines.join(u',');
}

void store(const QString &path, const QString &name, DependStatus status)
{
    PackageInfo package;
    package.name = name;
    package.dependsInfo = QSharedPointer<DependsInfo>::create(DependsInfo{status, {}});
    DependsData(DependsData::userFileName(), path)
        .savePackages({QSharedPointer<PackageInfo>::create(package)});
}

CompleteCheckRecord checkOf(const QByteArray &digest)
{
    return {{}, QDateTime({2026, 1, 2}, {3, 4, 5}, QTimeZone::utc()), digest, false};
}

QList<PackageInfoPtr> withState(const QList<PackageInfoPtr> &packages, Installability state)
{
    QList<PackageInfoPtr> result;
    for (const PackageInfoPtr &package : packages) {
        PackageInfo copy = *package;
        copy.installability
            = QSharedPointer<InstallabilityInfo>::create(InstallabilityInfo{state, {}, {}, 0});
        result << QSharedPointer<PackageInfo>::create(copy);
    }
    return result;
}
} // namespace

/** What engines do with the stored results of dependency checks. */
class TestStoredResults : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }
    void init()
    {
        QFile::remove(DependsData::userFileName());
        QFile::remove(InstallabilityStore::userFileName());
    }

    void openingShowsThem()
    {
        RepoHarness h("amd64 i386"_s);
        h.add({h.deb(DebBuilder("foo"_s).architecture("all"_s)), h.deb(DebBuilder("bar"_s))});
        QCOMPARE(inFile(), "repo bar -1,repo foo -1"_s);
        store(h.repoPath(), "foo"_s, DependError);

        EngineHarness reader;
        QStringList seen;
        connect(&reader.shell, &RepoShell::packageAdded, this, [&seen](const PackageInfoPtr &package) {
            seen << "%1 %2"_s.arg(package->name).arg(package->dependStatus());
        });
        reader.open(h.repoPath());
        seen.sort();
        QCOMPARE(seen, "bar -1|foo 0|foo 0"_list);
        QVERIFY(reader.trouble().isEmpty() && reader.settled());
        // And no job loses them.
        reader.add(reader.debs("baz"));
        QCOMPARE(inFile(), "repo bar -1,repo baz -1,repo foo 0"_s);
        reader.remove({reader.find("baz"_s), reader.find("foo"_s, "i386"_s)});
        QCOMPARE(inFile(), "repo bar -1,repo foo 0"_s);
        // With the last package the last results go, and another repository's stay.
        store("/other"_s, "x"_s, DependError);
        reader.remove(reader.shell.packages());
        QCOMPARE(inFile(), "other x 0"_s);
    }

    void changesTakeThemAlong()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        store(h.repoPath(), "foo"_s, DependSuccess);
        store("/other"_s, "x"_s, DependError);
        h.open(h.repoPath());
        const QString target = h.at("target");
        store(target, "old"_s, DependError);
        QCOMPARE(h.change(target), RepoEnums::SUCCESS);
        QCOMPARE(inFile(), "other x 0,target foo 1"_s);
        QCOMPARE(h.find("foo"_s)->dependStatus(), DependSuccess);

        h.info.architectures = "i386 all"_s; // reprepro refuses "all", and the repository moves back
        QCOMPARE(h.change(h.repoPath()), RepoEnums::ERROR);
        QCOMPARE(h.shell.path(), target);
        QCOMPARE(inFile(), "other x 0,target foo 1"_s);
        h.info.architectures = "amd64"_s;
        QCOMPARE(h.change(target), RepoEnums::SUCCESS);
        QCOMPARE(h.find("foo"_s)->dependStatus(), DependSuccess);
    }

    void removedEvenWhenTheEngineGoesAtOnce()
    {
        auto h = std::make_unique<RepoHarness>();
        h->add(h->debs("foo"));
        store("/other"_s, "x"_s, DependError);
        // As the interface does it; the results of ten thousand others make the writing take its time.
        QList<PackageInfoPtr> many;
        for (int i = 0; i < 10000; ++i) {
            PackageInfo package;
            package.name = QString::number(i);
            many << QSharedPointer<PackageInfo>::create(package);
        }
        DependsData(DependsData::userFileName(), "/many"_s).savePackages(many);
        h->shell.closeAndForgetRepo();
        h.reset();
        StoredResults::waitForAll();
        const QString left = inFile();
        QVERIFY(left.count(u',') == 10000 && left.endsWith(",other x 0"_s));
    }

    void aNewRepositoryStartsWithoutTheOldOnes()
    {
        RepoHarness h;
        store(h.repoPath(), "foo"_s, DependError);
        store("/other"_s, "x"_s, DependError);
        h.info.codename = "../up"_s;
        QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::ERROR));
        QCOMPARE(inFile(), "other x 0,repo foo 0"_s);
        h.info.codename = "dogwood"_s;
        QCOMPARE(h.shell.createRepo(h.repoPath(), h.info), int(RepoEnums::SUCCESS));
        QCOMPARE(inFile(), "other x 0"_s);
        h.open(h.repoPath());
        h.add(h.debs("foo"));
        h.open(h.repoPath());
        QCOMPARE(h.find("foo"_s)->dependStatus(), DependUndefined);
    }

    void completeChecksGoAlong()
    {
        RepoHarness h;
        h.add(h.debs("foo bar"));
        const InstallabilityStore store;
        const auto check = [&](const QByteArray &digest) {
            return StoredCompleteCheck::of(withState(h.shell.packages(), NotInstallable), checkOf(digest));
        };
        QVERIFY(store.save(h.repoPath(), check("1")) && store.save("/other"_s, check("2")));
        store.save(h.at("target"), check("3"));
        h.open(h.repoPath());
        QCOMPARE(h.find("foo"_s)->installabilityState(), NotInstallable);
        QCOMPARE(h.change(h.at("target")), RepoEnums::SUCCESS);
        QCOMPARE(store.load(h.at("target")).record, checkOf("1"));
        QVERIFY(store.load(h.at("repo")).isEmpty());
        h.add(h.debs("baz"));
        h.open(h.at("target"));
        QCOMPARE(h.find("foo"_s)->installabilityState(), NotInstallable);
        QCOMPARE(h.find("baz"_s)->installabilityState(), InstallabilityUnknown);
        h.remove(h.shell.packages());
        QVERIFY(store.load(h.at("target")).isEmpty() && !store.load("/other"_s).isEmpty());
        h.shell.closeAndForgetRepo();
        writeFile(InstallabilityStore::userFileName(), "{");
        h.open(h.at("target"));
        QVERIFY(h.complains(InstallabilityStore::userFileName() + ".broken"_s));
    }

    void completeChecksAreWrittenWithoutWaiting()
    {
        JobSignals engine;
        QList<PackageInfoPtr> merged;
        QVector<CompleteCheckRecord> read;
        StoredResults::Listener listener;
        listener.merged = [&merged](const QList<PackageInfoPtr> &packages) { merged = packages; };
        listener.checkRead = [&read](const CompleteCheckRecord &check) { read << check; };
        listener.dependsBroken = listener.checksBroken = [](const QString & /*keptAs*/) {};
        QList<PackageInfoPtr> packages;
        for (int i = 0; i < 3000; ++i) {
            PackageInfo package;
            package.name = QString::number(i);
            packages << QSharedPointer<PackageInfo>::create(package);
        }
        {
            StoredResults stored(engine, listener);
            Q_EMIT engine.requestForStoredInformation("/r"_s);
            for (int save = 0; save < 20; ++save)
                stored.saveCompleteCheck(withState(packages, save == 19 ? NotInstallable : Installable),
                                         checkOf(QByteArray::number(save)));
        }
        // Another engine reads behind what the first one has left to write.
        StoredResults stored(engine, listener);
        Q_EMIT engine.requestForStoredInformation("/r"_s);
        Q_EMIT engine.requestForMergingInformation(packages);
        QCOMPARE(read, (QVector<CompleteCheckRecord>{{}, {}, checkOf("19")}));
        QCOMPARE(merged.size(), packages.size());
        QCOMPARE(merged.first()->installabilityState(), NotInstallable);
        stored.removeLater();
        stored.waitUntilWritten();
        QVERIFY(InstallabilityStore().load("/r"_s).isEmpty());
    }

    void aBrokenFileIsToldOfOnce()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        writeFile(DependsData::userFileName(), "{");
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.complains(DependsData::userFileName() + ".broken"_s));
        h.open(h.repoPath());
        QCOMPARE(h.trouble(), QString());
    }
};

VELT_TEST_MAIN(TestStoredResults, QCoreApplication)
#include "tst_storedresults.moc"

#include <QTimeZone>
