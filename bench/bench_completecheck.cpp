// SPDX-License-Identifier: GPL-3.0-or-later
// The complete check of a repository of 5,000 packages with what apt's sources offer behind it, and the questions that
// the window asks about one of its packages.
#include "benchdata.h"
#include "core/countof.h"
#include "engine/installability/companionsizes.h"
#include "engine/installability/cures.h"
#include "engine/installability/removalimpact.h"
#include "engine/repository/packagesfile.h"
#include "enginejob.h"

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
/** A repository with every twelfth package of the main index. */
QString mediumRepository()
{
    const QString path = BenchData::folder() + QLatin1String("/medium");
    const QString index = path + QLatin1String("/dists/dogwood/main/binary-amd64/Packages");
    if (QFile::exists(index))
        return path;
    const auto packages = readPackagesFile(
        BenchData::packagesFile(), {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, {});
    QByteArray text;
    for (int i = 0; i < packages.size(); i += 12) {
        const auto paragraph = packages.at(i)->control.text();
        text += QByteArray(paragraph.data(), static_cast<int>(paragraph.size()));
    }
    BenchData::write(index, text);
    BenchData::write(path + QLatin1String("/dists/dogwood/Release"), "Codename: dogwood\n");
    BenchData::write(path + QLatin1String("/conf/distributions"),
                     "Codename: dogwood\nArchitectures: amd64\nComponents: main\n");
    return path;
}

/** The repository, open and checked against this base. */
class CheckedRepository
{
public:
    RepoShell shell;
    const CompleteCheckBase base;

    CheckedRepository(benchmark::State &state, CompleteCheckBase::Kind kind)
        : base{kind, {}, {}}
    {
        require(state, runJob(shell, [&] { shell.openRepo(mediumRepository()); }) == RepoEnums::SUCCESS);
        check(state);
    }

    void check(benchmark::State &state)
    {
        const auto start = [&] { shell.checkCompletely(shell.packages(), base); };
        require(state, runJob(shell, start) == RepoEnums::SUCCESS);
    }

    PackageInfoPtr inState(Installability wanted) const
    {
        for (const PackageInfoPtr &package : shell.packages()) {
            if (package->installabilityState() == wanted)
                return package;
        }
        return shell.packageAt(0);
    }
};

void checkAll(benchmark::State &state, CompleteCheckBase::Kind kind)
{
    CheckedRepository repository(state, kind);
    for (auto _ : state)
        repository.check(state);
    state.counters["packages"] = repository.shell.packageCount();
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}

void CheckCompletelyPublic(benchmark::State &state)
{
    checkAll(state, CompleteCheckBase::Public);
}
BENCHMARK(CheckCompletelyPublic)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void CheckCompletelyEssential(benchmark::State &state)
{
    checkAll(state, CompleteCheckBase::Essential);
}
BENCHMARK(CheckCompletelyEssential)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void CheckCompletelyNothing(benchmark::State &state)
{
    checkAll(state, CompleteCheckBase::Nothing);
}
BENCHMARK(CheckCompletelyNothing)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void ImpactOfRemoving(benchmark::State &state)
{
    const CheckedRepository repository(state, CompleteCheckBase::Public);
    const CheckScope scope = repository.shell.checkScope(repository.base);
    for (auto _ : state)
        benchmark::DoNotOptimize(RemovalImpact(scope).of(scope.repository.packages.mid(0, 10), {}));
}
BENCHMARK(ImpactOfRemoving)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void CuresOfPackage(benchmark::State &state)
{
    const CheckedRepository repository(state, CompleteCheckBase::Essential);
    const CheckScope scope = repository.shell.checkScope(repository.base);
    const auto package = repository.inState(NotInstallable);
    for (auto _ : state)
        state.counters["cures"] = countOf(Cures(scope).of(package, {}));
}
BENCHMARK(CuresOfPackage)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void EffectOfCure(benchmark::State &state)
{
    const CheckedRepository repository(state, CompleteCheckBase::Essential);
    const CheckScope scope = repository.shell.checkScope(repository.base);
    const auto cures = Cures(scope).of(repository.inState(NotInstallable), {});
    require(state, !cures.isEmpty());
    for (auto _ : state)
        state.counters["gained"] = countOf(Cures(scope).effectOf(cures.value(0), {}).gained);
}
BENCHMARK(EffectOfCure)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Companions(benchmark::State &state)
{
    const CheckedRepository repository(state, CompleteCheckBase::Public);
    const CheckScope scope = repository.shell.checkScope(repository.base);
    const auto package = repository.inState(Installable);
    for (auto _ : state)
        state.counters["companions"] = countOf(CompanionSizes(scope).of(package, {}));
}
BENCHMARK(Companions)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
