// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/checkscope.h"

#include <QList>
#include <QObject>
#include <QStringList>

class QTabWidget;
class RepoWidget;

/**
 * The open repositories and their tabs. It makes a tab's widget, shows the tab, and removes it after the last job of
 * its engine. A tab closes by itself when its engine ends a job without a repository, which means that opening failed.
 */
class RepoTabs : public QObject
{
    Q_OBJECT
public:
    RepoTabs(QTabWidget *tabWidget, QObject *parent);

    /** The tab in front; may be null. */
    RepoWidget *current() const;
    RepoWidget *at(int index) const;
    /** All tabs, from left to right. */
    QList<RepoWidget *> shown() const;
    /**
     * The tab of the repository in this directory; may be null. Reads no file: of a path with links, it knows only the
     * spelling with which the repository was opened.
     */
    RepoWidget *find(const QString &path) const;
    /** The tab's directory with links resolved, or as it was opened before setCanonicalPath(). */
    QString canonicalPathOf(const RepoWidget *widget) const;
    /** Sets the path with links resolved, of a repository that is about to be opened. */
    void setCanonicalPath(const RepoWidget *widget, const QString &canonicalPath);
    /** Directory of a tab's repository, also while the repository is being opened. */
    QString pathOf(const RepoWidget *widget) const;
    /** Directories of all tabs, from left to right. */
    QStringList paths() const;
    /** canonicalPathOf() of all tabs except one, also of repositories that are being created. */
    QStringList allCanonicalPaths(const RepoWidget *except = nullptr) const;

    /** For questions about installing: the packages of the tab's repository now, with all other open repositories. */
    CheckScope checkScope(const RepoWidget *widget, const CompleteCheckBase &base) const;

    /** Makes a widget for the repository in this directory, which may not exist yet. The widget has no tab yet. */
    RepoWidget *create(const QString &path);
    /** Gives `widget` a tab and brings it to the front. */
    void show(RepoWidget *widget);
    void bringToFront(RepoWidget *widget);
    /** Removes the tab. When a job runs, it is stopped, and the tab is removed after its end. */
    void discard(RepoWidget *widget);

    /** Whether the tab is at work: its engine runs a job, or it waits for the system (setWaiting()). */
    bool isRunning(const RepoWidget *widget) const;
    /** Whether the tab can take a command: it has a repository and is not at work. False for null. */
    bool isFree(const RepoWidget *widget) const;
    /** The same for a command that changes the repository, which needs the right to write. */
    bool isChangeable(const RepoWidget *widget) const;
    /** Marks the tab as that of a published repository. */
    void setPublished(RepoWidget *widget, bool published);
    /** Whether the tab waits for the system. Unlike a job, the waiting does not delay the closing of the tab. */
    void setWaiting(RepoWidget *widget, bool waiting);
    /** Whether the engine of any tab, shown or not, runs a job. */
    bool isAnyRunning() const;
    /** The start messages of the running jobs, each once. */
    QStringList runningJobs() const;
    QString runningJob(const RepoWidget *widget) const;
    /** Stops all jobs and answers their questions with the safe answer. */
    void setClosing();

Q_SIGNALS:
    /** A widget was made. Its users connect to it now. */
    void created(RepoWidget *widget);
    void currentChanged(RepoWidget *widget);
    /** The repository of a tab has moved. */
    void moved(RepoWidget *widget, const QString &newPath, const QString &oldPath);
    /** A job or a waiting of this tab has begun or ended. */
    void runningChanged(RepoWidget *widget);
    /** The last job or the waiting of this tab has ended, and the tab has a repository. */
    void ready(RepoWidget *widget);
    /** This tab is deleted when control returns to the event loop. */
    void leaving(RepoWidget *widget);
    /** A tab was added, removed or moved, or its repository has another path. */
    void listChanged();
    /** The last running job of all has ended. */
    void allIdle();

private:
    struct Tab
    {
        RepoWidget *widget = nullptr;
        QString path;
        QString canonicalPath; ///< the path with links resolved; empty while unknown
        QString job; ///< start message of the last job
        bool discarded = false;
        bool waiting = false; ///< the tab waits for the system
    };

    Tab *tabOf(const RepoWidget *widget);
    const Tab *tabOf(const RepoWidget *widget) const;
    static bool runsJob(const RepoWidget *widget);
    void setPath(RepoWidget *widget, const QString &path);
    void engineIdle(RepoWidget *widget);
    void remove(RepoWidget *widget);
    void tellOpenRepositories();
    void showTitles();

    QTabWidget *m_tabWidget;
    QList<Tab> m_tabs;
};
