// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "engine/packagelisting.h"
#include "engine/packagesfile.h"
#include "support/literals.h"
#include "support/testenvironment.h"

#include <QtTest>

namespace
{
/** One record as the expressions define it, line by line; the fast reading must give the same. */
QStringList byExpressions(const QStringList &lines)
{
    using namespace PackageField;
    const auto word = [&](const QRegularExpression &expression) {
        return expression.match(lines.filter(expression).value(0)).captured("word"_s).trimmed();
    };
    const auto section = splitSection(word(SectionExpression), "contrib"_s);
    const QString file = word(FilenameExpression);
    QString description = word(DescriptionExpression);
    int next = lines.indexOf(DescriptionExpression) + 1;
    while (next > 0 && next < lines.size() && !NewFieldLine.match(lines.at(next)).hasMatch())
        description += QLatin1Char('\n') + lines.at(next++);
    while (description.endsWith(QLatin1Char('\n')))
        description.chop(1);
    return QStringList() << word(PackageExpression) << word(VersionExpression) << section.component
                         << section.section << word(MaintainerExpression)
                         << (file.isEmpty() ? file : "/r/"_s + file) << description
                         << dependsEntries(word(DependsExpression));
}

QStringList byParser(const PackageInfo &package)
{
    return QStringList() << package.name << package.version << package.component << package.section
                         << package.maintainer() << package.filePath() << package.description()
                         << package.depends();
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
    void agreesWithTheExpressions()
    {
        const auto parse = [](const QByteArray &text) {
            const auto bytes = std::make_shared<const QByteArray>(text);
            return parsePackages(bytes,
                                 {bytes->constData(), static_cast<std::size_t>(bytes->size())},
                                 {"contrib"_s, "amd64"_s, PackageType::Deb},
                                 "/r"_s);
        };
        // Line ends of another system, a beginning within a record, a surplus end, nothing.
        const QByteArray foreign = QByteArray(Index).replace("\n", "\r\n");
        for (const QByteArray &text : QList<QByteArray>{
                 Index, foreign, "Version: 1\n\n" + Index, Index + "\n\n\n", "", "Version: 1\n"}) {
            QVector<QStringList> expected;
            for (const QString &line : QString::fromUtf8(text).split(QLatin1Char('\n'))) {
                if (PackageField::PackageExpression.match(line).hasMatch())
                    expected.append(QStringList());
                if (!expected.isEmpty())
                    expected.last().append(line);
            }
            const auto records = parse(text);
            QCOMPARE(records.size(), expected.size());
            for (int i = 0; i < records.size(); ++i) {
                QStringList read = byParser(*records.at(i));
                QStringList defined = byExpressions(expected.at(i));
                if (text == foreign)
                    read[6] = defined[6] = QString(); // descriptions keep the line ends that they have
                QCOMPARE(read, defined);
            }
        }
        // And both are right.
        const auto records = parse(Index);
        QCOMPARE(records.at(0)->depends().join(QLatin1Char('/')),
                 "libc6 (>= 2.28)/libfoo | libbar/a |b(>= 1)/ last"_s);
        PackageInfo folded;
        folded.control = ControlText("Depends:\n libc6 (>= 2),\n\ta | b\n , c:any\nOther: d\n x\n");
        QCOMPARE(folded.depends(), (QStringList{"libc6 (>= 2)"_s, "a | b"_s, "c"_s}));
        QCOMPARE(records.at(0)->description(),
                 "first line\n second line\n .\n not a field: here\nlower: case"_s);
        QString read;
        for (const PackageInfoPtr &record : records)
            read += "%1 %2/%3,"_s.arg(record->version, record->component, record->section);
        QCOMPARE(read, "1:1.0-1 non-free/admin,2 contrib/misc, main/misc,9 contrib/misc,"_s);
    }

    void listingLeavesOutWhatTheDescriptionDoesNotName()
    {
        const QTemporaryDir folder;
        const QByteArray record = "Package: p\nVersion: 1\n";
        const QString places
            = "main/binary-amd64 main/debian-installer/binary-amd64 main/binary-i386 gone/binary-amd64 "
              "main/binary-arm"_s;
        for (const QString &place : places.split(QLatin1Char(' ')))
            writeFile(folder.filePath("dists/dog/%1/Packages"_s.arg(place)), record);
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

    void recordsOutliveTheirIndex()
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
};

VELT_TEST_MAIN(TestPackagesFile, QCoreApplication)
#include "tst_packagesfile.moc"
