// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoenums.h"
#include "ui/batch/batchreport.h"

#include <QObject>
#include <QPointer>
#include <QVector>

#include <functional>
#include <optional>

class JobFeedback;
class RepoTabs;
class RepoWidget;

/**
 * Carries one command out on several repositories in turn. Errors come into its report instead of boxes. A tab that is
 * at work when its turn comes is waited for.
 */
class BatchRun : public QObject
{
    Q_OBJECT
public:
    struct Item
    {
        QString path; ///< of the repository
        /** Its tab, which is asked for when its turn comes; null when there is none any more. */
        std::function<RepoWidget *()> widget;
    };
    /** Starts a part of the work on a free tab. Returns why there is nothing to do; empty: it has begun. */
    using Stage = std::function<QString(RepoWidget *)>;

    /** The stages follow each other in each tab. Without any, it waits until the tab has opened its repository. */
    BatchRun(RepoTabs &tabs,
             JobFeedback &feedback,
             const QString &title,
             const QVector<Item> &items,
             const QVector<Stage> &stages,
             QObject *parent);

    /** May call changed() and finished() before it returns. */
    void start();
    /** Stops the work on the present repository, and leaves those after it out. */
    void stop();
    bool isOver() const { return m_isOver; }
    const BatchReport &report() const { return m_report; }

Q_SIGNALS:
    /** The entry `index` of the report is another one. */
    void changed(int index);
    void finished();

private:
    void next();
    void goOn();
    /** From now on the tab works for the run, and tells nobody else of its errors. */
    void begin();
    /** What has become of the item, by what its tab has told. */
    void endByResult();
    void endItem(BatchReport::State state);
    BatchReport::Entry &entry() { return m_report.entries[m_current]; }
    bool isPresent(const RepoWidget *widget) const;

    RepoTabs &m_tabs;
    JobFeedback &m_feedback;
    const QVector<Item> m_items;
    const QVector<Stage> m_stages;
    BatchReport m_report;
    QPointer<RepoWidget> m_widget; ///< of the present item
    int m_current = -1;
    int m_stage = 0;
    bool m_isBegun = false; ///< the work on the present item
    std::optional<RepoEnums::JobId> m_lastJob; ///< that has ended since then
    bool m_isStopped = false;
    bool m_isOver = false;
};
