// SPDX-License-Identifier: GPL-3.0-or-later
// The time from the Open command until all rows are shown, for a repository of 63,000 packages, compared with apt
// building its cache from the same list. Then the time from the command to check all dependencies within the repository
// until the states are shown; stored_ms is the time until they are stored too. The counters have the longest time
// without response of the interface, and the peak memory.
#include "benchdata.h"
#include "core/processutils.h"
#include "core/settingskeys.h"
#include "enginejob.h"
#include "stallmeter.h"
#include "ui/tab/repowidget.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTreeView>

#include <algorithm>

#include <benchmark/benchmark.h>

namespace
{
int packagesBelow(const QAbstractItemModel &model, const QModelIndex &parent)
{
    const int rows = model.rowCount(parent);
    if (rows == 0)
        return parent.isValid() ? 1 : 0;
    int count = 0;
    for (int row = 0; row < rows; ++row)
        count += packagesBelow(model, model.index(row, 0, parent));
    return count;
}

/** Builds apt's cache from the index of the repository as its only list, with a state and a cache of its own. */
void AptGencaches(benchmark::State &state)
{
    const QString folder = BenchData::folder() + QLatin1String("/apt");
    for (const char *name : {"etc/apt.conf.d",
                             "etc/sources.list.d",
                             "etc/preferences.d",
                             "etc/trusted.gpg.d",
                             "lists/partial",
                             "cache/archives/partial"})
        QDir().mkpath(folder + QLatin1Char('/') + QLatin1String(name));
    const auto write = [&](const char *name, const QString &text) {
        BenchData::write(folder + QLatin1Char('/') + QLatin1String(name), text.toUtf8());
    };
    write("status", QString());
    write("etc/sources.list",
          QStringLiteral("deb [trusted=yes] copy:%1 bookworm main\n").arg(BenchData::largeRepository()));
    write("apt.conf",
          QStringLiteral(
              "Dir::Etc \"%1/etc\"; Dir::Etc::Parts \"%1/etc/apt.conf.d\"; Dir::State::lists \"%1/lists\";\n"
              "Dir::State::status \"%1/status\"; Dir::Cache \"%1/cache\"; APT::Sandbox::User \"\";\n"
              "Acquire::GzipIndexes \"false\"; Acquire::Languages \"none\";\n")
              .arg(folder));
    // apt names a fetched list after its source. It is copied by hand, because the index has no Release file.
    QString listed
        = BenchData::largeRepository() + QLatin1String("/dists/bookworm/main/binary-amd64/Packages");
    QString name = listed.mid(1);
    name.replace(QLatin1Char('_'), QLatin1String("%5f")).replace(QLatin1Char('/'), QLatin1Char('_'));
    QFile::copy(listed, folder + QLatin1String("/lists/_") + name);
    const QStringList environment{QLatin1String("APT_CONFIG=") + folder + QLatin1String("/apt.conf")};
    for (auto _ : state) {
        state.PauseTiming();
        QFile::remove(folder + QLatin1String("/cache/pkgcache.bin"));
        QFile::remove(folder + QLatin1String("/cache/srcpkgcache.bin"));
        state.ResumeTiming();
        if (!runProcess({QStringLiteral("apt-cache"), {QStringLiteral("gencaches")}, {}, environment, -1})
                 .succeeded())
            state.SkipWithError("apt-cache failed");
    }
    const QString stats
        = runProcess({QStringLiteral("apt-cache"), {QStringLiteral("stats")}, {}, environment, -1}).output;
    state.counters["versions"] = stats.section(QStringLiteral("Total distinct versions: "), 1)
                                     .section(QLatin1Char(' '), 0, 0)
                                     .toInt();
}
BENCHMARK(AptGencaches)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

void OpenRepository(benchmark::State &state)
{
    const QString repository = BenchData::largeRepository();
    double longestStall = 0;
    int shown = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto widget = std::make_unique<RepoWidget>();
        widget->resize(1000, 500);
        widget->show();
        QApplication::processEvents();
        StallMeter meter;
        state.ResumeTiming();
        runJob(*widget->repoShell(), [&] { widget->openRepo(repository); });
        // The time includes the paint that shows the rows.
        QApplication::processEvents();
        state.PauseTiming();
        const auto *tree = widget->findChild<QTreeView *>(QStringLiteral("m_repoTreeView"));
        shown = packagesBelow(*tree->model(), QModelIndex());
        longestStall = std::max(longestStall, meter.longestMilliseconds());
        widget.reset();
        state.ResumeTiming();
    }
    state.counters["rows"] = shown;
    state.counters["longest_stall_ms"] = longestStall;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(OpenRepository)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

void CheckRepository(benchmark::State &state)
{
    RepoWidget widget;
    RepoShell *const shell = widget.repoShell();
    widget.resize(1000, 500);
    widget.show();
    shell->setDependsRepoType(DependsLocal);
    runJob(*shell, [&] { widget.openRepo(BenchData::largeRepository()); });
    QApplication::processEvents();
    // The job ends when the results are stored; the states are shown earlier.
    QElapsedTimer time;
    double shown = 0;
    QObject::connect(shell, &RepoShell::dependsSummary, &widget, [&] {
        QApplication::sendPostedEvents();
        shown = static_cast<double>(time.nsecsElapsed()) / 1e9;
    });
    double longestStall = 0;
    for (auto _ : state) {
        const StallMeter meter;
        time.start();
        const int result = runJob(*shell, [&] { shell->checkDepends(shell->packages()); });
        require(state, result == RepoShell::SUCCESS && shown > 0);
        state.SetIterationTime(shown);
        QApplication::processEvents();
        longestStall = std::max(longestStall, meter.longestMilliseconds());
        shell->waitForStoring();
        state.counters["stored_ms"] = static_cast<double>(time.elapsed());
    }
    state.counters["longest_stall_ms"] = longestStall;
    state.counters["peak_MB"] = BenchData::peakMegabytes();
}
BENCHMARK(CheckRepository)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(1);
} // namespace
