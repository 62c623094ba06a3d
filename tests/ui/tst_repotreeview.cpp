// SPDX-License-Identifier: GPL-3.0-or-later
#include "packagetesting.h"
#include "support/testenvironment.h"
#include "ui/repomodel.h"
#include "ui/repoproxymodel.h"
#include "ui/repotreeview.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

/** What the tree keeps while its rows change, and what it takes when something is dropped on it. */
class RepoTreeViewTest : public QObject
{
    Q_OBJECT

    struct Fixture
    {
        RepoModel model;
        RepoProxyModel proxy;
        RepoTreeView view;

        explicit Fixture(int packages = 300)
        {
            proxy.setSourceModel(&model);
            view.setModel(&proxy);
            view.resize(300, 250);
            view.show();
            RepoInfo info;
            info.name = QStringLiteral("repo");
            model.setRepository(info);
            model.apply(all(packages));
        }

        static PackageChanges all(int packages)
        {
            PackageChanges changes{{PackageChange::Cleared, {}}};
            for (int i = 0; i < packages; ++i)
                changes.append({PackageChange::Stored, package(i)});
            return changes;
        }

        static PackageInfoPtr package(int i)
        {
            return PackageBuilder(QStringLiteral("p%1").arg(i, 3, 10, QLatin1Char('0')))
                .section(i % 2 == 0 ? QStringLiteral("net") : QStringLiteral("utils"))
                .build();
        }

        QModelIndex section(const char *code) const
        {
            const int component = model.tree().containerId(PackageTree::RootId, QStringLiteral("main"));
            return proxy.mapFromSource(
                model.indexOfId(model.tree().containerId(component, QString::fromLatin1(code))));
        }

        QModelIndex shown(int i) const { return proxy.mapFromSource(model.indexOfPackage(*package(i))); }

        void select(const QVector<int> &packages)
        {
            view.selectionModel()->clear();
            for (const int i : packages)
                view.selectionModel()->select(shown(i), QItemSelectionModel::Select);
            view.selectionModel()->setCurrentIndex(shown(packages.last()), QItemSelectionModel::NoUpdate);
        }

        QStringList selected() const
        {
            QStringList names;
            const QModelIndexList indexes = view.selectionModel()->selectedIndexes();
            for (const QModelIndex &index : indexes)
                names.append(index.data().toString());
            names.sort();
            return names;
        }
    };

private Q_SLOTS:
    void firstListingShowsTheSections();
    void filterKeepsExpansionSelectionAndPlace();
    void resetKeepsExpansionSelectionAndPlace();
    void searchExpandsMatchesForItsTime();
    void drops();
};

void RepoTreeViewTest::firstListingShowsTheSections()
{
    Fixture f;
    QVERIFY(f.view.isExpanded(f.proxy.index(0, 0)));
    QVERIFY(f.view.isExpanded(f.section("net").parent()));
    QVERIFY(!f.view.isExpanded(f.section("net")));
    QCOMPARE(f.view.selectionMode(), QAbstractItemView::ExtendedSelection);
    QVERIFY(f.view.isSortingEnabled());
}

void RepoTreeViewTest::filterKeepsExpansionSelectionAndPlace()
{
    Fixture f;
    f.view.expand(f.section("net"));
    f.select({100, 102, 204});
    f.view.scrollTo(f.shown(112),
                    QAbstractItemView::PositionAtTop); // not shown by the filter, the next one is
    QSignalSpy removals(&f.proxy, &RepoProxyModel::rowsRemoved);
    f.proxy.setFilterFixedString(QStringLiteral("0"));
    QCOMPARE(removals.count(), 0);
    QVERIFY(f.view.isExpanded(f.section("net")));
    QVERIFY(!f.view.isExpanded(f.section("utils")));
    QCOMPARE(f.selected().join(QLatin1Char(' ')), QStringLiteral("p100 p102 p204"));
    QCOMPARE(f.view.currentIndex().data().toString(), QStringLiteral("p204"));
    QCOMPARE(f.view.indexAt(QPoint(60, 2)).data().toString(), QStringLiteral("p120"));
    f.proxy.setFilterFixedString(QStringLiteral("4"));
    QCOMPARE(f.selected().join(QLatin1Char(' ')), QStringLiteral("p204"));
    f.proxy.setFilterFixedString(QString());
    QVERIFY(f.view.isExpanded(f.section("net")));
}

void RepoTreeViewTest::resetKeepsExpansionSelectionAndPlace()
{
    Fixture f;
    f.view.expand(f.section("net"));
    f.view.collapse(f.section("net").parent());
    f.view.expand(f.section("net").parent());
    f.select({96, 98, 100, 204});
    f.view.scrollTo(f.shown(200), QAbstractItemView::PositionAtTop);
    QSignalSpy resets(&f.proxy, &RepoProxyModel::modelReset);
    // Listed anew, as after a change of the description: first empty, then with fewer packages.
    f.model.apply({{PackageChange::Cleared, {}}});
    f.model.apply(f.all(204));
    QCOMPARE(resets.count(), 2);
    QVERIFY(f.view.isExpanded(f.section("net")));
    QVERIFY(!f.view.isExpanded(f.section("utils")));
    QCOMPARE(f.selected().join(QLatin1Char(' ')), QStringLiteral("p096 p098 p100"));
    QVERIFY(!f.view.currentIndex().isValid()); // it is gone
    QVERIFY(!f.view.visualRect(f.shown(200)).isEmpty());
    QVERIFY(f.view.viewport()->rect().intersects(f.view.visualRect(f.shown(200))));
}

void RepoTreeViewTest::searchExpandsMatchesForItsTime()
{
    Fixture f;
    f.view.expand(f.section("utils"));
    f.view.setSearching(true);
    f.proxy.setFilterFixedString(QStringLiteral("p102"));
    QVERIFY(f.view.isExpanded(f.section("net")));
    f.proxy.setFilterFixedString(QStringLiteral("p1"));
    QVERIFY(f.view.isExpanded(f.section("net")));
    f.proxy.setFilterFixedString(QString());
    f.view.setSearching(false);
    QVERIFY(!f.view.isExpanded(f.section("net")));
    QVERIFY(f.view.isExpanded(f.section("utils")));
    QVERIFY(f.view.isExpanded(f.section("net").parent()));
}

void RepoTreeViewTest::drops()
{
    Fixture f(3);
    QSignalSpy dropped(&f.view, &RepoTreeView::filesDropped);
    const auto drop = [&f](const QMimeData &data) {
        QDragEnterEvent enter(
            QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.view.viewport(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(
            QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(f.view.viewport(), &event);
        return event.isAccepted();
    };
    QMimeData files;
    files.setData(QStringLiteral("text/uri-list"), "file:///tmp/a%20b.deb\r\nfile:///tmp/b.txt\r\n");
    QVERIFY(drop(files));
    QCOMPARE(dropped.takeFirst().first().toStringList(), QStringList{QStringLiteral("/tmp/a b.deb")});
    QMimeData others;
    others.setData(QStringLiteral("text/uri-list"), "file:///tmp/b.txt\r\n");
    QVERIFY(!drop(others));
    QMimeData text;
    text.setText(QStringLiteral("file:///tmp/a.deb"));
    QVERIFY(!drop(text));
    f.view.setDropsEnabled(false);
    QVERIFY(!drop(files));
    QCOMPARE(dropped.count(), 0);
}

VELT_TEST_MAIN(RepoTreeViewTest, QApplication)
#include "tst_repotreeview.moc"
