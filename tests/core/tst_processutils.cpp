// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/processutils.h"
#include "support/testenvironment.h"

#include <QTemporaryDir>
#include <QtTest>

namespace
{
ProcessCall shell(const char *script)
{
    return {QStringLiteral("sh"), {QStringLiteral("-c"), QString::fromUtf8(script)}, {}, {}, -1};
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
    const QString sh = QStringLiteral("sh");
    QTest::newRow("well") << sh << QStringLiteral("exit 0") << true << false << true << 0;
    QTest::newRow("failed") << sh << QStringLiteral("exit 7") << false << false << true << 7;
    QTest::newRow("crashed") << sh << QStringLiteral("kill -SEGV $$") << false << true << true << 11;
    QTest::newRow("missing") << QStringLiteral("/no/such/program") << QString() << false << false << false
                             << -1;
}

void TestProcessUtils::endings()
{
    QFETCH(QString, program);
    QFETCH(QString, script);
    const ProcessResult result = runProcess({program, {QStringLiteral("-c"), script}, {}, {}, -1});
    QTEST(result.succeeded(), "success");
    QTEST(result.crashed(), "crashed");
    QTEST(result.started, "started");
    QTEST(result.exitCode, "code");
    QVERIFY2(result.started || result.errorOutput.contains(program), "who could not be started is said");
    ProcessUtils utils;
    QTEST(utils.run(program, {QStringLiteral("-c"), script}), "success");
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
    const QStringList words{QStringLiteral("two words"),
                            QStringLiteral("$HOME;`id`"),
                            QStringLiteral("\"'\\"),
                            QString(),
                            QStringLiteral("%1"),
                            QString::fromUtf8("пакет")};
    const ProcessResult result
        = runProcess({QStringLiteral("printf"), QStringList{QStringLiteral("%s\\n")} + words, {}, {}, -1});
    QCOMPARE(result.output, words.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void TestProcessUtils::surroundings()
{
    const QTemporaryDir folder;
    ProcessCall call = shell("printf '%s|%s|%s|%s' \"$LC_ALL\" \"$A\" \"$PWD\" $(umask)");
    call.workingDirectory = folder.path();
    call.environment = QStringList{QStringLiteral("A=b=c")};
    call.umask = 0022;
    QCOMPARE(runProcess(call).output, QStringLiteral("C.UTF-8|b=c|%1|0022").arg(folder.path()));
    call.umask = 0077;
    QVERIFY(runProcess(call).output.endsWith(QLatin1String("0077")));
}

void TestProcessUtils::nobodyAnswersAPrompt()
{
    QCOMPARE(runProcess(shell("read line; echo \"got $line\"")).output, QStringLiteral("got \n"));
}

void TestProcessUtils::lastRunOnly()
{
    ProcessUtils utils;
    utils.run(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("echo o; echo e >&2; exit 3")});
    QCOMPARE(utils.output(), QStringLiteral("o\n"));
    QCOMPARE(utils.errorOutput(), QStringLiteral("e\n"));
    QCOMPARE(utils.exitCode(), 3);
    utils.run(QStringLiteral("true"), {});
    QCOMPARE(utils.output() + utils.errorOutput(), QString());
    QCOMPARE(utils.exitCode(), 0);
    QCOMPARE(utils.exitStatus(), int(QProcess::NormalExit));
}

VELT_TEST_MAIN(TestProcessUtils, QCoreApplication)
#include "tst_processutils.moc"
