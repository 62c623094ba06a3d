// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/repotabs.h"

#include "engine/reposhell.h"
#include "ui/tab/repowidget.h"
#include "ui/tab/tabtitles.h"
#include "ui/widgets/tooltiptext.h"

#include <QDir>
#include <QIcon>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>
#include <utility>

RepoTabs::RepoTabs(QTabWidget *tabWidget, QObject *parent)
    : QObject(parent)
    , m_tabWidget(tabWidget)
{
    connect(m_tabWidget, &QTabWidget::currentChanged, this, [this] {
        // Another tab may have changed the repository that this one was checked against.
        if (const RepoWidget *widget = current())
            widget->repoShell()->compareBase();
        Q_EMIT currentChanged(current());
    });
    connect(m_tabWidget->tabBar(), &QTabBar::tabMoved, this, &RepoTabs::listChanged);
}

RepoWidget *RepoTabs::current() const
{
    return at(m_tabWidget->currentIndex());
}

RepoWidget *RepoTabs::at(int index) const
{
    return qobject_cast<RepoWidget *>(m_tabWidget->widget(index));
}

QList<RepoWidget *> RepoTabs::shown() const
{
    QList<RepoWidget *> widgets;
    for (int index = 0; index < m_tabWidget->count(); ++index)
        widgets.append(at(index));
    return widgets;
}

RepoTabs::Tab *RepoTabs::tabOf(const RepoWidget *widget)
{
    const auto tab
        = std::find_if(m_tabs.begin(), m_tabs.end(), [widget](const Tab &t) { return t.widget == widget; });
    return tab == m_tabs.end() ? nullptr : &*tab;
}

const RepoTabs::Tab *RepoTabs::tabOf(const RepoWidget *widget) const
{
    const auto tab
        = std::find_if(m_tabs.cbegin(), m_tabs.cend(), [widget](const Tab &t) { return t.widget == widget; });
    return tab == m_tabs.cend() ? nullptr : &*tab;
}

RepoWidget *RepoTabs::find(const QString &path) const
{
    const QString wanted = QDir::cleanPath(path);
    for (const Tab &tab : m_tabs) {
        if (!wanted.isEmpty() && (tab.path == wanted || tab.canonicalPath == wanted))
            return tab.widget;
    }
    return nullptr;
}

QString RepoTabs::canonicalPathOf(const RepoWidget *widget) const
{
    const Tab *tab = tabOf(widget);
    if (tab == nullptr)
        return {};
    return tab->canonicalPath.isEmpty() ? tab->path : tab->canonicalPath;
}

void RepoTabs::setCanonicalPath(const RepoWidget *widget, const QString &canonicalPath)
{
    Tab *tab = tabOf(widget);
    if (tab == nullptr || tab->canonicalPath == canonicalPath)
        return;
    tab->canonicalPath = canonicalPath;
    tellOpenRepositories();
}

QString RepoTabs::pathOf(const RepoWidget *widget) const
{
    const Tab *tab = tabOf(widget);
    return tab == nullptr ? QString() : tab->path;
}

QStringList RepoTabs::paths() const
{
    QStringList paths;
    const QList<RepoWidget *> widgets = shown();
    for (const RepoWidget *widget : widgets)
        paths << pathOf(widget);
    return paths;
}

QStringList RepoTabs::allCanonicalPaths(const RepoWidget *except) const
{
    QStringList canonicalPaths;
    for (const Tab &tab : m_tabs) {
        const QString canonicalPath = canonicalPathOf(tab.widget);
        if (tab.widget != except && !canonicalPath.isEmpty())
            canonicalPaths << canonicalPath;
    }
    return canonicalPaths;
}

CheckScope RepoTabs::checkScope(const RepoWidget *widget, const CompleteCheckBase &base) const
{
    CheckScope scope = widget->repoShell()->checkScope(base);
    for (const Tab &tab : m_tabs) {
        if (tab.widget != widget && !tab.widget->repoPath().isEmpty())
            scope.others.append(tab.widget->repoShell()->snapshot());
    }
    return scope;
}

RepoWidget *RepoTabs::create(const QString &path)
{
    // The tab widget is the parent from the start: without a parent the widget would be a window.
    auto *widget = new RepoWidget(m_tabWidget);
    widget->hide();
    m_tabs.append({widget, path, QString(), QString(), false, false});
    tellOpenRepositories();

    RepoShell *engine = widget->repoShell();
    connect(engine, &RepoShell::started, this, [this, widget](const QString &message) {
        if (Tab *tab = tabOf(widget))
            tab->job = message;
        Q_EMIT runningChanged(widget);
    });
    connect(engine, &RepoShell::idle, this, [this, widget] { engineIdle(widget); });
    connect(engine, &RepoShell::needCloseRepo, this, [this, widget] { discard(widget); });
    connect(widget, &RepoWidget::newTabTitle, this, [this, widget](const QString &newPath) {
        if (newPath.isEmpty())
            return;
        setCanonicalPath(widget, widget->repoShell()->canonicalPath());
        setPath(widget, newPath);
    });
    Q_EMIT created(widget);
    return widget;
}

