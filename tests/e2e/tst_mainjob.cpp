// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settingskeys.h"
#include "e2e/windowdriver.h"
#include "engine/reposhell.h"
#include "platform/desktopintegration.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"
#include "ui/addpkgsettingsdialog.h"
#include "ui/newrepodialog.h"
#include "ui/packagereplacementdialog.h"
#include "ui/repowidget.h"
#include "ui/startselectactiondialog.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QProgressBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace
{
constexpr int JobTimeout = 20000; // milliseconds

#define WAIT_FOR(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), JobTimeout)

QString text(const char *ascii)
{
    return QString::fromLatin1(ascii);
}
} // namespace

/** The main job of the program, through its window and with the real tools. */
class TestMainJob : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void createAddRemoveReopen();
    void collisionOptions_data();
    void collisionOptions();
    void severalErrorsAndOtherFiles();
    void stopButtonEndsTheJob();
    void closeDuringJobNo();
    void closeDuringJobYes();
    void closeWhileQuestionIsOpen_data();
    void closeWhileQuestionIsOpen();
    void closeTabDuringJob();
    void twoTabsAskAtOnce();
    void openingWhatIsNoRepository();
    void sameDirectoryOpensOnce();
    void changeMovesTheRepository();
    void removeDeletesOnlyOnYes();
    void handOverWaitsForDialogs();
    void filesAtStartLeadToARepository();

private:
    /** Makes a repository with reprepro itself, for tests that are not about creating. */
    QString makeRepository(const char *name, const QStringList &packages = {});
    QString package(const char *name, const char *version, const char *contents = "x\n");
    /** While held, every run of reprepro waits before it begins. */
    void hold() { writeFile(m_hold, {}); }
    void release() { QFile::remove(m_hold); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<WindowDriver> m_driver;
    QByteArray m_realPath;
    QString m_hold;
};

void TestMainJob::initTestCase()
{
    VELT_NEED_TOOL("reprepro");
    VELT_NEED_TOOL("dpkg-deb");
    veltInit(text("0"), text("Velt admin repo"));
    // The window quits the application when it closes; here the tests go on.
    QApplication::setQuitOnLastWindowClosed(false);
    m_realPath = qgetenv("PATH");
}

void TestMainJob::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_hold = m_folder->filePath(text("hold"));
    writeScript(m_folder->filePath(text("bin/reprepro")),
                "#!/bin/sh\nwhile [ -e '" + m_hold.toLocal8Bit()
                    + "' ]; do sleep 0.02; done\nexec /usr/bin/reprepro \"$@\"\n");
    qputenv("PATH", m_folder->filePath(text("bin")).toLocal8Bit() + ':' + m_realPath);
    QSettings settings;
    settings.clear();
    settings.setValue(SettingsKey::ShowAddPkgSettings, false);
    settings.sync();
    m_driver = std::make_unique<WindowDriver>();
}

void TestMainJob::cleanup()
{
    release();
    if (QTest::currentTestFailed() && m_driver)
        qInfo("%s", qPrintable(m_driver->log()));
    if (m_driver) {
        m_driver->window().closeWithoutAsking();
        WAIT_FOR(!m_driver->window().isVisible());
    }
    m_driver.reset();
    qputenv("PATH", m_realPath);
    m_folder.reset();
}

QString TestMainJob::package(const char *name, const char *version, const char *contents)
{
    const QString folder = m_folder->filePath(text("files-") + text(version));
    return DebBuilder(text(name)).version(text(version)).contents(contents).build(folder);
}

QString TestMainJob::makeRepository(const char *name, const QStringList &packages)
{
    const QString path = m_folder->filePath(text(name));
    writeFile(path + text("/conf/distributions"),
              "Origin: Debian\nCodename: birch\nSuite: stable\nVersion: 1\nArchitectures: amd64\n"
              "Components: main contrib\nUDebComponents: main contrib\n");
    const auto run = [&path](const QStringList &arguments) {
        return QProcess::execute(text("/usr/bin/reprepro"),
                                 QStringList{text("-s"), text("-b"), path} + arguments);
    };
    if (run({text("export")}) != 0)
        qFatal("reprepro export failed");
    for (const QString &file : packages) {
        if (run({text("includedeb"), text("birch"), file}) != 0)
            qFatal("reprepro includedeb failed");
    }
    return path;
}

