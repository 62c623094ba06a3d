// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/dependsinfo.h"
#include "support/children.h"
#include "support/literals.h"
#include "support/testenvironment.h"
#include "ui/packagedetails.h"
#include "ui/packagestatusline.h"
#include "ui/sections.h"

#include <QLabel>
#include <QtTest>

/** Sections, descriptions and the counter line. */
class PackageDisplayTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sections()
    {
        QCOMPARE(Sections::codes().size(), 63);
        QCOMPARE(Sections::codes().removeDuplicates(), 0);
        QCOMPARE(Sections::displayName("kde"_s), "kde"_s);
        QCOMPARE(Sections::displayName("KDE"_s), "KDE Desktop Environment"_s);
        QCOMPARE(Sections::nameWithCode("libs"_s), "Libraries (libs)"_s);
        QCOMPARE(Sections::nameWithCode("%1"_s), "%1"_s);
        QCOMPARE(Sections::textInBrackets("Tools [a] and [b]!"_s), "a] and [b"_s);
        QCOMPARE(Sections::textInBrackets("none []"_s), QString());
        QCOMPARE(Sections::firstMatch({"one"_s, "two"_s, "twelve"_s}, QRegularExpression("^tw"_s)), "two"_s);
        QCOMPARE(Sections::firstMatch({"one"_s}, QRegularExpression("x"_s)), QString());
    }

    void descriptions()
    {
        const QMap<QString, QString> htmls{
            {"a tool\n It does\n this.\n .\n .\n And that."_s,
             "<b>a tool</b><br> It does<br> this.<br><br><br> And that."_s},
            {"<i>x</i> & y\n <br>"_s, "<b>&lt;i&gt;x&lt;/i&gt; &amp; y</b><br> &lt;br&gt;"_s},
            {QString(), "<b></b>"_s}};
        for (const QString &text : htmls.keys())
            QCOMPARE(PackageDetails::descriptionHtml(text), htmls.value(text));
    }

    void counters()
    {
        PackageStatusLine line;
        const auto texts = [&line] {
            QStringList all;
            for (const char *name : {"m_undefinedLabel", "m_errorLabel", "m_successLabel", "m_totalLabel"})
                all += child<QLabel>(line, name)->text();
            return all.join("|"_s);
        };
        line.setCounters(2, 0, 40);
        line.setTotal(42);
        line.decrease(DependError); // shows 0
        QCOMPARE(texts(), "2|0|40|Total: 42 package(s)"_s);
        line.decrease(DependUndefined);
        line.increase(DependError);
        line.increase(2); // no check applies
        QCOMPARE(texts(), "1|1|40|Total: 43 package(s)"_s);
    }
};

VELT_TEST_MAIN(PackageDisplayTest, QApplication)
#include "tst_packagedisplay.moc"
