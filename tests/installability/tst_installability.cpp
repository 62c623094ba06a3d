// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/aptsimulation.h"
#include "installability/checkedindex.h"
#include "installability/dosedebcheck.h"
#include "installability/installabilitycheck.h"
#include "installability/installabilityreasons.h"
#include "installability/madepackages.h"
#include "installability/reverseneeds.h"
#include "installability/simulatedinstallation.h"
#include "support/testenvironment.h"

#include <set>
#include <utility>

namespace
{
const InstallSystem OneArchitecture{"amd64"_s, {}};
const InstallSystem TwoArchitectures{"amd64"_s, {"i386"_s}};

QStringList sorted(const QSet<QString> &names)
{
    QStringList list = names.values();
    list.sort();
    return list;
}

/** The first difference between the verdicts; empty when there is none. */
QString difference(const QByteArray &index, const InstallSystem &system)
{
    const DoseDebcheck::Verdict judged = DoseDebcheck::judge(index, system);
    if (!judged.error.isEmpty())
        return judged.error;
    const QSet<QString> broken = brokenHere(index, system);
    if (broken == judged.broken)
        return {};
    return "broken only here: %1\nbroken only for dose-debcheck: %2\n"_s.arg(
        sorted(broken - judged.broken).join(", "_s), sorted(judged.broken - broken).join(", "_s));
}

/** The difference, shown with as few packages as have one. */
QString smallestDifference(MadePackages packages, const InstallSystem &system)
{
    const auto stays = [&system](const MadePackages &fewer) {
        const QString text = difference(indexOf(fewer), system);
        return text.startsWith("broken only"_s);
    };
    const auto dropPackages = [&] {
        for (std::size_t i = packages.size(); i-- > 0;) {
            MadePackages fewer = packages;
            fewer.erase(fewer.begin() + static_cast<std::ptrdiff_t>(i));
            if (stays(fewer))
                packages = fewer;
        }
    };
    dropPackages();
    for (std::size_t i = 0; i < packages.size(); ++i) {
        for (std::size_t field = 0; field < MadePackage::FieldCount; ++field) {
            for (std::size_t entry = packages[i].fields[field].size(); entry-- > 0;) {
                MadePackages fewer = packages;
                auto &entries = fewer[i].fields[field];
                entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(entry));
                if (stays(fewer))
                    packages = fewer;
            }
        }
    }
    // Without relations, some more are not needed.
    dropPackages();
    const QByteArray index = indexOf(packages);
    return difference(index, system) + QString::fromUtf8(index);
}

/**
 * An index from a short form: "t 1 amd64 Depends: n, m | n 2 i386 foreign" and so on, where a package that ends with
 * "essential" is one.
 */
QByteArray indexFrom(const QString &packages)
{
    QString index;
    const QStringList list = packages.split(" / "_s);
    for (const QString &package : list) {
        const int relations = package.indexOf(QRegularExpression(" [A-Z]"_s));
        const QStringList words = package.left(relations).split(u' ');
        index += "Package: %1\nVersion: %2\nArchitecture: %3\n"_s.arg(words.at(0), words.at(1), words.at(2));
        if (words.value(3) == "essential"_s)
            index += "Essential: yes\n"_s;
        else if (words.size() > 3)
            index += "Multi-Arch: %1\n"_s.arg(words.at(3));
        if (relations >= 0)
            index += package.mid(relations + 1).replace("; "_s, "\n"_s) + u'\n';
        index += u'\n';
    }
    return index.toUtf8();
}

std::string nameOf(const MadePackage &package)
{
    return package.name + ' ' + package.version + ' ' + package.architecture;
}

QString nameOf(const NamedPackage &package)
{
    return package.name + u' ' + package.version + u' ' + package.architecture;
}

