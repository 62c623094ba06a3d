// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/sources/aptsourcesquery.h"

#include "apt/aptutils.h"

#include <QtConcurrent>

AptSourcesQuery::AptSourcesQuery(QObject *parent)
    : QObject(parent)
    , m_stopped(std::make_shared<std::atomic_bool>(false))
{
    connect(&m_watcher, &QFutureWatcherBase::finished, this, [this] {
        const Answer answer = m_watcher.result();
        Q_EMIT answered(answer.sources, answer.failure);
    });
}

AptSourcesQuery::~AptSourcesQuery()
{
    // A hanging apt must not prevent the program from ending.
    *m_stopped = true;
}

void AptSourcesQuery::start()
{
    m_watcher.setFuture(QtConcurrent::run(&AptSourcesQuery::ask, m_stopped));
}

AptSourcesQuery::Answer AptSourcesQuery::ask(const std::shared_ptr<const std::atomic_bool> &stopped)
{
    Answer answer;
    AptUtils apt;
    apt.setStopRequest([stopped] { return stopped->load(); });
    answer.sources = apt.sourcesFromPolicy();
    answer.failure = apt.lastErrorDetails().isEmpty() ? apt.lastErrorText() : apt.lastErrorDetails();
    return answer;
}
