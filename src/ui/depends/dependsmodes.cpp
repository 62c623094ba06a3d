// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/dependsmodes.h"

#include "core/settingskeys.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

QString DependsModes::about(int mode)
{
    const char *text = nullptr;
    switch (mode) {
    case DependsEverywhere:
        text = QT_TRANSLATE_NOOP("MainWindow", "Check depends in all repos");
        break;
    case DependsPublic:
        text = QT_TRANSLATE_NOOP("MainWindow", "Check depends in public repos");
        break;
    case DependsLocal:
        text = QT_TRANSLATE_NOOP("MainWindow", "Check depends in local repo");
        break;
    default:
        text = QT_TRANSLATE_NOOP("MainWindow", "Dependces checking disabled");
    }
    return QCoreApplication::translate("MainWindow", text);
}

DependsModes::DependsModes(const QMap<int, QAction *> &commands,
                           QAction *button,
                           QToolBar *toolBar,
                           QObject *parent)
    : QObject(parent)
    , m_commands(commands)
    , m_button(button)
{
    auto *group = new QActionGroup(this);
    auto *menu = new QMenu(toolBar);
    for (auto command = commands.cbegin(); command != commands.cend(); ++command) {
        group->addAction(command.value());
        connect(command.value(), &QAction::triggered, this, [this, mode = command.key()] {
            Q_EMIT chosen(mode);
        });
    }
    // The menu begins with all repositories and ends with none.
    for (const int mode : {DependsEverywhere, DependsPublic, DependsLocal, DependsNowhere})
        menu->addAction(commands.value(mode));
    button->setMenu(menu);
    toolBar->addAction(button);
    if (auto *toolButton = qobject_cast<QToolButton *>(toolBar->widgetForAction(button)))
        toolButton->setPopupMode(QToolButton::MenuButtonPopup);
}

void DependsModes::show(int mode)
{
    if (QAction *command = m_commands.value(mode))
        command->setChecked(true);
    m_button->setToolTip(about(mode));
}
