// SPDX-License-Identifier: GPL-3.0-or-later
// Whether every package of the main index can be installed within it, reading included, compared with dose-debcheck
// (bench_depends.cpp).
#include "benchdata.h"
#include "engine/repository/packagesfile.h"
#include "installability/installabilitycheck.h"

#include <algorithm>
#include <numeric>

#include <benchmark/benchmark.h>

namespace
{
QList<PackageInfoPtr> readPackages(const QString &file)
{
    return readPackagesFile(file, {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, {});
}

void CheckCompletely(benchmark::State &state)
{
    int broken = 0;
    for (auto _ : state) {
        const auto packages = readPackages(BenchData::packagesFile());
        Universe universe({QStringLiteral("amd64"), {}});
        for (const PackageInfoPtr &package : packages)
            universe.add(package->control, Universe::Checked);
        universe.finish();
        QVector<int> asked(universe.count());
        std::iota(asked.begin(), asked.end(), 0);
        InstallabilityCheck check(universe);
        if (!check.run(asked))
            qFatal("the check was stopped");
        broken = static_cast<int>(std::count_if(
            asked.begin(), asked.end(), [&](int package) { return check.state(package) == NotInstallable; }));
    }
    state.counters["broken"] = broken;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(CheckCompletely)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
