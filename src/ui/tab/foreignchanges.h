// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/folderwatch.h"

#include <QObject>
#include <QTimer>

class Prompts;
class RepoTabs;
class RepoWidget;

/**
 * Notices when another program changes the repository of a tab, and lets the engine read the repository again. Jobs of
 * the tab itself cause no reading: the engine knows what they have changed.
 */
class ForeignChanges : public QObject
{
    Q_OBJECT
public:
    /** Lives as long as the tab. */
    ForeignChanges(RepoTabs &tabs, Prompts &prompts, RepoWidget &widget);

    /** The repository is looked at after this time without a change, in milliseconds. */
    static constexpr int QuietTime = 500;

private:
    void watch();
    void lookSoon();
    void look();
    /** Whether the tab is at work, or a dialog is open, which may be about the tab. */
    bool mustWait() const;

    RepoTabs &m_tabs;
    Prompts &m_prompts;
    RepoWidget &m_widget;
    FolderWatch m_folders;
    QTimer m_quiet;
    bool m_isLooking = false;
    bool m_isDue = false; ///< a look had to wait
};
