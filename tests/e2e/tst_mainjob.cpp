// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "ui/dialogs/addpkgsettingsdialog.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/dialogs/packagereplacementdialog.h"
#include "ui/tab/foreignchanges.h"

#include <QThreadPool>

/** The main job of the program, through its window and with the real tools. */
class TestMainJob : public WindowTest
{
    Q_OBJECT

    QByteArray m_realPath = qgetenv("PATH");

    /** While held, every run of reprepro waits before it begins. */
    void hold() { writeFile(path("hold"_s), {}); }
    void release() { QFile::remove(path("hold"_s)); }

    /** How many processes were started with this path, or any, of this test's folder. */
    int processes(const QString &name = {}) const
    {
        int count = 0;
        for (const QString &process : QDir("/proc"_s).entryList({"[0-9]*"_s}, QDir::Dirs))
            count += readFile("/proc/%1/cmdline"_s.arg(process)).contains(path(name).toUtf8()) ? 1 : 0;
        return count;
    }

    QList<QAction *> recentRepositories()
    {
        return child<QMenu>(m_driver->window(), "m_recentReposMenu")->actions();
    }

    void finish() override { release(); }

private Q_SLOTS:
    void init()
    {
        close();
        m_folder = std::make_unique<QTemporaryDir>();
        const QByteArray folder = m_folder->path().toLocal8Bit();
        writeScript(path("bin/reprepro"_s),
                    "#!/bin/sh\nwhile [ -e '" + folder
                        + "/hold' ]; do sleep 0.02; done\nexec /usr/bin/reprepro \"$@\"\n");
        qputenv("PATH", QByteArray(folder + "/bin:" + m_realPath));
        QSettings().clear();
        checkAgainstNothing();
        QVERIFY(restart({}));
    }

