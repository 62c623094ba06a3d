// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "engine/exportsession.h"
#include "engineharness.h"
#include "support/debbuilder.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QThreadPool>
#include <QtTest>

#include <sys/mount.h>
#include <unistd.h>

namespace
{
const QString Foo = "foo"_s;

/** Puts a folder in front of PATH for the life of the object. */
class PathInFront
{
public:
    explicit PathInFront(const QByteArray &value)
        : m_old(qgetenv("PATH"))
    {
        qputenv("PATH", value);
    }
    ~PathInFront() { qputenv("PATH", m_old); }
    PathInFront(const PathInFront &) = delete;
    PathInFront &operator=(const PathInFront &) = delete;

private:
    QByteArray m_old;
};
} // namespace

/** Bad input, failing tools, locks, interruptions, and the threads' traps. */
class TestTrouble : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("reprepro");
        VELT_NEED_TOOL("dpkg-deb");
    }
    void badFilesDoNotStopTheJob();
    void interruptedJobIsFinishedOnOpen();
    void staleLock();
    void lockOfARunningProgram();
    void toolMissing();
    void toolCrashes();
    void fullDisk();
    void signingFailsWhileAdding();
    void closingAnswersForTheUser();
    void closingWhileAQuestionIsOpen();
    void askerThatGoesAwayGetsTheSafeAnswer();
    void waitingForAnAnswerKeepsNoThread();
    void runningUntilIdle();
};

void TestTrouble::badFilesDoNotStopTheJob()
{
    EngineHarness h;
    h.create();
    const QString good = DebBuilder("good"_s).build(h.debs());
    const QByteArray bytes = readFile(good);
    const QString text = h.debs() + "/text.deb"_s;
    writeFile(text, "no package\n");
    const QString empty = h.debs() + "/empty.deb"_s;
    writeFile(empty, "");
    const QString cut = h.debs() + "/cut.deb"_s;
    writeFile(cut, bytes.left(bytes.size() - 700));
    const QString foreign = DebBuilder("foreign"_s).architecture("armhf"_s).build(h.debs());
    const QString upper = DebBuilder("plain"_s).fileName("name.txt"_s).build(h.debs());
    const QString component = DebBuilder("nonfree"_s).field("Section"_s, "non-free/admin"_s).build(h.debs());
    const QString missing = h.debs() + "/missing.deb"_s;
    QCOMPARE(h.run([&] {
        h.shell.addPackages({text, empty, cut, foreign, upper, component, missing, good, good});
    }),
             int(RepoEnums::SUCCESS));
    QCOMPARE(h.lastMessage(), "1 package(s) added: good_1.0_amd64.deb"_s);
    QCOMPARE(h.steps.last(), 9);
    QCOMPARE(h.collisions, QVector<RepoEnums::ErrorCode>{RepoEnums::PACKAGE_EXISTS});
    QCOMPARE(h.criticals.size(), 7);
    for (const QString &critical : qAsConst(h.criticals))
        QVERIFY2(critical.startsWith("Error adding package"_s)
                     && critical.section(QLatin1Char('|'), 1).size() > 20,
                 qPrintable(critical));
    QVERIFY(h.criticals.at(2).contains("damaged"_s));
    QCOMPARE(h.inIndices(), QStringList{"good 1.0 main amd64"_s});
    QCOMPARE(h.inDatabase().size(), 1);
}

void TestTrouble::interruptedJobIsFinishedOnOpen()
{
    // What a crash between two packages leaves: a database ahead of its indices, and the marker that says so.
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo).build(h.debs());
    const ProcessResult include
        = runProcess({"reprepro"_s,
                      {"-b"_s, h.repoPath(), "--export=silent-never"_s, "includedeb"_s, "dogwood"_s, file},
                      {},
                      {},
                      -1});
    QVERIFY(include.succeeded());
    writeFile(h.repoPath() + "/db/velt-admin-repo.export-owed"_s, "");
    writeFile(h.repoPath() + "/.replaced-abcdef/old.deb"_s, "");
    QVERIFY(h.inIndices().isEmpty());
    h.run([&] { h.shell.openRepo(h.repoPath()); });
    QCOMPARE(h.listed(), QStringList{"foo 1.0 main amd64"_s});
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));
    QVERIFY2(h.criticals.size() == 1 && h.criticals.first().contains(".replaced-abcdef"_s),
             "files that an interrupted replacement kept are not passed over in silence");
}

void TestTrouble::staleLock()
{
    EngineHarness h;
    h.create();
    const QString lock = h.repoPath() + "/db/lockfile"_s;
    const QString file = DebBuilder(Foo).build(h.debs());
    writeFile(lock, "");
    h.run([&] { h.shell.addPackages({file}); });
    QCOMPARE(h.questions.size(), 1);
    QVERIFY(h.questions.first().contains(h.repoPath()));
    QVERIFY2(QFile::exists(lock), "never without the user's word");
    QVERIFY(h.criticals.first().contains("lockfile"_s));
    QVERIFY(h.listed().isEmpty());
    h.answer = [](const QString &) { return true; };
    h.run([&] { h.shell.addPackages({file}); });
    QVERIFY(h.criticals.isEmpty());
    QCOMPARE(h.listed().size(), 1);
}

