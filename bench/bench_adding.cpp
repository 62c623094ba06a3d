// SPDX-License-Identifier: GPL-3.0-or-later
// Adding and removing small packages: one reprepro run a package that exports each time, against the engine's jobs.
// Arguments: "--packages=N --present=M" (1000 into 5000 unless told otherwise); expect a quarter of an hour.
#include "benchdata.h"
#include "core/processutils.h"
#include "engine/privateconfig.h"
#include "engine/reposhell.h"
#include "engine/repreprocommands.h"
#include "engine/repreprorunner.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>

#include <algorithm>
#include <functional>

#include <benchmark/benchmark.h>

namespace
{
int packageCount = 1000;
int presentCount = 5000;

QStringList filesIn(const QString &folder)
{
    QStringList files;
    const QDir dir(folder);
    for (const QString &name : dir.entryList({QStringLiteral("*.deb")}, QDir::Files, QDir::Name))
        files.append(dir.filePath(name));
    return files;
}

const QStringList &newFiles()
{
    static const QStringList files = filesIn(BenchData::smallPackages(QStringLiteral("new"), packageCount));
    return files;
}

RepoInfo info()
{
    RepoInfo result;
    result.codename = QStringLiteral("dogwood");
    result.suite = QStringLiteral("stable");
    result.architectures = QStringLiteral("amd64");
    result.components = QStringLiteral("main contrib non-free");
    return result;
}

/** A repository with the packages that are there before, filled in one run. */
const QString &filledRepository()
{
    static const QString path = [] {
        const QString repository = BenchData::folder() + QLatin1String("/filled");
        RepoShell shell;
        if (shell.createRepo(repository, info()) != RepoShell::SUCCESS)
            qFatal("cannot create the repository");
        const QStringList files = filesIn(BenchData::smallPackages(QStringLiteral("old"), presentCount));
        const ProcessResult result = runProcess(
            {QStringLiteral("reprepro"),
             QStringList{
                 QStringLiteral("-b"), repository, QStringLiteral("includedeb"), QStringLiteral("dogwood")}
                 + files,
             {},
             {},
             -1});
        if (!result.succeeded())
            qFatal("%s", qPrintable(result.errorOutput));
        return repository;
    }();
    return path;
}

QString copyOfFilledRepository(const QString &name)
{
    const QString target = BenchData::folder() + QLatin1Char('/') + name;
    QDir(target).removeRecursively();
    runProcess({QStringLiteral("cp"), {QStringLiteral("-a"), filledRepository(), target}, {}, {}, -1});
    return target;
}

void runJob(RepoShell &shell, const std::function<void()> &start)
{
    QEventLoop loop;
    QObject::connect(&shell, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    loop.exec();
}

void check(benchmark::State &state, const RepoShell &shell, int expected)
{
    if (shell.packageCount() != expected)
        state.SkipWithError("the job did not do its work");
}

/** Every run writes all indices: time grows with the square of the packages. */
void AddOneRunAPackage(benchmark::State &state)
{
    const QString repository = copyOfFilledRepository(QStringLiteral("literal"));
    newFiles();
    for (auto _ : state) {
        for (const QString &file : newFiles()) {
            const auto arguments = ReproCommand::include(QStringLiteral("dogwood"),
                                                         QStringLiteral("main"),
                                                         QStringLiteral("amd64"),
                                                         QStringLiteral("admin"),
                                                         file);
            runProcess({QStringLiteral("dpkg"), {QStringLiteral("-I"), file}, {}, {}, -1});
            if (!runReproOn(repository, arguments).succeeded())
                state.SkipWithError("an include failed");
        }
    }
}
BENCHMARK(AddOneRunAPackage)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

/** The programs that the engine's add job starts, and nothing else. */
void ToolsOfTheAddJob(benchmark::State &state)
{
    const QString repository = copyOfFilledRepository(QStringLiteral("tools"));
    const PrivateConfig config(repository, PrivateConfig::Keep);
    for (auto _ : state) {
        for (const QString &file : newFiles()) {
            runProcess({QStringLiteral("dpkg"), {QStringLiteral("-I"), file}, {}, {}, -1});
            runReproOn(repository,
                       ReproCommand::include(QStringLiteral("dogwood"),
                                             QStringLiteral("main"),
                                             QStringLiteral("amd64"),
                                             QStringLiteral("admin"),
                                             file),
                       file == newFiles().first() ? QStringList() : config.environment());
        }
        runReproOn(repository, ReproCommand::exportIndices());
    }
}
BENCHMARK(ToolsOfTheAddJob)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

void AddJob(benchmark::State &state)
{
    RepoShell shell;
    const QString repository = copyOfFilledRepository(QStringLiteral("job"));
    runJob(shell, [&] { shell.openRepo(repository); });
    const int before = shell.packageCount();
    newFiles();
    for (auto _ : state)
        runJob(shell, [&] { shell.addPackages(newFiles()); });
    check(state, shell, before + newFiles().size());
}
BENCHMARK(AddJob)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();

void RemoveJob(benchmark::State &state)
{
    RepoShell shell;
    const QString repository = copyOfFilledRepository(QStringLiteral("job"));
    runJob(shell, [&] { shell.openRepo(repository); });
    const auto packages = shell.packages().mid(0, std::min(packageCount, shell.packageCount()));
    const int before = shell.packageCount();
    for (auto _ : state)
        runJob(shell, [&] { shell.removePackages(packages); });
    check(state, shell, before - packages.size());
}
BENCHMARK(RemoveJob)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();
} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument.startsWith(QLatin1String("--packages=")))
            packageCount = argument.section(QLatin1Char('='), 1).toInt();
        if (argument.startsWith(QLatin1String("--present=")))
            presentCount = argument.section(QLatin1Char('='), 1).toInt();
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
