// SPDX-License-Identifier: GPL-3.0-or-later
// The search in the lists that apt has fetched, compared with apt's own.
#include "apt/offeredpackages.h"
#include "benchdata.h"
#include "core/countof.h"
#include "enginejob.h"

#include <benchmark/benchmark.h>

namespace
{
/** As after the first text that is typed: all lists are read. */
void SearchOutside(benchmark::State &state)
{
    int found = 0;
    for (auto _ : state) {
        OfferedPackages offered;
        require(state, offered.refresh());
        found = countOf(offered.withPrefix(QStringLiteral("lib")));
    }
    state.counters["found"] = found;
}
BENCHMARK(SearchOutside)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

/** The same texts once more, also in the descriptions; the lists have not changed. */
void SearchOutsideAgain(benchmark::State &state)
{
    OfferedPackages offered;
    require(state, offered.refresh());
    for (auto _ : state) {
        require(state, offered.refresh());
        benchmark::DoNotOptimize(offered.withWords(QStringLiteral("web server")).size());
    }
}
BENCHMARK(SearchOutsideAgain)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void SearchWithApt(benchmark::State &state)
{
    for (auto _ : state)
        BenchData::shell(QStringLiteral("apt-cache search --names-only '^lib' | cut -d' ' -f1 | "
                                        "xargs -r apt-cache show --no-all-versions"),
                         {});
}
BENCHMARK(SearchWithApt)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
