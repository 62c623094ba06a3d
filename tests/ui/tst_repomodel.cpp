// SPDX-License-Identifier: GPL-3.0-or-later
#include "packagetesting.h"
#include "support/testenvironment.h"
#include "ui/repomodel.h"
#include "ui/repoproxymodel.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

namespace
{
RepoInfo repository(const QString &architectures = QStringLiteral("amd64"))
{
    RepoInfo info;
    info.name = QStringLiteral("repo");
    info.architectures = architectures;
    return info;
}

PackageChange stored(const PackageBuilder &package)
{
    return {PackageChange::Stored, package.build()};
}

PackageChange removed(const PackageBuilder &package)
{
    return {PackageChange::Removed, package.build()};
}

PackageBuilder named(const char *name)
{
    return PackageBuilder(QString::fromLatin1(name));
}

PackageBuilder numbered(int number)
{
    return PackageBuilder(QStringLiteral("package%1").arg(number, 5, 10, QLatin1Char('0')))
        .section(number % 3 == 0 ? QStringLiteral("net") : QStringLiteral("utils"));
}

QModelIndex find(const QAbstractItemModel &model, const QString &text)
{
    return model.match(model.index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
}
} // namespace

/** The package tree and its proxy, each under the model tester. */
class RepoModelTest : public QObject
{
    Q_OBJECT

    struct Fixture
    {
        RepoModel model;
        RepoProxyModel proxy;
        QAbstractItemModelTester modelTester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
        QAbstractItemModelTester proxyTester{&proxy, QAbstractItemModelTester::FailureReportingMode::Fatal};

        Fixture() { proxy.setSourceModel(&model); }
    };

private Q_SLOTS:
    void groupsAndSorts();
    void smallBatchesKeepWhatIsShown();
    void replacementsMoveAndUpdate();
    void largeBatchesReset();
    void statesOfContainers();
    void versionsArchitecturesAndFonts();
    void iconsTellSignatureAndState();
    void keysOutliveResets();
    void filters();
    void filterFollowsChanges();
    void hiddenRepositoryItem();
    void descendingOrder();
    void randomChangesAgreeWithARebuild_data();
    void randomChangesAgreeWithARebuild();
    void sixtyThousandPackages();
};

void RepoModelTest::groupsAndSorts()
{
    Fixture f;
    f.model.apply({stored(named("zsh").section(QStringLiteral("shells"))),
                   stored(named("bash").section(QStringLiteral("shells"))),
                   stored(named("fw").component(QStringLiteral("non-free")).section(QStringLiteral("kde"))),
                   stored(named("apt"))});
    QCOMPARE(treeText(f.proxy), QString()); // no repository is shown yet
    f.model.setRepository(repository());
    const QString expected = QStringLiteral("repo [-1]\n"
                                            "  main [-1]\n"
                                            "    Shells [-1]\n"
                                            "      bash [-1]\n"
                                            "      zsh [-1]\n"
                                            "    System Administration [-1]\n"
                                            "      apt [-1]\n"
                                            "  non-free [-1]\n"
                                            "    kde [-1]\n"
                                            "      fw [-1]\n");
    QCOMPARE(treeText(f.model), expected);
    QCOMPARE(treeText(f.proxy), expected);
    f.model.clearRepository();
    QCOMPARE(treeText(f.proxy), QString());
    QCOMPARE(f.model.packageCount(), 0);
}

void RepoModelTest::smallBatchesKeepWhatIsShown()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("b")), stored(named("d"))});
    const QPersistentModelIndex b = find(f.proxy, QStringLiteral("b"));
    const QPersistentModelIndex d = find(f.proxy, QStringLiteral("d"));
    QSignalSpy resets(&f.model, &RepoModel::modelReset);
    f.model.apply(
        {stored(named("a")), stored(named("c")), stored(named("x").section(QStringLiteral("net")))});
    QCOMPARE(b.row(), 1);
    QCOMPARE(d.row(), 3);
    f.model.apply({removed(named("a")), removed(named("d")), removed(named("absent"))});
    QCOMPARE(b.row(), 0);
    QVERIFY(!d.isValid());
    // A container goes with its last package, and an id that became free serves again.
    f.model.apply({removed(named("x").section(QStringLiteral("net")))});
    f.model.apply(
        {removed(named("b")), removed(named("c")), stored(named("e").component(QStringLiteral("contrib")))});
    QCOMPARE(treeText(f.proxy),
             QStringLiteral("repo [-1]\n  contrib [-1]\n    System Administration [-1]\n      e [-1]\n"));
    QCOMPARE(resets.count(), 0);
}

