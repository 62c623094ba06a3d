// SPDX-License-Identifier: GPL-3.0-or-later
#include "apt/aptcandidates.h"
#include "apt/aptutils.h"
#include "apt/versionorder.h"
#include "core/settingskeys.h"
#include "depends/dependscheck.h"
#include "depends/dependscollection.h"
#include "depends/dependsreport.h"
#include "depends/localcandidates.h"
#include "support/localapt.h"
#include "support/testenvironment.h"

#include <QSemaphore>

#include <utility>

namespace
{
/** A package from the lines of its control data, which are separated by semicolons here. */
PackageInfoPtr package(const QString &fields, PackageType type = PackageType::Deb)
{
    auto info = QSharedPointer<PackageInfo>::create();
    info->control = ControlText(QString(fields).replace("; "_s, "\n"_s).toUtf8() + '\n');
    info->name = info->control.field("Package");
    info->version = info->control.field("Version");
    info->architecture = info->control.field("Architecture");
    if (info->architecture.isEmpty())
        info->architecture = "amd64"_s;
    info->component = "main"_s;
    info->type = type;
    return info;
}

PackageInfoPtr needing(const QString &depends, PackageType type = PackageType::Deb)
{
    return package("Package: p; Version: 1; Depends: "_s + depends, type);
}

/** A source with its packages written as "name version", and with providers, "name provided". */
class FakeSource : public CandidateSource
{
public:
    /** `runs` is how many announcements it takes until it is stopped; below 0 it never is. */
    FakeSource(const QStringList &packages, QStringList providers, int runs = -1)
        : m_providers(std::move(providers))
        , m_runs(runs)
    {
        for (const QString &entry : packages)
            m_packages.insert(entry.section(u' ', 0, 0), entry.section(u' ', 1));
    }
    bool prefetch(const QVector<PackageQuestion> &questions, const StopRequest & /*stopped*/) override
    {
        for (const PackageQuestion &question : questions)
            asked.append(question.name + u':' + question.architecture);
        return m_runs-- != 0;
    }
    QVector<Candidate> candidates(const PackageQuestion &question) const override
    {
        QVector<Candidate> result;
        if (question.architecture == "amd64"_s && m_packages.contains(question.name))
            result.append({"http://h s amd64"_s, m_packages[question.name]});
        return result;
    }
    void getReady(const StopRequest & /*stopped*/) override
    {
        QSemaphore().tryAcquire(1, 50); // takes its time
        isReady = true;
    }
    bool prefetchProviders(const QVector<PackageQuestion> & /*questions*/,
                           const StopRequest & /*stopped*/) override
    {
        ++providerRuns;
        wasReady = isReady;
        return m_runs-- != 0;
    }
    QVector<Provider> providers(const PackageQuestion &question) const override
    {
        QVector<Provider> names;
        for (const QString &entry : m_providers) {
            if (entry.section(u' ', 1) == question.name)
                names.append({entry.section(u' ', 0, 0), {}, {}});
        }
        return names;
    }
    QStringList asked;
    bool isReady = false;
    bool wasReady = false; ///< when it was asked last
    int providerRuns = 0;

private:
    QHash<QString, QString> m_packages;
    QStringList m_providers;
    int m_runs;
};

/** "name:arch (constraints)" with "=status", then what was found, then the providers in brackets. */
QString printed(const Dependency &dependency)
{
    QString text = dependencyText(dependency, "amd64"_s) + u'=' + QString::number(dependency.status);
    for (auto found = dependency.foundVersions.cbegin(); found != dependency.foundVersions.cend(); ++found)
        text += " %1 %2 %3"_s.arg(
            found.key().section(u' ', 0, 0), found->version, QString::number(found->status));
    QStringList providers;
    for (const Dependency &provider : dependency.providers)
        providers.append(printed(provider));
    return providers.isEmpty() ? text : text + " ["_s + providers.join("; "_s) + u']';
}

/** The entries, with their keys where these are not the first names, and the package's status behind. */
QString printed(const DependsInfo &info)
{
    QStringList entries;
    for (const DependencyGroup &group : info.groups) {
        QStringList alternatives;
        for (const Dependency &dependency : group.alternatives)
            alternatives.append(printed(dependency));
        const bool usual = group.key == group.alternatives.first().name;
        entries.append((usual ? QString() : u'"' + group.key + "\" "_s)
                       + (group.isPreDepends ? "! "_s : QString()) + alternatives.join(" | "_s));
    }
    return entries.join(", "_s) + " => "_s + QString::number(info.status);
}
} // namespace