    void createAddRemoveReopen()
    {
        const QString parent = path("with blank & Ümlaut"_s);
        QDir().mkpath(parent);
        const QString repo = parent + "/my-repo"_s;
        // Created by keyboard alone: the path has the focus, the rest comes by Tab.
        const Script create{inDialog<NewRepoDialog>("Repository creation"_s, [&](NewRepoDialog &dialog) {
            const QWidget *focus = dialog.focusWidget();
            if (dialog.repoInfo().codename.isEmpty() || focus == nullptr
                || focus->objectName() != "m_pathLineEdit"_s)
                return false;
            for (const QString &typed : QStringList{parent, {}, "my-repo"_s, "birch"_s, "testing"_s}) {
                if (!typed.isEmpty()) {
                    QTest::keySequence(dialog.focusWidget(), QKeySequence::SelectAll);
                    QTest::keyClicks(dialog.focusWidget(), typed);
                }
                QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
            }
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
            return true;
        })};
        action("m_newRepoAction")->trigger();
        WAIT_FOR(has("Repository is created."_s));
        QCOMPARE(m_driver->window().windowTitle(), "velt-admin-repo: "_s + repo);
        QCOMPARE(m_driver->tab()->repoPath(), repo);
        const QByteArray distributions = readFile(repo + "/conf/distributions"_s);
        QVERIFY(distributions.contains("Codename: birch\nSuite: testing\n"));

        // Where the keys of the commands are no editing keys.
        // A desktop activates the window when its dialog has gone.
        m_driver->window().activateWindow();
        QTRY_COMPARE(m_driver->window().focusWidget()->objectName(), "m_repoTreeView"_s);

        // Added through the file dialog, with the settings asked for, into the component that was chosen there.
        const QString folder = QFileInfo(package("alpha"_s)).path();
        DebBuilder("beta"_s).version("1"_s).udeb().build(folder);
        QSettings().setValue(SettingsKey::ShowAddPkgSettings, true);
        const auto chooseComponent = [](AddPkgSettingsDialog &dialog) {
            child<QComboBox>(dialog, "m_componentComboBox")->setCurrentText("contrib"_s);
            return press(dialog, "OK"_s);
        };
        const Script add{
            choose("Adding Packages(my-repo)"_s, folder + R"(/"alpha_1_amd64.deb" "beta_1_amd64.udeb")"_s),
            inDialog<AddPkgSettingsDialog>("Package add settings"_s, chooseComponent)};
        // The choices are read again when a tab comes to the front.
        Q_EMIT m_driver->tabs()->currentChanged(0);
        action("m_addPackagesAction")->trigger();
        WAIT_FOR(m_driver->packageCount() == 2 && m_driver->isIdle());
        QVERIFY(add.isDone());
        QCOMPARE(packagesOf(repo), "alpha 1, beta 1"_s);
        QVERIFY(QDir(repo + "/pool/contrib"_s).exists());
        QVERIFY(m_driver->message().startsWith("2 package(s) added: "_s));
        QCOMPARE(QSettings().value(SettingsKey::CurrentComponent).toString(), "contrib"_s);

        // Removed after a question.
        QAction *remove = action("m_removePackagesAction");
        QVERIFY(!remove->isEnabled());
        m_driver->select("alpha_1");
        QVERIFY(remove->isEnabled());
        const Script confirm(
            {answer("Remove confirmation"_s, "No"_s), answer("Remove confirmation"_s, "Yes"_s)});
        remove->trigger();
        WAIT_FOR(confirm.stepsLeft() == 1 && openDialogs<QDialog>().isEmpty());
        QVERIFY(m_driver->isIdle());
        remove->trigger();
        WAIT_FOR(m_driver->packageCount() == 1 && m_driver->isIdle());
        QCOMPARE(packagesOf(repo), "beta 1"_s);

        // The next start finds everything again.
        QVERIFY(m_driver->window().close());
        m_driver = std::make_unique<WindowDriver>();
        WAIT_FOR(m_driver->isIdle());
        QCOMPARE(m_driver->tab()->repoPath(), repo);
        QCOMPARE(m_driver->packageCount(), 1);
        const Script again{inDialog<QFileDialog>("Adding Packages(my-repo)"_s, [&](QFileDialog &dialog) {
            return dialog.directory().path() == folder && press(dialog, "Cancel"_s);
        })};
        action("m_addPackagesAction")->trigger();
        QVERIFY(again.isDone());
        QVERIFY(
            m_driver->log().contains(QRegularExpression("\\[\\d\\d:\\d\\d:\\d\\d\\] Repositry is opened"_s)));
    }

    void severalErrorsAndOtherFiles()
    {
        const QString repo = makeRepository("r"_s);
        QSettings().setValue(SettingsKey::RecentRepoList, QStringList{repo});
        QVERIFY(restart({}));
        const QList<QAction *> recent = recentRepositories();
        QVERIFY(recent.at(0)->isVisible() && !recent.at(1)->isVisible());
        // What is no package is refused before anything is asked about it.
        writeFile(path("other.txt"_s), "no package");
        const Script refused{answer("Warning"_s, "OK"_s, "Only packages"_s)};
        m_driver->window().onMessageReceived(path("other.txt"_s));
        WAIT_FOR(refused.isDone());
        QCOMPARE(recent.first()->text(), repo);
        recent.first()->trigger();
        WAIT_FOR(m_driver->isIdle());

        for (const char *name : {"bad 1.deb", "bad 2.deb", "notes.txt"})
            writeFile(path(QString::fromLatin1(name)), "no package");
        m_driver->drop({path("bad 1.deb"_s), path("bad 2.deb"_s), path("notes.txt"_s), package("good"_s)});
        WAIT_FOR(m_driver->log().contains("1 package(s) added: good_1_amd64.deb"_s) && m_driver->isIdle());
        QVERIFY(!m_driver->log().contains("notes.txt"_s));
        // One box for all that failed in the job.
        const auto boxes = openDialogs<QMessageBox>("Error"_s);
        QCOMPARE(boxes.size(), 1);
        for (const char *name : {"bad 1.deb", "bad 2.deb"}) {
            QVERIFY(boxes.first()->detailedText().contains(QLatin1String(name)));
            QVERIFY(boxes.first()->text().contains(QLatin1String(name)));
        }
        // Handed over by a second start: what is no package is refused with a word.
        const Script answers({answer("Error"_s, "OK"_s), answer("Warning"_s, "OK"_s)});
        const QString more
            = DebBuilder("more"_s).version("1"_s).fileName("R&D more&.deb"_s).build(path("x"_s));
        m_driver->window().onMessageReceived(path("notes.txt"_s) + "&"_s + more);
        WAIT_FOR(answers.isDone() && m_driver->packageCount() == 2 && m_driver->isIdle());
        QCOMPARE(packagesOf(repo), "good 1, more 1"_s);
    }

