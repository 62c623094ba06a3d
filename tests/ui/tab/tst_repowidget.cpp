// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reposhell.h"
#include "publication/publicationsettings.h"
#include "support/children.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "ui/packages/packagefacts.h"
#include "ui/packages/packagestatusline.h"
#include "ui/packages/repotreeview.h"
#include "ui/tab/repowidget.h"

#include <QtWidgets>

/** The repository tab with its engine, on repositories that need no program to be read. */
class RepoWidgetTest : public QObject
{
    Q_OBJECT

    enum Page { NoPage, RepositoryPage, PackagePage, ErrorPage };

    struct Fixture
    {
        QTemporaryDir folder;
        RepoWidget tab;
        RepoTreeView *tree = child<RepoTreeView>(tab, "m_repoTreeView");
        PackageStatusLine *line = child<PackageStatusLine>(tab, "m_packageStatusLine");
        QString path = folder.path() + "/my repo"_s;

        static QByteArray record(const QByteArray &name, const QByteArray &section)
        {
            return "Package: " + name
                   + "\nVersion: 1.0-1\nArchitecture: amd64\nMaintainer: T. <t@example.org>\nSection: "
                   + section + "\nFilename: pool/main/" + name
                   + "_1.0-1_amd64.deb\nDescription: a tool & more\n It <b>runs</b>\n well.\n .\n .\n "
                     "End.\n\n";
        }

        /** Opens a repository as reprepro exports it, as far as opening reads it. */
        void open(const QByteArray &packages,
                  const QByteArray &codename = "dogwood",
                  const QByteArray &architectures = "amd64")
        {
            writeFile(path + "/conf/distributions"_s,
                      "Origin: Debian\nCodename: " + codename
                          + "\nSuite: stable\nVersion: 1.6\nArchitectures: " + architectures
                          + "\nComponents: main contrib\nUDebComponents: main contrib\nSignWith: yes\n");
            writeFile(path + "/dists/dogwood/main/binary-amd64/Packages"_s, packages);
            QSignalSpy idle(tab.repoShell(), &RepoShell::idle);
            tab.openRepo(path);
            QVERIFY(idle.wait());
        }

        QModelIndex item(const char *text) const { return find(*tree->model(), text); }
        bool shows(const char *text) const { return item(text).isValid(); }
        Page page() const
        {
            return static_cast<Page>(child<QStackedWidget>(tab, "m_stackedWidget")->currentIndex());
        }
        /** The texts of the labels m_NAMELabel. */
        QString labels(const char *names) const
        {
            QStringList texts;
            for (const QByteArray &name : QByteArray(names).split(' '))
                texts += child<QLabel>(tab, QByteArray("m_" + name + "Label").constData())->text();
            return texts.join("|"_s);
        }
        QString selectedNames() const
        {
            QStringList names;
            for (const PackageInfoPtr &package : tab.selectedPackages())
                names.append(package->name);
            return names.join(" "_s);
        }
    };

private Q_SLOTS:
    void opening()
    {
        Fixture f;
        f.open(f.record("bash", "shells"));
        QCOMPARE(child<QLabel>(*f.line, "m_undefinedLabel")->text(), "1"_s);
        QCOMPARE(f.labels("repoComponents repoCodename repoSuite repoVersion repoArch repoSign"),
                 "main contrib|dogwood|stable|1.6|amd64|Signed"_s);
        QSignalSpy close(&f.tab, &RepoWidget::needCloseRepo);
        f.tab.setCurrentItem(f.item("bash"));
        f.tab.repoShell()->closeRepo();
        QCOMPARE(close.count(), 1);
        QCOMPARE(treeText(*f.tree->model()), QString());
        QCOMPARE(f.page(), NoPage);
        QVERIFY(f.tab.selectedPackages().isEmpty());
    }

