// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/gathering/gatherplan.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/workbench.h"

#include <QObject>
#include <QVector>

class QAction;
class RepoWidget;

/** The command that fetches all that packages lack: it searches, shows the list, and fetches what is chosen. */
class GatherCommands : public QObject
{
    Q_OBJECT
public:
    /** The window is the parent of the action. */
    GatherCommands(const Workbench &bench, QObject *window);

    QAction *action() const { return m_action; }
    /** Enables the action when it is possible now. */
    void updateActions();

private:
    struct Found
    {
        RepoWidget *widget;
        GatherPlan plan;
    };

    QAction *m_action;
    Workbench m_bench;
    QVector<Found> m_found; ///< what the user has not seen yet

    void attach(RepoWidget *widget);
    void search();
    void forget(const RepoWidget *widget);
    void serveFound();
    void choose(RepoWidget *widget, const GatherPlan &plan);
    /** Says that there is nothing to fetch, and what cannot be had. */
    void tellNothing(const GatherPlan &plan);
    void fetch(RepoWidget *widget, const GatherPlan &plan, bool wantsPreview);
};