    void stopButtonEndsTheJob()
    {
        QVERIFY(restart({makeRepository("r"_s)}));
        auto *stop = child<QToolButton>(m_driver->window(), "m_stopButton");
        const auto looksRunning = [&](bool running) {
            return child<QProgressBar>(m_driver->window(), "m_progressBar")->isVisible() == running
                   && stop->isVisible() == running && action("m_newRepoAction")->isEnabled()
                   && action("m_removeRepoAction")->isEnabled() != running
                   && action("m_changeRepoAction")->isEnabled() != running;
        };
        QVERIFY(looksRunning(false));
        hold();
        m_driver->drop({package("a"_s), package("b"_s), package("c"_s)});
        WAIT_FOR(looksRunning(true) && processes("bin/reprepro"_s) > 0);
        // What is in gets checked, and that can be stopped as well.
        bool isAlive = false;
        const auto note = [&] { isAlive = stop->isVisible() && stop->isEnabled(); };
        const QObject listener;
        connect(m_driver->tab()->repoShell(), &RepoShell::goingOn, &listener, note);
        stop->click();
        QVERIFY(!stop->isEnabled());
        release();
        WAIT_FOR(m_driver->isIdle());
        QVERIFY(isAlive);
        QCOMPARE(m_driver->message(), "Operation stopped. 1 of 3 package(s) added: a_1_amd64.deb"_s);
        QVERIFY(looksRunning(false));

        // What comes while a job runs waits for its end, whatever way it comes.
        hold();
        m_driver->drop({package("d"_s)});
        WAIT_FOR(looksRunning(true));
        DebBuilder("e"_s).version("1"_s).build(path("folder/sub"_s));
        m_driver->drop({path("folder"_s)}, tree()->viewport());
        const Script choosing{choose("Adding Packages(r)"_s, package("f"_s))};
        action("m_addPackagesAction")->trigger();
        WAIT_FOR(m_driver->log().count("Will be added next: "_s) == 2);
        release();
        WAIT_FOR(m_driver->packageCount() == 4 && m_driver->isIdle());
        QCOMPARE(packagesOf(m_driver->tab()->repoPath()), "a 1, d 1, e 1, f 1"_s);
    }

    void closeDuringJob()
    {
        const QString repo = makeRepository("r"_s);
        QVERIFY(restart({repo}));
        hold();
        m_driver->drop({package("a"_s)});
        WAIT_FOR(m_driver->message() == "Adding package"_s);
        const Script no{answer("Warning"_s,
                               "No"_s,
                               "Adding package is in progress, do you really want to close the program?"_s)};
        QVERIFY(!m_driver->window().close());
        QVERIFY(no.isDone() && m_driver->window().isVisible() && !m_driver->isIdle());
        release();
        WAIT_FOR(m_driver->isIdle());
        QCOMPARE(packagesOf(repo), "a 1"_s);
        QVERIFY(action("m_addPackagesAction")->isEnabled());

        hold();
        m_driver->drop({package("b"_s), package("c"_s)});
        WAIT_FOR(m_driver->message() == "Adding packages"_s && processes("bin/reprepro"_s) > 0);
        const Script yes{answer("Warning"_s, "Yes"_s)};
        QVERIFY(!m_driver->window().close());
        // The window is there until the package at hand is in, and does nothing but wait.
        QVERIFY(!action("m_newRepoAction")->isEnabled());
        QVERIFY(!m_driver->window().close());
        QVERIFY(m_driver->window().isVisible());
        release();
        WAIT_FOR(!m_driver->window().isVisible());
        QCOMPARE(packagesOf(repo), "a 1, b 1"_s);
        QCOMPARE(QSettings().value(SettingsKey::RecentOpennedRepos).toStringList(), QStringList{repo});
    }

