// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/historylimits.h"
#include "engine/history/repositoryhistory.h"
#include "engine/preview/previewrequest.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>
#include <optional>

class HistorySettingsDialog;
class HistoryView;
class QAction;
class QDockWidget;
class QMainWindow;
class QSettings;
class RepoShell;
class RepoWidget;

namespace Ui
{
class MainWindow;
}

/** The dock "History", which follows the tab in front, and the commands that look back and go back. */
class HistoryCommands : public QObject
{
    Q_OBJECT
public:
    /** Adds the dock to the window, and the commands to its menus. */
    HistoryCommands(const Ui::MainWindow &ui, const Workbench &bench, QMainWindow *window);

    void updateActions();
    void loadColumns(const QSettings &settings);
    void saveColumns(QSettings &settings) const;
    /** The window is being closed: nothing is shown or enabled from now on. */
    void stop();

private:
    /** A change that needs the user's consent. */
    struct Plan
    {
        QString title;
        QString question;
        QString about; ///< what will change
        std::function<void(RepoShell &shell)> start;
        PreviewRequest request; ///< for a preview of it
    };

    QAction *action(const char *name, const QString &text, const char *icon, const QString &key);
    void buildMenus(const Ui::MainWindow &ui);
    void addTab(const RepoWidget *widget);
    void show();
    /** The history of the tab in front; nothing while it is not read. */
    std::optional<RepositoryHistory> current() const;
    /** Reads the tab's history now and from now on. */
    void watch(const RepoWidget *widget);

    /** Why the tab in front cannot be changed now; empty when it can. */
    QString obstacle() const;
    QString obstacleToUndo() const;
    QString obstacleToGoBack() const;
    QString obstacleToBringBack() const;
    QString obstacleToCompare() const;

    void undo();
    void goBack();
    void bringBack();
    void compare();
    /** Goes back to the state before the point, which is the newest one for the command "Undo". */
    void planReturn(int number, bool isUndo);
    /** Every change begins here: the user sees what it does, and has the last word. */
    void confirm(const QPointer<RepoWidget> &widget, const Plan &plan);
    enum class Consent { Yes, No, Preview };
    Consent ask(const Plan &plan);

    void showSettings();
    void setLimits(const HistoryLimits &limits);
    void prune(HistorySettingsDialog &dialog, const RepositoryHistory::Pruning &pruning);

    Workbench m_bench;
    QAction *m_undo;
    QAction *m_goBack;
    QAction *m_bringBack;
    QAction *m_compare;
    QAction *m_settings;
    QDockWidget *m_dock;
    HistoryView *m_view;
    HistoryLimits m_limits;
    QSet<const RepoWidget *> m_watched; ///< tabs whose history is read after each job
    QSet<const RepoWidget *> m_read; ///< tabs whose history is known
    const RepoWidget *m_undoWaits = nullptr; ///< "Undo" waits until the history of this tab is read
    bool m_stopped = false;
};
