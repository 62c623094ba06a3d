// SPDX-License-Identifier: GPL-3.0-or-later
// Reading an index of 63,000 records: a plain pass over its lines, compared with the engine.
#include "benchdata.h"
#include "core/countof.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/packagesfile.h"

#include <QFile>

#include <cstring>
#include <string_view>
#include <vector>

#include <benchmark/benchmark.h>

namespace
{
/** The minimum work of a reader: maps the file, walks its lines, and keeps views of the fields of a record. */
std::size_t bareScan(const QString &fileName)
{
    struct Record
    {
        std::string_view name, version, section;
    };
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const char *const begin = reinterpret_cast<const char *>(file.map(0, file.size()));
    const char *const end = begin + file.size();
    std::vector<Record> records;
    for (const char *line = begin; line < end;) {
        const auto *newline
            = static_cast<const char *>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        const char *const lineEnd = newline == nullptr ? end : newline;
        const std::string_view text(line, static_cast<std::size_t>(lineEnd - line));
        if (text.substr(0, 8) == "Package:")
            records.push_back({text.substr(8), {}, {}});
        else if (text.substr(0, 8) == "Version:" && !records.empty())
            records.back().version = text.substr(8);
        else if (text.substr(0, 8) == "Section:" && !records.empty())
            records.back().section = text.substr(8);
        line = lineEnd + 1;
    }
    benchmark::DoNotOptimize(records.data());
    return records.size();
}

void BareScan(benchmark::State &state)
{
    const QString file = BenchData::packagesFile();
    std::size_t records = 0;
    for (auto _ : state)
        records = bareScan(file);
    state.counters["records"] = static_cast<double>(records);
}
BENCHMARK(BareScan)->Unit(benchmark::kMillisecond)->MinTime(1);

void ReadIndex(benchmark::State &state)
{
    const QString file = BenchData::packagesFile();
    int records = 0;
    for (auto _ : state) {
        auto packages = readPackagesFile(
            file, {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, QString());
        records = countOf(packages);
        // Deleting the records is not part of reading.
        state.PauseTiming();
        packages.clear();
        state.ResumeTiming();
    }
    state.counters["records"] = records;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(ReadIndex)->Unit(benchmark::kMillisecond)->MinTime(1);

/** The additional time after a change by another program: finding the changed packages. */
void CompareIndices(benchmark::State &state)
{
    const IndexPlace place{QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb};
    const auto known = readPackagesFile(BenchData::packagesFile(), place, QString());
    auto listed = readPackagesFile(BenchData::packagesFile(), place, QString());
    listed.removeLast();
    int removed = 0;
    for (auto _ : state)
        removed = countOf(compareListings(known, listed).removed);
    state.counters["removed"] = removed;
}
BENCHMARK(CompareIndices)->Unit(benchmark::kMillisecond)->MinTime(1);
} // namespace
