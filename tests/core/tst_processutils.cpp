// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "support/literals.h"
#include "support/scopedvariable.h"
#include "support/testenvironment.h"

#include <QTemporaryDir>
#include <QtTest>

namespace
{
ProcessCall shell(const char *script)
{
    return {"sh"_s, {"-c"_s, QString::fromUtf8(script)}, {}, {}, -1};
}
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
        QCOMPARE(both.output, QString(2000000, QLatin1Char('o')));
        QCOMPARE(both.errorOutput, QString(2000000, QLatin1Char('e')));
        const QStringList words{"two words"_s, "$HOME;`id`"_s, "\"'\\"_s, QString(), "%1"_s, "пакет"_s};
        const ProcessResult result = runProcess({"printf"_s, QStringList{"%s\\n"_s} + words, {}, {}, -1});
        QCOMPARE(result.output, words.join(QLatin1Char('\n')) + QLatin1Char('\n'));
        // Nobody answers a prompt.
        QCOMPARE(runProcess(shell("read line; echo \"got $line\"")).output, "got \n"_s);
    }

    void stopEndsThePipelineToo()
    {
        const QTemporaryDir folder;
        ProcessCall call = shell("(sleep 60; echo late >late) | cat");
        call.workingDirectory = folder.path();
        int asked = 0;
        call.stopped = [&asked] { return ++asked == 3; };
        QElapsedTimer clock;
        clock.start();
        // The shell waits for the whole pipeline, and the pipe stays open as long as one part of it lives.
        QVERIFY(runProcess(call).crashed());
        QVERIFY2(clock.elapsed() < 30000, "the rest of the pipeline went on");
        // So does too much output, and no file grows beyond its limit.
        call = shell("yes & yes; touch late");
        call.workingDirectory = folder.path();
        call.outputLimit = 1 << 20;
        const ProcessResult flood = runProcess(call);
        QVERIFY(flood.tooLarge && !flood.succeeded() && flood.output.size() < 20 << 20);
        call = shell("head -c 100000 /dev/zero >late");
        call.workingDirectory = folder.path();
        call.fileLimit = 4096;
        QVERIFY(!runProcess(call).succeeded());
        QCOMPARE(readFile(folder.filePath("late"_s)).size(), 4096);
        call.stopped = [] { return false; };
        call.arguments = QStringList{"-c"_s, "sleep 0.2; exit 5"_s};
        QCOMPARE(runProcess(call).exitCode, 5);
    }

    void followingToTheEnd()
    {
        constexpr int NoLimit = 60000;
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

        // What is killed takes along what it has started.
        const QTemporaryDir folder;
        ProcessCall call = shell("touch begun; (sleep 3; touch late) | cat");
        call.workingDirectory = folder.path();
        const QString begun = folder.filePath("begun"_s);
        followProcess(call, 200, this, keep);
        QTRY_COMPARE(results.size(), 3);
        QVERIFY(QFile::remove(begun) && results.last().crashed()
                && results.last().errorOutput.startsWith("sh: "_s));
        auto context = std::make_unique<QObject>();
        followProcess(call, NoLimit, context.get(), keep);
        QTRY_VERIFY(QFile::exists(begun));
        context.reset();
        QTest::qWait(3500);
        QVERIFY(!QFile::exists(folder.filePath("late"_s)));
        QCOMPARE(results.size(), 3);
        QCOMPARE(findChildren<QProcess *>().size(), 0);
    }

    void surroundings()
    {
        const QTemporaryDir folder;
        const ScopedVariable language("LANGUAGE", "de"_s);
        ProcessCall call = shell("printf '%s|%s|%s|%s' \"$LC_ALL$LANGUAGE\" \"$A\" \"$PWD\" $(umask)");
        call.workingDirectory = folder.path();
        call.environment = QStringList{"A=b=c"_s};
        for (const int mask : {0022, 0077}) {
            call.umask = mask;
            QCOMPARE(runProcess(call).output,
                     "C.UTF-8|b=c|%1|00%2"_s.arg(folder.path(), QString::number(mask, 8)));
        }
    }
};

VELT_TEST_MAIN(TestProcessUtils, QCoreApplication)
#include "tst_processutils.moc"
