// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QAction;
class QPushButton;

/** What the window shows while no repository is open: what to do first, and buttons for it. */
class EmptyPage : public QWidget
{
    Q_OBJECT
public:
    /** The buttons trigger these actions, and can be pressed when the actions can. */
    EmptyPage(QAction *create, QAction *open, QWidget *parent);

private:
    QPushButton *button(QAction *action, const QString &name);
};
