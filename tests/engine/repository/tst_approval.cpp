// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/engineharness.h"
#include "engine/repository/configuredprograms.h"
#include "engine/repository/repositoryapprovals.h"
#include "engine/repository/repositoryinspection.h"

#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr uid_t Nobody = 65534;

QByteArray hook(const QString &ran, const char *word)
{
    return "#!/bin/sh\necho " + QByteArray(word) + " >>" + ran.toLocal8Bit() + '\n';
}

/** A repository with one package, unpacked from an archive as after an interrupted job, whose settings name a hook. */
class UnpackedRepo : public EngineHarness
{
public:
    explicit UnpackedRepo(const char *options = "endhook hook.sh\n")
    {
        RepoHarness maker;
        maker.add(maker.debs("foo"));
        ExportSession::setMarker(maker.repoPath());
        writeFile(maker.repoPath() + "/conf/options"_s, options);
        writeScript(maker.repoPath() + "/conf/hook.sh"_s, hook(ran, "first"));
        runShell("tar c repo | tar x -C "_s + folder.path(), maker.folder.path());
    }

    const QString ran = folder.filePath("ran"_s);
    const QString conf = repoPath() + "/conf"_s;
    const QString victim = folder.filePath("victim"_s);

    Code exportAll()
    {
        return run(
            [this] { shell.exportPackages(shell.packages(), folder.filePath("packages.tgz"_s), false); });
    }
    Code openAgain()
    {
        ExportSession::setMarker(repoPath());
        return open(repoPath());
    }
    /** Whether the last job asked this often, with this in its question. */
    bool asked(int count, const QString &text = {}) const
    {
        if (questions.size() == count && questions.join(u'\n').contains(text))
            return true;
        qWarning() << questions << criticals;
        return false;
    }
    QString state() const { return runShell("find . -printf '%p %T@\\n' | sort"_s, repoPath()); }
    QByteArray hooksRun()
    {
        const QByteArray words = readFile(ran);
        QFile::remove(ran);
        return words;
    }
    void giveAway() const { runShell("chown -R nobody ."_s, repoPath()); }
};
} // namespace