    void pages()
    {
        Fixture f;
        f.open(f.record("bash", "shells") + f.record("odd", "kde"));
        QCOMPARE(f.page(), RepositoryPage); // which is selected, and not only shown
        QCOMPARE(f.tab.currentItem(), RepoWidget::CurrentItem::Repository);
        f.tab.setCurrentItem(f.item("bash"));
        QCOMPARE(f.page(), PackagePage);
        QCOMPARE(f.labels("package version component section maintainer packageSign"),
                 "bash|1.0-1|main|Shells (shells)|T. <t@example.org>|Unsigned"_s);
        QCOMPARE(f.labels("decription"),
                 "<b>a tool &amp; more</b><br> It &lt;b&gt;runs&lt;/b&gt;<br> well.<br><br><br> End."_s);
        Q_EMIT f.tab.repoShell()->packageChanged(PackageBuilder("bash"_s)
                                                     .section("shells"_s)
                                                     .signedWith("Key"_s)
                                                     .control("Package: bash\n")
                                                     .build());
        QTRY_COMPARE(f.labels("packageSign"), "Key"_s);
        f.tab.setCurrentItem(f.item("Shells"));
        QCOMPARE(f.page(), NoPage);
        // A record that cannot be read.
        Q_EMIT f.tab.repoShell()->packageAdded(PackageBuilder("lost"_s).build());
        QTRY_VERIFY(f.shows("lost"));
        f.tab.setCurrentItem(f.item("lost"));
        QCOMPARE(f.page(), ErrorPage);
        QVERIFY(f.labels("packageError").startsWith("<b>Failed to get package information</b><br> "_s));
    }

    void moreAboutAPackage()
    {
        QSettings().clear();
        Fixture f;
        const QByteArray more
            = "Size: 1536\nInstalled-Size: 2048\nHomepage: https://x.example/?a='&b=2\nSHA256: ab12\n";
        f.open("Package: odd\n" + more + f.record("odd", "net").mid(13) + f.record("bash", "shells"));
        f.tab.show();
        f.tab.setCurrentItem(f.item("odd"));
        auto *button = child<QToolButton>(f.tab, "m_moreButton");
        const auto *size = child<QLabel>(f.tab, "m_sizeLabel");
        QVERIFY(!size->isVisible());
        button->click();
        QVERIFY(size->isVisible());
        QCOMPARE(f.labels("size installedSize source homepage poolFile sha256"),
                 "1.5 KiB (1,536 bytes)|2.0 MiB|odd|<a href=\"https://x.example/?a='&amp;b=2\">"
                 "https://x.example/?a='&amp;b=2</a>|pool/main/odd_1.0-1_amd64.deb|ab12"_s);
        QTRY_COMPARE(f.labels("added"), "The file is missing."_s);
        QCOMPARE(PackageFacts::linkTo("javascript:a(<b>)"_s), "javascript:a(&lt;b&gt;)"_s);
        const QString file = f.path + "/pool/main/bash_1.0-1_amd64.deb"_s;
        writeFile(file, "x");
        f.tab.setCurrentItem(f.item("bash"));
        QVERIFY(!size->isVisible()); // the record has no such field
        QTRY_COMPARE(f.labels("added"),
                     QLocale().toString(QFileInfo(file).lastModified(), QLocale::ShortFormat));
        // The choice is kept, also for the tabs that come.
        Fixture other;
        other.open(f.record("bash", "shells"));
        other.tab.show();
        other.tab.setCurrentItem(other.item("bash"));
        QVERIFY(child<QLabel>(other.tab, "m_sourceLabel")->isVisible());
        QSettings().clear();
    }

    void commandForApt()
    {
        const auto named = [](const char *name, const char *version) {
            return PackageBuilder(QString::fromLatin1(name)).version(QString::fromLatin1(version));
        };
        QList<PackageInfoPtr> packages;
        packages << named("libc6", "2.36-9+deb12u4").build();
        packages << named("libc6", "2.36-9+deb12u4").architecture("arm64"_s).build();
        packages << named("g++", "4:12.2.0~rc1").build() << named("evil", "1'$(touch x);*").build();
        packages << named("-o", "APT::x").build();
        QCOMPARE(PackageFacts::names(packages), "libc6\ng++\nevil\n-o"_s);
        const QString command = PackageFacts::aptCommand(packages);
        QVERIFY(command.startsWith("apt install libc6:amd64=2.36-9+deb12u4 libc6:arm64="_s));
        // A real shell takes it apart into one word a package.
        const QString words = runShell("set -- %1; printf '<%s>' \"$@\""_s.arg(command), QDir::tempPath());
        QCOMPARE(words,
                 "<apt><install><libc6:amd64=2.36-9+deb12u4><libc6:arm64=2.36-9+deb12u4><g++=4:12.2.0~rc1>"
                 "<evil=1'$(touch x);*>"_s);
        QCOMPARE(PackageFacts::aptCommand(packages.mid(4)), QString());
    }

