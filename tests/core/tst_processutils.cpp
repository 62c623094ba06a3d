// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "support/testenvironment.h"

namespace
{
ProcessCall shell(const char *script)
{
    return {"sh"_s, {"-c"_s, QString::fromUtf8(script)}, {}, {}, -1};
}

constexpr int NoLimit = 60000; // milliseconds

/** A pipeline, one part of which writes down its process and would go on beyond the time that a test may take. */
struct Pipeline
{
    QTemporaryDir folder;
    ProcessCall call = shell("sh -c 'echo $$ >process; exec sleep 600' | cat");

    Pipeline() { call.workingDirectory = folder.path(); }
    QString process() const { return QString::fromLatin1(readFile(folder.filePath("process"_s))).trimmed(); }
    bool hasBegun() const { return !process().isEmpty(); }
    /** What is dead has no command line, even when nobody has asked for its end. */
    bool isGone() const
    {
        return QTest::qWaitFor([&] { return readFile("/proc/%1/cmdline"_s.arg(process())).isEmpty(); });
    }
};
} // namespace

class TestProcessUtils : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void endings()
    {
        const ProcessResult failed = runProcess(shell("exit 7"));
        QVERIFY(failed.started && !failed.crashed() && !failed.succeeded());
        QCOMPARE(failed.exitCode, 7);
        const ProcessResult crashed = runProcess(shell("kill -SEGV $$"));
        QVERIFY(crashed.started && crashed.crashed() && !crashed.succeeded());
        const ProcessResult missing = runProcess({"/no/such/program"_s, {}, {}, {}, -1});
        QVERIFY(!missing.started && !missing.crashed() && !missing.succeeded());
        QVERIFY2(missing.errorOutput.contains("/no/such/program"_s), "who could not be started is said");
        QVERIFY(runProcess(shell("exit 0")).succeeded());

        // The base of the tools' classes tells of the last run alone.
        ProcessUtils utils;
        QVERIFY(!utils.run("sh"_s, {"-c"_s, "echo o; echo e >&2; exit 3"_s}));
        QCOMPARE(utils.output() + utils.errorOutput() + QString::number(utils.exitCode()), "o\ne\n3"_s);
        QVERIFY(utils.run("true"_s, {}) && utils.output().isEmpty() && utils.errorOutput().isEmpty());
    }

    void wordsInAndOut()
    {
        const ProcessResult both
            = runProcess(shell("i=0; while [ $i -lt 20 ]; do head -c 100000 /dev/zero | tr '\\0' o; "
                               "head -c 100000 /dev/zero | tr '\\0' e >&2; i=$((i+1)); done"));
        QCOMPARE(both.output, QString(2000000, u'o'));
        QCOMPARE(both.errorOutput, QString(2000000, u'e'));
        const QStringList words{"two words"_s, "$HOME;`id`"_s, "\"'\\"_s, QString(), "%1"_s, "пакет"_s};
        const ProcessResult result = runProcess({"printf"_s, "%s\\n"_list + words, {}, {}, -1});
        QCOMPARE(result.output, words.join(u'\n') + u'\n');
        // Nobody answers a prompt.
        QCOMPARE(runProcess(shell("read line; echo \"got $line\"")).output, "got \n"_s);
    }

    void stopEndsThePipelineToo()
    {
        Pipeline pipeline;
        pipeline.call.stopped = [&pipeline] { return pipeline.hasBegun(); };
        // The shell waits for the whole pipeline, and the pipe stays open as long as one part of it lives.
        QVERIFY(runProcess(pipeline.call).crashed() && pipeline.isGone());
    }

    /** Ctrl+C in our terminal goes to its whole foreground group; whether the program stops is our decision. */
    void signalsOfTheTerminalPassBy()
    {
        const auto sessionOf
            = [](const QString &stat) { return stat.section(u')', -1).split(u' ').value(4); };
        const QString program = runProcess({"cat"_s, {"/proc/self/stat"_s}, {}, {}, -1}).output;
        const QString own = QString::fromLatin1(readFile("/proc/self/stat"_s));
        QVERIFY(!program.isEmpty() && sessionOf(program) != sessionOf(own));
        QCOMPARE(sessionOf(program), program.section(u' ', 0, 0));
    }

    void limits()
    {
        ProcessCall call = shell("yes & yes");
        call.outputLimit = 1 << 20;
        const ProcessResult flood = runProcess(call);
        QVERIFY(flood.tooLarge && !flood.succeeded() && flood.output.size() < 20 << 20);
        const QTemporaryDir folder;
        call = shell("head -c 100000 /dev/zero >late");
        call.workingDirectory = folder.path();
        call.fileLimit = 4096;
        QVERIFY(!runProcess(call).succeeded());
        QCOMPARE(readFile(folder.filePath("late"_s)).size(), 4096);
        call.stopped = [] { return false; };
        call.arguments = "-c|sleep 0.2; exit 5"_list;
        QCOMPARE(runProcess(call).exitCode, 5);
    }

    void followingToTheEnd()
    {
        QList<ProcessResult> results;
        const auto keep = [&results](const ProcessResult &result) { results << result; };
        followProcess({"/no/such/program"_s, {}, {}, {}, -1}, NoLimit, this, keep);
        QVERIFY2(results.isEmpty(), "the answer comes later, whatever it is");
        QTRY_COMPARE(results.size(), 1);
        QVERIFY(!results.first().started && results.first().errorOutput.contains("/no/such/program"_s));

        followProcess(shell("read line; echo \"$LC_ALL $line\"; echo why >&2; exit 3"), NoLimit, this, keep);
        QTRY_COMPARE(results.size(), 2);
        QCOMPARE(results.last().output + results.last().errorOutput, "C.UTF-8 \nwhy\n"_s);
        QCOMPARE(results.last().exitCode, 3);
    }

    /** What is killed takes along what it has started. */
    void followingNoLonger()
    {
        int ended = 0;
        ProcessResult result;
        const auto keep = [&](const ProcessResult &last) {
            ++ended;
            result = last;
        };
        const Pipeline slow;
        followProcess(slow.call, 1000, this, keep);
        QTRY_COMPARE(ended, 1);
        QVERIFY(slow.hasBegun() && slow.isGone() && result.crashed()
                && result.errorOutput.startsWith("sh: "_s));
        const Pipeline unwanted;
        auto context = std::make_unique<QObject>();
        followProcess(unwanted.call, NoLimit, context.get(), keep);
        QTRY_VERIFY(unwanted.hasBegun());
        context.reset();
        QVERIFY(unwanted.isGone() && findChildren<QProcess *>().isEmpty());
        QCOMPARE(ended, 1);
    }

    void surroundings()
    {
        const QTemporaryDir folder;
        const ScopedVariable language("LANGUAGE", "de"_s);
        ProcessCall call = shell("printf '%s|%s|%s|%s' \"$LC_ALL$LANGUAGE\" \"$A\" \"$PWD\" $(umask)");
        call.workingDirectory = folder.path();
        call.environment = "A=b=c"_list;
        for (const int mask : {0022, 0077}) {
            call.umask = mask;
            QCOMPARE(runProcess(call).output,
                     "C.UTF-8|b=c|%1|00%2"_s.arg(folder.path(), QString::number(mask, 8)));
        }
    }
};

VELT_TEST_MAIN(TestProcessUtils, QCoreApplication)
#include "tst_processutils.moc"
