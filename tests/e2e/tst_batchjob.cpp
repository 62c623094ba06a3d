// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "support/localapt.h"
#include "ui/batch/batchdialog.h"
#include "ui/sources/upgradesourcesdialog.h"

#include <QTreeWidget>

/** One command for all open repositories, through the window. */
class TestBatchJob : public WindowTest
{
    Q_OBJECT

    std::unique_ptr<LocalApt> m_apt;

    static BatchDialog *report()
    {
        const QList<BatchDialog *> dialogs = openDialogs<BatchDialog>();
        return dialogs.isEmpty() ? nullptr : dialogs.first();
    }
    static void closeReport()
    {
        if (report() != nullptr)
            report()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static bool isOver()
    {
        return report() != nullptr && child<QPushButton>(*report(), "m_saveButton")->isEnabled();
    }
    /** "repository|state|result" of each row, with the first words of its errors below. */
    static QStringList rows()
    {
        QStringList rows;
        const auto *list = child<QTreeWidget>(*report(), "m_batchList");
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *item = list->topLevelItem(i);
            rows += QStringList{item->text(0), item->text(1), item->text(2)}.join(QLatin1Char('|'));
            for (int j = 0; j < item->childCount(); ++j)
                rows += "! "_s + item->child(j)->text(2).section(QLatin1Char('\n'), 0, 0);
        }
        return rows;
    }
    /** Carries the command out; the steps answer its questions. */
    QStringList rowsOf(const char *command, const QList<Script::Step> &steps = {})
    {
        closeReport();
        const Script script(steps);
        action(command)->trigger();
        const bool isDone = QTest::qWaitFor([&] { return script.isDone() && isOver(); }, 30000);
        // What is reported comes in no box.
        if (!isDone || !openDialogs<QMessageBox>().isEmpty())
            return {"not done"_s};
        return rows();
    }

    void prepare() override
    {
        VELT_NEED_TOOL("apt-get");
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("old"_s).version("2"_s).build(path("one/pool"_s));
        m_apt = std::make_unique<LocalApt>(m_folder->path(), "one"_list);
        QVERIFY(restart({makeRepository("r"_s, {package("old"_s)}),
                         makeRepository("other/r"_s, {package("same"_s)}),
                         makeRepository("empty"_s)}));
    }

private Q_SLOTS:
    void everyRepositoryGetsAnArchive()
    {
        // The archive of the last one would lie in itself.
        const QString folder = path("empty/out"_s);
        QVERIFY(QDir().mkpath(folder));
        const auto exportTo = choose("Folder for the archives"_s, folder);
        const QStringList rows = rowsOf("m_batchExportAction", {exportTo});
        QVERIFY2(rows.size() == 4 && rows.at(0) == "r|Done|Repository exported."_s && rows.at(1) == rows.at(0)
                     && rows.at(2).startsWith("empty|Errors|"_s) && rows.at(3).startsWith("! "_s),
                 qPrintable(rows.join(QLatin1Char('\n'))));
        QCOMPARE(QDir(folder).entryList(QDir::Files), (QStringList{"r_export.tgz"_s, "r_export_2.tgz"_s}));
        QVERIFY(outputOf("tar"_s, {"-tzf"_s, folder + "/r_export.tgz"_s}).contains("old_1_amd64.deb"));
        QVERIFY(outputOf("tar"_s, {"-tzf"_s, folder + "/r_export_2.tgz"_s}).contains("same_1_amd64.deb"));
        // What is there is replaced only when the user says so.
        const QByteArray before = readFile(folder + "/r_export.tgz"_s);
        const Script declining{exportTo, answer("Export"_s, "No"_s, "r_export_2.tgz"_s)};
        action("m_batchExportAction")->trigger();
        QVERIFY(declining.isDone() && readFile(folder + "/r_export.tgz"_s) == before);
        QVERIFY(QDir(folder).removeRecursively());
    }

    void newerPackagesComeWhereThereAreSome()
    {
        const auto chooseAll = [](const UpgradeSourcesDialog &dialog) {
            if (dialog.sources().isEmpty())
                child<QCheckBox>(dialog, "m_selectAllCheckBox")->click();
            return !dialog.sources().isEmpty() && press(dialog, "OK"_s);
        };
        const QStringList rows
            = rowsOf("m_batchUpgradeAction", {inDialog<UpgradeSourcesDialog>(QString(), chooseAll)});
        QCOMPARE(rows,
                 (QStringList{"r|Done|Repo upgraded"_s,
                              "r|Done|There are no newer packages."_s,
                              "empty|Left out|The repository is empty."_s}));
        QCOMPARE(packagesOf(path("r"_s)), "old 2"_s);
        QCOMPARE(packagesOf(path("other/r"_s)), "same 1"_s);
        const QString nothing = "|Done|Packages with missing dependencies: 0, not checked: 0"_s;
        QCOMPARE(
            rowsOf("m_batchCheckAction"),
            (QStringList{"r"_s + nothing, "r"_s + nothing, "empty|Left out|The repository is empty."_s}));
    }

    void whatCannotBeDoneIsSaid()
    {
        const QString reason = "|Left out|No server type is chosen on its page."_s;
        QCOMPARE(rowsOf("m_batchPublishAction"),
                 (QStringList{"r"_s + reason, "r"_s + reason, "empty"_s + reason}));
        QVERIFY(m_driver->isIdle(3));
        // A stop leaves the repositories out whose turn has not come, and the commands can be given again.
        const auto stop = inDialog<BatchDialog>(
            QString(), [](const BatchDialog &dialog) { return press(dialog, "Stop"_s); });
        closeReport();
        action("m_batchCheckAction")->trigger();
        QVERIFY(stop() || isOver());
        WAIT_FOR(isOver() && m_driver->isIdle(3));
        QVERIFY2(rows().last() == "empty|Left out|Stopped"_s, qPrintable(rows().join(QLatin1Char('\n'))));
        QVERIFY(action("m_batchCheckAction")->isEnabled());
    }

    void allBelowAFolderAreOpened()
    {
        makeRepository("many/one"_s);
        makeRepository("many/deep/two"_s);
        writeFile(path("many/bad/conf/distributions"_s), "Origin: nobody\n");
        QVERIFY(QFile::link(path("empty"_s), path("many/link"_s)));
        const QStringList rows
            = rowsOf("m_openBelowAction", {choose("Folder with repositories"_s, path("many"_s))});
        QVERIFY2(rows.size() == 4 && rows.at(0).startsWith("bad|Errors|"_s)
                     && rows.at(2) == "two|Done|Repositry is opened"_s
                     && rows.at(3) == "one|Done|Repositry is opened"_s,
                 qPrintable(rows.join(QLatin1Char('\n'))));
        QVERIFY(m_driver->isIdle(5));
    }
};

VELT_TEST_MAIN(TestBatchJob, QApplication)
#include "tst_batchjob.moc"
