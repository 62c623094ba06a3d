// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/veltaboutdialog.h"

#include "platform/desktopintegration.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

VeltAboutDialog::VeltAboutDialog(QWidget *parent)
    : QDialog(parent)
{
    const QString name = veltDisplayName();
    setWindowTitle(tr("About %1").arg(name));

    auto *icon = new QLabel(this);
    const int iconSize = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this) * 2;
    icon->setPixmap(QGuiApplication::windowIcon().pixmap(iconSize));
    icon->setAlignment(Qt::AlignTop);

    auto *title = new QLabel(name, this);
    QFont titleFont = title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    title->setFont(titleFont);
    auto *version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()), this);
    version->setObjectName(QStringLiteral("m_versionLabel"));
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *purpose = new QLabel(veltAppDescription(), this);
    auto *licence
        = new QLabel(tr("Free software under the GNU General Public License, version 3 or later. It "
                        "comes without any warranty."),
                     this);
    licence->setWordWrap(true);
    licence->setMinimumWidth(licence->fontMetrics().averageCharWidth() * 50);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    QPushButton *aboutQt = buttons->addButton(tr("About Qt"), QDialogButtonBox::HelpRole);
    connect(aboutQt, &QPushButton::clicked, this, &VeltAboutDialog::aboutQtRequested);

    auto *texts = new QVBoxLayout;
    for (QWidget *line : {title, version, purpose, licence})
        texts->addWidget(line);
    auto *top = new QHBoxLayout;
    top->addWidget(icon);
    top->addLayout(texts, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addStretch();
    layout->addWidget(buttons);
}
