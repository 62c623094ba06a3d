// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/addedlistsfetch.h"

#include <QtConcurrent>

#include <utility>

AddedListsFetch::AddedListsFetch(AddedSources sources, QObject *parent)
    : QObject(parent)
    , m_sources(std::move(sources))
    , m_shared(std::make_shared<Shared>())
{
    constexpr int ProgressInterval = 100; // milliseconds
    m_timer.setInterval(ProgressInterval);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        const int percent = m_shared->percent;
        if (percent >= 0)
            Q_EMIT progressed(percent);
    });
    connect(&m_watcher, &QFutureWatcherBase::finished, this, [this] {
        m_timer.stop();
        Q_EMIT finished(m_watcher.result());
    });
}

AddedListsFetch::~AddedListsFetch()
{
    cancel();
}

void AddedListsFetch::start(Wish wish)
{
    if (m_watcher.isRunning())
        return;
    m_shared = std::make_shared<Shared>();
    m_timer.start();
    m_watcher.setFuture(QtConcurrent::run(&AddedListsFetch::run, m_sources, wish, m_shared));
}

void AddedListsFetch::cancel()
{
    m_shared->isStopped = true;
}

AddedListsFetch::Result
AddedListsFetch::run(AddedSources sources, Wish wish, const std::shared_ptr<Shared> &shared)
{
    const auto stopped = [&shared] { return shared->isStopped.load(); };
    Result result;
    sources.settle(stopped);
    result.isStopped = stopped();
    result.isAny = !sources.isEmpty();
    PrivateApt *apt = sources.apt();
    if (apt == nullptr) {
        if (result.isAny)
            result.problems.append(tr("No files could be written in %1.").arg(PrivateApt::cacheFolder()));
        return result;
    }
    if (wish == Now)
        apt->expire();
    if (wish == Now || apt->isDue()) {
        shared->percent = 0;
        const auto outcome = apt->fetch(stopped, [&shared](int percent) { shared->percent = percent; });
        result.isStopped = stopped();
        result.isFetched = !result.isStopped;
        result.problems = outcome.problems;
        result.details = outcome.details;
    } else {
        result.problems = apt->lastProblems();
    }
    result.fetchedAt = apt->fetchedAt();
    return result;
}
