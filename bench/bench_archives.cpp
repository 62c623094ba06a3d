// SPDX-License-Identifier: GPL-3.0-or-later
// Exporting a repository, beside tar; importing packages, beside unpacking and adding them by hand.
#include "benchdata.h"
#include "core/processutils.h"
#include "engine/reposhell.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>

#include <functional>
#include <random>

#include <benchmark/benchmark.h>

namespace
{
constexpr int LargeCount = 200;
constexpr int LargeSize = 5 << 20;
constexpr int SmallCount = 20000;
constexpr int SmallSize = 3000;
constexpr int ImportCount = 200;
constexpr int ImportSize = 1 << 20;

QByteArray noise(int size)
{
    static std::mt19937 random;
    QByteArray bytes(size, Qt::Uninitialized);
    for (char &byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

void shell(const QString &script)
{
    const ProcessResult result
        = runProcess({QStringLiteral("sh"), {QStringLiteral("-ec"), script}, {}, {}, -1});
    if (!result.succeeded())
        qFatal("%s", qPrintable(result.errorOutput));
}

void runJob(RepoShell &engine, const std::function<void()> &start)
{
    QEventLoop loop;
    QObject::connect(&engine, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    loop.exec();
}

void createRepo(RepoShell &engine, const QString &name)
{
    RepoInfo info;
    info.codename = QStringLiteral("dogwood");
    info.suite = QStringLiteral("stable");
    info.architectures = QStringLiteral("amd64");
    info.components = QStringLiteral("main");
    if (engine.createRepo(BenchData::folder() + QLatin1Char('/') + name, info) != RepoShell::SUCCESS)
        qFatal("cannot create the repository");
}

/** A repository whose pool has one gigabyte of packages, or many small texts. */
RepoShell &repository(bool large)
{
    static RepoShell engines[2];
    RepoShell &engine = engines[large ? 1 : 0];
    if (!engine.path().isEmpty())
        return engine;
    createRepo(engine, large ? QStringLiteral("large") : QStringLiteral("small"));
    for (int i = 0; i < (large ? LargeCount : SmallCount); ++i) {
        const QString folder = engine.path() + QStringLiteral("/pool/%1").arg(i / 100);
        QDir().mkpath(folder);
        if (large)
            write(folder + QStringLiteral("/p%1.deb").arg(i), noise(LargeSize));
        else
            write(folder + QStringLiteral("/t%1.txt").arg(i), noise(SmallSize / 2).toHex());
    }
    return engine;
}

void Tar(benchmark::State &state, bool large)
{
    const QString path = repository(large).path();
    for (auto _ : state)
        shell(QStringLiteral("tar czf '%1.tgz' -C '%1' .").arg(path));
}

void Export(benchmark::State &state, bool large)
{
    RepoShell &engine = repository(large);
    for (auto _ : state)
        runJob(engine, [&] { engine.exportRepo(engine.path() + QLatin1String(".tgz")); });
    if (engine.result() != RepoShell::SUCCESS)
        state.SkipWithError("the job did not do its work");
}

BENCHMARK_CAPTURE(Tar, large, true)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();
BENCHMARK_CAPTURE(Export, large, true)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK_CAPTURE(Tar, small, false)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();
BENCHMARK_CAPTURE(Export, small, false)->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

/** Packages of some size, and an archive of them. */
const QString &packages()
{
    static const QString folder = [] {
        const QString built = BenchData::smallPackages(QStringLiteral("import"), ImportCount);
        const QDir dir(built);
        for (const QString &name : dir.entryList({QStringLiteral("*.deb")}, QDir::Files)) {
            // The data member is replaced by one of the wanted size.
            const QString package = dir.filePath(name);
            write(BenchData::folder() + QLatin1String("/data.tar"), noise(ImportSize));
            shell(QStringLiteral("cd '%1' && ar d '%2' data.tar data.tar.xz data.tar.gz data.tar.zst && ar q "
                                 "'%2' data.tar")
                      .arg(BenchData::folder(), package));
        }
        shell(QStringLiteral("tar czf '%1.tgz' -C '%1' .").arg(built));
        return built;
    }();
    return folder;
}

void finish(benchmark::State &state, RepoShell &engine)
{
    if (engine.packageCount() != ImportCount)
        state.SkipWithError("the job did not do its work");
}

void UnpackAndAdd(benchmark::State &state)
{
    const QString archive = packages() + QLatin1String(".tgz");
    const QDir unpacked(BenchData::folder() + QLatin1String("/unpacked"));
    for (auto _ : state) {
        RepoShell engine;
        createRepo(engine, QStringLiteral("added"));
        shell(QStringLiteral("mkdir -p '%1' && tar xzf '%2' -C '%1'").arg(unpacked.path(), archive));
        QStringList files;
        for (const QString &name : unpacked.entryList({QStringLiteral("*.deb")}, QDir::Files))
            files.append(unpacked.filePath(name));
        engine.setCheckDependsOnAdd(false);
        runJob(engine, [&] { engine.addPackages(files); });
        finish(state, engine);
    }
}
BENCHMARK(UnpackAndAdd)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3)->UseRealTime();

void Import(benchmark::State &state)
{
    packages();
    for (auto _ : state) {
        RepoShell engine;
        createRepo(engine, QStringLiteral("imported"));
        runJob(engine, [&] { engine.importRepo(packages() + QLatin1String(".tgz")); });
        finish(state, engine);
    }
}
BENCHMARK(Import)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3)->UseRealTime();
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
