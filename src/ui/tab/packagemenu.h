// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QAction;
class QMenu;
class QPoint;
class QWidget;
class RepoWidget;

/**
 * The menu of the package tree, and the submenu "Packet Filter" that it shares with the menu bar. Each tab has its own
 * filter. The submenu shows the entries of the tab that was set last.
 */
class PackageMenu : public QObject
{
    Q_OBJECT
public:
    /** The window's commands that the menu offers. */
    struct Commands
    {
        QList<QAction *> always;
        QList<QAction *> packages; ///< when the tree has a current item
        QList<QAction *> files; ///< when that is below the repository
        QList<QAction *> checks;
        QList<QAction *> repository; ///< on the repository, or on no item
    };

    PackageMenu(Commands commands, QWidget *window);

    QMenu *packetFilterMenu() const { return m_filter; }
    void setTab(const RepoWidget *widget);
    /** Shows the menu; what it offers follows the current item of `widget`. */
    void popup(const RepoWidget &widget, const QPoint &globalPos);

private:
    void fill(bool onItem, bool inRepository, bool onRepository);

    Commands m_commands;
    QMenu *m_menu;
    QMenu *m_filter;
};
