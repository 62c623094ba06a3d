// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/recentrepositories.h"

#include "ui/widgets/userchoices.h"

#include <QMenu>
#include <QSettings>

RecentRepositories::RecentRepositories(QMenu *menu, QObject *parent)
    : QObject(parent)
    , m_menu(menu)
{
    for (int i = 0; i < MaximumRecentRepositories; ++i) {
        QAction *action = m_menu->addAction(QString());
        connect(
            action, &QAction::triggered, this, [this, action] { Q_EMIT chosen(action->data().toString()); });
    }
    showPaths(load());
}

void RecentRepositories::add(const QString &path)
{
    store(withRecentRepository(load(), path));
}

void RecentRepositories::remove(const QString &path)
{
    QStringList paths = load();
    paths.removeAll(path);
    store(paths);
}

QStringList RecentRepositories::load() const
{
    return storedPaths(QSettings(), SettingsKey::RecentRepoList).mid(0, MaximumRecentRepositories);
}

void RecentRepositories::store(const QStringList &paths)
{
    QSettings().setValue(SettingsKey::RecentRepoList, paths);
    showPaths(paths);
}

void RecentRepositories::showPaths(const QStringList &paths)
{
    const QList<QAction *> actions = m_menu->actions();
    for (int i = 0; i < actions.size(); ++i) {
        const QString path = paths.value(i);
        actions.at(i)->setData(path);
        // A single "&" would be hidden and would underline the next letter.
        actions.at(i)->setText(QString(path).replace(QLatin1Char('&'), QLatin1String("&&")));
        actions.at(i)->setVisible(i < paths.size());
    }
    m_menu->setEnabled(!paths.isEmpty());
}
