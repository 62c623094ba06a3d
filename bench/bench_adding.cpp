// SPDX-License-Identifier: GPL-3.0-or-later
// Adding, replacing and removing packages with the engine's jobs. Compared with aptly, and with reprepro called by
// hand, which writes all indices at the end of every run. All times are for one package.
#include "benchdata.h"
#include "core/countof.h"
#include "enginejob.h"

#include <QDir>
#include <QElapsedTimer>

#include <functional>

#include <benchmark/benchmark.h>

namespace
{
/** With one run for each package, a few packages are enough for the time of one. */
constexpr int OneByOneCount = 30;

QVector<BenchData::PackageSet> oldOnes()
{
    return {BenchData::oldPackages()};
}

QVector<BenchData::PackageSet> oldAndNewOnes()
{
    return {BenchData::oldPackages(), BenchData::newPackages()};
}

/** As many packages as Debian has, with the smallest size. */
BenchData::PackageSet many()
{
    return {QStringLiteral("many"), 63000, QStringLiteral("1.0"), 50, 50};
}

template <typename Work>
void measure(benchmark::State &state, int packages, const Work &work)
{
    for (auto _ : state) {
        QElapsedTimer time;
        time.start();
        work();
        state.SetIterationTime(static_cast<double>(time.nsecsElapsed()) / 1e9 / packages);
    }
}

/** Measures a script. It gets the repository and the files as its arguments. */
void runScript(benchmark::State &state, const char *script, const QString &path, const QStringList &files)
{
    const QStringList arguments = QStringList{path} + files;
    measure(state, countOf(files), [&] { BenchData::shell(QLatin1String(script), arguments); });
}

constexpr const char *IncludeAll = R"(reprepro -s -b "$1" includedeb dogwood "${@:2}")";

void open(RepoShell &shell, const QString &path)
{
    runJob(shell, [&] { shell.openRepo(path); });
    shell.setCheckDependsOnAdd(false);
}

QList<PackageInfoPtr> newPackagesOf(const RepoShell &shell)
{
    QList<PackageInfoPtr> packages;
    const auto all = shell.packages();
    for (const PackageInfoPtr &package : all) {
        if (package->name.startsWith(BenchData::newPackages().name))
            packages.append(package);
    }
    return packages;
}

// --- adding ---------------------------------------------------------------------------------------------------------

bool areNewOnesThere(const QString &path, int count)
{
    return BenchData::poolFiles(path, QStringLiteral("new*.deb")) == count;
}

void AddOneRunAPackage(benchmark::State &state)
{
    const QString path = BenchData::changeableRepository(oldOnes());
    runScript(state,
              R"(for file in "${@:2}"; do reprepro -s -b "$1" includedeb dogwood "$file"; done)",
              path,
              BenchData::packages(BenchData::newPackages()).mid(0, OneByOneCount));
    require(state, areNewOnesThere(path, OneByOneCount));
}
BENCHMARK(AddOneRunAPackage)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void AddInOneRun(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    const QString path = BenchData::changeableRepository(oldOnes());
    runScript(state, IncludeAll, path, files);
    require(state, areNewOnesThere(path, countOf(files)));
}
BENCHMARK(AddInOneRun)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

/** aptly has its own repository with the same packages. It writes no Contents indices, because we write none. */
void AddWithAptly(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    const QString path = BenchData::folder() + QLatin1String("/aptly");
    const QString made = path + QLatin1String("-made");
    const QString settings = path + QLatin1String(".conf");
    const auto aptly = [&settings](const QString &script, const BenchData::PackageSet &set) {
        BenchData::shell(
            QLatin1String("run() { aptly -config=\"$settings\" \"$@\" >/dev/null; }\nsettings=$1\n") + script,
            {settings, BenchData::packagesFolder(set)});
    };
    BenchData::write(settings, QStringLiteral(R"({ "rootDir": "%1" })").arg(path).toUtf8());
    if (!QDir(made).exists()) {
        BenchData::packages(BenchData::oldPackages());
        aptly(QStringLiteral(R"(run repo create -distribution=dogwood -component=main measured
run repo add measured "$2"
run publish repo -skip-signing -skip-contents -architectures=amd64,arm64 measured)"),
              BenchData::oldPackages());
        BenchData::shell(QStringLiteral("mv \"$1\" \"$2\""), {path, made});
    }
    // Published files are links to files in the pool, so both are linked again.
    BenchData::setAside(path);
    BenchData::shell(QStringLiteral("mkdir \"$2\"; cp -a \"$1/db\" \"$2\"\n"
                                    "cp -al \"$1/pool\" \"$1/public\" \"$2\"; rm -r \"$2/public/dists\"\n"
                                    "cp -a \"$1/public/dists\" \"$2/public\"; sync -f \"$2\""),
                     {made, path});
    measure(state, countOf(files), [&] {
        aptly(QStringLiteral("run repo add measured \"$2\"\nrun publish update -skip-signing dogwood"),
              BenchData::newPackages());
    });
    require(state,
            BenchData::poolFiles(path + QLatin1String("/public"), QStringLiteral("new*.deb"))
                == files.size());
}
BENCHMARK(AddWithAptly)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

/** Without a history the database is copied all the same, for the case of a kill. */
HistoryLimits noHistory()
{
    HistoryLimits limits;
    limits.isOn = false;
    return limits;
}

void addAll(benchmark::State &state, const HistoryLimits &history)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    const QString path = BenchData::changeableRepository(oldOnes());
    RepoShell shell;
    shell.setHistoryLimits(history);
    open(shell, path);
    measure(state, countOf(files), [&] { runJob(shell, [&] { shell.addPackages(files); }); });
    require(state, areNewOnesThere(path, countOf(files)));
}

