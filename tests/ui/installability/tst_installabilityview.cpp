// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/children.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/installability/companionstree.h"
#include "ui/installability/factstree.h"
#include "ui/installability/installabilityview.h"
#include "ui/installability/removalimpactsearch.h"
#include "ui/installability/removalquestion.h"

#include <QtWidgets>

namespace
{
const QString Hostile = "<b>evil</b>&amp;<img src=x>"_s;

PackageBuilder package(const char *name, const QByteArray &fields = {})
{
    return PackageBuilder(QString::fromUtf8(name))
        .control(QByteArray("Package: ") + name + "\nVersion: 1.0\nArchitecture: amd64\nSize: 2048\n"
                 + "Installed-Size: 3\n" + fields);
}

/** Two repositories without anything behind them: chain needs link, which needs lib; so does the stranger. */
CheckScope scope()
{
    CheckScope scope;
    scope.repository = {"/r"_s,
                        "amd64"_list,
                        {package("lib").build(),
                         package("link", "Depends: lib\n").build(),
                         package("chain", "Depends: link\n").build(),
                         package("free", "Depends: lib | other\n").build(),
                         package("other").build()}};
    scope.base.kind = CompleteCheckBase::Nothing;
    scope.others = {{"/s<i>"_s, "amd64"_list, {package("stranger", "Depends: lib\n").build()}}};
    return scope;
}

QString rowsOf(const QTreeWidgetItem *parent)
{
    QStringList rows;
    for (int i = 0; i < parent->childCount(); ++i) {
        const QString below = rowsOf(parent->child(i));
        rows << parent->child(i)->text(0) + (below.isEmpty() ? QString() : "{"_s + below + "}"_s);
    }
    return rows.join(", "_s);
}

QTreeWidgetItem *row(const QTreeWidget &tree, const QString &text)
{
    return tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
}

CompleteCheckRecord record(bool isStale)
{
    return {{CompleteCheckBase::Nothing, {}, {}}, QDateTime::currentDateTimeUtc(), "d", isStale};
}
} // namespace

class InstallabilityViewTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<NamedPackage>("NamedPackage"); }

    void reasonsAreWordsWithLinks()
    {
        const NamedPackage own{"app"_s, "1.0"_s, "amd64"_s, true};
        const NamedPackage local{"lib"_s, "2"_s, "all"_s, true};
        const NamedPackage foreign{Hostile, "3"_s, "amd64"_s, false};
        InstallabilityInfo info{NotInstallable, {}, {Hostile + " (>= 2)"_s}, 0};
        info.reason = {{InstallabilityStep::Needs, own, "Depends"_s, "lib"_s, {local}},
                       {InstallabilityStep::Excludes, local, "Conflicts"_s, Hostile, {foreign}}};
        InstallabilityView view;
        QSignalSpy chosen(&view, &InstallabilityView::packageChosen);
        auto *tree = child<FactsTree>(view, "m_factsTree");
        const auto *empty = child<QLabel>(view, "m_emptyLabel");
        view.resize(300, 500);
        view.show();
        view.setPackage(package("app").build());
        QVERIFY(empty->isVisible()
                && empty->text().startsWith("Not checked yet: press \"Complete check\"."_s));

        view.setPackage(package("app").installability(info).build());
        view.setCheck(record(false));
        QVERIFY(!empty->isVisible() && tree->isVisible());
        QCOMPARE(child<QLabel>(view, "m_stateLabel")->text(), "Cannot be installed"_s);
        QVERIFY(child<QLabel>(view, "m_checkedLabel")->text().endsWith("against the repository alone"_s));
        QVERIFY(!child<QLabel>(view, "m_staleLabel")->isVisible());
        QCOMPARE(rowsOf(tree->invisibleRootItem()),
                 "Why it cannot be installed{app needs lib, lib conflicts with "_s + Hostile
                     + ", provided by "_s + Hostile
                     + ", lib 2}, Recommended, but cannot be installed together with it{"_s + Hostile
                     + " (>= 2)}, Needed by{Looking for packages that need it...}"_s);
        // A long sentence is not cut, and its tool tip shows it literally.
        const QTreeWidgetItem *sentence = tree->topLevelItem(0)->child(1);
        QVERIFY(tree->visualItemRect(sentence).height()
                > tree->visualItemRect(tree->topLevelItem(0)).height());
        QTextDocument tip;
        tip.setHtml(sentence->toolTip(0));
        QVERIFY(tip.toPlainText().contains(Hostile));
        // Only packages of the repository are links, by mouse and by key.
        tree->setCurrentItem(row(*tree, "lib 2"_s));
        QTest::keyClick(tree, Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);
        QCOMPARE(chosen.last().at(1).value<NamedPackage>(), local);
        tree->setCurrentItem(tree->topLevelItem(0)->child(1));
        QTest::keyClick(tree, Qt::Key_Return);
        QCOMPARE(chosen.count(), 1);

        // A group that was closed stays closed when there are new results.
        tree->topLevelItem(0)->setExpanded(false);
        view.setCheck(record(true));
        QVERIFY(!tree->topLevelItem(0)->isExpanded() && tree->topLevelItem(1)->isExpanded());
        QVERIFY(child<QLabel>(view, "m_staleLabel")->isVisible());
    }

    void companionsAndNeedsAreWorkedOut()
    {
        InstallabilityView view;
        QSignalSpy chosen(&view, &InstallabilityView::packageChosen);
        int asked = 0;
        view.setScopeSource([&asked] {
            ++asked;
            return scope();
        });
        view.setCheck(record(false));
        const auto show = [&view](const char *name, const QByteArray &fields = {}) {
            view.setPackage(package(name, fields).installability({Installable, {}, {}, 0}).build());
        };
        auto *facts = child<FactsTree>(view, "m_factsTree");
        const auto *companions = child<CompanionsTree>(view, "m_companionsTree");
        // Nothing is worked out for a page that nobody sees, or for packages that are only passed by.
        show("other");
        QTest::qWait(400);
        QCOMPARE(asked, 0);
        view.show();
        show("link");
        show("lib");
        const QString needs = "Needed by{2 package(s) directly{link 1.0, free 1.0}, "
                              "2 package(s) could no longer be installed without it{link 1.0, chain 1.0}, "
                              "In the repository /s<i>{1 package(s) directly{stranger 1.0}"_s;
        QTRY_VERIFY2(rowsOf(facts->invisibleRootItem()).startsWith(needs),
                     qPrintable(rowsOf(facts->invisibleRootItem())));
        QCOMPARE(asked, 1);
        facts->setCurrentItem(row(*facts, "stranger 1.0"_s));
        QTest::keyClick(facts, Qt::Key_Return);
        QCOMPARE(chosen.last().first().toString(), "/s<i>"_s);

        show("chain", "Depends: link\n");
        QTRY_COMPARE(companions->topLevelItemCount(), 3);
        QCOMPARE(companions->topLevelItem(0)->text(2), "this repository"_s);
        QCOMPARE(child<QLabel>(view, "m_companionsLabel")->text(),
                 "On a bare system 3 package(s) come in: 6.00 KiB to download, 9.00 KiB on the disk"_s);
        QTRY_COMPARE(rowsOf(facts->invisibleRootItem()),
                     "Needed by{No package of the open repositories needs it.}"_s);
    }

    void removalNamesWhatIsLost()
    {
        const auto question = [](const QList<PackageInfoPtr> &gone) {
            RemovalImpactSearch search(scope(), gone, nullptr);
            QSignalSpy due(&search, &RemovalImpactSearch::due);
            const RemovalQuestion early("Title"_s, "Text?"_s, "About"_s, search, "/r"_s, nullptr);
            if (!due.wait() || early.textFormat() != Qt::PlainText)
                return QStringList();
            QTest::qWait(0);
            const RemovalQuestion late("Title"_s, "Text?"_s, "About"_s, search, "/r"_s, nullptr);
            return QStringList{late.text(), late.informativeText(), early.informativeText()};
        };
        const CheckScope all = scope();
        QStringList said = question({all.repository.packages.at(0)});
        const QString lost
            = "About\n\n2 package(s) could no longer be installed without this: link and chain\n\n"
              "1 package(s) of the repository /s<i> could no longer be installed without this: "
              "stranger"_s;
        QCOMPARE(said, QStringList({"Text?"_s, lost, lost}));
        // Nobody needs it: the question is as short as ever, unless it has promised an answer.
        said = question({all.repository.packages.at(4)});
        QCOMPARE(said,
                 QStringList({"Text?"_s, "About"_s, "About\n\nAll other packages stay as they are."_s}));
    }
};

VELT_TEST_MAIN(InstallabilityViewTest, QApplication)
#include "tst_installabilityview.moc"
