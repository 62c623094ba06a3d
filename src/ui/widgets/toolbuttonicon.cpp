// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/toolbuttonicon.h"

#include <QAction>
#include <QIcon>
#include <QToolBar>
#include <QToolButton>

void setToolButtonIcon(QToolBar *toolBar, QAction *action, const QString &iconName)
{
    auto *button = qobject_cast<QToolButton *>(toolBar->widgetForAction(action));
    const QIcon icon = QIcon::fromTheme(iconName);
    if (button == nullptr || icon.isNull())
        return;
    button->setIcon(icon);
    // After each change of the action, the button takes the action's icon again, which is empty.
    QObject::connect(action, &QAction::changed, button, [button, icon] { button->setIcon(icon); });
}
