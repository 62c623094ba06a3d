// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testenvironment.h"
#include "ui/addpkgsettingsdialog.h"
#include "ui/newrepodialog.h"
#include "ui/packagereplacementdialog.h"
#include "ui/prompts.h"
#include "ui/startselectactiondialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <functional>

namespace
{
/** Answers the message boxes that come up, in order, and keeps what they said. */
class BoxAnswers : public QObject
{
public:
    explicit BoxAnswers(QList<QMessageBox::StandardButton> answers)
        : m_answers(std::move(answers))
    {
        connect(&m_timer, &QTimer::timeout, this, &BoxAnswers::look);
        m_timer.start(5);
    }
    QStringList texts;

private:
    void look()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible() || m_answers.isEmpty())
            return;
        texts << box->windowTitle() + QLatin1String(": ") + box->text();
        box->button(m_answers.takeFirst())->click();
    }

    QTimer m_timer;
    QList<QMessageBox::StandardButton> m_answers;
};

void type(QWidget &dialog, const char *field, const QString &text)
{
    auto *widget = dialog.findChild<QWidget *>(QLatin1String(field));
    QVERIFY(widget != nullptr);
    auto *edit = qobject_cast<QLineEdit *>(widget);
    if (edit == nullptr)
        edit = widget->findChild<QLineEdit *>();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

QPushButton *button(QWidget &dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"))->button(which);
}

RepoInfo birch()
{
    RepoInfo info;
    info.name = QStringLiteral("r");
    info.codename = QStringLiteral("birch");
    info.suite = QStringLiteral("stable");
    info.architectures = QStringLiteral("amd64 riscv64");
    info.components = QStringLiteral("main own");
    info.signWith = true;
    return info;
}
} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void creationFillsOnlyUntouchedFields();
    void creationRefusesAndAsks();
    void changeKeepsWhatItDoesNotTouch();
    void publishedRepositoryCannotBeEdited();
    void overwritingPublishedAsksTwice();
    void replacementRules_data();
    void replacementRules();
    void replacementOfOnePackage();
    void addSettingsTakeOnlyWhatIsShown();
    void startChoice();
    void errorsComeOneAtATime();
    void dismissingEndsEverything();
};

void TestDialogs::creationFillsOnlyUntouchedFields()
{
    QWidget window;
    Prompts prompts(&window);
    NewRepoDialog dialog(NewRepoDialog::Mode::Create, prompts);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Repository creation"));
    for (const QLineEdit *edit : dialog.findChildren<QLineEdit *>())
        QVERIFY2(edit->text().isEmpty(), qPrintable(edit->objectName()));

    type(dialog, "m_nameLineEdit", QStringLiteral("My-Repo_1"));
    type(dialog, "m_suiteComboBox", QStringLiteral("testing"));
    dialog.findChild<QComboBox *>(QStringLiteral("m_codeNameComboBox"))->setCurrentIndex(2);
    type(dialog, "m_versionLineEdit", QStringLiteral("1"));
    QTest::keyClick(dialog.findChild<QLineEdit *>(QStringLiteral("m_versionLineEdit")), Qt::Key_Backspace);
    RepoInfo defaults = birch();
    defaults.version = QStringLiteral("9");
    dialog.setDefaults(defaults);

    const RepoInfo info = dialog.repoInfo();
    QCOMPARE(info.name, QStringLiteral("y-epo_1"));
    QCOMPARE(info.suite, QStringLiteral("testing"));
    QCOMPARE(info.codename, QStringLiteral("aspen"));
    QCOMPARE(info.version, QString());
    QCOMPARE(info.architectures, defaults.architectures);
    QCOMPARE(info.components, defaults.components);
}

