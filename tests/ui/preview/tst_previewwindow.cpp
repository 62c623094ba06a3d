// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/versionorder.h"
#include "support/children.h"
#include "support/debbuilder.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/preview/packagedifference.h"
#include "ui/preview/previewchoices.h"
#include "ui/preview/previewdialog.h"

#include <QAbstractItemModelTester>
#include <QtWidgets>

namespace
{
PreviewRow row(const QString &name,
               PreviewRow::Verdict verdict,
               PreviewRow::Relation relation,
               const QString &before,
               const QString &after)
{
    PreviewRow row;
    row.change.name = name;
    row.change.architecture = "amd64"_s;
    row.change.component = "main"_s;
    row.change.kind = before.isEmpty()  ? PackageChange::Added
                      : after.isEmpty() ? PackageChange::Removed
                                        : PackageChange::Replaced;
    row.change.before.version = before;
    row.change.after.version = after;
    row.verdict = verdict;
    row.relation = relation;
    row.isOn = verdict == PreviewRow::Change || relation == PreviewRow::Newer;
    return row;
}

/** One row of each kind; "twin" is one file for two architectures. */
ChangePreview preview()
{
    ChangePreview preview;
    preview.repository = "/r<b>"_s;
    preview.stamp = "1";
    preview.rows = {row("new"_s, PreviewRow::Change, PreviewRow::Alone, {}, "1"_s),
                    row("higher"_s, PreviewRow::Collision, PreviewRow::Newer, "9"_s, "10"_s),
                    row("lower"_s, PreviewRow::Collision, PreviewRow::Older, "2"_s, "1"_s),
                    row("twin"_s, PreviewRow::Collision, PreviewRow::SameVersion, "5"_s, "5"_s),
                    row("twin"_s, PreviewRow::Collision, PreviewRow::SameVersion, "5"_s, "5"_s),
                    row("bad"_s, PreviewRow::Refused, PreviewRow::Alone, {}, "1"_s)};
    preview.rows[4].change.architecture = "i386"_s;
    preview.rows[3].group = 1;
    preview.rows[4].group = 1;
    preview.rows[5].refusal = "It is <i>damaged</i>."_s;
    return preview;
}

/** The names of the rows that take part. */
QString chosen(const ChangePreview &preview)
{
    QStringList names;
    for (const PreviewRow &row : preview.rows)
        if (row.takesPart())
            names << row.change.name;
    return names.join(" "_s);
}

void press(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(&widget, key, modifiers);
}
} // namespace

class TestPreviewWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsAndRules()
    {
        PreviewDialog dialog(preview(), {});
        dialog.show();
        auto *view = child<QTreeView>(dialog, "m_rowsView");
        const QAbstractItemModelTester tester(view->model());
        auto *rules = child<QComboBox>(dialog, "m_ruleComboBox");
        QCOMPARE(rules->currentText(), "Give preference to versions higer"_s);
        QCOMPARE(chosen(dialog.preview()), "new higher"_s);

        // A rule decides all collisions and nothing else. A row that is switched by hand ends the rule.
        const auto decide = [&](int index) {
            rules->setCurrentIndex(index);
            Q_EMIT rules->activated(index);
            return chosen(dialog.preview());
        };
        QCOMPARE(decide(2), "new lower"_s);
        QCOMPARE(decide(3), "new higher lower twin twin"_s);
        QCOMPARE(decide(4), "new"_s);
        view->setCurrentIndex(view->model()->index(3, 0));
        press(*view, Qt::Key_Space);
        QCOMPARE(chosen(dialog.preview()), "new twin twin"_s);
        QCOMPARE(rules->currentIndex(), 0);

        // The choice in the row, and for all of its kind. What is refused stays refused.
        auto *model = const_cast<QAbstractItemModel *>(view->model());
        QVERIFY(model->setData(model->index(2, PreviewModel::Happens), true, PreviewModel::ChoiceRole));
        child<QPushButton>(dialog, "m_keepKindButton")->click();
        QCOMPARE(chosen(dialog.preview()), "new lower"_s);
        press(*view, Qt::Key_A, Qt::ControlModifier);
        press(*view, Qt::Key_Space);
        press(*view, Qt::Key_Space);
        QVERIFY(!chosen(dialog.preview()).contains("bad"_s));
        QVERIFY(!model->index(5, 0).data(Qt::CheckStateRole).isValid());
        QCOMPARE(model->index(5, PreviewModel::Happens).data().toString(),
                 "Refused: It is <i>damaged</i>."_s);
        // Versions sort as versions; the filter looks at names and at what happens.
        view->sortByColumn(PreviewModel::OldVersion, Qt::DescendingOrder);
        QCOMPARE(model->index(0, 0).data().toString(), "higher"_s);
        child<QLineEdit>(dialog, "m_filterLineEdit")->setText("refused"_s);
        QCOMPARE(model->rowCount(), 1);
    }

    void effectComesLater()
    {
        PreviewDialog dialog(preview(), {});
        dialog.show();
        auto *apply = child<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Apply);
        auto *stop = child<QPushButton>(dialog, "m_stopButton");
        auto *view = child<QTreeView>(dialog, "m_rowsView");
        view->setCurrentIndex(view->model()->index(2, 0));
        QVERIFY(apply->isEnabled() && stop->isVisible());
        ChangePreview known = dialog.preview();
        known.effect.isKnown = true;
        known.effect.lost = {{known.repository, PackageBuilder("app"_s).build(), {"app needs <u>lib</u>"_s}},
                             {"/other"_s, PackageBuilder("far"_s).build(), {}}};
        dialog.setPreview(known);
        QCOMPARE(view->currentIndex().row(), 2);
        QVERIFY(!stop->isVisible());
        const auto *effect = child<QTreeWidget>(dialog, "m_effectTree");
        QCOMPARE(effect->topLevelItem(0)->text(0), "2 package(s) could no longer be installed"_s);
        QCOMPARE(effect->topLevelItem(0)->child(0)->child(0)->text(0), "app needs <u>lib</u>"_s);
        QVERIFY(effect->topLevelItem(0)->child(1)->text(0).contains("/other"_s));

        // Switching makes the effect unknown, and asks for it once the user pauses.
        QSignalSpy wanted(&dialog, &PreviewDialog::effectWanted);
        press(*view, Qt::Key_Space);
        press(*view, Qt::Key_Up);
        press(*view, Qt::Key_Space);
        QVERIFY(!dialog.preview().effect.isKnown && stop->isVisible());
        QTRY_COMPARE(wanted.count(), 1);
        // With nothing left to do there is nothing to apply; Enter applies otherwise.
        press(*view, Qt::Key_A, Qt::ControlModifier);
        while (!chosen(dialog.preview()).isEmpty())
            press(*view, Qt::Key_Space);
        QVERIFY(!apply->isEnabled());
        press(*view, Qt::Key_Space);
        press(*view, Qt::Key_Return);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void choicesOutliveAnotherPreview()
    {
        ChangePreview earlier = preview();
        earlier.setOn(QVector<int>{0}, false);
        earlier.setOn(QVector<int>{2, 3}, true);
        ChangePreview anew = preview();
        // The user has not seen this version, so its choice is not his.
        anew.rows[2].change.before.version = "3"_s;
        anew.rows.prepend(row("other"_s, PreviewRow::Change, PreviewRow::Alone, {}, "1"_s));
        PreviewChoices::carryOver(earlier, &anew);
        QCOMPARE(chosen(anew), "other higher twin twin"_s);
    }

    void differenceOfOneVersion()
    {
        const QTemporaryDir folder;
        const auto build = [&](const QString &place, const QByteArray &contents, const QString &depends) {
            return DebBuilder("data"_s)
                .version("5.0"_s)
                .contents(contents)
                .field("Depends"_s, depends)
                .build(folder.filePath(place));
        };
        const auto never = [] { return false; };
        const QString before = build("a"_s, "x\n", "lib"_s);
        const PackageDifference found
            = PackageDifference::between(before, build("b"_s, "y\n", "lib (>= 2)"_s), never);
        QVERIFY2(found.failure.isEmpty(), qPrintable(found.failure));
        QStringList lines;
        for (const PackageDifference::Line &line : found.lines)
            lines << QString::number(line.part) + line.name;
        QVERIFY2(lines.contains("0Depends"_s), qPrintable(lines.join(" "_s)));
        QVERIFY2(lines.last().startsWith("2usr/"_s) && !lines.contains("1control"_s),
                 qPrintable(lines.join(" "_s)));
        const QByteArray sum = QCryptographicHash::hash("y\n", QCryptographicHash::Sha256).toHex();
        QVERIFY(found.lines.last().after.contains(QString::fromLatin1(sum)));
        QVERIFY(PackageDifference::between(before, before, never).lines.isEmpty());
        writeFile(folder.filePath("broken.deb"_s), "!<arch>\n");
        QVERIFY(
            !PackageDifference::between(before, folder.filePath("broken.deb"_s), never).failure.isEmpty());

        // The advice sorts after the version, and before what its maker can call the next one.
        for (const char *version : {"5.0", "1:2.0-3", "1.0-1+local9", "2.0~rc1-1"}) {
            const QString present = QString::fromLatin1(version);
            const QString next = PackageDifference::nextVersion(present);
            QVERIFY2(VersionOrder::compare(next, present) > 0, version);
        }
        QCOMPARE(PackageDifference::nextVersion("1.0-1+local9"_s), "1.0-1+local10"_s);
        QVERIFY(VersionOrder::compare(PackageDifference::nextVersion("1.0-1"_s), "1.0-2"_s) < 0);
    }
};

VELT_TEST_MAIN(TestPreviewWindow, QApplication)
#include "tst_previewwindow.moc"
