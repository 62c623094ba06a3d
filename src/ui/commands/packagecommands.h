// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "ui/commands/previewcommands.h"
#include "ui/commands/workbench.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class RepositoryCommands;
class RemovalImpactSearch;
class RepoWidget;

/** The commands on packages: adding files from all ways in, and removing packages. */
class PackageCommands : public QObject
{
    Q_OBJECT
public:
    PackageCommands(const Workbench &bench, RepositoryCommands &repositories, QObject *parent);

    /** Asks for a repository if there are several, then for files, and adds the files. */
    void chooseAndAdd();
    /** Adds files to the only repository, or to the one that the user chooses. */
    void addToChosen(const QStringList &files);
    /** Adds the files of the program's start. When no repository is open, the user can create or open one. */
    void addAtStart(const QStringList &files);
    /** Adds files to this tab's repository, after its running job if there is one. */
    void addPackages(RepoWidget *widget, const QStringList &files);
    /**
     * Finds the packages of a drop, also in folders, and calls `add` with them: at once when only files were dropped,
     * otherwise later. Asks first when folders hold many packages.
     */
    void takeDropped(const QStringList &paths, const std::function<void(const QStringList &files)> &add);
    /** Removes the selected packages of the current tab after a question. */
    void removePackages();
    /**
     * Removes these packages after a question, which names the packages that could no longer be installed then. The
     * question waits for that up to a second. `agreed` is called when the user agrees, before the job begins.
     */
    void removePackages(RepoWidget *widget,
                        const QList<PackageInfoPtr> &packages,
                        const std::function<void()> &agreed = {});

private:
    RepoWidget *chooseTarget();
    void warnNoRepository();
    void tellNotAdded(const QStringList &files);
    /** The files that can be packages. Tells the user about the other files. */
    QStringList packagesAmong(const QStringList &files);
    /** Keeps the files until the tab is free. */
    void keep(RepoWidget *widget, const QStringList &files);
    /** Asks, unless a preview is due, which replaces the question. */
    void removeOnceAgreed(const QPointer<RepoWidget> &widget, const PreviewCommands::Change &change);
    void startAdding(RepoWidget *widget, const QStringList &files);

    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QHash<RepoWidget *, QStringList> m_waiting; ///< files for tabs whose engine is busy
    QString m_lastFolder;
    QPointer<RemovalImpactSearch> m_impact; ///< of the packages whose removal is asked for
};
