// SPDX-License-Identifier: GPL-3.0-or-later
// Finding newer versions of 1,000 packages in a source of Debian's size, compared with a script that runs apt and dpkg.
// Upgrading 500 packages from a source, compared with "reprepro update".
#include "apt/privateapt.h"
#include "benchdata.h"
#include "core/countof.h"
#include "engine/repository/packagesfile.h"
#include "engine/upgrade/listedrecords.h"
#include "engine/upgrade/upgraderules.h"
#include "enginejob.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
constexpr int PackageCount = 1000;

QString architecture()
{
    return QStringLiteral("amd64");
}

QList<PackageInfoPtr> publicPackages()
{
    return readPackagesFile(
        BenchData::packagesFile(), {QStringLiteral("main"), architecture(), PackageType::Deb}, {});
}

/** Debian's main index as a local source. */
QString source()
{
    const QString index = QStringLiteral("%1/dists/bookworm/main/binary-amd64/Packages")
                              .arg(BenchData::folder() + QLatin1String("/source"));
    QDir().mkpath(QFileInfo(index).path());
    if (!QFile::exists(index) && !QFile::copy(BenchData::packagesFile(), index))
        qFatal("cannot copy the index");
    return QStringLiteral("[trusted=yes] file:%1/source bookworm main").arg(BenchData::folder());
}

/** A repository with every sixty-third package of this index, in the oldest possible version. */
QString repository()
{
    static const QString path = [] {
        QString folder = BenchData::folder() + QLatin1String("/repository");
        const auto packages = publicPackages();
        QByteArray index;
        for (int i = 0; i < PackageCount; ++i)
            index += "Package: " + packages.at(i * (packages.size() / PackageCount))->name.toLatin1()
                     + "\nVersion: 0~\nArchitecture: amd64\nFilename: pool/x\n\n";
        BenchData::write(
            folder + QLatin1String("/conf/distributions"),
            "Origin: Debian\nCodename: bookworm\nSuite: stable\nArchitectures: amd64\nComponents: main\n");
        BenchData::write(folder + QLatin1String("/dists/bookworm/main/binary-amd64/Packages"), index);
        return folder;
    }();
    return path;
}

/** Deletes the lists that were fetched before. */
void forgetLists()
{
    BenchData::shell(QStringLiteral("[ ! -d \"$1\" ] || find \"$1\" -type f '(' -name '*_Packages' -o -name "
                                    "'*cache.bin' ')' -delete"),
                     {PrivateApt::cacheFolder()});
}

/** Asks for all packages at once and compares their versions. Its input has lines of "NAME VERSION". */
constexpr const char *AskAndCompare = R"(
    awk '{ print $1 }' "$1" | xargs apt show 2>/dev/null |
        awk '/^Package: / { name = $2 } /^Version: / { print name, $2 }' >"$1.found"
    sort -u -k 1,1 "$1.found" | join - <(sort "$1") |
        while read -r name found present; do
            ! dpkg --compare-versions "$found" gt "$present" || echo "$name"
        done)";

/** Writes the packages of the repository as the input of this script. */
QString questions(const QList<PackageInfoPtr> &packages)
{
    QString text;
    for (const PackageInfoPtr &package : packages)
        text += package->name + QLatin1Char(' ') + package->version + QLatin1Char('\n');
    QString path = BenchData::folder() + QLatin1String("/questions");
    BenchData::write(path, text.toUtf8());
    return path;
}

void open(RepoShell &shell)
{
    if (runJob(shell, [&] { shell.openRepo(repository()); }) != RepoShell::SUCCESS)
        qFatal("the repository cannot be opened");
}

