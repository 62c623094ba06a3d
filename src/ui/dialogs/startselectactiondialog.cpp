// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/startselectactiondialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

StartSelectActionDialog::StartSelectActionDialog(QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Select action"));
    auto *label
        = new QLabel(tr("There are no repositories open at the moment to add packages, please select the "
                        "next action"),
                     this);
    label->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Open | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Create repo"));
    buttons->button(QDialogButtonBox::Open)->setText(tr("Open repo"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::clicked, this, [this, buttons](QAbstractButton *button) {
        switch (buttons->standardButton(button)) {
        case QDialogButtonBox::Ok:
            m_action = Action::CreateRepo;
            accept();
            break;
        case QDialogButtonBox::Open:
            m_action = Action::OpenRepo;
            accept();
            break;
        default:
            reject();
        }
    });
}
