// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tab/dependsview.h"

#include "depends/dependencylacks.h"
#include "ui/depends/dependsproxymodel.h"
#include "ui/widgets/itemmenukeys.h"

#include "ui_dependsview.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace
{
/** Identifies a row: its text, after the texts of its parents. */
QStringList pathOf(const QModelIndex &index)
{
    QStringList path;
    for (QModelIndex row = index.siblingAtColumn(0); row.isValid(); row = row.parent())
        path.prepend(row.data().toString());
    return path;
}
} // namespace

DependsView::DependsView(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::DependsView>())
    , m_model(new DependsModel(this))
    , m_proxy(new DependsProxyModel(this))
    , m_copyAction(new QAction(QIcon::fromTheme(QStringLiteral("edit-copy")), tr("Copy"), this))
{
    m_ui->setupUi(this);
    setUpToggles();
    setUpTree();
    showEmptyText();
    connect(m_ui->m_checkDependsToolButton, &QToolButton::clicked, this, &DependsView::checkRequested);
}

DependsView::~DependsView() = default;

void DependsView::setUpToggles()
{
    m_toggles = {{DependUndefined, m_ui->m_showDependsUndefinedToolButton},
                 {DependError, m_ui->m_showDependsErrorToolButton},
                 {DependSuccess, m_ui->m_showDependsSuccessToolButton}};
    for (auto toggle = m_toggles.cbegin(); toggle != m_toggles.cend(); ++toggle) {
        m_proxy->setStatusShown(toggle.key(), true);
        connect(toggle.value(), &QToolButton::toggled, this, [this, state = toggle.key()](bool shown) {
            showState(state, shown);
        });
    }
}

void DependsView::setUpTree()
{
    QTreeView *tree = m_ui->m_dependsTreeView;
    m_proxy->setSourceModel(m_model);
    tree->setModel(m_proxy);
    tree->setUniformRowHeights(true);
    tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree->setSelectionBehavior(QAbstractItemView::SelectRows);
    tree->setAllColumnsShowFocus(true);
    tree->setSortingEnabled(true);
    tree->sortByColumn(0, Qt::AscendingOrder);
    new ItemMenuKeys(tree);
    tree->installEventFilter(this);
    QHeaderView *header = tree->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setTextElideMode(Qt::ElideMiddle);
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        columnResized(column, width);
    });

    connect(tree, &QTreeView::customContextMenuRequested, this, [this, tree](const QPoint &pos) {
        Q_EMIT menuRequested(tree->viewport()->mapToGlobal(pos));
    });
    m_copyAction->setShortcut(QKeySequence(QKeySequence::Copy));
    m_copyAction->setShortcutContext(Qt::WidgetShortcut);
    tree->addAction(m_copyAction);
    connect(m_copyAction, &QAction::triggered, this, &DependsView::copySelected);
    const auto selectionChanged
        = [this, tree] { m_copyAction->setEnabled(tree->selectionModel()->hasSelection()); };
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this, selectionChanged);
    connect(m_proxy, &DependsProxyModel::modelReset, this, selectionChanged);
    selectionChanged();
}

// --- the package ---------------------------------------------------------------------------------------------------

void DependsView::setPackage(const PackageInfoPtr &package)
{
    if (package == m_package)
        return;
    const bool isSame = package && m_package && package->name == m_package->name
                        && package->architecture == m_package->architecture
                        && package->type == m_package->type
                        && package->indexComponent == m_package->indexComponent;
    // A tree without entries has no state to keep.
    const bool keep = isSame && m_proxy->hasChildren(m_proxy->index(0, 0));
    const TreeState state = keep ? treeState() : TreeState();
    m_package = package;
    const bool hasEntries = package && package->dependsInfo && !package->dependsInfo->groups.isEmpty();
    m_model->setPackages(hasEntries ? QList<PackageInfoPtr>{package} : QList<PackageInfoPtr>());
    layOutColumns();
    if (keep)
        restore(state);
    else
        m_ui->m_dependsTreeView->expandToDepth(0);
    showEmptyText();
}

void DependsView::setAliases(const DependsModel::AliasLookup &aliases)
{
    m_model->setAliases(aliases);
}

void DependsView::setCheckEnabled(bool enabled)
{
    m_ui->m_checkDependsToolButton->setEnabled(enabled);
}

QString DependsView::emptyText() const
{
    if (m_proxy->rowCount() > 0 || !m_package)
        return {};
    if (m_model->rowCount() > 0)
        return tr("Dependencies in this state are not shown. The buttons above choose what is shown.");
    if (m_package->depends().isEmpty() && m_package->control.field("Pre-Depends").isEmpty())
        return tr("The package has no dependencies.");
    if (m_package->dependStatus() == DependUndefined)
        return tr("Not checked yet: press \"%1\".").arg(m_ui->m_checkDependsToolButton->text());
    return tr("The package has no dependencies that can be checked.");
}

void DependsView::showEmptyText()
{
    const QString text = emptyText();
    m_ui->m_dependsEmptyLabel->setText(text);
    m_ui->m_dependsEmptyLabel->setVisible(!text.isEmpty());
    m_ui->m_dependsTreeView->setVisible(text.isEmpty());
}

