// SPDX-License-Identifier: GPL-3.0-or-later
#include "e2e/windowtest.h"
#include "ui/packages/repotreeview.h"

/** Copying and moving between open repositories, by keyboard and by mouse. */
class TestCopyJob : public WindowTest
{
    Q_OBJECT

    /** What is selected in the tab `source` is dropped in `target`; without a display server nothing can be dragged. */
    void drop(int source, int target, const QString &component, bool moves) const
    {
        const auto tree = [this](int tab) { return m_driver->tab(tab)->findChild<RepoTreeView *>(); };
        Q_EMIT tree(target)->packagesDropped(tree(source), component, moves);
    }
    /** The numbers of packages in both tabs. */
    QString counts() const
    {
        return "%1 %2"_s.arg(m_driver->tab(0)->repoShell()->packageCount())
            .arg(m_driver->tab(1)->repoShell()->packageCount());
    }
    QByteArray contrib(const QString &repository) const
    {
        return outputOf("/usr/bin/reprepro"_s,
                        {"-b"_s,
                         repository,
                         "-C"_s,
                         "contrib"_s,
                         "--list-format"_s,
                         "${package} "_s,
                         "list"_s,
                         "birch"_s});
    }

    void prepare() override { checkAgainstNothing(); }

private Q_SLOTS:
    void fromTestingToStable()
    {
        const QString testing = makeRepository("testing"_s, {package("app"_s, "2"_s), package("lib"_s)});
        const QString stable = makeRepository("stable"_s, {package("app"_s)});
        QVERIFY(restart({testing, stable}));
        m_driver->tabs()->setCurrentIndex(0);
        m_driver->select("app_2");
        // Two keys: that of the command, and Enter. The replacement is asked for as with adding.
        const Script keys{
            inDialog<QDialog>("Copy packages"_s,
                              [&](QDialog &dialog) {
                                  if (child<QComboBox>(dialog, "m_targetComboBox")->currentText() != stable)
                                      return false;
                                  QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
                                  return true;
                              }),
            answer("Package replacement"_s, "Yes"_s)};
        m_driver->window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_driver->window()));
        QTest::keyClick(&m_driver->window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        WAIT_FOR(keys.isDone() && m_driver->isIdle(2));
        QCOMPARE(packagesOf(stable), "app 2"_s);
        QCOMPARE(packagesOf(testing), "app 2, lib 1"_s);

        // A move with a preview: nothing leaves before it has arrived, and nothing when the preview is refused.
        m_driver->select("lib_1");
        const auto move = [&](const QString &button) {
            return QList<Script::Step>{answer("Move packages"_s, "Preview..."_s),
                                       answer("Preview"_s, button)};
        };
        const Script refused(move("Cancel"_s));
        action("m_movePackagesAction")->trigger();
        WAIT_FOR(refused.isDone() && m_driver->isIdle(2));
        QCOMPARE(packagesOf(testing), "app 2, lib 1"_s);
        m_driver->tabs()->setCurrentIndex(0);
        const Script moved(move("Apply"_s));
        action("m_movePackagesAction")->trigger();
        WAIT_FOR(moved.isDone() && m_driver->isIdle(2) && counts() == "1 2"_s);
        QCOMPARE(packagesOf(testing), "app 2"_s);
        QCOMPARE(packagesOf(stable), "app 2, lib 1"_s);
    }

    void byMouse()
    {
        const QString testing = makeRepository("from"_s, {package("foo"_s), package("bar"_s)});
        const QString stable = makeRepository("to"_s, {package("other"_s)});
        outputOf(
            "/usr/bin/reprepro"_s,
            {"-s"_s, "-b"_s, testing, "-C"_s, "contrib"_s, "includedeb"_s, "birch"_s, package("aside"_s)});
        QVERIFY(restart({testing, stable}));
        // Onto another tree it is a copy.
        m_driver->select("foo_1");
        drop(0, 1, {}, false);
        WAIT_FOR(m_driver->isIdle(2) && counts() == "3 2"_s);
        QCOMPARE(packagesOf(stable), "foo 1, other 1"_s);
        // With Shift it moves: here to another component, whose row stands for it.
        drop(0, 0, "contrib"_s, true);
        const auto isMoved = [&] {
            const auto packages = m_driver->tab()->repoShell()->packages();
            return std::any_of(packages.cbegin(), packages.cend(), [](const PackageInfoPtr &package) {
                return package->name == "foo"_s && package->indexComponent == "contrib"_s;
            });
        };
        WAIT_FOR(m_driver->isIdle(2) && counts() == "3 2"_s && isMoved());
        QCOMPARE(contrib(testing), QByteArray("aside foo "));
        // And here to another repository, as it is.
        m_driver->select("aside_1");
        drop(0, 1, {}, true);
        WAIT_FOR(m_driver->isIdle(2) && counts() == "2 3"_s);
        QCOMPARE(packagesOf(testing), "bar 1, foo 1"_s);
        QCOMPARE(contrib(stable), QByteArray("aside "));
    }
};

VELT_TEST_MAIN(TestCopyJob, QApplication)
#include "tst_copyjob.moc"