void TestTrouble::lockOfARunningProgram()
{
    EngineHarness h;
    h.create();
    // A reprepro that holds the database while it waits for an editor that never comes back.
    writeFile(h.repoPath() + "/db/lockfile"_s, "");
    const QString holder = h.folder.filePath("reprepro"_s);
    QVERIFY(QFile::copy("/bin/bash"_s, holder));
    QProcess process;
    process.start(holder,
                  {"-c"_s, "exec 3<\"$0\"; echo ready; read line"_s, h.repoPath() + "/db/packages.db"_s});
    QVERIFY(process.waitForReadyRead());
    h.answer = [](const QString &) { return true; };
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}); });
    QVERIFY2(h.questions.isEmpty(), "the lock of a program at work is not offered for removal");
    QVERIFY(h.criticals.first().contains("another program"_s));
    QVERIFY(QFile::exists(h.repoPath() + "/db/lockfile"_s));
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished());
}

void TestTrouble::toolMissing()
{
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo).build(h.debs());
    QDir().mkpath(h.folder.filePath("bin"_s));
    for (const char *tool : {"dpkg", "dpkg-deb", "tar", "rm"}) {
        const QString program = QStandardPaths::findExecutable(QLatin1String(tool));
        QFile::link(program, h.folder.filePath("bin/"_s + QLatin1String(tool)));
    }
    const PathInFront path(h.folder.filePath("bin"_s).toLocal8Bit());
    h.run([&] { h.shell.addPackages({file}); });
    QVERIFY2(h.criticals.first().contains("reprepro could not be started"_s),
             qPrintable(h.criticals.first()));
    QVERIFY(h.listed().isEmpty());
    EngineHarness other;
    QCOMPARE(other.shell.createRepo(other.repoPath(), other.info), int(RepoEnums::ERROR));
    QVERIFY(!QFile::exists(other.repoPath()));
}

void TestTrouble::toolCrashes()
{
    EngineHarness h;
    h.create();
    h.run([&] { h.shell.addPackages({DebBuilder(Foo).build(h.debs())}); });
    const QString bin = h.folder.filePath("bin"_s);
    writeScript(bin + "/reprepro"_s, "#!/bin/sh\nkill -SEGV $$\n");
    {
        const PathInFront path(bin.toLocal8Bit() + ':' + qgetenv("PATH"));
        h.run([&] { h.shell.removePackages(h.shell.packages()); });
        QVERIFY(h.criticals.contains("The process reprepro crashed!|"_s));
        QCOMPARE(h.lastMessage(), "0 packages removed: "_s);
        QCOMPARE(h.listed().size(), 1);
        QVERIFY2(ExportSession::isExportOwed(h.repoPath()), "nobody knows what a crash has left");
    }
    h.run([&] { h.shell.openRepo(h.repoPath()); });
    QVERIFY(!ExportSession::isExportOwed(h.repoPath()));
    QCOMPARE(h.listed().size(), 1);
}

void TestTrouble::fullDisk()
{
    EngineHarness h;
    const QString mount = h.folder.filePath("small"_s);
    QDir().mkpath(mount);
    if (::geteuid() != 0 || ::mount("tmpfs", mount.toLocal8Bit().constData(), "tmpfs", 0, "size=3m") != 0)
        QSKIP("mounting a small file system needs root");
    const QString repo = mount + "/repo"_s;
    QCOMPARE(h.shell.createRepo(repo, h.info), int(RepoEnums::SUCCESS));
    const QString small = DebBuilder("small"_s).build(h.debs());
    const QString big = DebBuilder("big"_s).contents(QByteArray(4000000, 'x')).build(h.debs());
    h.run([&] { h.shell.addPackages({big, small}); });
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY2(h.criticals.first().contains("No space left on device"_s), qPrintable(h.criticals.first()));
    QCOMPARE(h.lastMessage(), "1 package(s) added: small_1.0_amd64.deb"_s);
    QCOMPARE(h.inIndices(), QStringList{"small 1.0 main amd64"_s});

    // A replacement that does not fit leaves the old package.
    h.resolve = [](RepoEnums::ErrorCode) { return quint32(PackageReplacementRules::ReplaceThis); };
    const QString bigger
        = DebBuilder("small"_s).version("2.0"_s).contents(QByteArray(4000000, 'x')).build(h.debs());
    h.run([&] { h.shell.addPackages({bigger}); });
    QCOMPARE(h.listed(), QStringList{"small 1.0 main amd64"_s});
    QCOMPARE(h.inIndices(), h.listed());
    QVERIFY(QFile::exists(h.find("small"_s)->filePath()));
    h.shell.closeRepo();
    ::umount(mount.toLocal8Bit().constData());
}