void TestMainJob::createAddRemoveReopen()
{
    const QString parent = m_folder->filePath(text("with blank & ümlaut"));
    QDir().mkpath(parent);
    const QString repo = parent + text("/my-repo");

    // Created by keyboard alone: the path has the focus, the rest comes by Tab.
    Script create{[&] {
        auto *dialog = openDialog<NewRepoDialog>(text("Repository creation"));
        if (dialog == nullptr || dialog->repoInfo().codename.isEmpty())
            return false;
        const auto type = [dialog](const QString &typed) {
            auto *edit = dialog->findChild<QLineEdit *>(dialog->focusWidget()->objectName());
            (edit != nullptr ? edit : dialog->focusWidget()->findChild<QLineEdit *>())->selectAll();
            QTest::keyClicks(dialog->focusWidget(), typed);
        };
        const auto tab = [dialog] { QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab); };
        if (dialog->focusWidget()->objectName() != text("m_pathLineEdit"))
            return false;
        type(parent);
        tab();
        tab();
        type(text("my-repo"));
        tab();
        type(text("birch"));
        tab();
        type(text("testing"));
        tab();
        type(text("2.0"));
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        return true;
    }};
    m_driver->action("m_newRepoAction")->trigger();
    WAIT_FOR(m_driver->message() == text("Repository is created.") && !m_driver->isRunning());
    QCOMPARE(m_driver->tabs()->count(), 1);
    QCOMPARE(m_driver->window().windowTitle(), text("velt-admin-repo: ") + repo);
    QCOMPARE(m_driver->tab()->repoPath(), repo);
    const QByteArray distributions = readFile(repo + text("/conf/distributions"));
    QVERIFY2(distributions.contains("Codename: birch\nSuite: testing\nVersion: 2.0\n"),
             distributions.constData());

    // Added through the file dialog, with the settings asked for, into the component that was chosen there.
    const QString deb = package("alpha", "1.0");
    const QString udeb
        = DebBuilder(text("beta")).version(text("1.0")).udeb().build(QFileInfo(deb).absolutePath());
    QSettings().setValue(SettingsKey::ShowAddPkgSettings, true);
    Script add{
        [&] {
            auto *dialog = openDialog<QFileDialog>(text("Adding Packages(my-repo)"));
            if (dialog == nullptr)
                return false;
            dialog->setDirectory(QFileInfo(deb).absolutePath());
            dialog->findChild<QLineEdit *>(text("fileNameEdit"))
                ->setText(text("\"%1\" \"%2\"").arg(QFileInfo(deb).fileName(), QFileInfo(udeb).fileName()));
            return QMetaObject::invokeMethod(dialog, "accept");
        },
        [] {
            auto *dialog = openDialog<AddPkgSettingsDialog>(text("Package add settings"));
            if (dialog == nullptr)
                return false;
            dialog->findChild<QComboBox *>(text("m_componentComboBox"))->setCurrentText(text("contrib"));
            dialog->accept();
            return true;
        }};
    // The choices are read again when a tab comes to the front.
    m_driver->tabs()->setCurrentIndex(-1);
    Q_EMIT m_driver->tabs()->currentChanged(0);
    m_driver->action("m_addPackagesAction")->trigger();
    WAIT_FOR(m_driver->tab()->repoShell()->packageCount() == 2 && !m_driver->isRunning());
    QVERIFY(add.isDone());
    QCOMPARE(packagesOf(repo, text("birch")), QStringList({text("alpha 1.0"), text("beta 1.0")}));
    QVERIFY(QDir(repo + text("/pool/contrib")).exists());
    QVERIFY2(m_driver->message().startsWith(text("2 package(s) added: ")), qPrintable(m_driver->message()));
    QCOMPARE(QSettings().value(SettingsKey::CurrentComponent).toString(), text("contrib"));

    // Removed after a question.
    QVERIFY(!m_driver->action("m_removePackagesAction")->isEnabled());
    QVERIFY(m_driver->select(text("alpha")));
    QVERIFY(m_driver->action("m_removePackagesAction")->isEnabled());
    Script no{answerBox(text("Remove confirmation"), QMessageBox::No)};
    m_driver->action("m_removePackagesAction")->trigger();
    QVERIFY(!m_driver->isRunning());
    Script yes{answerBox(text("Remove confirmation"), QMessageBox::Yes)};
    m_driver->action("m_removePackagesAction")->trigger();
    WAIT_FOR(m_driver->tab()->repoShell()->packageCount() == 1 && !m_driver->isRunning());
    QCOMPARE(packagesOf(repo, text("birch")), QStringList{text("beta 1.0")});

    // The next start finds everything again.
    QVERIFY(m_driver->window().close());
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    QCOMPARE(m_driver->tab()->repoPath(), repo);
    QCOMPARE(m_driver->tab()->repoShell()->packageCount(), 1);
    QVERIFY(m_driver->select(text("beta")));
    QVERIFY(
        m_driver->log().contains(QRegularExpression(text("\\[\\d\\d:\\d\\d:\\d\\d\\] Repositry is opened"))));
}

