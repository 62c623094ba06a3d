// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobframe.h"

#include "engine/changes/exportsession.h"
#include "engine/repository/packagelisting.h"

JobFrame::JobFrame(JobContext &context, const QString &startMessage, Subject subject)
    : m_context(context)
    , m_subject(subject)
{
    m_context.errors.prepare();
    m_context.progress.start(startMessage);
    m_context.history.begin(m_context.packages.all(), startMessage);
}

JobFrame::~JobFrame()
{
    if (!m_finished)
        finish(RepoEnums::ERROR, QString());
}

void JobFrame::itemDone(int itemCount)
{
    if (m_context.progress.count() == 1 && itemCount > 1)
        m_context.progress.setRange(itemCount);
    m_context.progress.show();
}

void JobFrame::quickItemDone()
{
    constexpr int StepInterval = 50; // milliseconds
    m_context.progress.count();
    if (m_sinceStep.isValid() && !m_sinceStep.hasExpired(StepInterval))
        return;
    m_sinceStep.start();
    m_context.progress.show();
}

int JobFrame::finish(int result, const QString &message, RepoEnums::JobId jobId)
{
    m_finished = true;
    tellOfForeignChange();
    m_context.control.reset();
    m_context.progress.finish(jobId, message);
    return result;
}

void JobFrame::tellOfForeignChange()
{
    // While the job itself still has to write the indices, they differ from the packages for that reason.
    if (m_subject != Packages || !m_context.errors.isAny() || m_context.control.isLockedOut()
        || m_context.control.isClosing() || ExportSession::isExportOwed(m_context.path()))
        return;
    const auto listed = readListing(m_context.path(), m_context.repository.info());
    if (listed && !compareListings(m_context.packages.all(), *listed).isEmpty())
        m_context.errors.critical(
            tr("Another program has changed the repository since it was read, which may be "
               "the reason. Reload it with F5, and try once more."),
            QString(),
            RepoEnums::WARNING);
}
