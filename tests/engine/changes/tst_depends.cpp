// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/dependsreport.h"
#include "engine/engineharness.h"
#include "support/localapt.h"
#include "support/standin.h"

namespace
{
/** A package that depends on others, for a repository. */
DebBuilder needing(const char *name, const char *depends)
{
    return DebBuilder(QLatin1String(name)).field("Depends"_s, QLatin1String(depends));
}

/** Names with their dependency states, sorted: "bar 0,foo 1". */
QString states(const EngineHarness &h)
{
    QStringList lines;
    for (const PackageInfoPtr &package : h.shell.packages())
        lines << "%1 %2"_s.arg(package->name).arg(package->dependStatus());
    lines.sort();
    return lines.join(u',');
}

PackageInfo wanted(const char *name, const char *version)
{
    PackageInfo package;
    package.name = QLatin1String(name);
    package.version = QLatin1String(version);
    package.architecture = "amd64"_s;
    return package;
}

Dependency lacking(const PackageInfoPtr &package, const char *name)
{
    for (const DependencyGroup &group : package->dependsInfo->groups) {
        if (group.key == QLatin1String(name))
            return group.alternatives.first();
    }
    return {};
}
} // namespace

/** Jobs that ask apt: the real one, over a local source that holds lib 1.0 and 2.0, food and gone. */
class TestDepends : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_root{"/tmp/vaXXXXXX"_s};
    std::unique_ptr<LocalApt> m_apt;

    static EngineHarness::Code check(EngineHarness &h, int type, const QList<PackageInfoPtr> &packages)
    {
        h.shell.setDependsRepoType(type);
        return h.run([&] { h.shell.checkDepends(packages); });
    }
    static EngineHarness::Code checkAll(EngineHarness &h, int type)
    {
        return check(h, type, h.shell.packages());
    }
    static EngineHarness::Code download(EngineHarness &h, const QList<PackageInfo> &packages)
    {
        return h.run([&] { h.shell.downloadPackages(packages); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        const QString pool = m_root.filePath("one/pool"_s);
        DebBuilder("lib"_s).build(pool);
        DebBuilder("lib"_s).version("2.0"_s).build(pool);
        DebBuilder("food"_s).architecture("all"_s).field("Provides"_s, "meal"_s).build(pool);
        const QString gone = DebBuilder("gone"_s).build(pool);
        m_apt = std::make_unique<LocalApt>(m_root.path(), "one"_list);
        QFile::remove(gone);
    }

    void modes_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("isSourceOff");
        QTest::addColumn<QString>("states");
        QTest::newRow("nowhere") << int(DependsNowhere) << false << "far -1,near -1,plain -1";
        QTest::newRow("local") << int(DependsLocal) << false << "far 0,near 1,plain 1";
        QTest::newRow("public") << int(DependsPublic) << false << "far 1,near 0,plain 1";
        QTest::newRow("everywhere") << int(DependsEverywhere) << false << "far 1,near 1,plain 1";
        QTest::newRow("without the source") << int(DependsEverywhere) << true << "far 0,near 1,plain 1";
    }
    void modes()
    {
        QFETCH(int, type);
        QFETCH(bool, isSourceOff);
        RepoHarness h;
        h.add({h.deb(needing("far", "lib (>= 2), meal")),
               h.deb(needing("near", "plain (= 1.0)")),
               h.deb(DebBuilder("plain"_s))});
        if (isSourceOff) {
            ExternalRepos repos;
            repos.merge({"file:%1 dogwood main"_s.arg(m_root.filePath("one"_s))});
            repos.setEnabled(0, false);
            h.shell.setExternalRepos(repos);
        }
        QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
        QSignalSpy summaries(&h.shell, &RepoShell::dependsSummary);
        QCOMPARE(checkAll(h, type), RepoEnums::SUCCESS);
        QTEST(states(h), "states");
        QCOMPARE(h.words(), "Checking depends|Depends checked"_s);
        QCOMPARE(h.lastJob, RepoEnums::CHECK_DEPENDS_JOB);
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.ranges, (QVector<int>{0, 3}));
        const int runs = type == DependsNowhere ? 0 : 1;
        QVERIFY(h.events.size() == 3 * runs && h.steps.last() == 3 * runs);
        QVERIFY(saving.count() == runs && summaries.count() == runs);
        if (type == DependsLocal) {
            const QString summary = summaries.first().first().toStringList().join(u'|');
            QVERIFY2(summary.contains("lib, by 1"_s) && summary.contains("meal, by 1"_s),
                     qPrintable(summary));
        }
        // What was found is there again with the repository.
        const QString found = states(h);
        h.open(h.repoPath());
        QCOMPARE(states(h), found);
    }

    void stopped()
    {
        RepoHarness h;
        h.add(h.debs("a b c d e f g h i j"));
        const auto packages = h.shell.packages();
        h.remove({h.find("a"_s)});
        const auto counting = h.cancelAt(&RepoShell::packageChanged, 3);
        // Of these ten one has left the repository meanwhile.
        QCOMPARE(check(h, DependsLocal, packages), RepoEnums::CANCEL);
        QCOMPARE(h.lastMessage(), "Operation stopped. 3 of 9 package(s) depends checked"_s);
        QCOMPARE(h.events.size(), 3);
        disconnect(counting);
        QCOMPARE(check(h, DependsLocal, {packages.first()}), RepoEnums::SUCCESS);
        QVERIFY(h.events.isEmpty());
        h.open(h.repoPath());
        QCOMPARE(states(h).count(" 1"_s), 3);
        QCOMPARE(checkAll(h, DependsLocal), RepoEnums::SUCCESS);
        QCOMPARE(states(h).count(" 1"_s), 9);
        // Taking packages out moves the others, and a record still gets into its own place.
        h.remove({h.find("c"_s), h.find("e"_s)});
        checkAll(h, DependsLocal);
        QCOMPARE(h.listed().size(), 7);
        QVERIFY(h.settled());
    }

    void addedPackagesMeetEachOther()
    {
        RepoHarness h;
        h.shell.setDependsRepoType(DependsEverywhere);
        QSignalSpy saving(&h.shell, &RepoShell::requestForSavingPackages);
        h.add({h.deb(needing("first", "second, lib")),
               h.deb(needing("second", "first")),
               h.deb(needing("lost", "nothing"))});
        QCOMPARE(states(h), "first 1,lost 0,second 1"_s);
        QCOMPARE(h.events.size(), 6);
        QCOMPARE(h.events.filter("+"_s), h.events.mid(0, 3));
        QCOMPARE(saving.count(), 1);
        QVERIFY(h.settled());

        const QStringList more = h.debs("x y");
        const auto stopping = h.cancelAt(&RepoShell::packageAdded);
        QCOMPARE(h.add(more), RepoEnums::CANCEL);
        QCOMPARE(h.events, "+x 1.0 amd64|~x 1.0 amd64"_list);
        disconnect(stopping);
        // Nor is the check of what went in dropped by a stop at the last one; it can be stopped itself, which is told.
        h.remove({h.find("x"_s)});
        QSignalSpy goingOn(&h.shell, &RepoShell::goingOn);
        const QVector<QMetaObject::Connection> stops{h.cancelAt(&RepoShell::packageAdded, 2),
                                                     h.cancelAt(&RepoShell::packageChanged)};
        QCOMPARE(h.add(more), RepoEnums::SUCCESS);
        QCOMPARE(h.events, "+x 1.0 amd64|+y 1.0 amd64|~x 1.0 amd64"_list);
        QCOMPARE(goingOn.count(), 1);
        QCOMPARE(h.notes, "Operation stopped. 1 of 2 package(s) depends checked"_list);
        for (const auto &stop : stops)
            disconnect(stop);
        h.remove({h.find("y"_s)});
        h.shell.setCheckDependsOnAdd(false);
        h.add(more);
        QCOMPARE(h.events, "+y 1.0 amd64"_list);
        h.shell.setCheckDependsOnAdd(true);
        const auto close = [&] { h.shell.setClosing(); };
        connect(&h.shell, &RepoShell::packageAdded, &h.shell, close, Qt::DirectConnection);
        h.add(h.debs("z"));
        QCOMPARE(h.events, "+z 1.0 amd64"_list);
    }

    void downloaded()
    {
        RepoHarness h;
        QCOMPARE(download(h, {wanted("lib", "1.0"), wanted("gone", "1.0"), wanted("food", "1.0")}),
                 RepoEnums::SUCCESS);
        QCOMPARE(h.lastMessage(), "Added 2 package(s) to local repo: lib_1.0_amd64.deb, food_1.0_all.deb"_s);
        QVERIFY(h.complains("Apt: download package gone error|"_s) && h.trouble().size() > 40);
        QVERIFY(h.holds("food 1.0 main amd64,lib 1.0 main amd64"_s));
        // It collides like any other file.
        h.choice = PackageReplacementRules::ReplaceThis;
        QCOMPARE(download(h, {wanted("lib", "2.0")}), RepoEnums::SUCCESS);
        QCOMPARE(h.collisions, QVector<RepoEnums::ErrorCode>{RepoEnums::PACKAGE_EXISTS_OLD_VERSION});
        QCOMPARE(h.find("lib"_s)->version, "2.0"_s);
        QCOMPARE(h.trouble(), QString());
    }

    void stoppedDownload()
    {
        RepoHarness h;
        const QString running = h.at("running");
        const StandIn apt(h.at("bin"), "apt-get", ": >" + running.toLocal8Bit() + "\nsleep 60 & wait");
        QTimer waiting;
        connect(&waiting, &QTimer::timeout, this, [&] {
            if (QFile::exists(running))
                h.shell.cancel();
        });
        waiting.start(20);
        QElapsedTimer time;
        time.start();
        QCOMPARE(download(h, {wanted("lib", "1.0"), wanted("lib", "2.0")}), RepoEnums::CANCEL);
        QVERIFY(time.elapsed() < 30000);
        QCOMPARE(h.lastMessage(), "Operation stopped. 0 of 2 package(s) added to local repo: "_s);
        QCOMPARE(h.trouble(), QString());
    }

    void dependenciesAreFetched()
    {
        RepoHarness h;
        h.add({h.deb(needing("hungry", "meal, lib (>= 1)")),
               h.deb(needing("lost", "lib (>= 2), nothing (>= 3)")),
               h.deb(needing("late", "lib (<< 2)"))});
        checkAll(h, DependsLocal);
        QCOMPARE(states(h), "hungry 0,late 0,lost 0"_s);
        // Results that were stored say as well what is to be fetched, also in the row of a provider.
        h.open(h.repoPath());
        const auto hungry = h.find("hungry"_s);
        const auto lost = h.find("lost"_s);
        const QVector<Dependency> all{lacking(hungry, "meal").providers.value("food"_s),
                                      lacking(lost, "nothing"),
                                      lacking(hungry, "lib"),
                                      lacking(lost, "lib")};
        h.run([&] { h.shell.addDependencies(all); });
        QCOMPARE(h.lastMessage(), "Added 2 package(s) to local repo: food_1.0_all.deb, lib_2.0_amd64.deb"_s);
        QCOMPARE(h.criticals, QStringList{"No source offers: nothing (>= 3)|"_s});
        QCOMPARE(states(h), "food 1,hungry 1,late 0,lib 1,lost 0"_s);
        QCOMPARE(lacking(h.find("lost"_s), "lib").status, DependSuccess);
        QCOMPARE(h.events.filter("~"_s).size(), 5);
        QVERIFY(h.settled());
    }

    void architectureThatAptDoesNotKnow()
    {
        RepoHarness h("amd64 i386"_s);
        h.shell.setDependsRepoType(DependsEverywhere);
        h.add({h.deb(needing("wine", "near, nothing").architecture("i386"_s)),
               h.deb(needing("game", "near").architecture("i386"_s)),
               h.deb(DebBuilder("near"_s).architecture("i386"_s)),
               h.deb(needing("app", "lib, nothing"))});
        QCOMPARE(states(h), "app 0,game 1,near 1,wine -1"_s);
        QVERIFY2(h.trouble().isEmpty(), "whoever adds packages has not asked for the check");
        QCOMPARE(checkAll(h, DependsLocal), RepoEnums::SUCCESS);
        QCOMPARE(states(h), "app 0,game 1,near 1,wine 0"_s);
        QCOMPARE(h.trouble(), QString());
        checkAll(h, DependsEverywhere);
        QVERIFY(h.complains("dpkg --add-architecture i386 && apt update"_s));
        h.open(h.repoPath());
        QCOMPARE(states(h), "app 0,game 1,near 1,wine -1"_s);
        const Dependency nothing = lacking(h.find("wine"_s), "nothing");
        QVERIFY(DependsReport::explanation(nothing, DependsEverywhere)
                    .contains("does not know the architecture i386"_s));
        QVERIFY(DependsReport::summaryLines(h.shell.packages()).join(u' ').contains("architecture i386"_s));
        check(h, DependsEverywhere, {h.find("game"_s)});
        QVERIFY2(h.trouble().isEmpty(), "nothing is missing");
        // What apt could not be asked it does not lack.
        h.run([&] { h.shell.addDependencies({nothing}); });
        QVERIFY(h.complains("dpkg --add-architecture i386"_s) && !h.trouble().contains("No source"_s));

        writeFile(m_root.filePath("etc/apt.conf.d/foreign"_s), R"(APT::Architectures { "amd64"; "i386"; };)");
        checkAll(h, DependsEverywhere);
        QFile::remove(m_root.filePath("etc/apt.conf.d/foreign"_s));
        QCOMPARE(states(h), "app 0,game 1,near 1,wine 0"_s);
        QCOMPARE(h.trouble(), QString());
    }

    void brokenApt()
    {
        RepoHarness h;
        const ScopedVariable config("APT_CONFIG", h.at("apt.conf"));
        writeFile(h.at("apt.conf"), "Dir::Etc \"" + h.folder.path().toLocal8Bit() + "\";");
        writeFile(h.at("sources.list"), "nonsense\n");
        h.add({h.deb(needing("far", "lib")), h.deb(needing("near", "far")), h.deb(needing("other", "meal"))});
        QSignalSpy criticals(&h.shell, &RepoShell::critical);
        QCOMPARE(checkAll(h, DependsEverywhere), RepoEnums::SUCCESS);
        QCOMPARE(states(h), "far 0,near 1,other 0"_s);
        QCOMPARE(criticals.count(), 1);
        QCOMPARE(criticals.first().at(0).toString(), "Apt error"_s);
        QVERIFY(!criticals.first().at(1).toString().isEmpty());
        QCOMPARE(criticals.first().at(2).value<RepoEnums::ErrorType>(), RepoEnums::WARNING);
        // Nothing is said of offers that nobody could ask for.
        h.run([&] { h.shell.addDependencies({lacking(h.find("far"_s), "lib")}); });
        QVERIFY(h.complains("Apt error|"_s));
        // Nor is a healthy apt that was never given any lists a reason to call all missing without a word.
        writeFile(h.at("sources.list"), "");
        writeFile(h.at("apt.conf"),
                  "Dir::Etc \"" + h.folder.path().toLocal8Bit() + "\"; Dir::State::lists \"/nowhere\";");
        checkAll(h, DependsLocal);
        QCOMPARE(criticals.count(), 2);
        checkAll(h, DependsEverywhere);
        QCOMPARE(criticals.count(), 3);
        QVERIFY(criticals.last().at(1).toString().contains("apt update"_s));
        QCOMPARE(h.criticals.size(), 1);
    }
};

VELT_TEST_MAIN(TestDepends, QCoreApplication)
#include "tst_depends.moc"
