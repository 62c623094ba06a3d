// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/reprepro/joblock.h"
#include "support/testenvironment.h"
#include "ui/commands/repositoryremoval.h"
#include "ui/dialogs/newreporules.h"
#include "ui/tab/repotabs.h"
#include "ui/widgets/checkcombobox.h"
#include "ui/widgets/singlespacevalidator.h"
#include "ui/widgets/userchoices.h"

#include <QtWidgets>

#include <unistd.h>

using NewRepoRules::Refusal;
using RepositoryRemoval::Outcome;

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

    void onlyRepositoriesAreDeleted()
    {
        const QTemporaryDir folder("/tmp/viXXXXXX"_s);
        const QString outside = folder.filePath("outside"_s);
        const QString repo = folder.filePath("repo"_s);
        // A home directory stays, even when somebody keeps a conf/distributions in it.
        for (const QString &path : QStringList{repo, repo + "/inner"_s, QDir::homePath()})
            writeFile(path + "/conf/distributions"_s, "Codename: birch\n");
        writeFile(outside + "/precious"_s, "x");
        QVERIFY(QFile::link(outside, repo + "/link"_s));

        for (const QString &path : {outside, QDir::homePath()}) {
            QString reason;
            QCOMPARE(RepositoryRemoval::remove(path, {}, &reason), Outcome::Refused);
            QVERIFY(!reason.isEmpty());
        }
        QVERIFY(QFile::exists(QDir::homePath() + "/conf/distributions"_s));
        // One that holds an open repository stays, whatever the spelling.
        QString reason;
        QCOMPARE(RepositoryRemoval::remove(repo, {{repo + "/../repo/inner/"_s}, {}}, &reason),
                 Outcome::Refused);
        QCOMPARE(RepositoryRemoval::remove(repo, {}, &reason), Outcome::Refused);
        QVERIFY2(reason.endsWith("repositories: "_s + repo + "/inner"_s), qPrintable(reason));
        const QString inner = repo + "/inner"_s;
        const QString deep = repo + "/a/b/c/d/deep"_s;
        QVERIFY(QDir().mkpath(QFileInfo(deep).path()) && QFile::rename(inner, deep));
        QCOMPARE(RepositoryRemoval::remove(repo, {{}, {deep, repo}}, &reason), Outcome::Refused);
        QVERIFY(QFile::exists(repo + "/conf/distributions"_s));
        QVERIFY(QDir(repo + "/a"_s).removeRecursively());

        // Nor does one go on which a job is at work; that is known before anything is given up for it.
        QCOMPARE(RepositoryRemoval::refusal(repo, {}), QString());
        QVERIFY(QDir().mkpath(repo + "/db"_s));
        JobLock lock;
        QVERIFY(lock.take(repo));
        QVERIFY(RepositoryRemoval::refusal(repo, {}).contains("being changed by another program"_s));
        QCOMPARE(RepositoryRemoval::remove(repo, {}, &reason), Outcome::Refused);
        QVERIFY2(QFile::exists(repo + "/db"_s) && reason.contains(repo), qPrintable(reason));
        lock.release();

        // What cannot be deleted whole can be deleted again. Root may delete everything, so somebody else tries.
        const QString stubborn = repo + "/pool/main"_s;
        writeFile(stubborn + "/file"_s, "x");
        const auto give = [](const QString &path, uid_t owner) {
            return ::chown(QFile::encodeName(path).constData(), owner, gid_t(-1)) == 0;
        };
        const bool isRoot = ::geteuid() == 0;
        constexpr uid_t Nobody = 65534;
        for (const QString &path : QStringList{folder.path(), repo, repo + "/pool"_s, repo + "/conf"_s})
            QVERIFY(!isRoot || give(path, Nobody));
        QVERIFY(QFile::setPermissions(stubborn, QFile::ReadOwner | QFile::ExeOwner));
        const auto setWritable = [&folder](bool isWritable) {
            const QFile::Permissions others = QFile::ReadOwner | QFile::ExeOwner;
            return QFile::setPermissions(folder.path(), isWritable ? others | QFile::WriteOwner : others);
        };
        QVERIFY(setWritable(false));
        // What may be written is asked for the real user.
        QVERIFY(!isRoot || ::setresuid(Nobody, Nobody, 0) == 0);
        const QString early = RepositoryRemoval::refusal(repo, {});
        const QString gone = RepositoryRemoval::refusal(repo + "/gone"_s, {});
        QVERIFY(!isRoot || ::setresuid(0, 0, 0) == 0);
        QVERIFY(setWritable(true));
        QVERIFY2(early.contains("cannot be written"_s) && gone.isEmpty(), qPrintable(early));
        QVERIFY(!isRoot || ::seteuid(Nobody) == 0);
        const Outcome outcome = RepositoryRemoval::remove(repo, {}, &reason);
        QVERIFY(!isRoot || ::seteuid(0) == 0);
        QCOMPARE(outcome, Outcome::Refused);
        QVERIFY2(QFile::exists(repo + "/conf/distributions"_s) && !QFileInfo(repo + "/link"_s).isSymLink(),
                 qPrintable(reason));
        QVERIFY(QFile::setPermissions(stubborn, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));

        const QString link = folder.filePath("other-name"_s);
        QVERIFY(QFile::link(repo, link));
        QCOMPARE(RepositoryRemoval::remove(link, {{outside}, {}}, &reason), Outcome::Deleted);
        QVERIFY(!QFile::exists(repo) && !QFileInfo(link).isSymLink());
        QVERIFY(QFile::exists(outside + "/precious"_s));
    }
};

VELT_TEST_MAIN(TestInputs, QApplication)
#include "tst_inputs.moc"
