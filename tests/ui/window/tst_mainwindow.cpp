// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/qtversions.h"
#include "engine/reposhell.h"
#include "platform/desktopintegration.h"
#include "platform/ui/desktopsetup.h"
#include "platform/ui/veltaboutdialog.h"
#include "support/children.h"
#include "support/fulldisk.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/commands/gathering/gatherdialog.h"
#include "ui/contents/packagecontentsdialog.h"
#include "ui/dialogs/addpkgsettingsdialog.h"
#include "ui/dialogs/copydialog.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/dialogs/packagereplacementdialog.h"
#include "ui/dialogs/parametersdialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/publishedreposdialog.h"
#include "ui/dialogs/startselectactiondialog.h"
#include "ui/dialogs/upgradepackagesdialog.h"
#include "ui/history/historysettingsdialog.h"
#include "ui/history/statedifferencedialog.h"
#include "ui/search/addpackagedialog.h"
#include "ui/sources/externalreposdialog.h"
#include "ui/sources/externalreposourcedialog.h"
#include "ui/sources/upgradesourcesdialog.h"
#include "ui/tab/repowidget.h"
#include "ui/tab/tabtitles.h"
#include "ui/window/mainwindow.h"

#include <QtWidgets>

#include <csignal>

namespace
{
/** Notes each of these texts whose marked letter another has. */
void noteDoubles(const QStringList &texts, const QString &where, QStringList *faults)
{
    QHash<QString, QString> taken;
    for (const QString &text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty() && taken.contains(key))
            *faults << where + ": "_s + taken.value(key) + " / "_s + text;
        taken.insert(key, text);
    }
}

void noteDoublesInMenus(const QWidget &menu, QStringList *faults)
{
    QStringList texts;
    for (const QAction *action : menu.actions()) {
        texts << action->text();
        // The list of repositories holds paths.
        if (action->menu() != nullptr && action->menu()->objectName() != "m_recentReposMenu"_s)
            noteDoublesInMenus(*action->menu(), faults);
    }
    noteDoubles(texts, "menu "_s + menu.objectName(), faults);
}

bool isInput(const QWidget &widget)
{
    const auto isOne = [](const QObject &object, const char *kinds) {
        const QByteArrayList names = QByteArray(kinds).split(' ');
        return std::any_of(
            names.begin(), names.end(), [&](const auto &name) { return object.inherits(name.constData()); });
    };
    const bool isPart = widget.objectName().startsWith("qt_"_s)
                        || isOne(*widget.parentWidget(), "QTabBar QComboBox QLineEdit")
                        || isOne(widget, "QComboBoxListView QHeaderView");
    const char *inputs
        = "QAbstractButton QLineEdit QComboBox QAbstractSpinBox QAbstractItemView QPlainTextEdit QTextEdit";
    return !isPart && widget.focusPolicy() != Qt::NoFocus && isOne(widget, inputs);
}

/** What keeps somebody who does not see the window, or has no mouse, from using it. */
QStringList faultsOf(const QWidget &window)
{
    QStringList faults;
    QSet<const QWidget *> labelled;
    QStringList marked;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        labelled << label->buddy();
        if (label->buddy() != nullptr)
            marked << label->text();
        else if (label->textFormat() != Qt::PlainText && !QKeySequence::mnemonic(label->text()).isEmpty())
            faults << "no buddy: "_s + label->text();
    }
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const bool hasText = button != nullptr && !button->text().isEmpty();
        if (isInput(*widget) && !labelled.contains(widget) && !hasText
            && QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget))
                   ->text(QAccessible::Name)
                   .isEmpty())
            faults << "no name: "_s + QLatin1String(widget->metaObject()->className()) + " "_s
                          + widget->objectName();
        if (button != nullptr)
            marked << button->text();
        if (const auto *bar = qobject_cast<const QMenuBar *>(widget)) {
            for (const QAction *action : bar->actions())
                marked << action->text();
        }
        if (const auto *tabs = qobject_cast<const QTabBar *>(widget)) {
            for (int i = 0; i < tabs->count(); ++i)
                marked << tabs->tabText(i);
        }
    }
    noteDoubles(marked, QLatin1String(window.metaObject()->className()), &faults);
    return faults;
}
} // namespace

