// SPDX-License-Identifier: GPL-3.0-or-later
// Adding and removing small packages with the engine's jobs, compared with reprepro called by hand, which writes all
// indices at the end of every run. All times are for one package.
#include "benchdata.h"
#include "enginejob.h"

#include <QDir>
#include <QElapsedTimer>

#include <benchmark/benchmark.h>

namespace
{
constexpr int PackageCount = 500;
/** With one run for each package, a few packages are enough for the time of one. */
constexpr int OneByOneCount = 30;
constexpr int PresentCount = 5000;

QStringList newPackages()
{
    return BenchData::packages(QStringLiteral("new"), PackageCount);
}

/** A repository for one measurement, which already has packages. */
QString repository(bool withNewOnes)
{
    QString target = BenchData::folder() + QLatin1String("/adding");
    const QString filled = BenchData::folder() + QLatin1String("/filled");
    if (!QDir(filled).exists()) {
        BenchData::describeRepository(target);
        BenchData::packages(QStringLiteral("old"), PresentCount);
        BenchData::shell(
            QStringLiteral("reprepro -s -b \"$1\" includedeb dogwood \"$2\"/*.deb; mv \"$1\" \"$3\""),
            {target, BenchData::folder() + QLatin1String("/old"), filled});
    }
    QDir(target).removeRecursively();
    BenchData::shell(QStringLiteral("cp -a \"$1\" \"$2\""), {filled, target});
    if (withNewOnes)
        BenchData::shell(QStringLiteral("reprepro -s -b \"$1\" includedeb dogwood \"${@:2}\""),
                         QStringList{target} + newPackages());
    return target;
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

/** A measurement of reprepro alone. The script gets the repository and the packages as its arguments. */
void reprepro(benchmark::State &state, const char *script, int packages, bool areThere)
{
    const QString path = repository(areThere);
    const QStringList arguments = QStringList{path} + newPackages().mid(0, packages);
    measure(state, packages, [&] { BenchData::shell(QLatin1String(script), arguments); });
    const int listed = BenchData::shell(QStringLiteral("reprepro -b \"$1\" list dogwood"), {path})
                           .count(QLatin1Char('\n'));
    require(state, listed == PresentCount + (areThere ? PackageCount - packages : packages));
}

void AddOneRunAPackage(benchmark::State &state)
{
    reprepro(state,
             R"(for file in "${@:2}"; do reprepro -s -b "$1" includedeb dogwood "$file"; done)",
             OneByOneCount,
             false);
}
BENCHMARK(AddOneRunAPackage)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void AddInOneRun(benchmark::State &state)
{
    reprepro(state, R"(reprepro -s -b "$1" includedeb dogwood "${@:2}")", PackageCount, false);
}
BENCHMARK(AddInOneRun)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void RemoveOneRunAPackage(benchmark::State &state)
{
    reprepro(state,
             R"(for file in "${@:2}"; do
                    name=${file##*/}
                    reprepro -s -b "$1" remove dogwood "${name%%_*}"
                done)",
             OneByOneCount,
             true);
}
BENCHMARK(RemoveOneRunAPackage)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void AddJob(benchmark::State &state)
{
    RepoShell shell;
    const QString path = repository(false);
    const QStringList files = newPackages();
    runJob(shell, [&] { shell.openRepo(path); });
    shell.setCheckDependsOnAdd(false);
    measure(state, PackageCount, [&] { runJob(shell, [&] { shell.addPackages(files); }); });
    require(state, shell.packageCount() == PresentCount + PackageCount);
}
BENCHMARK(AddJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();

void RemoveJob(benchmark::State &state)
{
    RepoShell shell;
    const QString path = repository(true);
    runJob(shell, [&] { shell.openRepo(path); });
    QList<PackageInfoPtr> added;
    for (const PackageInfoPtr &package : shell.packages()) {
        if (package->name.startsWith(QLatin1String("new")))
            added.append(package);
    }
    measure(state, PackageCount, [&] { runJob(shell, [&] { shell.removePackages(added); }); });
    require(state, added.size() == PackageCount && shell.packageCount() == PresentCount);
}
BENCHMARK(RemoveJob)->Unit(benchmark::kMillisecond)->Iterations(1)->UseManualTime();
} // namespace
