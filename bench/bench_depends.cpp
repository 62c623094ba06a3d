// SPDX-License-Identifier: GPL-3.0-or-later
// Checking the dependencies of 1,000 packages against themselves and apt's sources, compared with a complete solver on
// the same files. Also the solver's time for the main index within itself; bench_opening.cpp measures this check in a
// tab.
#include "apt/aptcandidates.h"
#include "benchdata.h"
#include "core/countof.h"
#include "core/processutils.h"
#include "core/settingskeys.h"
#include "depends/dependscheck.h"
#include "depends/dependsreport.h"
#include "depends/localcandidates.h"
#include "engine/repository/packagesfile.h"

#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
QList<PackageInfoPtr> readPackages(const QString &file)
{
    return readPackagesFile(file, {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, {});
}

/** An index of 1,000 packages with the dependencies of every sixty-third package of the main index. */
QString localIndex()
{
    QString path = BenchData::folder() + QLatin1String("/local");
    if (QFile::exists(path))
        return path;
    const auto packages = readPackages(BenchData::packagesFile());
    QByteArray text;
    for (int i = 0; i < 1000; ++i) {
        const PackageInfo &package = *packages.at(i * (packages.size() / 1000));
        text += QStringLiteral("Package: local%1\nVersion: 1\nArchitecture: amd64\nDepends: %2\n\n")
                    .arg(QString::number(i), package.control.field("Depends"))
                    .toUtf8();
    }
    BenchData::write(path, text);
    return path;
}

/** One complete check. It keeps all results, as the engine does. */
void CheckAgainstPublic(benchmark::State &state)
{
    const auto packages = readPackages(localIndex());
    QList<PackageInfoPtr> checked;
    for (auto _ : state) {
        checked.clear();
        LocalCandidates local(packages);
        AptCandidates apt;
        DependsCheck(DependsEverywhere, &local, &apt)
            .run(packages,
                 [&checked](const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result) {
                     auto record = QSharedPointer<PackageInfo>::create(*package);
                     record->dependsInfo = result;
                     checked.append(record);
                 });
        if (apt.failed())
            qFatal("%s", qPrintable(apt.errorDetail()));
    }
    state.counters["packages"] = countOf(checked);
    state.counters["errors"] = DependsReport::summary(checked).errors;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}

BENCHMARK(CheckAgainstPublic)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void solve(benchmark::State &state, const QStringList &arguments)
{
    for (auto _ : state) {
        // The exit code is 1 when a dependency is broken.
        const auto result = runProcess({QStringLiteral("dose-debcheck"), arguments, {}, {}, -1});
        if (!result.started || result.exitCode > 1)
            qFatal("dose-debcheck: %s", qPrintable(result.errorOutput));
    }
    state.counters["peak_MB"] = BenchData::peakMegabytesOfPrograms();
}

void SolveWithinItself(benchmark::State &state)
{
    solve(state, {BenchData::packagesFile()});
}
BENCHMARK(SolveWithinItself)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void SolveAgainstPublic(benchmark::State &state)
{
    solve(state, {QStringLiteral("--fg"), localIndex(), QStringLiteral("--bg"), BenchData::packagesFile()});
}
BENCHMARK(SolveAgainstPublic)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
