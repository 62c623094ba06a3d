// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/batch/batchrun.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class BatchDialog;
class PublicationCommands;
class QAction;
class QMenu;
class RepositoryCommands;
class UpgradeCommands;

namespace Ui
{
class MainWindow;
}

/** The commands that work on all open repositories in turn, with one report. One of them runs at a time. */
class BatchCommands : public QObject
{
    Q_OBJECT
public:
    /** `ui` holds the menus and outlives the commands; `window` is its window. */
    BatchCommands(Ui::MainWindow &ui,
                  const Workbench &bench,
                  RepositoryCommands &repositories,
                  UpgradeCommands &upgrades,
                  PublicationCommands &publications,
                  QWidget *window);

    /** Enables the actions that are possible now. */
    void updateActions();
    /** Nothing is begun any more: the window closes. */
    void stop();

private:
    using Stages = QVector<BatchRun::Stage>;

    static QString emptyText();
    QAction *add(QMenu *menu, const QString &text, const char *icon, void (BatchCommands::*command)());
    void openBelow();
    void check();
    void checkCompletely();
    void exportAll();
    void upgrade();
    void publish();
    QVector<BatchRun::Item> openRepositories() const;
    void run(const QString &title, const QVector<BatchRun::Item> &items, const Stages &stages);
    void runOver();
    void save();

    Workbench m_bench;
    RepositoryCommands &m_repositories;
    UpgradeCommands &m_upgrades;
    PublicationCommands &m_publications;
    QWidget *m_window;
    QMenu *m_menu;
    QAction *m_openAction;
    BatchRun *m_run = nullptr; ///< the last one
    QPointer<BatchDialog> m_dialog;
    QString m_lastFolder;
};
