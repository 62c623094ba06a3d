// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repotreeview.h"

#include "core/qtversions.h"
#include "ui/packages/columnchoice.h"
#include "ui/packages/packagedrop.h"
#include "ui/packages/packageselection.h"
#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"
#include "ui/widgets/itemmenukeys.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QSet>
#include <QUrl>

#include <utility>

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
    setDragDropMode(DragDrop);
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

// --- columns -------------------------------------------------------------------------------------------------------

void RepoTreeView::setColumnChoice(ColumnChoice &choice)
{
    header()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header(), &QWidget::customContextMenuRequested, this, [this, &choice](const QPoint &pos) {
        choice.menu()->popup(header()->mapToGlobal(pos));
    });
    connect(&choice, &ColumnChoice::changed, this, [this, &choice] { showColumns(choice); });
    connect(header(), &QHeaderView::sectionResized, this, [this, &choice](int section, int, int size) {
        const PackageColumns::Columns columns = m_proxy->repoModel()->columns();
        // The last column follows the width of the window. Only what the user sets is kept.
        const bool isByUser = (QGuiApplication::mouseButtons() & Qt::LeftButton) != 0;
        if (isByUser && section + 1 < columns.size() && size > 0)
            choice.setWidth(columns.at(section), size);
    });
    showColumns(choice);
}

void RepoTreeView::showColumns(const ColumnChoice &choice)
{
    const PackageColumns::Columns columns = choice.columns();
    m_proxy->setColumns(columns);
    // A cell of another column than the first stands for its row.
    setSelectionBehavior(columns.size() > 1 ? SelectRows : SelectItems);
    const auto sorted = static_cast<int>(columns.indexOf(m_proxy->sortedColumn()));
    sortByColumn(qMax(0, sorted), sorted < 0 ? Qt::AscendingOrder : header()->sortIndicatorOrder());
    constexpr int NameCharacters = 34;
    constexpr int OtherCharacters = 14;
    for (int i = 0; i + 1 < columns.size(); ++i) {
        const int characters = i == 0 ? NameCharacters : OtherCharacters;
        const int width = choice.width(columns.at(i));
        header()->resizeSection(i, width > 0 ? width : characters * fontMetrics().averageCharWidth());
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
    const auto *source = qobject_cast<const RepoTreeView *>(event->source());
    const QModelIndex place = source == nullptr ? QModelIndex() : placeAt(QtVersions::positionOf(*event));
    setDropRow(place);
    // Within one repository packages can only get another component.
    if (source == this ? !place.isValid() : !PackageDrop::accepts(event->mimeData())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void RepoTreeView::dragLeaveEvent(QDragLeaveEvent *event)
{
    setDropRow({});
    QTreeView::dragLeaveEvent(event);
}

void RepoTreeView::dropEvent(QDropEvent *event)
{
    setDropRow({});
    auto *source = qobject_cast<RepoTreeView *>(event->source());
    const QStringList files = PackageDrop::paths(event->mimeData());
    const QModelIndex place = placeAt(QtVersions::positionOf(*event));
    if (files.isEmpty() || (source == this && !place.isValid())) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (source == nullptr)
        Q_EMIT filesDropped(files);
    else
        Q_EMIT packagesDropped(
            source, componentOf(place), QtVersions::modifiersOf(*event).testFlag(Qt::ShiftModifier));
}

void RepoTreeView::startDrag(Qt::DropActions /*supported*/)
{
    // Another program gets no more files than a person drags on purpose.
    constexpr int MostFiles = 1000;
    if (m_proxy == nullptr || m_proxy->repoModel() == nullptr)
        return;
    const auto packages
        = PackageSelection::packages(selectionModel()->selectedIndexes(), *m_proxy, *m_proxy->repoModel());
    QList<QUrl> files;
    for (const PackageInfoPtr &package : packages) {
        const QUrl file = QUrl::fromLocalFile(package->filePath());
        if (files.size() < MostFiles && (files.isEmpty() || files.last() != file))
            files.append(file);
    }
    if (files.isEmpty())
        return;
    auto *dragged = new QMimeData;
    dragged->setUrls(files);
    auto *drag = new QDrag(this);
    drag->setMimeData(dragged);
    // A file manager that was offered to move would take the files out of the pool.
    drag->exec(Qt::CopyAction);
}

QModelIndex RepoTreeView::placeAt(const QPoint &position) const
{
    const QModelIndex index = m_proxy == nullptr ? QModelIndex() : indexAt(position);
    if (!index.isValid())
        return {};
    const RepoItem &item = m_proxy->repoModel()->tree().item(RepoModel::itemId(index));
    return item.kind == RepoItem::Component || item.kind == RepoItem::Section ? index : QModelIndex();
}

QString RepoTreeView::componentOf(const QModelIndex &place) const
{
    if (!place.isValid())
        return {};
    const PackageTree &tree = m_proxy->repoModel()->tree();
    const RepoItem &item = tree.item(RepoModel::itemId(place));
    return item.kind == RepoItem::Section ? tree.item(item.parent).code : item.code;
}

void RepoTreeView::setDropRow(const QModelIndex &index)
{
    if (m_dropRow == index)
        return;
    m_dropRow = index;
    viewport()->update();
}

void RepoTreeView::drawRow(QPainter *painter,
                           const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    QTreeView::drawRow(painter, option, index);
    if (!m_dropRow.isValid() || index != m_dropRow)
        return;
    painter->setPen(palette().color(QPalette::Highlight));
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
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
        if (index == currentIndex().siblingAtColumn(0))
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
            selectionModel()->select(index, QItemSelectionModel::Select | QItemSelectionModel::Rows);
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
    for (const QString &key : std::as_const(m_visible)) {
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
    for (const QModelIndex &index : selected) {
        if (index.column() == 0)
            m_selected.append(keyOf(index));
    }
}

void RepoTreeView::restoreState()
{
    if (m_proxy->repoModel() == nullptr)
        return;
    for (const QString &key : std::as_const(m_expanded)) {
        const QModelIndex index = indexOfKey(key);
        if (index.isValid())
            expand(index);
    }
    if (m_expanded.isEmpty())
        expandToDepth(1);
    QItemSelection selection;
    for (const QString &key : std::as_const(m_selected)) {
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
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    // In a repository that was just opened, nothing is chosen yet: the repository item becomes current.
    if (m_current.isEmpty())
        selectionModel()->setCurrentIndex(m_proxy->index(0, 0),
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
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
        selectionModel()->setCurrentIndex(match,
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
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
