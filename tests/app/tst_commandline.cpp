// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/commandline.h"
#include "support/testenvironment.h"

#include <QDir>
#include <QProcess>
#include <QTest>

class TestCommandLine : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void textOnly();
    void help();
};

void TestCommandLine::textOnly()
{
    const auto asks = [](const char *line) {
        return CommandLine::asksForTextOnly(QString::fromLatin1(line).split(QLatin1Char(' ')));
    };
    for (const char *line : {"-h", "--help", "a.deb --version", "-p -v", "--help-all"})
        QVERIFY2(asks(line), line);
    // A file after the end of the options is a file whatever its name.
    for (const char *line : {"", "a.deb", "-p", "-- --help", "--versions"})
        QVERIFY2(!asks(line), line);
}

void TestCommandLine::help()
{
    QProcess probe;
    probe.start(QStringLiteral(INSTANCE_PROBE), {QStringLiteral("--help")});
    QVERIFY(probe.waitForFinished());
    QCOMPARE(probe.exitCode(), 0);
    const QByteArray text = probe.readAllStandardOutput();
    for (const char *part : {"Velt admin repo tool",
                             "-p, --packages",
                             "List of packages to add to the repository",
                             "-h, --help",
                             "-v, --version",
                             "[files...]"})
        QVERIFY2(text.contains(part), text.constData());

    probe.start(QStringLiteral(INSTANCE_PROBE), {QStringLiteral("--packages=x")});
    QVERIFY(probe.waitForFinished());
    QCOMPARE(probe.exitCode(), 1);
    probe.start(QStringLiteral(INSTANCE_PROBE), {QStringLiteral("--nonsense")});
    QVERIFY(probe.waitForFinished());
    QCOMPARE(probe.exitCode(), 1);
    QVERIFY(probe.readAllStandardError().contains("nonsense"));
}

VELT_TEST_MAIN(TestCommandLine, QCoreApplication)
#include "tst_commandline.moc"