void TestMainJob::collisionOptions_data()
{
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("expected");
    const QStringList all{text("Apply to all")};
    // In the repository: lower 1.0, higher 3.0, equal 2.0; the files are all 2.0, in this order.
    QTest::newRow("higher") << all << text("Give preference to versions higer")
                            << text("equal 2.0 old, higher 3.0, lower 2.0");
    QTest::newRow("lower") << all << text("Give preference to versions lower")
                           << text("equal 2.0 old, higher 2.0, lower 1.0");
    QTest::newRow("replace all") << all << text("Replace all packages")
                                 << text("equal 2.0 new, higher 2.0, lower 2.0");
    QTest::newRow("replace none") << all << text("Do not replace packages")
                                  << text("equal 2.0 old, higher 3.0, lower 1.0");
    QTest::newRow("one by one") << QStringList{text("Yes"), text("No"), text("Yes")} << QString()
                                << text("equal 2.0 new, higher 3.0, lower 2.0");
}

void TestMainJob::collisionOptions()
{
    QFETCH(QStringList, buttons);
    QFETCH(QString, option);
    QFETCH(QString, expected);
    const QString repo = makeRepository(
        "r", {package("lower", "1.0"), package("higher", "3.0"), package("equal", "2.0", "old")});
    QDir(m_folder->filePath(text("files-2.0"))).removeRecursively();
    m_driver->window().close();
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    QSettings().setValue(SettingsKey::ShowAddPkgSettings, false);
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());

    QList<Script::Step> answers;
    for (const QString &button : buttons)
        answers << answerReplacement(button, option);
    const Script script(answers);
    m_driver->drop({package("lower", "2.0"), package("higher", "2.0"), package("equal", "2.0", "new")});
    WAIT_FOR(m_driver->log().contains(text("package(s) added")) && !m_driver->isRunning());
    QStringList found = packagesOf(repo, text("birch"));
    QProcess extract;
    extract.start(text("dpkg-deb"),
                  {text("--fsys-tarfile"), repo + text("/pool/main/e/equal/equal_2.0_amd64.deb")});
    QVERIFY(extract.waitForFinished());
    found.first() += extract.readAllStandardOutput().contains("new") ? text(" new") : text(" old");
    QCOMPARE(found.join(text(", ")), expected);
}

