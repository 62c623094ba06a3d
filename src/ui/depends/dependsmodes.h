// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QObject>

class QAction;
class QToolBar;

/** The commands that say where dependencies are looked for; one of them holds at a time. See DependsRepoType. */
class DependsModes : public QObject
{
    Q_OBJECT
public:
    /** `commands` are those of each mode; `button` offers them in a menu and gets the last place in `toolBar`. */
    DependsModes(const QMap<int, QAction *> &commands, QAction *button, QToolBar *toolBar, QObject *parent);

    /** What a mode means, for the user. */
    static QString about(int mode);
    /** Marks the mode that holds now. */
    void show(int mode);

Q_SIGNALS:
    /** By the user. */
    void chosen(int mode);

private:
    QMap<int, QAction *> m_commands;
    QAction *m_button;
};
