// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

class Prompts;
class QAction;
class RepoTabs;
class RepoWidget;
class SettingsCommands;

/** Bringing a repository's packages up to the versions that external repositories offer. */
class UpgradeCommands : public QObject
{
    Q_OBJECT
public:
    UpgradeCommands(
        QAction *action, RepoTabs &tabs, Prompts &prompts, SettingsCommands &settings, QObject *parent);

    /** Shows by the action whether it can be done now. */
    void updateActions();

private:
    void attach(RepoWidget *widget);
    void showUpgradeRepoDialog();
    void servePrepared();
    void choosePackages(RepoWidget *widget);

    QAction *m_action;
    RepoTabs &m_tabs;
    Prompts &m_prompts;
    SettingsCommands &m_settings;
    QList<RepoWidget *> m_prepared; ///< tabs whose newer versions the user has not seen yet
    QStringList m_lastSources;
};
