// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/packagelisting.h"
#include "engine/repository/packagesfile.h"
#include "support/testenvironment.h"

namespace
{
const IndexPlace Contrib{"contrib"_s, "amd64"_s, PackageType::Deb};
} // namespace

class TestPackagesFile : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    /** That the fast reading is what the expressions say is a rule of the fuzzer's; here the expressions are right. */
    void values()
    {
        const PackageInfo first = *readPackagesFile(QStringLiteral(CORPUS "/index"), Contrib, "/r"_s).first();
        QCOMPARE(first.depends().join(u'/'), "libc6 (>= 2.28)/libfoo | libbar/a |b(>= 1)/ last"_s);
        QCOMPARE(first.description(), "first line\n second line\n .\n not a field: here\nlower: case"_s);
        QCOMPARE(first.filePath(), "/r/pool/main/f/foo/foo_1.0-1_amd64.deb"_s);
        for (const QString &file : {"/index"_s, "/foreign-line-ends"_s}) {
            QString read;
            for (const PackageInfoPtr &record : readPackagesFile(QStringLiteral(CORPUS) + file, Contrib, {}))
                read += "%1 %2/%3,"_s.arg(record->version, record->component, record->section);
            QCOMPARE(read, "1:1.0-1 non-free/admin,2 contrib/misc, main/misc,9 contrib/misc,"_s);
        }
        const auto folded = readPackagesFile(QStringLiteral(CORPUS "/folded-depends"), Contrib, {});
        QCOMPARE(folded.first()->depends(), (QStringList{"libc6 (>= 2)"_s, "a | b"_s, "c"_s}));
    }

    void listingLeavesOutWhatTheDescriptionDoesNotName()
    {
        const QTemporaryDir folder;
        const QByteArray record = "Package: p\nVersion: 1\n";
        const QString places
            = "main/binary-amd64 main/debian-installer/binary-amd64 main/binary-i386 gone/binary-amd64 "
              "main/binary-arm"_s;
        for (const QString &place : places.split(u' '))
            writeFile(folder.filePath("dists/dog/%1/Packages"_s.arg(place)), record);
        writeFile(folder.filePath("dists/dog/main/binary-amd64/Packages.gz"_s), record);
        writeFile(folder.filePath("dists/dog/main/binary-armhf/Packages"_s), QByteArray());
        RepoInfo info;
        info.codename = "dog"_s;
        info.architectures = "amd64 armhf"_s;
        info.components = "main"_s;
        QStringList found;
        for (const PackageInfoPtr &package : listPackages(folder.path(), info))
            found.append(package->component + u' ' + package->architecture
                         + (package->type == PackageType::Udeb ? " udeb"_s : ""_s));
        // "arm" is part of "armhf": the test is a loose one on purpose.
        QCOMPARE(found, "main amd64|main arm|main amd64 udeb"_list);
    }

    void recordsOutliveTheirIndex()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("Packages"_s);
        QVERIFY(QFile::copy(QStringLiteral(CORPUS "/index"), file));
        auto records = readPackagesFile(file, Contrib, {});
        const PackageInfoPtr record = records.first();
        records.clear();
        // reprepro puts a new index in place by renaming, a backup that is played back writes into the old one.
        writeFile(file, "");
        QCOMPARE(record->maintainer(), "Jürgen Ö <j@example.org>"_s);
    }
};

VELT_TEST_MAIN(TestPackagesFile, QCoreApplication)
#include "tst_packagesfile.moc"