class TestDependsCheck : public QObject
{
    Q_OBJECT

    QTemporaryDir m_root;

    QString path(const QString &name) const { return m_root.filePath(name); }

    static QString
    checked(const PackageInfoPtr &package, const QList<PackageInfoPtr> &repository, FakeSource &apt, int from)
    {
        LocalCandidates local(repository);
        QString result = "none"_s;
        DependsCheck(from, &local, &apt).run({package}, [&result](const auto &, const auto &info) {
            result = printed(*info);
        });
        return result;
    }

private Q_SLOTS:
    void versionsAreOrderedAsDpkgDoes()
    {
        VELT_NEED_TOOL("dpkg");
        const QStringList versions
            = "1.0|1.0-1|1.0-0|1.0~rc1|1.0~|1:0.1|+1:0.1|0:1.0|1.00|1.0-1.0|1.|1.0a|1.0+b1|1.0-|-1|| 1.0 |1 "
              "0|:1|"
              "x:1|1:|a|1_0|1é|~|1:2:3|1-2-3|99999999999:1|2147483647:1|<unknown>|-0:1|20240101.git-1~bpo"_list;
        const QStringList operators = "<<|<=|<|=|>=|>>|>"_list;
        QStringList arguments{
            "-c"_s,
            "while [ $# -gt 0 ]; do dpkg --compare-versions \"$1\" \"$2\" \"$3\" 2>/dev/null && printf 1 || "
            "printf 0; shift 3; done"_s,
            "sh"_s};
        QString ours;
        for (int i = 0; i < versions.size(); ++i) {
            for (int j = 0; j < versions.size(); ++j) {
                const QString &op = operators.at((i * 3 + j) % operators.size());
                arguments << versions.at(i) << op << versions.at(j);
                ours += VersionOrder::holds(versions.at(i), op, versions.at(j)) ? u'1' : u'0';
            }
        }
        const QString dpkgs = runProcess({"sh"_s, arguments, {}, {}, -1}).output;
        QCOMPARE(dpkgs.size(), ours.size());
        for (int i = 0; i < ours.size(); ++i) {
            if (ours.at(i) != dpkgs.at(i))
                QCOMPARE(ours.mid(i, 1) + arguments.mid(3 + i * 3, 3).join(u' '), dpkgs.mid(i, 1));
        }
    }