void TestTrouble::signingFailsWhileAdding()
{
    VELT_NEED_TOOL("gpg");
    EngineHarness h;
    h.create();
    // Signing is switched on beside us, and this home has no key.
    const QString conf = h.repoPath() + "/conf/distributions"_s;
    writeFile(conf, readFile(conf) + "SignWith: yes\n");
    const QStringList files{DebBuilder(Foo).build(h.debs()), DebBuilder("bar"_s).build(h.debs())};
    h.run([&] { h.shell.addPackages(files); });
    const QString question
        = "Package is unsigned|Package is added, but unsigned. Do you want to remove it?"_s;
    QCOMPARE(h.questions, (QStringList{question, question}));
    QCOMPARE(h.listed().size(), 2);
    QCOMPARE(h.inDatabase().size(), 2);
    QCOMPARE(h.lastMessage(), "0 package(s) added: "_s);
    QCOMPARE(h.criticals.size(), 1);
    QVERIFY(h.criticals.first().startsWith("Failed to sign repository!|"_s));
    QVERIFY(ExportSession::isExportOwed(h.repoPath()));

    h.answer = [](const QString &) { return true; };
    h.run([&] { h.shell.addPackages({DebBuilder("third"_s).build(h.debs())}); });
    QCOMPARE(h.inDatabase().size(), 2);
    QCOMPARE(h.listed().size(), 2);
    // Once signing is off again, the next opening shows everything.
    writeFile(conf, readFile(conf).replace("SignWith: yes\n", ""));
    h.run([&] { h.shell.openRepo(h.repoPath()); });
    QCOMPARE(h.inIndices().size(), 2);
}

void TestTrouble::closingAnswersForTheUser()
{
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({file}); });
    QSignalSpy idle(&h.shell, &RepoShell::idle);
    const auto close = connect(&h.shell, &RepoShell::started, [&] { h.shell.setClosing(); });
    h.collisions.clear();
    h.shell.addPackages({file, file});
    QVERIFY(idle.wait(60000));
    disconnect(close);
    QVERIFY2(h.collisions.isEmpty(), "a program that is closing shows no box");
    QCOMPARE(h.listed().size(), 1);
}

void TestTrouble::closingWhileAQuestionIsOpen()
{
    // The user closes the window while a box is up: the job must end without anybody waiting for it.
    EngineHarness h;
    h.create();
    const QString file = DebBuilder(Foo).build(h.debs());
    h.run([&] { h.shell.addPackages({file}); });
    h.resolve = [&](RepoEnums::ErrorCode) {
        h.shell.setClosing();
        return quint32(PackageReplacementRules::KeepThis);
    };
    QCOMPARE(h.run([&] { h.shell.addPackages({file, file, file}); }), int(RepoEnums::CANCEL));
    QCOMPARE(h.collisions.size(), 1);
    QCOMPARE(h.finished.size(), 1);
}

void TestTrouble::askerThatGoesAwayGetsTheSafeAnswer()
{
    QTemporaryDir folder;
    RepoShell shell;
    auto *receiver = new QObject;
    bool asked = false;
    connect(
        &shell, &RepoShell::question, receiver, [&] { asked = true; }, Qt::BlockingQueuedConnection);
    // It dies before its event loop gets to the question.
    connect(&shell, &RepoShell::started, receiver, [receiver] { delete receiver; });
    QSignalSpy idle(&shell, &RepoShell::idle);
    QSignalSpy import(&shell, &RepoShell::needImportRepo);
    shell.openRepo(folder.path());
    QVERIFY(idle.wait());
    QVERIFY(!asked);
    QCOMPARE(import.count(), 0);
}

void TestTrouble::waitingForAnAnswerKeepsNoThread()
{
    const int threads = QThreadPool::globalInstance()->maxThreadCount();
    QThreadPool::globalInstance()->setMaxThreadCount(1);
    EngineHarness first;
    EngineHarness second;
    QDir().mkpath(first.repoPath());
    QDir().mkpath(second.repoPath());
    QSignalSpy idle(&second.shell, &RepoShell::idle);
    first.answer = [&](const QString &) {
        second.shell.openRepo(second.repoPath());
        return !idle.wait(60000);
    };
    first.run([&] { first.shell.openRepo(first.repoPath()); });
    QVERIFY2(!first.lastMessage().isEmpty(),
             "the second tab's job ran while the first tab waited for its user");
    QThreadPool::globalInstance()->setMaxThreadCount(threads);
}

void TestTrouble::runningUntilIdle()
{
    EngineHarness h;
    h.create();
    bool runningAtFinish = false;
    connect(&h.shell, &RepoShell::finished, this, [&] { runningAtFinish = h.shell.isRunning(); });
    bool runningAtIdle = true;
    connect(&h.shell, &RepoShell::idle, this, [&] { runningAtIdle = h.shell.isRunning(); });
    h.run([&] { h.shell.openRepo(h.repoPath()); });
    QVERIFY(runningAtFinish);
    QVERIFY(!runningAtIdle);
    QCOMPARE(h.shell.startMessage(), "Opening repository"_s);
}

VELT_TEST_MAIN(TestTrouble, QCoreApplication)
#include "tst_trouble.moc"