    void closeWhileQuestionIsOpen()
    {
        for (const bool byUser : {false, true}) {
            const QString repo = makeRepository("r%1"_s.arg(byUser), {package("a"_s)});
            const QString other = makeRepository("other%1"_s.arg(byUser));
            QVERIFY(restart({repo, other}));
            hold();
            Q_EMIT m_driver->tab(1)->filesDropped({package("c"_s), package("d"_s)});
            WAIT_FOR(processes("bin/reprepro"_s) > 0);
            Q_EMIT m_driver->tab(0)->filesDropped({package("a"_s, "2"_s), package("b"_s)});
            bool asked = false;
            const Script close{inDialog<PackageReplacementDialog>(QString(), [&](auto &) {
                const Script yes{answer("Warning"_s, "Yes"_s)};
                byUser ? void(m_driver->window().close()) : m_driver->window().closeWithoutAsking();
                asked = yes.isDone();
                return true;
            })};
            WAIT_FOR(close.isDone());
            QVERIFY(m_driver->window().isVisible());
            release();
            WAIT_FOR(!m_driver->window().isVisible());
            QVERIFY(m_driver->isIdle(2));
            QCOMPARE(processes(), 0);
            QCOMPARE(asked, byUser);
            // Nobody said yes, so the package that was there is there; the other job ended with the file at hand.
            QCOMPARE(packagesOf(repo) + " | "_s + packagesOf(other), "a 1 | c 1"_s);
            QCOMPARE(QSettings().value(SettingsKey::RecentOpennedRepos).toStringList(),
                     QStringList({repo, other}));
        }
    }

    void closeTabDuringJob()
    {
        const QString repo = makeRepository("r"_s);
        const QString other = makeRepository("other"_s);
        QVERIFY(restart({repo, other}));
        // With two tabs the target is asked for, of the command before the files are.
        const Script cancel{inDialog<QInputDialog>("Choose repository"_s, [&other](QInputDialog &dialog) {
            dialog.reject();
            return dialog.textValue() == other;
        })};
        action("m_addPackagesAction")->trigger();
        QVERIFY(cancel.isDone());
        hold();
        const Script choose{inDialog<QInputDialog>("Choose repository"_s, [&repo](QInputDialog &dialog) {
            dialog.setTextValue(repo);
            dialog.accept();
            return true;
        })};
        m_driver->drop({package("a"_s), package("b"_s)});
        WAIT_FOR(m_driver->message() == "Adding packages"_s);
        QCOMPARE(m_driver->tabs()->currentIndex(), 0);
        const Script answers{answer("Warning"_s, "No"_s), answer("Warning"_s, "Yes"_s)};
        Q_EMIT m_driver->tabs()->tabCloseRequested(0);
        QVERIFY(m_driver->tab(0)->isEnabled());
        Q_EMIT m_driver->tabs()->tabCloseRequested(0);
        QCOMPARE(m_driver->tabs()->count(), 2);
        release();
        WAIT_FOR(m_driver->tabs()->count() == 1);
        QCOMPARE(m_driver->tab(0)->repoPath(), other);
        QCOMPARE(packagesOf(repo), "a 1"_s);
        // An idle tab closes at once.
        Q_EMIT m_driver->tabs()->tabCloseRequested(0);
        QCOMPARE(m_driver->tabs()->count(), 0);
        QCOMPARE(m_driver->window().windowTitle(), "velt-admin-repo"_s);
        QVERIFY(!action("m_removeRepoAction")->isEnabled());
        // With nothing open the window offers what comes first.
        QVERIFY(!m_driver->tabs()->isVisible());
        auto *create = child<QPushButton>(m_driver->window(), "m_newRepoButton");
        const Script dialog{answer("Repository creation"_s, "Cancel"_s)};
        QTest::keyClick(create, Qt::Key_Return);
        QVERIFY(dialog.isDone());
        // Menus have keys of their own, which are not shown elsewhere.
        QCOMPARE(action("m_quitAction")->text(), "E&xit"_s);
        QCOMPARE(action("m_publishRepoAction")->toolTip(), "Publish repository"_s);
        QVERIFY(!create->text().contains("&"_s));
        QVERIFY(restart({repo}));
        QVERIFY(!child<QPushButton>(m_driver->window(), "m_newRepoButton")->isVisible());
    }

