// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/batch/batchrun.h"

#include "engine/reposhell.h"
#include "ui/tab/jobfeedback.h"
#include "ui/tab/repotabs.h"
#include "ui/tab/repowidget.h"

BatchRun::BatchRun(RepoTabs &tabs,
                   JobFeedback &feedback,
                   const QString &title,
                   const QVector<Item> &items,
                   const QVector<Stage> &stages,
                   QObject *parent)
    : QObject(parent)
    , m_tabs(tabs)
    , m_feedback(feedback)
    , m_items(items)
    , m_stages(stages)
{
    m_report.title = title;
    for (const Item &item : items)
        m_report.entries.append({item.path, BatchReport::State::Waiting, {}, {}});
    connect(&m_feedback, &JobFeedback::told, this, [this](RepoWidget *widget, const QString &message) {
        if (isPresent(widget) && m_isBegun)
            entry().message = message;
    });
    connect(&m_feedback,
            &JobFeedback::troubled,
            this,
            [this](RepoWidget *widget, const QString &text, const QString &details) {
                if (isPresent(widget) && m_isBegun)
                    entry().troubles.append(details.isEmpty() ? text : text + QLatin1Char('\n') + details);
            });
    // Queued: others who wait for the end of a job, such as a preview that it belongs to, come first.
    const auto goOnWith = [this](RepoWidget *widget) {
        if (isPresent(widget))
            goOn();
    };
    connect(&m_tabs, &RepoTabs::ready, this, goOnWith, Qt::QueuedConnection);
    connect(&m_tabs, &RepoTabs::leaving, this, [this](RepoWidget *widget) {
        if (!isPresent(widget))
            return;
        if (entry().message.isEmpty())
            entry().message = tr("The tab was closed.");
        endItem(entry().troubles.isEmpty() ? BatchReport::State::LeftOut : BatchReport::State::Troubled);
    });
}

void BatchRun::start()
{
    next();
}

void BatchRun::stop()
{
    if (m_isOver || m_isStopped)
        return;
    m_isStopped = true;
    if (m_widget.isNull())
        return;
    // What the tab does before its turn is not ours to stop.
    if (m_isBegun && m_tabs.isRunning(m_widget))
        m_feedback.stopJobOf(m_widget);
    else
        goOn();
}

bool BatchRun::isPresent(const RepoWidget *widget) const
{
    return widget != nullptr && widget == m_widget;
}

void BatchRun::next()
{
    while (++m_current < m_items.size()) {
        m_stage = 0;
        m_isBegun = false;
        m_lastJob.reset();
        m_widget = m_isStopped ? nullptr : m_items.at(m_current).widget();
        if (!m_widget.isNull()) {
            if (m_stages.isEmpty())
                begin();
            entry().state = BatchReport::State::Running;
            Q_EMIT changed(m_current);
            goOn();
            return;
        }
        entry().state = BatchReport::State::LeftOut;
        entry().message = m_isStopped ? tr("Stopped") : tr("The tab was closed.");
        Q_EMIT changed(m_current);
    }
    m_isOver = true;
    Q_EMIT finished();
}

void BatchRun::begin()
{
    m_isBegun = true;
    m_feedback.setQuiet(m_widget, true);
    connect(
        m_widget->repoShell(), &RepoShell::finished, this, [this](RepoEnums::JobId job) { m_lastJob = job; });
}

void BatchRun::endByResult()
{
    const bool isStopped = m_lastJob && m_widget->repoShell()->result() == RepoEnums::CANCEL;
    // A preview that no job follows was declined.
    const bool isDeclined = m_lastJob == RepoEnums::PREVIEW_JOB;
    auto state = isStopped || isDeclined ? BatchReport::State::LeftOut : BatchReport::State::Done;
    if (isDeclined)
        entry().message.clear();
    // Who has done something, has told of it.
    if (entry().message.isEmpty() && !m_stages.isEmpty()) {
        state = BatchReport::State::LeftOut;
        entry().message = tr("Nothing was done.");
    }
    endItem(entry().troubles.isEmpty() ? state : BatchReport::State::Troubled);
}

void BatchRun::goOn()
{
    if (m_isStopped && !m_isBegun) {
        entry().message = tr("Stopped");
        endItem(BatchReport::State::LeftOut);
        return;
    }
    if (!m_tabs.isFree(m_widget) && !(m_isStopped && !m_tabs.isRunning(m_widget)))
        return;
    const bool isCutShort = m_lastJob && m_widget->repoShell()->result() == RepoEnums::CANCEL;
    if (m_isStopped || isCutShort || m_stage == m_stages.size()) {
        endByResult();
        return;
    }
    if (!m_isBegun)
        begin();
    const QString reason = m_stages.at(m_stage)(m_widget);
    ++m_stage;
    if (!reason.isEmpty()) {
        entry().message = reason;
        const bool isFirst = m_stage == 1;
        endItem(isFirst
                    ? BatchReport::State::LeftOut
                    : (entry().troubles.isEmpty() ? BatchReport::State::Done : BatchReport::State::Troubled));
        return;
    }
    // What ends at once does not make the tab ready once more.
    if (m_tabs.isFree(m_widget))
        QMetaObject::invokeMethod(
            this,
            [this, widget = m_widget] {
                if (isPresent(widget))
                    goOn();
            },
            Qt::QueuedConnection);
}

void BatchRun::endItem(BatchReport::State state)
{
    entry().state = state;
    if (m_isBegun) {
        m_feedback.setQuiet(m_widget, false);
        if (!m_widget.isNull())
            disconnect(m_widget->repoShell(), nullptr, this, nullptr);
    }
    m_widget.clear();
    Q_EMIT changed(m_current);
    // Not from within a signal of the tab: the next one may begin a job.
    QMetaObject::invokeMethod(this, &BatchRun::next, Qt::QueuedConnection);
}
