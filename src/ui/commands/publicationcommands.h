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
 * The commands on publications and on this machine's own sources. It keeps actions, panels and tabs in step with what
 * the system says is published.
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

    /** Shows by the actions and the current tab's panel what can be done now. */
    void updateActions();

private:
    void attach(RepoWidget *widget);
    void connectActions();
    void showSnapshot();
    void showSnapshotIn(RepoWidget *widget);
    void updateCommands(RepoWidget *widget);
    PublicationRules judge(const RepoWidget &widget) const;
    /** What the tab's command to unpublish means; of several, the one that the panel shows. */
    static std::optional<Publication> publicationToEnd(const PublicationRules &rules);
    bool isPublished(const QString &path) const;
    void publish(RepoWidget *widget);
    void unpublish(RepoWidget *widget);
    /** Ends it, after the lines that lead to it if the user wants that. `tab` is its repository's, null without one. */
    void end(const Publication &publication, RepoWidget *tab, const std::function<void(bool)> &answer = {});
    void unpublishAll(const QString &path, const std::function<void(bool)> &answer);
    void showPublishedRepos();

    Ui::MainWindow &m_ui;
    PublicationMonitor &m_monitor;
    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QWidget *m_window;
    HelperClient m_helper; ///< the one way to the system for both commands
    PublishCommand *m_publish;
    LocalSourceCommand *m_sources;
    QString m_publishToolTip; ///< while there is nothing to say
    QPointer<PublishedReposDialog> m_dialog;
    bool m_hasPublished = false; ///< since the start
};
