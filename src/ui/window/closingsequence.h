// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Prompts;
class RepositoryCommands;
class RepoTabs;
class RepoWidget;

/**
 * Closes tabs and the window without blocking. It asks once when a job runs, tells the engines to stop, and emits
 * finished() after the last job.
 */
class ClosingSequence : public QObject
{
    Q_OBJECT
public:
    ClosingSequence(RepoTabs &tabs, Prompts &prompts, RepositoryCommands &repositories, QObject *parent);

    /** Whether the window may close now. If not, the window stays open, or finished() comes later. */
    bool requestClose();
    /** Begins to close although jobs run or a box is open. */
    void closeWithoutAsking();
    /** Closes one tab. Asks first when its job runs. */
    void closeTab(RepoWidget *widget);

    bool isClosing() const { return m_closing; }

Q_SIGNALS:
    /** From now on nothing new may be started. */
    void began();
    /** Nothing runs any more and the window may close. */
    void finished();

private:
    void begin();
    bool isBusy() const;
    void finishWhenIdle();

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    RepositoryCommands &m_repositories;
    bool m_closing = false;
    bool m_asking = false;
};
