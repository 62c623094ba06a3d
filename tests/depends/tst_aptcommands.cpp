// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/aptcommands.h"
#include "depends/aptutils.h"
#include "depends/dpkgutils.h"
#include "support/testenvironment.h"

#include <QtTest>

namespace
{
/** Notes what would be run, as "folder> program|argument|…", and fails. */
template <class Tool>
class Recorder : public Tool
{
public:
    bool run(const QString &program, const QStringList &arguments, const QString &workingDirectory) override
    {
        calls.append(workingDirectory + QLatin1String("> ")
                     + (QStringList{program} + arguments).join(QLatin1Char('|')));
        return false;
    }

    QStringList calls;
};

/** Asks everything that apt can be asked. */
void askAll(AptUtils &apt)
{
    apt.sourcesFromPolicy();
    apt.packageVersions(QStringLiteral("foo"), QStringLiteral("i386"));
    apt.packageRecords(QStringLiteral("foo"));
    apt.providers(QStringLiteral("foo"));
    apt.searchByPrefix(QStringLiteral("lib-1.2"));
    apt.download(
        QStringLiteral("foo"), QStringLiteral("1:2-%2"), QStringLiteral("amd64"), QStringLiteral("/target"));
}
} // namespace

class TestAptCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commandLines()
    {
        Recorder<AptUtils> apt;
        QSignalSpy errors(&apt, &ProcessUtils::error);
        askAll(apt);
        const QString here = QDir::currentPath();
        QStringList expected{here + QStringLiteral("> apt-cache|policy"),
                             here + QStringLiteral("> apt|show|foo:i386|-a"),
                             here + QStringLiteral("> apt|show|foo|-a"),
                             QStringLiteral("> apt-cache|showpkg|foo"),
                             here
                                 + QStringLiteral("> bash|-c|apt search lib-1.2 | grep ^lib-1.2  | "
                                                  "cut -d'/' -f1"),
                             QStringLiteral("/target> apt|download|foo:amd64=1:2-%2")};
        QCOMPARE(apt.calls, expected);

        QStringList texts;
        for (const QList<QVariant> &arguments : qAsConst(errors))
            texts.append(arguments.first().toString());
        QCOMPARE(texts,
                 (QStringList{QStringLiteral("Apt error"),
                              QStringLiteral("Apt error"),
                              QStringLiteral("Apt error"),
                              QStringLiteral("apt-cache: error showing package foo info"),
                              QStringLiteral("Apt: download package foo error")}));

        // With a private list the four queries name it at their end; search and download do not.
        QVERIFY(apt.setPrivateSources({QStringLiteral("http://h/r s main")}));
        apt.calls.clear();
        askAll(apt);
        const QString option = QStringLiteral("|-o|Dir::Etc::sourcelist=") + apt.privateSourcesFile();
        for (int i = 0; i < 4; ++i)
            expected[i] += option;
        QCOMPARE(apt.calls, expected);
    }

    void privateListLivesAsLongAsItIsUsed()
    {
        QString second;
        {
            AptUtils apt;
            QVERIFY(apt.setPrivateSources(
                {QStringLiteral("http://h/r s main contrib"), QStringLiteral("ftp://h/%1 t main")}));
            const QString first = apt.privateSourcesFile();
            QVERIFY(first.startsWith(QDir::tempPath() + QLatin1String("/nep-sources.list")));
            QCOMPARE(readFile(first), QByteArray("deb http://h/r s main contrib\ndeb ftp://h/%1 t main\n"));
            QVERIFY(apt.setPrivateSources({}));
            second = apt.privateSourcesFile();
            QVERIFY(second != first && QFile::exists(second) && !QFile::exists(first));

            // A list that cannot be made leaves none, not the one before.
            const QByteArray before = qgetenv("TMPDIR");
            qputenv("TMPDIR", "/proc");
            const bool made = apt.setPrivateSources({QStringLiteral("http://h/r s main")});
            if (before.isNull())
                qunsetenv("TMPDIR");
            else
                qputenv("TMPDIR", before);
            QVERIFY(!made);
            QVERIFY(apt.privateSourcesFile().isEmpty());
            QVERIFY(!QFile::exists(second));
            QVERIFY(apt.setPrivateSources({}));
            second = apt.privateSourcesFile();
        }
        QVERIFY(!QFile::exists(second));
    }

    void onlyNamesReachTheTools_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("name");
        QTest::addColumn<bool>("prefix");
        QTest::newRow("letter") << "a" << true << true;
        QTest::newRow("digit") << "0ad" << true << true;
        QTest::newRow("signs") << "libstdc++-12.x" << true << true;
        QTest::newRow("capital") << "Virt" << true << false;
        QTest::newRow("underscore") << "a_b" << true << false;
        for (const char *bad : {"",
                                "-o",
                                "+a",
                                ".a",
                                "a b",
                                "a;id",
                                "a$(id)",
                                "a`id`",
                                "a|b",
                                "a'b",
                                "a\\b",
                                "a\n",
                                "a\nb",
                                "a*",
                                "?a",
                                "a:i386",
                                "a=1",
                                "a/b",
                                "a%2"})
            QTest::newRow(bad) << bad << false << false;
        QTest::newRow("letter of another script") << QStringLiteral("aж") << false << false;
    }

    void onlyNamesReachTheTools()
    {
        QFETCH(QString, text);
        QFETCH(bool, name);
        QFETCH(bool, prefix);
        Recorder<AptUtils> apt;
        QSignalSpy errors(&apt, &ProcessUtils::error);
        apt.searchByPrefix(text);
        QCOMPARE(apt.calls.size(), prefix ? 1 : 0);
        QCOMPARE(errors.size(), 0);

        apt.calls.clear();
        apt.packageVersions(text, QStringLiteral("amd64"));
        apt.packageRecords(text);
        apt.providers(text);
        apt.download(text, QStringLiteral("1"), QStringLiteral("amd64"), QDir::tempPath());
        QCOMPARE(apt.calls.size(), name ? 4 : 0);
        // Either way each of the four says that it has no answer.
        QCOMPARE(errors.size(), 4);
        QVERIFY(name || errors.last().last().toString().contains(text));
    }

    void onlyArchitecturesReachTheTools()
    {
        Recorder<AptUtils> apt;
        const QStringList bad{QString(), QStringLiteral("*"), QStringLiteral("any=1"), QStringLiteral("-a")};
        for (const QString &architecture : bad) {
            apt.packageVersions(QStringLiteral("foo"), architecture);
            apt.download(QStringLiteral("foo"), QStringLiteral("1"), architecture, QDir::tempPath());
        }
        QCOMPARE(apt.calls, QStringList());
        apt.packageVersions(QStringLiteral("foo"), QStringLiteral("kfreebsd-amd64"));
        QCOMPARE(apt.calls.size(), 1);
    }

    void downloadNames_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("expected");
        QTest::newRow("own architecture") << "foo_1%3a2.0-1_amd64.deb" << true;
        QTest::newRow("all") << "foo_1%3a2.0-1_all.deb" << true;
        QTest::newRow("udeb") << "foo_1%3a2.0-1_amd64.udeb" << true;
        QTest::newRow("no epoch") << "foo_2.0-1_amd64.deb" << false;
        QTest::newRow("longer name") << "libfoo_1%3a2.0-1_amd64.deb" << false;
        QTest::newRow("longer architecture") << "foo_1%3a2.0-1_amd64v2.deb" << false;
        QTest::newRow("other architecture") << "foo_1%3a2.0-1_i386.deb" << false;
        QTest::newRow("longer version") << "foo_1%3a2.0-10_amd64.deb" << false;
    }

    void downloadNames()
    {
        QFETCH(QString, file);
        QFETCH(bool, expected);
        QCOMPARE(AptCommands::isDownloadOf(
                     file, QStringLiteral("foo"), QStringLiteral("1:2.0-1"), QStringLiteral("amd64")),
                 expected);
    }

    void dpkgCommandLines()
    {
        Recorder<DpkgUtils> dpkg;
        dpkg.packageInformation(QStringLiteral("/srv/a %1 b.deb"));
        dpkg.compareVersions(QStringLiteral("1"), QStringLiteral("<<"), QStringLiteral("-x"));
        QCOMPARE(dpkg.calls,
                 (QStringList{QStringLiteral("> dpkg|-I|/srv/a %1 b.deb"),
                              QStringLiteral("> dpkg|--compare-versions|1|<<|-x")}));
        // dpkg would read this one as an option.
        QVERIFY(
            !dpkg.compareVersions(QStringLiteral("--version"), QStringLiteral("<<"), QStringLiteral("1")));
        QCOMPARE(dpkg.calls.size(), 2);
        QVERIFY(dpkg.errorText().contains(QLatin1String("--version")));
    }
};

VELT_TEST_MAIN(TestAptCommands, QCoreApplication)
#include "tst_aptcommands.moc"
