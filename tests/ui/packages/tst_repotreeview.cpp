// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packages/columnchoice.h"
#include "ui/packages/packagedrop.h"
#include "ui/packages/packageselection.h"
#include "ui/packages/pooldates.h"
#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"
#include "ui/packages/repotreeview.h"

#include <QtWidgets>

/** What the tree keeps while its rows change, and what it takes when something is dropped on it. */
class RepoTreeViewTest : public QObject
{
    Q_OBJECT

    /** 300 packages, the even ones in the section Networking, the others in Utilities. */
    struct Fixture
    {
        RepoModel model;
        RepoProxyModel proxy;
        RepoTreeView view;

        Fixture()
        {
            proxy.setSourceModel(&model);
            view.setModel(&proxy);
            view.resize(300, 250);
            view.show();
            RepoInfo info;
            info.name = "repo"_s;
            model.setRepository(info);
            model.apply(all(300));
        }

        static ListChanges all(int packages)
        {
            ListChanges changes{{ListChange::Cleared, {}}};
            for (int i = 0; i < packages; ++i) {
                PackageBuilder package("p%1"_s.arg(i, 3, 10, QLatin1Char('0')));
                changes.append(
                    {ListChange::Stored, package.section(i % 2 == 0 ? "net"_s : "utils"_s).build()});
            }
            return changes;
        }

        QModelIndex item(const char *text) const { return find(proxy, text); }
        bool isExpanded(const char *text) const { return view.isExpanded(item(text)); }

        void select(const QList<const char *> &packages)
        {
            view.clearSelection();
            for (const char *package : packages)
                view.selectionModel()->select(item(package), QItemSelectionModel::Select);
            view.selectionModel()->setCurrentIndex(item(packages.last()), QItemSelectionModel::NoUpdate);
        }

        QString selected() const
        {
            QStringList names;
            for (const QModelIndex &index : view.selectionModel()->selectedRows())
                names.append(index.data().toString());
            names.sort();
            return names.join(" "_s);
        }
    };

private Q_SLOTS:
    void filterKeepsExpansionSelectionAndPlace()
    {
        Fixture f;
        QVERIFY(f.isExpanded("repo") && f.isExpanded("main") && !f.isExpanded("Networking"));
        f.view.expand(f.item("Networking"));
        f.select({"p100", "p102", "p204"});
        // The filter does not show this one; the next that it shows takes its place.
        f.view.scrollTo(f.item("p112"), QAbstractItemView::PositionAtTop);
        f.proxy.setFilterFixedString("0"_s);
        QVERIFY(f.isExpanded("Networking") && !f.isExpanded("Utilities"));
        QCOMPARE(f.selected(), "p100 p102 p204"_s);
        QCOMPARE(f.view.currentIndex().data().toString(), "p204"_s);
        QCOMPARE(f.view.indexAt(QPoint(60, 2)).data().toString(), "p120"_s);
        f.proxy.setFilterFixedString("4"_s);
        QCOMPARE(f.selected(), "p204"_s);
        f.proxy.setFilterFixedString(QString());
        QVERIFY(f.isExpanded("Networking"));
    }

    void resetKeepsExpansionSelectionAndPlace()
    {
        Fixture f;
        f.view.expand(f.item("Networking"));
        f.select({"p096", "p098", "p100", "p204"});
        f.view.scrollTo(f.item("p200"), QAbstractItemView::PositionAtTop);
        QSignalSpy resets(&f.proxy, &RepoProxyModel::modelReset);
        // Listed anew, as after a change of the description: first empty, then with fewer packages.
        f.model.apply(f.all(0));
        f.model.apply(f.all(204));
        QCOMPARE(resets.count(), 2);
        QVERIFY(f.isExpanded("Networking") && !f.isExpanded("Utilities"));
        QCOMPARE(f.selected(), "p096 p098 p100"_s);
        QVERIFY(!f.view.currentIndex().isValid()); // it is gone
        QVERIFY(f.view.viewport()->rect().intersects(f.view.visualRect(f.item("p200"))));
    }

    void replacedPackagesStaySelected()
    {
        Fixture f;
        const auto change = [&f](const char *name, ListChange::Kind kind, const char *section) {
            PackageBuilder package(QString::fromLatin1(name));
            const PackageInfoPtr record = package.section(QString::fromLatin1(section)).build();
            f.model.apply({ListChange{kind, record}});
        };
        change("lone", ListChange::Stored, "editors");
        f.select({"p100", "p102", "lone"});
        for (const char *name : {"p100", "lone"}) {
            const char *section = name[0] == 'p' ? "net" : "editors";
            change(name, ListChange::Removed, section);
            change(name, ListChange::Stored, section);
        }
        QCOMPARE(f.selected(), "lone p100 p102"_s);
        QCOMPARE(f.view.currentIndex(), f.item("lone"));

        // Who has gone on meanwhile is left alone.
        change("lone", ListChange::Removed, "editors");
        QTest::keyClick(&f.view, Qt::Key_Home);
        change("lone", ListChange::Stored, "editors");
        QCOMPARE(f.selected(), "repo"_s);
    }