void RepoModelTest::replacementsMoveAndUpdate()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("a")), stored(named("b"))});
    QSignalSpy changed(&f.proxy, &RepoProxyModel::dataChanged);
    QSignalSpy inserted(&f.proxy, &RepoProxyModel::rowsInserted);
    f.model.apply({stored(named("b").version(QStringLiteral("2.0")))});
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(f.model.package(find(f.model, QStringLiteral("b")))->version, QStringLiteral("2.0"));
    // The record of a package that was removed in the same batch is what counts.
    f.model.apply({removed(named("a")), stored(named("a").section(QStringLiteral("net")))});
    QCOMPARE(treeText(f.proxy),
             QStringLiteral("repo [-1]\n  main [-1]\n    Networking [-1]\n      a [-1]\n"
                            "    System Administration [-1]\n      b [-1]\n"));
    // The same name in another architecture, or as another type, is another package.
    f.model.apply({stored(named("b").architecture(QStringLiteral("arm64")))});
    QCOMPARE(f.model.packageCount(), 3);
}

void RepoModelTest::largeBatchesReset()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("old")), stored(named("package00001").version(QStringLiteral("0")))});
    PackageChanges changes{removed(named("old"))};
    for (int i = 0; i < 500; ++i)
        changes.append(stored(numbered(i)));
    changes.append(removed(numbered(7)));
    QSignalSpy resets(&f.proxy, &RepoProxyModel::modelReset);
    QSignalSpy inserted(&f.proxy, &RepoProxyModel::rowsInserted);
    f.model.apply(changes);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(inserted.count(), 0);
    QCOMPARE(f.model.packageCount(), 499);
    QVERIFY(!f.model.indexOfPackage(*named("old").build()).isValid());
    // Another repository: what belongs to the one before is gone.
    f.model.apply({{PackageChange::Cleared, {}}, stored(named("new"))});
    QCOMPARE(f.model.packageCount(), 1);
    // Many new records of present packages change no row.
    f.model.apply(changes);
    resets.clear();
    f.model.apply(changes);
    QCOMPARE(resets.count(), 0);
}

void RepoModelTest::statesOfContainers()
{
    Fixture f;
    f.model.setRepository(repository());
    QCOMPARE(f.model.dependState(f.model.index(0, 0)), NoDependState);
    f.model.apply({stored(named("a").state(DependSuccess)),
                   stored(named("b").state(DependSuccess)),
                   stored(named("n").section(QStringLiteral("net")).state(DependSuccess))});
    const QPersistentModelIndex top = f.model.index(0, 0);
    const QPersistentModelIndex admin = find(f.model, QStringLiteral("System Administration"));
    const QPersistentModelIndex net = find(f.model, QStringLiteral("Networking"));
    QCOMPARE(f.model.dependState(top), int(DependSuccess));
    f.model.apply({stored(named("a"))});
    QCOMPARE(f.model.dependState(admin), int(DependUndefined));
    f.model.apply({stored(named("b").state(DependError))});
    QCOMPARE(f.model.dependState(top), int(DependError));
    QCOMPARE(f.model.dependState(admin), int(DependError));
    QCOMPARE(f.model.dependState(net), int(DependSuccess));
    QCOMPARE(f.model.packageCount(DependUndefined), 1);
    QCOMPARE(f.model.packageCount(DependError), 1);
    QCOMPARE(f.model.packageCount(DependSuccess), 1);

    QSignalSpy changed(&f.model, &RepoModel::dataChanged);
    f.model.apply({removed(named("b"))});
    QCOMPARE(f.model.dependState(top), int(DependUndefined));
    QVERIFY(changed.count() >= 2); // the containers are announced
    const QModelIndex a = find(f.model, QStringLiteral("a"));
    QVERIFY(f.model.setData(a, int(DependSuccess), RepoModel::StateRole));
    QCOMPARE(f.model.dependState(top), int(DependSuccess));
    QVERIFY(!f.model.setData(a, QStringLiteral("no state"), RepoModel::StateRole));
    QVERIFY(!f.model.setData(top, int(DependError), RepoModel::StateRole));
    QVERIFY(!f.model.setData(a, QStringLiteral("name"), Qt::DisplayRole));
    QCOMPARE(f.model.dependState(top), int(DependSuccess));
}

