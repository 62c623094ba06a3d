// SPDX-License-Identifier: GPL-3.0-or-later
#include "installability/installabilitystore.h"
#include "installability/packagesdigest.h"
#include "installability/steps.h"
#include "support/fulldisk.h"
#include "support/testenvironment.h"

#include <algorithm>
#include <csignal>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

using namespace Steps;

namespace
{
using Info = QSharedPointer<const InstallabilityInfo>;

const QString Repository = QStringLiteral("/srv/é \"x\"");

PackageInfoPtr record(const QString &name, const QByteArray &relations = {}, const Info &info = {})
{
    PackageInfo package;
    package.name = name;
    package.version = "1:2-3"_s;
    package.architecture = "amd64"_s;
    package.indexComponent = "main"_s;
    package.control = ControlText("Package: " + name.toUtf8() + "\nVersion: 1:2-3\n" + relations);
    package.installability = info;
    return QSharedPointer<PackageInfo>::create(package);
}

Info found(Installability state,
           const QVector<InstallabilityStep> &reason = {},
           const QStringList &recommends = {},
           int seconds = 0)
{
    return QSharedPointer<InstallabilityInfo>::create(InstallabilityInfo{state, reason, recommends, seconds});
}

template <typename Change>
PackageInfoPtr changed(const PackageInfoPtr &package, Change change)
{
    PackageInfo copy = *package;
    copy.installability.reset();
    change(copy);
    return QSharedPointer<PackageInfo>::create(copy);
}

PackageInfoPtr bare(const PackageInfoPtr &package)
{
    return changed(package, [](PackageInfo &) {});
}

QList<PackageInfoPtr> bare(QList<PackageInfoPtr> packages)
{
    for (PackageInfoPtr &package : packages)
        package = bare(package);
    return packages;
}

CompleteCheckRecord recordOf(const QByteArray &digest)
{
    return {{CompleteCheckBase::Repository, "/srv/other"_s, {"i386"_s, "arm64"_s}},
            QDateTime({2026, 3, 4}, {5, 6, 7}, QTimeZone::utc()),
            digest,
            false};
}

/** A check with the same number in its digest and in all of its reasons. */
StoredCompleteCheck numbered(int number)
{
    const QString text = QString::number(number);
    QList<PackageInfoPtr> packages;
    for (int i = 0; i < 2000; ++i)
        packages.append(record("p%1"_s.arg(i), {}, found(NotInstallable, {lacks("p"_s, text)})));
    return StoredCompleteCheck::of(packages, recordOf(text.toLatin1()));
}

/** The number of the save that wrote it; -1 when it comes from several, or is not whole. */
int numberOf(const StoredCompleteCheck &check)
{
    const QString number = QString::fromLatin1(check.record.digest);
    const bool isWhole
        = check.findings.size() == 2000
          && std::all_of(check.findings.cbegin(), check.findings.cend(), [&number](const Info &info) {
                 return info->reason.size() == 1 && info->reason.first().relation == number;
             });
    return isWhole ? number.toInt() : -1;
}

/** The packages of this machine, from dpkg's own list. */
QList<PackageInfoPtr> installedPackages()
{
    QList<PackageInfoPtr> packages;
    const QByteArray text = readFile("/var/lib/dpkg/status"_s);
    for (int begin = 0; begin < text.size();) {
        const int end = text.indexOf("\n\n", begin);
        PackageInfo package;
        package.control = ControlText(text.mid(begin, end - begin + 1));
        package.name = package.control.field("Package");
        package.version = package.control.field("Version");
        package.architecture = package.control.field("Architecture");
        packages.append(QSharedPointer<PackageInfo>::create(package));
        begin = end < 0 ? text.size() : end + 2;
    }
    return packages;
}
} // namespace