void TestMainJob::severalErrorsAndOtherFiles()
{
    const QString repo = makeRepository("r");
    QSettings().setValue(SettingsKey::RecentRepoList, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    const QList<QAction *> recent
        = m_driver->window().findChild<QMenu *>(text("m_recentReposMenu"))->actions();
    QCOMPARE(recent.first()->text(), repo);
    QVERIFY(recent.first()->isVisible());
    QVERIFY(!recent.at(1)->isVisible());
    recent.first()->trigger();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());

    const QString good = package("good", "1.0");
    QStringList files{m_folder->filePath(text("bad 1.deb")), m_folder->filePath(text("bad 2.deb"))};
    for (const QString &file : qAsConst(files))
        writeFile(file, "no package");
    const QString notes = m_folder->filePath(text("notes.txt"));
    writeFile(notes, "x");
    m_driver->drop(files + QStringList{notes, good});
    WAIT_FOR(m_driver->log().contains(text("1 package(s) added: good_1.0_amd64.deb"))
             && !m_driver->isRunning());
    QVERIFY(!m_driver->log().contains(text("notes.txt")));
    // The first error is in a box; the second waits for it.
    auto *box = openDialog<QMessageBox>(text("Error"));
    QVERIFY(box != nullptr);
    QVERIFY(box->detailedText().contains(text("bad 1.deb")));
    Script close{answerBox(text("Error"), QMessageBox::Ok), answerBox(text("Error"), QMessageBox::Ok)};
    WAIT_FOR(close.isDone() && openDialog<QMessageBox>() == nullptr);

    // Handed over by a second start: what is no package is refused with a word.
    Script refused{answerBox(text("Warning"), QMessageBox::Ok)};
    m_driver->window().onMessageReceived(notes + text("&") + package("more", "1.0"));
    WAIT_FOR(refused.isDone() && m_driver->tab()->repoShell()->packageCount() == 2 && !m_driver->isRunning());
    QCOMPARE(packagesOf(repo, text("birch")).size(), 2);
}

void TestMainJob::stopButtonEndsTheJob()
{
    const QString repo = makeRepository("r");
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    auto *bar = m_driver->window().findChild<QProgressBar *>(text("m_progressBar"));
    auto *stop = m_driver->window().findChild<QToolButton *>(text("m_stopButton"));
    QVERIFY(!bar->isVisible() && !stop->isVisible());
    QVERIFY(m_driver->action("m_changeRepoAction")->isEnabled());

    hold();
    m_driver->drop({package("a", "1"), package("b", "1"), package("c", "1")});
    WAIT_FOR(bar->isVisible() && stop->isVisible());
    for (const char *name : {"m_addPackagesAction", "m_changeRepoAction", "m_removeRepoAction"})
        QVERIFY2(!m_driver->action(name)->isEnabled(), name);
    QVERIFY(m_driver->action("m_newRepoAction")->isEnabled());
    stop->click();
    QVERIFY(!stop->isEnabled());
    release();
    WAIT_FOR(!m_driver->isRunning());
    QCOMPARE(m_driver->message(), text("Operation stopped. 1 of 3 package(s) added: a_1_amd64.deb"));
    QVERIFY(!bar->isVisible() && !stop->isVisible());
    QVERIFY(m_driver->action("m_addPackagesAction")->isEnabled());
}

void TestMainJob::closeDuringJobNo()
{
    const QString repo = makeRepository("r");
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    hold();
    m_driver->drop({package("a", "1")});
    WAIT_FOR(m_driver->message() == text("Adding package"));
    QString asked;
    Script no{[&asked] {
                  if (auto *box = openDialog<QMessageBox>(text("Warning")))
                      asked = box->text();
                  return !asked.isEmpty();
              },
              answerBox(text("Warning"), QMessageBox::No)};
    QVERIFY(!m_driver->window().close());
    QCOMPARE(asked, text("Adding package is in progress, do you really want to close the program?"));
    QVERIFY(m_driver->window().isVisible() && m_driver->isRunning());
    release();
    WAIT_FOR(!m_driver->isRunning());
    QCOMPARE(packagesOf(repo, text("birch")), QStringList{text("a 1")});
    QVERIFY(m_driver->action("m_addPackagesAction")->isEnabled());
}

void TestMainJob::closeDuringJobYes()
{
    const QString repo = makeRepository("r");
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    hold();
    m_driver->drop({package("a", "1"), package("b", "1")});
    WAIT_FOR(m_driver->message() == text("Adding packages"));
    Script yes{answerBox(text("Warning"), QMessageBox::Yes)};
    QVERIFY(!m_driver->window().close());
    // The window is there until the package at hand is in, and does nothing but wait.
    QVERIFY(m_driver->window().isVisible());
    QVERIFY(!m_driver->action("m_newRepoAction")->isEnabled());
    QVERIFY(!m_driver->window().close());
    release();
    WAIT_FOR(!m_driver->window().isVisible());
    QCOMPARE(packagesOf(repo, text("birch")), QStringList{text("a 1")});
    QCOMPARE(QSettings().value(SettingsKey::RecentOpennedRepos).toStringList(), QStringList{repo});
}

