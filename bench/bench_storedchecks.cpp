// SPDX-License-Identifier: GPL-3.0-or-later
// What is done with the results of a complete check of 63,000 packages beside the check itself: the digest that tells
// whether they still hold, which every job ends with, and storing and reading them when nothing can be installed.
#include "benchdata.h"
#include "core/countof.h"
#include "engine/repository/packagesfile.h"
#include "installability/installabilitystore.h"
#include "installability/packagesdigest.h"

#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
QList<PackageInfoPtr> listed()
{
    return readPackagesFile(
        BenchData::packagesFile(), {QStringLiteral("main"), QStringLiteral("amd64"), PackageType::Deb}, {});
}

StoredCompleteCheck checkOf(const QList<PackageInfoPtr> &packages)
{
    QList<PackageInfoPtr> checked;
    for (const PackageInfoPtr &package : packages) {
        InstallabilityStep needs;
        needs.package = {package->name, package->version, package->architecture, true};
        needs.field = QStringLiteral("Depends");
        needs.relation = QStringLiteral("libc6 (>= 2.34)");
        needs.targets = {{QStringLiteral("libc6"), QStringLiteral("2.36-9"), QStringLiteral("amd64"), false}};
        InstallabilityStep lacks;
        lacks.kind = InstallabilityStep::Lacks;
        lacks.package = needs.targets.first();
        lacks.field = needs.field;
        lacks.relation = QStringLiteral("libgcc-s1");
        const auto record = QSharedPointer<PackageInfo>::create(*package);
        record->installability = QSharedPointer<InstallabilityInfo>::create(
            InstallabilityInfo{NotInstallable, {needs, lacks}, {}, 0});
        checked.append(record);
    }
    return StoredCompleteCheck::of(checked, {{}, QDateTime::currentDateTimeUtc(), "x", false});
}

QString stored()
{
    QString file = BenchData::folder() + QStringLiteral("/checks.json");
    if (!QFile::exists(file))
        InstallabilityStore(file).save(QStringLiteral("/srv/first"), checkOf(listed()));
    return file;
}

void DigestPackages(benchmark::State &state)
{
    const QList<PackageInfoPtr> packages = listed();
    for (auto _ : state)
        benchmark::DoNotOptimize(PackagesDigest::of(packages));
    state.counters["packages"] = countOf(packages);
}
BENCHMARK(DigestPackages)->Unit(benchmark::kMillisecond)->MinTime(1);

void SaveChecks(benchmark::State &state)
{
    const QString file = BenchData::folder() + QStringLiteral("/savedchecks.json");
    const StoredCompleteCheck check = checkOf(listed());
    for (auto _ : state)
        InstallabilityStore(file).save(QStringLiteral("/srv/first"), check);
    state.counters["file_MB"] = static_cast<double>(QFile(file).size()) / 1e6;
}
BENCHMARK(SaveChecks)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void LoadChecks(benchmark::State &state)
{
    const QString file = stored();
    const QList<PackageInfoPtr> packages = listed();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            InstallabilityStore(file).load(QStringLiteral("/srv/first")).merged(packages));
}
BENCHMARK(LoadChecks)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
