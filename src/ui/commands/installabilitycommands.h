// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/cures.h"
#include "installability/completecheckbase.h"
#include "ui/commands/workbench.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSet>

class CheckBaseMenu;
class PackageCommands;
class QAction;
class RepoWidget;

/** The commands around complete checks: checking, what it is checked against, and the cures. */
class InstallabilityCommands : public QObject
{
    Q_OBJECT
public:
    /** `packages` removes packages after its question. */
    InstallabilityCommands(const Workbench &bench, PackageCommands &packages, QObject *parent);

    QAction *checkAction() const { return m_checkAction; }
    /** The menu with the choice of what is checked against. */
    QAction *baseAction() const;
    /** Enables the actions that are possible now. */
    void updateActions();

private:
    void attach(RepoWidget *widget);
    void showBases();
    void setBase(const CompleteCheckBase &base);
    void chooseRepository();
    void checkSelected();
    void checkShown(RepoWidget *widget);
    void check(RepoWidget *widget, const QList<PackageInfoPtr> &packages, const CompleteCheckBase &base);
    CompleteCheckBase lastBase(const RepoWidget *widget) const;
    void showPackage(RepoWidget *widget, const QString &repository, const NamedPackage &package);
    void cure(RepoWidget *widget, const Cure &cure);
    void carryOut(RepoWidget *widget, const Cure &cure);
    void checkCured(RepoWidget *widget);

    Workbench m_bench;
    PackageCommands &m_packages;
    QAction *m_checkAction;
    CheckBaseMenu *m_baseMenu;
    QHash<const RepoWidget *, QSet<QString>> m_cured; ///< names to be checked again after the job of a cure
};