    void twoTabsAskAtOnce()
    {
        const QString one = makeRepository("one"_s, {package("a"_s)});
        const QString two = makeRepository("two"_s, {package("b"_s)});
        QVERIFY(restart({one, two}));
        // The answer must go to the tab that asks, which is not always the one in front.
        Q_EMIT m_driver->tab(0)->filesDropped({package("a"_s, "2"_s)});
        Q_EMIT m_driver->tab(1)->filesDropped({package("b"_s, "2"_s)});
        const auto reply = [](const QString &package, const QString &button) {
            return [package, button] {
                for (const auto *dialog : openDialogs<PackageReplacementDialog>()) {
                    if (child<QLabel>(*dialog, "m_questionLabel")->text().contains(package))
                        return press(*dialog, button);
                }
                return false;
            };
        };
        const Script both{[] { return openDialogs<PackageReplacementDialog>().size() == 2; },
                          reply(" a ("_s, "Yes"_s),
                          reply(" b ("_s, "No"_s)};
        WAIT_FOR(both.isDone() && m_driver->isIdle(2));
        QCOMPARE(packagesOf(one), "a 2"_s);
        QCOMPARE(packagesOf(two), "b 1"_s);

        // The log says whose words they are, and each tab keeps its last ones.
        QVERIFY(m_driver->log().contains(QRegularExpression("\\] Repositry is opened.* \\(one\\)"_s)));
        for (const int index : {0, 1, 0}) {
            m_driver->tabs()->setCurrentIndex(index);
            const QString name = index == 0 ? " (one)"_s : " (two)"_s;
            QVERIFY(!m_driver->message().isEmpty() && m_driver->log().contains(m_driver->message() + name));
        }
    }

    void reopeningAndOpening()
    {
        const QString plain = path("plain"_s);
        writeFile(plain + "/file"_s, "x");
        const QString gone = path("gone"_s);
        const QString repo = makeRepository("r"_s);
        const QString link = path("link"_s);
        QVERIFY(QFile::link(repo, link));
        // A directory is opened once, however it is spelt; what is gone is told in the log alone.
        const QString other = makeRepository("other"_s);
        const auto recentPaths = [] { return QSettings().value(SettingsKey::RecentRepoList).toStringList(); };
        const QStringList recent{path("closed"_s), other, repo};
        QSettings().setValue(SettingsKey::RecentRepoList, recent);
        QSettings().setValue(SettingsKey::RecentOpennedRepos,
                             QStringList{gone, repo, other, link, repo + "/../r/"_s});
        m_driver = std::make_unique<WindowDriver>();
        WAIT_FOR(m_driver->isIdle(2));
        const QString message = "File %1/conf/distributions not found!"_s;
        QVERIFY(m_driver->log().contains(message.arg(gone)));
        QVERIFY(openDialogs<QMessageBox>().isEmpty());
        // What the start opens is no news.
        QCOMPARE(recentPaths(), recent);

        QSettings().setValue(SettingsKey::RecentRepoList, QStringList{plain, gone});
        QVERIFY(restart({}));
        for (const QString &reply : "No|Yes"_list) {
            QList<Script::Step> steps{answer(QString(), reply)};
            if (reply == "Yes"_s)
                steps << answer("Repository import"_s, "Cancel"_s);
            const Script script(steps);
            recentRepositories().first()->trigger();
            WAIT_FOR(script.isDone() && m_driver->tabs()->count() == 0);
        }
        // What is no repository gets no place among the recent ones; a repository that is absent may keep its own.
        const Script mistake{choose("Select repository directory"_s, path("bin/."_s)),
                             answer(QString(), "No"_s)};
        action("m_openRepoAction")->trigger();
        WAIT_FOR(mistake.isDone() && m_driver->tabs()->count() == 0);
        const Script keep{answer("Recent repositories"_s, "No"_s)};
        recentRepositories().at(1)->trigger();
        WAIT_FOR(keep.isDone());
        QCOMPARE(recentPaths(), QStringList({plain, gone}));
        QVERIFY(m_driver->log().contains(message.arg(plain)));
        QVERIFY(QFile::exists(plain + "/file"_s));
        // With nothing open there is nothing to add to.
        const Script warnings{answer("Recent repositories"_s, "Yes"_s), answer("No repository"_s, "OK"_s)};
        recentRepositories().at(1)->trigger();
        WAIT_FOR(recentPaths() == QStringList{plain});
        action("m_addPackagesAction")->trigger();
        QVERIFY(warnings.isDone());
    }

