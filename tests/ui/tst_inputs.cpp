// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testenvironment.h"
#include "ui/checkcombobox.h"
#include "ui/delayedlineedit.h"
#include "ui/newreporules.h"
#include "ui/repositoryremoval.h"
#include "ui/singlespacevalidator.h"
#include "ui/userchoices.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

/** Fields, their rules, and what is kept of the user's choices. */
class TestInputs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void singleSpaces_data();
    void singleSpaces();
    void checkComboBoxByKeyboardAndMouse();
    void delayedEditReportsOnce();
    void repositoryRules_data();
    void repositoryRules();
    void repositoryPathsAndChoices();
    void damagedSettingsGiveDefaults();
    void choicesAndRecentPathsSurvive();
    void onlyRepositoriesAreDeleted();
};

void TestInputs::singleSpaces_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QStringLiteral("amd64 i386") << QStringLiteral("amd64 i386");
    QTest::newRow("second blank") << QStringLiteral("amd64  i386") << QStringLiteral("amd64 i386");
    QTest::newRow("leading blank") << QStringLiteral(" amd64") << QStringLiteral("amd64");
    QTest::newRow("upper case") << QStringLiteral("Amd64") << QStringLiteral("md64");
    QTest::newRow("other signs") << QStringLiteral("a/b;c") << QStringLiteral("abc");
}

void TestInputs::singleSpaces()
{
    QFETCH(QString, typed);
    QFETCH(QString, text);
    SingleSpaceValidator validator(QRegularExpression(QStringLiteral("[a-z|0-9|\\-|\\s]+")));
    QLineEdit edit;
    edit.setValidator(&validator);
    QTest::keyClicks(&edit, typed);
    QCOMPARE(edit.text(), text);
    // Other white space is a blank as well.
    QString spaces = QStringLiteral("a") + QChar(0x00A0) + QChar(0x0085);
    int position = 3;
    SingleSpaceValidator any(QRegularExpression(QStringLiteral("[\\s\\S]+")));
    QCOMPARE(any.validate(spaces, position), QValidator::Invalid);
    position = 0;
    QCOMPARE(any.validate(spaces, position), QValidator::Acceptable);
}

void TestInputs::checkComboBoxByKeyboardAndMouse()
{
    CheckComboBox box;
    box.setChoices({QStringLiteral("amd64"), QStringLiteral("armhf"), QStringLiteral("i386")});
    QCOMPARE(box.currentText(), QString());
    box.setEditText(QStringLiteral("i386 riscv64"));
    box.show();
    box.setFocus();
    QVERIFY(QTest::qWaitForWindowExposed(&box));

    // A value that is not offered is kept through opening and toggling.
    box.showPopup();
    QCOMPARE(box.checkedItems(), QStringList({QStringLiteral("i386"), QStringLiteral("riscv64")}));
    box.view()->setCurrentIndex(box.model()->index(0, 0));
    QTest::keyClick(box.view(), Qt::Key_Space);
    QVERIFY(box.view()->isVisible());
    QCOMPARE(box.currentText(), QStringLiteral("amd64 i386 riscv64"));
    QTest::mouseClick(box.view()->viewport(),
                      Qt::LeftButton,
                      {},
                      box.view()->visualRect(box.model()->index(2, 0)).center());
    QVERIFY(box.view()->isVisible());
    QCOMPARE(box.currentText(), QStringLiteral("amd64 riscv64"));
    QTest::keyClick(box.view(), Qt::Key_Return);
    QTRY_VERIFY(!box.view()->isVisible());
    QCOMPARE(box.currentText(), QStringLiteral("amd64 riscv64"));

    // Stepping and the Enter key leave the text alone.
    QTest::keyClick(&box, Qt::Key_Down);
    QTRY_VERIFY(box.view()->isVisible());
    QTest::keyClick(box.view(), Qt::Key_Escape);
    QTRY_VERIFY(!box.view()->isVisible());
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.currentText(), QStringLiteral("amd64 riscv64"));
    QCOMPARE(box.count(), 4);

    box.setTextReadOnly(true);
    QTest::keyClicks(&box, QStringLiteral("x"));
    QCOMPARE(box.currentText(), QStringLiteral("amd64 riscv64"));
    QTest::keyClick(&box, Qt::Key_Space);
    QTRY_VERIFY(box.view()->isVisible());
}

void TestInputs::delayedEditReportsOnce()
{
    DelayedLineEdit edit;
    QSignalSpy spy(&edit, &DelayedLineEdit::delayedTextChanged);
    edit.setText(QStringLiteral("set by the program"));
    edit.clear();
    QTest::keyClicks(&edit, QStringLiteral("bash"));
    QVERIFY(spy.isEmpty());
    QVERIFY(spy.wait(2000));
    QVERIFY(!spy.wait(DelayedLineEdit::DelayMilliseconds + 100));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toString(), QStringLiteral("bash"));
}

