// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/packagefields.h"
#include "engine/gathering/gathersearch.h"
#include "engine/gathering/gathertext.h"
#include "support/testenvironment.h"

#include <algorithm>
#include <utility>

namespace
{
/** A paragraph from "name version architecture; Depends: lib (>= 2); …"; the size is a hundred times the version. */
ControlText paragraph(const QString &line)
{
    const QStringList parts = line.split(u';');
    const QStringList words = parts.first().trimmed().split(u' ');
    QString text = "Package: %1\nVersion: %2\nArchitecture: %3\nSize: %4\n"_s.arg(
        words.at(0), words.at(1), words.value(2, "amd64"_s), QString::number(words.at(1).toDouble() * 100));
    for (const QString &field : parts.mid(1))
        text += field.trimmed() + u'\n';
    return ControlText(text.toUtf8());
}

/** What is there and what is offered, packages separated by slashes, for a repository of two architectures. */
class Case
{
public:
    Case(const QString &own, const QString &offered)
    {
        m_scope.repository.architectures = QStringList{"amd64"_s, "i386"_s};
        for (const QString &line : lines(own)) {
            const ControlText control = paragraph(line);
            const QString architecture = control.field("Architecture");
            for (const QString &index : std::as_const(m_scope.repository.architectures)) {
                if (architecture != index && architecture != u"all")
                    continue;
                PackageInfo record;
                record.name = control.field("Package");
                record.version = control.field("Version");
                record.architecture = index;
                record.control = control;
                if (!control.field("Section").isEmpty())
                    record.indexComponent
                        = PackageField::splitSection(control.field("Section"), {}).component;
                m_scope.repository.packages.append(QSharedPointer<PackageInfo>::create(record));
            }
        }
        for (const QString &index : std::as_const(m_scope.repository.architectures)) {
            OfferList list{"somewhere "_s + index, index, PackageType::Deb, {}};
            for (const QString &line : lines(offered)) {
                const ControlText control = paragraph(line);
                const QString architecture = control.field("Architecture");
                if (architecture == index || architecture == u"all")
                    list.packages.append(control);
            }
            m_offers.lists.append(list);
        }
    }

    /** For the packages of this name, or for all. */
    GatherPlan plan(const QString &name = {}) const
    {
        QList<PackageInfoPtr> wanted;
        for (const PackageInfoPtr &package : m_scope.repository.packages) {
            if (name.isEmpty() || package->name == name)
                wanted.append(package);
        }
        return GatherSearch(m_scope, m_offers).find(wanted);
    }

private:
    CheckScope m_scope;
    BaseOffers m_offers;

    static QStringList lines(const QString &text) { return text.split(" / "_s, Qt::SkipEmptyParts); }
};

QString rowsOf(const GatherPlan &plan)
{
    QStringList texts;
    for (const GatherPlan::Row &row : plan.rows) {
        texts.append(row.package.name + u' ' + row.package.version);
        if (row.ownArchitecture != u"amd64")
            texts.last() += u' ' + row.ownArchitecture;
        if (!row.replaced.isEmpty())
            texts.last() += " for "_s + row.replaced;
    }
    return texts.join(", "_s);
}

QString leftOf(const GatherPlan &plan)
{
    static const char *const reasons[]
        = {"unknown", "versions", "newer", "clash", "lists", "installer", "off", "leaving"};
    QStringList texts;
    for (const GatherPlan::Left &left : plan.left()) {
        texts.append("%1: %2 %3 %4"_s
                         .arg(left.owner.name,
                              left.entry,
                              QLatin1String(reasons[static_cast<int>(left.why)]),
                              left.details)
                         .trimmed());
        if (left.owner.architecture != u"amd64")
            texts.last() += " on "_s + left.owner.architecture;
    }
    return texts.join(", "_s);
}
} // namespace