void TestDialogs::creationRefusesAndAsks()
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(QStringLiteral("taken"));
    QWidget window;
    Prompts prompts(&window);
    NewRepoDialog dialog(NewRepoDialog::Mode::Create, prompts);
    dialog.show();
    BoxAnswers answers({QMessageBox::Ok, QMessageBox::Ok, QMessageBox::No, QMessageBox::Yes});
    QPushButton *ok = button(dialog, QDialogButtonBox::Ok);

    ok->click();
    dialog.setDefaults(birch());
    type(dialog, "m_pathLineEdit", folder.path());
    type(dialog, "m_nameLineEdit", QStringLiteral("taken"));
    auto *architectures = dialog.findChild<QComboBox *>(QStringLiteral("m_archComboBox"));
    architectures->setEditText(QStringLiteral("amd64 all"));
    ok->click();
    QVERIFY(dialog.isVisible());
    architectures->setEditText(QStringLiteral("amd64"));
    ok->click();
    QVERIFY(dialog.isVisible());
    ok->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(dialog.repositoryPath(), folder.filePath(QStringLiteral("taken")));
    const QString replace
        = QStringLiteral("Repository creation: The directory %1 already exists. Replace it?")
              .arg(dialog.repositoryPath());
    QCOMPARE(answers.texts,
             QStringList({QStringLiteral("Repository creation: Please fill all required fields!"),
                          QStringLiteral("Repository creation: Architecture \"all\" is unallowable!"),
                          replace,
                          replace}));
}

void TestDialogs::changeKeepsWhatItDoesNotTouch()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("r"));
    QDir().mkpath(path);
    QWidget window;
    Prompts prompts(&window);
    NewRepoDialog dialog(NewRepoDialog::Mode::Change, prompts);
    dialog.setRepository(path, birch());
    dialog.show();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Repository change"));
    QCOMPARE(dialog.repositoryPath(), path);
    QCOMPARE(dialog.repoInfo(), birch());

    // A new version endangers nothing and moves nothing, so there is no question at all.
    type(dialog, "m_versionLineEdit", QStringLiteral("2.0"));
    button(dialog, QDialogButtonBox::Ok)->click();
    QVERIFY(!dialog.isVisible());

    dialog.show();
    BoxAnswers answers({QMessageBox::No, QMessageBox::Yes});
    type(dialog, "m_componentsComboBox", QStringLiteral("main"));
    button(dialog, QDialogButtonBox::Ok)->click();
    QVERIFY(dialog.isVisible());
    button(dialog, QDialogButtonBox::Ok)->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(answers.texts.size(), 2);
    QVERIFY(answers.texts.first().contains(QStringLiteral("may result in packages deletion")));
}

