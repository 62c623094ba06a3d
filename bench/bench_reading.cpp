// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the control data of package files and checking that the files are complete, compared with dpkg.
#include "benchdata.h"
#include "engine/archive/packagefile.h"
#include "enginejob.h"

#include <utility>

#include <benchmark/benchmark.h>

namespace
{
void ReadFiles(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    constexpr int Ahead = 50;
    int read = 0;
    for (auto _ : state) {
        PackageFileReader reader(files, Ahead, [] { return false; });
        read = 0;
        for (auto some = reader.next(Ahead / 2); !some.isEmpty(); some = reader.next(Ahead / 2)) {
            for (const PackageFile &file : std::as_const(some))
                read += file.package ? 1 : 0;
        }
    }
    require(state, read == files.size());
}
BENCHMARK(ReadFiles)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

/** The control data and the list of files, which needs the whole file. Uses all processors. */
void ReadWithDpkg(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    QString output;
    for (auto _ : state)
        output = BenchData::shell(
            QStringLiteral(
                "printf '%s\\0' \"$@\" | xargs -0 -n 50 -P \"$(nproc)\" bash -euc '\n"
                "    for file; do dpkg-deb -I \"$file\" control; dpkg-deb -c \"$file\"; done' bash"),
            files);
    require(state, output.count(QLatin1String("Package: ")) == files.size());
}
BENCHMARK(ReadWithDpkg)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
