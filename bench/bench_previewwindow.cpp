// SPDX-License-Identifier: GPL-3.0-or-later
// The waiting times in the preview of removing all of 63,000 packages: until it stands; the counters have the slowest
// times from its effect, a key, a switch and a click on a header to the painted result.
#include "benchdata.h"
#include "engine/preview/previewrequest.h"
#include "enginejob.h"
#include "ui/preview/previewdialog.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTreeView>

#include <algorithm>
#include <memory>

#include <benchmark/benchmark.h>

namespace
{
ChangePreview removalOfAll()
{
    RepoShell shell;
    runJob(shell, [&] { shell.openRepo(BenchData::largeRepository()); });
    PreviewRequest request;
    request.kind = ChangePreview::Remove;
    request.packages = shell.packages();
    request.findsEffect = false;
    ChangePreview found;
    QObject::connect(&shell, &RepoShell::previewReady, &shell, [&found](const ChangePreview &preview) {
        found = preview;
    });
    runJob(shell, [&] { shell.preview(request); });
    return found;
}

/** Milliseconds until the change by `act` is painted. */
template <typename Act>
double painted(QWidget *window, const Act &act)
{
    QElapsedTimer clock;
    clock.start();
    act();
    QApplication::processEvents();
    window->repaint();
    return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void press(QWidget *target,
           int key,
           Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString &text = {})
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(target, &event);
}

void PreviewWindow(benchmark::State &state)
{
    const ChangePreview preview = removalOfAll();
    require(state, preview.rows.size() > 60000);
    double effect = 0;
    double key = 0;
    double page = 0;
    double one = 0;
    double all = 0;
    double sorting = 0;
    const auto note
        = [](double *slowest, double milliseconds) { *slowest = std::max(*slowest, milliseconds); };
    for (auto _ : state) {
        QWidget parent;
        std::unique_ptr<PreviewDialog> dialog;
        state.SetIterationTime(painted(&parent,
                                       [&] {
                                           dialog = std::make_unique<PreviewDialog>(
                                               preview, PreviewModel::AliasLookup(), &parent);
                                           dialog->show();
                                       })
                               / 1000);
        ChangePreview known = preview;
        known.effect.isKnown = true;
        note(&effect, painted(dialog.get(), [&] { dialog->setPreview(known); }));
        auto *view = dialog->findChild<QTreeView *>(QStringLiteral("m_rowsView"));
        auto *line = dialog->findChild<QLineEdit *>(QStringLiteral("m_filterLineEdit"));
        for (int i = 0; i < 20; ++i)
            note(&page, painted(dialog.get(), [&] { press(view, Qt::Key_PageDown); }));
        for (const char letter : {'l', 'i', 'b', 'q', 't'})
            note(&key, painted(dialog.get(), [&] {
                press(line, Qt::Key_A + letter - 'a', Qt::NoModifier, QString(QLatin1Char(letter)));
            }));
        for (int i = 0; i < 5; ++i)
            note(&key, painted(dialog.get(), [&] { press(line, Qt::Key_Backspace); }));
        auto *toggle = view->actions().first();
        for (int i = 0; i < 4; ++i)
            note(&one, painted(dialog.get(), [&] { toggle->trigger(); }));
        note(&all, painted(dialog.get(), [&] { press(view, Qt::Key_A, Qt::ControlModifier); }));
        for (int i = 0; i < 4; ++i)
            note(&all, painted(dialog.get(), [&] { toggle->trigger(); }));
        for (const int column : {PreviewModel::Package, PreviewModel::OldVersion, PreviewModel::Size})
            note(&sorting, painted(dialog.get(), [&] { view->sortByColumn(column, Qt::DescendingOrder); }));
    }
    state.counters["effect_ms"] = effect;
    state.counters["key_ms"] = key;
    state.counters["page_ms"] = page;
    state.counters["switch_ms"] = one;
    state.counters["switch_all_ms"] = all;
    state.counters["sort_ms"] = sorting;
}
BENCHMARK(PreviewWindow)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
} // namespace
