// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "support/literals.h"
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
    void endings_data();
    void endings();
    void bothChannelsInFull();
    void argumentsArriveAsTheyAre();
    void surroundings();
    void nobodyAnswersAPrompt();
    void lastRunOnly();
};

void TestProcessUtils::endings_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("success");
    QTest::addColumn<bool>("crashed");
    QTest::addColumn<bool>("started");
    QTest::addColumn<int>("code");
    const QString sh = "sh"_s;
    QTest::newRow("well") << sh << "exit 0"_s << true << false << true << 0;
    QTest::newRow("failed") << sh << "exit 7"_s << false << false << true << 7;
    QTest::newRow("crashed") << sh << "kill -SEGV $$"_s << false << true << true << 11;
    QTest::newRow("missing") << "/no/such/program"_s << QString() << false << false << false << -1;
}

void TestProcessUtils::endings()
{
    QFETCH(QString, program);
    QFETCH(QString, script);
    const ProcessResult result = runProcess({program, {"-c"_s, script}, {}, {}, -1});
    QTEST(result.succeeded(), "success");
    QTEST(result.crashed(), "crashed");
    QTEST(result.started, "started");
    QTEST(result.exitCode, "code");
    QVERIFY2(result.started || result.errorOutput.contains(program), "who could not be started is said");
    ProcessUtils utils;
    QTEST(utils.run(program, {"-c"_s, script}), "success");
}

void TestProcessUtils::bothChannelsInFull()
{
    const ProcessResult result
        = runProcess(shell("i=0; while [ $i -lt 20 ]; do head -c 100000 /dev/zero | tr '\\0' o; "
                           "head -c 100000 /dev/zero | tr '\\0' e >&2; i=$((i+1)); done"));
    QCOMPARE(result.output, QString(2000000, QLatin1Char('o')));
    QCOMPARE(result.errorOutput, QString(2000000, QLatin1Char('e')));
}

void TestProcessUtils::argumentsArriveAsTheyAre()
{
    const QStringList words{"two words"_s, "$HOME;`id`"_s, "\"'\\"_s, QString(), "%1"_s, "пакет"_s};
    const ProcessResult result = runProcess({"printf"_s, QStringList{"%s\\n"_s} + words, {}, {}, -1});
    QCOMPARE(result.output, words.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void TestProcessUtils::surroundings()
{
    const QTemporaryDir folder;
    ProcessCall call = shell("printf '%s|%s|%s|%s' \"$LC_ALL\" \"$A\" \"$PWD\" $(umask)");
    call.workingDirectory = folder.path();
    call.environment = QStringList{"A=b=c"_s};
    call.umask = 0022;
    QCOMPARE(runProcess(call).output, "C.UTF-8|b=c|%1|0022"_s.arg(folder.path()));
    call.umask = 0077;
    QVERIFY(runProcess(call).output.endsWith("0077"_s));
}

void TestProcessUtils::nobodyAnswersAPrompt()
{
    QCOMPARE(runProcess(shell("read line; echo \"got $line\"")).output, "got \n"_s);
}

void TestProcessUtils::lastRunOnly()
{
    ProcessUtils utils;
    utils.run("sh"_s, {"-c"_s, "echo o; echo e >&2; exit 3"_s});
    QCOMPARE(utils.output(), "o\n"_s);
    QCOMPARE(utils.errorOutput(), "e\n"_s);
    QCOMPARE(utils.exitCode(), 3);
    utils.run("true"_s, {});
    QCOMPARE(utils.output() + utils.errorOutput(), QString());
    QCOMPARE(utils.exitCode(), 0);
    QCOMPARE(utils.exitStatus(), int(QProcess::NormalExit));
}

VELT_TEST_MAIN(TestProcessUtils, QCoreApplication)
#include "tst_processutils.moc"
