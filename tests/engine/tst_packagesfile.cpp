// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "engine/packagelisting.h"
#include "engine/packagesfile.h"
#include "support/testenvironment.h"

#include <QtTest>

namespace
{
struct Record
{
    QString name, version, maintainer, description, component, section, filePath;
    QStringList depends;
};

QString word(const QRegularExpression &expression, const QStringList &lines)
{
    for (const QString &line : lines) {
        const auto match = expression.match(line);
        if (match.hasMatch())
            return match.captured(QStringLiteral("word")).trimmed();
    }
    return {};
}

/** The slow reading that the expressions define, line by line; the fast one must give the same. */
QVector<Record> readByExpressions(const QByteArray &text, const QString &component)
{
    QVector<QStringList> records;
    for (const QString &line : QString::fromUtf8(text).split(QLatin1Char('\n'))) {
        if (PackageField::PackageExpression.match(line).hasMatch())
            records.append(QStringList());
        if (!records.isEmpty())
            records.last().append(line);
    }
    QVector<Record> result;
    for (const QStringList &lines : qAsConst(records)) {
        Record record;
        record.name = word(PackageField::PackageExpression, lines);
        record.version = word(PackageField::VersionExpression, lines);
        record.maintainer = word(PackageField::MaintainerExpression, lines);
        record.filePath = word(PackageField::FilenameExpression, lines);
        record.depends = PackageField::dependsEntries(word(PackageField::DependsExpression, lines));
        const auto section
            = PackageField::splitSection(word(PackageField::SectionExpression, lines), component);
        record.component = section.component;
        record.section = section.section;
        bool inDescription = false;
        for (const QString &line : lines) {
            if (inDescription && PackageField::NewFieldLine.match(line).hasMatch())
                break;
            if (inDescription)
                record.description += QLatin1Char('\n') + line;
            if (!inDescription && PackageField::DescriptionExpression.match(line).hasMatch()) {
                inDescription = true;
                record.description = word(PackageField::DescriptionExpression, {line});
            }
        }
        while (record.description.endsWith(QLatin1Char('\n')))
            record.description.chop(1);
        result.append(record);
    }
    return result;
}

const QByteArray Index = R"(Package: foo
Version: 1:1.0-1
Architecture: amd64
Maintainer: Jürgen Ö <j@example.org>
Depends: libc6 (>= 2.28), libfoo:any | libbar, a |   b  (>= 1),  last
Section: non-free/admin
Filename: pool/main/f/foo/foo_1.0-1_amd64.deb
Description: first line
 second line
 .
 not a field: here
lower: case

Package: bar
Package-Type: udeb
Version: 2
Version: 3
Description: ends the record
 with more

Package: baz
Description: in the middle
 of the record
Section: /
Homepage: x
X-Section: y

Maintainer: behind an empty line
Package: last
Version:9
Section:
Description-md5: 123
Depends:
Description:)";
} // namespace

class TestPackagesFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void agreesWithTheExpressions_data();
    void agreesWithTheExpressions();
    void listingLeavesOutWhatTheDescriptionDoesNotName();
    void recordsOutliveTheirIndex();
};

void TestPackagesFile::agreesWithTheExpressions_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("all kinds of records") << Index;
    QTest::newRow("line ends of another system") << QByteArray(Index).replace("\n", "\r\n");
    QTest::newRow("begins within a record") << QByteArray("Version: 1\n\n" + Index);
    QTest::newRow("ends in a newline") << QByteArray(Index + "\n\n\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no record") << QByteArray("Version: 1\n");
}