void DependsView::showState(int state, bool shown)
{
    // Rows that return after a filter are closed.
    const bool hadRows = m_proxy->rowCount() > 0;
    const TreeState before = treeState();
    m_proxy->setStatusShown(state, shown);
    if (shown)
        m_arrangement.hiddenStates.remove(state);
    else
        m_arrangement.hiddenStates.insert(state);
    if (hadRows)
        restore(before);
    else
        m_ui->m_dependsTreeView->expandToDepth(0);
    showEmptyText();
    Q_EMIT arrangementChanged();
}

// --- the tree's state ----------------------------------------------------------------------------------------------

void DependsView::forEachRow(const QModelIndex &parent,
                             const std::function<void(const QModelIndex &)> &visit) const
{
    for (int row = 0; row < m_proxy->rowCount(parent); ++row) {
        const QModelIndex index = m_proxy->index(row, 0, parent);
        visit(index);
        forEachRow(index, visit);
    }
}

DependsView::TreeState DependsView::treeState() const
{
    TreeState state;
    const QTreeView *tree = m_ui->m_dependsTreeView;
    forEachRow({}, [&](const QModelIndex &index) {
        if (tree->isExpanded(index))
            state.expanded.insert(pathOf(index));
        if (tree->selectionModel()->isSelected(index))
            state.selected.insert(pathOf(index));
    });
    state.current = pathOf(tree->currentIndex());
    state.scroll = tree->verticalScrollBar()->value();
    return state;
}

void DependsView::restore(const TreeState &state)
{
    QTreeView *tree = m_ui->m_dependsTreeView;
    QItemSelection selection;
    QModelIndex current;
    forEachRow({}, [&](const QModelIndex &index) {
        const QStringList path = pathOf(index);
        tree->setExpanded(index, state.expanded.contains(path));
        if (state.selected.contains(path))
            selection.select(index, index);
        if (path == state.current)
            current = index;
    });
    tree->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    tree->selectionModel()->select(selection,
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    // Only the layout gives the scroll bar its range.
    tree->doItemsLayout();
    tree->verticalScrollBar()->setValue(state.scroll);
}

// --- columns -------------------------------------------------------------------------------------------------------

void DependsView::layOutColumns()
{
    const QScopedValueRollback<bool> guard(m_layingOut, true);
    QTreeView *tree = m_ui->m_dependsTreeView;
    QHeaderView *header = tree->header();
    const int character = tree->fontMetrics().averageCharWidth();
    constexpr int SourceCharacters = 22; // an origin is longer, and its start and end say enough
    constexpr int TextCharacters = 30;
    const QStringList sources = m_model->sources();
    int others = 0;
    for (int column = 1; column <= sources.size(); ++column) {
        header->setSectionResizeMode(column, QHeaderView::Interactive);
        const int usual = qMin(header->sectionSizeHint(column), character * SourceCharacters);
        header->resizeSection(column, m_arrangement.columnWidths.value(sources.at(column - 1), usual));
        others += header->sectionSize(column);
    }
    // The text column takes the rest. Where the rest is too narrow, the tree scrolls sideways.
    const int least = character * TextCharacters;
    const bool fits = tree->viewport()->width() - others >= least;
    header->setSectionResizeMode(0, fits ? QHeaderView::Stretch : QHeaderView::Interactive);
    if (!fits)
        header->resizeSection(0, least);
}

void DependsView::columnResized(int column, int width)
{
    const QStringList sources = m_model->sources();
    if (m_layingOut || column < 1 || column > sources.size())
        return;
    m_arrangement.columnWidths[sources.at(column - 1)] = width;
    Q_EMIT arrangementChanged();
}

void DependsView::setArrangement(const DependsArrangement &arrangement)
{
    const QSignalBlocker blocker(this);
    for (auto toggle = m_toggles.cbegin(); toggle != m_toggles.cend(); ++toggle)
        toggle.value()->setChecked(!arrangement.hiddenStates.contains(toggle.key()));
    m_arrangement = arrangement;
    layOutColumns();
}

// --- the selected rows ---------------------------------------------------------------------------------------------

QVector<Dependency> DependsView::selectedLacks() const
{
    QVector<Dependency> lacks;
    const QModelIndexList rows = m_ui->m_dependsTreeView->selectionModel()->selectedRows();
    for (const QModelIndex &row : rows)
        collectLacks(row, lacks);
    return lacks;
}

void DependsView::collectLacks(const QModelIndex &index, QVector<Dependency> &lacks) const
{
    const QVector<Dependency> alternatives = m_model->alternativesAt(m_proxy->mapToSource(index));
    if (alternatives.isEmpty()) {
        for (int row = 0; row < m_proxy->rowCount(index); ++row)
            collectLacks(m_proxy->index(row, 0, index), lacks);
        return;
    }
    const auto status = static_cast<DependStatus>(index.data(DependsModel::StatusRole).toInt());
    DependencyLacks::collect({status, alternatives}, &lacks);
}

void DependsView::copySelected()
{
    QModelIndexList rows = m_ui->m_dependsTreeView->selectionModel()->selectedRows();
    // The lines stand in the order of the tree, whatever the order of the clicks.
    std::sort(rows.begin(), rows.end(), [this](const QModelIndex &a, const QModelIndex &b) {
        return m_ui->m_dependsTreeView->visualRect(a).top() < m_ui->m_dependsTreeView->visualRect(b).top();
    });
    QStringList lines;
    for (const QModelIndex &row : std::as_const(rows))
        lines.append(row.data().toString());
    if (!lines.isEmpty())
        QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

// --- events --------------------------------------------------------------------------------------------------------

bool DependsView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange)
        QMetaObject::invokeMethod(this, &DependsView::layOutColumns, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}
