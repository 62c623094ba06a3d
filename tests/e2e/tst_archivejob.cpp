// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "support/localapt.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/dialogs/upgradepackagesdialog.h"
#include "ui/sources/upgradesourcesdialog.h"

/** Export, import and upgrade through the window, with real repositories, archives and a real apt. */
class TestArchiveJob : public WindowTest
{
    Q_OBJECT

    std::unique_ptr<LocalApt> m_apt;

    /** What reprepro lists, and the sums of the files that it lists. */
    static QByteArray contentsOf(const QString &repository)
    {
        const QStringList base{"-b"_s, repository};
        return outputOf("reprepro"_s, base + "list|birch"_list)
               + outputOf("reprepro"_s, base + "_listchecksums"_list);
    }

    QString openRepository(const QString &name, const QStringList &packages)
    {
        QString repository = makeRepository(name, packages);
        if (!restart({repository}))
            qFatal("not opened");
        return repository;
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

    void prepare() override
    {
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("dpkg-scanpackages");
        VELT_NEED_TOOL("archivemount");
        DebBuilder("old"_s).version("2"_s).build(path("one/pool"_s));
        DebBuilder("kept"_s).version("2"_s).build(path("one/pool"_s));
        m_apt = std::make_unique<LocalApt>(m_folder->path(), "one"_list);
    }

    void finish() override { close(); }

private Q_SLOTS:
    void exportAndImportRepository()
    {
        const QString repo = openRepository("r"_s, {package("a"_s, "1"_s), package("b"_s, "1:2"_s)});
        tree()->clearSelection();
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
        WAIT_FOR(has("Repository exported."_s));
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
                                        dialog.propose("/tmp"_s, QFileInfo(m_folder->path()).fileName());
                                        const Script told{answer(import, "OK"_s, archive)};
                                        dialog.accept();
                                        dialog.propose(m_folder->path(), "new"_s);
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
        QCOMPARE(packagesOf(repo), "kept 1, old 1"_s);

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
        WAIT_FOR(has("Repo upgraded"_s));
        QCOMPARE(packagesOf(repo), "kept 1, old 2"_s);

        // What is left upgraded as well, there is nothing more, and that is said once.
        const Script rest{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                          answer("Choose packages to upgrade"_s, "OK"_s)};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(rest.isDone() && has("Repo upgraded"_s));
        const Script none{inDialog<UpgradeSourcesDialog>(QString(), chooseAll),
                          answer("Nothing to upgrade"_s, "OK"_s, "No packages for upgrading"_s)};
        action("m_upgradeRepoAction")->trigger();
        WAIT_FOR(none.isDone() && m_driver->isIdle());
        QCOMPARE(m_driver->log().count("No packages for upgrading"_s), 1);
        QVERIFY(openDialogs<QDialog>().isEmpty());
    }
};

VELT_TEST_MAIN(TestArchiveJob, QApplication)
#include "tst_archivejob.moc"
