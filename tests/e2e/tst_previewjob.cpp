// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "ui/dialogs/addpkgsettingsdialog.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/preview/previewdialog.h"

/** What the preview shows is what then happens, and nothing else; by reprepro's own listing. */
class TestPreviewJob : public WindowTest
{
    Q_OBJECT

    void setPreview(PreviewWhen when) const
    {
        child<QMenu>(m_driver->window(), "m_previewMenu")->actions().at(when)->trigger();
        // What this machine's sources offer does not count.
        auto *bases = child<QMenu>(m_driver->window(), "m_checkBaseMenu");
        Q_EMIT bases->aboutToShow();
        bases->actions().first()->trigger();
    }

    /** Waits until the effect is known, then does something with the window. */
    template <typename Act>
    static Script::Step inPreview(const Act &act)
    {
        return inDialog<PreviewDialog>("Preview"_s, [act](PreviewDialog &dialog) {
            return dialog.preview().effect.isKnown && act(dialog);
        });
    }

    /** "name version" as the repository would list them after the shown change. */
    static QString shownResult(const QString &before, const ChangePreview &preview)
    {
        QStringList lines = before.split(", "_s);
        for (const PreviewRow &row : preview.rows) {
            if (!row.takesPart())
                continue;
            lines.removeOne(row.change.name + " "_s + row.change.before.version);
            if (row.change.kind != PackageChange::Removed)
                lines << row.change.name + " "_s + row.change.after.version;
        }
        lines.removeAll(QString());
        lines.sort();
        return lines.join(", "_s);
    }

private Q_SLOTS:
    void whatIsShownHappens()
    {
        const QString repo = makeRepository(
            "shown"_s, {package("up"_s, "9"_s), package("down"_s, "2"_s), package("same"_s, "5"_s, "old\n")});
        QVERIFY(restart({repo}));
        setPreview(PreviewAlways);
        QString before;
        const QStringList files{package("up"_s, "10"_s),
                                package("down"_s, "1"_s),
                                package("same"_s, "5"_s, "new\n"),
                                package("fresh"_s),
                                package("unwanted"_s)};
        QString result;
        const Script steps{
            inPreview([&](PreviewDialog &dialog) {
                // A new package is left out, a lower version taken after all.
                auto *view = child<QTreeView>(dialog, "m_rowsView");
                auto *model = view->model();
                for (int row = 0; row < model->rowCount(); ++row) {
                    const QString name = model->index(row, 0).data().toString();
                    if (name != "unwanted"_s && name != "down"_s)
                        continue;
                    view->setCurrentIndex(model->index(row, 0));
                    QTest::keyClick(view, Qt::Key_Space);
                }
                return true;
            }),
            // Somebody else changes the repository: nothing is done, and it is shown anew.
            inPreview([&](PreviewDialog &dialog) {
                outputOf("/usr/bin/reprepro"_s, {"-b"_s, repo, "remove"_s, "birch"_s, "same"_s});
                return press(dialog, "Apply"_s);
            }),
            inPreview([&](PreviewDialog &dialog) {
                if (child<QLabel>(dialog, "m_noticeLabel")->isHidden())
                    return false;
                before = packagesOf(repo);
                result = shownResult(before, dialog.preview());
                return press(dialog, "Apply"_s);
            })};
        m_driver->drop(files);
        WAIT_FOR(steps.isDone() && m_driver->isIdle() && packagesOf(repo) != before);
        QCOMPARE(packagesOf(repo), result);
        QCOMPARE(before, "down 2, up 9"_s);
        QCOMPARE(result, "down 1, fresh 1, same 5, up 10"_s);
    }

