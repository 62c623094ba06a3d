// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/batch/batchdialog.h"

#include "ui/widgets/tooltiptext.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{
enum Column { Repository, State, Result, ColumnCount };
constexpr QSize PreferredSize(720, 360);
} // namespace

BatchDialog::BatchDialog(const BatchReport &report, QWidget *parent)
    : QDialog(parent)
    , m_summary(new QLabel(this))
    , m_list(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("BatchDialog"));
    setWindowTitle(report.title);
    m_summary->setObjectName(QStringLiteral("m_summaryLabel"));
    m_summary->setText(tr("One repository after the other. You can go on working meanwhile."));
    m_summary->setWordWrap(true);
    m_list->setObjectName(QStringLiteral("m_batchList"));
    m_list->setAccessibleName(report.title);
    m_list->setColumnCount(ColumnCount);
    m_list->setHeaderLabels({tr("Repository"), tr("State"), tr("Result")});
    m_list->setAlternatingRowColors(true);
    m_list->setUniformRowHeights(false);
    m_list->setWordWrap(true);
    m_list->header()->setSectionResizeMode(Repository, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(State, QHeaderView::ResizeToContents);
    for (const BatchReport::Entry &entry : report.entries) {
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(Repository, QFileInfo(entry.path).fileName());
        item->setToolTip(Repository, toolTipText(entry.path));
        item->setData(Repository, Qt::UserRole, entry.path);
        item->setText(State, entry.stateText());
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    m_stopButton = buttons->addButton(tr("Stop"), QDialogButtonBox::ActionRole);
    m_saveButton = buttons->addButton(tr("Save as report..."), QDialogButtonBox::ActionRole);
    m_stopButton->setObjectName(QStringLiteral("m_stopButton"));
    m_saveButton->setObjectName(QStringLiteral("m_saveButton"));
    m_saveButton->setEnabled(false);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(m_stopButton, &QPushButton::clicked, this, [this] {
        m_stopButton->setEnabled(false);
        Q_EMIT stopWanted();
    });
    connect(m_saveButton, &QPushButton::clicked, this, &BatchDialog::savingWanted);
    connect(m_list, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *item) {
        const QTreeWidgetItem *top = item->parent() == nullptr ? item : item->parent();
        Q_EMIT repositoryWanted(top->data(Repository, Qt::UserRole).toString());
    });
    resize(PreferredSize);
}

void BatchDialog::setEntry(int index, const BatchReport::Entry &entry)
{
    QTreeWidgetItem *item = m_list->topLevelItem(index);
    if (item == nullptr)
        return;
    item->setText(State, entry.stateText());
    item->setText(Result, entry.message);
    item->setToolTip(Result, toolTipText(entry.message));
    qDeleteAll(item->takeChildren());
    for (const QString &trouble : entry.troubles) {
        auto *line = new QTreeWidgetItem(item);
        line->setText(Result, trouble);
        line->setToolTip(Result, toolTipText(trouble));
    }
    item->setExpanded(!entry.troubles.isEmpty());
    m_list->scrollToItem(item);
}

void BatchDialog::setOver(const BatchReport &report)
{
    m_summary->setText(report.summary());
    m_stopButton->setEnabled(false);
    m_saveButton->setEnabled(true);
}
