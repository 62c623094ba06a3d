// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/commands/workbench.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <functional>

class RepositoryCommands;
class RepoWidget;

/** The commands on packages: adding files, whatever way they come, and removing. */
class PackageCommands : public QObject
{
    Q_OBJECT
public:
    PackageCommands(const Workbench &bench, RepositoryCommands &repositories, QObject *parent);

    /** Asks for one of several repositories, then for files, and adds these to it. */
    void chooseAndAdd();
    /** Adds files to the only repository, or to one that the user picks. */
    void addToChosen(const QStringList &files);
    /** Files of the program's own start: with no repository open the user can create or open one for them. */
    void addAtStart(const QStringList &files);
    /** Adds files to this tab's repository; when a job runs there, after it. */
    void addPackages(RepoWidget *widget, const QStringList &files);
    /**
     * Finds the packages of a drop, also those in folders, and gives them to `add`: at once when there are files alone,
     * else later, and after a question when there are many.
     */
    void takeDropped(const QStringList &paths, const std::function<void(const QStringList &files)> &add);
    /** Removes the selected packages of the current tab after a question. */
    void removePackages();

private:
    RepoWidget *chooseTarget();
    void warnNoRepository();
    void tellNotAdded(const QStringList &files);
    /** Those of the files that can be packages; tells of the others. */
    QStringList packagesAmong(const QStringList &files);
    /** Until the tab is free. */
    void keep(RepoWidget *widget, const QStringList &files);
    void startAdding(RepoWidget *widget, const QStringList &files);

    Workbench m_bench;
    RepositoryCommands &m_repositories;
    QHash<RepoWidget *, QStringList> m_waiting; ///< files for tabs whose engine is busy
    QString m_lastFolder;
};
