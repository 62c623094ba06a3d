// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QMenu;
class QPoint;
class QTabBar;

/** What the bar of the tabs offers for the tab under the pointer: a menu, and closing by the middle button. */
class TabBarActions : public QObject
{
    Q_OBJECT
public:
    TabBarActions(QTabBar *bar, QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void closeRequested(int index);
    void closeOthersRequested(int index);
    void copyPathRequested(int index);

private:
    void showMenu(int index, const QPoint &globalPos);

    QTabBar *m_bar;
    QMenu *m_menu;
    int m_index = -1; ///< tab that the menu is about
    int m_pressed = -1; ///< tab that the middle button went down on
};
