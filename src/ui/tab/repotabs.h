// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

class QTabWidget;
class RepoWidget;

/**
 * The open repositories and their tabs: makes a tab's widget, shows it, and takes it away when its engine's last job
 * has ended. A tab whose engine ends a job without a repository (the opening failed) goes by itself.
 */
class RepoTabs : public QObject
{
    Q_OBJECT
public:
    RepoTabs(QTabWidget *tabWidget, QObject *parent);

    /** The tab in front; null when there is none. */
    RepoWidget *current() const;
    RepoWidget *at(int index) const;
    /** All tabs, from left to right. */
    QList<RepoWidget *> shown() const;
    /**
     * The tab of the repository in this directory; null when there is none. Touches no file: of a path with links in
     * it, only the spelling that the repository was opened by is known.
     */
    RepoWidget *find(const QString &path) const;
    /** The tab's directory with links resolved as far as that is known; see setCanonicalPath(). */
    QString canonicalPathOf(const RepoWidget *widget) const;
    /** Says what the path of a repository that is about to be opened is when links are resolved. */
    void setCanonicalPath(const RepoWidget *widget, const QString &canonicalPath);
    /** Directory of a tab's repository; also while it is still being opened. */
    QString pathOf(const RepoWidget *widget) const;
    /** Directories of all tabs, from left to right. */
    QStringList paths() const;
    /** What canonicalPathOf() is for all, those of repositories that are still being made too, but for one tab. */
    QStringList allCanonicalPaths(const RepoWidget *except = nullptr) const;

    /** A widget for the repository in this directory, which need not be there yet; no tab shows it. */
    RepoWidget *create(const QString &path);
    /** Gives `widget` a tab and brings it to the front. */
    void show(RepoWidget *widget);
    void bringToFront(RepoWidget *widget);
    /** Takes the tab away, at once or, when a job runs, stopping it first, when that has ended. */
    void discard(RepoWidget *widget);

    /** Whether the tab is at work: its engine runs a job, or setWaiting() says that it waits for the system. */
    bool isRunning(const RepoWidget *widget) const;
    /** Whether a command can be given to the tab: it has a repository and is not at work. False for no tab. */
    bool isFree(const RepoWidget *widget) const;
    /** The same for a command that changes the repository: the user needs the right to write. */
    bool isChangeable(const RepoWidget *widget) const;
    /** Marks the tab of a repository that is published. */
    void setPublished(RepoWidget *widget, bool published);
    /** Between these two calls the system does something for the tab. Unlike a job, it keeps nobody from closing. */
    void setWaiting(RepoWidget *widget, bool waiting);
    /** Whether the engine of any tab, shown or not, runs a job. */
    bool isAnyRunning() const;
    /** Start messages of the running jobs, each once. */
    QStringList runningJobs() const;
    QString runningJob(const RepoWidget *widget) const;
    /** Stops all jobs and answers their questions with the safe answer. */
    void setClosing();

Q_SIGNALS:
    /** A widget was made; connect it to what serves it. */
    void created(RepoWidget *widget);
    void currentChanged(RepoWidget *widget);
    /** The repository of a tab lies somewhere else now. */
    void moved(RepoWidget *widget, const QString &newPath, const QString &oldPath);
    /** A job of this tab, or a time of waiting, has begun or ended. */
    void runningChanged(RepoWidget *widget);
    /** The last job of this tab, or its waiting, has ended and it has a repository. */
    void ready(RepoWidget *widget);
    /** This tab will be gone when control returns to the event loop. */
    void leaving(RepoWidget *widget);
    /** A tab has come or gone, stands elsewhere, or has another repository. */
    void listChanged();
    /** The last running job of all has ended. */
    void allIdle();

private:
    struct Tab
    {
        RepoWidget *widget = nullptr;
        QString path;
        QString canonicalPath; ///< the path with links resolved; empty while that is not known
        QString job; ///< start message of the last job
        bool discarded = false;
        bool waiting = false; ///< for the system
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
