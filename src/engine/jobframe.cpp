// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobframe.h"

RepoShell::JobFrame::JobFrame(RepoShell &shell, const QString &startMessage)
    : m_shell(shell)
{
    m_shell.setStartMessage(startMessage);
    Q_EMIT m_shell.started(startMessage);
    m_shell.m_progress = 0;
    Q_EMIT m_shell.progressRangeChanged(0);
    Q_EMIT m_shell.progressStepChanged(0);
}

RepoShell::JobFrame::~JobFrame()
{
    if (!m_finished)
        finish(ERROR, QString());
}

void RepoShell::JobFrame::itemDone(int itemCount)
{
    const int done = ++m_shell.m_progress;
    if (done == 1 && itemCount > 1)
        Q_EMIT m_shell.progressRangeChanged(itemCount);
    Q_EMIT m_shell.progressStepChanged(done);
}

void RepoShell::JobFrame::quickItemDone()
{
    constexpr int StepInterval = 50; // milliseconds
    const int done = ++m_shell.m_progress;
    if (m_sinceStep.isValid() && !m_sinceStep.hasExpired(StepInterval))
        return;
    m_sinceStep.start();
    Q_EMIT m_shell.progressStepChanged(done);
}

int RepoShell::JobFrame::finish(int result, const QString &message, JobId jobId)
{
    m_finished = true;
    m_shell.resetCancel();
    Q_EMIT m_shell.finished(jobId, message);
    return result;
}