void TestDialogs::publishedRepositoryCannotBeEdited()
{
    QWidget window;
    Prompts prompts(&window);
    NewRepoDialog dialog(NewRepoDialog::Mode::Change, prompts);
    dialog.setPublishedCheck([](const QString &path) { return path == QLatin1String("/srv/r"); });
    dialog.setRepository(QStringLiteral("/srv/r"), birch());
    QVERIFY(!button(dialog, QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(button(dialog, QDialogButtonBox::Cancel)->isEnabled());
    QVERIFY(!dialog.findChild<QLineEdit *>(QStringLiteral("m_nameLineEdit"))->isEnabled());
    QVERIFY(!dialog.findChild<QLabel *>(QStringLiteral("m_messageLabel"))->isHidden());
    dialog.setRepository(QStringLiteral("/srv/other"), birch());
    QVERIFY(button(dialog, QDialogButtonBox::Ok)->isEnabled());
    QVERIFY(dialog.findChild<QLabel *>(QStringLiteral("m_messageLabel"))->isHidden());
}

void TestDialogs::overwritingPublishedAsksTwice()
{
    const QTemporaryDir folder;
    QWidget window;
    Prompts prompts(&window);
    NewRepoDialog dialog(NewRepoDialog::Mode::Create, prompts);
    dialog.setPublishedCheck([](const QString &) { return true; });
    dialog.setDefaults(birch());
    type(dialog, "m_pathLineEdit", folder.path());
    dialog.show();
    QDir(folder.path()).mkdir(QStringLiteral("r"));
    BoxAnswers answers({QMessageBox::Yes, QMessageBox::No, QMessageBox::Yes, QMessageBox::Yes});
    button(dialog, QDialogButtonBox::Ok)->click();
    QVERIFY(dialog.isVisible());
    button(dialog, QDialogButtonBox::Ok)->click();
    QVERIFY(!dialog.isVisible());
    QVERIFY(answers.texts.at(1).startsWith(QStringLiteral("Overwriting a published repository: ")));
}

void TestDialogs::replacementRules_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<quint32>("rule");
    QTest::newRow("higher") << QStringLiteral("Give preference to versions higer") << quint32(16);
    QTest::newRow("lower") << QStringLiteral("Give preference to versions lower") << quint32(32);
    QTest::newRow("all") << QStringLiteral("Replace all packages") << quint32(48);
    QTest::newRow("none") << QStringLiteral("Do not replace packages") << quint32(4);
}

void TestDialogs::replacementRules()
{
    QFETCH(QString, option);
    QFETCH(quint32, rule);
    PackageInfo package;
    package.name = QStringLiteral("<b>bash</b>");
    package.version = QStringLiteral("5.2");
    PackageReplacementDialog dialog(RepoEnums::PACKAGE_EXISTS_OLD_VERSION, package, false);
    dialog.show();
    QCOMPARE(
        dialog.findChild<QLabel *>(QStringLiteral("m_questionLabel"))->text(),
        QStringLiteral("The repository already contains a package <b>bash</b> (5.2) of an earlier version. "
                       "Do you want to replace it?"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("m_questionLabel"))->textFormat(), Qt::PlainText);
    auto *apply = dialog.findChild<QPushButton *>(QStringLiteral("m_applyToAllButton"));
    QVERIFY(!apply->isEnabled());
    for (QRadioButton *radio : dialog.findChildren<QRadioButton *>()) {
        if (radio->text() == option)
            radio->click();
    }
    QVERIFY(apply->isEnabled());
    apply->click();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(static_cast<quint32>(dialog.rule()), rule);
}

void TestDialogs::replacementOfOnePackage()
{
    const PackageInfo package;
    PackageReplacementDialog dialog(RepoEnums::PACKAGE_EXISTS, package, true);
    QVERIFY(dialog.findChildren<QRadioButton *>().isEmpty());
    QVERIFY(dialog.findChild<QPushButton *>(QStringLiteral("m_applyToAllButton")) == nullptr);
    button(dialog, QDialogButtonBox::Yes)->click();
    QCOMPARE(dialog.rule(), PackageReplacementRules::ReplaceThis);

    // Enter in haste, Escape and an option that was not applied all keep the package.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        PackageReplacementDialog several(RepoEnums::PACKAGE_EXISTS, package, false);
        several.show();
        several.findChildren<QRadioButton *>().at(2)->click();
        QTest::keyClick(&several, key);
        QVERIFY(!several.isVisible());
        QCOMPARE(several.rule(), PackageReplacementRules::KeepThis);
    }
}

void TestDialogs::addSettingsTakeOnlyWhatIsShown()
{
    UserChoices choices;
    choices.currentComponent = QStringLiteral("contrib");
    choices.signPackage = true;
    const QStringList components{QStringLiteral("main"), QStringLiteral("contrib")};
    AddPkgSettingsDialog dialog(components, choices);
    auto *component = dialog.findChild<QComboBox *>(QStringLiteral("m_componentComboBox"));
    QCOMPARE(component->currentText(), QStringLiteral("contrib"));
    // Without a key nothing can be signed, but the stored wish is not lost.
    QVERIFY(!dialog.findChild<QCheckBox *>(QStringLiteral("m_signPackageCheckBox"))->isEnabled());
    QVERIFY(dialog.choices().signPackage);
    dialog.findChild<QCheckBox *>(QStringLiteral("m_checkDependsCheckBox"))->click();
    dialog.findChild<QCheckBox *>(QStringLiteral("m_showCheckBox"))->click();
    component->setCurrentIndex(0);
    QCOMPARE(dialog.choices().currentComponent, QString());
    QVERIFY(!dialog.choices().addPkgCheckDepends);
    QVERIFY(!dialog.choices().showAddPkgSettings);

    QCOMPARE(AddPkgSettingsDialog({}, choices).choices().currentComponent, QStringLiteral("contrib"));
}

