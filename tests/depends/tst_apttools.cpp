// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/aptutils.h"
#include "depends/dpkgoutput.h"
#include "depends/dpkgutils.h"
#include "support/debbuilder.h"
#include "support/testenvironment.h"

#include <QtTest>

namespace
{
/** Puts another value into an environment variable for as long as it lives. */
class ScopedVariable
{
public:
    ScopedVariable(const char *name, const QByteArray &value)
        : m_name(name)
        , m_before(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ScopedVariable() { qputenv(m_name, m_before); }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

/** apt's own order depends on where the index files lie. */
QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/** Runs a tool that has to succeed. */
QByteArray runTool(const QString &program, const QStringList &arguments, const QString &folder)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(program, arguments);
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}
} // namespace

/** Real apt over local sources, with configuration, state and cache of its own. */
class TestAptTools : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_root;
    QStringList m_errors;

    QString path(const QString &name) const { return m_root.filePath(name); }

    QString source(const QString &name) const
    {
        return QStringLiteral("file:%1 dogwood main").arg(path(name));
    }

    QString origin(const QString &name) const
    {
        return QStringLiteral("file:%1 dogwood amd64").arg(path(name));
    }

    void makeIndex(const QString &name) const
    {
        const QByteArray packages = runTool(
            QStringLiteral("dpkg-scanpackages"), {QStringLiteral("-m"), QStringLiteral("pool")}, path(name));
        writeFile(path(name) + QLatin1String("/dists/dogwood/main/binary-amd64/Packages"), packages);
        writeFile(path(name) + QLatin1String("/dists/dogwood/Release"),
                  "Origin: " + name.toUtf8()
                      + "\nSuite: dogwood\nCodename: dogwood\nArchitectures: amd64\nComponents: main\n"
                        "Date: Sat, 21 Nov 2026 08:00:00 +0000\nSHA256:\n "
                      + QCryptographicHash::hash(packages, QCryptographicHash::Sha256).toHex() + ' '
                      + QByteArray::number(packages.size()) + " main/binary-amd64/Packages\n");
    }

    void listenTo(AptUtils &apt)
    {
        m_errors.clear();
        connect(&apt, &ProcessUtils::error, this, [this](const QString &text, const QString &detail) {
            m_errors.append(text + QLatin1String(": ") + detail);
        });
    }

private Q_SLOTS:
    void initTestCase()
    {
        VELT_NEED_TOOL("apt");
        VELT_NEED_TOOL("dpkg-scanpackages");
        const QString one = path(QStringLiteral("one/pool"));
        const QString two = path(QStringLiteral("two/pool"));
        const auto foo = [](const char *version, const char *depends) {
            return DebBuilder(QStringLiteral("foo"))
                .version(QLatin1String(version))
                .field(QStringLiteral("Depends"), QLatin1String(depends));
        };
        foo("1.0-1", "").build(one);
        foo("1:2.0-1", "").build(one);
        // apt tells equal versions apart by their dependencies, not by their files.
        foo("1.0-1", "food").build(two);
        foo("1.5", "").build(two);
        DebBuilder(QStringLiteral("food"))
            .version(QStringLiteral("1:3-1"))
            .architecture(QStringLiteral("all"))
            .field(QStringLiteral("Provides"), QStringLiteral("meal"))
            .build(one);
        for (const char *version : {"1", "2"})
            DebBuilder(QStringLiteral("g++-x.y"))
                .version(QLatin1String(version))
                .field(QStringLiteral("Provides"), QStringLiteral("meal"))
                .build(two);
        DebBuilder(QStringLiteral("g++-x-y")).build(two);
        makeIndex(QStringLiteral("one"));
        makeIndex(QStringLiteral("two"));

        for (const char *folder : {"etc/apt.conf.d",
                                   "etc/sources.list.d",
                                   "etc/preferences.d",
                                   "etc/trusted.gpg.d",
                                   "lists/partial",
                                   "cache/archives/partial",
                                   "log"})
            QDir(m_root.path()).mkpath(QLatin1String(folder));
        writeFile(path(QStringLiteral("status")),
                  "Package: foo\nStatus: install ok installed\nVersion: 0.9\nArchitecture: amd64\n"
                  "Maintainer: T <t@example.org>\nDescription: installed\n\n");
        QByteArray list;
        for (const char *name : {"one", "two"})
            list += "deb [trusted=yes arch=amd64] " + source(QLatin1String(name)).toUtf8() + '\n';
        writeFile(path(QStringLiteral("etc/sources.list")), list);
        QString config
            = QStringLiteral(
                  "Dir::Etc \"%1/etc\"; Dir::Etc::Parts \"%1/etc/apt.conf.d\";\n"
                  "Dir::State \"%1\"; Dir::State::lists \"%1/lists\"; Dir::State::status \"%1/status\";\n"
                  "Dir::Cache \"%1/cache\"; Dir::Log \"%1/log\";\n"
                  "APT::Sandbox::User \"\"; APT::Architecture \"amd64\";\n")
                  .arg(m_root.path());
        writeFile(path(QStringLiteral("apt.conf")), config.toUtf8());
        qputenv("APT_CONFIG", path(QStringLiteral("apt.conf")).toLocal8Bit());
        runTool(QStringLiteral("apt-get"), {QStringLiteral("update")}, m_root.path());
    }