/** What the window remembers, and whether all of it can be used without a mouse. */
class MainWindowTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    /** A repository that needs no program to be read. */
    QString makeRepository(const QString &name) const
    {
        const QString path = m_folder.filePath(name);
        writeFile(path + "/conf/distributions"_s,
                  "Codename: dogwood\nSuite: stable\nVersion: 1.6\nArchitectures: amd64\nComponents: main\n"
                  "UDebComponents: main\n");
        writeFile(path + "/dists/dogwood/main/binary-amd64/Packages"_s,
                  "Package: bash\nVersion: 1\nArchitecture: amd64\nSection: shells\n"
                  "Filename: pool/b.deb\n\n");
        return path;
    }

    static bool waitForTabs(const MainWindow &window, int count)
    {
        return QTest::qWaitFor([&] {
            const auto tabs = window.findChildren<RepoWidget *>();
            return tabs.size() == count
                   && std::none_of(tabs.cbegin(), tabs.cend(), [](const RepoWidget *tab) {
                          return tab->repoPath().isEmpty() || tab->repoShell()->isRunning();
                      });
        });
    }

    static QStringList openRepositories() { return QSettings().value("recentOpennedRepos"_s).toStringList(); }

private Q_SLOTS:
    void initTestCase()
    {
        veltInit("0"_s, "Velt admin repo"_s);
        veltSetUpDesktop();
        QApplication::setQuitOnLastWindowClosed(false);
        // A command whose program is missing says so in its tool tip.
        writeScript(m_folder.filePath("bin/velt-admin-sourcelist"_s), "#!/bin/sh\n");
        qputenv("PATH", QByteArray(m_folder.filePath("bin:"_s).toLocal8Bit() + qgetenv("PATH")));
    }

    void init() { QSettings().clear(); }

    void usableWithoutMouse_data()
    {
        QTest::addColumn<QString>("language");
        for (const char *language : {"en", "de", "ru"})
            QTest::newRow(language) << QString::fromLatin1(language);
    }

    void usableWithoutMouse()
    {
        // The marks of the standard buttons come with the toolkit's texts.
        QFETCH(QString, language);
        QTranslator own;
        QTranslator toolkit;
        const QString toolkitFolder = QtVersions::translationsFolder();
        QVERIFY(own.load("velt-admin-repo_"_s + language, QStringLiteral(TRANSLATIONS)));
        QVERIFY(toolkit.load("qtbase_"_s + language, toolkitFolder));
        QCoreApplication::installTranslator(&toolkit);
        QCoreApplication::installTranslator(&own);
        QSettings().setValue("recentOpennedRepos"_s, QStringList{makeRepository("r"_s)});
        MainWindow window;
        window.show();
        child<QAction>(window, "m_showHistoryAction")->trigger();
        QVERIFY(waitForTabs(window, 1));
        QStringList faults = faultsOf(window);
        noteDoublesInMenus(*child<QMenuBar>(window, "menuBar"), &faults);
        child<QTreeView>(window, "m_dependsTreeView")->customContextMenuRequested({});
        child<QMenu>(window, "m_dependsMenu")->close();
        for (const char *menu : {"m_packageMenu", "m_tabMenu", "m_dependsMenu"})
            noteDoublesInMenus(*child<QMenu>(window, menu), &faults);
        QSet<QString> keys;
        for (const QAction *action : window.findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly)) {
            const QString key = action->shortcut().toString();
            if (!key.isEmpty() && keys.contains(key))
                faults << "two commands have the key "_s + key;
            keys << key;
        }

        Prompts prompts(&window);
        NewRepoDialog create(NewRepoDialog::Mode::Create, prompts);
        NewRepoDialog change(NewRepoDialog::Mode::Change, prompts);
        const AddPkgSettingsDialog settings({"main"_s}, UserChoices(), prompts);
        const ParametersDialog parameters(prompts);
        const PackageReplacementDialog replacement(
            RepoEnums::PACKAGE_EXISTS, *PackageBuilder("foo"_s).build(), false);
        const StartSelectActionDialog start;
        const VeltAboutDialog about(&window);
        const AddPackageDialog search(PackageFilter(), {}, {}, {}, &window);
        const ExternalReposDialog repos(ExternalRepos(), prompts);
        const ExternalRepoSourceDialog source({}, {}, [](const QString &) { return QString(); });
        const UpgradeSourcesDialog sources(ExternalRepos(), {}, &window);
        const UpgradePackagesDialog packages(
            {}, [](const QString &) { return QString(); }, &window);
        const GatherDialog missing(
            {}, [](const QString &) { return QString(); }, &window);
        auto *monitor = new PublicationMonitor(&window);
        const PublishedReposDialog published(*monitor, prompts, &window);
        const HistorySettingsDialog history({}, &window);
        const StateDifferenceDialog difference({}, 0, 0, &window);
        const auto note = [&faults](const auto &...dialogs) { ((faults << faultsOf(dialogs)), ...); };
        const CopyDialog copy(CopyDialog::Kind::Copy, {}, {{"/r"_s, {"main"_s}}}, 0);
        note(copy);
        note(create, change, settings, parameters, replacement, start);
        note(about, search, repos, source, sources, packages, missing, published);
        const PackageContentsDialog contents(*PackageBuilder("foo"_s).build(), &window);
        note(history, difference, contents);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join("\n"_s)));
    }

    void errorsAreReadAndLeftByKeyboard()
    {
        QWidget window;
        window.show();
        Prompts prompts(&window);
        prompts.showError("text"_s, QString("details\n"_s).repeated(8));
        auto *box = window.findChild<QMessageBox *>();
        QTRY_VERIFY(box->button(QMessageBox::Ok)->hasFocus());
        QCOMPARE(box->defaultButton(), box->button(QMessageBox::Ok));
        auto *details = box->findChild<QTextEdit *>();
        QVERIFY(details->height() >= 8 * details->fontMetrics().lineSpacing());
        for (int i = 0; i < 3 && !details->hasFocus(); ++i)
            QTest::keyClick(box->focusWidget(), Qt::Key_Tab);
        QTest::keyClick(details, Qt::Key_A, Qt::ControlModifier);
        QVERIFY(details->hasFocus() && details->textCursor().hasSelection());
        box->reject();
    }

    void allPartsAreReachedByKeyboard()
    {
        QSettings().setValue("recentOpennedRepos"_s, QStringList{makeRepository("r"_s)});
        MainWindow window;
        // The screen is hardly higher than the longest menu.
        window.move(0, 0);
        child<QToolBar>(window, "mainToolBar")->hide();
        window.show();
        QVERIFY(waitForTabs(window, 1));
        // The menu of an item comes to it by its key, also when it has been scrolled away.
        auto *tree = child<QTreeView>(window, "m_repoTreeView");
        auto *menu = child<QMenu>(window, "m_packageMenu");
        auto *tab = window.findChild<RepoWidget *>();
        for (const char *item : {"bash_1", "r"}) {
            tab->setCurrentItem(find(*tree->model(), item));
            QTest::keyClick(tree, Qt::Key_F10, Qt::ShiftModifier);
            QTRY_VERIFY(menu->isVisible());
            const QRect place = tree->visualRect(tree->currentIndex());
            QVERIFY(place.contains(tree->viewport()->mapFromGlobal(menu->pos())));
            const bool hasRemoval = menu->actions().contains(child<QAction>(window, "m_removeRepoAction"));
            QCOMPARE(hasRemoval, qstrcmp(item, "r") == 0);
            menu->close();
        }
        // Tab goes round through all parts of a repository, and back again.
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        tab->setFocus();
        QTRY_VERIFY(tree->hasFocus());
        const QWidget *line = child<QWidget>(*tab, "m_searchLine")->findChild<QLineEdit *>();
        for (const auto key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            QVector<const QWidget *> round;
            do {
                round << QApplication::focusWidget();
                QTest::keyClick(QApplication::focusWidget(), key);
            } while (!round.contains(QApplication::focusWidget()));
            QVERIFY(round.contains(line) && round.contains(child<QTabBar>(window, "qt_tabwidget_tabbar")));
            QVERIFY(round.size() >= 5 && tree->hasFocus());
        }
        // The filter in the menus is that of the tab.
        auto *filter = child<QMenu>(window, "m_packetFilterMenu");
        filter->actions().first()->trigger();
        QVERIFY(!find(*tree->model(), "bash_1").isValid());
        filter->actions().first()->trigger();
    }

    void tabs()
    {
        const QStringList paths{makeRepository("a/r"_s), makeRepository("b/r"_s), makeRepository("x&y<i>"_s)};
        QSettings().setValue("recentOpennedRepos"_s, paths);
        {
            MainWindow window;
            window.show();
            QVERIFY(waitForTabs(window, 3));
            auto *tabs = child<QTabWidget>(window, "tabWidget");
            QCOMPARE(tabs->tabText(0) + tabs->tabText(1) + tabs->tabText(2), "a/rb/rx&&y<i>"_s);
            QCOMPARE(tabs->tabToolTip(1), paths.at(1));
            QTextDocument tip;
            tip.setHtml(tabs->tabToolTip(2));
            QCOMPARE(tip.toPlainText(), paths.at(2));
            tabs->tabBar()->moveTab(2, 0);
            QCOMPARE(openRepositories(), QStringList({paths.at(2), paths.at(0), paths.at(1)}));
            // The middle button closes where it went down and up.
            const auto press = [&](int from, int to) {
                QTest::mousePress(
                    tabs->tabBar(), Qt::MiddleButton, {}, tabs->tabBar()->tabRect(from).center());
                QTest::mouseRelease(
                    tabs->tabBar(), Qt::MiddleButton, {}, tabs->tabBar()->tabRect(to).center());
            };
            press(0, 1);
            QCOMPARE(tabs->count(), 3);
            press(1, 1);
            QCOMPARE(tabs->count(), 2);
            QCOMPARE(tabs->tabText(1), "r"_s);
            QCOMPARE(openRepositories(), QStringList({paths.at(2), paths.at(1)}));
            tabs->setCurrentIndex(0);
            child<QSplitter>(window, "m_splitter")->setSizes({300, 600});
            Q_EMIT tabs->findChild<QSplitter *>("m_splitter"_s)->splitterMoved(300, 1);
            child<QAction>(window, "m_hideStatusLineAction")->trigger();
            child<QAction>(window, "m_showLogAction")->trigger();
            QVERIFY(window.close());
        }
        MainWindow window;
        window.show();
        QVERIFY(waitForTabs(window, 2));
        auto *tabs = child<QTabWidget>(window, "tabWidget");
        QCOMPARE(tabs->currentIndex(), 0);
        QVERIFY(child<QWidget>(window, "logDockWidget")->isVisible());
        QVERIFY(!child<QWidget>(*tabs->currentWidget(), "m_packageStatusLine")->isVisible());
        const QList<int> sizes = child<QSplitter>(*tabs->currentWidget(), "m_splitter")->sizes();
        QVERIFY2(qAbs(sizes.at(0) * 2 - sizes.at(1)) < 60,
                 qPrintable("%1 %2"_s.arg(sizes.at(0)).arg(sizes.at(1))));
        // The menu of a tab, also when one before it goes meanwhile.
        const QPoint second = tabs->tabBar()->tabRect(1).center();
        QContextMenuEvent byMouse(QContextMenuEvent::Mouse, second, tabs->tabBar()->mapToGlobal(second));
        tabs->tabBar()->moveTab(0, 1);
        QApplication::sendEvent(tabs->tabBar(), &byMouse);
        tabs->tabBar()->moveTab(0, 1);
        child<QMenu>(*tabs, "m_tabMenu")->actions().last()->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), paths.at(2));
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {}, {});
        QApplication::sendEvent(tabs->tabBar(), &byKey);
        auto *menu = child<QMenu>(*tabs, "m_tabMenu");
        menu->actions().last()->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), paths.at(2));
        menu->actions().at(1)->trigger();
        QCOMPARE(openRepositories(), QStringList{paths.at(2)});
        menu->actions().at(0)->trigger();
        QCOMPARE(tabs->count(), 0);
        QVERIFY(openRepositories().isEmpty());
        menu->close();
    }

    /** A repository on a disk that does not answer is no reason for the window to wait. */
    void deadDisk()
    {
        VELT_NEED_TOOL("archivemount");
        const QString real = makeRepository("disk/r"_s);
        const QString mount = m_folder.filePath("mount"_s);
        QVERIFY(QDir().mkdir(mount));
        QVERIFY(QProcess::execute("tar"_s, {"czf"_s, mount + ".tgz"_s, "-C"_s, real + "/.."_s, "r"_s}) == 0);
        QProcess disk;
        disk.start("archivemount"_s, {"-f"_s, "-o"_s, "readonly"_s, mount + ".tgz"_s, mount});
        QTRY_VERIFY(readFile("/proc/self/mounts"_s).contains(mount.toLocal8Bit()));
        const auto pid = static_cast<pid_t>(disk.processId());
        QVERIFY(::kill(pid, SIGSTOP) == 0);
        // So that a window that waits makes the test fail and not hang.
        QProcess::startDetached("sh"_s, {"-c"_s, "exec >/dev/null 2>&1; sleep 60; kill -CONT %1"_s.arg(pid)});

        const QString alive = makeRepository("alive"_s);
        QSettings().setValue("recentOpennedRepos"_s, QStringList{alive, mount + "/r"_s});
        QSettings().setValue("busyHttpPorts"_s, "8000"_list);
        QSettings().setValue("Published8000/repoPath"_s, QString(mount + "/r"_s));
        {
            MainWindow window;
            window.show();
            auto *tabs = child<QTabWidget>(window, "tabWidget");
            QCOMPARE(tabs->count(), 2);
            QTRY_VERIFY(!static_cast<RepoWidget *>(tabs->widget(0))->repoPath().isEmpty());
            tabs->setCurrentIndex(0);
            auto *tree = child<QTreeView>(*tabs->widget(0), "m_repoTreeView");
            for (int i = 0; i < 10; ++i)
                QTest::keyClick(tree, i < 5 ? Qt::Key_Down : Qt::Key_Up);
            QVERIFY(readFile("/proc/%1/stat"_s.arg(pid)).contains(") T "));
            QVERIFY(::kill(pid, SIGCONT) == 0);
            QTRY_VERIFY_WITH_TIMEOUT(waitForTabs(window, 2), 15000);
        }
        QCOMPARE(QProcess::execute("fusermount"_s, {"-u"_s, mount}), 0);
        disk.waitForFinished();
    }

    void titles()
    {
        const QStringList paths{"/a/x/r"_s, "/b/x/r"_s, "/r"_s, "/c/s/"_s, "/"_s};
        QCOMPARE(TabTitles::of(paths).join(" "_s), "a/x/r b/x/r /r s /"_s);
        QCOMPARE(TabTitles::of({"/a/r"_s, "/a/r"_s}).join(" "_s), "/a/r /a/r"_s);
    }

    /** Once in the log, and once more when the window is closed; nobody is there when the session ends. */
    void settingsThatCannotBeStored()
    {
        for (const bool isAsked : {true, false}) {
            QSettings().setValue("dependsRepoType"_s, 3);
            MainWindow window;
            window.show();
            const QSignalSpy closing(&window, &MainWindow::closingBegan);
            const FullDisk full(0);
            for (const char *mode : {"m_checkDependsLocalAction", "m_checkDependsAllAction"})
                child<QAction>(window, mode)->trigger();
            const QString told = "The settings cannot be stored in %1."_s.arg(QSettings().fileName());
            QCOMPARE(child<QPlainTextEdit>(window, "m_logTextEdit")->toPlainText().count(told), 1);
            QStringList boxes;
            QTimer answers;
            answers.callOnTimeout([&boxes] {
                if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                    boxes << box->text();
                    box->accept();
                }
            });
            answers.start(10);
            if (isAsked)
                QVERIFY(window.close());
            else
                window.closeWithoutAsking();
            QVERIFY(!window.isVisible());
            // What comes too late is not forgotten in silence.
            QCOMPARE(closing.count(), 1);
            window.onMessageReceived("/a&b.deb&/c.deb"_s);
            QVERIFY(child<QPlainTextEdit>(window, "m_logTextEdit")
                        ->toPlainText()
                        .contains("Not added: /a&b.deb, /c.deb"_s));
            QCOMPARE(boxes, isAsked ? QStringList(told) : QStringList());
        }
    }

    void damagedSettings()
    {
        const QRect usual = MainWindow().geometry();
        const QVariantList rubbish{QVariantMap{{"a"_s, 1}},
                                   QByteArray("\0\xff\x01", 3),
                                   -7,
                                   7,
                                   "\u0416"_s,
                                   QStringList{"x"_s, QString()}};
        for (const QVariant &value : rubbish) {
            QSettings settings;
            const QStringList keys
                = "recentOpennedRepos|recentRepoList|currentComponent|signPackage|signKeyID|"
                  "showAddPkgSettings|showPkgVersion|addPkgCheckDepends|dependsRepoType|"
                  "busyHttpPorts|MainWindow/geometry|MainWindow/state|MainWindow/extendedLog|"
                  "MainWindow/splitter|MainWindow/statusLineHidden|MainWindow/dependsHiddenStates|"
                  "MainWindow/dependsColumns|MainWindow/currentRepository"_list;
            for (const QString &key : keys)
                settings.setValue(key, value);
            MainWindow window;
            window.show();
            QVERIFY(window.width() > usual.width() / 2 && window.height() > usual.height() / 2);
            QVERIFY(child<QAction>(window, "m_checkDependsAllAction")->isChecked());
            QVERIFY(!child<QAction>(window, "m_hideStatusLineAction")->isChecked());
            QVERIFY(!child<QWidget>(window, "logDockWidget")->isVisible());
            QTRY_COMPARE(window.windowTitle(), "velt-admin-repo"_s);
            QVERIFY(window.close());
            const QStringList written = "signPackage false|showAddPkgSettings true|showPkgVersion true|"
                                        "addPkgCheckDepends true|dependsRepoType 3"_list;
            for (const QString &entry : written)
                QCOMPARE(settings.value(entry.section(" "_s, 0, 0)).toString(), entry.section(" "_s, 1));
            QVERIFY(openRepositories().isEmpty());
        }
    }
};

VELT_TEST_MAIN(MainWindowTest, QApplication)
#include "tst_mainwindow.moc"