void TestMainJob::closeWhileQuestionIsOpen_data()
{
    QTest::addColumn<bool>("asked");
    QTest::newRow("by a signal") << false;
    QTest::newRow("by the user") << true;
}

void TestMainJob::closeWhileQuestionIsOpen()
{
    QFETCH(bool, asked);
    const QString repo = makeRepository("r", {package("a", "1")});
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    m_driver->drop({package("a", "2"), package("b", "1")});
    Script close{[] { return openDialog<PackageReplacementDialog>() != nullptr; },
                 [this, asked] {
                     if (asked)
                         m_driver->window().close();
                     else
                         m_driver->window().closeWithoutAsking();
                     return true;
                 }};
    Script yes{asked ? answerBox(text("Warning"), QMessageBox::Yes) : [] { return true; }};
    WAIT_FOR(!m_driver->window().isVisible());
    QVERIFY(close.isDone() && yes.isDone());
    QVERIFY(!m_driver->isRunning());
    // Nobody said yes, so the package that was there is there.
    QCOMPARE(packagesOf(repo, text("birch")), QStringList{text("a 1")});
}

void TestMainJob::closeTabDuringJob()
{
    const QString repo = makeRepository("r");
    const QString other = makeRepository("other");
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo, other});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 2 && !m_driver->isRunning(0) && !m_driver->isRunning(1));
    // With two tabs the target of a drop on the window is asked for.
    hold();
    Script choose{[&repo] {
        auto *dialog = openDialog<QInputDialog>(text("Choose repository"));
        if (dialog == nullptr)
            return false;
        dialog->setTextValue(repo);
        dialog->accept();
        return true;
    }};
    m_driver->drop({package("a", "1"), package("b", "1")});
    WAIT_FOR(m_driver->isRunning(0));
    QCOMPARE(m_driver->tabs()->currentIndex(), 0);
    WAIT_FOR(m_driver->message() == text("Adding packages"));
    Script no{answerBox(text("Warning"), QMessageBox::No)};
    Q_EMIT m_driver->tabs()->tabCloseRequested(0);
    QVERIFY(m_driver->tab(0)->isEnabled());
    Script yes{answerBox(text("Warning"), QMessageBox::Yes)};
    Q_EMIT m_driver->tabs()->tabCloseRequested(0);
    QCOMPARE(m_driver->tabs()->count(), 2);
    release();
    WAIT_FOR(m_driver->tabs()->count() == 1);
    QCOMPARE(m_driver->tab(0)->repoPath(), other);
    QCOMPARE(packagesOf(repo, text("birch")), QStringList{text("a 1")});
    // An idle tab closes at once.
    Q_EMIT m_driver->tabs()->tabCloseRequested(0);
    QCOMPARE(m_driver->tabs()->count(), 0);
    QCOMPARE(m_driver->window().windowTitle(), text("velt-admin-repo"));
    QVERIFY(!m_driver->action("m_removeRepoAction")->isEnabled());
}

