// SPDX-License-Identifier: GPL-3.0-or-later
// Storing and reading the dependency results of 63,000 packages with five dependencies each, compared with Qt's own
// JSON documents of the same contents, which do less than our records. Peak memory is that of the program so far,
// including the packages.
#include "benchdata.h"
#include "depends/dependsdata.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdlib>

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr int packageCount = 63000;
constexpr int dependencyCount = 5;

/** Packages as after a check: they share names and versions, but not results. */
QList<PackageInfoPtr> checkedPackages()
{
    const QString archive = QStringLiteral("http://deb.debian.org/debian bookworm/main amd64 Packages");
    QVector<Dependency> dependencies;
    for (int i = 0; i < packageCount; ++i) {
        Dependency dependency;
        dependency.name = QStringLiteral("library-package%1").arg(i);
        dependency.op = QStringLiteral(">=");
        dependency.version = QStringLiteral("1.%1-2").arg(i % 100);
        dependency.status = DependSuccess;
        dependencies.append(dependency);
    }
    QList<PackageInfoPtr> packages;
    for (int i = 0; i < packageCount; ++i) {
        QMap<QString, DependencyGroup> groups;
        for (int j = 0; j < dependencyCount; ++j) {
            Dependency dependency = dependencies.at((i * 7 + j * j * 31) % (packageCount / (j + 1)));
            dependency.foundVersions.insert(archive, {dependency.version, DependSuccess});
            groups.insert(dependency.name, {DependSuccess, {dependency}});
        }
        PackageInfo package;
        package.name = QStringLiteral("library-package%1").arg(i);
        package.version = QStringLiteral("2.%1-1").arg(i % 100);
        package.architecture = QStringLiteral("amd64");
        package.dependsInfo
            = QSharedPointer<DependsInfo>::create(DependsInfo{DependSuccess, sortedGroups(groups)});
        packages.append(QSharedPointer<PackageInfo>::create(package));
    }
    return packages;
}

QString stored()
{
    QString file = BenchData::folder() + QStringLiteral("/stored.json");
    if (!QFile::exists(file)) {
        // In a child process, so that its memory does not count.
        const pid_t child = fork();
        if (child == 0) {
            DependsData(file, QStringLiteral("/srv/first")).savePackages(checkedPackages());
            std::_Exit(0);
        }
        waitpid(child, nullptr, 0);
    }
    return file;
}

void Save(benchmark::State &state)
{
    const QString file = BenchData::folder() + QStringLiteral("/saved.json");
    const QList<PackageInfoPtr> packages = checkedPackages();
    for (auto _ : state)
        DependsData(file, QStringLiteral("/srv/first")).savePackages(packages);
    state.counters["file_MB"] = static_cast<double>(QFile(file).size()) / 1e6;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void Load(benchmark::State &state)
{
    const QString file = stored();
    for (auto _ : state) {
        DependsData data(file);
        data.loadData(QStringLiteral("/srv/first"));
    }
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

QJsonDocument document()
{
    QFile file(stored());
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return QJsonDocument::fromJson(file.readAll());
}

void LoadDocument(benchmark::State &state)
{
    stored();
    for (auto _ : state)
        benchmark::DoNotOptimize(document().object().size());
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(LoadDocument)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void SaveDocument(benchmark::State &state)
{
    const QJsonDocument contents = document();
    for (auto _ : state)
        BenchData::write(BenchData::folder() + QStringLiteral("/saved.json"),
                         contents.toJson(QJsonDocument::Compact));
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(SaveDocument)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
