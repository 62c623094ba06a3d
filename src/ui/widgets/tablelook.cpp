// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/tablelook.h"

#include <QLabel>
#include <QTreeView>
#include <QVBoxLayout>

void TableLook::apply(QTreeView &view, const QString &name)
{
    view.setAccessibleName(name);
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);
    view.setAlternatingRowColors(true);
    view.setAllColumnsShowFocus(true);
}

void TableLook::placeOver(QTreeView &view, QLabel *label)
{
    label->setObjectName(QStringLiteral("m_emptyLabel"));
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *layout = new QVBoxLayout(view.viewport());
    layout->addWidget(label);
}