/** What is to be fetched so that packages have all that they need. */
class TestGathering : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void whatIsFetched_data()
    {
        QTest::addColumn<QString>("own");
        QTest::addColumn<QString>("offered");
        QTest::addColumn<QString>("rows");
        QTest::addColumn<QString>("left");
        const auto add
            = [](const char *name, const char *own, const char *offered, const char *rows, const char *left) {
                  QTest::newRow(name) << QString::fromLatin1(own) << QString::fromLatin1(offered)
                                      << QString::fromLatin1(rows) << QString::fromLatin1(left);
              };
        add("in turn, and round",
            "app 1; Depends: a; Pre-Depends: p",
            "a 1; Depends: b / b 1; Depends: a / p 1 / c 1",
            "p 1, a 1, b 1",
            "");
        add("what a choice replaced stays when the choice is taken back",
            "app 1; Depends: x, y / p 1; Depends: z",
            "x 2; Depends: p (>= 2) / x 1 / p 2 / y 1; Depends: w / w 1; Depends: x (= 1)",
            "x 1, y 1, w 1",
            "p: z unknown");
        add("a newer one for another architecture",
            "app 1; Depends: foo / foo 2 i386",
            "foo 1 all",
            "",
            "app: foo newer foo 2");
        add("one in another component",
            "app 1; Depends: foo (>= 2) / old 1; Depends: foo (= 1) / foo 1; Section: contrib/net",
            "foo 2; Section: net",
            "foo 2",
            "");
        add("the first alternative", "app 1; Depends: a | b", "a 1 / b 1", "a 1", "");
        add("an alternative that is offered", "app 1; Depends: a | b", "b 1", "b 1", "");
        add("an alternative that is there", "app 1; Depends: a | b / b 1", "a 1", "", "");
        add("an alternative that lacks nothing",
            "app 1; Depends: a | b",
            "a 1; Depends: no / b 1",
            "b 1",
            "");
        add("an alternative that can be beside it",
            "app 1; Depends: a | b; Conflicts: a",
            "a 1 / b 1",
            "b 1",
            "");
        add("what lacks something is better than nothing",
            "app 1; Depends: a",
            "a 1; Depends: no",
            "a 1",
            "a: no unknown");
        add("provided", "app 1; Depends: mail", "post 1; Provides: mail", "post 1", "");
        add("provided in a version",
            "app 1; Depends: mail (>= 2)",
            "one 1; Provides: mail / two 1; Provides: mail (= 1) / six 1; Provides: mail (= 3)",
            "six 1",
            "");
        add("the newest that meets it", "app 1; Depends: lib (>= 2)", "lib 1 / lib 2 / lib 3", "lib 3", "");
        add("one version for two",
            "app 1; Depends: lib / tool 1; Depends: lib (<< 2)",
            "lib 1 / lib 3; Depends: extra / extra 1",
            "lib 1",
            "");
        add("no version for two",
            "app 1; Depends: lib (>= 2) / tool 1; Depends: lib (<< 2)",
            "lib 1 / lib 3",
            "lib 3",
            "tool: lib (<< 2) clash lib 3");
        add("only other versions",
            "app 1; Depends: lib (>= 4)",
            "lib 1 / lib 3",
            "",
            "app: lib (>= 4) versions 3, 1");
        add("a newer one replaces",
            "app 1; Depends: lib (>= 2) / lib 1 / data 1; Depends: lib (= 1) | spare",
            "lib 2 / spare 1",
            "lib 2 for 1, spare 1",
            "");
        add("a newer one breaks",
            "app 1; Depends: lib (>= 2) / lib 1 / data 1; Depends: lib (= 1)",
            "lib 2",
            "lib 2 for 1",
            "data: lib (= 1) leaving");
        add("nothing older replaces",
            "app 1; Depends: lib (<< 2) / lib 3",
            "lib 1",
            "",
            "app: lib (<< 2) newer lib 3");
        add("not of another architecture", "app 1; Depends: a", "a 1 i386", "", "app: a unknown");
        add("for all architectures it needs something on each",
            "app 1; Depends: data",
            "data 1 all; Depends: lib / lib 1 / lib 2 i386",
            "data 1 all, lib 1, lib 2 i386",
            "");
        add("the newer one for all architectures replaces on each",
            "app 1; Depends: data (>= 2) / data 1 all / game 1 i386; Depends: data (= 1)",
            "data 2 all",
            "data 2 all for 1",
            "game: data (= 1) leaving on i386");
        add("and cannot have it on each",
            "app 1; Depends: data",
            "data 1 all; Depends: lib / lib 1",
            "data 1 all, lib 1",
            "data: lib unknown on i386");
    }

    void whatIsFetched()
    {
        QFETCH(QString, own);
        QFETCH(QString, offered);
        const GatherPlan plan = Case(own, offered).plan();
        QTEST(rowsOf(plan), "rows");
        QTEST(leftOf(plan), "left");
        QVERIFY(plan.isComplete && plan.idleRows().isEmpty());
        // What each is fetched for is told.
        QVERIFY(std::none_of(plan.rows.cbegin(), plan.rows.cend(), [](const auto &row) {
            return row.neededBy.isEmpty() || row.size == 0
                   || !row.package.repository.startsWith("somewhere"_s);
        }));
    }

    void chosenRowByRow()
    {
        const Case all("app 1; Depends: a, b / old 1; Depends: a, lib (= 1) / lib 1"_s,
                       "a 1; Depends: c / b 2; Depends: lib (>= 2) / c 3 / lib 2"_s);
        // What one package needs in the repository, and what that lacks.
        QCOMPARE(rowsOf(all.plan("lib"_s)), QString());
        QCOMPARE(rowsOf(all.plan("old"_s)), "a 1, c 3"_s);
        GatherPlan plan = all.plan();
        QCOMPARE(rowsOf(plan), "a 1, b 2, c 3, lib 2 for 1"_s);
        QCOMPARE(plan.size(), qint64(800));
        QCOMPARE(plan.rows.at(0).neededBy, QStringList({"app"_s, "old"_s}));
        QCOMPARE(leftOf(plan), "old: lib (= 1) leaving"_s);
        // Without the newer library the old one stays, and b lacks it.
        plan.rows[3].isOn = false;
        QCOMPARE(leftOf(plan), "b: lib (>= 2) off"_s);
        plan.rows[1].isOn = false;
        QCOMPARE(leftOf(plan), "app: b off"_s);
        plan.rows[0].isOn = false;
        QCOMPARE(leftOf(plan), "app: a off, app: b off, old: a off"_s);
        QCOMPARE(plan.idleRows(), QVector<int>{2});
        QCOMPARE(plan.size(), qint64(300));
        QVERIFY(GatherText::line(plan.left().first()).startsWith("app 1 (amd64) needs a."_s));
    }

    void stopped()
    {
        CheckScope scope;
        scope.repository.architectures = QStringList{"amd64"_s};
        QVERIFY(!GatherSearch(scope, {}, [] { return true; }).find({}).isComplete);
    }
};

VELT_TEST_MAIN(TestGathering, QCoreApplication)
#include "tst_gathering.moc"
