// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repotreeview.h"

#include "ui/packages/packagedrop.h"
#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"
#include "ui/widgets/itemmenukeys.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSet>

RepoTreeView::RepoTreeView(QWidget *parent)
    : QTreeView(parent)
{
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectItems);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setSortingEnabled(true);
    sortByColumn(0, Qt::AscendingOrder);
    setUniformRowHeights(true);
    // The usual small icon has no space for a readable badge.
    const int iconSide = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) * 11 / 8;
    setIconSize(QSize(iconSide, iconSide));
    new ItemMenuKeys(this);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(false);
    header()->setSectionResizeMode(QHeaderView::Interactive);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void RepoTreeView::setModel(QAbstractItemModel *model)
{
    if (m_proxy != nullptr)
        disconnect(m_proxy, nullptr, this, nullptr);
    m_proxy = qobject_cast<RepoProxyModel *>(model);
    // Connected before the view itself connects: at a reset the view forgets its expanded items.
    if (m_proxy != nullptr)
        connect(m_proxy, &RepoProxyModel::modelAboutToBeReset, this, &RepoTreeView::saveState);
    QTreeView::setModel(model);
    if (m_proxy != nullptr) {
        connect(m_proxy, &RepoProxyModel::modelReset, this, &RepoTreeView::restoreState);
        connect(m_proxy,
                &RepoProxyModel::layoutAboutToBeChanged,
                this,
                [this](const QList<QPersistentModelIndex> &, QAbstractItemModel::LayoutChangeHint hint) {
                    // When only the sort order changes, the scroll position stays, not the visible rows.
                    if (hint != QAbstractItemModel::VerticalSortHint)
                        saveScroll();
                });
        connect(m_proxy, &RepoProxyModel::layoutChanged, this, [this] {
            if (m_searching) {
                scheduleDelayedItemsLayout(); // otherwise every expansion would move all rows below it
                expandMatches(QModelIndex());
            }
            restoreScroll();
            Q_EMIT stateRestored();
        });
    }
}

// --- keys and mouse ------------------------------------------------------------------------------------------------

void RepoTreeView::keyPressEvent(QKeyEvent *event)
{
    forgetLost();
    QTreeView::keyPressEvent(event);
}

void RepoTreeView::mousePressEvent(QMouseEvent *event)
{
    forgetLost();
    QTreeView::mousePressEvent(event);
}

// --- drops ---------------------------------------------------------------------------------------------------------

void RepoTreeView::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
}

void RepoTreeView::dragMoveEvent(QDragMoveEvent *event)
{
    if (!PackageDrop::accepts(event->mimeData())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void RepoTreeView::dropEvent(QDropEvent *event)
{
    const QStringList files = PackageDrop::paths(event->mimeData());
    if (files.isEmpty()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesDropped(files);
}

// --- what survives the replacement of a package ---------------------------------------------------------------------

void RepoTreeView::rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    for (int row = first; m_proxy != nullptr && row <= last; ++row) {
        const QModelIndex index = m_proxy->index(row, 0, parent);
        if (!isPackage(index))
            continue;
        if (selectionModel()->isSelected(index))
            m_lostSelected.insert(keyOf(index));
        if (index == currentIndex())
            m_lostCurrent = keyOf(index);
    }
    QTreeView::rowsAboutToBeRemoved(parent, first, last);
}

void RepoTreeView::rowsInserted(const QModelIndex &parent, int first, int last)
{
    QTreeView::rowsInserted(parent, first, last);
    if (m_proxy != nullptr && !(m_lostSelected.isEmpty() && m_lostCurrent.isEmpty()))
        takeUpLost(parent, first, last);
}

void RepoTreeView::takeUpLost(const QModelIndex &parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_proxy->index(row, 0, parent);
        if (!isPackage(index)) {
            // A section is removed with its only package and comes back with it.
            takeUpLost(index, 0, m_proxy->rowCount(index) - 1);
            continue;
        }
        const QString key = keyOf(index);
        if (m_lostSelected.remove(key))
            selectionModel()->select(index, QItemSelectionModel::Select);
        if (key == m_lostCurrent) {
            m_lostCurrent.clear();
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
        }
    }
}

void RepoTreeView::forgetLost()
{
    m_lostSelected.clear();
    m_lostCurrent.clear();
}

// --- what survives a change of the model ---------------------------------------------------------------------------

QString RepoTreeView::keyOf(const QModelIndex &index) const
{
    return m_proxy->repoModel()->itemKey(m_proxy->mapToSource(index));
}

QModelIndex RepoTreeView::indexOfKey(const QString &key) const
{
    return m_proxy->mapFromSource(m_proxy->repoModel()->indexOfKey(key));
}

bool RepoTreeView::isPackage(const QModelIndex &index) const
{
    return m_proxy->flags(index).testFlag(Qt::ItemNeverHasChildren);
}

QStringList RepoTreeView::expandedKeys() const
{
    QStringList keys;
    QModelIndexList open{rootIndex()};
    while (!open.isEmpty()) {
        const QModelIndex parent = open.takeLast();
        for (int row = 0; row < m_proxy->rowCount(parent); ++row) {
            const QModelIndex child = m_proxy->index(row, 0, parent);
            if (isPackage(child))
                break; // all siblings of a package are packages
            if (isExpanded(child))
                keys.append(keyOf(child));
            open.append(child);
        }
    }
    return keys;
}

void RepoTreeView::saveScroll()
{
    m_visible.clear();
    if (m_proxy->repoModel() == nullptr || verticalScrollBar()->value() == 0)
        return;
    const int bottom = viewport()->height();
    for (QModelIndex index = indexAt(QPoint(0, 0)); index.isValid() && visualRect(index).top() < bottom;
         index = indexBelow(index))
        m_visible.append(keyOf(index));
}

void RepoTreeView::restoreScroll()
{
    for (const QString &key : qAsConst(m_visible)) {
        const QModelIndex index = indexOfKey(key);
        if (index.isValid()) {
            scrollTo(index, PositionAtTop);
            break;
        }
    }
    m_visible.clear();
}

void RepoTreeView::saveState()
{
    // The tree is emptied before a new listing. Its state is restored together with the packages.
    if (m_proxy->repoModel() == nullptr || m_proxy->repoModel()->packageCount() == 0)
        return;
    saveScroll();
    m_expanded = expandedKeys();
    m_current = keyOf(currentIndex());
    m_selected.clear();
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex &index : selected)
        m_selected.append(keyOf(index));
}