Q_DECLARE_METATYPE(NewRepoRules::Refusal)

void TestInputs::repositoryRules_data()
{
    using NewRepoRules::Refusal;
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("codename");
    QTest::addColumn<QString>("architectures");
    QTest::addColumn<QString>("components");
    QTest::addColumn<NewRepoRules::Refusal>("refusal");
    const QString main = QStringLiteral("main");
    const QString amd64 = QStringLiteral("amd64");
    const QString srv = QStringLiteral("/srv");
    const QString repo = QStringLiteral("repo");
    const QString birch = QStringLiteral("birch");
    QTest::newRow("complete") << srv << repo << birch << amd64 << main << Refusal::None;
    QTest::newRow("described code name")
        << srv << repo << QStringLiteral("elm_x86-64") << amd64 << main << Refusal::None;
    QTest::newRow("no path") << QString() << repo << birch << amd64 << main << Refusal::MissingField;
    QTest::newRow("no name") << srv << QString() << birch << amd64 << main << Refusal::MissingField;
    QTest::newRow("no code name") << srv << repo << QString() << amd64 << main << Refusal::MissingField;
    QTest::newRow("blank architectures")
        << srv << repo << birch << QStringLiteral("  ") << main << Refusal::MissingField;
    QTest::newRow("no component") << srv << repo << birch << amd64 << QString() << Refusal::MissingField;
    QTest::newRow("all") << srv << repo << birch << QStringLiteral("amd64 all") << main
                         << Refusal::ArchitectureAll;
    QTest::newRow("begins with all") << srv << repo << birch << QStringLiteral("alloy") << main
                                     << Refusal::None;
    QTest::newRow("relative") << QStringLiteral("srv") << repo << birch << amd64 << main << Refusal::BadPath;
    QTest::newRow("parent as name") << srv << QStringLiteral("..") << birch << amd64 << main
                                    << Refusal::BadName;
    QTest::newRow("folder as name") << srv << QStringLiteral("../etc") << birch << amd64 << main
                                    << Refusal::BadName;
    QTest::newRow("option as code name")
        << srv << repo << QStringLiteral("-b") << amd64 << main << Refusal::BadName;
    QTest::newRow("code name that leads away")
        << srv << repo << QStringLiteral("../../x") << amd64 << main << Refusal::BadName;
    QTest::newRow("two lines") << srv << repo << QStringLiteral("a\nSignWith: yes") << amd64 << main
                               << Refusal::BadName;
}

void TestInputs::repositoryRules()
{
    QFETCH(QString, parent);
    QFETCH(NewRepoRules::Refusal, refusal);
    QFETCH(QString, name);
    QFETCH(QString, codename);
    QFETCH(QString, architectures);
    QFETCH(QString, components);
    RepoInfo info;
    info.name = name;
    info.codename = codename;
    info.architectures = architectures;
    info.components = components;
    QCOMPARE(NewRepoRules::check(parent, info), refusal);
}

