// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilityreport.h"
#include "installability/installabilitytext.h"
#include "installability/steps.h"
#include "support/testenvironment.h"

using namespace Steps;

namespace
{
PackageInfoPtr checked(const QString &name, const InstallabilityInfo &info)
{
    PackageInfo package;
    package.name = name;
    package.version = "1"_s;
    package.architecture = "amd64"_s;
    package.component = "main"_s;
    if (info.state != InstallabilityUnknown)
        package.installability = QSharedPointer<InstallabilityInfo>::create(info);
    return QSharedPointer<PackageInfo>::create(package);
}

/** A package of a report, with the members of NamedPackage. */
NamedPackage readPackage(const QJsonObject &json)
{
    return {json["name"_s].toString(),
            json["version"_s].toString(),
            json["architecture"_s].toString(),
            json["local"_s].toBool()};
}

QVector<InstallabilityStep> readSteps(const QJsonArray &json)
{
    QVector<InstallabilityStep> steps;
    for (const QJsonValue &value : json) {
        const int kind = "needs|lacks|excludes"_list.indexOf(value["kind"_s].toString());
        InstallabilityStep read{InstallabilityStep::Kind(kind),
                                readPackage(value["package"_s].toObject()),
                                value["field"_s].toString(),
                                value["relation"_s].toString(),
                                {}};
        for (const QJsonValue &target : value["targets"_s].toArray())
            read.targets.append(readPackage(target.toObject()));
        steps.append(read);
    }
    return steps;
}

/** The indented lines below the line that begins with `title`. */
QStringList linesBelow(const QString &text, const QString &title)
{
    QStringList lines = text.split(u'\n');
    while (!lines.isEmpty() && !lines.first().startsWith(title))
        lines.removeFirst();
    QStringList result;
    for (int i = 1; i < lines.size() && lines.at(i).startsWith("  "_s); ++i)
        result.append(lines.at(i).mid(2));
    return result;
}
} // namespace

