// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptfetch.h"
#include "apt/aptoutput.h"
#include "apt/dpkgoutput.h"
#include "support/testenvironment.h"

namespace
{
/** An answer of the tools of the row's release. */
QString captured(const char *file)
{
    const QString path = QStringLiteral(VELT_TEST_DATA "/") + QLatin1String(QTest::currentDataTag()) + u'/'
                         + QLatin1String(file);
    const QByteArray text = readFile(path);
    if (text.isEmpty())
        qFatal("%s is missing or empty", qPrintable(path));
    return QString::fromUtf8(text);
}
} // namespace

class TestAptOutput : public QObject
{
    Q_OBJECT

private:
    /** A row for each release whose tools were asked (tests/data/capture). */
    static void releases()
    {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("bookworm") << true;
        QTest::newRow("trixie") << true;
    }

private Q_SLOTS:
    void complaints_data() { releases(); }
    /** Whatever its words, a release's apt complains of the same. */
    void complaints()
    {
        QStringList found;
        const QStringList parts = captured("update.txt").split("== "_s, Qt::SkipEmptyParts);
        for (const QString &part : parts) {
            const QString name = part.section(u'\n', 0, 0);
            found += name + ": "_s + AptFetch::problems(part.section(u'\n', 1)).join(u'|');
        }
        const auto untrusted = [](const QString &source) -> QString {
            return "The source "_s + source
                   + " is not trusted: its signature is missing or cannot be checked."_s;
        };
        const QString place = "file:/tmp/sample/"_s;
        const QString server = "http://127.0.0.1:18080/"_s;
        const QString list = "/dists/dogwood/main/binary-amd64/Packages"_s;
        QCOMPARE(
            found,
            (QStringList{
                "good: "_s,
                "good-before: "_s + untrusted(place + "good/dists/dogwood/InRelease"_s),
                "unsigned: "_s + untrusted(place + "one dogwood Release"_s),
                "no-key: "_s + untrusted(place + "good dogwood InRelease"_s),
                "other-key: "_s + untrusted(place + "good dogwood InRelease"_s),
                "manipulated: "_s + untrusted(place + "manipulated dogwood InRelease"_s),
                "expired: The source "_s + place
                    + "expired/dists/dogwood/InRelease has expired: it is no longer updated, or the clock of "
                      "this machine is wrong."_s,
                "changed: The source could not be fetched: "_s + server + "changed"_s + list + u'.',
                "lacking: A part of the source is missing: "_s + place + "lacking"_s + list + u'.',
                "http-lacking: A part of the source is missing: "_s + server + "lacking"_s + list + u'.',
                "component: The source "_s + place
                    + "good dogwood InRelease does not have one of its components."_s,
                "nothing: The source "_s + place + "nothing dogwood Release does not exist there."_s,
                "http-nothing: The source "_s + server + "nothing dogwood Release does not exist there."_s,
                "refused: The server could not be reached: "
                "http://127.0.0.1:18081/x/dists/dogwood/InRelease."_s,
                "unresolved: The server could not be reached: "
                "http://nowhere.invalid/x/dists/dogwood/InRelease."_s,
                "malformed: Malformed entry 1 in list file /tmp/sample/T/etc/sources.list (Suite)|"
                "The list of sources could not be read."_s,
            }));
    }

    void policy_data() { releases(); }
    void policy()
    {
        const QString policy = captured("policy.txt");
        QCOMPARE(AptOutput::sourceLines(policy),
                 "file:/tmp/sample/two dogwood main|file:/tmp/sample/one dogwood contrib main"_list);
        QCOMPARE(AptOutput::sourceLines(policy, SourceGrouping::BySuiteAndArchitecture),
                 "[arch=amd64] file:/tmp/sample/two dogwood main|"
                 "[arch=amd64] file:/tmp/sample/one dogwood contrib main|"
                 "[arch=i386] file:/tmp/sample/one dogwood main"_list);
        // A suite may contain a slash; translations and unknown schemes are no sources.
        QCOMPARE(AptOutput::sourceLines(" 500 https://h/debian dogwood/updates/main amd64 Packages\n"
                                        " 500 copy:/srv/r dogwood/main amd64 Packages\n"
                                        " 500 http://h/r dogwood/main Translation-en\n"
                                        " 500 mirror+file:/etc/mirrors dogwood/main amd64 Packages\n"_s),
                 "https://h/debian dogwood/updates main|mirror+file:/etc/mirrors dogwood main"_list);
    }

