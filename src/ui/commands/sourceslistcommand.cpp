// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/commands/sourceslistcommand.h"

#include "ui/dialogs/missingpackage.h"
#include "ui/dialogs/prompts.h"

#include <QAction>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>

namespace
{
const QLatin1String editorName("velt-admin-sourcelist");
}

SourcesListCommand::SourcesListCommand(QAction *action, QMenu *menu, Prompts &prompts, QObject *parent)
    : QObject(parent)
    , m_action(action)
    , m_prompts(prompts)
    , m_usualToolTip(action->toolTip())
{
    menu->setToolTipsVisible(true);
    connect(menu, &QMenu::aboutToShow, this, &SourcesListCommand::lookForEditor);
    connect(action, &QAction::triggered, this, &SourcesListCommand::editSourcesLists);
    lookForEditor();
}

void SourcesListCommand::lookForEditor()
{
    const bool isThere = !QStandardPaths::findExecutable(editorName).isEmpty();
    m_action->setEnabled(isThere);
    m_action->setToolTip(isThere ? m_usualToolTip : tr("The program %1 is not installed.").arg(editorName));
}

void SourcesListCommand::editSourcesLists()
{
    if (!QProcess::startDetached(editorName, {}))
        warnNotStarted(m_prompts, editorName);
}
