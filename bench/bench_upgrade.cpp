// SPDX-License-Identifier: GPL-3.0-or-later
// Finding newer versions for 1,000 packages in a source of Debian's size, beside one question about one package.
#include "benchdata.h"
#include "core/processutils.h"
#include "depends/aptutils.h"
#include "depends/privateapt.h"
#include "engine/packagesfile.h"
#include "engine/reposhell.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>

#include <benchmark/benchmark.h>

namespace
{
constexpr int PackageCount = 1000;

void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

QString architecture()
{
    return QStringLiteral("amd64");
}

QList<PackageInfoPtr> publicPackages()
{
    return readPackagesFile(
        BenchData::packagesFile(), {QStringLiteral("main"), architecture(), PackageType::Deb}, {});
}

/** Debian's main index as a local source. */
QString source()
{
    const QString index = QStringLiteral("%1/dists/bookworm/main/binary-amd64/Packages")
                              .arg(BenchData::folder() + QLatin1String("/source"));
    QDir().mkpath(QFileInfo(index).path());
    QFile::copy(BenchData::packagesFile(), index);
    return QStringLiteral("[trusted=yes] file:%1/source bookworm main").arg(BenchData::folder());
}

/** A repository with every sixty-third package of that index in the oldest version there can be. */
QString repository()
{
    static const QString path = [] {
        QString folder = BenchData::folder() + QLatin1String("/repository");
        const auto packages = publicPackages();
        QByteArray index;
        for (int i = 0; i < PackageCount; ++i)
            index += "Package: " + packages.at(i * (packages.size() / PackageCount))->name.toLatin1()
                     + "\nVersion: 0~\nArchitecture: amd64\nFilename: pool/x\n\n";
        write(folder + QLatin1String("/conf/distributions"),
              "Origin: Debian\nCodename: bookworm\nSuite: stable\nArchitectures: amd64\nComponents: main\n");
        write(folder + QLatin1String("/dists/bookworm/main/binary-amd64/Packages"), index);
        return folder;
    }();
    return path;
}

int runJob(RepoShell &shell, const std::function<void()> &start)
{
    QEventLoop loop;
    QObject::connect(&shell, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    loop.exec();
    return shell.result();
}

void show(benchmark::State &state, const QStringList &environment)
{
    AptUtils utils;
    utils.setEnvironment(environment);
    for (auto _ : state) {
        if (utils.packageRecords(QStringLiteral("zlib1g")).isEmpty())
            qFatal("%s", qPrintable(utils.errorOutput()));
    }
}

void ShowOne(benchmark::State &state)
{
    show(state, {});
}
BENCHMARK(ShowOne)->Unit(benchmark::kMillisecond)->UseRealTime();

void ShowOneOfPrivate(benchmark::State &state)
{
    PrivateApt apt({source()}, {architecture()});
    if (!apt.fetch({}, {}).usable)
        qFatal("the source cannot be read");
    show(state, apt.environment());
}
BENCHMARK(ShowOneOfPrivate)->Unit(benchmark::kMillisecond)->UseRealTime();

void prepare(benchmark::State &state, bool fetchEachTime)
{
    RepoShell shell;
    if (runJob(shell, [&] { shell.openRepo(repository()); }) != RepoEnums::SUCCESS)
        qFatal("the repository cannot be opened");
    const QString line = source();
    for (auto _ : state) {
        if (fetchEachTime)
            QDir(PrivateApt::cacheFolder()).removeRecursively();
        if (runJob(shell, [&] { shell.prepareUpgrade({line}); }) != RepoEnums::SUCCESS)
            qFatal("the upgrade cannot be prepared");
    }
    state.counters["upgradable"] = shell.upgradablePackages().size();
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}

void AskForThousand(benchmark::State &state)
{
    PrivateApt apt({source()}, {architecture()});
    if (!apt.fetch({}, {}).usable)
        qFatal("the source cannot be read");
    RepoShell shell;
    runJob(shell, [&] { shell.openRepo(repository()); });
    const auto packages = shell.packages();
    int found = 0;
    for (auto _ : state) {
        AptUtils utils;
        utils.setEnvironment(apt.environment());
        const auto records = utils.packageRecords(UpgradeRules::questions(packages, architecture()));
        found = UpgradeRules::upgradable(packages, records).size();
    }
    state.counters["upgradable"] = found;
}
BENCHMARK(AskForThousand)->Unit(benchmark::kMillisecond)->UseRealTime();

void PrepareThousand(benchmark::State &state)
{
    prepare(state, false);
}
BENCHMARK(PrepareThousand)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void PrepareThousandFetching(benchmark::State &state)
{
    prepare(state, true);
}
BENCHMARK(PrepareThousandFetching)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
} // namespace

int main(int argc, char *argv[])
{
    // The user's own lists are neither used nor touched.
    qputenv("XDG_CACHE_HOME", BenchData::folder().toLocal8Bit() + "/cache");
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