void RepoTabs::show(RepoWidget *widget)
{
    const Tab *tab = tabOf(widget);
    if (tab == nullptr || tab->discarded)
        return;
    const int index = m_tabWidget->addTab(widget, QString());
    showTitles();
    m_tabWidget->setCurrentIndex(index);
    widget->focusTree();
    Q_EMIT listChanged();
}

void RepoTabs::showTitles()
{
    const QStringList all = paths();
    const QStringList titles = TabTitles::of(all);
    for (int index = 0; index < all.size(); ++index) {
        // A single "&" would mark a shortcut key.
        m_tabWidget->setTabText(index,
                                QString(titles.at(index)).replace(QLatin1Char('&'), QLatin1String("&&")));
        m_tabWidget->setTabToolTip(index, toolTipText(all.at(index)));
    }
}

void RepoTabs::bringToFront(RepoWidget *widget)
{
    const int index = m_tabWidget->indexOf(widget);
    if (index >= 0)
        m_tabWidget->setCurrentIndex(index);
}

void RepoTabs::setPath(RepoWidget *widget, const QString &path)
{
    Tab *tab = tabOf(widget);
    if (tab == nullptr || tab->path == path)
        return;
    const QString oldPath = tab->path;
    tab->path = path;
    tellOpenRepositories();
    if (m_tabWidget->indexOf(widget) >= 0) {
        showTitles();
        Q_EMIT moved(widget, path, oldPath);
        Q_EMIT listChanged();
    }
}

void RepoTabs::tellOpenRepositories()
{
    for (const Tab &tab : std::as_const(m_tabs))
        tab.widget->repoShell()->setOpenRepositories(allCanonicalPaths(tab.widget));
}

void RepoTabs::setPublished(RepoWidget *widget, bool published)
{
    const int index = m_tabWidget->indexOf(widget);
    if (index >= 0)
        m_tabWidget->setTabIcon(index,
                                published ? QIcon::fromTheme(QStringLiteral("network-server")) : QIcon());
}

void RepoTabs::discard(RepoWidget *widget)
{
    Tab *tab = tabOf(widget);
    if (tab == nullptr)
        return;
    tab->discarded = true;
    if (!runsJob(widget)) {
        remove(widget);
        return;
    }
    // The tab stays visible until its job has ended, so that the user does not open the same directory again.
    widget->repoShell()->setClosing();
    widget->setEnabled(false);
}

void RepoTabs::engineIdle(RepoWidget *widget)
{
    const Tab *tab = tabOf(widget);
    if (tab == nullptr)
        return;
    const bool gone = tab->discarded || widget->repoShell()->path().isEmpty();
    const bool isWaiting = tab->waiting;
    Q_EMIT runningChanged(widget);
    if (gone)
        remove(widget);
    else if (!isWaiting)
        Q_EMIT ready(widget);
    if (!isAnyRunning())
        Q_EMIT allIdle();
}

void RepoTabs::remove(RepoWidget *widget)
{
    Q_EMIT leaving(widget);
    const auto isIt = [widget](const Tab &tab) { return tab.widget == widget; };
    m_tabs.erase(std::remove_if(m_tabs.begin(), m_tabs.end(), isIt), m_tabs.end());
    tellOpenRepositories();
    const int index = m_tabWidget->indexOf(widget);
    if (index >= 0) {
        m_tabWidget->removeTab(index);
        showTitles();
        Q_EMIT listChanged();
    }
    widget->deleteLater();
}

bool RepoTabs::runsJob(const RepoWidget *widget)
{
    return widget->repoShell()->isRunning();
}

bool RepoTabs::isRunning(const RepoWidget *widget) const
{
    const Tab *tab = tabOf(widget);
    return runsJob(widget) || (tab != nullptr && tab->waiting);
}

bool RepoTabs::isFree(const RepoWidget *widget) const
{
    return widget != nullptr && widget->isEnabled() && !isRunning(widget) && !widget->repoPath().isEmpty();
}

bool RepoTabs::isChangeable(const RepoWidget *widget) const
{
    return isFree(widget) && widget->repoShell()->isWritable();
}

void RepoTabs::setWaiting(RepoWidget *widget, bool waiting)
{
    Tab *tab = tabOf(widget);
    if (tab == nullptr || tab->waiting == waiting)
        return;
    tab->waiting = waiting;
    Q_EMIT runningChanged(widget);
    // Work that had to wait starts now, as after a job.
    if (!waiting && !runsJob(widget) && !widget->repoPath().isEmpty())
        Q_EMIT ready(widget);
}

bool RepoTabs::isAnyRunning() const
{
    return std::any_of(m_tabs.cbegin(), m_tabs.cend(), [](const Tab &tab) { return runsJob(tab.widget); });
}

QString RepoTabs::runningJob(const RepoWidget *widget) const
{
    const Tab *tab = tabOf(widget);
    return tab != nullptr && runsJob(widget) ? tab->job : QString();
}

QStringList RepoTabs::runningJobs() const
{
    QStringList jobs;
    for (const Tab &tab : m_tabs)
        jobs << runningJob(tab.widget);
    jobs.removeAll(QString());
    jobs.removeDuplicates();
    return jobs;
}

void RepoTabs::setClosing()
{
    for (const Tab &tab : std::as_const(m_tabs))
        tab.widget->repoShell()->setClosing();
}