void AskForThousand(benchmark::State &state)
{
    PrivateApt apt({source()}, {architecture()});
    if (!apt.fetch({}, {}).usable)
        qFatal("the source cannot be read");
    RepoShell shell;
    open(shell);
    const auto packages = shell.packages();
    int found = 0;
    for (auto _ : state) {
        QString problem;
        const auto lists = apt.lists({}).value_or(QVector<AptList>());
        const auto records
            = ListedRecords::find(lists, UpgradeRules::questions(packages, architecture()), {}, &problem);
        found = countOf(UpgradeRules::upgradable(packages, records));
    }
    require(state, found == PackageCount);
}
BENCHMARK(AskForThousand)->Unit(benchmark::kMillisecond)->UseRealTime();

void ShowAndCompareThousand(benchmark::State &state)
{
    PrivateApt apt({source()}, {architecture()});
    if (!apt.fetch({}, {}).usable)
        qFatal("the source cannot be read");
    RepoShell shell;
    open(shell);
    const QStringList file{questions(shell.packages())};
    QString found;
    for (auto _ : state)
        found = BenchData::shell(QLatin1String(AskAndCompare), file, apt.environment());
    require(state, found.count(QLatin1Char('\n')) == PackageCount);
}
BENCHMARK(ShowAndCompareThousand)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void PrepareThousand(benchmark::State &state)
{
    RepoShell shell;
    open(shell);
    const QString line = source();
    QDir(PrivateApt::cacheFolder()).removeRecursively();
    for (auto _ : state)
        runJob(shell, [&] { shell.prepareUpgrade({line}); });
    require(state, shell.upgradablePackages().size() == PackageCount);
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(PrepareThousand)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void UpdateShowAndCompareThousand(benchmark::State &state)
{
    RepoShell shell;
    open(shell);
    const QStringList file{questions(shell.packages())};
    const PrivateApt apt({source()}, {architecture()});
    forgetLists();
    QString found;
    for (auto _ : state)
        found
            = BenchData::shell(QLatin1String("apt-get -q update >/dev/null\n") + QLatin1String(AskAndCompare),
                               file,
                               apt.environment());
    require(state, found.count(QLatin1Char('\n')) == PackageCount);
}
BENCHMARK(UpdateShowAndCompareThousand)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

/** A repository with the newer packages. */
QString newerSource()
{
    return BenchData::madeRepository({BenchData::newerPackages()});
}

bool areUpgraded(const QString &path)
{
    return BenchData::poolFiles(path, QStringLiteral("new*_2.0_*.deb")) == BenchData::newerPackages().count
           && BenchData::poolFiles(path, QStringLiteral("new*.deb")) == BenchData::newPackages().count;
}

QString upgradedRepository()
{
    return BenchData::changeableRepository({BenchData::oldPackages(), BenchData::newPackages()});
}

void UpgradeFromFiles(benchmark::State &state)
{
    const QString line = QStringLiteral("[trusted=yes] file:%1 dogwood main").arg(newerSource());
    const QString path = upgradedRepository();
    QDir(PrivateApt::cacheFolder()).removeRecursively();
    RepoShell shell;
    runJob(shell, [&] { shell.openRepo(path); });
    shell.setCheckDependsOnAdd(false);
    for (auto _ : state) {
        runJob(shell, [&] { shell.prepareUpgrade({line}); });
        runJob(shell, [&] { shell.upgradeRepo(shell.upgradablePackages()); });
    }
    require(state, areUpgraded(path));
}
BENCHMARK(UpgradeFromFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void UpdateFromFiles(benchmark::State &state)
{
    const QString source = newerSource();
    const QString path = upgradedRepository();
    BenchData::write(
        path + QLatin1String("/conf/updates"),
        QStringLiteral("Name: newer\nMethod: file:%1\nSuite: dogwood\nVerifyRelease: blindtrust\n")
            .arg(source)
            .toUtf8());
    BenchData::shell(QStringLiteral("echo 'Update: newer' >>\"$1/conf/distributions\""), {path});
    for (auto _ : state)
        BenchData::shell(QStringLiteral("reprepro -s -b \"$1\" update dogwood"), {path});
    require(state, areUpgraded(path));
}
BENCHMARK(UpdateFromFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