    void onlyWhatBreaksIsShown()
    {
        const auto built = [this](const QString &name, const QString &depends) {
            return DebBuilder(name).version("1"_s).field("Depends"_s, depends).build(path("d"_s));
        };
        const QString repo
            = makeRepository("breaking"_s, {built("app"_s, "lib (= 1)"_s), built("lib"_s, {})});
        QVERIFY(restart({repo}));
        setPreview(PreviewWhenBreaking);
        // Nothing breaks: the described question comes alone, and the preview at its button.
        const Script plain{answer("Package replacement"_s, "Yes"_s)};
        m_driver->drop({DebBuilder("app"_s).version("2"_s).field("Depends"_s, "lib"_s).build(path("d"_s))});
        WAIT_FOR(plain.isDone() && m_driver->isIdle() && packagesOf(repo) == "app 2, lib 1"_s);
        // What is refused at the question stays, and a stop of the preview stops the change.
        const Script wished{
            inDialog<QMessageBox>("Remove confirmation"_s,
                                  [](const QMessageBox &box) { return press(box, "Preview..."_s); }),
            inPreview([](PreviewDialog &dialog) { return press(dialog, "Cancel"_s); })};
        m_driver->select("app_2");
        action("m_removePackagesAction")->trigger();
        WAIT_FOR(wished.isDone() && m_driver->isIdle());
        QCOMPARE(packagesOf(repo), "app 2, lib 1"_s);

        // A newer library breaks the application: the window comes instead of the question.
        const QString strict
            = DebBuilder("app"_s).version("3"_s).field("Depends"_s, "lib (= 1)"_s).build(path("d"_s));
        const Script again{answer("Package replacement"_s, "Preview..."_s),
                           inPreview([](PreviewDialog &dialog) {
                               return dialog.preview().rows.size() == 1 && press(dialog, "Apply"_s);
                           })};
        m_driver->drop({strict});
        WAIT_FOR(again.isDone() && m_driver->isIdle() && packagesOf(repo) == "app 3, lib 1"_s);
        const Script breaking{inPreview([](PreviewDialog &dialog) {
            return dialog.preview().effect.lost.size() == 1 && press(dialog, "Apply"_s);
        })};
        m_driver->drop({package("lib"_s, "2"_s)});
        WAIT_FOR(breaking.isDone() && m_driver->isIdle() && packagesOf(repo) == "app 3, lib 2"_s);
    }

    void descriptionIsPreviewedInItsDialog()
    {
        const QString repo = makeRepository("described"_s, {package("a"_s)});
        QVERIFY(restart({repo}));
        setPreview(PreviewWhenBreaking);
        const auto rename = [](NewRepoDialog &dialog) {
            child<QComboBox>(dialog, "m_codeNameComboBox")->setEditText("cedar"_s);
            return press(dialog, "Preview..."_s);
        };
        const Script steps{inDialog<NewRepoDialog>({}, rename),
                           inPreview([](PreviewDialog &dialog) {
                               auto *carry = child<QCheckBox>(dialog, "m_carryCheckBox");
                               if (!carry->isVisible() || !carry->isChecked()
                                   || dialog.preview().rows.size() > 0)
                                   return false;
                               carry->click();
                               return true;
                           }),
                           inPreview([](PreviewDialog &dialog) {
                               if (dialog.preview().rows.size() != 1)
                                   return false;
                               child<QCheckBox>(dialog, "m_carryCheckBox")->click();
                               return true;
                           }),
                           inPreview([](PreviewDialog &dialog) {
                               return dialog.preview().rows.isEmpty() && press(dialog, "Apply"_s);
                           })};
        action("m_changeRepoAction")->trigger();
        WAIT_FOR(steps.isDone() && m_driver->isIdle()
                 && m_driver->tab()->repoShell()->repoInfo().codename == "cedar"_s);
        QCOMPARE(m_driver->packageCount(), 1);

        // Without a preview, the questions come while the dialog is open, and a no leads back into it.
        const Script plain{
            inDialog<NewRepoDialog>(
                {},
                [](NewRepoDialog &dialog) {
                    child<QComboBox>(dialog, "m_codeNameComboBox")->setEditText("birch"_s);
                    return press(dialog, "OK"_s);
                }),
            inDialog<QMessageBox>("Repository change"_s,
                                  [](const QMessageBox &box) { return press(box, "No"_s); }),
            inDialog<NewRepoDialog>({}, [](NewRepoDialog &dialog) { return press(dialog, "OK"_s); }),
            inDialog<QMessageBox>("Repository change"_s,
                                  [](const QMessageBox &box) { return press(box, "Yes"_s); })};
        action("m_changeRepoAction")->trigger();
        WAIT_FOR(plain.isDone() && m_driver->isIdle()
                 && m_driver->tab()->repoShell()->repoInfo().codename == "birch"_s);
        QCOMPARE(packagesOf(repo), "a 1"_s);
    }
};

VELT_TEST_MAIN(TestPreviewJob, QApplication)
#include "tst_previewjob.moc"