    void filtersInALine()
    {
        Fixture f;
        f.open(f.record("bash", "shells") + f.record("zsh", "shells") + f.record("apt", "admin"));
        f.tab.show();
        const QMenu *menu = f.tab.packetFilterMenu();
        const auto choose = [menu](const char *title, const char *value) {
            for (QAction *entry : menu->actions()) {
                if (entry->menu() == nullptr
                    || entry->text().remove(QLatin1Char('&')) != QLatin1String(title))
                    continue;
                Q_EMIT entry->menu()->aboutToShow();
                for (QAction *action : entry->menu()->actions()) {
                    if (action->text() == QLatin1String(value))
                        action->trigger();
                }
            }
        };
        const auto chips = [&f] {
            QList<QToolButton *> buttons;
            for (QToolButton *button : f.tab.findChildren<QToolButton *>("m_filterChip"_s)) {
                if (button->isVisible())
                    buttons << button;
            }
            return buttons;
        };
        const auto *line = child<QWidget>(f.tab, "m_filterLine");
        const auto *count = child<QLabel>(f.tab, "m_shownPackagesLabel");
        QVERIFY(!line->isVisible());
        choose("Section", "Shells (shells)");
        choose("Signature", "Unsigned");
        QVERIFY(f.shows("zsh") && !f.shows("apt"));
        QTRY_COMPARE(count->text(), "2 of 3 packages shown"_s);
        QCOMPARE(chips().size(), 2);
        QCOMPARE(chips().first()->toolTip(), "Remove the filter Section: Shells"_s);
        choose("Architecture", "amd64");
        choose("Component", "main");
        choose("Signature", "Signed");
        QTRY_COMPARE(count->text(), "0 of 3 packages shown"_s);
        // Chips go one after the other by the keyboard alone, and only they: Delete removes packages elsewhere.
        QAction removal;
        removal.setShortcut(Qt::Key_Delete);
        f.tab.addAction(&removal);
        QSignalSpy removals(&removal, &QAction::triggered);
        f.tab.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.tab));
        chips().first()->setFocus();
        for (int left = 3; left >= 0; --left) {
            QTest::keyClick(QApplication::focusWidget(), left % 2 == 0 ? Qt::Key_Delete : Qt::Key_Space);
            QCOMPARE(chips().size(), left);
        }
        QCOMPARE(removals.count(), 0);
        QTRY_VERIFY(f.shows("apt") && !line->isVisible());
        QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()) != nullptr);
        // All that hides packages shows in the line, and is taken back at once.
        menu->actions().first()->trigger();
        choose("Section", "Shells (shells)");
        QCOMPARE(chips().first()->toolTip(), "Remove the filter Dependences: not satisfied, satisfied"_s);
        child<QToolButton>(f.tab, "m_removeFiltersButton")->click();
        QVERIFY(chips().isEmpty() && f.shows("apt"));
    }

    void selectionAndSearch()
    {
        Fixture f;
        f.open(f.record("bash", "shells") + f.record("zsh", "shells") + f.record("apt", "admin"));
        QSignalSpy removable(&f.tab, &RepoWidget::enableRemovePackagesAction);
        QItemSelectionModel *selection = f.tree->selectionModel();
        selection->select(f.item("Shells"), QItemSelectionModel::ClearAndSelect);
        selection->select(f.item("zsh"), QItemSelectionModel::Select); // is in the selected section already
        QCOMPARE(f.selectedNames(), "bash zsh"_s);
        QVERIFY(removable.last().first().toBool());

        auto *search = child<QWidget>(f.tab, "m_searchLine")->findChild<QLineEdit *>();
        QTest::keyClicks(search, "BAS"_s);
        QVERIFY(!f.shows("zsh")); // at once
        QCOMPARE(f.selectedNames(), "bash"_s);
        QVERIFY(f.tree->isExpanded(f.item("Shells")));
        search->clear();
        QVERIFY(f.shows("zsh") && !f.tree->isExpanded(f.item("Shells")));
        selection->select(f.item("my repo"), QItemSelectionModel::ClearAndSelect);
        // What stands selected after opening must not offer to remove everything.
        QVERIFY(f.tab.selectedPackages().isEmpty());
        QVERIFY(!removable.last().first().toBool());

        // Everything by a key, also what is folded away.
        f.tree->collapse(f.item("my repo"));
        f.tab.selectAllPackages();
        QCOMPARE(f.selectedNames(), "bash zsh apt"_s);
        // From the search into what it has found.
        for (const auto key : {Qt::Key_Down, Qt::Key_Return}) {
            f.tab.setCurrentItem(f.item("my repo"));
            f.tab.show();
            search->setFocus();
            search->setText("zs"_s);
            QTest::keyClick(search, key);
            QCOMPARE(f.selectedNames(), "zsh"_s);
            QCOMPARE(f.tab.focusWidget(), f.tree);
        }
    }

    void pagesFitASmallScreen()
    {
        Fixture f;
        QByteArray record = f.record("a-name-that-is-as-long-as-those-of-some-libraries-dev", "shells");
        record.replace("T. <t@example.org>",
                       "Some Team of Packagers <pkg-some-team-of-packagers-maintainers@lists.example.org>");
        record.replace("It <b>runs</b>",
                       "See https://www.example.org/a/path/that/has/no/blank/in/it/at/all.html");
        f.open(record);
        f.tab.resize(640, 500);
        f.tab.show();
        for (const char *button : {"m_copyKeyPushButton", "m_saveKeyPushButton"})
            child<QWidget>(f.tab, button)->show();
        for (const char *page : {"m_repoCommonScrollArea", "scrollArea"}) {
            if (qstrcmp(page, "scrollArea") == 0)
                f.tab.setCurrentItem(f.item("a-name-that-is-as-long-as-those-of-some-libraries-dev"));
            const auto *area = child<QScrollArea>(f.tab, page);
            QTRY_VERIFY(area->isVisible());
            QVERIFY2(area->horizontalScrollBar()->maximum() == 0,
                     qPrintable("%1 %2 in %3"_s.arg(QLatin1String(page))
                                    .arg(area->widget()->minimumSizeHint().width())
                                    .arg(area->viewport()->width())));
        }
    }

    void firstHitComesIntoView()
    {
        Fixture f;
        QByteArray packages = f.record("hit", "zope");
        for (int i = 0; i < 60; ++i)
            packages += f.record("p" + QByteArray::number(i), "section" + QByteArray::number(i));
        f.open(packages);
        f.tab.resize(600, 300);
        f.tab.show();
        const auto isInView = [&f] {
            const QRect place = f.tree->visualRect(f.item("hit"));
            return !place.isEmpty() && f.tree->viewport()->rect().contains(place.center());
        };
        QVERIFY(!isInView());
        auto *search = child<QWidget>(f.tab, "m_searchLine")->findChild<QLineEdit *>();
        search->setText("hi"_s);
        QVERIFY(isInView());
        search->clear();
        f.tree->collapseAll();
        f.tree->scrollToTop();
        Q_EMIT f.tab.repoShell()->packageChanged(
            PackageBuilder("hit"_s).version("1.0-1"_s).section("zope"_s).state(DependError).build());
        QTRY_COMPARE(f.tab.packagesInError(), 1);
        for (int state : {0, 2})
            f.tab.packetFilterMenu()->actions().at(state)->trigger();
        QVERIFY(isInView());
    }

    void sourceLineOfTheChoices()
    {
        Fixture f;
        QSettings store;
        PublicationSettings{8000, "/srv/other"_s, false, "arm64"_s, FtpProtocol, "10.9.9.9"_s}.claim(store);
        const auto line = [&] { return child<QLineEdit>(f.tab, "m_srcLineEdit")->text(); };
        auto *copy = child<QPushButton>(f.tab, "m_srcCopyPushButton");
        auto *type = child<QComboBox>(f.tab, "m_srvTypeComboBox");
        auto *note = child<QLabel>(f.tab, "m_ftpNoteLabel");
        auto *address = child<QComboBox>(f.tab, "m_ipAddrComboBox")->lineEdit();
        QCOMPARE(address->text(), "127.0.0.1"_s);
        QVERIFY(!copy->isEnabled());
        f.open({});
        QVERIFY(line().isEmpty() && !copy->isEnabled()); // no server type
        type->setCurrentIndex(type->findText("HTTP"_s));
        address->selectAll();
        QTest::keyClicks(address, "10.1.1."_s);
        QVERIFY(line().isEmpty() && !copy->isEnabled());
        QTest::keyClicks(address, "1"_s);
        QCOMPARE(line(), "deb [arch=amd64 trusted=yes] http://10.1.1.1:8000/ dogwood main contrib"_s);
        QVERIFY(note->isHidden());
        type->setCurrentIndex(type->findText("FTP"_s));
        QVERIFY(!note->isHidden());
        child<QCheckBox>(f.tab, "m_trustedCheckBox")->click();
        child<QSpinBox>(f.tab, "m_httpPortSpinBox")->setValue(2121);
        const QString shown = "deb [arch=amd64] ftp://10.1.1.1:2121/ dogwood main contrib"_s;
        QCOMPARE(line(), shown);
        QCOMPARE(child<QLineEdit>(f.tab, "m_srcLineEdit")->cursorPosition(), 0);
        QSignalSpy told(&f.tab, &RepoWidget::statusLabel);
        copy->click();
        QCOMPARE(QGuiApplication::clipboard()->text(), shown);
        QCOMPARE(told.count(), 1);
        f.open({}, "elm", "i386 amd64");
        QCOMPARE(line(), "deb [arch=amd64] ftp://10.1.1.1:2121/ elm main contrib"_s);
        type->addItem("directory"_s, LocalDirectoryProtocol);
        type->setCurrentIndex(2);
        QCOMPARE(line(), "deb [arch=amd64] file://%1/ elm main contrib"_s.arg(f.path));
        QVERIFY(!address->isEnabled() && !child<QSpinBox>(f.tab, "m_httpPortSpinBox")->isEnabled());
        // Unpublished, it takes nobody's place.
        f.tab.saveChoices();
        QCOMPARE(PublicationSettings::busyPorts(store), QList<int>{8000});
        QCOMPARE(PublicationSettings::load(store, 8000).host, "10.9.9.9"_s);
        f.tab.repoShell()->closeRepo();
        QVERIFY(line().isEmpty());
    }

    void choicesOfAPublishedRepository()
    {
        Fixture f;
        QSettings store;
        PublicationSettings{2121, f.path, false, "i386"_s, FtpProtocol, "10.1.1.1"_s}.claim(store);
        f.open({}, "elm", "amd64 i386");
        QCOMPARE(child<QLineEdit>(f.tab, "m_srcLineEdit")->text(),
                 "deb [arch=i386] ftp://10.1.1.1:2121/ elm main contrib"_s);
        child<QCheckBox>(f.tab, "m_trustedCheckBox")->click();
        child<QSpinBox>(f.tab, "m_httpPortSpinBox")->setValue(3000);
        child<QComboBox>(f.tab, "m_ipAddrComboBox")->setEditText("10."_s); // not finished
        f.tab.saveChoices();
        PublicationSettings kept = PublicationSettings::load(store, 2121);
        QCOMPARE(kept.repoPath + "|"_s + kept.host, f.path + "|10.1.1.1"_s);
        QVERIFY(kept.trusted);
        QVERIFY(!PublicationSettings::busyPorts(store).contains(3000));
        // The port is somebody else's by now.
        kept.repoPath = "/srv/other"_s;
        kept.claim(store);
        f.tab.saveChoices();
        QCOMPARE(PublicationSettings::load(store, 2121).repoPath, "/srv/other"_s);
        // Or was given up.
        kept.repoPath = f.path;
        kept.claim(store);
        f.open({});
        store.remove("busyHttpPorts"_s);
        f.tab.saveChoices();
        QVERIFY(PublicationSettings::busyPorts(store).isEmpty());
    }
};

VELT_TEST_MAIN(RepoWidgetTest, QApplication)
#include "tst_repowidget.moc"