/** The package and those that the steps name, with no more relations than the steps have. */
MadePackages namedIn(const QVector<InstallabilityStep> &steps, const QString &asked, const MadePackages &all)
{
    const QStringList fields = "Pre-Depends|Depends|Conflicts|Breaks"_list;
    MadePackages result;
    for (MadePackage package : all) {
        const QString name = QString::fromStdString(nameOf(package));
        const auto isMeant = [&name](const NamedPackage &named) { return nameOf(named) == name; };
        bool isNamed = name == asked;
        package.essential = false;
        std::array<std::vector<MadePackage::Entry>, MadePackage::FieldCount> kept;
        kept[MadePackage::Provides] = package.fields[MadePackage::Provides];
        for (const InstallabilityStep &step : steps) {
            const bool isTarget = std::any_of(step.targets.begin(), step.targets.end(), isMeant);
            isNamed = isNamed || isTarget || isMeant(step.package);
            package.essential = package.essential || (isTarget && step.field == "Essential"_s);
            const int field = fields.indexOf(step.field);
            if (field < 0 || !isMeant(step.package))
                continue;
            for (const MadePackage::Entry &entry : package.fields[static_cast<std::size_t>(field)]) {
                if (MadePackage::textOf(entry) == step.relation.toStdString())
                    kept[static_cast<std::size_t>(field)].push_back(entry);
            }
        }
        package.fields = kept;
        if (isNamed)
            result.push_back(package);
    }
    return result;
}

bool haveDifferentNames(const MadePackages &packages)
{
    std::set<std::string> names;
    return std::all_of(packages.begin(), packages.end(), [&names](const MadePackage &package) {
        return names.insert(package.name).second;
    });
}

bool isBrokenForJudge(const QString &package, const MadePackages &packages, const InstallSystem &system)
{
    const DoseDebcheck::Verdict verdict = DoseDebcheck::judge(indexOf(packages), system);
    if (!verdict.error.isEmpty())
        qFatal("%s", qPrintable(verdict.error));
    return verdict.broken.contains(package);
}
} // namespace

