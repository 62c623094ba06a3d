// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/closingsequence.h"

#include "ui/commands/repositorycommands.h"
#include "ui/dialogs/prompts.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

#include <QCoreApplication>
#include <QPointer>

ClosingSequence::ClosingSequence(RepoTabs &tabs,
                                 Prompts &prompts,
                                 RepositoryCommands &repositories,
                                 QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_prompts(prompts)
    , m_repositories(repositories)
{
    connect(&m_tabs, &RepoTabs::allIdle, this, &ClosingSequence::finishWhenIdle, Qt::QueuedConnection);
    connect(&m_repositories,
            &RepositoryCommands::removalsEnded,
            this,
            &ClosingSequence::finishWhenIdle,
            Qt::QueuedConnection);
    // After the event loop nobody answers a job. This also covers an end that the window did not start.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &ClosingSequence::begin);
}

bool ClosingSequence::isBusy() const
{
    return m_tabs.isAnyRunning() || m_repositories.isRemoving();
}

bool ClosingSequence::requestClose()
{
    if (m_closing)
        return !isBusy();
    // A second request must not open a second question.
    if (m_asking)
        return false;
    const QStringList jobs = m_tabs.runningJobs();
    if (!jobs.isEmpty()) {
        m_asking = true;
        const Prompts::Answer answer
            = m_prompts.askCarefully(tr("Warning"),
                                     tr("%1 is in progress, do you really want to close the program?")
                                         .arg(jobs.join(QLatin1String(", "))));
        m_asking = false;
        if (answer != Prompts::Answer::Yes)
            return m_closing && !isBusy();
    }
    begin();
    return !isBusy();
}

void ClosingSequence::closeWithoutAsking()
{
    begin();
    finishWhenIdle();
}

void ClosingSequence::begin()
{
    if (m_closing)
        return;
    m_closing = true;
    Q_EMIT began();
    // The engines come first: dismissing a box lets its job go on, and the job must then see the flag.
    m_tabs.setClosing();
    m_prompts.dismissAll();
}

void ClosingSequence::finishWhenIdle()
{
    if (m_closing && !isBusy())
        Q_EMIT finished();
}

void ClosingSequence::closeTab(RepoWidget *widget)
{
    const QPointer<RepoWidget> tab(widget);
    const QString job = m_tabs.runningJob(widget);
    if (!job.isEmpty()
        && m_prompts.askCarefully(
               tr("Warning"),
               tr("%1 is in progress, do you really want to close the repository?").arg(job),
               m_tabs.pathOf(widget))
               != Prompts::Answer::Yes)
        return;
    if (!tab.isNull())
        m_tabs.discard(tab);
}
