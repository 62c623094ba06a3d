// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QObject>

class QAction;
class QToolBar;

/** The commands for the sources of dependency checks; one of them is active at a time. See DependsRepoType. */
class DependsModes : public QObject
{
    Q_OBJECT
public:
    /** `commands` has a command for each mode. `button` shows them in a menu and is appended to `toolBar`. */
    DependsModes(const QMap<int, QAction *> &commands, QAction *button, QToolBar *toolBar, QObject *parent);

    /** Description of a mode for the user. */
    static QString about(int mode);
    /** Marks the present mode. */
    void show(int mode);

Q_SIGNALS:
    /** The user has chosen this mode. */
    void chosen(int mode);

private:
    QMap<int, QAction *> m_commands;
    QAction *m_button;
};