/** Verdicts, compared package by package with a complete solver, and with apt where the solver is wrong. */
class TestInstallability : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sameVerdicts()
    {
        VELT_NEED_TOOL("dose-debcheck");
        int broken = 0;
        int all = 0;
        for (unsigned seed = 1; seed <= 200; ++seed) {
            for (const InstallSystem &system : {OneArchitecture, TwoArchitectures}) {
                const MadePackages packages = madeRepository(seed, !system.foreign.isEmpty());
                const QByteArray index = indexOf(packages);
                const QString text = difference(index, system);
                if (!text.isEmpty())
                    qWarning("seed %u: %s", seed, qPrintable(smallestDifference(packages, system)));
                QVERIFY2(text.isEmpty(),
                         qPrintable("seed %1, %2 architectures"_s.arg(seed).arg(system.foreign.size() + 1)));
                broken += brokenHere(index, system).size();
                all += static_cast<int>(packages.size());
            }
        }
        // Neither of the verdicts is rare.
        QVERIFY(broken > all / 5 && broken < all * 4 / 5);
    }

    /**
     * Hand-made cases, each judged by all. What dose-debcheck decides otherwise is its fault; apt takes only the newest
     * version of what it was not asked for.
     */
    void rules()
    {
        VELT_NEED_TOOL("dose-debcheck");
        VELT_NEED_TOOL("apt-get");
        enum Judge { Nobody = 0, Dose = 1, Apt = 2 };
        // The first package is the one that is asked about.
        const auto row = [](const char *packages, bool isInstallable, int others = Nobody) {
            const QByteArray index = indexFrom(QString::fromLatin1(packages));
            const QString asked = QString::fromLatin1(packages).split(u' ').mid(0, 3).join(u' ');
            const DoseDebcheck::Verdict dose = DoseDebcheck::judge(index, TwoArchitectures);
            QVERIFY2(dose.error.isEmpty(), qPrintable(dose.error));
            const bool here = !brokenHere(index, TwoArchitectures).contains(asked);
            const bool doseAgrees = dose.broken.contains(asked) != isInstallable;
            const bool aptAgrees = AptSimulation(index, TwoArchitectures).installs({asked}) == isInstallable;
            QVERIFY2(here == isInstallable, packages);
            QVERIFY2(doseAgrees == ((others & Dose) == 0), packages);
            QVERIFY2(aptAgrees == ((others & Apt) == 0), packages);
        };
        // What meets a dependency of another architecture.
        for (const char *multiArch : {"no", "same", "allowed", "foreign"}) {
            const auto both = [&](const char *packages, bool isInstallable, int others = Nobody) {
                row(qPrintable(QString::fromLatin1(packages).replace("MA"_s, QString::fromLatin1(multiArch))),
                    isInstallable,
                    others);
            };
            const bool isForeign = qstrcmp(multiArch, "foreign") == 0;
            const bool isAllowed = qstrcmp(multiArch, "allowed") == 0;
            both("t 1 amd64 Depends: n / n 1 i386 MA", isForeign);
            both("t 1 all Depends: n / n 1 i386 MA", isForeign);
            both("t 1 i386 Depends: v (= 2) / n 1 amd64 MA Provides: v (= 2)", isForeign);
            both("t 1 i386 Depends: n / n 1 all MA", isForeign);
            both("t 1 amd64 Depends: n:any / n 1 i386 MA", isAllowed, isAllowed ? Nobody : Dose);
            both("t 1 i386 Depends: n:any / n 1 all MA", isAllowed, isAllowed ? Nobody : Dose);
            both("t 1 amd64 Depends: v:any (>= 2) / n 1 i386 MA Provides: v (= 2)", isAllowed);
            both("t 1 amd64 Depends: n:any (>= 2) / n 1 amd64 MA", false, Dose);
            both("t 1 amd64 Depends: n:i386 / n 1 i386 MA", true);
            both("t 1 amd64 Depends: n:i386 / n 1 amd64 MA", false, isForeign ? Dose : Nobody);
            both("t 1 i386 Depends: n:native / n 1 all MA", true);
            both("t 1 i386 Depends: v / n 1 amd64 MA Provides: v:i386", true, isAllowed ? Dose : Nobody);
            // What a conflict hits.
            both("t 1 amd64 Depends: a, n:i386 / a 1 amd64 Conflicts: n / n 1 i386 MA", false);
            both("t 1 amd64 Depends: a, n:i386 / a 1 all Breaks: v (<< 3) / n 1 i386 MA Provides: v (= 2)",
                 false);
            both("t 1 amd64 Depends: a, n:i386 / a 1 amd64 Conflicts: n:amd64 / n 1 i386 MA",
                 true,
                 isForeign ? Dose : Nobody);
            both("t 1 amd64 Depends: a, n / a 1 amd64 Conflicts: n:any / n 1 amd64 MA",
                 !isAllowed,
                 isAllowed ? Nobody : Dose);
            both("t 1 amd64 Depends: a, n / a 1 amd64 Conflicts: n:any (<< 1) / n 1 amd64 MA", true, Dose);
            both("t 1 amd64 Depends: a, n / a 1 amd64 Conflicts: n:i386 / n 1 all MA",
                 true,
                 isForeign ? Dose : Nobody);
            // The same name twice.
            for (const char *other : {"no", "same", "allowed", "foreign"}) {
                const bool areSame = qstrcmp(multiArch, "same") == 0 && qstrcmp(other, "same") == 0;
                const bool hasForeign = isForeign || qstrcmp(other, "foreign") == 0;
                both(qPrintable("t 1 amd64 Depends: n:amd64, n:i386 / n 1 amd64 MA / n 1 i386 "_s
                                + QString::fromLatin1(other)),
                     areSame,
                     hasForeign ? Dose : Nobody);
                both(qPrintable("t 1 amd64 Depends: n:amd64, n:i386 / n 1 amd64 MA / n 2 i386 "_s
                                + QString::fromLatin1(other)),
                     false,
                     hasForeign ? Dose : Nobody);
            }
        }
        row("t 1 amd64 Depends: n:amd64, n:i386 / n 1 all same / n 1 i386 same", false, Dose);
        row("t 1 amd64 Depends: n:any / n 1 amd64 / m 1 i386 allowed Provides: n", true);
        // The two names of a compiler's libraries: the qualifiers name other packages.
        row("t 1 amd64 Depends: a, b / a 1 amd64 Conflicts: a:x32, b:i386 / b 1 amd64 Conflicts: a:x32, "
            "b:i386",
            true);
        // Its own name, and names that it provides itself.
        row("t 1 amd64 Conflicts: t, v; Provides: v; Breaks: t (<< 2)", true);
        row("t 1 amd64 Depends: a, b / a 1 amd64 Conflicts: v; Provides: v / b 1 amd64 Conflicts: v; "
            "Provides: v",
            false);
        row("t 1 amd64 Depends: n:amd64, n:i386 / n 1 amd64 same Conflicts: n, n:i386 / n 1 i386 same", true);
        row("t 1 amd64 Depends: n:amd64, n:i386 / n 1 amd64 same Conflicts: v / n 1 i386 same Provides: v",
            true,
            Dose);
        row("t 1 amd64 Depends: a, n / a 1 amd64 same Breaks: v (<< 3) / n 1 amd64 Provides: v (= 2)",
            false,
            Dose);
        // Provided versions.
        row("t 1 amd64 Depends: v (>= 1) / n 3 amd64 Provides: v", false);
        row("t 1 amd64 Depends: v (= 2) / n 3 amd64 Provides: v (= 2)", true);
        row("t 1 amd64 Depends: n (= 5) / n 3 amd64 Provides: n (= 5)", true);
        row("t 1 amd64 Depends: a, n / a 1 amd64 Conflicts: v (<< 3) / n 3 amd64 Provides: v", true);
        row("t 1 amd64 Depends: v:amd64 (>= 1) / n 3 amd64 Provides: v", false);
        // The old forms of operators mean "or equal".
        row("t 1 amd64 Depends: n (> 1) / n 1 amd64", true, Dose);
        row("t 1 amd64 Depends: n (< 1) / n 1 amd64", true, Dose);
        row("t 1 amd64 Depends: n (= 0:1-0) / n 1 amd64", true);
        // Versions of one name.
        row("t 1 amd64 Depends: n (<< 2), m / n 2 amd64 / m 1 amd64 Depends: n (>> 1)", false);
        row("t 1 amd64 Depends: n (= 1) / n 1 amd64 / n 2 amd64", true, Apt);
        row("t 1 amd64 Depends: n, n (<< 2) / n 1 amd64 / n 2 all", true, Apt);
        // Cycles, and a package that needs itself.
        row("t 1 amd64 Depends: a, t (>= 1) / a 1 amd64 Depends: t", true);
        row("t 1 amd64 Depends: a, b / a 1 amd64 Depends: t; Conflicts: b / b 1 amd64", false);
        row("t 1 amd64 Depends: t (>= 2)", false);
        row("t 1 amd64 Depends: a, b / a 1 amd64 Breaks: b; Replaces: b / b 1 amd64", false);
        // Essential packages are everywhere, but apt knows only those that are installed.
        row("t 1 amd64 / e 1 amd64 essential Depends: missing", false, Apt);
        row("t 1 amd64 Conflicts: e / e 1 amd64 essential", false, Apt);
        row("t 1 amd64 Breaks: e (<< 2) / e 1 amd64 essential / e 2 amd64 essential", true);
        row("t 1 amd64 Conflicts: e:i386 / e 1 amd64 essential / e 1 i386 essential", true);
        row("e 2 amd64 / e 1 amd64 essential", false, Apt);
    }

    /** The packages of a reason alone are a contradiction, and without any of its steps there is none. */
    void reasons()
    {
        VELT_NEED_TOOL("dose-debcheck");
        int reasons = 0;
        int longest = 0;
        for (unsigned seed = 1; seed <= 60; ++seed) {
            const InstallSystem &system = seed % 2 == 0 ? OneArchitecture : TwoArchitectures;
            const MadePackages packages = madeRepository(seed, seed % 2 != 0);
            Universe universe(system);
            addIndex(&universe, indexOf(packages));
            universe.finish();
            InstallabilityCheck check(universe);
            check.run(everyPackage(universe));
            InstallabilityReasons explained(check);
            int asked = 0;
            for (int i = 0; i < universe.count() && asked < 10; ++i) {
                if (check.state(i) != NotInstallable)
                    continue;
                ++asked;
                const QString name = nameOf(universe, i);
                const QVector<InstallabilityStep> steps = explained.reason(i);
                const QString where = "seed %1, %2"_s.arg(QString::number(seed), name);
                QVERIFY2(!steps.isEmpty(), qPrintable(where));
                QVERIFY2(
                    isBrokenForJudge(name, namedIn(steps, name, packages), system),
                    qPrintable(where + u'\n' + QString::fromUtf8(indexOf(namedIn(steps, name, packages)))));
                // Versions of one name exclude each other without a relation that could be left out.
                if (!haveDifferentNames(namedIn(steps, name, packages)))
                    continue;
                for (int left = 0; left < steps.size(); ++left) {
                    // The packages stay, only the relation goes.
                    QVector<InstallabilityStep> fewer = steps;
                    fewer[left].relation.clear();
                    if (steps.at(left).field == "Essential"_s)
                        fewer[left].field.clear();
                    QVERIFY2(!isBrokenForJudge(name, namedIn(fewer, name, packages), system),
                             qPrintable(where + ": step %1 can be left out\n"_s.arg(left)
                                        + QString::fromUtf8(indexOf(namedIn(steps, name, packages)))));
                }
                ++reasons;
                longest = std::max(longest, static_cast<int>(steps.size()));
            }
        }
        QVERIFY(reasons > 50 && longest > 3);
    }

    /** All that comes along can be installed together, with nothing else. */
    void simulatedInstallations()
    {
        VELT_NEED_TOOL("dose-debcheck");
        int largest = 0;
        for (unsigned seed = 1; seed <= 60; ++seed) {
            const InstallSystem &system = seed % 2 == 0 ? OneArchitecture : TwoArchitectures;
            const MadePackages packages = madeRepository(seed, seed % 2 != 0);
            const QSet<QString> broken = brokenHere(indexOf(packages), system);
            Universe universe(system);
            addIndex(&universe, indexOf(packages));
            universe.finish();
            const SimulatedInstallation simulated(universe);
            for (int i = 0; i < universe.count(); i += 9) {
                const QVector<int> installed = simulated.of(i);
                QCOMPARE(installed.isEmpty(), broken.contains(nameOf(universe, i)));
                if (installed.isEmpty())
                    continue;
                QCOMPARE(installed.first(), i);
                largest = std::max(largest, static_cast<int>(installed.size()));
                MadePackage all;
                all.name = "all-of-them";
                all.version = "1";
                all.architecture = "all";
                MadePackages alone;
                for (const int package : installed) {
                    const auto made
                        = std::find_if(packages.begin(), packages.end(), [&](const MadePackage &other) {
                              return QString::fromStdString(nameOf(other)) == nameOf(universe, package);
                          });
                    alone.push_back(*made);
                    all.fields[MadePackage::Depends].push_back(
                        {{made->name, made->installedAs(), "=", made->version}});
                }
                alone.push_back(all);
                QVERIFY2(!isBrokenForJudge("all-of-them 1 all"_s, alone, system), indexOf(alone).constData());
            }
        }
        QVERIFY(largest > 5);
    }

    /** What the judge finds broken only after packages have gone. */
    void lostWithout()
    {
        VELT_NEED_TOOL("dose-debcheck");
        int lost = 0;
        for (unsigned seed = 1; seed <= 200; ++seed) {
            const InstallSystem &system = seed % 2 == 0 ? OneArchitecture : TwoArchitectures;
            const MadePackages packages = madeRepository(seed, seed % 2 != 0);
            Universe universe(system);
            addIndex(&universe, indexOf(packages));
            universe.finish();
            QVector<int> gone;
            MadePackages left = packages;
            for (std::size_t i = seed % packages.size(); i < left.size() && gone.size() < 3; i += 7) {
                gone.append(packageOf(universe, QString::fromStdString(nameOf(left[i]))));
                left.erase(left.begin() + static_cast<std::ptrdiff_t>(i));
            }
            const DoseDebcheck::Verdict before = DoseDebcheck::judge(indexOf(packages), system);
            const DoseDebcheck::Verdict after = DoseDebcheck::judge(indexOf(left), system);
            QVERIFY2(before.error.isEmpty() && after.error.isEmpty(), qPrintable(before.error + after.error));
            QSet<QString> found;
            const QVector<int> without = ReverseNeeds(universe).lostWithout(gone);
            for (const int package : without)
                found.insert(nameOf(universe, package));
            QVERIFY2(found == after.broken - before.broken,
                     qPrintable("seed %1: %2 instead of %3"_s.arg(
                         QString::number(seed),
                         sorted(found).join(", "_s),
                         sorted(after.broken - before.broken).join(", "_s))));
            lost += found.size();
        }
        QVERIFY(lost > 50);
    }

    /** Sizes that no honest repository has. Each has a plain answer, found without trying every pair. */
    void hugeRelations()
    {
        const auto package = [](const QByteArray &name,
                                const QByteArray &fields,
                                const QByteArray &version = "1") -> QByteArray {
            return "Package: " + name + "\nVersion: " + version + "\nArchitecture: amd64\n" + fields + "\n\n";
        };
        const auto number = [](int i) { return QByteArray::number(i); };
        QByteArray index;
        QByteArray alternatives;
        QByteArray lacking;
        for (int i = 0; i < 10000; ++i) {
            // All of them provide one name and exclude whoever does so.
            index += package("one" + number(i), "Provides: only\nConflicts: only");
            alternatives += (i > 0 ? " | one" : "one") + number(i);
            lacking += (i > 0 ? " | none" : "none") + number(i);
        }
        index += package("choosing", "Depends: " + alternatives);
        index += package("choosing-nothing", "Depends: " + lacking);
        index += package("two-of-them", "Depends: one7, " + alternatives + ", one8");
        index += package("any-of-them", "Depends: only");
        for (int i = 0; i < 5000; ++i)
            index += package("cycle" + number(i), "Depends: cycle" + number((i + 1) % 5000));
        const QByteArray digits(1 << 20, '7');
        index += package("long-version", {}, digits);
        index += package("needs-longer", "Depends: long-version (>> " + digits + "1)");
        index += package("needs-long", "Depends: long-version (>= " + digits + ")");
        for (int i = 0; i < 500; ++i)
            index += package("compares" + number(i), "Depends: long-version (>= " + number(i) + ")");
        Universe universe(OneArchitecture);
        addIndex(&universe, index);
        universe.finish();
        // All the others would be like these, and each needs a search.
        QVector<int> asked{0, 1, 2, 3, 4, 5};
        for (int i = 10000; i < universe.count(); ++i)
            asked.append(i);
        InstallabilityCheck check(universe);
        QVERIFY(check.run(asked));
        QSet<QString> broken;
        for (const int one : std::as_const(asked)) {
            if (check.state(one) != Installable)
                broken.insert(nameOf(universe, one));
        }
        QCOMPARE(sorted(broken), "choosing-nothing 1 amd64|needs-longer 1 amd64|two-of-them 1 amd64"_list);
    }

    /** Packages that all exclude others by version would take gigabytes of rules: that is said, and not tried. */
    void tooManyRelations()
    {
        QByteArray index = "Package: fine\nVersion: 1\nArchitecture: amd64\n\n";
        for (int i = 1; i <= 4000; ++i) {
            const QByteArray number = QByteArray::number(i);
            index += "Package: p" + number + "\nVersion: 1\nArchitecture: amd64\nProvides: only (= " + number
                     + ")\nConflicts: only (<< " + number + ")\n\n";
        }
        Universe universe(OneArchitecture);
        addIndex(&universe, index);
        universe.finish();
        const int last = packageOf(universe, "p4000 1 amd64"_s);
        const int fine = packageOf(universe, "fine 1 amd64"_s);
        InstallabilityCheck check(universe);
        QVERIFY(check.run({fine, last}));
        QCOMPARE(check.state(fine), Installable);
        QCOMPARE(check.state(last), Installable);
        InstallabilityCheck ofAll(universe);
        QVERIFY(ofAll.run(everyPackage(universe)));
        QCOMPARE(ofAll.state(fine), Installable);
        QCOMPARE(ofAll.state(last), InstallabilityUndecided);
        QCOMPARE(ofAll.secondsOf(last), 0);
    }

    /** One nest less than birds: true only for who counts, and beyond every search. */
    void undecided()
    {
        const int nests = 16;
        QByteArray index = "Package: fine\nVersion: 1\nArchitecture: amd64\nConflicts: nest0\n\n"
                           "Package: flock\nVersion: 1\nArchitecture: amd64\nDepends: bird0";
        for (int bird = 1; bird <= nests; ++bird)
            index += ", bird" + QByteArray::number(bird);
        for (int bird = 0; bird <= nests; ++bird) {
            QByteArray places;
            QByteArray packages;
            for (int nest = 0; nest < nests; ++nest) {
                const QByteArray place = "place" + QByteArray::number(bird) + '-' + QByteArray::number(nest);
                places += (nest > 0 ? " | " : "") + place;
                packages += "\n\nPackage: " + place + "\nVersion: 1\nArchitecture: amd64\nProvides: nest"
                            + QByteArray::number(nest) + "\nConflicts: nest" + QByteArray::number(nest);
            }
            index += packages + "\n\nPackage: bird" + QByteArray::number(bird)
                     + "\nVersion: 1\nArchitecture: amd64\nDepends: " + places;
        }
        Universe universe(OneArchitecture);
        addIndex(&universe, index);
        QVERIFY(universe.finish([] { return false; }));
        const int flock = packageOf(universe, "flock 1 amd64"_s);
        const int fine = packageOf(universe, "fine 1 amd64"_s);

        Universe unfinished(OneArchitecture);
        addIndex(&unfinished, index);
        QVERIFY(!unfinished.finish([] { return true; }));
        InstallabilityCheck stopped(universe);
        int questions = 0;
        QVERIFY(!stopped.run({flock}, [&questions] { return ++questions > 100; }));
        // Without the stop it would be undecided.
        QCOMPARE(stopped.state(flock), InstallabilityUnknown);

        InstallabilityCheck check(universe);
        QVERIFY(check.run(everyPackage(universe)));
        QCOMPARE(check.state(flock), InstallabilityUndecided);
        QVERIFY(check.secondsOf(flock) >= InstallabilityCheck::LongestSearch);
        QCOMPARE(check.state(fine), Installable);
        QCOMPARE(check.state(packageOf(universe, "bird0 1 amd64"_s)), Installable);
    }
};

VELT_TEST_MAIN(TestInstallability, QCoreApplication)
#include "tst_installability.moc"
