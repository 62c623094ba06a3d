// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QAction;
class QPushButton;

/** The page that is shown while no repository is open: a hint for the first step, with buttons. */
class EmptyPage : public QWidget
{
    Q_OBJECT
public:
    /** The buttons trigger these actions, and are enabled when the actions are. */
    EmptyPage(QAction *create, QAction *open, QWidget *parent);

private:
    QPushButton *button(QAction *action, const QString &name);
};