    void verdicts_data()
    {
        QTest::addColumn<QString>("depends");
        QTest::addColumn<int>("from");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *depends, int from, const char *expected) {
            QTest::addRow("%d: %s", from, depends)
                << QString::fromUtf8(depends) << from << QString::fromUtf8(expected);
        };
        row("libc6 (>= 2.17)", 1, "libc6 (>= 2.17)=1 Local 2.31 1 => 1");
        row("one (<< 1.0)", 3, "one (<< 1.0)=0 http://h 1.0 0 => 0");
        row("mta", 3, "mta=1 [exim=0; postfix=1 http://h 3.7 1] => 1");
        row("mta", 1, "mta=0 [exim=0; postfix=0] => 0");
        row("perlapi (>= 5)", 1, "perlapi (>= 5)=1 [perl (= 5.36)=1 Local 5.36 1] => 1");
        // The version of what is provided counts, not that of the package; of the two gcc the newer does.
        row("gcc1 (>= 1:3)", 1, "gcc1 (>= 1:3)=1 [gcc (= 12)=1 Local 12 1] => 1");
        row("gcc1 (>= 1:20), old (>= 2)", 1, "gcc1 (>= 1:20)=0, old (>= 2)=0 => 0");
        row("meal (<= 3)", 1, "meal (<= 3)=1 [two (<= 3)=1 Local 2 1] => 1");
        row("perlapi", 3, "perlapi=1 [perl=1 Local 5.36 1; perlx=0] => 1");
        row("nosuch | one", 3, "nosuch=0 | one=1 http://h 1.0 1 => 1");
        row("libc6:any, one:i386", 3, "libc6=1 Local 2.31 1, one:i386=0 => 0");
        row("libc6", 0, "none");
        row(" , |", 3, " => 1");
        row("one(>=1)|two", 2, "one (>= 1)=1 http://h 1.0 1 | two=0 => 1");
        row("two (>= 1), two (<< 3)", 1, "two (>= 1, << 3)=1 Local 2 1 => 1");
        // Several versions: one of them has to meet both constraints, and the best of those is told.
        row("two (>> 2), two (<< 4)", 1, "two (>> 2, << 4)=0 Local 4 0 => 0");
        row("both", 3, "both=1 Local 1 1 http://h 2 1 => 1");
        row("both (<= 1), libc6", 2, "both (<= 1)=0 http://h 2 0, libc6=0 => 0");
        row("two (>= 1), two (<< 5), two (>> 4)",
            1,
            "two (>= 1, << 5)=1 Local 4 1, \"two (>> 4)\" two (>> 4)=0 Local 4 0 => 0");
        // An alternative must not help past the other entry, nor hide it.
        row("two (>= 9) | libc6, two (<< 1)",
            1,
            "two (>= 9)=0 Local 4 0 | libc6=1 Local 2.31 1, \"two (<< 1)\" two (<< 1)=0 Local 4 0 => 0");
        row("two (<< 1) | libc6, two",
            1,
            "two (<< 1)=0 Local 4 0 | libc6=1 Local 2.31 1, \"two #2\" two=1 Local 4 1 => 1");
        row("two, two (>= 3)", 1, "two (>= 3)=1 Local 4 1 => 1");
        row("libc6,\n one,\n\tnosuch", 3, "libc6=1 Local 2.31 1, nosuch=0, one=1 http://h 1.0 1 => 0");
        row("installer", 3, "installer=0 => 0");
        row("two (>= 1-)", 1, "two (>= 1-)=0 Local 4 0 => 0");
        row("libc6, one; Pre-Depends: libc6 (>= 9), nosuch | two",
            3,
            "libc6=1 Local 2.31 1, \"libc6 (Pre-Depends)\" ! libc6 (>= 9)=0 Local 2.31 0, "
            "! nosuch=0 | two=1 Local 4 1, one=1 http://h 1.0 1 => 0");
        row("self (>= 2)", 1, "self (>= 2)=0 Local 1 0 => 0");
    }

    void verdicts()
    {
        QFETCH(QString, depends);
        QFETCH(int, from);
        const QList<PackageInfoPtr> repository{
            package("Package: libc6; Version: 2.31"_s),
            package("Package: libc6; Version: 9; Architecture: i386"_s),
            package("Package: perl; Version: 5.36; Provides: x, perlapi (= 5.36)"_s),
            package("Package: gcc; Version: 12; Provides: gcc1 (= 1:12), old (= 1)"_s),
            package("Package: gcc; Version: 11; Provides: gcc1 (= 1:11)"_s),
            package("Package: two; Version: 2; Provides: meal"_s),
            package("Package: two; Version: 4"_s),
            package("Package: both; Version: 1"_s),
            package("Package: self; Version: 1; Provides: self"_s),
            package("Package: installer; Version: 1; Provides: mta"_s, PackageType::Udeb)};
        FakeSource apt({"one 1.0"_s, "postfix 3.7"_s, "both 2"_s},
                       {"exim mta"_s, "postfix mta"_s, "perlx perlapi"_s});
        QTEST(checked(needing(depends), repository, apt, from), "expected");
    }

    void manyPackages()
    {
        QList<PackageInfoPtr> packages;
        for (int i = 0; i < 5000; ++i)
            packages.append(package("Package: n%1; Version: 1; Depends: n%2 (= 1), common"_s.arg(
                QString::number(i), QString::number((i + 1) % 5000))));
        LocalCandidates local(packages);
        FakeSource apt({"common 1"_s}, {});
        int count = 0;
        const auto inOrder = [&](const PackageInfoPtr &package, const auto &result) {
            // A circle of five thousand is all satisfied.
            QVERIFY(package == packages.at(count++) && result->status == DependSuccess);
        };
        QCOMPARE(DependsCheck(DependsEverywhere, &local, &apt).run(packages, inOrder), 5000);
        QCOMPARE(count, 5000);
        // Each question is put once a job.
        QCOMPARE(apt.asked.size(), QSet<QString>(apt.asked.cbegin(), apt.asked.cend()).size());
        QCOMPARE(apt.asked.count("common:amd64"_s), 1);

        count = 0;
        const auto afterThree = [&count] { return count == 3; };
        QCOMPARE(DependsCheck(DependsLocal, &local, &apt)
                     .run(
                         packages, [&](auto, auto) { ++count; }, afterThree),
                 3);
        QCOMPARE(count, 3);

        // All that the repository lacks is asked for in one run, once the source is ready for it.
        apt.providerRuns = 0;
        QCOMPARE(DependsCheck(DependsLocal, &local, &apt).run(packages, [](auto, auto) {}), 5000);
        QCOMPARE(apt.providerRuns, 1);
        QVERIFY(apt.wasReady);
    }

    void whatIsKnownAtAStopIsHandedOut()
    {
        // Ten names each, and every tenth package one that nobody has.
        QList<PackageInfoPtr> packages;
        QStringList known;
        for (int i = 0; i < 500; ++i) {
            QStringList names;
            for (int j = 0; j < 10; ++j)
                names << (i % 10 == 9 && j == 0 ? "x%1"_s : "n%1-%2"_s.arg(j)).arg(i);
            known += names.filter("n"_s).replaceInStrings(QRegularExpression("$"_s), " 1"_s);
            packages.append(needing(names.join(", "_s)));
        }
        // The names come in three runs, then who provides what is missing, and those names once more.
        const QVector<int> expected{0, 180, 360, 450, 450, 500};
        for (int runs = 0; runs < expected.size(); ++runs) {
            FakeSource source(known, {}, runs);
            int errors = 0;
            const auto count = [&errors](const PackageInfoPtr & /*package*/, const auto &result) {
                errors += static_cast<int>(result->status == DependError);
            };
            QCOMPARE(DependsCheck(DependsPublic, nullptr, &source).run(packages, count), expected.at(runs));
            QCOMPARE(errors, runs == 5 ? 50 : 0);
        }
    }

    void aptInBatchesSaysWhatItSaysOneByOne()
    {
        VELT_NEED_TOOL("apt-get");
        // Packages of this machine, in three indices: every third name also in another version elsewhere.
        const auto known = QString::fromUtf8(readFile("/var/lib/dpkg/status"_s)).split("\n\n"_s);
        QHash<QString, QByteArray> indices;
        QByteArray installed;
        QVector<PackageQuestion> questions;
        for (int i = 0; i < qMin(200, known.size() - 1); ++i) {
            const ControlText control(known.at(i).toUtf8());
            const QString name = control.field("Package");
            const auto record = [&](const QString &version, const QString &architecture) {
                return "Package: %1\nVersion: %2\nArchitecture: %3\nProvides: %4\nMaintainer: M "
                       "<m@example.org>\n"
                       "Filename: pool/%1_%2.deb\nSize: 1\nSHA256: %5\nDescription: d\n"_s
                           .arg(name,
                                version,
                                architecture,
                                i % 50 == 0 ? "fruit"_s : "kind-%1 (= 1)"_s.arg(i),
                                QString(64, u'0'))
                           .toUtf8();
            };
            const QString version = control.field("Version");
            if (i % 7 != 0)
                indices["one/dists/dogwood/main/binary-amd64"_s] += record(version, "amd64"_s) + '\n';
            if (i % 7 == 2 && i % 3 != 0)
                indices["two/dists/dogwood/main/binary-amd64"_s] += record(version, "amd64"_s) + '\n';
            if (i % 3 == 0)
                indices["two/dists/dogwood/main/binary-amd64"_s]
                    += record(i % 2 == 0 ? version : "9:"_s + version.section(u':', -1), "all"_s) + '\n';
            if (i % 5 == 0)
                indices["one/dists/dogwood/main/binary-i386"_s] += record("0.1"_s, "i386"_s) + '\n';
            if (i % 4 == 0)
                installed += record(i % 8 == 0 ? version : "0~old"_s, "amd64"_s)
                             + "Status: install ok installed\n\n";
            for (const QString &architecture : {"amd64"_s, "i386"_s})
                questions.append({name, architecture, PackageType::Deb});
        }
        for (auto index = indices.cbegin(); index != indices.cend(); ++index)
            writeFile(path(index.key() + "/Packages"_s), *index);
        writeFile(path("status"_s), installed);
        writeFile(path("etc/apt.conf.d/foreign"_s), R"(APT::Architectures { "amd64"; "i386"; };)");
        writeFile(path("etc/sources.list.d/foreign.list"_s),
                  "deb [trusted=yes arch=i386] file:" + path("one"_s).toUtf8() + " dogwood main\n");
        const LocalApt sources(m_root.path(), {"one"_s, "two"_s});

        // Names that nobody knows push the rest into later runs; together they are more than one run can be given.
        QVector<PackageQuestion> all = questions.mid(0, 20);
        all.append({"-o"_s, "amd64"_s, PackageType::Deb});
        for (int i = 0; i < 20; ++i)
            all.append({"no%1"_s.arg(i) + QString(110000, u'x'), "amd64"_s, PackageType::Deb});
        all += questions;
        AptCandidates apt;
        apt.prefetch(all, {});
        apt.prefetchProviders(all + QVector<PackageQuestion>{{"fruit"_s, "amd64"_s, PackageType::Deb}}, {});
        QVERIFY2(!apt.failed(), qPrintable(apt.errorDetail()));
        AptUtils single;
        int found = 0;
        for (int i = 0; i < questions.size(); i += 1 + i % 2 * 2) {
            const PackageQuestion &question = questions.at(i);
            QSet<QString> expected;
            const auto versions = single.packageVersions(question.name, question.architecture);
            for (auto it = versions.cbegin(); it != versions.cend(); ++it) {
                for (const QString &origin : *it)
                    expected.insert(origin + u' ' + it.key());
            }
            QSet<QString> got;
            for (const Candidate &candidate : apt.candidates(question))
                got.insert(candidate.source + u' ' + candidate.version);
            // Of a version that two sources have alike, apt shows one.
            const bool isShared = question.architecture == "amd64"_s && i / 2 % 7 == 2 && i / 2 % 3 != 0;
            QVERIFY2(isShared ? got.contains(expected) && got.size() > expected.size() : got == expected,
                     qPrintable(question.name + u':' + question.architecture));
            found += got.size();
        }
        QVERIFY2(found > 100, qPrintable(QString::number(found)));
        QStringList names;
        for (const Provider &provider : apt.providers({"fruit"_s, {}}))
            names.append(provider.name);
        names.removeDuplicates();
        QVERIFY(names.size() > 1);
        QCOMPARE(names, single.providers("fruit"_s));
        QVERIFY(apt.candidates({questions.first().name, "amd64"_s, PackageType::Udeb}).isEmpty());

        // Where one source does not count, the other has what both have; the last question is on such a package.
        const PackageQuestion shared = questions.at(2 * (2 + 7 * 2));
        for (const QString &source : {"/one "_s, "/two "_s}) {
            AptCandidates filtered({}, [source](const QString &origin) { return origin.contains(source); });
            filtered.prefetch(questions, {});
            QCOMPARE(filtered.candidates(shared).size(), 1);
            for (const PackageQuestion &question : std::as_const(questions)) {
                for (const Candidate &candidate : filtered.candidates(question))
                    QVERIFY(candidate.source.contains(source));
            }
        }
        // An unknown name is no pattern that fits others.
        AptCandidates hostile;
        hostile.prefetch({{"b."_s, "amd64"_s, PackageType::Deb}, {"a.+"_s, "amd64"_s, PackageType::Deb}}, {});
        for (const PackageQuestion &question : std::as_const(questions))
            QVERIFY(hostile.candidates(question).isEmpty());

        // Sources that apt cannot read are one error for the whole job, and a dependency in error.
        AptCandidates broken(path("apt.conf"_s));
        QCOMPARE(broken.errorText(), QString());
        QString result;
        DependsCheck(DependsPublic, nullptr, &broken)
            .run({needing(questions.at(4).name)}, [&](auto, const auto &info) { result = printed(*info); });
        QCOMPARE(result, questions.at(4).name + "=0 => 0"_s);
        QCOMPARE(broken.errorText(), "Apt error"_s);
        QVERIFY2(broken.errorDetail().contains("apt.conf"_s), qPrintable(broken.errorDetail()));
    }

    void collection()
    {
        const QList<PackageInfoPtr> all{
            package("Package: a; Version: 1; Depends: b:any (>= 9) | x, c(= 7), nosuch"_s),
            package("Package: b; Version: 1; Depends: a, d|e"_s),
            package("Package: b; Version: 2; Depends: d"_s),
            package("Package: c; Version: 1; Architecture: i386"_s),
            package("Package: d; Version: 1; Pre-Depends: f"_s),
            package("Package: e; Version: 1"_s),
            package("Package: f; Version: 1"_s)};
        // The higher b, with what it needs; neither itself, although in a circle, nor another architecture's c.
        QCOMPARE(localDependencies({all.first()}, LocalCandidates(all)),
                 (QList<PackageInfoPtr>{all.at(2), all.at(4), all.at(6)}));
        QCOMPARE(localDependencies({all.at(1)}, LocalCandidates(all)),
                 (QList<PackageInfoPtr>{all.at(0), all.at(4), all.at(2), all.at(6)}));
    }

    void reports()
    {
        LocalCandidates local({package("Package: foo; Version: 1.5; Provides: bar"_s)});
        QList<PackageInfoPtr> packages;
        const auto keep = [&packages](const PackageInfoPtr &package, const auto &result) {
            PackageInfo info = *package;
            info.dependsInfo = result;
            packages.append(QSharedPointer<PackageInfo>::create(info));
        };
        DependsCheck(DependsLocal, &local, nullptr)
            .run({needing("foo (>= 2.0), foo (<< 3) , bar"_s),
                  needing("nosuch | foo (>> 8); Pre-Depends: some | other"_s),
                  needing("foo, bar"_s)},
                 keep);
        packages.append(needing("foo"_s));
        const auto reason = [&packages](int index, const char *key) {
            const DependsInfo &info = *packages.at(index)->dependsInfo;
            for (const DependencyGroup &group : info.groups) {
                if (group.key == QLatin1String(key))
                    return DependsReport::explanation(group, info.selection);
            }
            return QString();
        };
        QCOMPARE(reason(0, "foo"), "foo (>= 2.0, << 3): needs >= 2.0, << 3, Local offers 1.5"_s);
        QCOMPARE(reason(0, "bar"), "bar: provided by foo"_s);
        QCOMPARE(reason(1, "nosuch"),
                 "nosuch: the repository does not hold it (public sources were not asked)\n"
                 "foo (>> 8): needs >> 8, Local offers 1.5"_s);
        QCOMPARE(reason(2, "foo"), "foo: Local offers 1.5"_s);
        const auto summary = DependsReport::summary(packages);
        QCOMPARE(summary.errors * 100 + summary.satisfied * 10 + summary.unchecked, 211);
        QCOMPARE(summary.mostWanted.size(), 3);
        const DependsReport::Heading heading{"/srv/r"_s, "all repos"_s, QDateTime({2026, 11, 21}, {7, 5})};
        const QString text = DependsReport::text(packages, heading);
        QVERIFY(text.startsWith("Repository: /srv/r\nMode: all repos\nDate: 2026-11-21T07:05:00\n\n"_s));
        QVERIFY2(
            text.contains(
                "\np 1 (main, amd64)\n  nosuch | foo (>> 8): nosuch: the repository does not hold it "
                "(public sources were not asked); foo: needs >> 8, Local offers 1.5\n  Pre-Depends: some | "
                "other: the repository does not hold it (public sources were not asked)\n"_s),
            qPrintable(text));
        PackageInfo early = *packages.at(1);
        early.name = "a"_s;
        const QString sorted = DependsReport::text({packages.at(1), PackageInfoPtr::create(early)}, heading);
        QVERIFY(sorted.indexOf("\na 1 ("_s) > 0 && sorted.indexOf("\na 1 ("_s) < sorted.indexOf("\np 1 ("_s));
        const auto json = DependsReport::json(packages, heading);
        QCOMPARE(json["repository"_s].toString() + json["mode"_s].toString(), "/srv/rall repos"_s);
        QCOMPARE(json["packages"_s][1]["missing"_s][0]["entry"_s].toString(), "nosuch | foo (>> 8)"_s);
        // What is not known of the check is not said.
        QVERIFY(DependsReport::text(packages, {"/srv/r"_s, {}, {}}).startsWith("Repository: /srv/r\n\n"_s));
        const auto bare = DependsReport::json(packages, {"/srv/r"_s, {}, {}});
        QVERIFY(!bare.contains("mode"_s) && !bare.contains("date"_s) && bare.contains("errors"_s));
    }
};

VELT_TEST_MAIN(TestDependsCheck, QCoreApplication)
#include "tst_dependscheck.moc"
