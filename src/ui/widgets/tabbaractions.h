// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class QDropEvent;
class QMenu;
class QPoint;
class QTabWidget;

/**
 * Actions of the tab bar for the tab under the pointer: a context menu, closing with the middle button, and dragging
 * onto a tab, which comes to the front when the pointer stays there. An action applies to the tab on which it began,
 * even if tabs are opened, closed or moved meanwhile.
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
    /** Something of `source`, a part of this program, was dropped on a tab. */
    void partDropped(int index, QWidget *source, bool moves);

private:
    /** Whether the event is dealt with. */
    bool takeDrag(QObject *bar, QDropEvent *event);
    void showMenu(int index, const QPoint &globalPos);

    QTabWidget *m_tabs;
    QMenu *m_menu;
    QPointer<QWidget> m_page; ///< tab to which the menu belongs
    QPointer<QWidget> m_pressed; ///< tab on which the middle button was pressed
};
