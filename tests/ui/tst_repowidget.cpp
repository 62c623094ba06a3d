// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packagestatusline.h"
#include "ui/repotreeview.h"
#include "ui/repowidget.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace
{
/** A repository as reprepro exports it, as far as opening reads it. */
void writeRepository(const QString &path, const QByteArray &packages)
{
    writeFile(path + QStringLiteral("/conf/distributions"),
              "Origin: Debian\nCodename: dogwood\nSuite: stable\nVersion: 1.6\nArchitectures: amd64\n"
              "Components: main contrib\nUDebComponents: main contrib\nSignWith: yes\n");
    writeFile(path + QStringLiteral("/dists/dogwood/main/binary-amd64/Packages"), packages);
}

QByteArray record(const QByteArray &name, const QByteArray &section, const QByteArray &description = "a tool")
{
    return "Package: " + name
           + "\nVersion: 1.0-1\nArchitecture: amd64\nMaintainer: T. <t@example.org>\nSection: " + section
           + "\nFilename: pool/main/" + name + "_1.0-1_amd64.deb\nDescription: " + description + "\n\n";
}
} // namespace

/** The repository tab with its engine, on repositories that need no program to be read. */
class RepoWidgetTest : public QObject
{
    Q_OBJECT

    struct Fixture
    {
        QTemporaryDir folder;
        RepoWidget tab;
        RepoTreeView *tree = tab.findChild<RepoTreeView *>(QStringLiteral("m_repoTreeView"));
        QStackedWidget *pages = tab.findChild<QStackedWidget *>(QStringLiteral("m_stackedWidget"));

        QString path() const { return folder.path() + QStringLiteral("/my repo"); }

        void open(const QByteArray &packages)
        {
            writeRepository(path(), packages);
            QSignalSpy idle(tab.repoShell(), &RepoShell::idle);
            tab.openRepo(path());
            QVERIFY(idle.wait());
        }

        QModelIndex find(const char *text) const
        {
            const QAbstractItemModel *model = tree->model();
            return model
                ->match(model->index(0, 0),
                        Qt::DisplayRole,
                        QString::fromUtf8(text),
                        1,
                        Qt::MatchExactly | Qt::MatchRecursive)
                .value(0);
        }

        QString label(const char *name) const
        {
            return tab.findChild<QLabel *>(QString::fromLatin1(name))->text();
        }

        QString selectedNames() const
        {
            QStringList names;
            const QList<PackageInfoPtr> packages = tab.selectedPackages();
            for (const PackageInfoPtr &package : packages)
                names.append(package->name);
            return names.join(QLatin1Char(' '));
        }

        void select(const QModelIndex &index, QItemSelectionModel::SelectionFlags how) const
        {
            tree->selectionModel()->setCurrentIndex(index, how);
        }
    };

private Q_SLOTS:
    void opening();
    void pages();
    void aRecordThatCannotBeRead();
    void selectionAndSearch();
    void packetFilter();
    void changesOfTheOpenRepository();
    void closing();
    void publicationForm();
};

void RepoWidgetTest::opening()
{
    Fixture f;
    QSignalSpy titles(&f.tab, &RepoWidget::newTabTitle);
    QSignalSpy paths(&f.tab, &RepoWidget::newRepoPath);
    QSignalSpy started(&f.tab, &RepoWidget::repoShellStarted);
    QSignalSpy finished(&f.tab, &RepoWidget::repoShellFinished);
    QString treeAtFinish;
    connect(&f.tab, &RepoWidget::repoShellFinished, this, [&] { treeAtFinish = treeText(*f.tree->model()); });
    f.open(record("zsh", "shells") + record("bash", "shells") + record("fw", "contrib/net"));
    QCOMPARE(started.count(), 1);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(titles.last().first().toString(), f.path());
    QCOMPARE(paths.last().first().toBool(), false);
    QCOMPARE(f.tab.repoPath(), f.path());
    QCOMPARE(treeAtFinish,
             QStringLiteral("my repo [-1]\n  contrib [-1]\n    Networking [-1]\n      fw [-1]\n"
                            "  main [-1]\n    Shells [-1]\n      bash [-1]\n      zsh [-1]\n"));
    auto *line = f.tab.findChild<PackageStatusLine *>(QStringLiteral("m_packageStatusLine"));
    QCOMPARE(line->total(), 3);
    QCOMPARE(line->counter(DependUndefined), 3);
    QCOMPARE(f.tab.cursor().shape(), Qt::ArrowCursor);

    QCOMPARE(f.label("m_repoComponentsLabel"), QStringLiteral("main contrib"));
    QCOMPARE(f.label("m_repoCodenameLabel"), QStringLiteral("dogwood"));
    QCOMPARE(f.label("m_repoSuiteLabel"), QStringLiteral("stable"));
    QCOMPARE(f.label("m_repoVersionLabel"), QStringLiteral("1.6"));
    QCOMPARE(f.label("m_repoArchLabel"), QStringLiteral("amd64"));
    QCOMPARE(f.label("m_repoSignLabel"), QStringLiteral("Signed"));

    f.tab.setShowPackageVersions(true);
    QVERIFY(f.find("bash_1.0-1").isValid());
    f.tab.setStatusLineVisible(false);
    QVERIFY(line->isHidden());
}

