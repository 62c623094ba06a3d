// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFutureWatcher>
#include <QObject>
#include <QtConcurrent>

/**
 * Runs `work` on the thread pool and passes its result to `next` in the thread of `context`. When `context` is deleted
 * first, `next` is not called.
 */
template <typename Work, typename Next>
void runInBackground(QObject *context, Work work, Next next)
{
    using Result = decltype(work());
    auto *watcher = new QFutureWatcher<Result>(context);
    QObject::connect(watcher, &QFutureWatcherBase::finished, context, [watcher, next] {
        watcher->deleteLater();
        next(watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(work));
}
