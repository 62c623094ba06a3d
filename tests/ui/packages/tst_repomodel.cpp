// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"

#include <QAbstractItemModelTester>
#include <QtWidgets>

namespace
{
ListChange stored(const PackageBuilder &package)
{
    return {ListChange::Stored, package.build()};
}

ListChange removed(const PackageBuilder &package)
{
    return {ListChange::Removed, package.build()};
}

PackageBuilder named(const char *name)
{
    return PackageBuilder(QString::fromLatin1(name));
}

PackageBuilder numbered(int number)
{
    return PackageBuilder("p%1"_s.arg(number)).section(number % 3 == 0 ? "net"_s : "utils"_s);
}

/** A repository's tree and its proxy, each under the model tester. */
struct Fixture
{
    RepoModel model;
    RepoProxyModel proxy;
    QAbstractItemModelTester modelTester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester proxyTester{&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&proxy, &RepoProxyModel::modelReset};
    QSignalSpy inserted{&proxy, &RepoProxyModel::rowsInserted};
    QSignalSpy removals{&proxy, &RepoProxyModel::rowsRemoved};
    QSignalSpy changed{&proxy, &RepoProxyModel::dataChanged};

    explicit Fixture(const ListChanges &changes = {})
    {
        proxy.setSourceModel(&model);
        model.apply(changes);
        model.setRepository({"repo"_s, {}, {}, {}, "amd64"_s, {}});
        for (QSignalSpy *spy : {&resets, &inserted, &removals, &changed})
            spy->clear();
    }
};
} // namespace

class RepoModelTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void groupsAndSorts()
    {
        Fixture f({stored(named("zsh").section("shells"_s)),
                   stored(named("bash").section("shells"_s)),
                   stored(named("fw").component("non-free"_s).section("kde"_s)),
                   stored(named("site").section("golang"_s)),
                   stored(named("apt"))});
        QCOMPARE(
            treeText(f.model),
            "repo{main{golang{site}, Shells{bash, zsh}, System Administration{apt}}, non-free{kde{fw}}}"_s);
        QCOMPARE(treeText(f.proxy), treeText(f.model));
        f.proxy.sort(0, Qt::DescendingOrder);
        f.proxy.setRepositoryItemHidden(true);
        QCOMPARE(treeText(f.proxy),
                 "non-free{kde{fw}}, main{System Administration{apt}, Shells{zsh, bash}, golang{site}}"_s);
        f.model.clearRepository();
        QCOMPARE(treeText(f.proxy), QString());
    }

    void replacementsMoveAndUpdate()
    {
        Fixture f({stored(named("a")), stored(named("b"))});
        f.model.apply({stored(named("b").version("2.0"_s))});
        QCOMPARE(f.inserted.count(), 0);
        QCOMPARE(f.changed.count(), 1);
        QCOMPARE(f.model.package(find(f.model, "b"))->version, "2.0"_s);
        // The last that a batch says of a package counts; in another architecture it is another package.
        f.model.apply({removed(named("a")), stored(named("a").section("net"_s))});
        // What tells the two apart comes and goes with the second.
        f.changed.clear();
        f.model.apply({stored(named("b").architecture("arm64"_s))});
        QCOMPARE(treeText(f.proxy),
                 "repo{main{Networking{a}, System Administration{b (amd64), b (arm64)}}}"_s);
        QCOMPARE(f.changed.first().first().toModelIndex(), find(f.proxy, "b (amd64)"));
        f.changed.clear();
        f.model.apply({removed(named("b"))});
        QCOMPARE(f.changed.first().first().toModelIndex(), find(f.proxy, "b"));
    }

    void largeBatchesReset()
    {
        Fixture f({stored(named("old")), stored(numbered(1).version("0"_s))});
        f.model.setCurrentItem(find(f.model, "p1"));
        ListChanges changes{removed(named("old"))};
        for (int i = 0; i < 500; ++i)
            changes.append(stored(numbered(i)));
        changes.append(removed(numbered(7)));
        f.model.apply(changes);
        QCOMPARE(f.resets.count(), 1);
        QCOMPARE(f.inserted.count(), 0);
        QCOMPARE(f.model.packageCount(), 499);
        QVERIFY(!find(f.model, "old").isValid());
        QCOMPARE(f.model.currentItem().data().toString(), "p1"_s);
        // Many new records of present packages change no row.
        f.model.apply(changes);
        QCOMPARE(f.resets.count(), 1);
        // Nothing but records, most of them of new packages: of several records of one package the last one counts.
        ListChanges more{stored(numbered(600).version("0"_s))};
        for (int i = 450; i < 900; ++i)
            more.append(stored(numbered(i)));
        more.append(stored(numbered(1).version("9"_s).section("net"_s)));
        more.append(stored(numbered(600).version("8"_s)));
        f.model.apply(more);
        QCOMPARE(f.resets.count(), 2);
        QCOMPARE(f.model.packageCount(), 899);
        QCOMPARE(f.model.package(find(f.model, "p1"))->version, "9"_s);
        QCOMPARE(f.model.package(find(f.model, "p600"))->version, "8"_s);
        // Another repository: what belongs to the one before is gone.
        f.model.apply({{ListChange::Cleared, {}}, stored(named("new"))});
        QCOMPARE(f.model.packageCount(), 1);
        QVERIFY(!f.model.currentItem().isValid());
    }

    void statesOfContainers()
    {
        Fixture f({stored(named("a").state(DependSuccess)),
                   stored(named("b").state(DependSuccess)),
                   stored(named("n").section("net"_s).state(DependSuccess))});
        const QString tree = "repo[%1]{main[%1]{Networking[1]{n[1]}, System Administration[%1]{a%2, b%3}}}"_s;
        QCOMPARE(treeText(f.model), tree.arg("1"_s, "[1]"_s, "[1]"_s));
        f.model.apply({stored(named("a")), stored(named("b").state(DependError))});
        QCOMPARE(treeText(f.model), tree.arg("0"_s, ""_s, "[0]"_s));
        for (const DependStatus status : {DependUndefined, DependError, DependSuccess})
            QCOMPARE(f.model.packageCount(status), 1);
        f.changed.clear();
        f.model.apply({removed(named("b"))});
        QCOMPARE(f.model.dependState(f.model.index(0, 0)), int(DependUndefined));
        QVERIFY(f.changed.count() >= 2); // the containers are announced

        const QModelIndex a = find(f.model, "a");
        QVERIFY(f.model.setData(a, int(DependSuccess), RepoModel::StateRole));
        QVERIFY(!f.model.setData(a, "no state"_s, RepoModel::StateRole));
        QVERIFY(!f.model.setData(f.model.index(0, 0), int(DependError), RepoModel::StateRole));
        QVERIFY(!f.model.setData(a, "name"_s, Qt::DisplayRole));
        QCOMPARE(f.model.dependState(f.model.index(0, 0)), int(DependSuccess));
    }

    void filters()
    {
        Fixture f({stored(named("libalpha").state(DependError)),
                   stored(named("beta").state(DependSuccess)),
                   stored(named("alpha").section("net"_s))});
        const QPersistentModelIndex main = find(f.proxy, "main");
        const QPersistentModelIndex beta = find(f.proxy, "beta");
        const QPersistentModelIndex libalpha = find(f.proxy, "libalpha");
        f.proxy.setFilterFixedString("ALPHA"_s);
        QCOMPARE(treeText(f.proxy),
                 "repo[0]{main[0]{Networking{alpha}, System Administration[0]{libalpha[0]}}}"_s);
        QCOMPARE(f.removals.count(), 0); // one change of the layout
        QVERIFY(main.isValid() && !beta.isValid());
        QCOMPARE(libalpha.row(), 0);
        f.proxy.setShownStates(RepoProxyModel::ShowSuccess | RepoProxyModel::ShowUndefined);
        QCOMPARE(f.proxy.shownPackages(), 1);
        f.proxy.setFilterFixedString(QString());
        f.proxy.setShownStates(RepoProxyModel::ShowError);
        // Containers stay, with or without a package in them.
        QCOMPARE(treeText(f.proxy), "repo[0]{main[0]{Networking, System Administration[0]{libalpha[0]}}}"_s);
        f.proxy.setShownStates(RepoProxyModel::ShowAll);
        QCOMPARE(treeText(f.proxy), treeText(f.model));
        // What is displayed is what is searched.
        f.proxy.setFilterFixedString("_1.0"_s);
        QCOMPARE(f.proxy.shownPackages(), 0);
        f.model.setShowVersions(true);
        QCOMPARE(f.proxy.shownPackages(), 3);
    }

    void columns()
    {
        using Column = PackageColumns::Column;
        const auto sized = [](const char *name, const char *version, int size) {
            return stored(named(name)
                              .version(QString::fromLatin1(version))
                              .control("Size: " + QByteArray::number(size)));
        };
        Fixture f({sized("a", "1:0.1", 900), sized("b", "1.0", 20), sized("c", "1.0~rc1", 100)});
        const auto names = [&f] {
            return treeText(f.proxy)
                .section(QLatin1Char('{'), 3)
                .remove(QLatin1Char('}'))
                .remove(QLatin1Char(' '));
        };
        f.model.setColumns({Column::Name, Column::Version, Column::Size});
        const QPersistentModelIndex version = find(f.proxy, "b").siblingAtColumn(1);
        QCOMPARE(version.data().toString(), "1.0"_s);
        QCOMPARE(names(), "a,b,c"_s); // as long as nobody asks for another order
        f.proxy.sort(1);
        QCOMPARE(names(), "c,b,a"_s);
        f.proxy.sort(2);
        QCOMPARE(names(), "b,c,a"_s); // not as texts
        f.proxy.sort(2, Qt::DescendingOrder);
        QCOMPARE(names(), "a,c,b"_s);
        QVERIFY(version.isValid() && version.row() == 2 && version.column() == 1);
        // A changed package keeps its row while the user may look at it, and gets its place afterwards.
        f.model.apply({sized("b", "1.0", 500)});
        QCOMPARE(names(), "a,c,b"_s);
        QTRY_COMPARE(names(), "a,b,c"_s);
        f.model.setColumns({Column::Name});
        QCOMPARE(f.proxy.columnCount(), 1);
        QCOMPARE(f.proxy.sortedColumn(), Column::Name);
    }

    void completeChecks()
    {
        // a needs b, which excludes c; d lacks what nobody has.
        const NamedPackage a{"a"_s, "1.0"_s, "amd64"_s, true};
        const NamedPackage b{"b"_s, "1.0"_s, "amd64"_s, true};
        const NamedPackage c{"c"_s, "1.0"_s, "all"_s, true};
        const NamedPackage d{"d"_s, "1.0"_s, "amd64"_s, true};
        const NamedPackage foreign{"b"_s, "1.0"_s, "amd64"_s, false};
        const auto needs = [](const NamedPackage &package, const QVector<NamedPackage> &targets) {
            return InstallabilityStep{
                InstallabilityStep::Needs, package, "Depends"_s, targets.first().name, targets};
        };
        InstallabilityInfo broken{NotInstallable, {needs(a, {b}), needs(a, {c})}, {}, 0};
        broken.reason.append({InstallabilityStep::Excludes, b, "Conflicts"_s, "c"_s, {c}});
        const InstallabilityInfo lacking{
            NotInstallable, {{InstallabilityStep::Lacks, d, "Depends"_s, "x"_s, {}}}, {}, 0};
        PackageBuilder all = named("c").section("net"_s).control("Package: c\nArchitecture: all\n");

        Fixture f({stored(named("a").installability(broken)),
                   stored(named("b").installability({Installable, {}, {}, 0})),
                   stored(all.installability({InstallabilityUndecided, {}, {}, 10})),
                   stored(named("d")),
                   stored(named("z").section("shells"_s).state(DependError))});
        const auto sign = [&](const char *item) {
            return find(f.model, item).data(RepoModel::InstallabilityRole).toInt();
        };
        QCOMPARE(sign("repo"), int(NotInstallable));
        QCOMPARE(sign("Networking"), int(InstallabilityUndecided));
        QCOMPARE(sign("Shells"), int(InstallabilityUnknown));
        // The state of the dependencies stays what it was.
        QCOMPARE(find(f.model, "Shells").data(RepoModel::StateRole).toInt(), int(DependError));
        QCOMPARE(find(f.model, "repo").data(Qt::AccessibleDescriptionRole).toString(),
                 "1 package(s) cannot be installed. 1 package(s) undecided: the search took too long."_s);
        QCOMPARE(find(f.model, "c").data(Qt::ToolTipRole).toString(),
                 "Undecided: the search took too long. Breaks other packages."_s);
        f.model.setInstallabilityStale(true);
        QCOMPARE(find(f.model, "a").data(Qt::ToolTipRole).toString(),
                 "Cannot be installed. Packages have changed since the check."_s);

        const auto shown = [&] {
            QStringList names;
            for (const char *name : {"a", "b", "c", "d", "z"}) {
                if (find(f.proxy, name).isValid())
                    names << QLatin1String(name);
            }
            return names.join(QString());
        };
        f.proxy.setShownFaults(RepoProxyModel::BreaksOthers);
        QCOMPARE(shown(), "bc"_s);
        f.proxy.setShownFaults(RepoProxyModel::BreaksOthers | RepoProxyModel::CannotBeInstalled);
        QCOMPARE(shown(), "abc"_s);
        f.model.apply({stored(named("d").installability(lacking))});
        QCOMPARE(shown(), "abcd"_s);
        f.proxy.setShownStates(RepoProxyModel::ShowError);
        QCOMPARE(shown(), ""_s);
        f.proxy.setShownStates(RepoProxyModel::ShowAll);
        f.proxy.setShownFaults(RepoProxyModel::BreaksOthers);
        // Only the record of a changes, and the rows of b and c go with it. A stranger's b is not the one here.
        broken.reason.last() = {InstallabilityStep::Lacks, foreign, "Depends"_s, "x"_s, {}};
        f.model.apply({stored(named("a").installability(broken))});
        QCOMPARE(shown(), ""_s);
        broken.reason.last().package = b;
        f.model.apply({stored(named("a").installability(broken))});
        QCOMPARE(shown(), "b"_s);
        f.model.apply({removed(named("a")), removed(named("d"))});
        QCOMPARE(shown(), ""_s);
        QCOMPARE(sign("repo"), int(InstallabilityUndecided));
        QCOMPARE(f.resets.count(), 0);
    }

    void randomChangesAgreeWithARebuild_data()
    {
        QTest::addColumn<bool>("hidden");
        QTest::addColumn<bool>("faulty");
        QTest::addColumn<int>("column");
        for (const char *filter : {"", "1", "2"})
            QTest::newRow(filter) << (*filter == '2') << false << (*filter == '1' ? 1 : 0);
        QTest::newRow("") << true << true << 4;
    }

    void randomChangesAgreeWithARebuild()
    {
        QFETCH(const bool, hidden);
        QFETCH(const bool, faulty);
        QFETCH(const int, column);
        const QString filter = QLatin1String(QTest::currentDataTag());
        const auto setUp = [&](RepoProxyModel &proxy) {
            proxy.setColumns(column == 0 ? PackageColumns::Columns{PackageColumns::Name}
                                         : PackageColumns::all());
            proxy.setRepositoryItemHidden(hidden);
            proxy.setFilterFixedString(filter);
            proxy.setShownStates(RepoProxyModel::ShowError | RepoProxyModel::ShowUndefined);
            if (faulty)
                proxy.setShownFaults(RepoProxyModel::BreaksOthers | RepoProxyModel::CannotBeInstalled);
        };
        Fixture f;
        setUp(f.proxy);
        QRandomGenerator random(20261121);
        const QStringList sections{"net"_s, "admin"_s, "own"_s};
        const QStringList components{"main"_s, "contrib"_s};
        for (int batch = 0; batch < 60; ++batch) {
            ListChanges changes;
            // Now and then so many that the tree is built anew.
            for (int i = batch % 15 == 7 ? 500 : 8; i > 0; --i) {
                PackageBuilder package("p%1"_s.arg(random.bounded(batch % 15 == 7 ? 400 : 30)));
                package.component(components.at(random.bounded(2))).section(sections.at(random.bounded(3)));
                package.architecture(random.bounded(4) == 0 ? "arm64"_s : "amd64"_s);
                package.state(static_cast<DependStatus>(random.bounded(3) - 1));
                const auto verdict = static_cast<Installability>(random.bounded(4) - 1);
                const NamedPackage other{"p%1"_s.arg(random.bounded(30)),
                                         "1.0"_s,
                                         random.bounded(4) == 0 ? "arm64"_s : "amd64"_s,
                                         true};
                package.installability(
                    {verdict, {{InstallabilityStep::Excludes, other, "Breaks"_s, "x"_s, {}}}, {}, 0});
                changes.append(random.bounded(5) < 2 ? removed(package) : stored(package));
            }
            const int resets = f.resets.count();
            f.model.apply(changes);
            QVERIFY(batch % 15 == 7 || f.resets.count() == resets);
            const auto order = batch / 10 % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder;
            // Between these two the order is only mended.
            if (batch % 3 == 0)
                f.proxy.sort(0, order);
            f.proxy.sort(column, order);
            if (column > 0 && batch % 3 != 0)
                continue;

            Fixture fresh;
            fresh.model.setPackages(f.model.tree().packages());
            setUp(fresh.proxy);
            fresh.proxy.sort(column, order);
            QCOMPARE(treeText(f.model), treeText(fresh.model));
            QCOMPARE(treeText(f.proxy), treeText(fresh.proxy));
            QCOMPARE(f.proxy.shownPackages(), fresh.proxy.shownPackages());
            QCOMPARE(f.model.notInstallable(), fresh.model.notInstallable());
        }
    }
};

VELT_TEST_MAIN(RepoModelTest, QApplication)
#include "tst_repomodel.moc"
