// SPDX-License-Identifier: GPL-3.0-or-later
// All measurements in one program. bench/run starts a process for each, so that each has its own peak memory.
#include "benchdata.h"

#include <QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char *argv[])
{
    // The measurements use neither the user's stored data nor the user's display.
    const QByteArray home = BenchData::folder().toLocal8Bit();
    qputenv("XDG_CACHE_HOME", QByteArray(home + "/cache"));
    qputenv("XDG_CONFIG_HOME", QByteArray(home + "/config"));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
