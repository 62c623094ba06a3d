// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Prompts;
class QAction;
class QMenu;

/** The command that starts the editor of the system's sources lists, which is a program of its own. */
class SourcesListCommand : public QObject
{
    Q_OBJECT
public:
    /** `menu` holds `action`; whenever it is about to show, the command looks again whether there is an editor. */
    SourcesListCommand(QAction *action, QMenu *menu, Prompts &prompts, QObject *parent);

private:
    void lookForEditor();
    void editSourcesLists();

    QAction *m_action;
    Prompts &m_prompts;
    QString m_usualToolTip;
};
