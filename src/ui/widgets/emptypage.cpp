// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/emptypage.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace
{
QLabel *centredText(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    return label;
}
} // namespace

EmptyPage::EmptyPage(QAction *create, QAction *open, QWidget *parent)
    : QWidget(parent)
{
    constexpr qreal HeadingScale = 1.5;
    auto *heading = centredText(tr("No repository is open"), this);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * HeadingScale);
    heading->setFont(font);

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(button(create, QStringLiteral("m_newRepoButton")));
    buttons->addWidget(button(open, QStringLiteral("m_openRepoButton")));
    buttons->addStretch();

    auto *layout = new QVBoxLayout(this);
    layout->addStretch();
    layout->addWidget(heading);
    layout->addWidget(centredText(tr("Create a repository or open one to add packages to it"), this));
    layout->addSpacing(layout->spacing());
    layout->addLayout(buttons);
    layout->addStretch();
}

QPushButton *EmptyPage::button(QAction *action, const QString &name)
{
    auto *button = new QPushButton(action->icon(), action->text(), this);
    button->setObjectName(name);
    // Enter presses the focused button, as in a dialog.
    button->setAutoDefault(true);
    button->setEnabled(action->isEnabled());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, button, [action, button] { button->setEnabled(action->isEnabled()); });
    return button;
}
