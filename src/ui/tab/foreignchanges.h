// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/folderwatch.h"

#include <QObject>
#include <QTimer>

class Prompts;
class RepoTabs;
class RepoWidget;

/**
 * Notices that another program has changed the repository of a tab, and has the repository read again. What jobs of the
 * tab itself do makes no difference between the repository and what is known of it.
 */
class ForeignChanges : public QObject
{
    Q_OBJECT
public:
    /** Lives as long as the tab. */
    ForeignChanges(RepoTabs &tabs, Prompts &prompts, RepoWidget &widget);

    /** Time without a change after which a repository is looked at, in milliseconds. */
    static constexpr int QuietTime = 1000;

private:
    void watch();
    void lookSoon();
    void look();
    /** Whether the tab is at work, or the user is being asked about what the tab shows. */
    bool mustWait() const;

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    RepoWidget &m_widget;
    FolderWatch m_folders;
    QTimer m_quiet;
    bool m_isLooking = false;
    bool m_isDue = false; ///< a look that had to wait
};