void TestMainJob::twoTabsAskAtOnce()
{
    const QString one = makeRepository("one", {package("a", "1")});
    const QString two = makeRepository("two", {package("b", "1")});
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{one, two});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 2 && !m_driver->isRunning(0) && !m_driver->isRunning(1));
    // The answer must go to the tab that asks, which is not always the one in front.
    Q_EMIT m_driver->tab(0)->filesDropped({package("a", "2")});
    Q_EMIT m_driver->tab(1)->filesDropped({package("b", "2")});
    const auto dialogs = [] {
        QList<PackageReplacementDialog *> open;
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget *widget : widgets) {
            auto *dialog = qobject_cast<PackageReplacementDialog *>(widget);
            if (dialog != nullptr && dialog->isVisible())
                open << dialog;
        }
        return open;
    };
    const auto answer = [&dialogs](const char *package, QDialogButtonBox::StandardButton button) {
        return [&dialogs, package, button] {
            const auto open = dialogs();
            for (PackageReplacementDialog *dialog : open) {
                const QString question = dialog->findChild<QLabel *>(text("m_questionLabel"))->text();
                if (question.contains(text(" %1 (").arg(text(package)))) {
                    dialog->findChild<QDialogButtonBox *>()->button(button)->click();
                    return true;
                }
            }
            return false;
        };
    };
    Script both{[&dialogs] { return dialogs().size() == 2; },
                answer("a", QDialogButtonBox::Yes),
                answer("b", QDialogButtonBox::No)};
    WAIT_FOR(both.isDone() && !m_driver->isRunning(0) && !m_driver->isRunning(1));
    QCOMPARE(packagesOf(one, text("birch")), QStringList{text("a 2")});
    QCOMPARE(packagesOf(two, text("birch")), QStringList{text("b 1")});
}

void TestMainJob::openingWhatIsNoRepository()
{
    const QString plain = m_folder->filePath(text("plain"));
    writeFile(plain + text("/file"), "x");
    const QString gone = m_folder->filePath(text("gone"));
    QSettings().setValue(SettingsKey::RecentRepoList, QStringList{plain, gone});
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{gone});
    m_driver = std::make_unique<WindowDriver>();
    QCOMPARE(m_driver->tabs()->count(), 0);
    QVERIFY(m_driver->log().contains(text("File %1/conf/distributions not found!").arg(gone)));
    QVERIFY(openDialog<QMessageBox>() == nullptr);

    const QList<QAction *> recent
        = m_driver->window().findChild<QMenu *>(text("m_recentReposMenu"))->actions();
    for (const auto reply : {QMessageBox::No, QMessageBox::Yes}) {
        Script answer{answerBox(QString(), reply)};
        recent.first()->trigger();
        WAIT_FOR(answer.isDone() && m_driver->tabs()->count() == 0);
    }
    QVERIFY(m_driver->log().contains(text("File %1/conf/distributions not found!").arg(plain)));
    QVERIFY(QFile::exists(plain + text("/file")));

    Script gonebox{answerBox(text("Warning"), QMessageBox::Ok)};
    recent.at(1)->trigger();
    WAIT_FOR(gonebox.isDone());
    QCOMPARE(QSettings().value(SettingsKey::RecentRepoList).toStringList(), QStringList{plain});

    // With nothing open there is nothing to add to.
    Script warning{answerBox(text("No repository"), QMessageBox::Ok)};
    m_driver->action("m_addPackagesAction")->trigger();
    QVERIFY(warning.isDone());
}

void TestMainJob::sameDirectoryOpensOnce()
{
    const QString repo = makeRepository("r");
    const QString other = makeRepository("other");
    const QString link = m_folder->filePath(text("link"));
    QVERIFY(QFile::link(repo, link));
    QSettings().setValue(SettingsKey::RecentOpennedRepos,
                         QStringList{repo, other, link, repo + text("/../r/")});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(!m_driver->isRunning(0) && !m_driver->isRunning(1));
    QCOMPARE(m_driver->tabs()->count(), 2);
    QCOMPARE(m_driver->tabs()->currentIndex(), 0);
}

void TestMainJob::changeMovesTheRepository()
{
    const QString repo = makeRepository("r", {package("a", "1")});
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    const QString moved = m_folder->filePath(text("moved"));
    Script change{[] {
        auto *dialog = openDialog<NewRepoDialog>(text("Repository change"));
        if (dialog == nullptr)
            return false;
        auto *name = dialog->findChild<QLineEdit *>(text("m_nameLineEdit"));
        name->selectAll();
        QTest::keyClicks(name, text("moved"));
        auto *version = dialog->findChild<QLineEdit *>(text("m_versionLineEdit"));
        version->selectAll();
        QTest::keyClicks(version, text("7"));
        QTest::keyClick(version, Qt::Key_Return);
        return true;
    }};
    m_driver->action("m_changeRepoAction")->trigger();
    WAIT_FOR(m_driver->message() == text("Repository is changed.") && !m_driver->isRunning());
    QVERIFY(!QFile::exists(repo));
    QVERIFY(readFile(moved + text("/conf/distributions")).contains("Version: 7\n"));
    QCOMPARE(m_driver->tabs()->tabText(0), moved);
    QCOMPARE(m_driver->window().windowTitle(), text("velt-admin-repo: ") + moved);
    QCOMPARE(m_driver->tab()->repoShell()->packageCount(), 1);
    QCOMPARE(QSettings().value(SettingsKey::RecentRepoList).toStringList(), QStringList{moved});
}