void RepoModelTest::versionsArchitecturesAndFonts()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("name").version(QStringLiteral("1.0-1")))});
    const QModelIndex package = f.proxy.mapFromSource(find(f.model, QStringLiteral("name")));
    QSignalSpy changed(&f.proxy, &RepoProxyModel::dataChanged);
    f.model.setShowVersions(true);
    QCOMPARE(package.data().toString(), QStringLiteral("name_1.0-1"));
    QCOMPARE(changed.count(), 1);
    QVERIFY(package.data(Qt::ToolTipRole).toString().isEmpty());
    f.model.setRepository(repository(QStringLiteral("amd64 arm64")));
    QVERIFY(package.data(Qt::ToolTipRole).toString().contains(QLatin1String("amd64")));

    const auto top = f.proxy.index(0, 0).data(Qt::FontRole).value<QFont>();
    QCOMPARE(top.weight(), 75);
    QCOMPARE(top.pointSizeF(), QApplication::font("QTreeView").pointSizeF() + 1);
    QVERIFY(!package.data(Qt::FontRole).isValid());
}

void RepoModelTest::iconsTellSignatureAndState()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("a")), stored(named("b").state(DependError)), stored(named("c"))});
    const auto icon = [&f](const char *name) {
        return find(f.model, QString::fromLatin1(name)).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    QVERIFY(icon("a") != icon("b"));
    QCOMPARE(icon("a"), icon("c"));
    f.model.setSignatureLookup([](const PackageInfo &package) {
        return package.name == QLatin1String("a") ? QStringLiteral("Key <k@example.org>") : QString();
    });
    QVERIFY(icon("a") != icon("c"));
    QCOMPARE(f.model.signature(*named("a").build()), QStringLiteral("Key <k@example.org>"));
}

void RepoModelTest::keysOutliveResets()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("a")), stored(named("b").section(QStringLiteral("net")))});
    QStringList keys;
    for (const char *text : {"repo", "main", "Networking", "a", "b"})
        keys.append(f.model.itemKey(find(f.model, QString::fromLatin1(text))));
    f.model.setCurrentItem(find(f.model, QStringLiteral("b")));
    const QList<PackageInfoPtr> packages = f.model.tree().packages();
    f.model.setPackages({});
    QVERIFY(!f.model.currentItem().isValid());
    for (const QString &key : qAsConst(keys).mid(1))
        QVERIFY(!f.model.indexOfKey(key).isValid());
    f.model.setPackages(packages);
    QCOMPARE(f.model.currentItem().data().toString(), QStringLiteral("b"));
    QStringList texts;
    for (const QString &key : qAsConst(keys))
        texts.append(f.model.indexOfKey(key).data().toString());
    QCOMPARE(texts.join(QLatin1Char(',')), QStringLiteral("repo,main,Networking,a,b"));
    QVERIFY(!f.model.indexOfKey(QString()).isValid());
}

