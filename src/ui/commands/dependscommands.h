// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/workbench.h"
#include "ui/depends/dependsarrangement.h"

#include <QHash>
#include <QObject>
#include <QPointer>

class QMenu;
class QPoint;
class RepoWidget;

namespace Ui
{
class MainWindow;
}

/** The commands on dependencies: checking them, and fetching what is missing from apt's sources. */
class DependsCommands : public QObject
{
    Q_OBJECT
public:
    /** `ui` holds the actions and outlives the commands; `window` is its window. */
    DependsCommands(Ui::MainWindow &ui, const Workbench &bench, QWidget *window);

    /** Enables the actions that are possible now. */
    void updateActions();
    const DependsArrangement &arrangement() const { return m_arrangement; }
    /** Arranges the trees of all tabs, also of later ones. */
    void setArrangement(const DependsArrangement &arrangement);

Q_SIGNALS:
    /** Other actions are possible now. */
    void stateChanged();

private:
    /** What a tab allows now. */
    struct Abilities
    {
        bool check = false;
        bool checkMenu = false;
    };

    void attach(RepoWidget *widget);
    void shareArrangement(const RepoWidget *from);
    void checkDepends();
    void checkDependsByToolBar();
    void check(RepoWidget *widget, const QList<PackageInfoPtr> &packages);
    void packageDependsContextMenuRequested(RepoWidget *widget, const QPoint &globalPos);
    void addPackageToLocalRepo();
    void addPackageFromInternet();

    Ui::MainWindow &m_ui;
    Workbench m_bench;
    QMenu *m_menu; ///< the menu of the dependency trees
    QHash<const RepoWidget *, Abilities> m_abilities;
    QPointer<RepoWidget> m_menuTab; ///< the tab whose menu was shown last
    DependsArrangement m_arrangement;
};
