// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/children.h"
#include "support/packagetesting.h"
#include "support/testenvironment.h"
#include "support/testkeys.h"
#include "ui/commands/gathering/gatherdialog.h"
#include "ui/dialogs/addpkgsettingsdialog.h"
#include "ui/dialogs/gpgkeyswidget.h"
#include "ui/dialogs/newrepodialog.h"
#include "ui/dialogs/packagereplacementdialog.h"
#include "ui/dialogs/parametersdialog.h"
#include "ui/dialogs/prompts.h"
#include "ui/dialogs/upgradepackagesdialog.h"
#include "ui/packages/packagedetails.h"
#include "ui/sources/externalreposdialog.h"
#include "ui/widgets/elidedlabel.h"
#include "ui/widgets/helptopics.h"

#include <QAbstractItemModelTester>
#include <QtWidgets>

namespace
{
/** Answers the message boxes that come up, in order, and keeps what they said. */
class BoxAnswers : public QTimer
{
public:
    explicit BoxAnswers(const QList<QMessageBox::StandardButton> &answers)
        : m_answers(answers)
    {
        callOnTimeout(this, [this] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (box == nullptr || !box->isVisible() || m_answers.isEmpty())
                return;
            texts << box->windowTitle() + ": "_s + box->text();
            if (!ticks.isEmpty())
                box->checkBox()->setChecked(ticks.takeFirst());
            abouts << box->informativeText();
            box->button(m_answers.takeFirst())->click();
        });
        start(5);
    }
    QStringList texts;
    QStringList abouts; ///< what stands below them
    QList<bool> ticks; ///< for their boxes

private:
    QList<QMessageBox::StandardButton> m_answers;
};