    void sourcesStayWithTheirRecord()
    {
        QString show = "Package: a\nVersion: 3\nAPT-Sources: http://h/r s/main amd64 Packages\n"
                       " http://h/q s/main amd64 Packages\n http://h/q s/contrib amd64 Packages\n"
                       "Description: x\n http://h/no s/main amd64 Packages\n\n"
                       "Package: a\nX-Version: 4\nVersions: 5\nVersion:2 \n Version: 6\n\n"
                       "Package: a\nVersion: 1\nAPT-Sources: http://h/q s/main amd64 Packages\n"_s;
        const QMap<QString, QStringList> expected{{"3"_s, {"http://h/r s amd64"_s, "http://h/q s amd64"_s}},
                                                  {"2"_s, {}},
                                                  {"1"_s, {"http://h/q s amd64"_s}}};
        QCOMPARE(AptOutput::versions(show), expected);
        QCOMPARE(AptOutput::records(show).size(), 3);
        // Also when nothing separates the records.
        show.replace("\n\n"_s, "\n"_s);
        QCOMPARE(AptOutput::versions(show), expected);
    }

    void providers()
    {
        QCOMPARE(AptOutput::providers(
                     "above 1 (= )\nReverse Provides: \nb+x 2 (= 1)\nUpper 1 (= )\n indented 1 (= )\n"_s),
                 "b+x"_list);
        // Without the heading every line counts.
        QCOMPARE(AptOutput::providers("Package: x\nsome 1 (= )\nother 2 (= )\n"_s), "some|other"_list);
    }

    void shown_data() { releases(); }
    void shown()
    {
        const QMap<QString, QStringList> versions = AptOutput::versions(captured("show.txt"));
        QCOMPARE(versions.keys().join(u' '), "0.9 1.0-1 1.5 1:2.0-1"_s);
        QCOMPARE(versions.value("1:2.0-1"_s).join(u'|'), "file:/tmp/sample/one dogwood amd64"_s);
        QCOMPARE(versions.value("1.5"_s).join(u'|'), "file:/tmp/sample/two dogwood amd64"_s);
        QCOMPARE(AptOutput::providers(captured("showpkg.txt").section("Package: foot"_s, 0, 0)).join(u' '),
                 "foot food"_s);
    }

    void packageInformation_data() { releases(); }
    void packageInformation()
    {
        const auto package = DpkgOutput::packageInfo(captured("information.txt"));
        QVERIFY(package.has_value());
        QCOMPARE(QStringList({package->name, package->version, package->architecture}).join(u' '),
                 "conf-demo 1:2.3-4~rc1 all"_s);
        QCOMPARE(package->component + u'/' + package->section, "non-free/admin"_s);
        QCOMPARE(package->maintainer(), "Жанна Д <j@example.org>"_s);
        // One blank before each continuation line, and the last of them is no line about the archive.
        QCOMPARE(package->description(),
                 "configuration files and scripts — demo\n First paragraph.\n .\n"
                 " Version: 9.9 is no field\n  * indented item\n\tand a tab\n"
                 "    12 bytes,     1 lines      control"_s);

        const auto udeb = DpkgOutput::packageInfo(captured("udeb.txt"), PackageType::Udeb);
        QVERIFY(udeb.has_value() && udeb->type == PackageType::Udeb);
        QCOMPARE(udeb->component + u'/' + udeb->section, "main/misc"_s);
    }

    void incompleteInformation_data() { releases(); }
    void incompleteInformation()
    {
        for (const char *field : {"Package", "Version", "Architecture"}) {
            QString without = captured("information.txt");
            without.remove(QRegularExpression("\n %1: .*"_s.arg(QLatin1String(field))));
            QVERIFY2(!DpkgOutput::packageInfo(without).has_value(), field);
        }
        QVERIFY(!DpkgOutput::packageInfo(QString()).has_value());
        // Its fields come out of a file's name.
        QVERIFY(!DpkgOutput::packageInfo(captured("member-name-with-newline.txt")).has_value());
    }
};

VELT_TEST_MAIN(TestAptOutput, QCoreApplication)
#include "tst_aptoutput.moc"
