// SPDX-License-Identifier: GPL-3.0-or-later
// The preview of adding many packages: from the files that are read to the rows. Compared with reading the files alone,
// which the preview does first.
#include "benchdata.h"
#include "core/countof.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/runsize.h"
#include "engine/preview/previewrequest.h"
#include "enginejob.h"

#include <QElapsedTimer>

#include <benchmark/benchmark.h>

namespace
{
void ReadForPreview(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    for (auto _ : state) {
        PackageFileReader reader(
            files, RunSize::Largest, [] { return false; }, PackageFile::ForComparison);
        int read = 0;
        for (int next = 1; next > 0; read += next)
            next = countOf(reader.next(RunSize::Largest));
        require(state, read == files.size());
    }
}
BENCHMARK(ReadForPreview)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

void PreviewOfAdding(benchmark::State &state)
{
    const QStringList files = BenchData::packages(BenchData::newPackages());
    const QString path = BenchData::changeableRepository({BenchData::oldPackages()});
    RepoShell shell;
    runJob(shell, [&] { shell.openRepo(path); });
    PreviewRequest request;
    request.files = files;
    request.findsEffect = false;
    int rows = 0;
    QObject::connect(&shell, &RepoShell::previewReady, &shell, [&rows](const ChangePreview &preview) {
        rows = countOf(preview.rows);
    });
    for (auto _ : state)
        runJob(shell, [&] { shell.preview(request); });
    require(state, rows >= files.size());
}
BENCHMARK(PreviewOfAdding)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

/** What could be installed before and after removing a package that half of a repository of Debian's size may need. */
void EffectOfRemoving(benchmark::State &state)
{
    RepoShell shell;
    runJob(shell, [&] { shell.openRepo(BenchData::largeRepository()); });
    PreviewRequest request;
    request.kind = ChangePreview::Remove;
    request.base = CompleteCheckBase();
    request.base->kind = CompleteCheckBase::Nothing;
    for (const PackageInfoPtr &package : shell.packages())
        if (package->name == QLatin1String("zlib1g"))
            request.packages.append(package);
    bool isKnown = false;
    QObject::connect(&shell, &RepoShell::previewReady, &shell, [&isKnown](const ChangePreview &preview) {
        isKnown = preview.effect.isKnown;
    });
    for (auto _ : state)
        runJob(shell, [&] { shell.preview(request); });
    require(state, isKnown);
}
BENCHMARK(EffectOfRemoving)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
} // namespace