/** What is kept of complete checks between runs, and for which packages it still counts. */
class TestInstallabilityStore : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_file;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_file = m_folder->filePath("new/results.json"_s);
    }

    void comesBackForTheSamePackagesOnly()
    {
        const QString huge(100000, u'x');
        QStringList many;
        for (int i = 0; i < 1000; ++i)
            many.append("b %1"_s.arg(1000 - i));
        const Info broken = found(NotInstallable,
                                  {needs("a \"ä\" 1"_s, "b | c:any (>= 1)"_s, {"b 2 i386"_s, "c 1 all"_s}),
                                   lacks("b 2 i386"_s, "d"_s),
                                   excludes("c"_s, "Conflicts"_s, "e (<< 3)"_s, {"e 2.1"_s}),
                                   excludes("c"_s, {}, {}, {"c 2"_s})});
        const Info hostile = found(NotInstallable, {lacks("h"_s, huge, many)}, {huge});
        const QList<PackageInfoPtr> packages{
            record("broken"_s, "Depends: b | c:any (>= 1)\n", broken),
            record("soft"_s, "Recommends: x\n", found(Installable, {}, {"x"_s, "y | z"_s})),
            record("slow"_s, {}, found(InstallabilityUndecided, {}, {}, 11)),
            record("fine"_s, "Depends: x\n", found(Installable)),
            record("hostile"_s, {}, hostile),
            record("new"_s)};
        const CompleteCheckRecord saved = recordOf(PackagesDigest::of(packages));
        QVERIFY(InstallabilityStore(m_file).save(Repository, StoredCompleteCheck::of(packages, saved)));

        const StoredCompleteCheck check = InstallabilityStore(m_file).load(Repository);
        QCOMPARE(check.record, saved);
        const QList<PackageInfoPtr> fresh = bare(packages);
        QCOMPARE(PackagesDigest::of(fresh), saved.digest);
        const QList<PackageInfoPtr> merged = check.merged(fresh);
        for (int i = 0; i < 4; ++i)
            QVERIFY2(*merged.at(i)->installability == *packages.at(i)->installability,
                     qPrintable(merged.at(i)->name));
        QVERIFY2(fresh.first()->installability.isNull(), "a published record must not change");
        const InstallabilityStep bounded = merged.at(4)->installability->reason.first();
        QVERIFY(bounded.relation.size() < 5000 && bounded.targets.size() <= 200);
        QVERIFY(bounded.targets.first().version == "1000"_s && bounded.targets.last().version == "1"_s);
        QVERIFY(merged.last() == fresh.last());

        // A package that was not checked is not known, whatever its name.
        const PackageInfoPtr fine = packages.at(3);
        const QList<PackageInfoPtr> others{
            changed(fine, [](PackageInfo &p) { p.name = "other"_s; }),
            changed(fine, [](PackageInfo &p) { p.version = "1:2-4"_s; }),
            changed(fine, [](PackageInfo &p) { p.architecture = "i386"_s; }),
            changed(fine, [](PackageInfo &p) { p.indexComponent = "contrib"_s; }),
            changed(fine, [](PackageInfo &p) { p.type = PackageType::Udeb; }),
            record("fine"_s, "Depends: x (>= 2)\n")};
        const QList<PackageInfoPtr> afterwards = check.merged(others);
        for (int i = 0; i < others.size(); ++i)
            QVERIFY2(afterwards.at(i) == others.at(i), qPrintable(QString::number(i)));
    }

    void aRealListKnowsWhatHasChanged()
    {
        QList<PackageInfoPtr> packages = installedPackages();
        QVERIFY(packages.size() > 100);
        const QByteArray digest = PackagesDigest::of(packages);
        std::shuffle(packages.begin(), packages.end(), std::mt19937(1)); // NOLINT: the same order each time
        QCOMPARE(PackagesDigest::of(packages), digest);

        int changes = 0;
        for (PackageInfoPtr &package : packages) {
            const std::string_view view = package->control.text();
            const QByteArray text(view.data(), static_cast<int>(view.size()));
            const PackageInfoPtr before = package;
            const auto digestWith = [&](const QByteArray &control) {
                package = changed(before, [&](PackageInfo &p) { p.control = ControlText(control); });
                const quint64 one = PackagesDigest::of(*package);
                package = before;
                return one;
            };
            const quint64 own = PackagesDigest::of(*package);
            // What only people read means nothing, wherever it stands.
            QCOMPARE(digestWith(QByteArray(text).replace("Description:", "Description: Depends: x")), own);
            QCOMPARE(digestWith("Installed-Size: 7\n" + text + "Depends-On: x\n"), own);
            for (const char *field : {"\nDepends: ",
                                      "\nPre-Depends: ",
                                      "\nConflicts: ",
                                      "\nBreaks: ",
                                      "\nProvides: ",
                                      "\nRecommends: ",
                                      "\nMulti-Arch: "}) {
                if (!text.contains(field))
                    continue;
                ++changes;
                QVERIFY2(digestWith(QByteArray(text).replace(field, QByteArray(QByteArray(field) + "x, ")))
                             != own,
                         field);
                QVERIFY2(
                    digestWith(QByteArray(text).replace(field, QByteArray(QByteArray(field) + "x,\n y, ")))
                        != own,
                    field);
                QVERIFY2(digestWith(QByteArray(text).replace(field, "\nX-Old: ")) != own, field);
            }
        }
        QVERIFY(changes > 100);
        const PackageInfoPtr last = packages.takeLast();
        QVERIFY(PackagesDigest::of(packages) != digest);
        packages << last << last;
        QVERIFY(PackagesDigest::of(packages) != digest);
    }

    void movesWithItsRepository()
    {
        const InstallabilityStore store(m_file);
        QVERIFY(store.move("/a"_s, "/b"_s) && store.remove("/a"_s) && !QFile::exists(m_file));
        for (int i = 1; i <= 3; ++i)
            QVERIFY(store.save("/%1"_s.arg(i), numbered(i)));
        QVERIFY(store.move("/1"_s, "/3"_s) && store.move("/2"_s, "/2"_s) && store.move("/none"_s, "/4"_s));
        QCOMPARE(numberOf(store.load("/3"_s)), 1);
        QCOMPARE(numberOf(store.load("/2"_s)), 2);
        QVERIFY(store.load("/1"_s).isEmpty() && store.load("/4"_s).isEmpty() && store.load({}).isEmpty());
        QVERIFY(store.remove("/3"_s) && store.save("/2"_s, {}));
        QCOMPARE(QJsonDocument::fromJson(readFile(m_file)).object().size(), 0);
    }

    void survivesDamage()
    {
        const InstallabilityStore store(m_file);
        QVERIFY(store.save(Repository, numbered(1)) && store.save("/x"_s, numbered(2)));
        const QByteArray good = readFile(m_file);
        const QByteArray key = QString(u'"' + Repository + u'"').replace("\"x\""_s, "\\\"x\\\""_s).toUtf8();
        // What can be parsed but makes no sense says nothing, and is no reason to touch the others.
        const QVector<QPair<QByteArray, QByteArray>> changes{
            {"\"kind\": 3", "\"kind\": 4"},
            {"\"kind\": 3", "\"kind\": \"3\""},
            {"\"time\": \"2026", "\"time\": \"x"},
            {"\"checked\": \"", "\"checked\": 7, \"y\": \""}};
        for (const auto &change : changes) {
            QByteArray odd = good;
            odd.replace(odd.indexOf(change.first), change.first.size(), change.second);
            writeFile(m_file, odd);
            QVERIFY2(store.load(Repository).isEmpty(), change.second.constData());
            QCOMPARE(numberOf(store.load("/x"_s)), 2);
        }
        QByteArray odd = good;
        odd.replace(odd.indexOf("\"kind\": 1"), 9, "\"kind\": 9")
            .replace(odd.lastIndexOf("\"state\": 0"), 10, "\"state\": 7");
        writeFile(m_file, odd);
        const auto without = [&](const QString &repository) {
            const QList<PackageInfoPtr> all = store.load(repository).merged([] {
                QList<PackageInfoPtr> packages;
                for (int i = 0; i < 2000; ++i)
                    packages.append(record("p%1"_s.arg(i)));
                return packages;
            }());
            return std::array<long, 2>{
                std::count_if(all.cbegin(), all.cend(), [](const auto &p) { return !p->installability; }),
                std::count_if(all.cbegin(), all.cend(), [](const auto &p) {
                    return p->installability && p->installability->reason.isEmpty();
                })};
        };
        QVERIFY2((without(Repository) == std::array<long, 2>{0, 1}), "a reason with an unknown step is none");
        QVERIFY2((without("/x"_s) == std::array<long, 2>{1, 0}), "an unknown state is no result");

        // What cannot be parsed is kept aside, by loading and by saving.
        std::mt19937 random(1); // NOLINT: the same damage each time
        for (int i = 0; i < 40; ++i) {
            QByteArray bad = good.left(good.size() - 3);
            if (i % 4 == 1)
                bad = "[" + good + ']';
            else if (i % 4 == 2)
                bad = "{" + key + ": " + QByteArray(3000, '[') + QByteArray(3000, ']') + '}';
            else if (i % 4 == 3)
                bad = good.left(static_cast<int>(random() % static_cast<unsigned>(good.size() - 3)) + 1);
            writeFile(m_file, bad);
            QString kept;
            if (i % 8 < 4)
                QVERIFY(store.load("/x"_s, &kept).isEmpty());
            else
                QVERIFY(store.save("/x"_s, numbered(3), &kept));
            QCOMPARE(kept, m_file + ".broken"_s);
            QVERIFY(readFile(kept) == bad);
        }
        QFile::remove(m_file);
        QVERIFY(store.save("/x"_s, numbered(4)));
        // A program was killed before it wrote its number into the lock.
        writeFile(m_file + ".lock"_s, {});
        QVERIFY(store.save("/x"_s, numbered(4)));
        const FullDisk full(100000);
        QVERIFY(!store.save("/x"_s, numbered(5)) && numberOf(store.load("/x"_s)) == 4);
    }

    void killedWritersAndSeveralProcessesLoseNothing()
    {
        const InstallabilityStore store(m_file);
        QVERIFY(store.save("/kept"_s, numbered(1)) && store.save("/killed"_s, numbered(0)));
        std::mt19937 random(static_cast<unsigned>(QDateTime::currentMSecsSinceEpoch()));
        for (int round = 0; round < 20; ++round) {
            std::array<pid_t, 2> writers{};
            for (std::size_t i = 0; i < writers.size(); ++i) {
                writers[i] = ::fork();
                if (writers[i] != 0)
                    continue;
                // One is killed, the other ends its work.
                const QString path = i == 0 ? "/killed"_s : "/other"_s;
                bool isGood = true;
                for (int save = 0; i == 0 || save < 2; ++save)
                    isGood = store.save(path, numbered(save)) && isGood;
                ::_exit(isGood ? 0 : 1);
            }
            ::usleep(static_cast<useconds_t>(random() % 100000));
            ::kill(writers[0], SIGKILL);
            int status = -1;
            ::waitpid(writers[0], &status, 0);
            QVERIFY(::waitpid(writers[1], &status, 0) == writers[1] && status == 0);
            QVERIFY(numberOf(store.load("/killed"_s)) >= 0);
            QCOMPARE(numberOf(store.load("/other"_s)), 1);
            QCOMPARE(numberOf(store.load("/kept"_s)), 1);
        }
        QVERIFY(!QFile::exists(m_file + ".broken"_s));
    }
};

VELT_TEST_MAIN(TestInstallabilityStore, QCoreApplication)
#include "tst_installabilitystore.moc"

#include <QTimeZone>