void TestMainJob::removeDeletesOnlyOnYes()
{
    const QString repo = makeRepository("r", {package("a", "1")});
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    Script no{answerBox(text("Remove confirmation"), QMessageBox::No)};
    m_driver->action("m_removeRepoAction")->trigger();
    QVERIFY(QFile::exists(repo + text("/conf/distributions")));
    Script yes{answerBox(text("Remove confirmation"), QMessageBox::Yes)};
    m_driver->action("m_removeRepoAction")->trigger();
    WAIT_FOR(m_driver->message() == text("Repository is deleted."));
    QVERIFY(!QFile::exists(repo));
    QCOMPARE(m_driver->tabs()->count(), 0);
    QVERIFY(QSettings().value(SettingsKey::RecentRepoList).toStringList().isEmpty());
}

void TestMainJob::handOverWaitsForDialogs()
{
    const QString repo = makeRepository("r");
    QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repo});
    m_driver = std::make_unique<WindowDriver>();
    WAIT_FOR(m_driver->tabs()->count() == 1 && !m_driver->isRunning());
    const QString file = package("a", "1");
    Script dialog{[&] {
                      if (openDialog<NewRepoDialog>() == nullptr)
                          return false;
                      m_driver->window().onMessageReceived(file);
                      m_driver->window().onMessageReceived(package("b", "1"));
                      return true;
                  },
                  [this] {
                      // Still open, and nothing has begun behind it.
                      auto *open = openDialog<NewRepoDialog>();
                      if (open == nullptr || m_driver->isRunning())
                          qFatal("the files did not wait");
                      open->reject();
                      return true;
                  }};
    m_driver->action("m_newRepoAction")->trigger();
    QVERIFY(dialog.isDone());
    WAIT_FOR(m_driver->tab()->repoShell()->packageCount() == 2 && !m_driver->isRunning());
    QCOMPARE(packagesOf(repo, text("birch")).size(), 2);
}

void TestMainJob::filesAtStartLeadToARepository()
{
    const QString file = package("a", "1");
    Script cancel{[] {
        auto *dialog = openDialog<StartSelectActionDialog>(text("Select action"));
        if (dialog != nullptr)
            dialog->reject();
        return dialog != nullptr;
    }};
    m_driver->window().addPackagesFromOutside({file}, false);
    QVERIFY(cancel.isDone());
    QVERIFY(m_driver->log().contains(text("Not added: ") + file));

    Script create{[] {
                      auto *dialog = openDialog<StartSelectActionDialog>(text("Select action"));
                      if (dialog == nullptr)
                          return false;
                      dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
                      return true;
                  },
                  [this] {
                      auto *dialog = openDialog<NewRepoDialog>();
                      if (dialog == nullptr || dialog->repoInfo().codename.isEmpty())
                          return false;
                      dialog->findChild<QLineEdit *>(text("m_pathLineEdit"))->setText(m_folder->path());
                      dialog->findChild<QLineEdit *>(text("m_nameLineEdit"))->setText(text("new"));
                      dialog->accept();
                      return true;
                  }};
    m_driver->window().addPackagesFromOutside({file}, false);
    WAIT_FOR(m_driver->log().contains(text("1 package(s) added")) && !m_driver->isRunning());
    QCOMPARE(m_driver->tab()->repoPath(), m_folder->filePath(text("new")));
}

VELT_TEST_MAIN(TestMainJob, QApplication)
#include "tst_mainjob.moc"