    void policy()
    {
        AptUtils apt;
        QCOMPARE(sorted(apt.sourcesFromPolicy()),
                 (QStringList{source(QStringLiteral("one")), source(QStringLiteral("two"))}));
    }

    void versionsAndRecords()
    {
        AptUtils apt;
        const QString one = origin(QStringLiteral("one"));
        const QString two = origin(QStringLiteral("two"));
        const auto versions = apt.packageVersions(QStringLiteral("foo"), QStringLiteral("amd64"));
        QCOMPARE(versions.keys(),
                 (QStringList{QStringLiteral("0.9"),
                              QStringLiteral("1.0-1"),
                              QStringLiteral("1.5"),
                              QStringLiteral("1:2.0-1")}));
        QCOMPARE(versions.value(QStringLiteral("0.9")), QStringList());
        QCOMPARE(sorted(versions.value(QStringLiteral("1.0-1"))), sorted({one, two}));
        QCOMPARE(versions.value(QStringLiteral("1:2.0-1")), QStringList{one});

        // For every architecture, and listed under the one whose index holds it.
        QCOMPARE(apt.packageVersions(QStringLiteral("food"), QStringLiteral("amd64")).keys(),
                 QStringList{QStringLiteral("1:3-1")});
        const auto records = apt.packageRecords(QStringLiteral("food"));
        QCOMPARE(records.size(), 1);
        QCOMPARE(records.first().name, QStringLiteral("food"));
        QCOMPARE(records.first().architecture, QStringLiteral("amd64"));
        QCOMPARE(records.first().repository, one);
        QCOMPARE(apt.packageRecords(QStringLiteral("foo")).size(), 4);
    }

    void unknownNames()
    {
        AptUtils apt;
        listenTo(apt);
        QVERIFY(apt.packageVersions(QStringLiteral("nosuch"), QStringLiteral("amd64")).isEmpty());
        QVERIFY(apt.packageRecords(QStringLiteral("nosuch")).isEmpty());
        QCOMPARE(m_errors.size(), 2);
        QVERIFY2(m_errors.first().startsWith(QLatin1String("Apt error: "))
                     && m_errors.first().contains(QLatin1String("No packages found")),
                 qPrintable(m_errors.first()));
        // These two are answers, not failures.
        QVERIFY(apt.providers(QStringLiteral("nosuch")).isEmpty());
        QVERIFY(apt.packageRecords(QStringLiteral("meal")).isEmpty());
        QCOMPARE(m_errors.size(), 2);
    }

    void providers()
    {
        QCOMPARE(sorted(AptUtils().providers(QStringLiteral("meal"))),
                 (QStringList{QStringLiteral("food"), QStringLiteral("g++-x.y")}));
    }

    void searchByPrefix()
    {
        AptUtils apt;
        listenTo(apt);
        QCOMPARE(apt.searchByPrefix(QStringLiteral("foo")),
                 (QStringList{QStringLiteral("foo"), QStringLiteral("food")}));
        // A dot is a dot, and plus signs are no repetition.
        QCOMPARE(apt.searchByPrefix(QStringLiteral("g++-x.")), QStringList{QStringLiteral("g++-x.y")});
        QCOMPARE(apt.searchByPrefix(QStringLiteral("ood")), QStringList());
        QCOMPARE(m_errors, QStringList());
    }

    void privateList()
    {
        AptUtils apt;
        listenTo(apt);
        QVERIFY(apt.setPrivateSources({source(QStringLiteral("two"))}));
        QCOMPARE(apt.packageVersions(QStringLiteral("foo"), QStringLiteral("amd64")).keys(),
                 (QStringList{QStringLiteral("0.9"), QStringLiteral("1.0-1"), QStringLiteral("1.5")}));
        QCOMPARE(apt.providers(QStringLiteral("meal")), QStringList{QStringLiteral("g++-x.y")});
        QCOMPARE(apt.sourcesFromPolicy(), QStringList{source(QStringLiteral("two"))});
        QCOMPARE(m_errors, QStringList());
        QVERIFY(apt.setPrivateSources({QStringLiteral("no source at all")}));
        QVERIFY(apt.packageRecords(QStringLiteral("foo")).isEmpty());
        QCOMPARE(m_errors.size(), 1);
        QVERIFY2(m_errors.first().contains(QLatin1String("Malformed entry 1")), qPrintable(m_errors.first()));
    }