void TestPackagesFile::agreesWithTheExpressions()
{
    QFETCH(QByteArray, text);
    const bool foreignLineEnds = text.contains('\r');
    const auto expected = readByExpressions(text, QStringLiteral("contrib"));
    const auto bytes = std::make_shared<const QByteArray>(text);
    const auto records
        = parsePackages(bytes,
                        std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size())),
                        {QStringLiteral("contrib"), QStringLiteral("amd64"), PackageType::Deb},
                        QStringLiteral("/r"));
    QCOMPARE(records.size(), expected.size());
    for (int i = 0; i < records.size(); ++i) {
        const PackageInfo &record = *records.at(i);
        QCOMPARE(record.name, expected.at(i).name);
        QCOMPARE(record.version, expected.at(i).version);
        QCOMPARE(record.component, expected.at(i).component);
        QCOMPARE(record.section, expected.at(i).section);
        QCOMPARE(record.maintainer(), expected.at(i).maintainer);
        QCOMPARE(record.depends(), expected.at(i).depends);
        if (!foreignLineEnds)
            QCOMPARE(record.description(), expected.at(i).description);
        QCOMPARE(record.filePath(),
                 expected.at(i).filePath.isEmpty() ? QString()
                                                   : QLatin1String("/r/") + expected.at(i).filePath);
        QCOMPARE(record.architecture, QStringLiteral("amd64"));
    }
    if (text == Index) {
        QCOMPARE(records.size(), 4);
        QCOMPARE(records.at(0)->depends(),
                 (QStringList{QStringLiteral("libc6 (>= 2.28)"),
                              QStringLiteral("libfoo | libbar"),
                              QStringLiteral("a |b(>= 1)"),
                              QStringLiteral(" last")}));
        QCOMPARE(records.at(0)->component, QStringLiteral("non-free"));
        QCOMPARE(records.at(0)->section, QStringLiteral("admin"));
        QCOMPARE(records.at(0)->description(),
                 QStringLiteral("first line\n second line\n .\n not a field: here\nlower: case"));
        QCOMPARE(records.at(1)->version, QStringLiteral("2"));
        QCOMPARE(records.at(2)->component, QStringLiteral("main"));
        QCOMPARE(records.at(3)->section, QStringLiteral("misc"));
        QCOMPARE(records.at(3)->component, QStringLiteral("contrib"));
    }
}

void TestPackagesFile::listingLeavesOutWhatTheDescriptionDoesNotName()
{
    const QTemporaryDir folder;
    const QByteArray record = "Package: p\nVersion: 1\n";
    for (const char *path : {"main/binary-amd64",
                             "main/debian-installer/binary-amd64",
                             "main/binary-i386",
                             "gone/binary-amd64",
                             "main/binary-arm"})
        writeFile(folder.filePath(QStringLiteral("dists/dog/%1/Packages").arg(QLatin1String(path))), record);
    writeFile(folder.filePath(QStringLiteral("dists/dog/main/binary-amd64/Packages.gz")), record);
    writeFile(folder.filePath(QStringLiteral("dists/dog/main/binary-armhf/Packages")), QByteArray());
    RepoInfo info;
    info.codename = QStringLiteral("dog");
    info.architectures = QStringLiteral("amd64 armhf");
    info.components = QStringLiteral("main");
    QStringList found;
    for (const PackageInfoPtr &package : listPackages(folder.path(), info))
        found.append(package->component + QLatin1Char(' ') + package->architecture
                     + (package->type == PackageType::Udeb ? QLatin1String(" udeb") : QLatin1String("")));
    // "arm" is part of "armhf": the test is a loose one on purpose.
    QCOMPARE(found,
             (QStringList{QStringLiteral("main amd64"),
                          QStringLiteral("main arm"),
                          QStringLiteral("main amd64 udeb")}));
}

void TestPackagesFile::recordsOutliveTheirIndex()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("Packages"));
    writeFile(file, Index);
    auto records = readPackagesFile(
        file, {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, QString());
    const PackageInfoPtr record = records.first();
    records.clear();
    // reprepro replaces an index by renaming a new one over it.
    writeFile(file + QLatin1String(".new"), "Package: other\n");
    QVERIFY(QFile::remove(file));
    QVERIFY(QFile::rename(file + QLatin1String(".new"), file));
    QCOMPARE(record->maintainer(), QString::fromUtf8("Jürgen Ö <j@example.org>"));
}

VELT_TEST_MAIN(TestPackagesFile, QCoreApplication)
#include "tst_packagesfile.moc"
