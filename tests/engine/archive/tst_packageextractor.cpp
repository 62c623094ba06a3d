// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/packageextractor.h"
#include "support/testenvironment.h"

/** What is taken out of archives that are in order, damaged, or made to do harm. */
class TestPackageExtractor : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { VELT_NEED_TOOL("python3"); }

    void members_data()
    {
        QTest::addColumn<QString>("script"); // makes x.tgz in its folder; d.deb, e.deb and bad.txt are there
        QTest::addColumn<QString>("files"); // the contents that arrive, "damaged" or "other"
        const auto python = [](const QString &members) {
            return "python3 -c '\nimport io, tarfile\nt = tarfile.open(\"x.tgz\", \"w:gz\", "
                   "format=tarfile.GNU_FORMAT)\n"
                   "def f(name, text, **more):\n i = tarfile.TarInfo(name); i.size = len(text)\n"
                   " for k in more: setattr(i, k, more[k])\n t.addfile(i, io.BytesIO(text))\n%1\nt.close()'"_s
                       .arg(members);
        };
        const auto row = [](const char *name, const QString &script, const char *files) {
            QTest::newRow(name) << script << QString::fromLatin1(files);
        };
        row("plain", "tar czf x.tgz d.deb bad.txt ./e.deb"_s, "D E");
        row("not compressed", "tar cf x.tgz d.deb e.deb"_s, "D E");
        const auto longNames = [](const char *format, int length) {
            return "n=$(printf 'n%.0s' {1..%2}); mkdir $n; cp d.deb $n/$n.deb; ln -s $n/$n.deb $n/l; "
                   "tar czf x.tgz --format=%1 $n"_s.arg(QLatin1String(format), QString::number(length));
        };
        row("extended headers", longNames("pax", 200), "D");
        row("long names", longNames("gnu", 200), "D");
        row("prefixed names", longNames("ustar", 90).remove(QRegularExpression("ln [^;]*;"_s)), "D");
        row("out of the folder",
            python(
                "f(\"/tmp/velt-hostile.deb\", b\"A\"); f(\"a/../../up.deb\", b\"U\"); f(\"d.deb\", b\"D\")\n"
                "f(\"l\", b\"\", type=b\"2\", linkname=\"..\"); f(\"l/e.deb\", b\"E\")"_s),
            "A D E");
        row("links, folders and devices",
            python("for n, k in enumerate(\"21365\"): f(\"%d.deb\" % n, b\"\", type=k.encode(), "
                   "linkname=\"/etc/passwd\" if k in \"21\" else \"\", devmajor=1, devminor=5)\n"
                   "f(\"d.deb\", b\"D\")"_s),
            "D");
        row("the same name, and in two folders",
            python("f(\"d.deb\", b\"old and long\"); f(\"./d.deb\", b\"D\"); f(\"b/d.deb\", b\"E\")"_s),
            "D E");
        row("many", python("for i in range(10000): f(\"%d.txt\" % i, b\"\")\nf(\"d.udeb\", b\"D\")"_s), "D");
        row("no end blocks", "tar cf x d.deb; head -c 1024 x | gzip >x.tgz"_s, "D");
        row("nothing", "tar czf x.tgz -T /dev/null"_s, "");
        row("no archive", "cp bad.txt x.tgz"_s, "other");
        row("no file", "true"_s, "damaged");
        row("compressed text", "gzip <bad.txt >x.tgz"_s, "other");
        row("truncated", "tar czf x d.deb big.deb; head -c 600000 x >x.tgz"_s, "damaged");
        row("trailer missing", "tar cf x d.deb big.deb; gzip -1 <x >y; head -c -9 y >x.tgz"_s, "damaged");
        const auto spoil = [](const char *file, int at) {
            return "; printf x | dd of=%1 bs=1 seek=%2 conv=notrunc status=none"_s.arg(QLatin1String(file),
                                                                                       QString::number(at));
        };
        row("a wrong bit", "tar czf x.tgz d.deb big.deb"_s + spoil("x.tgz", 500000), "damaged");
        row("a wrong header",
            "tar cf x big.deb d.deb"_s + spoil("x", 1049100) + "; gzip -1 <x >x.tgz"_s,
            "damaged");
        row("endless name",
            python("f(\"x\", b\"n\" * 2000000, type=b\"L\"); f(\"d.deb\", b\"D\")"_s),
            "damaged");
    }
    void members()
    {
        QFETCH(QString, script);
        QFETCH(QString, files);
        const QTemporaryDir folder;
        writeFile(folder.filePath("d.deb"_s), "D");
        writeFile(folder.filePath("e.deb"_s), "E");
        writeFile(folder.filePath("bad.txt"_s), QByteArray(2000, 'b'));
        writeFile(folder.filePath("big.deb"_s), noise(1 << 20));
        runShell(script, folder.path());
        const QString place = folder.filePath("deep/place"_s);
        QDir().mkpath(place);
        PackageExtractor extractor(place, [] { return false; });
        const auto result = extractor.extract(folder.filePath("x.tgz"_s));
        QStringList found;
        if (result == PackageExtractor::Result::Done)
            for (const QString &file : extractor.files())
                found.append(QString::fromUtf8(readFile(file)));
        else
            found.append(result == PackageExtractor::Result::Damaged ? "damaged"_s : "other"_s);
        QCOMPARE(found.join(u' '), files);
        QCOMPARE(extractor.error().isEmpty(), files != "damaged"_s);
        QVERIFY(!QFile::exists("/tmp/velt-hostile.deb"_s) && !QFile::exists(folder.filePath("up.deb"_s)));
        QCOMPARE(QDir(folder.filePath("deep"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 "place"_list);
    }

    /** A small archive cannot fill the disk, nor take much room without a question. */
    void smallArchiveOfMuch()
    {
        const QTemporaryDir folder;
        runShell("truncate -s 40M a.deb b.deb; tar czf x.tgz a.deb b.deb; mkdir out"_s, folder.path());
        const QString archive = folder.filePath("x.tgz"_s);
        constexpr qint64 Packages = 80 << 20;
        struct Case
        {
            PackageExtractor::Limits limits;
            bool answer;
            PackageExtractor::Result result;
            int questions;
        };
        using Result = PackageExtractor::Result;
        for (const Case &c : {Case{{1, 1000, 60 << 20, 20}, false, Result::Refused, 1},
                              Case{{1, 1000, 60 << 20, 20}, true, Result::Done, 1},
                              Case{{1, 1000, 60 << 20, 2000}, false, Result::Done, 0},
                              Case{{1, 1000, 1 << 30, 20}, false, Result::Done, 0},
                              // All that is free now has to stay so.
                              Case{{1, 1, 1 << 30, 20}, false, Result::Damaged, 0}}) {
            int questions = 0;
            PackageExtractor extractor(folder.filePath("out"_s), [] { return false; });
            extractor.setLimits(c.limits);
            extractor.setConsent([&](qint64 unpacked, qint64 size) {
                ++questions;
                return size == QFileInfo(archive).size() && unpacked > c.limits.unasked && c.answer;
            });
            QVERIFY(extractor.extract(archive) == c.result);
            QCOMPARE(questions, c.questions);
            QCOMPARE(extractor.error().contains("more room"_s), c.result == Result::Damaged);
            qint64 written = 0;
            for (const QFileInfo &file : QDir(folder.filePath("out"_s)).entryInfoList(QDir::Files))
                written += file.size();
            QCOMPARE(written == Packages, c.result == Result::Done);
            QVERIFY(QDir(folder.filePath("out"_s)).removeRecursively() && QDir(folder.path()).mkdir("out"_s));
        }
    }
};

VELT_TEST_MAIN(TestPackageExtractor, QCoreApplication)
#include "tst_packageextractor.moc"
