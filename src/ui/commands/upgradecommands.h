// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/commands/previewcommands.h"
#include "ui/commands/workbench.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

class QAction;
class RepoWidget;

/** The command that upgrades a repository's packages to the versions in external repositories. */
class UpgradeCommands : public QObject
{
    Q_OBJECT
public:
    UpgradeCommands(QAction *action, const Workbench &bench, QObject *parent);

    /** Enables the action when an upgrade is possible now. */
    void updateActions();
    /** Asks for the sources of newer versions; empty when the user gave up. */
    QStringList chooseSources();
    /** Looks for newer versions without the dialog that follows otherwise; upgradeAll() comes next. */
    void search(RepoWidget *widget, const QStringList &sources);
    /** Replaces all packages for which search() has found newer ones, with the preview that is due. False: none. */
    bool upgradeAll(RepoWidget *widget);
    /** Ends searches that upgradeAll() does not follow. */
    void forgetSearches();

private:
    void attach(RepoWidget *widget);
    void showUpgradeRepoDialog();
    void servePrepared();
    void choosePackages(RepoWidget *widget);
    void upgrade(RepoWidget *widget, const QVector<UpgradablePackage> &packages, PreviewCommands::Wish wish);

    QAction *m_action;
    Workbench m_bench;
    QList<RepoWidget *> m_prepared; ///< tabs whose newer versions the user has not seen yet
    QHash<RepoWidget *, bool> m_searches; ///< those of search(), and whether they have found something
    QStringList m_lastSources;
};
