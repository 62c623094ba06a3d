// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/control/jobprogress.h"

#include "engine/control/jobsignals.h"

#include <QMutexLocker>

void JobProgress::start(const QString &message)
{
    announce(message);
    m_step = 0;
    setRange(0);
    show();
}

void JobProgress::announce(const QString &message)
{
    {
        const QMutexLocker lock(&m_mutex);
        m_startMessage = message;
    }
    Q_EMIT m_signals.started(message);
}

void JobProgress::finish(RepoEnums::JobId jobId, const QString &message)
{
    Q_EMIT m_signals.finished(jobId, message);
}

QString JobProgress::startMessage() const
{
    const QMutexLocker lock(&m_mutex);
    return m_startMessage;
}

void JobProgress::setRange(int items)
{
    Q_EMIT m_signals.progressRangeChanged(items);
}

void JobProgress::show()
{
    Q_EMIT m_signals.progressStepChanged(m_step);
}
