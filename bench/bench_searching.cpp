// SPDX-License-Identifier: GPL-3.0-or-later
// The waiting times in the tree of a repository of 63,000 packages: from a key in the search line to the painted
// result, with all groups expanded and with all collapsed; expanding everything; scrolling by a page. The counters have
// the slowest time, and the longest time without response of the interface.
#include "benchdata.h"
#include "core/countof.h"
#include "enginejob.h"
#include "stallmeter.h"
#include "ui/tab/repowidget.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <memory>

#include <benchmark/benchmark.h>

namespace
{
struct OpenTab
{
    RepoWidget widget;
    QTreeView *tree = widget.findChild<QTreeView *>(QStringLiteral("m_repoTreeView"));
    QLineEdit *line = widget.findChild<QWidget *>(QStringLiteral("m_searchLine"))->findChild<QLineEdit *>();
    double slowest = 0; ///< milliseconds

    OpenTab()
    {
        widget.resize(1000, 500);
        widget.show();
        runJob(*widget.repoShell(), [this] { widget.openRepo(BenchData::largeRepository()); });
        QApplication::processEvents();
    }

    /** Seconds until the change by `act` is painted. */
    template <typename Act>
    double secondsToPainted(const Act &act)
    {
        QElapsedTimer clock;
        clock.start();
        act();
        QApplication::processEvents();
        tree->viewport()->repaint();
        const double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        slowest = std::max(slowest, seconds * 1000);
        return seconds;
    }

    static void press(QWidget *target, int key, const QString &text = QString())
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &event);
    }
};

void Keystroke(benchmark::State &state)
{
    OpenTab tab;
    if (state.range(0) != 0)
        tab.tree->expandAll();
    else
        tab.tree->collapseAll();
    QApplication::processEvents();
    const StallMeter meter;
    // The word is typed and deleted again: one letter finds nearly all packages, the whole word some hundreds.
    const std::array<char, 10> keys{'l', 'i', 'b', 'q', 't', 0, 0, 0, 0, 0};
    std::size_t next = 0;
    for (auto _ : state) {
        const char key = keys[next];
        next = (next + 1) % countOf(keys);
        state.SetIterationTime(tab.secondsToPainted([&] {
            if (key == 0)
                OpenTab::press(tab.line, Qt::Key_Backspace);
            else
                OpenTab::press(tab.line, Qt::Key_A + key - 'a', QString(QLatin1Char(key)));
        }));
    }
    state.counters["slowest_ms"] = tab.slowest;
    state.counters["longest_stall_ms"] = meter.longestMilliseconds();
}
BENCHMARK(Keystroke)
    ->ArgName("expanded")
    ->Arg(1)
    ->Arg(0)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(100);

void ExpandAll(benchmark::State &state)
{
    OpenTab tab;
    const StallMeter meter;
    for (auto _ : state) {
        tab.tree->collapseAll();
        QApplication::processEvents();
        state.SetIterationTime(tab.secondsToPainted([&] { tab.tree->expandAll(); }));
    }
    state.counters["slowest_ms"] = tab.slowest;
    state.counters["longest_stall_ms"] = meter.longestMilliseconds();
}
BENCHMARK(ExpandAll)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

void ScrollPage(benchmark::State &state)
{
    OpenTab tab;
    tab.tree->expandAll();
    QApplication::processEvents();
    const StallMeter meter;
    for (auto _ : state)
        state.SetIterationTime(tab.secondsToPainted([&] { OpenTab::press(tab.tree, Qt::Key_PageDown); }));
    state.counters["slowest_ms"] = tab.slowest;
    state.counters["longest_stall_ms"] = meter.longestMilliseconds();
}
BENCHMARK(ScrollPage)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(200);
} // namespace
