// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class Prompts;
class QAction;
class QMenu;

/** The command that starts the editor of the system's sources lists, a separate program. */
class SourcesListCommand : public QObject
{
    Q_OBJECT
public:
    /** `menu` contains `action`. Each time the menu opens, the command looks for the editor again. */
    SourcesListCommand(QAction *action, QMenu *menu, Prompts &prompts, QObject *parent);

private:
    void lookForEditor();
    void editSourcesLists();

    QAction *m_action;
    Prompts &m_prompts;
    QString m_usualToolTip;
};
