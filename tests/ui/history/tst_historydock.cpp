// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/historydifference.h"
#include "engine/reposhell.h"
#include "platform/desktopintegration.h"
#include "platform/ui/desktopsetup.h"
#include "support/children.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"
#include "ui/dialogs/packagereplacementdialog.h"
#include "ui/history/historymodel.h"
#include "ui/history/historysettingsdialog.h"
#include "ui/history/historyview.h"
#include "ui/history/statedifferencedialog.h"
#include "ui/tab/repowidget.h"
#include "ui/window/mainwindow.h"

#include <QAbstractItemModelTester>
#include <QTimeZone>
#include <QtWidgets>

namespace
{
PackageChange change(const char *name, const char *before, const char *after)
{
    PackageChange change;
    change.name = QString::fromLatin1(name);
    change.component = "main"_s;
    change.architecture = "amd64"_s;
    change.before.version = QString::fromLatin1(before);
    change.after.version = QString::fromLatin1(after);
    change.kind = change.before.isNone()  ? PackageChange::Added
                  : change.after.isNone() ? PackageChange::Removed
                                          : PackageChange::Replaced;
    return change;
}

RestorePoint point(int number, const QVector<PackageChange> &changes)
{
    RestorePoint point;
    point.number = number;
    point.user = "anna"_s;
    point.summary = "Job %1"_s.arg(number);
    point.time = QDateTime(QDate(2026, 1, number), QTime(12, 0), QTimeZone::utc());
    point.changes = changes;
    point.isKept = true;
    return point;
}

/** Each row of the tree, and of the open rows below it, as the texts of three columns. */
QStringList rowsOf(const QTreeView &tree)
{
    QStringList rows;
    const QAbstractItemModel &model = *tree.model();
    const auto text = [&model](const QModelIndex &index, int column) {
        return model.data(index.siblingAtColumn(column)).toString();
    };
    for (QModelIndex index = model.index(0, 0); index.isValid(); index = tree.indexBelow(index))
        rows << (index.parent().isValid() ? text(index, HistoryModel::NameColumn) + u' ' : QString())
                    + text(index, HistoryModel::ChangeColumn);
    return rows;
}

/** Answers each question with Yes, except questions with this text, and notes what was asked. */
class Answers
{
public:
    QStringList asked;
    QString refused;

    Answers()
    {
        m_timer.callOnTimeout([this] { answer(); });
        m_timer.start(10);
    }

private:
    QTimer m_timer;

    void answer()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        const auto *buttons = dialog == nullptr ? nullptr : dialog->findChild<QDialogButtonBox *>();
        QPushButton *yes = buttons == nullptr ? nullptr : buttons->button(QDialogButtonBox::Yes);
        if (yes == nullptr)
            return;
        QPushButton *no = buttons->button(QDialogButtonBox::No);
        if (const auto *box = qobject_cast<QMessageBox *>(dialog))
            asked << box->text() + u'\n' + box->informativeText()
                         + (no->isDefault() ? QString() : "\nhasty"_s);
        const bool isRefused = !refused.isEmpty() && !asked.isEmpty() && asked.last().contains(refused);
        (isRefused ? no : yes)->click();
    }
};
} // namespace

class HistoryDockTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        veltInit("0"_s, "Velt admin repo"_s);
        veltSetUpDesktop();
        QApplication::setQuitOnLastWindowClosed(false);
    }

    void pointsAndFilter()
    {
        QAction action("Act"_s);
        QMainWindow window;
        HistoryView view({&action}, &window);
        auto *tree = child<QTreeView>(view, "m_historyTree");
        const QAbstractItemModelTester tester(tree->model());
        RepositoryHistory history;
        RestorePoint outside = point(4, {change("zsh", "1", "")});
        outside.kind = RestorePoint::Outside;
        RestorePoint damaged;
        damaged.number = 3;
        damaged.isReadable = false;
        history.points = {outside,
                          damaged,
                          point(2, {change("bash", "1", "2"), change("bash-doc", "", "2")}),
                          point(1, {change("bash", "", "1"), change("zsh", "", "1")})};
        view.setHistory(history, {});
        const QStringList closed{"Changed by another program: 1 removed"_s,
                                 "The record is damaged"_s,
                                 "Job 2: 1 added, 1 replaced"_s,
                                 "Job 1: 2 added"_s};
        QCOMPARE(rowsOf(*tree), closed);

        // A job ends while the user looks at an older point: it stays open and selected.
        const QModelIndex first = tree->model()->index(3, 0);
        tree->expand(first);
        tree->setCurrentIndex(tree->model()->index(1, 0, first));
        QCOMPARE(view.selection().change->name, "zsh"_s);
        history.points.prepend(point(5, {}));
        view.setHistory(history, {});
        QCOMPARE(rowsOf(*tree),
                 QStringList{"Job 5: no package changed"_s} + closed
                     + QStringList({"bash Added"_s, "zsh Added"_s}));
        QCOMPARE(view.selection().points, QVector<int>{1});

        auto *filter = child<QLineEdit>(view, "m_historyFilter");
        QTest::keyClicks(filter, "BASH"_s);
        QTest::keyClick(filter, Qt::Key_Return);
        QCOMPARE(rowsOf(*tree),
                 QStringList({"Job 2: 1 added, 1 replaced"_s,
                              "bash Replaced"_s,
                              "bash-doc Added"_s,
                              "Job 1: 1 added"_s,
                              "bash Added"_s}));
        QTest::keyClicks(filter, "x"_s);
        QTest::keyClick(filter, Qt::Key_Return);
        QVERIFY(child<QLabel>(*tree, "m_emptyLabel")->text().startsWith("No point"_s));
        filter->clear();
        QCOMPARE(tree->model()->rowCount(), 5);
    }

    void differences()
    {
        const QVector<RestorePoint> points{point(3, {change("zsh", "1", "")}),
                                           point(2, {change("bash", "1", "2")}),
                                           point(1, {change("bash", "", "1"), change("zsh", "", "1")})};
        StateDifferenceDialog dialog(points, 1, HistoryDifference::Now);
        const auto *view = child<QTreeView>(dialog, "m_differenceView");
        const auto *counts = child<QLabel>(dialog, "m_countsLabel");
        QTRY_COMPARE(counts->text(), "1 added"_s);
        QCOMPARE(view->model()->index(0, 5).data().toString(), "2"_s);
        auto *to = child<QComboBox>(dialog, "m_toBox");
        to->setCurrentIndex(to->findData(3));
        QTRY_COMPARE(counts->text(), "2 added"_s);
        auto *from = child<QComboBox>(dialog, "m_fromBox");
        from->setCurrentIndex(from->findData(HistoryDifference::Now));
        QTRY_COMPARE(counts->text(), "1 added"_s);
        QCOMPARE(view->model()->index(0, 0).data().toString(), "zsh"_s);
    }

    void limits()
    {
        HistoryLimits stored;
        stored.size += 1;
        HistorySettingsDialog dialog(stored);
        QVERIFY(dialog.limits() == stored);
        RepositoryHistory history;
        history.points = {point(3, {}), point(2, {}), point(1, {})};
        dialog.setHistory(history);
        auto *prune = child<QPushButton>(dialog, "m_pruneButton");
        QVERIFY(!prune->isEnabled());
        QVector<int> pruned;
        connect(&dialog,
                &HistorySettingsDialog::pruneRequested,
                this,
                [&pruned](const RepositoryHistory::Pruning &pruning) { pruned = pruning.points; });
        child<QSpinBox>(dialog, "m_historyPoints")->setValue(1);
        dialog.setObstacle("busy"_s);
        QVERIFY(!prune->isEnabled());
        dialog.setObstacle({});
        prune->click();
        QCOMPARE(pruned, (QVector<int>{1, 2}));
        stored.points = 1;
        QVERIFY(dialog.limits() == stored);
    }

    void wayBack()
    {
        VELT_NEED_TOOL("reprepro");
        const QTemporaryDir folder;
        const QString path = folder.filePath("repo"_s);
        writeFile(path + "/conf/distributions"_s,
                  "Origin: repo\nLabel: repo\nCodename: dogwood\nSuite: stable\nVersion: 1\n"
                  "Architectures: amd64\nComponents: main\nUDebComponents: main\n");
        QCOMPARE(QProcess::execute("reprepro"_s, {"-b"_s, path, "export"_s}), 0);
        QSettings().setValue("recentOpennedRepos"_s, QStringList{path});
        QSettings().setValue(SettingsKey::PreviewWhen, int(PreviewNever));
        Answers answers;
        MainWindow window;
        window.show();
        auto *tab = window.findChild<RepoWidget *>();
        RepoShell &shell = *tab->repoShell();
        const auto isIdle = [&] { return !shell.isRunning() && !shell.path().isEmpty(); };
        const auto listed = [&] {
            QStringList packages;
            for (const PackageInfoPtr &package : shell.packages())
                packages << package->name + u' ' + package->version;
            packages.sort();
            return packages.join(u',');
        };
        const auto add = [&](const char *name, const char *version) {
            shell.addPackages({DebBuilder(QLatin1String(name))
                                   .version(QLatin1String(version))
                                   .build(folder.filePath(QLatin1String(version)))});
        };
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);
        add("foo", "1");
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);
        add("foo", "2");
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);
        add("bar", "1");
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);
        QCOMPARE(listed(), "bar 1,foo 2"_s);
        answers.asked.clear();

        // The dock is hidden. The command shows it, reads the history, and asks.
        auto *dock = child<QDockWidget>(window, "historyDockWidget");
        QVERIFY(dock->isHidden());
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE_WITH_TIMEOUT(answers.asked.size(), 1, 20000);
        QVERIFY2(answers.asked.first().contains("bar (amd64): removed, version 1"_s),
                 qPrintable(answers.asked.first()));
        QVERIFY(!answers.asked.first().contains("hasty"_s));
        QTRY_COMPARE_WITH_TIMEOUT(listed(), "foo 2"_s, 20000);
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);

        // "When did this come?" leads to the point where the old version was replaced.
        QVERIFY(!dock->isHidden());
        auto *tree = child<QTreeView>(*dock, "m_historyTree");
        QTRY_COMPARE_WITH_TIMEOUT(tree->model()->rowCount(), 4, 20000);
        auto *filter = child<QLineEdit>(*dock, "m_historyFilter");
        QTest::keyClicks(filter, "foo"_s);
        QTest::keyClick(filter, Qt::Key_Return);
        QCOMPARE(tree->model()->rowCount(), 2);
        const QModelIndex replaced = tree->model()->index(0, 0);
        const QModelIndex row = tree->model()->index(0, 0, replaced);
        QCOMPARE(row.siblingAtColumn(HistoryModel::OldVersionColumn).data().toString(), "1"_s);
        auto *bringBack = child<QAction>(window, "m_bringBackAction");
        auto *goBack = child<QAction>(window, "m_goBackAction");
        // A package that was new has no old version.
        const QModelIndex added = tree->model()->index(1, 0);
        tree->setCurrentIndex(tree->model()->index(0, 0, added));
        QVERIFY(!bringBack->isEnabled());
        QVERIFY(bringBack->toolTip().contains("no old version"_s));
        tree->setCurrentIndex(row);
        QVERIFY(bringBack->isEnabled());
        bringBack->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(listed(), "foo 1"_s, 20000);
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);

        // No changes nothing; Yes goes back to the state before the first package.
        filter->clear();
        QTRY_COMPARE_WITH_TIMEOUT(tree->model()->rowCount(), 5, 20000);
        tree->setCurrentIndex(tree->model()->index(4, 0));
        QVERIFY(goBack->isEnabled());
        answers.asked.clear();
        answers.refused = "go back"_s;
        goBack->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(answers.asked.size(), 1, 20000);
        QVERIFY(answers.asked.first().contains("5 change"_s));
        QVERIFY(isIdle());
        QCOMPARE(listed(), "foo 1"_s);
        answers.refused.clear();
        goBack->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(listed(), QString(), 20000);
        QTRY_VERIFY_WITH_TIMEOUT(isIdle(), 20000);
        QTRY_VERIFY_WITH_TIMEOUT(rowsOf(*tree).first().contains("1 removed"_s), 20000);
        window.close();
    }
};

VELT_TEST_MAIN(HistoryDockTest, QApplication)
#include "tst_historydock.moc"
