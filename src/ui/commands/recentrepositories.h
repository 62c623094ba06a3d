// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

/** The submenu of the recently opened repositories, which the settings keep. */
class RecentRepositories : public QObject
{
    Q_OBJECT
public:
    RecentRepositories(QMenu *menu, QObject *parent);

    /** Puts `path` at the head of the list. */
    void add(const QString &path);
    void remove(const QString &path);
    QStringList paths() const { return load(); }

Q_SIGNALS:
    /** The user has chosen an entry. */
    void chosen(const QString &path);

private:
    QStringList load() const;
    void store(const QStringList &paths);
    void showPaths(const QStringList &paths);

    QMenu *m_menu;
};
