// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/reposhell.h"

#include <QEventLoop>

#include <benchmark/benchmark.h>

/** Starts a job and processes events until its end; returns its result. */
template <typename Start>
int runJob(RepoShell &shell, const Start &start)
{
    QEventLoop loop;
    QObject::connect(&shell, &RepoShell::idle, &loop, &QEventLoop::quit);
    start();
    loop.exec();
    return shell.result();
}

/** Marks a job that has failed, because it would look fast. */
inline void require(benchmark::State &state, bool done)
{
    if (!done)
        state.SkipWithError("the job did not do its work");
}
