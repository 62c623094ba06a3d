// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/orphanedlines.h"

#include "core/countof.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

OrphanedLines::OrphanedLines(QWidget *parent)
    : QWidget(parent)
    , m_list(new QListWidget(this))
{
    constexpr int Rows = 3;
    auto *sign = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    sign->setPixmap(QIcon::fromTheme(QStringLiteral("dialog-warning")).pixmap(size));
    auto *text = new QLabel(tr("These lines of this machine's local sources list lead to ports on which "
                               "nothing is published. apt reports "
                               "an error for them, and with trusted=yes whoever takes the port decides what "
                               "is installed with the rights "
                               "of root:"),
                            this);
    text->setWordWrap(true);
    text->setBuddy(m_list);
    m_list->setObjectName(QStringLiteral("m_orphanedLinesList"));
    m_list->setAccessibleName(tr("Lines without a publication"));
    m_list->setUniformItemSizes(true);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setMaximumHeight(Rows * fontMetrics().lineSpacing() * 3 / 2);
    auto *button = new QPushButton(QIcon::fromTheme(QStringLiteral("list-remove")), tr("&Remove line"), this);
    button->setObjectName(QStringLiteral("m_removeLineButton"));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this] {
        if (const QListWidgetItem *item = m_list->currentItem())
            Q_EMIT removalRequested(item->text());
    });

    auto *top = new QHBoxLayout;
    top->addWidget(sign);
    top->addWidget(text, 1);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_list, 1);
    bottom->addWidget(button, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(bottom);
    hide();
}

void OrphanedLines::setLines(const QStringList &lines)
{
    QStringList shown;
    for (int row = 0; row < m_list->count(); ++row)
        shown << m_list->item(row)->text();
    if (shown == lines)
        return;
    const int row = m_list->currentRow();
    m_list->clear();
    m_list->addItems(lines);
    m_list->setCurrentRow(qMax(0, qMin(row, countOf(lines) - 1)));
    setVisible(!lines.isEmpty());
}