void RepoWidgetTest::pages()
{
    Fixture f;
    f.open(record("bash", "shells", "a shell\n It runs <b>commands</b>.\n .\n And more.")
           + record("odd", "kde"));
    QSignalSpy current(&f.tab, &RepoWidget::currItemChanged);
    QCOMPARE(f.pages->currentIndex(), 0);
    f.tab.setCurrentItem(f.find("my repo"));
    QCOMPARE(f.pages->currentIndex(), 1);
    f.tab.setCurrentItem(f.find("bash"));
    QCOMPARE(f.pages->currentIndex(), 2);
    QCOMPARE(current.count(), 2);
    QCOMPARE(f.label("m_packageLabel"), QStringLiteral("bash"));
    QCOMPARE(f.label("m_versionLabel"), QStringLiteral("1.0-1"));
    QCOMPARE(f.label("m_componentLabel"), QStringLiteral("main"));
    QCOMPARE(f.label("m_sectionLabel"), QStringLiteral("Shells (shells)"));
    QCOMPARE(f.label("m_maintainerLabel"), QStringLiteral("T. <t@example.org>"));
    QCOMPARE(f.label("m_decriptionLabel"),
             QStringLiteral("<b>a shell</b><br> It runs &lt;b&gt;commands&lt;/b&gt;.<br><br> And more."));
    QCOMPARE(f.label("m_packageSignLabel"), QStringLiteral("Unsigned"));
    f.tab.setSignatureLookup([](const PackageInfo &) { return QStringLiteral("Key"); });
    QCOMPARE(f.label("m_packageSignLabel"), QStringLiteral("Key"));
    f.tab.setCurrentItem(f.find("odd"));
    QCOMPARE(f.label("m_sectionLabel"), QStringLiteral("kde"));
    f.tab.setCurrentItem(f.find("Shells"));
    QCOMPARE(f.pages->currentIndex(), 0);
}

void RepoWidgetTest::aRecordThatCannotBeRead()
{
    Fixture f;
    f.open(record("bash", "shells"));
    Q_EMIT f.tab.repoShell()->packageAdded(PackageBuilder(QStringLiteral("lost")).build());
    QTRY_VERIFY(f.find("lost").isValid());
    f.tab.setCurrentItem(f.find("lost"));
    QCOMPARE(f.pages->currentIndex(), 3);
    QVERIFY(f.label("m_packageErrorLabel")
                .startsWith(QLatin1String("<b>Failed to get package information</b><br> ")));
    QVERIFY(f.label("m_packageErrorLabel").contains(QLatin1String("lost")));
}

void RepoWidgetTest::selectionAndSearch()
{
    Fixture f;
    f.open(record("bash", "shells") + record("zsh", "shells") + record("apt", "admin"));
    QSignalSpy removable(&f.tab, &RepoWidget::enableRemovePackagesAction);
    f.select(f.find("Shells"), QItemSelectionModel::ClearAndSelect);
    f.select(f.find("zsh"), QItemSelectionModel::Select); // is in the selected section already
    QCOMPARE(f.selectedNames(), QStringLiteral("bash zsh"));
    QVERIFY(removable.last().first().toBool());

    auto *line = f.tab.findChild<QWidget *>(QStringLiteral("m_searchLine"))->findChild<QLineEdit *>();
    QCOMPARE(line->placeholderText(), QStringLiteral("Packages search"));
    QTest::keyClicks(line, QStringLiteral("BAS"));
    QTRY_VERIFY(!f.find("zsh").isValid());
    QCOMPARE(f.selectedNames(), QStringLiteral("bash"));
    QVERIFY(f.tree->isExpanded(f.find("Shells")));
    line->clear();
    QTest::keyClick(line, Qt::Key_Return); // does not wait
    QVERIFY(f.find("zsh").isValid());
    f.select(f.find("my repo"), QItemSelectionModel::ClearAndSelect);
    QCOMPARE(f.tab.selectedPackages().size(), 3);
    f.tree->selectionModel()->clear();
    QVERIFY(!removable.last().first().toBool());
    QCOMPARE(f.tab.selectedPackages().size(), 0);
}

