// SPDX-License-Identifier: GPL-3.0-or-later
// Checking dependencies: all of Debian's main index within itself, and 1,000 packages against it through apt, beside a
// complete solver on the same files.
#include "benchdata.h"
#include "core/processutils.h"
#include "core/settingskeys.h"
#include "depends/aptcandidates.h"
#include "depends/dependscheck.h"
#include "depends/dependsreport.h"
#include "depends/localcandidates.h"
#include "engine/packagesfile.h"

#include <QCoreApplication>
#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
QList<PackageInfoPtr> readPackages(const QString &file)
{
    return readPackagesFile(file, {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, {});
}

/** An index of 1,000 packages that depend on what every sixty-third package of the main index depends on. */
QString localIndex()
{
    static const QString path = [] {
        const auto packages = readPackages(BenchData::packagesFile());
        QByteArray text;
        for (int i = 0; i < 1000; ++i) {
            const PackageInfo &package = *packages.at(i * (packages.size() / 1000));
            text += QStringLiteral("Package: local%1\nVersion: 1\nArchitecture: amd64\nDepends: %2\n\n")
                        .arg(QString::number(i), package.control.field("Depends"))
                        .toUtf8();
        }
        QString name = BenchData::folder() + QLatin1String("/local");
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write the index");
        return name;
    }();
    return path;
}

/** One whole check; keeps all results, as the engine does. */
void check(benchmark::State &state, const QString &index, int selection)
{
    const auto packages = readPackages(index);
    QList<PackageInfoPtr> checked;
    for (auto _ : state) {
        checked.clear();
        LocalCandidates local(packages);
        AptCandidates apt;
        DependsCheck(selection, &local, &apt)
            .run(packages,
                 [&checked](const PackageInfoPtr &package, const QSharedPointer<const DependsInfo> &result) {
                     auto record = QSharedPointer<PackageInfo>::create(*package);
                     record->dependsInfo = result;
                     checked.append(record);
                 });
        if (apt.failed())
            qFatal("%s", qPrintable(apt.errorDetail()));
    }
    state.counters["packages"] = checked.size();
    state.counters["errors"] = DependsReport::summary(checked).errors;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}

void solve(benchmark::State &state, const QStringList &arguments)
{
    for (auto _ : state) {
        // It ends with 1 when something is broken.
        const auto result = runProcess({QStringLiteral("dose-debcheck"), arguments, {}, {}, -1});
        if (!result.started || result.exitCode > 1)
            qFatal("dose-debcheck: %s", qPrintable(result.errorOutput));
    }
}

void ParseFields(benchmark::State &state)
{
    const auto packages = readPackages(BenchData::packagesFile());
    int entries = 0;
    std::string buffer;
    for (auto _ : state) {
        DependsParser parser;
        entries = 0;
        for (const PackageInfoPtr &package : packages)
            entries += parser
                           .groups(unfoldedField(package->control.text(), "Depends", buffer),
                                   package->architecture)
                           .size();
    }
    state.counters["entries"] = entries;
}
BENCHMARK(ParseFields)->Unit(benchmark::kMillisecond);

void CheckWithinItself(benchmark::State &state)
{
    check(state, BenchData::packagesFile(), DependsLocal);
}
BENCHMARK(CheckWithinItself)->Unit(benchmark::kMillisecond)->UseRealTime();

void SolveWithinItself(benchmark::State &state)
{
    solve(state, {BenchData::packagesFile()});
}
BENCHMARK(SolveWithinItself)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void CheckAgainstPublic(benchmark::State &state)
{
    check(state, localIndex(), DependsEverywhere);
}
BENCHMARK(CheckAgainstPublic)->Unit(benchmark::kMillisecond)->UseRealTime();

void CheckAllAgainstPublic(benchmark::State &state)
{
    check(state, BenchData::packagesFile(), DependsEverywhere);
}
BENCHMARK(CheckAllAgainstPublic)->Unit(benchmark::kMillisecond)->UseRealTime();

void SolveAgainstPublic(benchmark::State &state)
{
    solve(state, {QStringLiteral("--fg"), localIndex(), QStringLiteral("--bg"), BenchData::packagesFile()});
}
BENCHMARK(SolveAgainstPublic)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
