// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "engine/packagelisting.h"
#include "engine/packagesfile.h"
#include "support/literals.h"
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
            return match.captured("word"_s).trimmed();
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
    const auto expected = readByExpressions(text, "contrib"_s);
    const auto bytes = std::make_shared<const QByteArray>(text);
    const auto records
        = parsePackages(bytes,
                        std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size())),
                        {"contrib"_s, "amd64"_s, PackageType::Deb},
                        "/r"_s);
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
                 expected.at(i).filePath.isEmpty() ? QString() : "/r/"_s + expected.at(i).filePath);
        QCOMPARE(record.architecture, "amd64"_s);
    }
    if (text == Index) {
        QCOMPARE(records.size(), 4);
        QCOMPARE(records.at(0)->depends(),
                 (QStringList{"libc6 (>= 2.28)"_s, "libfoo | libbar"_s, "a |b(>= 1)"_s, " last"_s}));
        QCOMPARE(records.at(0)->component, "non-free"_s);
        QCOMPARE(records.at(0)->section, "admin"_s);
        QCOMPARE(records.at(0)->description(),
                 "first line\n second line\n .\n not a field: here\nlower: case"_s);
        QCOMPARE(records.at(1)->version, "2"_s);
        QCOMPARE(records.at(2)->component, "main"_s);
        QCOMPARE(records.at(3)->section, "misc"_s);
        QCOMPARE(records.at(3)->component, "contrib"_s);
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
        writeFile(folder.filePath("dists/dog/%1/Packages"_s.arg(QLatin1String(path))), record);
    writeFile(folder.filePath("dists/dog/main/binary-amd64/Packages.gz"_s), record);
    writeFile(folder.filePath("dists/dog/main/binary-armhf/Packages"_s), QByteArray());
    RepoInfo info;
    info.codename = "dog"_s;
    info.architectures = "amd64 armhf"_s;
    info.components = "main"_s;
    QStringList found;
    for (const PackageInfoPtr &package : listPackages(folder.path(), info))
        found.append(package->component + QLatin1Char(' ') + package->architecture
                     + (package->type == PackageType::Udeb ? " udeb"_s : ""_s));
    // "arm" is part of "armhf": the test is a loose one on purpose.
    QCOMPARE(found, (QStringList{"main amd64"_s, "main arm"_s, "main amd64 udeb"_s}));
}

void TestPackagesFile::recordsOutliveTheirIndex()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath("Packages"_s);
    writeFile(file, Index);
    auto records = readPackagesFile(file, {"main"_s, "amd64"_s, PackageType::Deb}, QString());
    const PackageInfoPtr record = records.first();
    records.clear();
    // reprepro replaces an index by renaming a new one over it.
    writeFile(file + ".new"_s, "Package: other\n");
    QVERIFY(QFile::remove(file));
    QVERIFY(QFile::rename(file + ".new"_s, file));
    QCOMPARE(record->maintainer(), "Jürgen Ö <j@example.org>"_s);
}

VELT_TEST_MAIN(TestPackagesFile, QCoreApplication)
#include "tst_packagesfile.moc"