void TestDialogs::startChoice()
{
    using Action = StartSelectActionDialog::Action;
    const QList<QPair<QDialogButtonBox::StandardButton, Action>> expected{
        {QDialogButtonBox::Ok, Action::CreateRepo},
        {QDialogButtonBox::Open, Action::OpenRepo},
        {QDialogButtonBox::Cancel, Action::Cancel}};
    for (const auto &pair : expected) {
        StartSelectActionDialog dialog;
        dialog.show();
        button(dialog, pair.first)->click();
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.action(), pair.second);
    }
    StartSelectActionDialog dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(dialog.action(), Action::Cancel);
}

void TestDialogs::errorsComeOneAtATime()
{
    QWidget window;
    window.show();
    Prompts prompts(&window);
    QSignalSpy freed(&prompts, &Prompts::freed);
    for (int i = 0; i < 50; ++i)
        prompts.showError(QStringLiteral("error %1").arg(i), QStringLiteral("because"), RepoEnums::WARNING);
    const auto boxes = [&window] {
        QList<QMessageBox *> visible = window.findChildren<QMessageBox *>();
        visible.erase(
            std::remove_if(visible.begin(), visible.end(), [](auto *box) { return !box->isVisible(); }),
            visible.end());
        return visible;
    };
    QCOMPARE(boxes().size(), 1);
    QCOMPARE(boxes().first()->text(), QStringLiteral("error 0"));
    QCOMPARE(boxes().first()->icon(), QMessageBox::Warning);
    QVERIFY(prompts.isOpen());
    boxes().first()->button(QMessageBox::Ok)->click();
    QCOMPARE(boxes().size(), 1);
    QCOMPARE(boxes().first()->text().section(QLatin1Char('\n'), 0, 0), QStringLiteral("error 1"));
    QVERIFY(freed.isEmpty());
    QVERIFY(boxes().first()->detailedText().contains(QStringLiteral("error 49\nbecause")));
    boxes().first()->button(QMessageBox::Ok)->click();
    QTRY_COMPARE(freed.size(), 1);
    QVERIFY(boxes().isEmpty());
}

void TestDialogs::dismissingEndsEverything()
{
    QWidget window;
    window.show();
    Prompts prompts(&window);
    QTimer::singleShot(0, &prompts, [&prompts] {
        prompts.showError(QStringLiteral("error"));
        // A box on top of a box.
        QTimer::singleShot(0, &prompts, &Prompts::dismissAll);
        QCOMPARE(prompts.ask(QStringLiteral("t"), QStringLiteral("inner")), Prompts::Answer::Dismissed);
    });
    QCOMPARE(prompts.ask(QStringLiteral("t"), QStringLiteral("outer")), Prompts::Answer::Dismissed);
    QTRY_VERIFY(window.findChildren<QMessageBox *>().isEmpty());
    // Nothing opens afterwards.
    QCOMPARE(prompts.ask(QStringLiteral("t"), QStringLiteral("late")), Prompts::Answer::Dismissed);
    prompts.showError(QStringLiteral("late"));
    QVERIFY(window.findChildren<QMessageBox *>().isEmpty());
}

VELT_TEST_MAIN(TestDialogs, QApplication)
#include "tst_dialogs.moc"
