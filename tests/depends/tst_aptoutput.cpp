// SPDX-License-Identifier: GPL-3.0-or-later
#include "depends/aptoutput.h"
#include "depends/dpkgoutput.h"
#include "support/testenvironment.h"

#include <QtTest>

namespace
{
QString captured(const char *file)
{
    const QString path = QStringLiteral(VELT_TEST_DATA "/") + QLatin1String(file);
    const QByteArray text = readFile(path);
    if (text.isEmpty())
        qFatal("%s is missing or empty", qPrintable(path));
    return QString::fromUtf8(text);
}

const QString One = QStringLiteral("file:/tmp/sample/one dogwood amd64");
const QString Two = QStringLiteral("file:/tmp/sample/two dogwood amd64");

/** Records as "name version architecture | origin". */
QStringList printed(const QVector<AptPackageRecord> &records)
{
    QStringList lines;
    for (const AptPackageRecord &record : records)
        lines.append(record.name + QLatin1Char(' ') + record.version + QLatin1Char(' ') + record.architecture
                     + QLatin1String(" | ") + record.repository);
    return lines;
}
} // namespace

class TestAptOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void policyGivesSourceLines()
    {
        const QString policy = captured("apt-2.6.2/policy.txt");
        QCOMPARE(AptOutput::sourceLines(policy),
                 (QStringList{QStringLiteral("file:/tmp/sample/two dogwood main"),
                              QStringLiteral("file:/tmp/sample/one dogwood contrib main")}));
        QCOMPARE(AptOutput::sourceLines(policy, SourceGrouping::BySuiteAndArchitecture),
                 (QStringList{QStringLiteral("[arch=amd64] file:/tmp/sample/two dogwood main"),
                              QStringLiteral("[arch=amd64] file:/tmp/sample/one dogwood contrib main"),
                              QStringLiteral("[arch=i386] file:/tmp/sample/one dogwood main")}));
    }

    void policyLines_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("source");
        QTest::newRow("suite with a slash")
            << " 500 https://mirror.example.org/debian dogwood/updates/main amd64 Packages"
            << "https://mirror.example.org/debian dogwood/updates main";
        QTest::newRow("unknown scheme") << " 500 copy:/srv/r dogwood/main amd64 Packages"
                                        << "";
        QTest::newRow("translation") << " 500 http://h/r dogwood/main Translation-en"
                                     << "";
    }

    void policyLines()
    {
        QFETCH(QString, line);
        QFETCH(QString, source);
        QCOMPARE(AptOutput::sourceLines(line).join(QLatin1Char('+')), source);
    }

    void versionsKeepTheirOrigins()
    {
        // 0.9 is installed and in no source; 1.0-1 is in both sources with different contents.
        const QMap<QString, QStringList> expected{{QStringLiteral("0.9"), {}},
                                                  {QStringLiteral("1.0-1"), {One, Two}},
                                                  {QStringLiteral("1.5"), {Two}},
                                                  {QStringLiteral("1:2.0-1"), {One}}};
        QCOMPARE(AptOutput::versions(captured("apt-2.6.2/show-versions.txt")), expected);
        QVERIFY(AptOutput::versions(captured("apt-2.6.2/show-virtual.txt")).isEmpty());
        QVERIFY(AptOutput::versions(QString()).isEmpty());
    }

    void recordWithoutSourcesTakesNoneOfItsNeighbours()
    {
        const QString show
            = QStringLiteral("Package: a\nVersion: 3\nAPT-Sources: http://h/r s/main amd64 Packages\n\n"
                             "Package: a\nVersion: 2\n\n"
                             "Package: a\nVersion: 1\nAPT-Sources: http://h/q s/main amd64 Packages\n");
        const QMap<QString, QStringList> expected{
            {QStringLiteral("3"), {QStringLiteral("http://h/r s amd64")}},
            {QStringLiteral("2"), {}},
            {QStringLiteral("1"), {QStringLiteral("http://h/q s amd64")}}};
        QCOMPARE(AptOutput::versions(show), expected);
        // Nor does it when nothing separates the records.
        QString dense = show;
        dense.replace(QStringLiteral("\n\n"), QStringLiteral("\n"));
        QCOMPARE(AptOutput::versions(dense), expected);
        QCOMPARE(AptOutput::records(show).size(), 2);
    }

    void severalSourcesOfOneRecord()
    {
        const QString show = QStringLiteral("Package: a\nVersion: 1\n"
                                            "APT-Sources: http://h/r s/main amd64 Packages\n"
                                            " http://h/q s/main amd64 Packages\n"
                                            " http://h/q s/contrib amd64 Packages\n"
                                            "Description: x\n http://h/no s/main amd64 Packages\n");
        const QStringList origins{QStringLiteral("http://h/r s amd64"), QStringLiteral("http://h/q s amd64")};
        QCOMPARE(AptOutput::versions(show).value(QStringLiteral("1")), origins);
        QCOMPARE(printed(AptOutput::records(show)),
                 (QStringList{QStringLiteral("a 1 amd64 | ") + origins.at(0),
                              QStringLiteral("a 1 amd64 | ") + origins.at(1)}));
    }

    void recordsAreOnePerVersionAndOrigin()
    {
        QCOMPARE(printed(AptOutput::records(captured("apt-2.6.2/show-versions.txt"))),
                 (QStringList{QStringLiteral("foo 1:2.0-1 amd64 | ") + One,
                              QStringLiteral("foo 1.5 amd64 | ") + Two,
                              QStringLiteral("foo 1.0-1 amd64 | ") + One,
                              QStringLiteral("foo 1.0-1 amd64 | ") + Two}));
        QCOMPARE(printed(AptOutput::records(captured("apt-2.6.2/show-foreign.txt"))),
                 QStringList{QStringLiteral("foo 1.0-1 i386 | file:/tmp/sample/one dogwood i386")});
    }

    void providers_data()
    {
        QTest::addColumn<QString>("showpkg");
        QTest::addColumn<QStringList>("names");
        QTest::newRow("two versions of one provider")
            << captured("apt-2.6.2/showpkg-virtual.txt")
            << QStringList{QStringLiteral("foot"), QStringLiteral("food")};
        QTest::newRow("real package") << captured("apt-2.6.2/showpkg-real.txt") << QStringList();
        QTest::newRow("only below the heading")
            << "above 1 (= )\nReverse Provides: \nb+x 2 (= 1)\nUpper 1 (= )\n indented 1 (= )\n"
            << QStringList{QStringLiteral("b+x")};
        QTest::newRow("no heading") << "Package: x\nsome 1 (= )\nother 2 (= )\n"
                                    << QStringList{QStringLiteral("some"), QStringLiteral("other")};
        QTest::newRow("unknown name") << "" << QStringList();
    }

    void providers()
    {
        QFETCH(QString, showpkg);
        QFETCH(QStringList, names);
        QCOMPARE(AptOutput::providers(showpkg), names);
    }

    void fieldsAreWholeNamesAtTheStartOfALine()
    {
        const QStringList lines{QStringLiteral("Version:  1:2 "),
                                QStringLiteral(" Version: continuation"),
                                QStringLiteral("Versions: other"),
                                QStringLiteral("X-Version: other"),
                                QStringLiteral("Version:3 Version:")};
        QCOMPARE(AptOutput::fieldValues(lines, QStringLiteral("Version")),
                 (QStringList{QStringLiteral("1:2"), QStringLiteral("3 Version:")}));
    }

    void packageInformation()
    {
        const auto package = DpkgOutput::packageInfo(captured("dpkg-1.21.23/information.txt"));
        QVERIFY(package.has_value());
        QCOMPARE(package->name, QStringLiteral("conf-demo"));
        QCOMPARE(package->version, QStringLiteral("1:2.3-4~rc1"));
        QCOMPARE(package->architecture, QStringLiteral("all"));
        QCOMPARE(package->component, QStringLiteral("non-free"));
        QCOMPARE(package->section, QStringLiteral("admin"));
        QCOMPARE(package->maintainer(), QStringLiteral("Жанна Д <j@example.org>"));
        // One blank before each continuation line, and the last of them is no line about the archive.
        QCOMPARE(package->description(),
                 QStringLiteral("configuration files and scripts — demo\n First paragraph.\n .\n"
                                " Version: 9.9 is no field\n  * indented item\n\tand a tab\n"
                                "    12 bytes,     1 lines      control"));
        QVERIFY(package->control.text().substr(0, 9) == "Package: ");
        QVERIFY(package->type == PackageType::Deb);
    }

    void udebInformation()
    {
        const auto package = DpkgOutput::packageInfo(captured("dpkg-1.21.23/udeb.txt"), PackageType::Udeb);
        QVERIFY(package.has_value());
        QVERIFY(package->type == PackageType::Udeb);
        QCOMPARE(package->component, QStringLiteral("main"));
        QCOMPARE(package->section, QStringLiteral("misc"));
        QCOMPARE(package->description(), QStringLiteral("installer part"));
    }

    void incompleteInformation_data()
    {
        QTest::addColumn<QString>("information");
        const QString complete = captured("dpkg-1.21.23/information.txt");
        for (const char *field : {"Package", "Version", "Architecture"}) {
            QString without = complete;
            without.remove(QRegularExpression(QStringLiteral("\n %1: .*").arg(QLatin1String(field))));
            QTest::newRow(field) << without;
        }
        QTest::newRow("nothing") << QString();
        QTest::newRow("fields out of a file name") << captured("dpkg-1.21.23/member-name-with-newline.txt");
    }

    void incompleteInformation()
    {
        QFETCH(QString, information);
        QVERIFY(!DpkgOutput::packageInfo(information).has_value());
    }
};

VELT_TEST_MAIN(TestAptOutput, QCoreApplication)
#include "tst_aptoutput.moc"