    void columnsOfAllTrees()
    {
        QSettings().clear();
        const QTemporaryDir pool;
        writeFile(pool.filePath("p.deb"_s), "x");
        QWidget window;
        ColumnChoice choice(&window);
        Fixture one;
        Fixture other;
        new PoolDates(&other.model);
        PackageInfo info = *PackageBuilder("p007"_s).section("utils"_s).build();
        info.root = pool.path();
        info.poolFile = "p.deb"_s;
        other.model.apply({{ListChange::Stored, PackageInfoPtr::create(info)}});
        for (Fixture *fixture : {&one, &other}) {
            fixture->view.setColumnChoice(choice);
            fixture->view.expandAll();
            fixture->select({"p004", "p007"});
        }
        QCOMPARE(other.proxy.columnCount(), 1);
        for (const char *title : {"Added", "Version"}) {
            for (QAction *action : choice.menu()->actions()) {
                if (action->text() == QLatin1String(title))
                    action->trigger();
            }
        }
        QCOMPARE(one.proxy.columnCount(), 3);
        QVERIFY(other.isExpanded("Utilities"));
        QCOMPARE(other.selected(), one.selected());
        QVERIFY(other.selected().contains("p007"_s));
        // A row is one item, in whatever column somebody clicks, and stands for one package.
        const QModelIndex version = other.item("p008").siblingAtColumn(1);
        QCOMPARE(version.data().toString(), "1.0"_s);
        other.view.scrollTo(version);
        QTest::mouseClick(other.view.viewport(), Qt::LeftButton, {}, other.view.visualRect(version).center());
        const QModelIndexList clicked = other.view.selectionModel()->selectedIndexes();
        QCOMPARE(clicked.size(), 3);
        QCOMPARE(PackageSelection::packages(clicked, other.proxy, other.model).size(), 1);
        // The dates come from the files, aside.
        const auto added
            = [&](const char *name) { return other.item(name).siblingAtColumn(2).data().toString(); };
        QTRY_COMPARE(
            added("p007"),
            QLocale().toString(QFileInfo(pool.filePath("p.deb"_s)).lastModified(), QLocale::ShortFormat));
        QCOMPARE(added("p008"), QString());
        // The choice is kept, and damaged settings are no choice.
        QCOMPARE(ColumnChoice(&window).columns().size(), 3);
        QSettings().setValue("packageColumns"_s, QStringList{"name"_s, "none"_s, "size"_s});
        QSettings().setValue("packageColumnWidths"_s, QStringList{"name"_s, "size -1"_s, "size x"_s});
        QCOMPARE(ColumnChoice(&window).columns().size(), 2);
        QCOMPARE(ColumnChoice(&window).width(PackageColumns::Size), 0);
        QSettings().clear();
    }

    void drops()
    {
        Fixture f;
        QStringList dropped;
        connect(&f.view, &RepoTreeView::filesDropped, this, [&](const auto &files) { dropped = files; });
        const auto drop = [&](const char *type, const QByteArray &data) {
            QMimeData mime;
            mime.setData(QString::fromLatin1(type), data);
            const QPoint at(5, 5);
            QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(f.view.viewport(), &enter);
            QDropEvent event(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
            dropped.clear();
            // Only what has entered can be dropped.
            return enter.isAccepted() && QApplication::sendEvent(f.view.viewport(), &event)
                   && event.isAccepted();
        };
        const QByteArray odd
            = "file:///tmp/a%20b.deb\r\nfile:///tmp/50%25%26.udeb\r\nfile:///tmp/%D0%B6.deb\r\n"
              "http://example.org/c.deb\r\nfile:///tmp/a%20b.deb\r\nfile:///tmp/.deb/x\r\n";
        QVERIFY(drop("text/uri-list", odd));
        QCOMPARE(dropped, "/tmp/a b.deb|/tmp/50%&.udeb|/tmp/\u0436.deb|/tmp/.deb/x"_list);
        QVERIFY(!drop("text/uri-list", "http://example.org/c.deb\r\n"));
        QVERIFY(!drop("text/plain", "file:///tmp/a.deb"));

        // Folders stand for the packages in them.
        const QTemporaryDir folder;
        for (const char *name : {"sub/b.udeb", "sub/notes.txt", "a.deb", "B.DEB"})
            writeFile(folder.filePath(QLatin1String(name)), {});
        const PackageDrop::Packages found
            = PackageDrop::packagesAt({"/tmp/c.deb"_s, folder.filePath("sub/notes.txt"_s), folder.path()});
        QCOMPARE(found.files,
                 QStringList({"/tmp/c.deb"_s, folder.filePath("a.deb"_s), folder.filePath("sub/b.udeb"_s)}));
        QCOMPARE(found.inFolders, 2);
        QCOMPARE(found.folders, QStringList{folder.path()});
    }
};

VELT_TEST_MAIN(RepoTreeViewTest, QApplication)
#include "tst_repotreeview.moc"
