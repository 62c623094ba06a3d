// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobframe.h"

JobFrame::JobFrame(JobContext &context, const QString &startMessage)
    : m_context(context)
{
    m_context.started(startMessage);
    m_context.setProgress(0);
    m_context.setProgressRange(0);
    m_context.showProgress();
}

JobFrame::~JobFrame()
{
    if (!m_finished)
        finish(RepoEnums::ERROR, QString());
}

void JobFrame::itemDone(int itemCount)
{
    if (m_context.countProgress() == 1 && itemCount > 1)
        m_context.setProgressRange(itemCount);
    m_context.showProgress();
}

void JobFrame::quickItemDone()
{
    constexpr int StepInterval = 50; // milliseconds
    m_context.countProgress();
    if (m_sinceStep.isValid() && !m_sinceStep.hasExpired(StepInterval))
        return;
    m_sinceStep.start();
    m_context.showProgress();
}

int JobFrame::finish(int result, const QString &message, RepoEnums::JobId jobId)
{
    m_finished = true;
    m_context.tellOfForeignChange();
    m_context.resetCancel();
    m_context.finished(jobId, message);
    return result;
}