    void changesOfOthersAreShown()
    {
        const QString repo = makeRepository("r"_s, {package("a"_s), package("b"_s)});
        QVERIFY(restart({repo}));
        m_driver->select("a_1");
        const QPersistentModelIndex selected = tree()->currentIndex();
        // What the window's own jobs do is nobody else's.
        m_driver->drop({package("own"_s)});
        WAIT_FOR(m_driver->packageCount() == 3 && m_driver->isIdle());
        QTest::qWait(ForeignChanges::QuietTime + 500);
        QVERIFY(!m_driver->log().contains("Another program"_s));

        const QStringList base{"-s"_s, "-b"_s, repo};
        outputOf("/usr/bin/reprepro"_s, base + "remove|birch|b"_list);
        outputOf("/usr/bin/reprepro"_s,
                 base + QStringList{"includedeb"_s, "birch"_s, package("c"_s), package("a"_s, "2"_s)});
        const auto shows = [this](const char *text) { return find(*tree()->model(), text).isValid(); };
        WAIT_FOR(shows("a_2") && shows("c_1") && shows("own_1") && !shows("b_1") && m_driver->isIdle());
        QVERIFY(m_driver->message().startsWith("Another program has changed the repository: "_s));
        QCOMPARE(tree()->currentIndex(), QModelIndex(selected));
        QVERIFY(tree()->selectionModel()->isSelected(selected));

        // A disk that has gone takes nothing from the list.
        QVERIFY(QDir().rename(repo + "/dists"_s, repo + "/away"_s));
        const Script told{answer("Error"_s, "OK"_s)};
        QTest::keyClick(&m_driver->window(), Qt::Key_F5);
        WAIT_FOR(told.isDone() && m_driver->isIdle());
        QCOMPARE(m_driver->packageCount(), 3);
        QVERIFY(QDir().rename(repo + "/away"_s, repo + "/dists"_s));
        // A desktop activates the window when its dialog has gone.
        m_driver->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_driver->window()));
        WAIT_FOR(m_driver->isIdle());
        QTest::keyClick(&m_driver->window(), Qt::Key_F5);
        WAIT_FOR(m_driver->message() == "Repository is unchanged"_s && m_driver->isIdle());
    }

    void changeMovesAndRemovalDeletes()
    {
        const QString repo = makeRepository("r"_s, {package("a"_s)});
        QVERIFY(restart({repo}));
        const QString moved = path("moved"_s);
        const Script change{
            inDialog<NewRepoDialog>("Repository change"_s,
                                    [](NewRepoDialog &dialog) {
                                        child<QLineEdit>(dialog, "m_nameLineEdit")->setText("moved"_s);
                                        child<QLineEdit>(dialog, "m_versionLineEdit")->setText("7"_s);
                                        QTest::keyClick(child<QLineEdit>(dialog, "m_versionLineEdit"),
                                                        Qt::Key_Return);
                                        return true;
                                    }),
            answer("Repository change"_s, "Yes"_s, "from %1 to %2"_s.arg(repo, moved))};
        // What was written into the description meanwhile counts.
        const QByteArray distributions = readFile(repo + "/conf/distributions"_s);
        writeFile(repo + "/conf/distributions"_s,
                  QByteArray(distributions).replace("Suite: stable", "Suite: edited"));
        action("m_changeRepoAction")->trigger();
        WAIT_FOR(has("Repository is changed."_s));
        QVERIFY(!QFile::exists(repo));
        QVERIFY(readFile(moved + "/conf/distributions"_s).contains("Suite: edited\nVersion: 7\n"));
        QCOMPARE(m_driver->tabs()->tabText(0), "moved"_s);
        QCOMPARE(m_driver->tabs()->tabToolTip(0), moved);
        QCOMPARE(QSettings().value(SettingsKey::RecentOpennedRepos).toStringList(), QStringList{moved});
        QCOMPARE(m_driver->window().windowTitle(), "velt-admin-repo: "_s + moved);
        QCOMPARE(m_driver->packageCount(), 1);
        QCOMPARE(QSettings().value(SettingsKey::RecentRepoList).toStringList(), QStringList{moved});

        // Not with a repository in it, nor without a question that names the directory.
        writeFile(moved + "/inner/conf/distributions"_s, "Codename: birch\n");
        const Script refuses{answer("Error"_s, "OK"_s, moved + "/inner"_s)};
        action("m_removeRepoAction")->trigger();
        WAIT_FOR(refuses.isDone());
        QVERIFY(QDir(moved + "/inner"_s).removeRecursively());
        const Script confirm{
            answer("Remove confirmation"_s, "No"_s, "The directory %1 is deleted"_s.arg(moved))};
        action("m_removeRepoAction")->trigger();
        WAIT_FOR(confirm.isDone());
        QVERIFY(QFile::exists(moved + "/conf/distributions"_s));
        const Script agree{answer("Remove confirmation"_s, "Yes"_s)};
        action("m_removeRepoAction")->trigger();
        WAIT_FOR(m_driver->message() == "Repository is deleted."_s);
        QVERIFY(!QFile::exists(moved));
        QCOMPARE(m_driver->tabs()->count(), 0);
        QVERIFY(QSettings().value(SettingsKey::RecentRepoList).toStringList().isEmpty());

        // One whose directory has gone meanwhile is closed and forgotten.
        QVERIFY(restart({makeRepository("r"_s)}));
        QVERIFY(QDir(repo).removeRecursively());
        const Script gone{answer("Remove confirmation"_s, "Yes"_s),
                          answer("Warning"_s, "OK"_s, "does not exist"_s)};
        action("m_removeRepoAction")->trigger();
        WAIT_FOR(gone.isDone() && m_driver->tabs()->count() == 0);
        QVERIFY(QSettings().value(SettingsKey::RecentRepoList).toStringList().isEmpty());
    }

    void handOverWaitsForDialogs()
    {
        const QString repo = makeRepository("r"_s);
        QVERIFY(restart({repo}));
        bool waited = false;
        const auto handOver = [&](NewRepoDialog &) {
            m_driver->window().onMessageReceived(package("a"_s));
            m_driver->window().onMessageReceived(package("b"_s));
            return true;
        };
        const auto look = [&](NewRepoDialog &dialog) {
            waited = m_driver->isIdle(); // nothing has begun behind it
            return press(dialog, "Cancel"_s);
        };
        const Script steps{inDialog<NewRepoDialog>({}, handOver), inDialog<NewRepoDialog>({}, look)};
        action("m_newRepoAction")->trigger();
        QVERIFY(steps.isDone() && waited);
        WAIT_FOR(m_driver->packageCount() == 2 && m_driver->isIdle());
        QCOMPARE(packagesOf(repo), "a 1, b 1"_s);
    }

    void filesAtStartLeadToARepository()
    {
        const QString file = package("a"_s);
        const auto createIn = [](const QString &folder, const char *before) {
            return inDialog<NewRepoDialog>({}, [folder, before](NewRepoDialog &dialog) {
                if (!dialog.repositoryPath().endsWith(QLatin1String(before))
                    || dialog.repoInfo().codename.isEmpty())
                    return false;
                child<QLineEdit>(dialog, "m_pathLineEdit")->setText(folder);
                child<QLineEdit>(dialog, "m_nameLineEdit")->setText("new"_s);
                return press(dialog, "OK"_s);
            });
        };
        // When it fails, the reason is told, and what was typed in comes back.
        const QList<Script::Step> failing{answer("Select action"_s, "Create repo"_s),
                                          createIn(file, ""),
                                          answer("Error"_s, "OK"_s, "Not a directory"_s)};
        const auto notAdded = [&] { return m_driver->log().count("Not added: "_s + file); };
        const auto start = [&](const QList<Script::Step> &steps) {
            const Script script(steps);
            m_driver->window().addPackagesFromOutside({file}, false);
            return QTest::qWaitFor([&script] { return script.isDone(); }, 20000);
        };
        QVERIFY(start({answer("Select action"_s, "Cancel"_s)}));
        QCOMPARE(notAdded(), 1);
        // The files are given up when the user does so, and not before.
        int asked = 0;
        QVERIFY(start(failing + QList<Script::Step>{inDialog<NewRepoDialog>({}, [&](NewRepoDialog &dialog) {
                          asked = notAdded();
                          return dialog.repositoryPath().endsWith(".deb/new"_s) && press(dialog, "Cancel"_s);
                      })}));
        WAIT_FOR(notAdded() == 2);
        QCOMPARE(asked, 1);
        QVERIFY(start(failing + QList<Script::Step>{createIn(m_folder->path(), ".deb/new")}));
        WAIT_FOR(m_driver->log().contains("1 package(s) added"_s) && m_driver->isIdle());
        QCOMPARE(m_driver->tab()->repoPath(), path("new"_s));
        QCOMPARE(notAdded(), 2);
    }

    void filesAtStartWaitForWhatWasOpen()
    {
        const QString file = package("a"_s);
        const auto start = [&](const QStringList &repositories) {
            m_driver.reset();
            QSettings().setValue(SettingsKey::RecentOpennedRepos, repositories);
            m_driver = std::make_unique<WindowDriver>();
            m_driver->window().addPackagesFromOutside({file}, false);
        };
        // The tab of what is gone is none to add to, so the user is asked as without it.
        const Script asked{answer("Select action"_s, "Cancel"_s)};
        start({path("gone"_s)});
        WAIT_FOR(asked.isDone() && m_driver->tabs()->count() == 0);
        WAIT_FOR(m_driver->log().count("Not added: "_s + file) == 1);

        // Nobody waits for ever for a disk that does not answer.
        const QStringList repositories{makeRepository("one"_s), makeRepository("two"_s)};
        QThreadPool &pool = *QThreadPool::globalInstance();
        const auto gate = std::make_shared<QSemaphore>();
        const auto open = qScopeGuard([gate, &pool, threads = pool.maxThreadCount()] {
            pool.setMaxThreadCount(threads);
            gate->release();
        });
        pool.setMaxThreadCount(1);
        QThreadPool::globalInstance()->start([gate] {
            gate->acquire();
            gate->release();
        });
        const Script chosen{answer("Choose repository"_s, "OK"_s)};
        start(repositories);
        QVERIFY(!chosen.isDone());
        WAIT_FOR(chosen.isDone());
        gate->release();
        WAIT_FOR(m_driver->log().contains("1 package(s) added"_s) && m_driver->isIdle(2));
        QVERIFY(!m_driver->log().contains("Not added"_s));
    }
};

VELT_TEST_MAIN(TestMainJob, QApplication)
#include "tst_mainjob.moc"
