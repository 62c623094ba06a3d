// SPDX-License-Identifier: GPL-3.0-or-later
// Exporting a repository, compared with tar. Importing packages, compared with unpacking and adding them by hand.
#include "benchdata.h"
#include "enginejob.h"

#include <QDir>

#include <benchmark/benchmark.h>

namespace
{
constexpr int LargeCount = 80;
constexpr int LargeSize = 5 << 20;
constexpr int SmallCount = 20000;
constexpr int SmallSize = 3000;
constexpr int ImportCount = 200;
constexpr int ImportSize = 1 << 20;

/** A repository whose pool has 400 megabytes of packages, or many small texts. */
QString repository(bool large)
{
    QString path = BenchData::folder() + QLatin1String(large ? "/exported-large" : "/exported-small");
    if (QDir(path).exists())
        return path;
    const QString made = path + QLatin1String(".new");
    BenchData::describeRepository(made);
    for (int i = 0; i < (large ? LargeCount : SmallCount); ++i) {
        const QString file = QStringLiteral("%1/pool/%2/p%3").arg(made).arg(i / 100).arg(i);
        if (large)
            BenchData::write(file + QLatin1String(".deb"), BenchData::noise(LargeSize, i));
        else
            BenchData::write(file + QLatin1String(".txt"), BenchData::noise(SmallSize / 2, i).toHex());
    }
    if (!QDir().rename(made, path))
        qFatal("cannot rename %s", qPrintable(made));
    return path;
}

void Tar(benchmark::State &state, bool large)
{
    const QString path = repository(large);
    for (auto _ : state)
        BenchData::shell(QStringLiteral("tar czf \"$1.tgz\" -C \"$1\" ."), {path});
}

void Export(benchmark::State &state, bool large)
{
    RepoShell engine;
    const QString path = repository(large);
    runJob(engine, [&] { engine.openRepo(path); });
    int result = RepoShell::SUCCESS;
    for (auto _ : state)
        result = runJob(engine, [&] { engine.exportRepo(path + QLatin1String(".tgz")); });
    require(state, result == RepoShell::SUCCESS);
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}

BENCHMARK_CAPTURE(Tar, large, true)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Export, large, true)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Tar, small, false)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Export, small, false)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

QString archive()
{
    QString path = BenchData::folder() + QLatin1String("/import.tgz");
    if (!QFile::exists(path)) {
        const BenchData::PackageSet set{
            QStringLiteral("import"), ImportCount, QStringLiteral("1.0"), ImportSize, ImportSize};
        BenchData::packages(set);
        BenchData::shell(QStringLiteral("tar czf \"$1\" -C \"$2\" ."),
                         {path, BenchData::packagesFolder(set)});
    }
    return path;
}

/** With one run of reprepro for each package, or with a single run for all. */
void UnpackAndAdd(benchmark::State &state, bool inOneRun)
{
    const QString file = archive();
    const QString path = BenchData::folder() + QLatin1String("/imported");
    BenchData::describeRepository(path);
    for (auto _ : state)
        BenchData::shell(QStringLiteral("mkdir \"$1/unpacked\"; tar xzf \"$2\" -C \"$1/unpacked\"\n"
                                        "printf '%s\\0' \"$1\"/unpacked/*.deb |\n"
                                        "    xargs -0 -n \"$3\" reprepro -s -b \"$1\" includedeb dogwood\n"
                                        "rm -r \"$1/unpacked\""),
                         {path, file, QString::number(inOneRun ? ImportCount : 1)});
    require(state, BenchData::poolFiles(path, QStringLiteral("*.deb")) == ImportCount);
}
BENCHMARK_CAPTURE(UnpackAndAdd, each, false)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(UnpackAndAdd, at_once, true)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void Import(benchmark::State &state)
{
    const QString file = archive();
    const QString path = BenchData::folder() + QLatin1String("/imported");
    BenchData::describeRepository(path);
    RepoShell engine;
    runJob(engine, [&] { engine.openRepo(path); });
    for (auto _ : state)
        runJob(engine, [&] { engine.importRepo(file); });
    require(state, BenchData::poolFiles(path, QStringLiteral("*.deb")) == ImportCount);
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(Import)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
} // namespace