void TestInputs::repositoryPathsAndChoices()
{
    QCOMPARE(NewRepoRules::fullPath(QStringLiteral("/srv"), QStringLiteral("r")), QStringLiteral("/srv/r"));
    QCOMPARE(NewRepoRules::fullPath(QStringLiteral("/srv//"), QStringLiteral("r")), QStringLiteral("/srv/r"));
    QCOMPARE(NewRepoRules::fullPath(QStringLiteral("/"), QStringLiteral("r")), QStringLiteral("/r"));

    RepoInfo info;
    info.codename = QStringLiteral("birch");
    info.architectures = QStringLiteral("amd64 i386");
    info.components = QStringLiteral("main");
    RepoInfo other = info;
    other.version = QStringLiteral("2");
    other.suite = QStringLiteral("testing");
    other.signWith = true;
    other.architectures = QStringLiteral("amd64  i386 ");
    QVERIFY(!NewRepoRules::endangersPackages(info, other));
    other.architectures = QStringLiteral("amd64");
    QVERIFY(NewRepoRules::endangersPackages(info, other));
    other = info;
    other.components = QStringLiteral("main contrib");
    QVERIFY(NewRepoRules::endangersPackages(info, other));
    other = info;
    other.codename = QStringLiteral("cedar");
    QVERIFY(NewRepoRules::endangersPackages(info, other));

    const QStringList defaults{QStringLiteral("d")};
    QCOMPARE(NewRepoRules::choices(QStringLiteral(" a\tb\n\nc a\r\n"), defaults),
             QStringList({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QCOMPARE(NewRepoRules::choices(QStringLiteral(" \n"), defaults), defaults);
}

void TestInputs::damagedSettingsGiveDefaults()
{
    QSettings settings;
    settings.clear();
    const UserChoices defaults = UserChoices::load(settings);
    QVERIFY(!defaults.signPackage);
    QVERIFY(defaults.showAddPkgSettings && defaults.showPkgVersion && defaults.addPkgCheckDepends);
    QCOMPARE(defaults.dependsRepoType, 3);

    settings.setValue(SettingsKey::SignPackage, QStringLiteral("maybe"));
    settings.setValue(SettingsKey::ShowPkgVersion, QStringList{QStringLiteral("a"), QStringLiteral("b")});
    settings.setValue(SettingsKey::AddPkgCheckDepends, QStringLiteral(""));
    settings.setValue(SettingsKey::RecentRepoList, QVariantMap{{QStringLiteral("a"), 1}});
    for (const QVariant &bad :
         {QVariant(QStringLiteral("all")), QVariant(7), QVariant(-1), QVariant(QRect())}) {
        settings.setValue(SettingsKey::DependsRepoType, bad);
        QCOMPARE(UserChoices::load(settings).dependsRepoType, 3);
    }
    const UserChoices choices = UserChoices::load(settings);
    QVERIFY(!choices.signPackage);
    QVERIFY(choices.showPkgVersion && choices.addPkgCheckDepends);
    QVERIFY(storedPaths(settings, SettingsKey::RecentRepoList).isEmpty());
    settings.clear();
}

void TestInputs::choicesAndRecentPathsSurvive()
{
    UserChoices choices;
    choices.currentComponent = QStringLiteral("contrib");
    choices.signPackage = true;
    choices.signKeyId = QStringLiteral("0123456789ABCDEF");
    choices.showAddPkgSettings = choices.showPkgVersion = choices.addPkgCheckDepends = false;
    choices.dependsRepoType = DependsPublic;
    {
        QSettings settings;
        choices.save(settings);
        settings.setValue(SettingsKey::RecentOpennedRepos,
                          QStringList{QStringLiteral("/srv/a, b; \"c\" %1 ü")});
    }
    const QSettings file(QSettings().fileName(), QSettings::NativeFormat);
    const UserChoices read = UserChoices::load(file);
    QCOMPARE(read.currentComponent, choices.currentComponent);
    QCOMPARE(read.signKeyId, choices.signKeyId);
    QVERIFY(read.signPackage);
    QVERIFY(!read.showAddPkgSettings && !read.showPkgVersion && !read.addPkgCheckDepends);
    QCOMPARE(read.dependsRepoType, 2);
    QCOMPARE(storedPaths(file, SettingsKey::RecentOpennedRepos),
             QStringList{QStringLiteral("/srv/a, b; \"c\" %1 ü")});

    QStringList recent;
    for (const char *path : {"/1", "/2", "/3", "/4", "/5", "/3", "/6"})
        recent = withRecentRepository(recent, QLatin1String(path));
    QCOMPARE(recent.join(QLatin1Char(' ')), QStringLiteral("/6 /3 /5 /4 /2"));
}

void TestInputs::onlyRepositoriesAreDeleted()
{
    const QTemporaryDir folder;
    const QString outside = folder.filePath(QStringLiteral("outside"));
    const QString repo = folder.filePath(QStringLiteral("repo"));
    writeFile(outside + QStringLiteral("/precious"), "x");
    writeFile(repo + QStringLiteral("/conf/distributions"), "Codename: birch\n");
    writeFile(repo + QStringLiteral("/inner/conf/distributions"), "Codename: birch\n");
    QVERIFY(QFile::link(outside, repo + QStringLiteral("/link")));

    QString reason;
    QVERIFY(!RepositoryRemoval::remove(outside, {}, &reason));
    QVERIFY(!reason.isEmpty());
    QVERIFY(!RepositoryRemoval::remove(folder.filePath(QStringLiteral("absent")), {}, &reason));
    // One that holds an open repository stays, whatever the spelling.
    QVERIFY(!RepositoryRemoval::remove(repo, {repo + QStringLiteral("/../repo/inner/")}, &reason));
    QVERIFY(QFile::exists(repo + QStringLiteral("/conf/distributions")));
    // A home directory stays, even when somebody keeps a conf/distributions in it.
    const QString marker = QDir::homePath() + QStringLiteral("/conf/distributions");
    writeFile(marker, "Codename: birch\n");
    QVERIFY(!RepositoryRemoval::remove(QDir::homePath(), {}, &reason));
    QVERIFY(QFile::exists(marker));

    const QString link = folder.filePath(QStringLiteral("other-name"));
    QVERIFY(QFile::link(repo, link));
    QVERIFY2(RepositoryRemoval::remove(link, {outside}, &reason), qPrintable(reason));
    QVERIFY(!QFile::exists(repo));
    QVERIFY(!QFileInfo(link).isSymLink());
    QVERIFY(QFile::exists(outside + QStringLiteral("/precious")));
}

VELT_TEST_MAIN(TestInputs, QApplication)
#include "tst_inputs.moc"
