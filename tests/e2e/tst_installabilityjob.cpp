// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "support/localapt.h"
#include "ui/installability/factstree.h"
#include "ui/packages/repomodel.h"

/** Complete checks and cures through the window, with a real repository and a real apt. */
class TestInstallabilityJob : public WindowTest
{
    Q_OBJECT

    std::unique_ptr<LocalApt> m_apt;

    QString facts() const
    {
        QStringList rows;
        for (QTreeWidgetItemIterator row(child<FactsTree>(*m_driver->tab(), "m_factsTree")); *row != nullptr;
             ++row)
            rows << (*row)->text(0);
        return rows.join("\n"_s);
    }
    int sign(const char *item) const
    {
        return find(*tree()->model(), item).data(RepoModel::InstallabilityRole).toInt();
    }
    void check()
    {
        tree()->clearSelection();
        action("m_completeCheckAction")->trigger();
    }

    void prepare() override
    {
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        DebBuilder("lib"_s).version("2.0"_s).build(path("one/pool"_s));
        m_apt = std::make_unique<LocalApt>(m_folder->path(), "one"_list);
        const auto built = [this](const QString &name, const QString &field, const QString &value) {
            return DebBuilder(name).version("1"_s).field(field, value).build(path("files"_s));
        };
        QVERIFY(restart({makeRepository("r"_s,
                                        {built("app"_s, "Depends"_s, "lib (>= 2)"_s),
                                         built("lib"_s, "Section"_s, "libs"_s),
                                         built("plug"_s, "Depends"_s, "lib"_s),
                                         built("clash"_s, "Depends"_s, "plug, foe"_s),
                                         built("foe"_s, "Conflicts"_s, "plug (<< 2)"_s)})}));
    }

private Q_SLOTS:
    void reasonAndCure()
    {
        child<QTabWidget>(*m_driver->tab(), "tabWidget")->setCurrentIndex(2);
        // Against the repository alone. The choice is kept.
        auto *bases = child<QMenu>(m_driver->window(), "m_checkBaseMenu");
        Q_EMIT bases->aboutToShow();
        bases->actions().first()->trigger();
        QVERIFY(m_driver->message().contains("the repository alone"_s));
        QCOMPARE(QSettings().value(SettingsKey::CompleteCheckBase).toInt(), 0);
        check();
        WAIT_FOR(has("Complete check done. Installable: 3, not installable: 2, undecided: 0"_s));
        QCOMPARE(sign("r"), int(NotInstallable));
        QCOMPARE(sign("plug_1"), int(Installable));

        // The packages that the reason of clash names break others.
        const QList<QAction *> filters = child<QMenu>(m_driver->window(), "m_packetFilterMenu")->actions();
        const auto breakers = std::find_if(filters.cbegin(), filters.cend(), [](const QAction *filter) {
            return filter->text().remove(u'&') == "Only packages that break others"_s;
        });
        QVERIFY(breakers != filters.cend());
        (*breakers)->trigger();
        WAIT_FOR(!find(*tree()->model(), "app_1").isValid());
        QVERIFY(find(*tree()->model(), "foe_1").isValid() && find(*tree()->model(), "plug_1").isValid());
        // A link leads to a package that the filter hides.
        m_driver->select("foe_1");
        (*breakers)->trigger();
        m_driver->select("clash_1");
        WAIT_FOR(
            facts().contains("clash needs plug and foe\nfoe conflicts with plug (<< 2), and plug is 1"_s));

        m_driver->select("app_1");
        QPushButton *button = nullptr;
        WAIT_FOR((button = child<QWidget>(*m_driver->tab(), "m_curesRows")->findChild<QPushButton *>())
                 != nullptr);
        QVERIFY2(button->accessibleDescription().contains("lib 2.0"_s),
                 qPrintable(button->accessibleDescription()));
        const Script agree{
            inDialog<QDialog>("What this would change"_s,
                              [](const QDialog &dialog) {
                                  const auto *effect = child<QTreeWidget>(dialog, "m_effectTree");
                                  return effect->topLevelItemCount() == 1
                                         && effect->topLevelItem(0)->child(0)->text(0) == "app:amd64 1"_s
                                         && (press(dialog, "Fetch"_s) || press(dialog, "Upgrade"_s));
                              }),
            answer("Package replacement"_s, "Yes"_s)};
        button->click();
        // What was cured is checked again by itself.
        WAIT_FOR(sign("app_1") == Installable && m_driver->isIdle());
        QVERIFY(packagesOf(path("r"_s)).contains("lib 2.0"_s));
        QCOMPARE(sign("clash_1"), int(NotInstallable));
    }

    void questionBeforeRemoving()
    {
        const auto setPreview = [&](PreviewWhen when) {
            child<QMenu>(m_driver->window(), "m_previewMenu")->actions().at(when)->trigger();
        };
        m_driver->select("lib_2.0");
        // What others need is shown in the preview, which takes the place of the question.
        const Script look{inDialog<QDialog>("Preview"_s, [](const QDialog &dialog) {
            const auto *effect = child<QTreeWidget>(dialog, "m_effectTree");
            const QString lost = "2 package(s) could no longer be installed"_s;
            return !effect->findItems(lost, Qt::MatchExactly).isEmpty() && press(dialog, "Cancel"_s);
        })};
        action("m_removePackagesAction")->trigger();
        WAIT_FOR(look.isDone() && m_driver->isIdle() && m_driver->packageCount() == 5);
        setPreview(PreviewNever);
        const Script confirm{
            answer("Remove confirmation"_s, "No"_s, "2 package(s) could no longer be installed"_s)};
        action("m_removePackagesAction")->trigger();
        WAIT_FOR(confirm.isDone() && m_driver->isIdle());
        setPreview(PreviewWhenBreaking);
        // A change makes the results old.
        m_driver->select("foe_1");
        const Script agree{answer("Remove confirmation"_s, "Yes"_s)};
        action("m_removePackagesAction")->trigger();
        WAIT_FOR(m_driver->packageCount() == 4 && m_driver->isIdle());
        WAIT_FOR(find(*tree()->model(), "clash_1")
                     .data(Qt::AccessibleDescriptionRole)
                     .toString()
                     .endsWith("Packages have changed since the check."_s));
    }
};

VELT_TEST_MAIN(TestInstallabilityJob, QApplication)
#include "tst_installabilityjob.moc"