void type(QWidget &dialog, const char *field, const QString &text)
{
    auto *widget = child<QWidget>(dialog, field);
    auto *edit = qobject_cast<QLineEdit *>(widget);
    if (edit == nullptr)
        edit = widget->findChild<QLineEdit *>();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

QPushButton *button(QWidget &dialog, QDialogButtonBox::StandardButton which)
{
    return child<QDialogButtonBox>(dialog, "buttonBox")->button(which);
}

RepoInfo birch()
{
    return {"r"_s, "birch"_s, "stable"_s, {}, "amd64 riscv64"_s, "main own"_s, true};
}

/** Stand-ins for programs, which nothing but the shell's own is beside. */
struct Tools
{
    QTemporaryDir folder;
    const ScopedVariable path{"PATH", folder.path() + ":/bin"_s};

    QString file(const char *name) const { return folder.filePath(QLatin1String(name)); }
    void set(const char *name, const QByteArray &script) const
    {
        writeScript(file(name), "#!/bin/sh\n" + script);
    }
};

/** The dialog of a repository with what it needs; `accept` presses OK and says whether the dialog was content. */
struct RepoDialog
{
    QTemporaryDir folder;
    QWidget window;
    Prompts prompts{&window};
    NewRepoDialog dialog;

    explicit RepoDialog(NewRepoDialog::Mode mode)
        : dialog(mode, prompts)
    {
        dialog.show();
    }
    bool accept()
    {
        button(dialog, QDialogButtonBox::Ok)->click();
        return QTest::qWaitFor([this] { return dialog.cursor().shape() != Qt::BusyCursor; })
               && !dialog.isVisible();
    }
};
} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void creationFillsOnlyUntouchedFields()
    {
        RepoDialog f(NewRepoDialog::Mode::Create);
        type(f.dialog, "m_nameLineEdit", "My-Repo_1"_s);
        type(f.dialog, "m_suiteComboBox", "testing"_s);
        child<QComboBox>(f.dialog, "m_codeNameComboBox")->setCurrentIndex(2);
        type(f.dialog, "m_versionLineEdit", "1"_s);
        QTest::keyClick(child<QLineEdit>(f.dialog, "m_versionLineEdit"), Qt::Key_Backspace);
        RepoInfo defaults = birch();
        defaults.version = "9"_s;
        f.dialog.setDefaults(defaults);
        const RepoInfo info = f.dialog.repoInfo();
        const QStringList fields{
            info.name, info.suite, info.codename, info.version, info.architectures, info.components};
        QCOMPARE(fields.join("|"_s), "y-epo_1|testing|aspen||amd64 riscv64|main own"_s);
        QVERIFY2(QToolTip::text().startsWith("Small letters"_s),
                 "a key that is refused is not passed over in silence");
    }

    void creationRefusesAndAsks()
    {
        RepoDialog f(NewRepoDialog::Mode::Create);
        BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::No, QMessageBox::Yes});
        QDir(f.folder.path()).mkdir("taken"_s);
        type(f.dialog, "m_pathLineEdit", "/srv"_s);
        type(f.dialog, "m_nameLineEdit", "r"_s);
        QVERIFY(!f.accept());
        QCOMPARE(f.dialog.focusWidget(), child<QComboBox>(f.dialog, "m_codeNameComboBox")); // what is missing
        f.dialog.setDefaults(birch());
        type(f.dialog, "m_pathLineEdit", f.folder.path());
        type(f.dialog, "m_nameLineEdit", "taken"_s);
        child<QComboBox>(f.dialog, "m_archComboBox")->setEditText("amd64 all"_s);
        QVERIFY(!f.accept());
        child<QComboBox>(f.dialog, "m_archComboBox")->setEditText("amd64"_s);
        QVERIFY(!f.accept());
        QVERIFY(f.accept());
        QCOMPARE(f.dialog.repositoryPath(), f.folder.filePath("taken"_s));
        const QString replace = "Repository creation: The directory %1 already exists. Replace it?"_s.arg(
            f.dialog.repositoryPath());
        QCOMPARE(answers.texts.mid(0, 2).join("|"_s),
                 "Repository creation: Please fill all required fields!|"
                 "Repository creation: Architecture \"all\" is unallowable!"_s);
        QCOMPARE(answers.texts.mid(2), QStringList({replace, replace}));

        // What holds repositories is not overwritten at all.
        writeFile(f.folder.filePath("taken/one/conf/distributions"_s), "x");
        writeFile(f.folder.filePath("taken/1/2/3/4/two/conf/distributions"_s), "x");
        f.dialog.setRemembered({f.folder.filePath("taken/1/2/3/4/two"_s)});
        f.dialog.show();
        const BoxAnswers refused({QMessageBox::Ok});
        QVERIFY(!f.accept());
        QVERIFY(refused.texts.value(0).endsWith(
            "repositories: %1/taken/1/2/3/4/two, %1/taken/one"_s.arg(f.folder.path())));
        QVERIFY(QDir(f.folder.filePath("taken"_s)).removeRecursively()
                && QDir(f.folder.path()).mkdir("taken"_s));

        // What is published is overwritten only after a second question.
        f.dialog.setPublishedCheck([](const QString &) { return true; });
        f.dialog.show();
        BoxAnswers twice({QMessageBox::Yes, QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes});
        QVERIFY(!f.accept());
        QVERIFY(f.accept());
        QVERIFY(twice.texts.at(1).startsWith("Overwriting a published repository: "_s));
    }

    void changeAsksOnlyWhenPackagesAreInDanger()
    {
        RepoDialog f(NewRepoDialog::Mode::Change);
        const QString path = f.folder.filePath("r"_s);
        QDir().mkpath(path);
        RepoInfo before = birch();
        before.origin = before.label = "Us"_s;
        f.dialog.setRepository(path, before);
        QCOMPARE(f.dialog.repositoryPath(), path);
        QCOMPARE(f.dialog.repoInfo(), before);
        BoxAnswers answers({QMessageBox::No, QMessageBox::Yes});
        type(f.dialog, "m_versionLineEdit", "2.0"_s);
        QVERIFY(f.accept());
        QVERIFY(answers.texts.isEmpty());
        f.dialog.show();
        type(f.dialog, "m_componentsComboBox", "main own further"_s);
        QVERIFY(f.accept());
        QVERIFY2(answers.texts.isEmpty(), "what only comes in addition endangers nothing");
        f.dialog.show();
        type(f.dialog, "m_componentsComboBox", "main"_s);
        QVERIFY(!f.accept());
        QVERIFY(f.accept());
        QVERIFY(answers.texts.at(1).contains("may result in packages deletion"_s));
        QVERIFY(!f.dialog.carriesPackages());

        // Below stands what goes. One file can serve several architectures, and stays as long as one of them does.
        QList<PackageInfoPtr> packages;
        for (const char *place :
             {"all amd64 main", "all riscv64 main", "amd64 amd64 main", "riscv64 riscv64 own"}) {
            const QStringList words = QString::fromLatin1(place).split(u' ');
            const auto package = QSharedPointer<PackageInfo>::create();
            package->name = "for-"_s + words.at(0);
            package->control = ControlText("Architecture: " + words.at(0).toLatin1() + '\n');
            package->architecture = words.at(1);
            package->indexComponent = words.at(2);
            package->root = path;
            package->poolFile = package->name;
            packages.append(package);
        }
        const auto losses = [&](const char *field, const QString &text, const QList<bool> &ticks) {
            f.dialog.setRepository(path, birch(), packages);
            f.dialog.show();
            BoxAnswers changes({QMessageBox::Yes});
            changes.ticks = ticks;
            type(f.dialog, field, text);
            return f.accept() ? changes.abouts.join("|"_s) : QString();
        };
        QCOMPARE(losses("m_componentsComboBox", "main"_s, {}),
                 "1 package(s) will be deleted: for-riscv64 (riscv64)"_s);
        const QString all
            = "All 3 package(s) will be deleted: for-all (all), for-amd64 (amd64), for-riscv64 (riscv64)"_s;
        QCOMPARE(losses("m_codeNameComboBox", "cedar"_s, {}), "No package will be deleted."_s);
        QVERIFY(f.dialog.carriesPackages());
        QCOMPARE(losses("m_codeNameComboBox", "cedar"_s, {false}), all);
        QVERIFY(!f.dialog.carriesPackages());

        f.dialog.setRepository(path, birch());
        f.dialog.show();
        const BoxAnswers moves({QMessageBox::No, QMessageBox::Yes});
        type(f.dialog, "m_nameLineEdit", "moved"_s);
        QVERIFY(!f.accept());
        QVERIFY(f.accept());
        QVERIFY(moves.texts.at(1).endsWith("from %1 to %2?"_s.arg(path, f.dialog.repositoryPath())));

        f.dialog.setPublishedCheck([](const QString &published) { return published == "/srv/r"_s; });
        for (const char *changed : {"/srv/r", "/srv/other"}) {
            f.dialog.setRepository(QString::fromLatin1(changed), birch());
            const bool free = changed == QByteArray("/srv/other");
            QCOMPARE(button(f.dialog, QDialogButtonBox::Ok)->isEnabled(), free);
            QCOMPARE(child<QLineEdit>(f.dialog, "m_nameLineEdit")->isEnabled(), free);
            QCOMPARE(child<QLabel>(f.dialog, "m_messageLabel")->isHidden(), free);
            QVERIFY(button(f.dialog, QDialogButtonBox::Cancel)->isEnabled());
        }
    }

    void replacementRules()
    {
        PackageInfo package;
        package.name = "<b>bash</b>"_s;
        package.version = "5.2"_s;
        package.architecture = "amd64"_s;
        const QList<QPair<QString, int>> options{{"Give preference to versions higer"_s, 16},
                                                 {"Give preference to versions lower"_s, 32},
                                                 {"Replace all packages"_s, 48},
                                                 {"Do not replace packages"_s, 4}};
        for (const auto &option : options) {
            PackageReplacementDialog dialog(RepoEnums::PACKAGE_EXISTS_OLD_VERSION, package, false);
            QCOMPARE(child<QLabel>(dialog, "m_questionLabel")->textFormat(), Qt::PlainText);
            QCOMPARE(child<QLabel>(dialog, "m_questionLabel")->text(),
                     "The repository already contains a package <b>bash</b> (5.2) of an earlier version. "
                     "Do you want to replace it?"_s);
            auto *apply = child<QPushButton>(dialog, "m_applyToAllButton");
            // The keys of the other buttons come from the toolkit, this one's from us.
            QVERIFY(!QKeySequence::mnemonic(apply->text()).isEmpty());
            QVERIFY(!apply->isEnabled());
            for (QRadioButton *radio : dialog.findChildren<QRadioButton *>()) {
                if (radio->text().remove("&"_s) == option.first)
                    radio->click();
            }
            apply->click();
            QCOMPARE(static_cast<int>(dialog.rule()), option.second);
        }
        PackageReplacementDialog single(RepoEnums::PACKAGE_EXISTS, package, true);
        single.setNewcomer("bash_5.3_all.deb"_s, "5.3"_s);
        QCOMPARE(child<QLabel>(single, "m_versionsLabel")->text(),
                 "Version in the repository: 5.2 (amd64)\nNew version: 5.3 (bash_5.3_all.deb)"_s);
        QVERIFY(single.findChildren<QRadioButton *>().isEmpty());
        PackageReplacementDialog all(
            RepoEnums::PACKAGE_EXISTS,
            *PackageBuilder("doc"_s).control("Package: doc\nArchitecture: all\n").build(),
            true);
        all.setNewcomer("doc_2_all.deb"_s, "2"_s);
        QVERIFY(child<QLabel>(all, "m_versionsLabel")->text().contains("(all)"_s));
        PackageReplacementDialog shared(RepoEnums::PACKAGE_EXISTS, package, false);
        shared.setNewcomer("doc_2_all.deb"_s, "2"_s, {"amd64"_s, "i386"_s});
        QVERIFY(child<QLabel>(shared, "m_versionsLabel")->text().endsWith("all of them: amd64, i386"_s));
        shared.findChildren<QRadioButton *>().first()->click();
        child<QPushButton>(shared, "m_stopButton")->click();
        QVERIFY(shared.wantsStop() && shared.rule() == PackageReplacementRules::KeepThis);
        QCOMPARE(single.findChildren<QPushButton *>().size(), 2);
        button(single, QDialogButtonBox::Yes)->click();
        QCOMPARE(single.rule(), PackageReplacementRules::ReplaceThis);
        // Enter in haste keeps the package, Escape does always; Enter after choosing an option applies that.
        for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
            for (const bool chosen : {false, true}) {
                PackageReplacementDialog several(RepoEnums::PACKAGE_EXISTS, package, false);
                several.show();
                if (chosen)
                    several.findChildren<QRadioButton *>().at(2)->click();
                QTest::keyClick(&several, key);
                QVERIFY(!several.isVisible());
                const bool applied = chosen && key == Qt::Key_Return;
                QCOMPARE(several.rule(),
                         applied ? PackageReplacementRules::ReplaceAll : PackageReplacementRules::KeepThis);
            }
        }
    }

    void everyDialogHasItsHelp()
    {
        QWidget window;
        Prompts prompts(&window);
        QStringList asked;
        connect(&prompts, &Prompts::helpRequested, this, [&asked](QDialog *dialog, const QString &page) {
            asked << page;
            dialog->reject();
        });
        QTimer help;
        help.callOnTimeout(this, [] {
            if (QWidget *dialog = QApplication::activeModalWidget())
                QTest::keyClick(dialog, Qt::Key_F1);
        });
        help.start(5);
        NewRepoDialog create(NewRepoDialog::Mode::Create, prompts);
        for (int i = 0; i < 2; ++i)
            QCOMPARE(prompts.run(create), static_cast<int>(QDialog::Rejected));
        prompts.warn("title"_s, "text"_s);
        prompts.showError("text"_s);
        QTRY_VERIFY(!prompts.isOpen());
        QCOMPARE(asked, "repositories.html#fields|repositories.html#fields|troubles.html|troubles.html"_list);
        for (const HelpTopics::Topic &topic : HelpTopics::all()) {
            const QStringList page = QString::fromLatin1(topic.page).split(u'#');
            const QByteArray html = readFile(QStringLiteral(HELP_FOLDER "/") + page.first());
            QVERIFY2(page.size() == 1 || html.contains(QByteArray("id=\"" + page.last().toUtf8() + "\"")),
                     topic.page);
        }
    }

    void addSettingsTakeOnlyWhatIsShown()
    {
        QWidget window;
        Prompts prompts(&window);
        UserChoices choices;
        choices.currentComponent = "contrib"_s;
        choices.signPackage = true;
        AddPkgSettingsDialog dialog({"main"_s, "contrib"_s}, choices, prompts);
        QVERIFY(dialog.choices().signPackage);
        for (const char *box : {"m_signPackageCheckBox", "m_checkDependsCheckBox"})
            child<QCheckBox>(dialog, box)->click();
        QVERIFY(!dialog.choices().signPackage && !dialog.choices().addPkgCheckDepends);
        QVERIFY(dialog.choices().showAddPkgSettings);
        // What a repository does not offer stays for those that do, unless the user chooses something else.
        for (const QStringList &offered : {QStringList(), "main|own"_list}) {
            AddPkgSettingsDialog other(offered, choices, prompts);
            QCOMPARE(other.choices().currentComponent, "contrib"_s);
            child<QComboBox>(other, "m_componentComboBox")->setCurrentText("own"_s);
            QCOMPARE(other.choices().currentComponent, offered.value(1, "contrib"_s));
        }
        child<QComboBox>(dialog, "m_componentComboBox")->setCurrentIndex(0);
        QCOMPARE(dialog.choices().currentComponent, QString());
    }

    void upgradesAreSortedByVersion()
    {
        QWidget window;
        UpgradePackagesDialog dialog(
            {{"d"_s, "amd64"_s, {}, "1"_s, "10.0~rc1"_s, {}, {}, "all"_s},
             {"b"_s, "amd64"_s, {}, "1"_s, "9.0"_s, {}, {}, "all"_s},
             {"c"_s, "amd64"_s, {}, "1"_s, "1:0.1"_s, {}, {}, "amd64"_s},
             {"a"_s, "amd64"_s, {}, "1"_s, "10.0"_s, {}, {}},
             {"d"_s, "arm64"_s, {}, "1"_s, "10.0~rc1"_s, {}, {}, "all"_s}},
            [](const QString &) { return QString(); },
            &window);
        auto *view = child<QTreeView>(dialog, "m_tableView");
        const QAbstractItemModel &rows = *view->model();
        const auto column = [&rows](int number) {
            QStringList all;
            for (int row = 0; row < rows.rowCount(); ++row)
                all += rows.index(row, number).data().toString();
            return all.join("|"_s);
        };
        QCOMPARE(column(0), "a|b|c|d|d"_s);
        QCOMPARE(column(1), "amd64|all|amd64|all (amd64)|all (arm64)"_s);
        QCOMPARE(dialog.packages().at(4).architecture, "arm64"_s);
        view->sortByColumn(3, Qt::AscendingOrder);
        QCOMPARE(column(0), "b|d|d|a|c"_s);
        view->sortByColumn(0, Qt::DescendingOrder);
        QCOMPARE(column(0), "d|d|c|b|a"_s);
    }

    void missingPackagesAreSwitchedOff()
    {
        GatherPlan plan;
        for (const char *name : {"small", "large"}) {
            GatherPlan::Row row;
            row.package.name = QLatin1String(name);
            row.size = plan.rows.isEmpty() ? 3000 : 20000;
            plan.rows.append(row);
        }
        GatherPlan::Need need;
        need.owner.name = "app"_s;
        need.entry = "small"_s;
        need.rows = {0};
        plan.needs.append(need);
        need.owner.name = "small"_s;
        need.entry = "large"_s;
        need.ownerRow = 0;
        need.rows = {1};
        plan.needs.append(need);
        QWidget window;
        GatherDialog dialog(
            plan, [](const QString &) { return QString(); }, &window);
        auto *view = child<QTreeView>(dialog, "m_tableView");
        const auto *left = child<QPlainTextEdit>(dialog, "m_leftText");
        view->sortByColumn(3, Qt::DescendingOrder);
        QCOMPARE(view->model()->index(0, 0).data().toString(), "large"_s);
        QVERIFY(!left->toPlainText().contains(u'\n'));
        QVERIFY(view->model()->setData(view->model()->index(1, 0), Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY2(left->toPlainText().contains(": large\napp"_s), qPrintable(left->toPlainText()));
        QCOMPARE(dialog.plan().packages().size(), 1);
        QCOMPARE(dialog.plan().size(), qint64(20000));
    }

    void equalNamesAreToldApart()
    {
        QList<PackageInfoPtr> packages;
        for (const QString &package : {"foo amd64"_s, "bar amd64"_s, "foo i386"_s})
            packages
                += PackageBuilder(package.section(u' ', 0, 0)).architecture(package.section(u' ', 1)).build();
        // Also when one of them is chosen alone.
        QVERIFY(PackageDetails::summary(packages.mid(0, 2), {{}, {}, {}, {}, "i386 amd64"_s, {}})
                    .endsWith(": foo (amd64), bar (amd64)"_s));
        QVERIFY(PackageDetails::summary(packages.mid(0, 2), {{}, {}, {}, {}, "amd64 source"_s, {}})
                    .endsWith(": foo, bar"_s));
    }

    void externalRepos()
    {
        // Stands in for apt-cache: answers when told to, as the file says.
        const Tools tools;
        const QString go = tools.file("go");
        tools.set("apt-cache", "while [ ! -s ${0%/*}/go ]; do sleep 0.02; done\n. ${0%/*}/go\n");
        QWidget window;
        Prompts prompts(&window);
        ExternalRepos stored;
        QVERIFY(stored.setSource("http://own s main"_s) && stored.setSource("http://off s main"_s));
        stored.setEnabled(1, false);
        {
            ExternalReposDialog abandoned(stored, prompts);
            abandoned.show();
        }
        // It stops asking, however long apt would take.
        QTRY_COMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
        ExternalReposDialog dialog(stored, prompts);
        auto *view = child<QTreeView>(dialog, "m_externalReposView");
        const QAbstractItemModelTester tester(view->model(),
                                              QAbstractItemModelTester::FailureReportingMode::Fatal);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        auto *state = child<QLabel>(dialog, "m_stateLabel");
        QVERIFY(state->text().startsWith("Asking apt"_s));
        QCOMPARE(view->model()->rowCount(), 2);
        // A name is being typed while the answer comes and moves the row.
        view->setFocus();
        view->setCurrentIndex(view->model()->index(0, 1));
        QTest::keyClick(view, Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "My "_s);
        writeFile(go, "echo ' 500 http://apt s/main amd64 Packages\n 500 http://off s/main amd64 Packages'");
        QTRY_COMPARE(view->model()->rowCount(), 3);
        QVERIFY(state->text().isEmpty());
        QTest::keyClicks(QApplication::focusWidget(), "own"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(dialog.isVisible());
        QTRY_COMPARE(view->model()->index(2, 1).data().toString(), "My own"_s);

        // What apt knows is named and switched off, never changed or removed.
        view->setCurrentIndex(view->model()->index(0, 0));
        QTest::keyClick(view, Qt::Key_Delete);
        QTest::keyClick(view, Qt::Key_Space);
        QTest::keyClick(view, Qt::Key_F2);
        QTest::keyClicks(QApplication::focusWidget(), "Apt"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QTRY_VERIFY(view->hasFocus());
        QVERIFY(!child<QPushButton>(dialog, "m_removeButton")->isEnabled());

        QString refused;
        QTimer::singleShot(0, &dialog, [&refused] {
            QWidget *source = QApplication::activeModalWidget();
            type(*source, "m_sourceLineEdit", "deb http://own  s main"_s);
            QTest::keyClick(source, Qt::Key_Return);
            refused = child<QLabel>(*source, "m_refusalLabel")->text();
            type(*source, "m_sourceLineEdit", "deb http://new  s main"_s);
            QTest::keyClick(source, Qt::Key_Return);
        });
        QTest::keyClick(view, Qt::Key_Insert);
        QVERIFY(refused.contains("already"_s));
        view->setCurrentIndex(view->model()->index(2, 0));
        dialog.activateWindow();
        QTRY_VERIFY(view->hasFocus());
        QTest::keyClick(view, Qt::Key_Delete);
        button(dialog, QDialogButtonBox::Ok)->click();
        const ExternalRepos edited = dialog.repos();
        QStringList rows;
        for (const auto &entry : edited.entries())
            rows += (entry.enabled ? QString() : "-"_s) + entry.source + "|"_s + entry.alias;
        QCOMPARE(rows,
                 (QStringList{"-http://apt s main|Apt"_s, "-http://off s main|"_s, "http://new s main|"_s}));

        // Without apt the stored ones stay at hand.
        writeFile(go, "echo 'E: The list of sources could not be read.' >&2; exit 100");
        ExternalReposDialog alone(edited, prompts);
        QTRY_VERIFY(child<ElidedLabel>(alone, "m_stateLabel")->fullText().endsWith("could not be read."_s));
        QVERIFY(alone.repos().entries() == edited.entries());
    }

    void signingKeyIsNeverLost()
    {
        QWidget window;
        Prompts prompts(&window);
        ParametersDialog dialog(prompts);
        auto *combo = child<QComboBox>(dialog, "m_keysComboBox");
        dialog.setSignKeyId("22223333"_s);
        QVERIFY(!combo->isEnabled() && combo->placeholderText().contains("22223333"_s));
        QCOMPARE(dialog.signKeyId(), "22223333"_s);

        auto *keys = child<GpgKeysWidget>(dialog, "m_gpgKeysWidget");
        keys->fill({"Ann [work] <a@x> [11112222]"_s, "Old [44445555]"_s, "Nobody"_s},
                   {{"Old [44445555]"_s, "expired"_s}});
        QCOMPARE(combo->currentIndex(), -1);
        QCOMPARE(dialog.signKeyId(), "22223333"_s);
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(dialog.signKeyId(), "11112222"_s);
        QTest::keyClick(combo, Qt::Key_End);
        QTest::keyClick(combo, Qt::Key_Down);
        QCOMPARE(dialog.signKeyId(), "11112222"_s);
        keys->fill({"Ben [22223333]"_s});
        QCOMPARE(combo->currentText(), "Ben [22223333]"_s);
    }

    void keyManagerIsOfferedOrFollowed()
    {
        const Tools tools;
        tools.set("dpkg", "echo 'un  kgpg  <none> <none> x'\n");
        tools.set("synaptic-pkexec", "{ echo $@; cat; } >${0%/*}/x; mv ${0%/*}/x ${0%/*}/marked\n");
        RepoDialog f(NewRepoDialog::Mode::Create);
        auto *button = child<QToolButton>(f.dialog, "m_startKGpgToolButton");
        const BoxAnswers answers({QMessageBox::No, QMessageBox::Yes});
        for (const bool agreed : {false, true}) {
            button->click();
            QTRY_VERIFY(button->isEnabled());
            QTRY_COMPARE(QFile::exists(tools.file("marked")), agreed);
        }
        QVERIFY(readFile(tools.file("marked")).endsWith("\nkgpg install\n"));
        QVERIFY(readFile(tools.file("marked")).startsWith("--set-selections"));
        const QString question = "Error: Package kgpg is not installed! Do you want to install it?"_s;
        QTRY_COMPARE(answers.texts, (QStringList{question, question}));

        tools.set("dpkg", "echo 'ii  kgpg  1 amd64 x'\n");
        tools.set("kgpg", "cd \"${0%/*}\"; : >started; while [ -e started ]; do sleep 0.02; done\n");
        button->click();
        QTRY_VERIFY(QFile::exists(tools.file("started")));
        QVERIFY(!button->isEnabled());
        QFile::remove(tools.file("started"));
        QTRY_VERIFY(button->isEnabled());
    }

    void signingIsTurnedOnWhereItIsPossible()
    {
        const Tools tools;
        RepoDialog f(NewRepoDialog::Mode::Create);
        auto *box = child<QCheckBox>(f.dialog, "m_signWithCheckBox");
        const auto *ok = child<QDialogButtonBox>(f.dialog, "buttonBox")->button(QDialogButtonBox::Ok);
        const BoxAnswers answers({QMessageBox::No, QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok});
        const QString missing = "Error: Package gpg is not installed! Do you want to install it?"_s;
        const QString failed = "Error: Key verification error:\n%1"_s;
        const QStringList words{missing,
                                failed.arg("nö\n"_s),
                                failed.arg("gpg ended with the code 2 and did not say why."_s),
                                failed.arg("gpg crashed."_s)};
        // What dpkg prints and gpg does, how many of these have been said then, and whether signing is on.
        const std::tuple<QByteArray, QByteArray, int, bool> cases[]
            = {{"un  gpg <none>", "exit 1", 1, false},
               {"ii  gpg 2", "echo nö >&2; exit 2", 2, false},
               {"ii  gpg 2", "exit 2", 3, false},
               {"ii  gpg 2", "kill -KILL $$", 4, false},
               {"ii  gpg 2", "echo 'pub rsa4096 [C]'", 4, false},
               {"ii  gpg 2", "echo 'pub rsa4096 [SC]'", 4, true}};
        for (const auto &[dpkg, gpg, said, isOn] : cases) {
            tools.set("dpkg", "echo '" + dpkg + "'\n");
            tools.set("gpg", gpg + "\n");
            box->click();
            // What has been switched on cannot be accepted before it is known whether it works.
            QVERIFY(!ok->isEnabled());
            QTRY_VERIFY(ok->isEnabled() && box->isEnabled());
            QTRY_COMPARE(answers.texts, words.mid(0, said));
            QTRY_COMPARE(f.dialog.repoInfo().signWith, isOn);
        }
        QVERIFY(box->toolTip().contains("no key"_s));
    }

    void furtherFieldsFoldOut()
    {
        VELT_NEED_TOOL("gpg");
        const QString key = TestKeys::make("Ann <ann@example.org>"_s);
        RepoDialog f(NewRepoDialog::Mode::Change);
        const QString path = f.folder.filePath("r"_s);
        const auto *area = child<QScrollArea>(f.dialog, "m_furtherScrollArea");
        f.dialog.setRepository(path, birch());
        QVERIFY(area->isHidden());
        QCOMPARE(f.dialog.repoInfo(), birch());
        RepoInfo whole = birch();
        whole.origin = "Us: all"_s;
        whole.label = whole.description = "Ours"_s;
        whole.signKey = key.right(16).toLower();
        whole.contents = true;
        whole.contentsChoices = ".xz udebs"_s;
        whole.validFor = 42;
        whole.otherLines = "# mine|Log: x| y.sh"_list;
        f.dialog.setRepository(path, whole);
        QVERIFY(area->isVisible());
        QCOMPARE(child<QPlainTextEdit>(f.dialog, "m_otherFieldsTextEdit")->toPlainText(),
                 "# mine\nLog: x\n y.sh"_s);
        constexpr int SmallScreen = 600;
        QVERIFY(f.dialog.minimumSizeHint().height() < SmallScreen * 9 / 10);
        auto *keys = child<QComboBox>(f.dialog, "m_signKeyComboBox");
        QVERIFY2(keys->currentText().contains("not listed"_s), "a key that is not known yet stays");
        QTRY_COMPARE(keys->currentText(), TestKeys::text("Ann <ann@example.org>"_s, key));
        QCOMPARE(f.dialog.repoInfo(), whole);

        // The keyboard reaches them where they stand, and no letter stands for two.
        auto *more = child<QToolButton>(f.dialog, "m_moreToolButton");
        child<QToolButton>(f.dialog, "m_startKGpgToolButton")->setFocus();
        QTest::keyClick(&f.dialog, Qt::Key_Tab);
        QVERIFY(more->hasFocus());
        QTest::keyClick(more, Qt::Key_Tab);
        QVERIFY(child<QLineEdit>(f.dialog, "m_originLineEdit")->hasFocus());
        QStringList letters;
        for (const auto *label : f.dialog.findChildren<QLabel *>())
            if (label->buddy() != nullptr)
                letters << QKeySequence::mnemonic(label->text()).toString();
        for (const auto *other : f.dialog.findChildren<QAbstractButton *>())
            letters << QKeySequence::mnemonic(other->text()).toString();
        letters.removeAll(QString());
        QCOMPARE(letters.removeDuplicates(), 0);
        QTest::keyClick(more, Qt::Key_Space);
        QVERIFY(area->isHidden());

        // What is refused is shown. What is switched off has no choices.
        BoxAnswers answers({QMessageBox::Ok});
        child<QLineEdit>(f.dialog, "m_descriptionLineEdit")->setText("a # b"_s);
        QVERIFY(!f.accept());
        QVERIFY(answers.texts.value(0).contains("Description"_s) && area->isVisible());
        type(f.dialog, "m_descriptionLineEdit", "Other"_s);
        keys->setCurrentIndex(0);
        whole.description = "Other"_s;
        whole.signKey.clear();
        QCOMPARE(f.dialog.repoInfo(), whole);
        child<QCheckBox>(f.dialog, "m_createContentsFileCheckBox")->click();
        QVERIFY(!child<QWidget>(f.dialog, "m_contentsComboBox")->isEnabled());
        whole.contents = false;
        whole.contentsChoices.clear();
        QCOMPARE(f.dialog.repoInfo(), whole);
        QVERIFY(f.accept());
    }

    void namesAreNoMarkup()
    {
        QWidget window;
        Prompts prompts(&window);
        auto format = Qt::AutoText;
        QTimer::singleShot(0, &prompts, [&] {
            format = window.findChild<QLabel *>("qt_msgbox_informativelabel"_s)->textFormat();
            prompts.dismissAll();
        });
        prompts.ask("t"_s, "x"_s, "/srv/<b>r</b>"_s);
        QCOMPARE(format, Qt::PlainText);
        ElidedLabel label;
        label.resize(20, 20);
        label.setFullText("Added \"R&D\" to it"_s);
        QCOMPARE(label.toolTip(), label.fullText());
        label.setFullText("Added <b>R&D</b> to it"_s);
        QTextDocument tip;
        tip.setHtml(label.toolTip());
        QVERIFY(Qt::mightBeRichText(label.toolTip()));
        QCOMPARE(tip.toPlainText(), label.fullText());
    }

    void dismissingEndsEverything()
    {
        QWidget window;
        Prompts prompts(&window);
        QTimer::singleShot(0, &prompts, [&prompts] {
            prompts.showError("error"_s);
            // A box on top of a box.
            QTimer::singleShot(0, &prompts, &Prompts::dismissAll);
            QCOMPARE(prompts.ask("t"_s, "inner"_s), Prompts::Answer::Dismissed);
        });
        QCOMPARE(prompts.ask("t"_s, "outer"_s), Prompts::Answer::Dismissed);
        // Nothing opens afterwards.
        QCOMPARE(prompts.ask("t"_s, "late"_s), Prompts::Answer::Dismissed);
        prompts.showError("late"_s);
        QTRY_VERIFY(window.findChildren<QMessageBox *>().isEmpty());
    }
};

VELT_TEST_MAIN(TestDialogs, QApplication)
#include "tst_dialogs.moc"