void RepoWidgetTest::packetFilter()
{
    Fixture f;
    f.open(record("bash", "shells") + record("zsh", "shells"));
    Q_EMIT f.tab.repoShell()->packageChanged(
        PackageBuilder(QStringLiteral("zsh")).section(QStringLiteral("shells")).state(DependError).build());
    auto *line = f.tab.findChild<PackageStatusLine *>();
    QTRY_COMPARE(line->counter(DependError), 1);
    QCOMPARE(line->counter(DependUndefined), 1);
    f.tab.setCurrentItem(f.find("bash"));
    QStringList texts;
    const QList<QAction *> actions = f.tab.packetFilterMenu()->actions();
    for (QAction *action : actions)
        texts.append(action->text());
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("Show depends undefined|Show depends error|Show depends success"));
    actions.at(0)->trigger();
    QVERIFY(!f.find("bash").isValid());
    QVERIFY(f.find("zsh").isValid());
    QCOMPARE(f.pages->currentIndex(), 0); // what it showed is out of sight
    actions.at(0)->trigger();
    actions.at(1)->trigger();
    QVERIFY(f.find("bash").isValid());
    QVERIFY(!f.find("zsh").isValid());
}

void RepoWidgetTest::changesOfTheOpenRepository()
{
    Fixture f;
    f.open({});
    QCOMPARE(treeText(*f.tree->model()), QStringLiteral("my repo\n"));
    const PackageInfoPtr first = PackageBuilder(QStringLiteral("first")).control("Package: first\n").build();
    Q_EMIT f.tab.repoShell()->packageAdded(first);
    QTRY_VERIFY(f.find("first").isValid());
    QVERIFY(f.tree->isExpanded(f.find("my repo")));
    QVERIFY(f.tree->isExpanded(f.find("main")));
    f.tab.setCurrentItem(f.find("first"));
    Q_EMIT f.tab.repoShell()->packageChanged(PackageBuilder(QStringLiteral("first"))
                                                 .version(QStringLiteral("2"))
                                                 .control("Package: first\n")
                                                 .build());
    QTRY_COMPARE(f.label("m_versionLabel"), QStringLiteral("2"));
    QSignalSpy empty(&f.tab, &RepoWidget::childCountIsZero);
    Q_EMIT f.tab.repoShell()->packageRemoved(first);
    QTRY_COMPARE(empty.count(), 1);
    QVERIFY(f.pages->currentIndex() != 2);
}

void RepoWidgetTest::closing()
{
    Fixture f;
    f.open(record("bash", "shells"));
    f.tab.setCurrentItem(f.find("bash"));
    QSignalSpy close(&f.tab, &RepoWidget::needCloseRepo);
    QSignalSpy paths(&f.tab, &RepoWidget::newRepoPath);
    f.tab.repoShell()->closeRepo();
    QCOMPARE(close.count(), 1);
    QCOMPARE(paths.last().first().toBool(), true);
    QCOMPARE(treeText(*f.tree->model()), QString());
    QCOMPARE(f.pages->currentIndex(), 0);
    QCOMPARE(f.tab.selectedPackages().size(), 0);
}

void RepoWidgetTest::publicationForm()
{
    Fixture f;
    auto *address = f.tab.findChild<QComboBox *>(QStringLiteral("m_ipAddrComboBox"));
    address->setEditText(QStringLiteral("1.2.3"));
    QVERIFY(!address->lineEdit()->hasAcceptableInput());
    address->setEditText(QStringLiteral("300.1.1.1"));
    QVERIFY(address->lineEdit()->hasAcceptableInput());
    QCOMPARE(f.tab.findChild<QComboBox *>(QStringLiteral("m_srvTypeComboBox"))->currentIndex(), -1);

    QSignalSpy told(&f.tab, &RepoWidget::statusLabel);
    f.tab.findChild<QLineEdit *>(QStringLiteral("m_srcLineEdit"))->setText(QStringLiteral("deb http://x"));
    f.tab.copySrcLineEdit();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("deb http://x"));
    QCOMPARE(told.first().first().toString(), QStringLiteral("Address is copied to clipboard"));
}

VELT_TEST_MAIN(RepoWidgetTest, QApplication)
#include "tst_repowidget.moc"
