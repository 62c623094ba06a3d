// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "installability/installabilitystore.h"
#include "support/localapt.h"
#include "ui/depends/dependsmodel.h"
#include "ui/packages/packagestatusline.h"
#include "ui/search/addpackagedialog.h"

/** Checking dependencies and fetching what is missing, through the window, with a real repository and a real apt. */
class TestDependsJob : public WindowTest
{
    Q_OBJECT

    std::unique_ptr<LocalApt> m_apt;

    QTreeView *depends() const { return child<QTreeView>(*m_driver->tab(), "m_dependsTreeView"); }
    QModelIndex dependency(const char *text) const { return find(*depends()->model(), text); }
    QString counters() const
    {
        QStringList texts;
        for (const QLabel *label : child<PackageStatusLine>(*m_driver->tab(), "m_packageStatusLine")
                                       ->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly)) {
            if (!label->text().isEmpty())
                texts << label->text();
        }
        return texts.join(" "_s);
    }

    /** Opens the menu of the dependency tree on this row and returns it. */
    QMenu *menuOf(const QModelIndex &row) const
    {
        depends()->setFocus();
        depends()->selectionModel()->setCurrentIndex(
            row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        QTest::keyClick(depends(), Qt::Key_F10, Qt::ShiftModifier);
        return child<QMenu>(m_driver->window(), "m_dependsMenu");
    }

    void prepare() override
    {
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("lib"_s).version("1.2"_s).build(path("one/pool"_s));
        DebBuilder("library"_s).version("3"_s).field("Depends"_s, "meal"_s).build(path("one/pool"_s));
        DebBuilder("food"_s).field("Provides"_s, "meal"_s).build(path("one/pool"_s));
        m_apt = std::make_unique<LocalApt>(m_folder->path(), "one"_list);
        const QString app
            = DebBuilder("app"_s).field("Depends"_s, "lib (>= 1.0), base"_s).build(path("files"_s));
        QVERIFY(restart({makeRepository("r"_s, {app, package("base"_s), package("tool"_s)})}));
    }

private Q_SLOTS:
    void nothingIsCheckedWhenSwitchedOff()
    {
        m_driver->select("app_1.0");
        child<QTabWidget>(*m_driver->tab(), "tabWidget")->setCurrentIndex(1);
        const auto *empty = child<QLabel>(*m_driver->tab(), "m_dependsEmptyLabel");
        QVERIFY(empty->isVisible() && empty->text().contains("Check dependences"_s));
        action("m_checkDependsNoAction")->trigger();
        const Script told({answer("Warning!"_s, "OK"_s), answer("Warning!"_s, "OK"_s)});
        action("m_checkDependStartAction")->trigger();
        child<QToolButton>(*m_driver->tab(), "m_checkDependsToolButton")->click();
        QVERIFY(told.isDone() && m_driver->isIdle());
        QVERIFY(!m_driver->log().contains("Checking depends"_s));
        m_driver->select("tool_1");
        QCOMPARE(empty->text(), "The package has no dependencies."_s);
    }

    void missingPackageIsFoundAndAdded()
    {
        QAction *save = action("m_saveReportAction");
        QVERIFY(!save->isEnabled());
        action("m_checkDependsLocalAction")->trigger();

        // The selected package alone, then all.
        action("m_checkDependStartAction")->trigger();
        WAIT_FOR(has("Depends checked"_s));
        QCOMPARE(counters(), "2 0 1 Total: 3 package(s)"_s);
        tree()->clearSelection();
        action("m_checkDependStartAction")->trigger();
        WAIT_FOR(counters() == "0 1 2 Total: 3 package(s)"_s && m_driver->isIdle());
        QVERIFY2(m_driver->log().contains("lib, by 1"_s), qPrintable(m_driver->log()));

        m_driver->select("app_1.0");
        const QModelIndex lib = dependency("lib (>= 1.0)");
        QVERIFY(lib.isValid() && depends()->isExpanded(lib.parent()));
        QVERIFY(lib.data(Qt::ToolTipRole).toString().contains("the repository does not hold it"_s));
        QVERIFY(save->isEnabled());

        // The report, as JSON because of the kind that is chosen.
        const Script naming{inDialog<QFileDialog>("Save report"_s, [&](QFileDialog &dialog) {
            dialog.setDirectory(path("."_s));
            dialog.selectNameFilter("JSON (*.json)"_s);
            Q_EMIT dialog.filterSelected("JSON (*.json)"_s);
            auto *name = child<QLineEdit>(dialog, "fileNameEdit");
            const bool isProposed = name->text().endsWith("_dependences.json"_s);
            name->setText("report"_s);
            return isProposed && QMetaObject::invokeMethod(&dialog, "accept");
        })};
        save->trigger();
        WAIT_FOR(m_driver->message().startsWith("The report is saved in"_s));
        const QJsonObject report = QJsonDocument::fromJson(readFile(path("report.json"_s))).object();
        QCOMPARE(report.value("errors"_s).toInt(), 1);
        QCOMPARE(report.value("packages"_s).toArray().at(0).toObject().value("name"_s).toString(), "app"_s);
        const auto copied = [this] {
            QGuiApplication::clipboard()->clear();
            action("m_copyReportAction")->trigger();
            const auto text = [] { return QGuiApplication::clipboard()->text(); };
            return QTest::qWaitFor([&] { return text().contains("app 1.0 (main, amd64)"_s); }) ? text()
                                                                                               : QString();
        };
        // Another mode leaves the marks as they are, and says so; the report names the mode that they come from.
        const QString mode = "\nMode: Check depends in local repo\nDate: "_s;
        QVERIFY(copied().contains(mode));
        action("m_checkDependsAllAction")->trigger();
        QVERIFY(m_driver->message().startsWith("The marks of the packages are those of the last check"_s));
        QVERIFY(copied().contains(mode));
        // When a part was checked in this mode and the rest in that, no mode is that of all.
        m_driver->select("tool_1");
        action("m_checkDependStartAction")->trigger();
        WAIT_FOR(has("Depends checked"_s));
        const QString mixed = copied();
        QVERIFY2(!mixed.contains("Mode: "_s) && mixed.contains("Date: "_s), qPrintable(mixed));
        action("m_checkDependsLocalAction")->trigger();
        tree()->clearSelection();
        action("m_checkDependStartAction")->trigger();
        WAIT_FOR(has("Depends checked"_s));
        QVERIFY(copied().contains(mode));
        m_driver->select("app_1.0");

        // What is there already cannot be added, what is missing can; the copy has its own key.
        QMenu *menu = menuOf(dependency("base"));
        WAIT_FOR(menu->isVisible());
        QVERIFY(!action("m_addToLocalRepoAction")->isEnabled());
        menu->close();
        QTest::keyClick(depends(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), "base"_s);
        menu = menuOf(dependency("lib (>= 1.0)"));
        WAIT_FOR(menu->isVisible());
        QCOMPARE(action("m_addToLocalRepoAction")->toolTip(), "Add package to local repository"_s);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        WAIT_FOR(m_driver->packageCount() == 4 && m_driver->isIdle());
        QVERIFY(m_driver->message().startsWith("Added 1 package(s) to local repo: lib"_s));

        // The tree has followed, and stands where the user left it.
        WAIT_FOR(counters() == "0 0 4 Total: 4 package(s)"_s);
        const QModelIndex satisfied = dependency("lib (>= 1.0)");
        QCOMPARE(depends()->currentIndex().siblingAtColumn(0), satisfied);
        QVERIFY(depends()->isExpanded(satisfied.parent()));
        QVERIFY(satisfied.data(Qt::ToolTipRole).toString().contains("Local offers 1.2"_s));
        QVERIFY(!save->isEnabled());

        // What is switched off is not shown, and words say so; it comes back as it was.
        auto *success = child<QToolButton>(*m_driver->tab(), "m_showDependsSuccessToolButton");
        QVERIFY(depends()->isVisible());
        success->click();
        QVERIFY(!depends()->isVisible());
        QVERIFY(!child<QLabel>(*m_driver->tab(), "m_dependsEmptyLabel")->text().isEmpty());
        success->click();
        QVERIFY(dependency("lib (>= 1.0)").isValid());
    }

    void packageIsAddedFromElsewhere()
    {
        const auto choose = [](AddPackageDialog &dialog) {
            auto *table = dialog.findChild<QTableView *>();
            auto *field = dialog.findChild<QLineEdit *>();
            if (field->text().isEmpty())
                QTest::keyClicks(field, "libr"_s);
            if (table->model()->rowCount() != 1)
                return false;
            table->selectRow(0);
            return press(dialog, "Add"_s);
        };
        const Script adding{inDialog<AddPackageDialog>("Add package from external repo"_s, choose)};
        action("m_addPackageFromExtRepoAction")->trigger();
        WAIT_FOR(m_driver->packageCount() == 5 && m_driver->isIdle());
        QVERIFY(adding.isDone());
        QVERIFY(m_driver->message().startsWith("Added 1 package(s) to local repo: library"_s));

        // What it depends on is offered elsewhere; taken over, it is here as well.
        action("m_checkDependsAllAction")->trigger();
        tree()->clearSelection();
        action("m_checkDependsAction")->trigger();
        WAIT_FOR(has("Depends checked"_s));
        m_driver->select("library_3");
        const auto isHere = [this] {
            const QAbstractItemModel &model = *depends()->model();
            for (int column = 1; column < model.columnCount(); ++column) {
                if (model.headerData(column, Qt::Horizontal) == "Local"_s)
                    return dependency("meal Provided by ...")
                               .siblingAtColumn(column)
                               .data(DependsModel::SourceStatusRole)
                           == DependSuccess;
            }
            return false;
        };
        QVERIFY(!isHere());
        QMenu *menu = menuOf(dependency("meal Provided by ..."));
        WAIT_FOR(menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        WAIT_FOR(m_driver->packageCount() == 6 && m_driver->isIdle());
        WAIT_FOR(isHere());
    }

    void reportHoldsWhatACompleteCheckHasFound()
    {
        QVERIFY2(!action("m_copyReportAction")->isEnabled(), "no dependency is missing");
        QList<PackageInfoPtr> checked;
        for (const PackageInfoPtr &package : m_driver->tab()->repoShell()->packages()) {
            InstallabilityInfo info;
            info.state = package->name == "app"_s ? NotInstallable : Installable;
            if (info.state == NotInstallable) {
                InstallabilityStep step;
                step.kind = InstallabilityStep::Lacks;
                step.package = {package->name, package->version, package->architecture, true};
                step.field = "Depends"_s;
                step.relation = "libc6"_s;
                info.reason = {step};
            }
            const auto record = QSharedPointer<PackageInfo>::create(*package);
            record->installability = QSharedPointer<InstallabilityInfo>::create(info);
            checked << record;
        }
        const QString repository = m_driver->tab()->repoPath();
        const CompleteCheckRecord record{{}, QDateTime::currentDateTimeUtc(), "digest", false};
        QVERIFY(InstallabilityStore().save(repository, StoredCompleteCheck::of(checked, record)));
        QVERIFY(restart({repository}));
        WAIT_FOR(action("m_copyReportAction")->isEnabled());
        QGuiApplication::clipboard()->clear();
        action("m_copyReportAction")->trigger();
        const auto text = [] { return QGuiApplication::clipboard()->text(); };
        WAIT_FOR(!text().isEmpty());
        QVERIFY2(text().startsWith("Repository: "_s + repository), qPrintable(text()));
        QVERIFY2(text().contains("\n\nComplete check\n"_s)
                     && text().contains("Packages that cannot be installed: 1\n"_s)
                     && text().endsWith(
                         "\napp 1.0 (main, amd64)\n  app needs libc6; nothing at hand is called libc6\n"_s),
                 qPrintable(text()));

        const Script naming{inDialog<QFileDialog>("Save report"_s, [&](QFileDialog &dialog) {
            dialog.setDirectory(path("."_s));
            dialog.selectNameFilter("JSON (*.json)"_s);
            Q_EMIT dialog.filterSelected("JSON (*.json)"_s);
            child<QLineEdit>(dialog, "fileNameEdit")->setText("complete"_s);
            return QMetaObject::invokeMethod(&dialog, "accept");
        })};
        action("m_saveReportAction")->trigger();
        WAIT_FOR(m_driver->message().startsWith("The report is saved in"_s));
        const QJsonObject report = QJsonDocument::fromJson(readFile(path("complete.json"_s))).object();
        QCOMPARE(report["errors"_s].toInt(), 0);
        QCOMPARE(report["completeCheck"_s]["notInstallable"_s].toInt(), 1);
        QCOMPARE(report["completeCheck"_s]["packages"_s][0]["steps"_s][0]["relation"_s].toString(),
                 "libc6"_s);
    }
};

VELT_TEST_MAIN(TestDependsJob, QApplication)
#include "tst_dependsjob.moc"