void AddJob(benchmark::State &state)
{
    addAll(state, HistoryLimits());
}
BENCHMARK(AddJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void AddWithoutHistory(benchmark::State &state)
{
    addAll(state, noHistory());
}
BENCHMARK(AddWithoutHistory)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

// --- one more in a large repository ---------------------------------------------------------------------------------

/** The repository is too large for a copy, so reprepro removes the package again. */
void addToMany(benchmark::State &state,
               const std::function<void(const QString &path, const QString &file)> &add)
{
    const QString path = BenchData::madeRepository({many()});
    const QString file = BenchData::packages(BenchData::newPackages()).at(1);
    measure(state, 1, [&] { add(path, file); });
    require(state, areNewOnesThere(path, 1));
    BenchData::shell(QStringLiteral("reprepro -s -b \"$1\" remove dogwood new1; sync -f \"$1\""), {path});
}

void addOneToMany(benchmark::State &state, const HistoryLimits &history)
{
    RepoShell shell;
    shell.setHistoryLimits(history);
    open(shell, BenchData::madeRepository({many()}));
    addToMany(state, [&](const QString &, const QString &file) {
        runJob(shell, [&] { shell.addPackages({file}); });
    });
}

void AddOneToMany(benchmark::State &state)
{
    addOneToMany(state, HistoryLimits());
}
BENCHMARK(AddOneToMany)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void AddOneWithoutHistory(benchmark::State &state)
{
    addOneToMany(state, noHistory());
}
BENCHMARK(AddOneWithoutHistory)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void IncludeOneInMany(benchmark::State &state)
{
    addToMany(state, [](const QString &path, const QString &file) {
        BenchData::shell(QLatin1String(IncludeAll), {path, file});
    });
}
BENCHMARK(IncludeOneInMany)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

// --- replacing ------------------------------------------------------------------------------------------------------

bool areReplaced(const QString &path)
{
    const int newer = BenchData::newerPackages().count;
    return BenchData::poolFiles(path, QStringLiteral("new*_2.0_*.deb")) == newer
           && areNewOnesThere(path, BenchData::newPackages().count);
}

void ReplaceJob(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newerPackages());
    const QString path = BenchData::changeableRepository(oldAndNewOnes());
    RepoShell shell;
    open(shell, path);
    QObject::connect(
        &shell,
        &RepoShell::requestForReplacementHandlingByUser,
        &shell,
        [](RepoEnums::ErrorCode, PackageReplacementRules *rules) {
            rules->value = PackageReplacementRules::PreferHigher;
        },
        Qt::BlockingQueuedConnection);
    measure(state, countOf(files), [&] { runJob(shell, [&] { shell.addPackages(files); }); });
    require(state, areReplaced(path));
}
BENCHMARK(ReplaceJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void ReplaceInOneRun(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newerPackages());
    const QString path = BenchData::changeableRepository(oldAndNewOnes());
    runScript(state, IncludeAll, path, files);
    require(state, areReplaced(path));
}
BENCHMARK(ReplaceInOneRun)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

// --- removing -------------------------------------------------------------------------------------------------------

void removeByScript(benchmark::State &state, const char *script, int packages)
{
    const QString path = BenchData::changeableRepository(oldAndNewOnes());
    QStringList names;
    for (int i = 0; i < packages; ++i)
        names.append(BenchData::newPackages().name + QString::number(i));
    runScript(state, script, path, names);
    require(state, areNewOnesThere(path, BenchData::newPackages().count - packages));
}

void RemoveOneRunAPackage(benchmark::State &state)
{
    removeByScript(
        state, R"(for name in "${@:2}"; do reprepro -s -b "$1" remove dogwood "$name"; done)", OneByOneCount);
}
BENCHMARK(RemoveOneRunAPackage)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void RemoveInOneRun(benchmark::State &state)
{
    removeByScript(state, R"(reprepro -s -b "$1" remove dogwood "${@:2}")", BenchData::newPackages().count);
}
BENCHMARK(RemoveInOneRun)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void RemoveJob(benchmark::State &state)
{
    const QString path = BenchData::changeableRepository(oldAndNewOnes());
    RepoShell shell;
    open(shell, path);
    const auto packages = newPackagesOf(shell);
    measure(state, BenchData::newPackages().count, [&] {
        runJob(shell, [&] { shell.removePackages(packages); });
    });
    require(state, areNewOnesThere(path, 0));
}
BENCHMARK(RemoveJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();
} // namespace