void RepoModelTest::filters()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("libalpha").state(DependError)),
                   stored(named("beta").state(DependSuccess)),
                   stored(named("alpha").section(QStringLiteral("net")))});
    const QPersistentModelIndex main = find(f.proxy, QStringLiteral("main"));
    const QPersistentModelIndex beta = find(f.proxy, QStringLiteral("beta"));
    const QPersistentModelIndex libalpha = find(f.proxy, QStringLiteral("libalpha"));
    int layouts = 0;
    connect(&f.proxy, &RepoProxyModel::layoutChanged, this, [&layouts] { ++layouts; });
    QSignalSpy removals(&f.proxy, &RepoProxyModel::rowsRemoved);
    f.proxy.setFilterFixedString(QStringLiteral("ALPHA"));
    QCOMPARE(treeText(f.proxy),
             QStringLiteral("repo [0]\n  main [0]\n    Networking [-1]\n      alpha [-1]\n"
                            "    System Administration [0]\n      libalpha [0]\n"));
    QCOMPARE(layouts, 1);
    QCOMPARE(removals.count(), 0);
    QVERIFY(main.isValid());
    QVERIFY(!beta.isValid());
    QCOMPARE(libalpha.row(), 0);
    QCOMPARE(f.proxy.shownPackages(), 2);

    f.proxy.setShownStates(RepoProxyModel::ShowSuccess | RepoProxyModel::ShowUndefined);
    QCOMPARE(f.proxy.shownPackages(), 1);
    f.proxy.setFilterFixedString(QString());
    f.proxy.setShownStates(RepoProxyModel::ShowError);
    // Containers stay, with or without a package in them.
    QCOMPARE(treeText(f.proxy),
             QStringLiteral("repo [0]\n  main [0]\n    Networking [-1]\n    System Administration [0]\n"
                            "      libalpha [0]\n"));
    f.proxy.setShownStates(RepoProxyModel::ShowAll);
    QCOMPARE(treeText(f.proxy), treeText(f.model));
    // What is displayed is what is searched.
    f.proxy.setFilterFixedString(QStringLiteral("_1.0"));
    QCOMPARE(f.proxy.shownPackages(), 0);
    f.model.setShowVersions(true);
    QCOMPARE(f.proxy.shownPackages(), 3);
}

void RepoModelTest::filterFollowsChanges()
{
    Fixture f;
    f.model.setRepository(repository());
    f.proxy.setShownStates(RepoProxyModel::ShowError);
    f.proxy.setFilterFixedString(QStringLiteral("p"));
    PackageChanges changes;
    for (int i = 0; i < 90; ++i)
        changes.append(stored(numbered(i).state(i % 2 == 0 ? DependError : DependSuccess)));
    f.model.apply(changes);
    QCOMPARE(f.proxy.shownPackages(), 45);
    f.model.apply({stored(numbered(1).state(DependError)), stored(numbered(2).state(DependSuccess))});
    QVERIFY(f.proxy.mapFromSource(f.model.indexOfPackage(*numbered(1).build())).isValid());
    QVERIFY(!f.proxy.mapFromSource(f.model.indexOfPackage(*numbered(2).build())).isValid());
    for (PackageChange &change : changes)
        change = stored(
            PackageBuilder(*&change.package->name).section(change.package->section).state(DependError));
    f.model.apply(changes);
    QCOMPARE(f.proxy.shownPackages(), 90);
    f.model.apply({removed(numbered(4)), removed(numbered(88)), stored(named("pq").state(DependError))});
    QCOMPARE(f.proxy.shownPackages(), 89);
}

void RepoModelTest::hiddenRepositoryItem()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("a"))});
    f.proxy.setRepositoryItemHidden(true);
    const QModelIndex top = f.proxy.index(0, 0);
    QCOMPARE(top.data().toString(), QStringLiteral("main"));
    QVERIFY(!top.parent().isValid());
    QVERIFY(!f.proxy.mapFromSource(f.model.index(0, 0)).isValid());
    QCOMPARE(f.proxy.mapToSource(top), find(f.model, QStringLiteral("main")));

    QSignalSpy inserted(&f.proxy, &RepoProxyModel::rowsInserted);
    QSignalSpy removals(&f.proxy, &RepoProxyModel::rowsRemoved);
    f.model.apply({stored(named("c").component(QStringLiteral("contrib")))});
    QCOMPARE(f.proxy.rowCount(), 2);
    QVERIFY(!inserted.first().first().value<QModelIndex>().isValid()); // a component enters the top level
    f.model.apply({removed(named("a"))});
    QVERIFY(!removals.last().first().value<QModelIndex>().isValid());
    QCOMPARE(treeText(f.proxy), QStringLiteral("contrib [-1]\n  System Administration [-1]\n    c [-1]\n"));
    f.proxy.setRepositoryItemHidden(false);
    QCOMPARE(treeText(f.proxy), treeText(f.model));
}

void RepoModelTest::descendingOrder()
{
    Fixture f;
    f.model.setRepository(repository());
    f.model.apply({stored(named("a")), stored(named("b")), stored(named("d"))});
    const QPersistentModelIndex a = find(f.proxy, QStringLiteral("a"));
    f.proxy.sort(0, Qt::DescendingOrder);
    QCOMPARE(a.row(), 2);
    f.model.apply({stored(named("c")), stored(named("0")), removed(named("d"))});
    f.proxy.setFilterFixedString(QStringLiteral("c"));
    f.proxy.setFilterFixedString(QString());
    QCOMPARE(treeText(f.proxy),
             QStringLiteral("repo [-1]\n  main [-1]\n    System Administration [-1]\n"
                            "      c [-1]\n      b [-1]\n      a [-1]\n      0 [-1]\n"));
}

