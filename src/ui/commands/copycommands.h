// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/copying/copyplan.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/workbench.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QAction;
class RemovalImpactSearch;
class RepositoryCommands;
class RepoWidget;

/** Copies and moves packages from one open repository to another, and between the components of one. */
class CopyCommands : public QObject
{
    Q_OBJECT
public:
    /** The window is the parent of the actions. */
    CopyCommands(const Workbench &bench, RepositoryCommands &repositories, QObject *window);

    /** "Copy to repository..." and "Move to repository..." */
    QList<QAction *> actions() const { return {m_copy, m_move}; }
    void updateActions(bool hasPackages);
    /** Packages of the tab `source` were dropped on another one, or on a component: empty means as they are. */
    void takeDropped(RepoWidget *source, RepoWidget *target, const QString &component, bool moves);

private:
    struct Wish
    {
        QPointer<RepoWidget> source;
        CopySource packages;
        QString component;
        bool leaves = false; ///< moves to another repository
        PreviewCommands::Wish preview = PreviewCommands::Wish::AsSet;

        QString names() const;
    };
    /** Packages that have to leave their repository, and where they are now. */
    struct Leaving
    {
        QList<PackageInfoPtr> packages;
        QString target;
    };

    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QAction *m_copy;
    QAction *m_move;
    QHash<RepoWidget *, QList<Wish>> m_waiting; ///< for targets that are at work
    QHash<RepoWidget *, Wish> m_moving; ///< whose copy has begun, by the target
    QHash<RepoWidget *, QList<Leaving>> m_leaving; ///< by the source, which is at work

    void choose(bool moves);
    static Wish wishFor(RepoWidget *source, const QList<PackageInfoPtr> &packages, bool moves);
    /** Sets what depends on the target. Nothing is left when all packages are where they should go. */
    void aim(Wish *wish, const RepoWidget *target, const QString &component, bool moves) const;
    /** Asks what a move could break, and starts it. */
    void begin(RepoWidget *target, const Wish &wish);
    void ask(const QPointer<RepoWidget> &target, const Wish &wish, RemovalImpactSearch *search);
    void startOrKeep(RepoWidget *target, const Wish &wish);
    void start(RepoWidget *target, const Wish &wish);
    void leave(RepoWidget *source, const Leaving &leaving);
    /** The tab is free: does what waits for it. */
    void goOn(RepoWidget *widget);
    void forget(RepoWidget *widget);
    void tellNotCopied(const Wish &wish);
    void tellReadOnly(const RepoWidget *widget, const Wish &wish);
    static QString lastTarget(const QString &source);
    static void setLastTarget(const QString &source, const QString &target);
};
