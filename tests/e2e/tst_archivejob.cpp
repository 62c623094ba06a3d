// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settingskeys.h"
#include "e2e/windowdriver.h"
#include "platform/desktopintegration.h"
#include "support/debbuilder.h"
#include "support/localapt.h"
#include "support/testenvironment.h"
#include "ui/newrepodialog.h"
#include "ui/upgradepackagesdialog.h"
#include "ui/upgradesourcesdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QtTest>

#include <memory>

#define WAIT_FOR(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), 30000)

/** Export, import and upgrade through the window, with real repositories, archives and a real apt. */
class TestArchiveJob : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder{"/tmp/vaXXXXXX"_s};
    std::unique_ptr<LocalApt> m_apt;
    std::unique_ptr<WindowDriver> m_driver;

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QAction *action(const char *name) const { return child<QAction>(m_driver->window(), name); }

    QString package(const QString &name, const QString &version) const
    {
        return DebBuilder(name).version(version).build(path("files"_s));
    }

    static QByteArray outputOf(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(-1) || process.exitCode() != 0)
            qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
        return process.readAllStandardOutput();
    }

    /** What reprepro lists, and the sums of the files that it lists. */
    static QByteArray contentsOf(const QString &repository)
    {
        const QStringList base{"-b"_s, repository};
        return outputOf("reprepro"_s, base + QStringList{"list"_s, "birch"_s})
               + outputOf("reprepro"_s, base + QStringList{"_listchecksums"_s});
    }

    /** Makes a repository with reprepro itself and opens it alone. */
    QString openRepository(const QString &name, const QStringList &packages)
    {
        QString repository = path(name);
        writeFile(repository + "/conf/distributions"_s,
                  "Codename: birch\nSuite: stable\nVersion: 1\nArchitectures: amd64\nComponents: main\n");
        outputOf("reprepro"_s, QStringList{"-s"_s, "-b"_s, repository, "includedeb"_s, "birch"_s} + packages);
        QSettings().setValue(SettingsKey::RecentOpennedRepos, QStringList{repository});
        m_driver = std::make_unique<WindowDriver>();
        if (!QTest::qWaitFor([&] { return m_driver->isIdle(); }, 20000))
            qFatal("not opened");
        return repository;
    }

    /** Chooses a file or folder, given as a whole path, in a file dialog. */
    static Script::Step choose(const QString &title, const QString &file)
    {
        return inDialog<QFileDialog>(title, [file](QFileDialog &dialog) {
            dialog.setDirectory(QFileInfo(file).path());
            child<QLineEdit>(dialog, "fileNameEdit")->setText(QFileInfo(file).fileName());
            return QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    /** Confirms the description of the repository for an import; tells the proposed name. */
    static Script::Step describe(QString *proposed)
    {
        return inDialog<NewRepoDialog>("Repository import"_s, [proposed](NewRepoDialog &dialog) {
            if (dialog.repoInfo().codename.isEmpty())
                return false;
            if (proposed != nullptr)
                *proposed = dialog.repositoryPath();
            child<QComboBox>(dialog, "m_codeNameComboBox")->setEditText("birch"_s);
            return press(dialog, "OK"_s);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("dpkg-scanpackages");
        VELT_NEED_TOOL("archivemount");
        veltInit("0"_s, "Velt admin repo"_s);
        QApplication::setQuitOnLastWindowClosed(false);
        DebBuilder("old"_s).version("2"_s).build(path("one/pool"_s));
        DebBuilder("kept"_s).version("2"_s).build(path("one/pool"_s));
        m_apt = std::make_unique<LocalApt>(m_folder.path(), QStringList{"one"_s});
    }

    void init()
    {
        QSettings().clear();
        QSettings().setValue(SettingsKey::ShowAddPkgSettings, false);
    }

    void cleanup()
    {
        if (m_driver == nullptr)
            return;
        if (QTest::currentTestFailed())
            qInfo("%s", qPrintable(m_driver->log()));
        m_driver->window().closeWithoutAsking();
        WAIT_FOR(!m_driver->window().isVisible());
        m_driver.reset();
    }

    void exportAndImportRepository()
    {
        const QString repo = openRepository("r"_s, {package("a"_s, "1"_s), package("b"_s, "1:2"_s)});
        child<QTreeView>(*m_driver->tab(), "m_repoTreeView")->clearSelection();
        QVERIFY(!action("m_exportSelectedPackagesAction")->isEnabled());
        m_driver->select("a_1");
        QVERIFY(action("m_exportSelectedPackagesAction")->isEnabled());
        // The suffix comes by itself; what is there is replaced only when the user says so.
        const QString archive = path("r-1.0.tgz"_s);
        writeFile(archive, "mine");
        const Script naming{choose("Select export archive"_s, path("r-1.0"_s)),
                            answer("Confirm replacement"_s, "No"_s),
                            answer("Select export archive"_s, "Cancel"_s)};
        action("m_exportFullRepoAction")->trigger();
        QVERIFY(naming.isDone() && readFile(archive) == "mine");
        const Script replacing{choose("Select export archive"_s, archive),
                               answer("Confirm replacement"_s, "Yes"_s)};
        action("m_exportRepoAction")->trigger();
        WAIT_FOR(m_driver->message() == "Repository exported."_s && m_driver->isIdle());
        QVERIFY(outputOf("tar"_s, {"-tzf"_s, archive}).contains("conf/distributions"));

        // The place of the archive cannot become the repository.
        QString proposed;
        const QString import = "Repository import"_s;
        const Script importing{
            choose("Select directory"_s, path("."_s)),
            choose("Select archive with packages"_s, archive),
            inDialog<NewRepoDialog>(import,
                                    [&](NewRepoDialog &dialog) {
                                        if (dialog.repoInfo().codename.isEmpty())
                                            return false;
                                        proposed = dialog.repositoryPath();
                                        dialog.propose("/tmp"_s, QFileInfo(m_folder.path()).fileName());
                                        const Script told{
                                            inDialog<QMessageBox>(import, [&](const QMessageBox &box) {
                                                return box.text().contains(archive) && press(box, "OK"_s);
                                            })};
                                        dialog.accept();
                                        dialog.propose(m_folder.path(), "new"_s);
                                        return told.isDone();
                                    }),
            describe(nullptr)};
        action("m_importRepoAction")->trigger();
        WAIT_FOR(m_driver->isIdle(2) && m_driver->message() == "2 package(s) imported"_s);
        QCOMPARE(proposed, path("r-1.0-repo-import"_s));
        QCOMPARE(contentsOf(path("new"_s)), contentsOf(repo));
    }

    void foreignFolderIsImportedBesideIt()
    {
        openRepository("other"_s, {package("a"_s, "1"_s)});
        const QString folder = path("Some Packages"_s);
        DebBuilder("x"_s).build(folder + "/deep"_s);
        QString proposed;
        const Script steps{choose("Select repository directory"_s, folder + "/."_s),
                           answer(QString(), "Yes"_s),
                           describe(&proposed)};
        action("m_openRepoAction")->trigger();
        WAIT_FOR(steps.isDone() && m_driver->isIdle(2) && m_driver->message() == "1 package(s) imported"_s);
        QCOMPARE(proposed, path("some-packages-repo-import"_s));
        QVERIFY(QFile::exists(folder + "/deep/x_1.0_amd64.deb"_s));
        QVERIFY(contentsOf(proposed).contains("x 1.0"));
    }

    void upgradeOfOnePackage()
    {
        const QString repo
            = openRepository("upgraded"_s, {package("old"_s, "1"_s), package("kept"_s, "1"_s)});
        // Nothing chosen, and a choice that is thought better of, change nothing.
        const Script nothing{answer("Select sources to upgrade"_s, "OK"_s),
                             answer("No source selected"_s, "OK"_s)};
        action("m_upgradeRepoAction")->trigger();
        QVERIFY(nothing.isDone() && m_driver->isIdle());

        const auto chooseAll = [](const UpgradeSourcesDialog &dialog) {
            if (dialog.sources().isEmpty())
                child<QCheckBox>(dialog, "m_selectAllCheckBox")->click();
            return !dialog.sources().isEmpty() && press(dialog, "OK"_s);
        };
        const Script canceled{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                              answer("Choose packages to upgrade"_s, "Cancel"_s)};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(canceled.isDone() && m_driver->isIdle());
        QCOMPARE(outputOf("reprepro"_s, {"-b"_s, repo, "list"_s, "birch"_s}).count(" 1\n"), 2);

        const auto chooseOld = [](const UpgradePackagesDialog &dialog) {
            const auto *view = child<QTreeView>(dialog, "m_tableView");
            // All are chosen at first. Emptied, the dialog cannot be confirmed.
            child<QCheckBox>(dialog, "m_selectAllCheckBox")->click();
            if (press(dialog, "OK"_s) || dialog.packages().size() != 0)
                return false;
            const QModelIndex row = find(*view->model(), "old");
            view->model()->setData(row, Qt::Checked, Qt::CheckStateRole);
            return dialog.packages().size() == 1 && press(dialog, "OK"_s);
        };
        const Script upgrading{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                               inDialog<UpgradePackagesDialog>(QString(), chooseOld)};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(m_driver->message() == "Repo upgraded"_s && m_driver->isIdle());
        const QByteArray list = outputOf("reprepro"_s, {"-b"_s, repo, "list"_s, "birch"_s});
        QVERIFY2(list.contains("old 2\n") && list.contains("kept 1\n"), list.constData());

        // What is left upgraded as well, there is nothing more, and that is said once.
        const Script rest{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                          answer("Choose packages to upgrade"_s, "OK"_s)};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(rest.isDone() && m_driver->message() == "Repo upgraded"_s && m_driver->isIdle());
        const Script none{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                          inDialog<QMessageBox>("Nothing to upgrade"_s, [](const QMessageBox &box) {
                              return box.text() == "No packages for upgrading"_s && press(box, "OK"_s);
                          })};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(none.isDone() && m_driver->isIdle());
        QCOMPARE(m_driver->log().count("No packages for upgrading"_s), 1);
        QVERIFY(openDialogs<QDialog>().isEmpty());
    }
};

VELT_TEST_MAIN(TestArchiveJob, QApplication)
#include "tst_archivejob.moc"
