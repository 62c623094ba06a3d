// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/history/runningpoint.h"
#include "engine/reprepro/repolock.h"

#include <sys/mount.h>
#include <unistd.h>

/** Bad input, failing tools, locks, interruptions, and the threads' traps. */
class TestTrouble : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void whatDoesNotUnpackReplacesNothing()
    {
        for (const char *packed : {"xz", "gzip", "zstd", "none"}) {
            RepoHarness h;
            h.choice = PackageReplacementRules::ReplaceAll;
            // Signed ones have a member behind their files, and some names need more than a header.
            const QString build = R"(
                build() {
                    mkdir -p tree/DEBIAN tree/usr; chmod 755 tree tree/DEBIAN
                    printf 'Package: foo\nVersion: %s\nArchitecture: amd64\nMaintainer: T <t@example.org>\n' $1 >tree/DEBIAN/control
                    printf 'Section: admin\nPriority: optional\nDescription: test\n' >>tree/DEBIAN/control
                    { head -c 100001 /dev/urandom; seq 50000; } >tree/usr/$(printf 'n%.0s' $(seq 180))
                    ln -sf b tree/usr/a
                    dpkg-deb --root-owner-group -Z%1 -b tree $1.deb >/dev/null
                }
                build 1; build 2; build 3
                printf x >_gpgorigin; ar q 1.deb _gpgorigin; ar q 2.deb _gpgorigin
                # Of what is not compressed, headers alone can tell.
                at=$(( $(stat -c %s 2.deb) / 2 )); [ %1 != none ] || at=$(( $(grep -abo data.tar 2.deb | head -1 | cut -d: -f1) + 100 ))
                head -c 1000 /dev/urandom | dd of=2.deb bs=1 seek=$at conv=notrunc status=none
                dpkg-deb --fsys-tarfile 3.deb | tar t >/dev/null && echo whole)"_s;
            QCOMPARE(runShell(QString(build).replace("%1"_s, QLatin1String(packed)), h.folder.path()),
                     "whole\n"_s);
            const auto file = [&h](const char *name) { return h.folder.filePath(QLatin1String(name)); };
            h.add({file("1.deb")});
            const QByteArray good = h.inPool("foo"_s);
            h.add({file("2.deb")});
            QVERIFY2(h.complains("cannot be unpacked"_s) && h.collisions.isEmpty(), packed);
            QVERIFY2(h.holds("foo 1 main amd64"_s) && h.inPool("foo"_s) == good, packed);
            h.add({file("3.deb")});
            QVERIFY2(h.trouble().isEmpty() && h.holds("foo 3 main amd64"_s), packed);
        }
    }

    void interruptedJobIsFinishedOnOpen()
    {
        // What a crash between two packages leaves: a database ahead of its indices, and the marker that says so.
        RepoHarness h;
        QVERIFY(h.reprepro("--export=silent-never|includedeb|dogwood"_list + h.debs("foo")).succeeded());
        writeFile(h.repoPath() + "/db/velt-admin-repo.export-owed"_s, "");
        QVERIFY(h.inIndices().isEmpty());
        h.open(h.repoPath());
        QVERIFY(h.trouble().isEmpty() && h.holds("foo 1.0 main amd64"_s));
    }

    void heldAndStaleLock()
    {
        RepoHarness h;
        const QString lock = h.repoPath() + "/db/lockfile"_s;
        const QStringList files = h.debs("foo bar baz");
        writeFile(lock, "");
        // A program of reprepro's name that holds the database until we let it go.
        const QString holder = h.at("reprepro");
        QVERIFY(QFile::copy("/bin/bash"_s, holder));
        QProcess process;
        const QString hold = "exec 3<\"$0\"; echo ready; "_s;
        const QString database = h.repoPath() + "/db/packages.db"_s;
        process.start(holder, {"-c"_s, hold + "read line"_s, database});
        QVERIFY(process.waitForReadyRead());
        h.reply = true;
        h.add(files);
        QVERIFY2(h.questions.isEmpty(), "the lock of a program at work is not offered for removal");
        QVERIFY(h.complains("another program"_s));
        QCOMPARE(h.lastMessage(), "Operation stopped. 0 of 3 package(s) added: "_s);
        QVERIFY(RepoLock::state(h.repoPath()) == RepoLock::State::Held);
        QVERIFY2(RepoLock::state(h.folder.path()) == RepoLock::State::Free, "what has no database");
        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());

        h.reply = false;
        h.add(files);
        QVERIFY(h.questions.size() == 1 && h.questions.first().contains(h.repoPath()));
        QVERIFY2(QFile::exists(lock), "never without the user's word");
        QVERIFY(h.complains("stays locked"_s));
        QVERIFY(h.listed().isEmpty());
        // One that is soon done is waited for.
        process.start(holder, {"-c"_s, hold + "read -t 1; rm \"$1\""_s, database, lock});
        QVERIFY(process.waitForReadyRead());
        h.add({files.first()});
        QVERIFY(h.questions.isEmpty() && process.state() == QProcess::NotRunning);
        QCOMPARE(h.trouble(), QString());
        writeFile(lock, "");
        h.reply = true;
        h.add(files.mid(1));
        QCOMPARE(h.trouble(), QString());
        QCOMPARE(h.listed().size(), 3);
    }

    void toolMissingAndCrashing()
    {
        RepoHarness h;
        h.add(h.debs("foo"));
        const QStringList file = h.debs("bar");
        const QString bin = h.at("bin/");
        const QByteArray real = QStandardPaths::findExecutable("reprepro"_s).toLocal8Bit();
        runShell("mkdir bin; for tool in dpkg dpkg-deb tar rm; do ln -s $(type -p $tool) bin; done"_s,
                 h.folder.path());
        {
            const ScopedVariable path("PATH", bin);
            h.add(file);
            QVERIFY(h.complains("reprepro could not be started"_s, 2));
            EngineHarness other;
            QCOMPARE(other.shell.createRepo(other.repoPath(), other.info), int(RepoEnums::ERROR));
            QVERIFY(!QFile::exists(other.repoPath()));

            writeScript(bin + "reprepro"_s, "#!/bin/sh\nkill -SEGV $$\n");
            h.remove(h.shell.packages());
            QVERIFY(h.criticals.contains("The process reprepro crashed!|"_s));
            QCOMPARE(h.lastMessage(), "0 packages removed: "_s);
            QVERIFY(h.trouble().contains("What it had done is undone"_s) && !h.isExportOwed());
        }
        QVERIFY(h.holds("foo 1.0 main amd64"_s));

        // Killed when all was done: nobody knows that, so the whole job is undone.
        const ScopedVariable path("PATH", ScopedVariable::pathBehind(bin));
        writeScript(bin + "reprepro"_s,
                    "#!/bin/sh\n" + real + " \"$@\"\ncase \"$*\" in *' remove '*) kill -SEGV $$;; esac\n");
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("other") + h.debs("foo", "2.0", "longer"));
        QVERIFY(h.complains("What it had done is undone"_s, 2) && h.holds("foo 1.0 main amd64"_s));
        h.remove(h.shell.packages());
        QVERIFY(h.holds("foo 1.0 main amd64"_s));
    }

    void fullDisk()
    {
        EngineHarness h;
        const QString repo = h.repoPath();
        const QByteArray mount = h.folder.path().toLocal8Bit() + "/repo";
        QDir().mkpath(repo);
        if (::geteuid() != 0 || ::mount("tmpfs", mount.constData(), "tmpfs", 0, "size=3m") != 0)
            QSKIP("mounting a small file system needs root");
        const auto unmount = qScopeGuard([&] {
            h.shell.closeRepo();
            ::umount(mount.constData());
        });
        QCOMPARE(h.shell.createRepo(repo + "/in"_s, h.info), int(RepoEnums::SUCCESS));
        const QByteArray big(4000000, 'x');
        h.add(h.debs("big", "1.0", big.constData()) + h.debs("small"));
        QVERIFY(h.complains("No space left on device"_s));
        QCOMPARE(h.lastMessage(), "1 package(s) added: small_1.0_amd64.deb"_s);
        QVERIFY(h.settled());

        // A replacement that does not fit leaves the old package.
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("small", "2.0", big.constData()));
        QVERIFY(h.holds("small 1.0 main amd64"_s));

        // Root cannot write either where nobody can.
        QVERIFY(h.shell.isWritable());
        QCOMPARE(::mount(nullptr, mount.constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        h.open(repo + "/in"_s);
        QVERIFY(!h.shell.isWritable());
        QCOMPARE(h.listed(), "small 1.0 main amd64"_list);
    }

    /** The copy of the database that protects a job lies on another disk, so that a removal can make room. */
    void removingMakesRoom()
    {
        EngineHarness h;
        const QString disk = h.at("disk");
        const QString repo = disk + "/repo"_s;
        const QByteArray mount = disk.toLocal8Bit();
        QDir().mkpath(disk);
        if (::geteuid() != 0 || ::mount("tmpfs", mount.constData(), "tmpfs", 0, "size=4m") != 0)
            QSKIP("mounting a small file system needs root");
        const auto unmount = qScopeGuard([&] {
            h.shell.closeRepo();
            ::umount(mount.constData());
        });
        const auto leave = [&](int kilobytes) {
            runShell("rm -f filler; fallocate -l $(($(stat -f -c '%a * %S' .) - %1 * 1024)) filler"_s.arg(
                         kilobytes),
                     disk);
        };
        const QString copies = qEnvironmentVariable("XDG_DATA_HOME") + "/velt-admin-repo/databases"_s;
        QCOMPARE(h.shell.createRepo(repo, h.info), int(RepoEnums::SUCCESS));
        const QByteArray contents = noise(200000).toHex();
        h.add(h.debs("a b c d", "1.0", contents.constData()));
        leave(44);
        h.add(h.debs("new"));
        QVERIFY(h.complains("At least 1"_s) && h.trouble().contains("44.00 KiB are."_s));
        QCOMPARE(h.remove({h.find("a"_s)}), RepoEnums::SUCCESS);
        QVERIFY(h.trouble().isEmpty() && h.holds("b 1.0 main amd64,c 1.0 main amd64,d 1.0 main amd64"_s));
        QVERIFY(h.questions.isEmpty() && QDir(copies).exists() && QDir(copies).isEmpty());

        // There is not even room for new indices, but the package's file makes it.
        leave(12);
        h.remove({h.find("b"_s)});
        QVERIFY(h.trouble().isEmpty() && h.holds("c 1.0 main amd64,d 1.0 main amd64"_s));

        // A copy that was made elsewhere is used when the job has been killed, in a repository that was renamed too.
        leave(44);
        QCOMPARE(RunningPoint::make(repo, RunningPoint::Place::OtherDisk), RunningPoint::Outcome::Made);
        QVERIFY(RunningPoint::folder(repo).startsWith(copies));
        ExportSession::setMarker(repo);
        const QString moved = disk + "/moved"_s;
        QVERIFY(QDir().rename(repo, moved));
        writeFile(moved + "/db/packages.db"_s, "torn");
        h.open(moved);
        QVERIFY(h.complains("put back as it was before"_s));
        QVERIFY(h.holds("c 1.0 main amd64,d 1.0 main amd64"_s) && QDir(copies).isEmpty());

        // One that is not there is given up after a question alone.
        QCOMPARE(RunningPoint::make(moved, RunningPoint::Place::OtherDisk), RunningPoint::Outcome::Made);
        ExportSession::setMarker(moved);
        runShell("rm -r '%1'/*"_s.arg(copies), disk);
        h.open(moved);
        QVERIFY(h.complains("lay on another disk"_s));
        h.remove({h.find("d"_s)});
        QVERIFY(h.complains("lay on another disk"_s) && h.inDatabase().size() == 2);
        h.reply = true;
        h.open(moved);
        QVERIFY(h.trouble().isEmpty() && h.settled());
        h.open(moved);
        QVERIFY(h.questions.isEmpty());
    }

    void indicesThatCannotBeWritten()
    {
        // A key that does not exist: reprepro takes the package in and fails at the indices.
        RepoHarness h;
        h.add(h.debs("foo bar"));
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray text = readFile(conf);
        writeFile(conf, text + "SignWith: 0123456789ABCDEF0123456789ABCDEF01234567\n");
        h.choice = PackageReplacementRules::ReplaceThis;
        h.add(h.debs("foo", "2.0"));
        QVERIFY(h.complains("Could not find any key"_s));
        QCOMPARE(h.find("foo"_s)->version, "2.0"_s);
        QVERIFY(h.isExportOwed());
        writeFile(conf, text);
        h.open(h.repoPath());
        QCOMPARE(h.inIndices(), "bar 1.0 main amd64|foo 2.0 main amd64"_list);
        QVERIFY(!h.isExportOwed());

        // Without its database, a change would make a new one and empty the indices.
        QVERIFY(QDir(h.repoPath() + "/db"_s).removeRecursively());
        const QStringList before = h.inIndices();
        h.add(h.debs("third"));
        h.remove(h.shell.packages());
        QCOMPARE(h.inIndices(), before);
        QVERIFY(h.complains("database of the repository is missing"_s));
        // A disk that went is no damage to the repository.
        QVERIFY(QDir().rename(h.repoPath(), h.repoPath() + "-away"_s));
        h.remove(h.shell.packages());
        QVERIFY(h.complains("does not exist any more"_s));
        QCOMPARE(h.shell.packageCount(), before.size());
    }

    void changesOfOtherPrograms()
    {
        RepoHarness h("amd64 arm64"_s);
        h.add(h.debs("foo bar") + QStringList{h.deb(DebBuilder("doc"_s).architecture("all"_s))});
        QVERIFY(h.reprepro({"remove"_s, "dogwood"_s, "foo"_s}).succeeded());
        QVERIFY(h.reprepro("includedeb|dogwood"_list + h.debs("bar", "2.0") + h.debs("new")).succeeded());
        // A job that stumbles over it says so.
        h.run([&] { h.shell.exportPackages({h.find("foo"_s)}, h.at("a.tgz"), false); });
        QVERIFY(h.complains("Another program has changed the repository"_s, 2));
        const PackageInfoPtr doc = h.find("doc"_s, "arm64"_s);
        QCOMPARE(h.run([&] { h.shell.reloadRepo(); }), RepoEnums::SUCCESS);
        QCOMPARE(h.events, "-foo 1.0 amd64|+new 1.0 amd64|~bar 2.0 amd64"_list);
        QVERIFY(h.holds("bar 2.0 main amd64,doc 1.0 main amd64,doc 1.0 main arm64,new 1.0 main amd64"_s));
        QCOMPARE(h.find("doc"_s, "arm64"_s), doc);
        QCOMPARE(h.lastMessage(),
                 "Another program has changed the repository: 1 package(s) added, 1 package(s) replaced, "
                 "1 package(s) removed"_s);
        h.run([&] { h.shell.reloadRepo(); });
        QCOMPARE(h.words(), "Reading repository again|Repository is unchanged"_s);

        // An index that lists a package twice is no other one each time.
        const QString index = h.repoPath() + "/dists/dogwood/main/binary-amd64/Packages"_s;
        writeFile(index, readFile(index) + readFile(index).replace("2.0", "1.5"));
        h.run([&] { h.shell.reloadRepo(); });
        QCOMPARE(h.events, "~bar 1.5 amd64"_list);
        h.run([&] { h.shell.reloadRepo(); });
        QCOMPARE(h.words(), "Reading repository again|Repository is unchanged"_s);
    }

    void signingFailsWhileAdding()
    {
        VELT_NEED_TOOL("gpg");
        RepoHarness h;
        // Signing is switched on beside us, and this home has no key.
        const QString conf = h.repoPath() + "/conf/distributions"_s;
        const QByteArray unsignedConf = readFile(conf);
        writeFile(conf, unsignedConf + "SignWith: yes\n");
        h.add(h.debs("foo bar"));
        const QString question
            = "Package is unsigned|Package is added, but unsigned. Do you want to remove it?"_s;
        QCOMPARE(h.questions, (QStringList{question, question}));
        QVERIFY(h.listed().size() == 2 && h.inDatabase().size() == 2 && h.isExportOwed());
        QCOMPARE(h.lastMessage(), "0 package(s) added: "_s);
        QVERIFY(h.complains("Failed to sign repository!|"_s));

        h.reply = true;
        h.add(h.debs("third"));
        QVERIFY(h.inDatabase().size() == 2 && h.listed().size() == 2);
        // Once signing is off again, the next opening shows everything.
        writeFile(conf, unsignedConf);
        h.open(h.repoPath());
        QCOMPARE(h.inIndices().size(), 2);
    }

    void componentsThatTakeNoSuchPackage()
    {
        RepoHarness h;
        runShell("sed -i 's/^Components:.*/& extra/' conf/distributions"_s, h.repoPath());
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        const auto build = [](const char *section) {
            return DebBuilder("foo"_s).field("Section"_s, QLatin1String(section));
        };
        DebBuilder udeb = build("extra/debian-installer");
        for (const auto &[file, reason] :
             {std::pair(h.deb(build("none/misc")), ", extra. Choose another"),
              std::pair(h.deb(udeb.udeb()),
                        "The component extra of the repository takes no packages for the installer")}) {
            h.add({file});
            QVERIFY2(h.complains(file) && h.complains(QLatin1String(reason)), qPrintable(h.trouble()));
        }
        h.add({h.deb(build("none/misc"))}, {"extra"_s, false, QString()});
        QVERIFY(h.trouble().isEmpty() && h.holds("foo 1.0 extra amd64"_s));
    }

    void closingWhileAQuestionIsOpen()
    {
        // The user closes the window while a box is up: the job must end without anybody waiting for it.
        RepoHarness h;
        const QString file = h.debs("foo").first();
        h.add({file});
        h.whileAsked = [&] { h.shell.setClosing(); };
        QCOMPARE(h.add({file, file, file}), RepoEnums::CANCEL);
        QCOMPARE(h.collisions.size(), 1);
        QCOMPARE(h.finished.size(), 1);
        h.add({file});
        QVERIFY2(h.collisions.isEmpty(), "a program that is closing shows no box");
        QVERIFY(h.settled());
    }

    void askerThatGoesAwayGetsTheSafeAnswer()
    {
        EngineHarness h;
        RepoShell shell;
        auto *receiver = new QObject;
        bool asked = false;
        const auto ask = [&] { asked = true; };
        connect(&shell, &RepoShell::question, receiver, ask, Qt::BlockingQueuedConnection);
        // It dies before its event loop gets to the question.
        connect(&shell, &RepoShell::started, receiver, [receiver] { delete receiver; });
        QSignalSpy idle(&shell, &RepoShell::idle);
        QSignalSpy import(&shell, &RepoShell::needImportRepo);
        shell.openRepo(h.folder.path());
        QVERIFY(idle.wait());
        QVERIFY(!asked && import.isEmpty());
    }

    void waitingForAnAnswerKeepsNoThread()
    {
        QThreadPool *pool = QThreadPool::globalInstance();
        const auto restore
            = qScopeGuard([=, threads = pool->maxThreadCount()] { pool->setMaxThreadCount(threads); });
        pool->setMaxThreadCount(1);
        EngineHarness first;
        EngineHarness second;
        bool ran = false;
        first.whileAsked = [&] {
            second.open(second.folder.path());
            ran = !second.lastMessage().isEmpty();
        };
        QVector<bool> running;
        const auto note = [&] { running.append(first.shell.isRunning()); };
        connect(&first.shell, &RepoShell::finished, this, note);
        connect(&first.shell, &RepoShell::idle, this, note);
        first.open(first.folder.path());
        QVERIFY2(ran, "the second tab's job runs while the first tab waits for its user");
        QCOMPARE(running, (QVector<bool>{true, false}));
        QCOMPARE(first.shell.startMessage(), "Opening repository"_s);
    }
};

VELT_TEST_MAIN(TestTrouble, QCoreApplication)
#include "tst_trouble.moc"
