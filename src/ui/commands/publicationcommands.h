// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/helperclient.h"
#include "publication/publicationmonitor.h"
#include "server/publicationrules.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>

#include <functional>

class LocalSourceCommand;
class PublishCommand;
class PublishedReposDialog;
class RepositoryCommands;
class RepoWidget;
class QWidget;

namespace Ui
{
class MainWindow;
}

/**
 * The commands on publications and on this machine's own sources. They keep actions, panels and tabs up to date with
 * the publications that the system has.
 */
class PublicationCommands : public QObject
{
    Q_OBJECT
public:
    /** `ui` holds the actions and outlives the commands; `window` is its window. */
    PublicationCommands(Ui::MainWindow &ui,
                        const Workbench &bench,
                        RepositoryCommands &repositories,
                        PublicationMonitor &monitor,
                        QWidget *window);

    /** Enables the actions, and the commands of the current tab's panel, that are possible now. */
    void updateActions();
    /** Publishes the free tab's repository as chosen in its panel, or returns at once why it cannot be. */
    QString publishUnlessRefused(RepoWidget *widget);

private:
    void attach(RepoWidget *widget);
    void connectActions();
    void showSnapshot();
    void showSnapshotIn(RepoWidget *widget);
    void updateCommands(RepoWidget *widget);
    PublicationRules judge(const RepoWidget &widget) const;
    /** The publication that the tab's unpublish command ends; of several, the one that the panel shows. */
    static std::optional<Publication> publicationToEnd(const PublicationRules &rules);
    bool isPublished(const QString &path) const;
    void publish(RepoWidget *widget);
    void unpublish(RepoWidget *widget);
    /** Ends the publication, and removes the lines to it first if the user agrees. `tab` may be null. */
    void end(const Publication &publication, RepoWidget *tab, const std::function<void(bool)> &answer = {});
    void unpublishAll(const QString &path, const std::function<void(bool)> &answer);
    void showPublishedRepos();

    Ui::MainWindow &m_ui;
    PublicationMonitor &m_monitor;
    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QWidget *m_window;
    HelperClient m_helper; ///< for both commands
    PublishCommand *m_publish;
    LocalSourceCommand *m_sources;
    QString m_publishToolTip; ///< when publishing is possible
    QPointer<PublishedReposDialog> m_dialog;
    bool m_hasPublished = false; ///< since the start of the program
};
