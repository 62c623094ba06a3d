// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QMenu;
class QPoint;
class QTabWidget;

/**
 * What the bar of the tabs offers for the tab under the pointer: a menu, and closing by the middle button. Both go to
 * the tab that they began with, though tabs may come, go and move before they end.
 */
class TabBarActions : public QObject
{
    Q_OBJECT
public:
    TabBarActions(QTabWidget *tabs, QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void closeRequested(int index);
    void closeOthersRequested(int index);
    void copyPathRequested(int index);

private:
    void showMenu(int index, const QPoint &globalPos);

    QTabWidget *m_tabs;
    QMenu *m_menu;
    QPointer<QWidget> m_page; ///< tab that the menu is about
    QPointer<QWidget> m_pressed; ///< tab that the middle button went down on
};