/** No program that a repository names runs before the user has agreed to it. */
class TestApproval : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("reprepro"); }

    void whatCounts()
    {
        const auto inOptions = [](const QByteArray &text) {
            ConfiguredPrograms programs;
            programs.readOptions(text);
            return programs.lines().size();
        };
        const auto inDistributions = [](const QByteArray &text) {
            ConfiguredPrograms programs;
            programs.readDistributions("Codename: dog\nComponents: main\n" + text);
            return programs.lines().size();
        };
        for (const char *options : {"",
                                    "#endhook x\n; endhook x\n\n  verbose\nexport never\n",
                                    "waitforlock 3\n--ask-passphrase\nignore=undefinedtarget",
                                    "morguedir +b/morgue\nunxz NONE\nnokeepunreferencedfiles\n"})
            QVERIFY2(inOptions(options) == 0, options);
        for (const char *options : {"endhook hook.sh",
                                    " \tendhook\vhook.sh\r\n",
                                    "endhook=hook.sh\n",
                                    "--endhook hook.sh\n",
                                    "verbose\noutHook x\n",
                                    "outhook +b/x\n",
                                    "gnupghome /home/x\n",
                                    "unxz ./x\n",
                                    "methoddir x\n",
                                    "confdir /x\n",
                                    "basedir x\n",
                                    "morguedir /x\n",
                                    "outdir x\n",
                                    "outdir +b/../x\n",
                                    "dbdir +b/a/b\n",
                                    "logdir ~/x\n",
                                    "what-comes-next x\n"})
            QVERIFY2(inOptions(options) == 1, options);
        QCOMPARE(inOptions(QByteArray("verbose\0\nendhook x\n", 19)), 2);
        QCOMPARE(inOptions("verbose " + QByteArray(5000, ' ') + "x\nendhook y"), 2);

        for (const char *field : {"SignWith: yes\nTracking: minimal\nUpdate: a b\nUploaders: file\n",
                                  "DebIndices: Packages Release . .gz\nUDebIndices: Packages .\n",
                                  "#Log: a\n# b\nLog: packages.log\n\n\nContents: . .gz\n",
                                  "Description: some !text\n with more: of it\nsigned-by: x\n"})
            QVERIFY2(inDistributions(field) == 0, field);
        for (const char *field : {"signwith:!hook.sh\n",
                                  "SignWith: yes\n#\n !hook.sh\n",
                                  "DebIndices: Packages . .gz hook.sh\n",
                                  "DebIndices: Packages Release .\n\thook.sh\n",
                                  "DscIndices: ../x .\n",
                                  "Log:\n hook.sh\n",
                                  "Log: /home/x/.profile\n",
                                  "Log: ../x\n",
                                  "ByHandHooks: * * * hook.sh\n",
                                  "\n!include: more\n",
                                  "no field\n",
                                  "NewHook: x\n"})
            QVERIFY2(inDistributions(field) > 0, field);

        ConfiguredPrograms programs;
        programs.readOptions("endhook +c/a.sh\noutdir +b/public\n");
        programs.readDistributions("SignWith: !b.sh\nLog: x.log\n --type=deb tell/c.sh ../d /e +b/f\n");
        QCOMPARE(
            programs.lines(),
            "conf/options: endhook +c/a.sh|conf/distributions: SignWith: !b.sh|conf/distributions: Log: x.log|conf/distributions: Log: --type=deb tell/c.sh ../d /e +b/f"_list);
        for (const char *file : {"a.sh", "b.sh", "tell/c.sh", "+b/f"})
            QVERIFY2(programs.words().contains(file), file);
        QVERIFY(!programs.words().contains("../d") && !programs.words().contains("/e"));
        QCOMPARE(programs.folders(), QList<QByteArray>{"public"});
    }

    void oldApprovalsMakeRoom()
    {
        const QTemporaryDir folder;
        QSettings settings(folder.filePath("x.conf"_s), QSettings::IniFormat);
        RepositoryApprovals approvals(settings);
        approvals.add("1-2"_s, "first");
        QTest::qWait(2); // milliseconds, by which the older one is told
        for (int number = 1; number < RepositoryApprovals::Most; ++number)
            approvals.add("1-2"_s, QByteArray::number(number));
        QVERIFY(approvals.contain("1-2"_s, "first") && !approvals.contain("1-3"_s, "first"));
        approvals.add("1-2"_s, "last");
        QVERIFY(!approvals.contain("1-2"_s, "first") && approvals.contain("1-2"_s, "last"));
    }

    void hooksRunAfterYesAlone()
    {
        UnpackedRepo h;
        const QString before = h.state();
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.asked(1, "\n\nconf/options: endhook hook.sh\n\n"_s));
        QVERIFY(h.complains("could not be brought up to date"_s));
        QCOMPARE(h.listed(), "foo 1.0 main amd64"_list);
        const QStringList files = h.debs("bar");
        h.info.components = "main"_s;
        for (const auto &job : std::initializer_list<std::function<EngineHarness::Code()>>{
                 [&] { return h.exportAll(); },
                 [&] { return h.add(files); },
                 [&] { return h.remove(h.shell.packages()); },
                 [&] { return h.change(h.repoPath()); }}) {
            QCOMPARE(job(), RepoEnums::ERROR);
            QVERIFY(h.asked(1) && h.complains("not agreed to"_s));
        }
        QCOMPARE(h.state(), before);
        QVERIFY(h.hooksRun().isEmpty() && !QFile::exists(h.at("packages.tgz")));

        h.reply = true;
        h.openAgain();
        QVERIFY(h.asked(1) && h.trouble().isEmpty() && h.hooksRun().startsWith("first"));
        h.reply = false;
        h.openAgain();
        h.add(files);
        QVERIFY(h.asked(0) && h.hooksRun().startsWith("first"));
        QVERIFY(h.holds("bar 1.0 main amd64,foo 1.0 main amd64"_s) && !h.hooksRun().isEmpty());

        // Other settings, and another program under the same name, are asked about again.
        writeFile(h.conf + "/options"_s, "endhook hook.sh\nverbose\n");
        h.openAgain();
        QVERIFY(h.asked(1) && h.hooksRun().isEmpty());
        writeFile(h.conf + "/options"_s, "endhook hook.sh\n");
        writeScript(h.conf + "/hook.sh"_s, hook(h.ran, "second"));
        h.openAgain();
        QVERIFY(h.asked(1) && h.hooksRun().isEmpty());
        h.reply = true;
        h.openAgain();
        QVERIFY(h.asked(1) && h.hooksRun().startsWith("second"));
    }

    void ownChangesStayApproved()
    {
        UnpackedRepo h;
        runShell("echo 'DebIndices: Packages Release . .gz hook.sh' >>distributions"_s, h.conf);
        h.reply = true;
        h.open(h.repoPath());
        QVERIFY(h.asked(1, "DebIndices"_s) && h.trouble().isEmpty());
        h.info.components = "main"_s;
        const QString moved = h.at("moved");
        QCOMPARE(h.change(moved), RepoEnums::SUCCESS);
        QVERIFY(h.asked(1, "without these lines"_s));
        h.reply = false;
        h.add(h.debs("bar"));
        QVERIFY(h.asked(0) && h.listed().size() == 2 && !h.hooksRun().isEmpty());
        // So does a copy, in which nothing differs.
        const QTemporaryDir far("/dev/shm/veXXXXXX"_s);
        if (QStorageInfo(far.path()).device() != QStorageInfo(moved).device()) {
            const QString copied = far.filePath("repo"_s);
            runShell("mv '%1' '%2'"_s.arg(moved, copied));
            ExportSession::setMarker(copied);
            h.reply = true;
            h.open(copied);
            QVERIFY(h.asked(1));
            h.reply = false;
            QCOMPARE(h.change(moved), RepoEnums::SUCCESS);
            QVERIFY(h.asked(0) && h.trouble().isEmpty());
            h.add(h.debs("last"));
            QVERIFY(h.asked(0) && h.listed().size() == 3 && !h.hooksRun().isEmpty());
        }
        // What makes no program run needs no question.
        UnpackedRepo plain("keepunreferencedfiles\n");
        plain.open(plain.repoPath());
        QVERIFY(plain.asked(0) && plain.trouble().isEmpty() && !plain.isExportOwed());
    }

    void whatWasApprovedIsWhatRuns()
    {
        if (::geteuid() != 0)
            QSKIP("giving a repository to another user needs root");
        UnpackedRepo h;
        h.giveAway();
        h.reply = true;
        h.whileAsked = [&h] {
            writeScript(h.conf + "/hook.sh"_s, hook(h.ran, "evil"));
            writeFile(h.conf + "/options"_s, "endhook hook.sh\noutdir /nowhere\n");
        };
        h.open(h.repoPath());
        QVERIFY(h.asked(1, "Other users can change"_s) && h.trouble().isEmpty());
        const QByteArray words = h.hooksRun();
        QVERIFY(words.startsWith("first") && !words.contains("evil"));
        h.whileAsked = [] {};
        h.reply = false;
        h.openAgain();
        QVERIFY(h.asked(1, "outdir /nowhere"_s) && h.hooksRun().isEmpty());
        // A change of its description reaches the next run.
        runShell("echo keepunreferencedfiles >options; chown nobody options distributions"_s, h.conf);
        h.reply = true;
        h.open(h.repoPath());
        QVERIFY(h.asked(1, "belongs to another user"_s) && h.trouble().isEmpty());
        h.info.architectures = "amd64 i386"_s;
        QCOMPARE(h.change(h.repoPath()), RepoEnums::SUCCESS);
        h.add({h.deb(DebBuilder("bar"_s).architecture("i386"_s))});
        QVERIFY(h.trouble().isEmpty() && h.holds("bar 1.0 main i386,foo 1.0 main amd64"_s));
    }

    void linksAreNoWayOut()
    {
        UnpackedRepo h("");
        const auto exchange = [&h](const char *name, const QString &target) {
            const QString path = h.repoPath() + QLatin1String(name);
            QVERIFY(QFile::rename(path, path + ".true"_s) && QFile::link(target, path));
        };
        const auto putBack = [&h](const char *name) {
            const QString path = h.repoPath() + QLatin1String(name);
            QVERIFY(QFile::remove(path) && QFile::rename(path + ".true"_s, path));
        };
        QVERIFY(RepositoryInspection::belongsToUser(h.repoPath()));
        for (const char *name : {"/conf", "/db"}) {
            exchange(name, "/proc/self"_s);
            QVERIFY(!RepositoryInspection::belongsToUser(h.repoPath()));
            const auto found = RepositoryInspection::of(h.repoPath());
            const QString told = found.refusal + found.named.join(QString());
            QVERIFY(told.contains("is a link to /proc/self"_s));
            if (::geteuid() == 0) {
                h.giveAway();
                QVERIFY(RepositoryInspection::of(h.repoPath()).refusal.contains("is a link"_s));
                runShell("chown -R 0 ."_s, h.repoPath());
            }
            putBack(name);
        }
        QDir().mkpath(h.victim);
        for (const char *name :
             {"/conf/distributions", "/conf/options", "/db/references.db", "/dists", "/dists/dogwood/main"}) {
            exchange(name, h.victim);
            h.openAgain();
            // A description that is no file is none: nothing is opened then.
            QVERIFY2(h.questions.join(QString()).contains(QLatin1String(name + 1) + " is a link to "_s)
                         || h.complains("no regular file"_s),
                     name);
            QVERIFY2(QDir(h.victim).isEmpty(), name);
            putBack(name);
        }
        // Nobody waits for the other end of a pipe.
        QCOMPARE(QFile::remove(h.conf + "/options"_s), true);
        QCOMPARE(::mkfifo(QFile::encodeName(h.conf + "/options"_s).constData(), S_IRWXU), 0);
        h.openAgain();
        QVERIFY(h.asked(0) && h.complains("conf/options is no regular file"_s));
        QFile::remove(h.conf + "/options"_s);

        // Neither does what an interrupted job has written down lead out of the pool.
        writeFile(h.victim + "/precious.deb"_s, "x");
        QVERIFY(QFile::link(h.victim, h.repoPath() + "/pool/main/p"_s));
        writeFile(h.repoPath() + "/db/velt-admin-repo.export-owed"_s,
                  "pool/main/p/precious.deb\npool/../../victim/precious.deb\n");
        h.open(h.repoPath());
        QVERIFY(h.asked(0) && h.trouble().isEmpty() && QFile::exists(h.victim + "/precious.deb"_s));
    }

    void copiesOfADescriptionAreLookedAt()
    {
        UnpackedRepo h("");
        const QString copy = h.repoPath() + "/db/velt-admin-repo.before"_s;
        const QByteArray text = readFile(h.conf + "/distributions"_s);
        runShell("mkdir %1 && cp db/*.db db/version %1"_s.arg(copy), h.repoPath());
        for (const char *name : {"/packages.conf", "/description-changes"})
            writeFile(copy + QLatin1String(name), "");
        writeFile(copy + "/distributions"_s, text + "DebIndices: Packages Release . .gz hook.sh\n");
        QCOMPARE(h.open(h.repoPath()), RepoEnums::SUCCESS);
        QVERIFY(h.asked(1, "hook.sh"_s) && h.complains("could not be brought up to date"_s));
        QVERIFY(h.hooksRun().isEmpty() && h.listed().size() == 1);
        h.reply = true;
        h.open(h.repoPath());
        QVERIFY(h.asked(1) && h.hooksRun().startsWith("first") && !h.isExportOwed());
    }
};

VELT_TEST_MAIN(TestApproval, QCoreApplication)
#include "tst_approval.moc"