/** The words for what a complete check has found. */
class TestInstallabilityText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void everyKindOfStep()
    {
        const auto preDepends = [](const QString &relation, const QStringList &targets) {
            return step(InstallabilityStep::Needs, "a"_s, "Pre-Depends"_s, relation, targets);
        };
        struct Row
        {
            InstallabilityStep step;
            const char *words;
        };
        const QVector<Row> rows{
            {needs("a"_s, "b (>= 2)"_s, {"b 2"_s}), "a needs b (>= 2)"},
            {needs("a"_s, "x | y"_s, {"x"_s, "y"_s}), "a needs x | y"},
            {needs("a"_s, "x | y"_s, {"y"_s}), "a needs x | y; only y could meet this"},
            {needs("a"_s, "mta"_s, {"exim4"_s}), "a needs mta, provided by exim4"},
            {needs("a"_s, "mta | x"_s, {"exim4"_s, "x"_s}),
             "a needs mta | x; only exim4 and x could meet this"},
            {needs("a"_s, "m"_s, {"p"_s, "q"_s, "r"_s, "s"_s, "t"_s, "u"_s, "v"_s}),
             "a needs m, provided by p, q, r, s, t and 2 more"},
            {needs("a"_s, "b"_s, {"b 2"_s, "b 1"_s}), "a needs b"},
            {needs("a"_s, "b:i386"_s, {"b 2 i386"_s}), "a needs b:i386"},
            {preDepends("b"_s, {"b"_s}), "a needs b before it can be unpacked"},
            {preDepends("m"_s, {"b"_s}), "a needs m, provided by b, before it can be unpacked"},
            {preDepends("b | c"_s, {"c"_s}),
             "a needs b | c before it can be unpacked; only c could meet this"},
            {lacks("a"_s, "b (>= 2)"_s, {"b 1.5"_s, "b 1"_s}),
             "a needs b (>= 2); the newest b at hand is 1.5"},
            {lacks("a"_s, "b (<< 2)"_s, {"b 4"_s, "b 3"_s}), "a needs b (<< 2); the oldest b at hand is 3"},
            {lacks("a"_s, "b (= 2)"_s, {"b 3"_s, "b 1"_s}),
             "a needs b (= 2); all that is at hand is b 3 and b 1"},
            {lacks("a"_s, "b (>= 2)"_s), "a needs b (>= 2); nothing at hand is called b"},
            {lacks("a"_s, "b:any"_s), "a needs b:any; nothing at hand is called b"},
            {lacks("a"_s, "b:any"_s, {"b"_s}),
             "a needs b:any; the field Multi-Arch of b does not allow this"},
            {lacks("a"_s, "b (>= 1)"_s, {"b 2 i386"_s}), "a needs b (>= 1); b is at hand only for i386"},
            {lacks("a"_s, "b:i386 (>= 1)"_s, {"b 2"_s}),
             "a needs b:i386 (>= 1); b is at hand only for amd64"},
            {lacks("a 1 i386"_s, "b"_s, {"b 2 all"_s}),
             "a needs b; the field Multi-Arch of b does not allow this"},
            {lacks("a"_s, "m (>= 2)"_s, {"b"_s}),
             "a needs m (>= 2); what is provided by b does not meet this"},
            {lacks("a"_s, "x | y"_s), "a needs x | y; none of these is at hand as it is needed"},
            {lacks("a"_s, "x (>= 2) | y"_s, {"x 1"_s}),
             "a needs x (>= 2) | y; the newest x at hand is 1, and nothing meets the other alternatives"},
            {excludes("b"_s, "Conflicts"_s, "c (<< 3)"_s, {"c 2.1"_s}),
             "b conflicts with c (<< 3), and c is 2.1"},
            {excludes("b"_s, "Conflicts"_s, "c"_s, {"c 2.1"_s}), "b conflicts with c"},
            {excludes("b"_s, "Conflicts"_s, "mta"_s, {"exim4"_s}), "b conflicts with mta, provided by exim4"},
            {excludes("b"_s, "Conflicts"_s, "c"_s, {"c 2"_s, "c 3"_s}),
             "b conflicts with c, which is true of c 2 and c 3"},
            {excludes("b"_s, "Breaks"_s, "c (<< 3)"_s, {"c 2.1 i386"_s}),
             "b breaks c (<< 3), and c:i386 is 2.1"},
            {excludes("b"_s, "Breaks"_s, "c"_s, {"c"_s}), "b breaks c"},
            {excludes("b"_s, "Breaks"_s, "m"_s, {"c"_s}), "b breaks m, provided by c"},
            {excludes("b"_s, "Breaks"_s, "c"_s, {"c 2"_s, "d 3"_s}),
             "b breaks c, which is true of c 2 and d 3"},
            {excludes("b"_s, "Other"_s, "c"_s, {"c"_s}), "b cannot be installed together with c"},
            {excludes("b 1"_s, {}, {}, {"b 2"_s}),
             "only one version of b can be installed: 1 and 2 exclude each other"},
            {excludes("b 1"_s, {}, {}, {"b 1 i386"_s}),
             "b cannot be installed for amd64 and i386 at the same time"},
            {excludes("b 1"_s, {}, {}, {"b 2 i386"_s}),
             "b:amd64 1 and b:i386 2 cannot be installed at the same time"}};
        for (const Row &row : rows)
            QCOMPARE(InstallabilityText::sentence(row.step), QString::fromUtf8(row.words));
    }

    void aReasonAsAWhole()
    {
        InstallabilityInfo info;
        info.state = NotInstallable;
        info.reason = {needs("a"_s, "b"_s, {"b"_s}),
                       needs("a"_s, "c"_s, {"c 2.1"_s}),
                       excludes("b"_s, "Conflicts"_s, "c (<< 3)"_s, {"c 2.1"_s})};
        QCOMPARE(InstallabilityText::summary(info),
                 "a needs b and c; b conflicts with c (<< 3), and c is 2.1"_s);

        // What every system has is needed by no package.
        info.reason = {step(InstallabilityStep::Needs, {}, "Essential"_s, "dpkg"_s, {"dpkg 2"_s, "dpkg 1"_s}),
                       step(InstallabilityStep::Needs, {}, "Essential"_s, "tar"_s, {"tar"_s}),
                       excludes("a"_s, "Conflicts"_s, "tar"_s, {"tar"_s})};
        info.reason[0].package = info.reason[1].package = {};
        QCOMPARE(
            InstallabilityText::summary(info),
            "every system has dpkg, because it is essential; every system has tar, because it is essential; "
            "a conflicts with tar"_s);

        // Where a name stands for two packages, the words tell which of them is meant.
        info.reason = {needs("a 1 all"_s, "b"_s, {"b 2"_s, "b 1"_s}),
                       lacks("b 2"_s, "c"_s),
                       excludes("b 1"_s, "Breaks"_s, "a (<< 2)"_s, {"a 1 all"_s})};
        QCOMPARE(InstallabilityText::sentences(info.reason),
                 (QStringList{"a needs b"_s,
                              "b 2 needs c; nothing at hand is called c"_s,
                              "b 1 breaks a (<< 2), and a is 1"_s}));
        info.reason = {needs("a"_s, "b"_s, {"b"_s}),
                       needs("b"_s, "c:i386"_s, {"c 1 i386"_s}),
                       needs("c 1 i386"_s, "d"_s, {"d 1 i386"_s}),
                       lacks("d 1 i386"_s, "b"_s, {"b"_s})};
        QCOMPARE(InstallabilityText::summary(info),
                 "a needs b; …; d:i386 needs b; b is at hand only for amd64"_s);

        info.seconds = 12;
        info.state = InstallabilityUndecided;
        QCOMPARE(InstallabilityText::summary(info), "undecided after 12 second(s)"_s);
        info.state = NotInstallable;
        info.reason.clear();
        QCOMPARE(InstallabilityText::summary(info), "cannot be installed"_s);
    }

    void bothReportsSayTheSame()
    {
        const QVector<InstallabilityStep> first{needs("z"_s, "b"_s, {"b"_s, "c 2 i386"_s}),
                                                lacks("b"_s, "d | e"_s)};
        const QVector<InstallabilityStep> second{needs("a"_s, "b"_s, {"b"_s}),
                                                 excludes("b"_s, "Breaks"_s, "d"_s, {"d"_s}),
                                                 excludes("a"_s, "Breaks"_s, "b"_s, {"b"_s})};
        const QList<PackageInfoPtr> packages{checked("z"_s, {NotInstallable, first, {}, 0}),
                                             checked("a"_s, {NotInstallable, second, {}, 0}),
                                             checked("u"_s, {InstallabilityUndecided, {}, {}, 11}),
                                             checked("r"_s, {Installable, {}, {"x (>= 1)"_s, "y | z"_s}, 0}),
                                             checked("fine"_s, {Installable, {}, {}, 0}),
                                             checked("new"_s, {})};
        const CompleteCheckRecord check{{CompleteCheckBase::Repository, "/srv/b"_s, {"i386"_s}},
                                        QDateTime({2026, 3, 4}, {5, 6, 7}, QTimeZone::utc()),
                                        "x",
                                        true};
        QVERIFY(InstallabilityReport::hasResults(packages)
                && !InstallabilityReport::hasResults({packages.last()}));
        const QString text = InstallabilityReport::text(packages, check);
        const QJsonObject json
            = QJsonDocument::fromJson(QJsonDocument(InstallabilityReport::json(packages, check)).toJson())
                  .object();

        const QStringList lines = text.split(u'\n');
        const QString base
            = "the repository and the repository /srv/b, on a system that also takes packages for i386"_s;
        QCOMPARE(lines.mid(0, 4),
                 (QStringList{
                     "Complete check"_s,
                     "Checked against: "_s + base,
                     "Date: "_s + check.time.toLocalTime().toString(Qt::ISODate),
                     "The packages, or what they were checked against, have changed since: check again."_s}));
        QCOMPARE(json["base"_s]["words"_s].toString(), base);
        QCOMPARE(json["base"_s]["kind"_s].toString() + json["base"_s]["repository"_s].toString(),
                 "repository/srv/b"_s);
        QCOMPARE(QDateTime::fromString(json["date"_s].toString(), Qt::ISODate), check.time);
        QVERIFY(json["stale"_s].toBool());
        const QVector<QPair<QString, QString>> counts{
            {"installable"_s, "Packages that can be installed: 2"_s},
            {"notInstallable"_s, "Packages that cannot be installed: 2"_s},
            {"undecided"_s, "Packages undecided: 1"_s},
            {"unchecked"_s, "Packages not checked: 1"_s}};
        for (const auto &count : counts)
            QVERIFY2(lines.contains(count.second)
                         && count.second.endsWith(QString::number(json[count.first].toInt())),
                     qPrintable(count.second));
        // The package itself is not in its own way.
        QCOMPARE(linesBelow(text, "Most often"_s),
                 (QStringList{"d, of 2 package(s)"_s, "b, of 1 package(s)"_s}));
        QCOMPARE(json["mostInTheWay"_s][0]["name"_s].toString(), "d"_s);
        QCOMPARE(json["mostInTheWay"_s][0]["packages"_s].toInt(), 2);

        const QJsonArray broken = json["packages"_s].toArray();
        QCOMPARE(broken.size(), 2);
        for (int i = 0; i < 2; ++i) {
            const PackageInfo &package = *packages.at(1 - i);
            QCOMPARE(broken[i]["name"_s].toString(), package.name);
            QVERIFY(readSteps(broken[i]["steps"_s].toArray()) == package.installability->reason);
            QStringList words;
            for (const QJsonValue &sentence : broken[i]["reasons"_s].toArray())
                words.append(sentence.toString());
            QCOMPARE(words, InstallabilityText::sentences(package.installability->reason));
            QCOMPARE(linesBelow(text, package.name + " 1 (main, amd64)"_s), words);
        }
        QCOMPARE(linesBelow(text, "u 1 ("_s), {"undecided after 11 second(s)"_s});
        QCOMPARE(json["undecidedPackages"_s][0]["seconds"_s].toInt(), 11);
        QCOMPARE(linesBelow(text, "Recommended"_s),
                 (QStringList{"r 1 (main, amd64)"_s, "  x (>= 1)"_s, "  y | z"_s}));
        QCOMPARE(json["unmetRecommends"_s][0]["recommends"_s][1].toString(), "y | z"_s);
        // What is not known of the check is not said.
        QVERIFY(InstallabilityReport::text(packages, {}).startsWith("Complete check\n\nPackages"_s));
        QVERIFY(!InstallabilityReport::json(packages, {}).contains("base"_s));
    }

    void hostileTexts()
    {
        const QString evil = "<b>\u202e%2%1\x1b[2J\n&amp;"_s;
        const QString words = InstallabilityText::sentence(lacks(evil, evil));
        QCOMPARE(words,
                 "<b>\ufffd%2%1\ufffd[2J &amp; needs <b>\ufffd%2%1\ufffd[2J &amp;; nothing at hand is called "
                 "<b>\ufffd%2%1\ufffd[2J"_s);

        const QString deep = QString(1000000, u'(') + ">= 1"_s + QString(1000000, u')');
        QString alternatives;
        QStringList targets;
        for (int i = 0; i < 100000; ++i) {
            alternatives += "p%1 (>= 1) | "_s.arg(i);
            targets.append("q%1 "_s.arg(i) + QString(10, u'1'));
        }
        const QVector<InstallabilityStep> reason{needs("a"_s, alternatives, targets),
                                                 lacks("a"_s, "b "_s + deep, {"b "_s + deep}),
                                                 excludes("b "_s + deep, {}, {}, {"b 1"_s, "b "_s + deep})};
        const QStringList sentences = InstallabilityText::sentences(reason);
        QCOMPARE(sentences.size(), 3);
        for (const QString &sentence : sentences)
            QVERIFY2(sentence.size() < 1000, qPrintable(QString::number(sentence.size())));
        QVERIFY(sentences.first().startsWith("a needs p0 (>= 1) | p1 (>= 1) | "_s));
        QVERIFY(sentences.first().contains("; only q0"_s) && sentences.first().contains("99995 more"_s));

        QString smileys;
        for (int i = 0; i < 500; ++i)
            smileys += "😀"_s;
        for (int length : {200, 201, 202, 203})
            QVERIFY(QString::fromUtf8(InstallabilityText::shown(smileys, length).toUtf8())
                    == InstallabilityText::shown(smileys, length));
    }
};

VELT_TEST_MAIN(TestInstallabilityText, QCoreApplication)
#include "tst_installabilitytext.moc"

#include <QTimeZone>
