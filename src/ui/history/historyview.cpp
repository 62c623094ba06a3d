// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/historyview.h"

#include "core/countof.h"
#include "ui/history/historymodel.h"
#include "ui/widgets/delayedlineedit.h"
#include "ui/widgets/itemmenukeys.h"
#include "ui/widgets/tablelook.h"

#include <QAction>
#include <QBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolBar>
#include <QTreeView>

#include <algorithm>
#include <utility>

HistoryView::HistoryView(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
    , m_model(new HistoryModel(this))
    , m_filter(new DelayedLineEdit(this))
    , m_tree(new QTreeView(this))
    , m_empty(new QLabel(m_tree))
    , m_note(new QLabel(this))
    , m_actions(actions)
{
    m_filter->setObjectName(QStringLiteral("m_historyFilter"));
    m_filter->setPlaceholderText(tr("Changes of package"));
    m_filter->setToolTip(tr("Shows only changes of packages whose name contains this text."));
    m_filter->setAccessibleName(m_filter->placeholderText());
    m_filter->setClearButtonEnabled(true);
    connect(m_filter, &DelayedLineEdit::textEditingStoped, this, &HistoryView::filter);
    // The button that empties the line is no edit.
    connect(m_filter, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (text.isEmpty())
            filter(text);
    });

    m_tree->setObjectName(QStringLiteral("m_historyTree"));
    m_tree->setModel(m_model);
    TableLook::apply(*m_tree, tr("Restore points"));
    m_tree->setRootIsDecorated(true);
    m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    new ItemMenuKeys(m_tree);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &HistoryView::showMenu);
    connect(m_tree->selectionModel(),
            &QItemSelectionModel::selectionChanged,
            this,
            &HistoryView::selectionChanged);
    TableLook::placeOver(*m_tree, m_empty);
    m_empty->setTextFormat(Qt::PlainText);
    const int character = fontMetrics().averageCharWidth();
    constexpr std::array<int, HistoryModel::ColumnCount> Characters = {34, 37, 14, 16, 16, 25, 17};
    for (int column = 0; column < HistoryModel::ColumnCount; ++column)
        m_tree->header()->resizeSection(column, Characters.at(size_t(column)) * character);
    constexpr int FilterCharacters = 22;
    m_filter->setMinimumWidth(FilterCharacters * character);
    // In a small window the dock must not take the room of the package list.
    m_tree->setMinimumHeight(fontMetrics().lineSpacing() * 3);

    auto *top = new QHBoxLayout;
    top->addWidget(m_filter, 1);
    // In a narrow window a tool bar puts the last buttons into a menu.
    auto *bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    bar->setIconSize({icon, icon});
    bar->addActions(m_actions);
    for (QAction *action : m_actions)
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    top->addWidget(bar);
    m_note->setObjectName(QStringLiteral("m_historyNote"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_tree, 1);
    layout->addWidget(m_note);
    setFocusProxy(m_tree);
}

QSize HistoryView::sizeHint() const
{
    // The package list above keeps most of the window.
    constexpr int Lines = 13;
    return {QWidget::sizeHint().width(), Lines * fontMetrics().lineSpacing()};
}

void HistoryView::setHistory(const RepositoryHistory &history, const QString &note)
{
    m_why.clear();
    // Many jobs change nothing; the user keeps the place.
    if (!m_model->hasPoints(history.points))
        showPoints(history.points);
    const QString size = tr("%n restore point(s), %1", nullptr, countOf(history.points))
                             .arg(QLocale().formattedDataSize(history.size));
    m_note->setText(note.isEmpty() ? size : tr("%1. %2").arg(size, note));
    m_note->show();
    updateEmptyText();
    Q_EMIT selectionChanged();
}

void HistoryView::showPoints(const QVector<RestorePoint> &points)
{
    QVector<int> opened;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, 0);
        if (m_tree->isExpanded(index))
            opened << m_model->pointAt(index)->number;
    }
    const QVector<int> selected = selection().points;
    {
        const QSignalBlocker blocker(this);
        m_model->setPoints(points);
        for (const int number : std::as_const(opened))
            m_tree->expand(m_model->indexOf(number));
        for (const int number : selected)
            m_tree->selectionModel()->select(m_model->indexOf(number),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    if (m_model->isFiltered())
        openMatches();
}

void HistoryView::clear(const QString &why)
{
    m_why = why;
    m_model->setPoints({});
    m_note->clear();
    m_note->hide();
    updateEmptyText();
    Q_EMIT selectionChanged();
}

void HistoryView::filter(const QString &name)
{
    m_model->setFilter(name);
    if (m_model->isFiltered())
        openMatches();
    updateEmptyText();
    Q_EMIT selectionChanged();
}

void HistoryView::openMatches()
{
    // More rows than these are no answer, and the next points would be far away.
    constexpr int Readable = 200;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex index = m_model->index(row, 0);
        if (m_model->rowCount(index) <= Readable)
            m_tree->expand(index);
    }
}

void HistoryView::updateEmptyText()
{
    m_empty->setVisible(m_model->rowCount() == 0);
    m_empty->setText(!m_why.isEmpty()        ? m_why
                     : m_model->isFiltered() ? tr("No point has changed such a package.")
                                             : tr("Each change of this repository will appear here."));
}

HistoryView::Selection HistoryView::selection() const
{
    Selection selection;
    const QModelIndexList rows = m_tree->selectionModel()->selectedRows();
    for (const QModelIndex &index : rows) {
        const int number = m_model->pointAt(index)->number;
        if (!selection.points.contains(number))
            selection.points << number;
    }
    std::sort(selection.points.begin(), selection.points.end(), std::greater<>());
    if (rows.size() == 1) {
        if (const PackageChange *change = m_model->changeAt(rows.first()))
            selection.change = *change;
    }
    return selection;
}

void HistoryView::showMenu(const QPoint &pos)
{
    if (!m_tree->indexAt(pos).isValid())
        return;
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    menu->addActions(m_actions);
    menu->popup(m_tree->viewport()->mapToGlobal(pos));
}

QByteArray HistoryView::columns() const
{
    return m_tree->header()->saveState();
}

void HistoryView::setColumns(const QByteArray &columns)
{
    if (!columns.isEmpty())
        m_tree->header()->restoreState(columns);
}