void RepoModelTest::randomChangesAgreeWithARebuild_data()
{
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<QString>("filter");
    QTest::newRow("plain") << false << QString();
    QTest::newRow("filtered") << false << QStringLiteral("1");
    QTest::newRow("hidden, filtered") << true << QStringLiteral("2");
}

void RepoModelTest::randomChangesAgreeWithARebuild()
{
    QFETCH(bool, hidden);
    QFETCH(QString, filter);
    Fixture f;
    f.model.setRepository(repository());
    f.proxy.setRepositoryItemHidden(hidden);
    f.proxy.setFilterFixedString(filter);
    f.proxy.setShownStates(RepoProxyModel::ShowError | RepoProxyModel::ShowUndefined);
    QRandomGenerator random(20261121);
    const QStringList sections{QStringLiteral("net"), QStringLiteral("admin"), QStringLiteral("own")};
    const QStringList components{QStringLiteral("main"), QStringLiteral("contrib")};
    for (int batch = 0; batch < 60; ++batch) {
        PackageChanges changes;
        for (int i = 0; i < 8; ++i) {
            PackageBuilder package(QStringLiteral("p%1").arg(random.bounded(30)));
            package.component(components.at(random.bounded(2))).section(sections.at(random.bounded(3)));
            package.state(static_cast<DependStatus>(random.bounded(3) - 1));
            changes.append(random.bounded(5) < 2 ? removed(package) : stored(package));
        }
        f.model.apply(changes);
        if (batch % 10 == 5)
            f.proxy.sort(0, batch % 20 == 5 ? Qt::DescendingOrder : Qt::AscendingOrder);

        RepoModel fresh;
        fresh.setRepository(repository());
        fresh.setPackages(f.model.tree().packages());
        RepoProxyModel freshProxy;
        freshProxy.setRepositoryItemHidden(hidden);
        freshProxy.setFilterFixedString(filter);
        freshProxy.setShownStates(f.proxy.shownStates());
        freshProxy.setSourceModel(&fresh);
        if (batch % 20 >= 5 && batch % 20 < 15)
            freshProxy.sort(0, Qt::DescendingOrder);
        QCOMPARE(treeText(f.model), treeText(fresh));
        QCOMPARE(treeText(f.proxy), treeText(freshProxy));
    }
}

void RepoModelTest::sixtyThousandPackages()
{
    RepoModel model;
    RepoProxyModel proxy;
    proxy.setSourceModel(&model);
    model.setRepository(repository());
    PackageChanges changes;
    for (int i = 62999; i >= 0; --i) {
        PackageBuilder package(QStringLiteral("package%1").arg((i * 7919) % 63000));
        package.section(QStringLiteral("section%1").arg(i % 57));
        if (i % 100 == 0)
            package.state(DependError);
        changes.append(stored(package));
    }
    QSignalSpy resets(&proxy, &RepoProxyModel::modelReset);
    model.apply(changes);
    QCOMPARE(resets.count(), 1);
    QCOMPARE(model.packageCount(), 63000);
    QCOMPARE(model.packageCount(DependError), 630);
    for (const PackageChange &change : qAsConst(changes)) {
        const QModelIndex index = proxy.mapFromSource(model.indexOfPackage(*change.package));
        QVERIFY(index.isValid() && model.package(proxy.mapToSource(index)) == change.package);
    }
    for (int section = 0; section < 57; ++section) {
        const QModelIndex parent = model.index(section, 0, model.index(0, 0, model.index(0, 0)));
        for (int row = 1; row < model.rowCount(parent); ++row)
            QVERIFY(model.index(row - 1, 0, parent).data().toString()
                    < model.index(row, 0, parent).data().toString());
    }
    proxy.setFilterFixedString(QStringLiteral("package6299"));
    QCOMPARE(proxy.shownPackages(), 11);
}

VELT_TEST_MAIN(RepoModelTest, QApplication)
#include "tst_repomodel.moc"