    void download()
    {
        const QString target = path(QStringLiteral("target folder"));
        QDir().mkpath(target);
        AptUtils apt;
        listenTo(apt);
        const QString amd64 = QStringLiteral("amd64");
        // Older files of like names lie there already.
        writeFile(target + QLatin1String("/a-foo_1%3a2.0-1_amd64.deb"), "x");
        const QString foo = apt.download(QStringLiteral("foo"), QStringLiteral("1:2.0-1"), amd64, target);
        QCOMPARE(foo, target + QLatin1String("/foo_1%3a2.0-1_amd64.deb"));
        QCOMPARE(readFile(foo), readFile(path(QStringLiteral("one/pool/foo_2.0-1_amd64.deb"))));
        QCOMPARE(apt.download(QStringLiteral("food"), QStringLiteral("1:3-1"), amd64, target),
                 target + QLatin1String("/food_1%3a3-1_all.deb"));
        QCOMPARE(m_errors, QStringList());

        QCOMPARE(apt.download(QStringLiteral("foo"), QStringLiteral("9"), amd64, target), QString());
        QCOMPARE(
            apt.download(QStringLiteral("foo"), QStringLiteral("1.5"), amd64, path(QStringLiteral("no"))),
            QString());
        QCOMPARE(m_errors.size(), 2);
        for (const QString &text : qAsConst(m_errors))
            QVERIFY(text.startsWith(QLatin1String("Apt: download package foo error: ")));
    }

    void dpkgComparisons_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("op");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("holds");
        QTest::newRow("<<") << "1.0"
                            << "<<"
                            << "1.0" << false;
        QTest::newRow("<=") << "1.0"
                            << "<="
                            << "1.0" << true;
        QTest::newRow("<") << "1.0"
                           << "<"
                           << "1.0" << true;
        QTest::newRow("=") << "1.0"
                           << "="
                           << "1.00" << true;
        QTest::newRow(">=") << "1.0"
                            << ">="
                            << "1.0" << true;
        QTest::newRow(">") << "1.0"
                           << ">"
                           << "1.0" << true;
        QTest::newRow(">>") << "1.0"
                            << ">>"
                            << "1.0" << false;
        QTest::newRow("tilde") << "1.0~rc1"
                               << "<<"
                               << "1.0" << true;
        QTest::newRow("epoch") << "1:0.1"
                               << "gt"
                               << "9" << true;
        QTest::newRow("none is lowest") << ""
                                        << "lt"
                                        << "0~" << true;
    }

    void dpkgComparisons()
    {
        QFETCH(QString, a);
        QFETCH(QString, op);
        QFETCH(QString, b);
        DpkgUtils dpkg;
        QTEST(dpkg.compareVersions(a, op, b), "holds");
    }

    void dpkgInformation()
    {
        const QString file = DebBuilder(QStringLiteral("info"))
                                 .version(QStringLiteral("1:4-2"))
                                 .field(QStringLiteral("Section"), QStringLiteral("contrib/net"))
                                 .field(QStringLiteral("Depends"), QStringLiteral("libc6 (>= 2.17), b:any"))
                                 .build(path(QStringLiteral("мой %1 repo")));
        DpkgUtils dpkg;
        QVERIFY2(dpkg.packageInformation(file), qPrintable(dpkg.errorText()));
        const auto package = DpkgOutput::packageInfo(dpkg.output());
        QVERIFY(package.has_value());
        QCOMPARE(package->version, QStringLiteral("1:4-2"));
        QCOMPARE(package->component, QStringLiteral("contrib"));
        QCOMPARE(package->depends(), (QStringList{QStringLiteral("libc6 (>= 2.17)"), QStringLiteral("b")}));
    }

    void dpkgFailuresAreToldApart()
    {
        DpkgUtils dpkg;
        const auto holds = [&dpkg](const char *op) {
            return dpkg.compareVersions(QStringLiteral("1"), QLatin1String(op), QStringLiteral("2"));
        };
        // A relation that does not hold is no error, a relation that dpkg does not know is one.
        QVERIFY(!holds(">>"));
        QCOMPARE(dpkg.errorText(), QString());
        QVERIFY(!holds("like"));
        QVERIFY2(dpkg.errorText().contains(QLatin1String("bad relation")), qPrintable(dpkg.errorText()));
        QVERIFY(!dpkg.packageInformation(path(QStringLiteral("nosuch.deb"))));
        QVERIFY2(dpkg.errorText().contains(QLatin1String("No such file")), qPrintable(dpkg.errorText()));
        QVERIFY(holds("<<"));
        QCOMPARE(dpkg.errorText(), QString());

        writeScript(path(QStringLiteral("bin/dpkg")), "#!/bin/sh\necho half a word >&2\nkill -SEGV $$\n");
        {
            const ScopedVariable only("PATH", path(QStringLiteral("bin")).toLocal8Bit());
            QVERIFY(!holds("<<"));
            QCOMPARE(dpkg.errorText(), QStringLiteral("The process dpkg crashed!"));
        }
        {
            const ScopedVariable none("PATH", path(QStringLiteral("lists")).toLocal8Bit());
            QVERIFY(!holds("<<"));
            QVERIFY2(dpkg.errorText().startsWith(QLatin1String("dpkg: ")), qPrintable(dpkg.errorText()));
        }
        QVERIFY(holds("<<"));
        QCOMPARE(dpkg.errorText(), QString());
    }
};

VELT_TEST_MAIN(TestAptTools, QCoreApplication)
#include "tst_apttools.moc"