void RepoTreeView::restoreState()
{
    if (m_proxy->repoModel() == nullptr)
        return;
    for (const QString &key : qAsConst(m_expanded)) {
        const QModelIndex index = indexOfKey(key);
        if (index.isValid())
            expand(index);
    }
    if (m_expanded.isEmpty())
        expandToDepth(1);
    QItemSelection selection;
    for (const QString &key : qAsConst(m_selected)) {
        const QModelIndex index = indexOfKey(key);
        if (!index.isValid())
            continue;
        // Adjacent items become one range, because the selection model compares every range with all others.
        if (!selection.isEmpty() && selection.last().parent() == index.parent()
            && selection.last().bottom() + 1 == index.row())
            selection.last() = QItemSelectionRange(selection.last().topLeft(), index);
        else
            selection.append(QItemSelectionRange(index));
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    // In a repository that was just opened, nothing is chosen yet: the repository item becomes current.
    if (m_current.isEmpty())
        selectionModel()->setCurrentIndex(m_proxy->index(0, 0), QItemSelectionModel::ClearAndSelect);
    else
        selectionModel()->setCurrentIndex(indexOfKey(m_current), QItemSelectionModel::NoUpdate);
    restoreScroll();
    Q_EMIT stateRestored();
}

void RepoTreeView::setSearching(bool searching)
{
    if (searching == m_searching || m_proxy == nullptr || m_proxy->repoModel() == nullptr)
        return;
    m_searching = searching;
    if (searching) {
        m_expandedBeforeSearch = expandedKeys();
        return;
    }
    scheduleDelayedItemsLayout();
    const QSet<QString> before(m_expandedBeforeSearch.cbegin(), m_expandedBeforeSearch.cend());
    const QStringList expanded = expandedKeys();
    for (const QString &key : expanded) {
        if (!before.contains(key))
            collapse(indexOfKey(key));
    }
    m_expandedBeforeSearch.clear();
    scrollTo(currentIndex());
}

void RepoTreeView::expandMatches(const QModelIndex &parent)
{
    for (int row = 0; row < m_proxy->rowCount(parent); ++row) {
        const QModelIndex child = m_proxy->index(row, 0, parent);
        if (isPackage(child))
            break;
        if (m_proxy->shownPackages(child) > 0)
            expand(child);
        expandMatches(child);
    }
}

QModelIndex RepoTreeView::firstMatch(const QModelIndex &parent) const
{
    for (int row = 0; row < m_proxy->rowCount(parent); ++row) {
        const QModelIndex child = m_proxy->index(row, 0, parent);
        if (isPackage(child))
            return child;
        if (m_proxy->shownPackages(child) > 0)
            return firstMatch(child);
    }
    return {};
}

void RepoTreeView::selectAll()
{
    if (m_proxy != nullptr && !m_proxy->isRepositoryItemHidden())
        expand(m_proxy->index(0, 0));
    QTreeView::selectAll();
}

void RepoTreeView::enterFromSearch()
{
    if (m_proxy == nullptr)
        return;
    const QModelIndex current = currentIndex();
    const QModelIndex match = firstMatch(QModelIndex());
    if (match.isValid() && !(current.isValid() && isPackage(current))) {
        for (QModelIndex parent = match.parent(); parent.isValid(); parent = parent.parent())
            expand(parent);
        selectionModel()->setCurrentIndex(match, QItemSelectionModel::ClearAndSelect);
        scrollTo(match);
    }
    setFocus(Qt::TabFocusReason);
}

void RepoTreeView::showFirstMatch()
{
    if (m_proxy == nullptr)
        return;
    const QModelIndex current = currentIndex();
    const QModelIndex match = current.isValid() && isPackage(current) ? current : firstMatch(QModelIndex());
    if (!match.isValid())
        return;
    // Groups without a match are between groups with matches.
    scrollTo(match);
    if (match != current)
        scrollTo(match, PositionAtCenter);
}
