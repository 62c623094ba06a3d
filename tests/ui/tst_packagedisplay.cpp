// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/dependsinfo.h"
#include "support/testenvironment.h"
#include "ui/packagedetails.h"
#include "ui/packagedrop.h"
#include "ui/packagestatusline.h"
#include "ui/sections.h"

#include <QApplication>
#include <QLabel>
#include <QMimeData>
#include <QRegularExpression>
#include <QUrl>
#include <QtTest>

/** Sections, descriptions, dropped files and the counter line. */
class PackageDisplayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sections();
    void descriptions_data();
    void descriptions();
    void droppedFiles();
    void counters();
};

void PackageDisplayTest::sections()
{
    QCOMPARE(Sections::codes().size(), 63);
    QVERIFY(Sections::codes().removeDuplicates() == 0);
    QCOMPARE(Sections::displayName(QStringLiteral("admin")), QStringLiteral("System Administration"));
    QCOMPARE(Sections::displayName(QStringLiteral("kde")), QStringLiteral("kde"));
    QCOMPARE(Sections::displayName(QStringLiteral("KDE")), QStringLiteral("KDE Desktop Environment"));
    QCOMPARE(Sections::displayName(QStringLiteral("x11")), QStringLiteral("Miscellaneous  - Graphical"));
    QCOMPARE(Sections::nameWithCode(QStringLiteral("libs")), QStringLiteral("Libraries (libs)"));
    QCOMPARE(Sections::nameWithCode(QStringLiteral("%1")), QStringLiteral("%1"));

    QCOMPARE(Sections::textInBrackets(QStringLiteral("Tools [a] and [b]!")), QStringLiteral("a] and [b"));
    QCOMPARE(Sections::textInBrackets(QStringLiteral("none []")), QString());
    const QStringList entries{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("twelve")};
    QCOMPARE(Sections::firstMatch(entries, QRegularExpression(QStringLiteral("^tw"))), QStringLiteral("two"));
    QCOMPARE(Sections::firstMatch(entries, QRegularExpression(QStringLiteral("x"))), QString());
}

void PackageDisplayTest::descriptions_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("html");
    QTest::newRow("one line") << QStringLiteral("a tool") << QStringLiteral("<b>a tool</b>");
    QTest::newRow("paragraphs") << QStringLiteral("a tool\n It does\n this.\n .\n And that.")
                                << QStringLiteral("<b>a tool</b><br> It does<br> this.<br><br> And that.");
    QTest::newRow("two breaks at once")
        << QStringLiteral("t\n a\n .\n .\n b") << QStringLiteral("<b>t</b><br> a<br><br><br> b");
    QTest::newRow("markup is text") << QStringLiteral("<i>x</i> & y\n <br>")
                                    << QStringLiteral("<b>&lt;i&gt;x&lt;/i&gt; &amp; y</b><br> &lt;br&gt;");
    QTest::newRow("empty") << QString() << QStringLiteral("<b></b>");
}

void PackageDisplayTest::descriptions()
{
    QFETCH(QString, description);
    QTEST(PackageDetails::descriptionHtml(description), "html");
}

void PackageDisplayTest::droppedFiles()
{
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), "file:///tmp/a.deb\nfile:///tmp/b.txt\n");
    QCOMPARE(PackageDrop::packageFiles(&data), QStringList{QStringLiteral("/tmp/a.deb")});
    data.setData(QStringLiteral("text/uri-list"),
                 "file:///tmp/a%20b.deb\r\nfile:///tmp/50%25%26.udeb\r\nfile:///tmp/%D0%B6.deb\r\n"
                 "http://example.org/c.deb\r\nfile:///tmp/a%20b.deb\r\nfile:///tmp/.deb/x\r\n");
    const QStringList expected{
        QStringLiteral("/tmp/a b.deb"), QStringLiteral("/tmp/50%&.udeb"), QStringLiteral("/tmp/\u0436.deb")};
    QCOMPARE(PackageDrop::packageFiles(&data), expected);

    QMimeData text;
    text.setText(QStringLiteral("file:///tmp/a.deb"));
    QVERIFY(!PackageDrop::accepts(&text));
    QCOMPARE(PackageDrop::packageFiles(&text), QStringList());
    QVERIFY(!PackageDrop::accepts(nullptr));
}

void PackageDisplayTest::counters()
{
    PackageStatusLine line;
    const auto text
        = [&line](const char *name) { return line.findChild<QLabel *>(QString::fromLatin1(name))->text(); };
    line.setCounters(2, 0, 40);
    line.setTotal(42);
    QCOMPARE(text("m_undefinedLabel"), QStringLiteral("2"));
    QCOMPARE(text("m_successLabel"), QStringLiteral("40"));
    QCOMPARE(text("m_totalLabel"), QStringLiteral("Total: 42 package(s)"));
    line.decrease(DependError); // shows 0
    QCOMPARE(text("m_errorLabel"), QStringLiteral("0"));
    QCOMPARE(line.total(), 42);
    line.decrease(DependUndefined);
    line.increase(DependError);
    line.increase(2); // no check applies
    QCOMPARE(text("m_undefinedLabel"), QStringLiteral("1"));
    QCOMPARE(text("m_errorLabel"), QStringLiteral("1"));
    QCOMPARE(text("m_totalLabel"), QStringLiteral("Total: 43 package(s)"));
    QCOMPARE(line.counter(DependSuccess), 40);
}

VELT_TEST_MAIN(PackageDisplayTest, QApplication)
#include "tst_packagedisplay.moc"
