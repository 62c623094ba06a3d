// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/newreporules.h"
#include "support/testenvironment.h"
#include "ui/tab/repotabs.h"
#include "ui/widgets/checkcombobox.h"
#include "ui/widgets/singlespacevalidator.h"
#include "ui/widgets/userchoices.h"

#include <QtWidgets>

using NewRepoRules::Refusal;

/** Fields, their rules, and what is kept of the user's choices. */
class TestInputs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void singleSpaces()
    {
        const SingleSpaceValidator validator(QRegularExpression("[a-z|0-9|\\-|\\s]+"_s));
        const QMap<QString, QString> typed{{"amd64 i386"_s, "amd64 i386"_s},
                                           {"amd64  i386"_s, "amd64 i386"_s},
                                           {" amd64"_s, "amd64"_s},
                                           {"Amd64"_s, "md64"_s},
                                           {"a/b;c"_s, "abc"_s}};
        for (const QString &keys : typed.keys()) {
            QLineEdit edit;
            edit.setValidator(&validator);
            QTest::keyClicks(&edit, keys);
            QCOMPARE(edit.text(), typed.value(keys));
        }
    }

    void checkComboBoxByKeyboardAndMouse()
    {
        CheckComboBox box;
        box.setChoices({"amd64"_s, "armhf"_s, "i386"_s});
        box.setEditText("i386 riscv64"_s);
        box.show();
        box.setFocus();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        // A value that is not offered is kept through opening and toggling.
        box.showPopup();
        QCOMPARE(box.checkedItems(), "i386|riscv64"_list);
        box.view()->setCurrentIndex(box.model()->index(0, 0));
        QTest::keyClick(box.view(), Qt::Key_Space);
        QVERIFY(box.view()->isVisible());
        QCOMPARE(box.currentText(), "amd64 i386 riscv64"_s);
        const QPoint third = box.view()->visualRect(box.model()->index(2, 0)).center();
        QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, third);
        QVERIFY(box.view()->isVisible());
        QTest::keyClick(box.view(), Qt::Key_Return);
        QTRY_VERIFY(!box.view()->isVisible());
        QCOMPARE(box.currentText(), "amd64 riscv64"_s);
        // Stepping, the Enter key and, where only choices are allowed, typing leave the text alone.
        QTest::keyClick(&box, Qt::Key_Down);
        QTRY_VERIFY(box.view()->isVisible());
        QTest::keyClick(box.view(), Qt::Key_Escape);
        QTRY_VERIFY(!box.view()->isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
        box.setTextReadOnly(true);
        QTest::keyClicks(&box, "x"_s);
        QCOMPARE(box.currentText(), "amd64 riscv64"_s);
        QCOMPARE(box.count(), 4);
        QTest::keyClick(&box, Qt::Key_Space);
        QTRY_VERIFY(box.view()->isVisible());
    }

    void repositoryRules()
    {
        // Folder, name, code name, architectures, components.
        const QVector<QPair<const char *, Refusal>> rows{
            {"/srv|repo|birch|amd64|main", Refusal::None},
            {"/srv|repo|elm_x86-64|amd64|main", Refusal::None},
            {"|repo|birch|amd64|main", Refusal::MissingField},
            {"/srv||birch|amd64|main", Refusal::MissingField},
            {"/srv|repo||amd64|main", Refusal::MissingField},
            {"/srv|repo|birch|  |main", Refusal::MissingField},
            {"/srv|repo|birch|amd64|", Refusal::MissingField},
            {"/srv|repo|birch|amd64 all|main", Refusal::ArchitectureAll},
            {"/srv|repo|birch|alloy|main", Refusal::None},
            {"srv|repo|birch|amd64|main", Refusal::BadPath},
            {"/srv|..|birch|amd64|main", Refusal::BadName},
            {"/srv|../etc|birch|amd64|main", Refusal::BadName},
            {"/srv|repo|-b|amd64|main", Refusal::BadName},
            {"/srv|repo|_b|amd64|main", Refusal::BadName},
            {"/srv|repo|../../x|amd64|main", Refusal::BadName},
            {"/srv|repo|a\nSignWith: yes|amd64|main", Refusal::BadName}};
        for (const auto &[row, refusal] : rows) {
            const QStringList fields = QString::fromLatin1(row).split("|"_s);
            const RepoInfo info{fields.at(1), fields.at(2), {}, {}, fields.at(3), fields.at(4)};
            QVERIFY2(NewRepoRules::check(fields.at(0), info) == refusal, row);
        }
    }

    void repositoryPathsAndChoices()
    {
        QCOMPARE(NewRepoRules::fullPath("/srv//"_s, "r"_s), "/srv/r"_s);
        QCOMPARE(NewRepoRules::fullPath("/"_s, "r"_s), "/r"_s);

        QCOMPARE(NewRepoRules::choices("\uFEFF# x y\r\n a\tb # z\n\nc a\r\n#"_s, {"d"_s}).join("|"_s),
                 "a|b|c"_s);
        QCOMPARE(NewRepoRules::choices(" \n"_s, {"d"_s}), "d"_list);
    }

    void recentPaths()
    {
        QStringList recent;
        for (const char *path : {"/1", "/2", "/3", "/4", "/5", "/3", "/6"})
            recent = withRecentRepository(recent, QLatin1String(path));
        QCOMPARE(recent.join(" "_s), "/6 /3 /5 /4 /2"_s);
    }

    void repositoriesInTheMakingCount()
    {
        QTabWidget tabWidget;
        RepoTabs tabs(&tabWidget, nullptr);
        RepoWidget *made = tabs.create("/srv/made"_s);
        QVERIFY(tabs.paths().isEmpty());
        QCOMPARE(tabs.allCanonicalPaths(), "/srv/made"_list);
        // Once it is known where the links lead, that is where it lies.
        tabs.setCanonicalPath(made, "/srv/disk/made"_s);
        QCOMPARE(tabs.allCanonicalPaths(), "/srv/disk/made"_list);
        QVERIFY(tabs.allCanonicalPaths(made).isEmpty());
        tabs.discard(made);
        QVERIFY(tabs.allCanonicalPaths().isEmpty());
    }
};

VELT_TEST_MAIN(TestInputs, QApplication)
#include "tst_inputs.moc"
