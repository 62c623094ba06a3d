// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repoproxymodel.h"

#include "core/countof.h"
#include "ui/packages/repomodel.h"

#include <algorithm>

namespace
{
int sizeOf(const std::vector<int> &ids)
{
    return static_cast<int>(ids.size());
}
} // namespace

RepoProxyModel::RepoProxyModel(QObject *parent)
    : QAbstractProxyModel(parent)
{
    constexpr int SortDelay = 500; // milliseconds
    m_sortTimer.setSingleShot(true);
    m_sortTimer.setInterval(SortDelay);
    connect(&m_sortTimer, &QTimer::timeout, this, [this] {
        if (m_model != nullptr)
            m_sorting.rank(m_model->tree(), m_sorting.column());
        relayout();
    });
}

void RepoProxyModel::setSourceModel(QAbstractItemModel *sourceModel)
{
    beginResetModel();
    if (m_model != nullptr)
        disconnect(m_model, nullptr, this, nullptr);
    m_model = qobject_cast<RepoModel *>(sourceModel);
    QAbstractProxyModel::setSourceModel(m_model);
    if (m_model != nullptr) {
        connect(m_model, &RepoModel::modelAboutToBeReset, this, &RepoProxyModel::beginResetModel);
        connect(m_model, &RepoModel::modelReset, this, [this] {
            const bool isThere = m_model->columns().contains(m_sorting.column());
            m_sorting.rank(m_model->tree(), isThere ? m_sorting.column() : PackageColumns::Name);
            rebuild();
            endResetModel();
        });
        connect(m_model, &RepoModel::rowsInserted, this, &RepoProxyModel::sourceRowsInserted);
        connect(m_model, &RepoModel::rowsAboutToBeRemoved, this, &RepoProxyModel::sourceRowsAboutToBeRemoved);
        connect(m_model, &RepoModel::rowsRemoved, this, &RepoProxyModel::endRemoval);
        connect(m_model, &RepoModel::dataChanged, this, &RepoProxyModel::sourceDataChanged);
        connect(m_model, &RepoModel::breakingChanged, this, &RepoProxyModel::breakingChanged);
        connect(m_model, &QObject::destroyed, this, [this] { m_model = nullptr; });
    }
    m_sorting = {};
    rebuild();
    endResetModel();
}

// --- the filters ---------------------------------------------------------------------------------------------------

void RepoProxyModel::setFilterFixedString(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    relayout();
}

void RepoProxyModel::setShownStates(States states)
{
    if (m_states == states)
        return;
    m_states = states;
    relayout();
}

void RepoProxyModel::setShownFaults(Faults faults)
{
    if (m_faults == faults)
        return;
    m_faults = faults;
    relayout();
}

void RepoProxyModel::setChoice(const PackageChoice &choice)
{
    if (m_choice == choice)
        return;
    m_choice = choice;
    relayout();
}

void RepoProxyModel::breakingChanged()
{
    // Rows without a change of their own come and go with the reasons of other rows.
    if (m_faults.testFlag(BreaksOthers))
        relayout();
}

void RepoProxyModel::setColumns(const PackageColumns::Columns &columns)
{
    if (m_model != nullptr)
        m_model->setColumns(columns);
}

void RepoProxyModel::setRepositoryItemHidden(bool hidden)
{
    if (m_rootHidden == hidden)
        return;
    beginResetModel();
    m_rootHidden = hidden;
    endResetModel();
}

void RepoProxyModel::relayout()
{
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    rebuild();
    restore(before);
    Q_EMIT layoutChanged();
}

void RepoProxyModel::restore(const QModelIndexList &persistent)
{
    QModelIndexList after;
    after.reserve(persistent.size());
    for (const QModelIndex &index : persistent)
        after.append(indexOfId(RepoModel::itemId(index), index.column()));
    changePersistentIndexList(persistent, after);
}

void RepoProxyModel::sort(int column, Qt::SortOrder order)
{
    const int columns = m_model == nullptr ? 1 : countOf(m_model->columns());
    if (column < 0 || column >= columns)
        return;
    const PackageColumns::Column wanted = column == 0 ? PackageColumns::Name : m_model->columns().at(column);
    if (m_sorting.column() == wanted && m_order == order)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    m_order = order;
    if (m_sorting.column() != wanted) {
        m_sorting.rank(m_model->tree(), wanted);
        rebuild();
    }
    restore(before);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

bool RepoProxyModel::hasFault(const RepoItem &item) const
{
    return (m_faults.testFlag(CannotBeInstalled) && item.installability() == NotInstallable)
           || (m_faults.testFlag(BreaksOthers) && m_model->tree().breaking().contains(*item.package));
}

bool RepoProxyModel::accepts(const RepoItem &item) const
{
    if (item.isContainer())
        return true;
    if (item.state >= DependUndefined && item.state <= DependSuccess
        && (m_states & (1U << (item.state - DependUndefined))) == 0)
        return false;
    if ((m_faults != 0 && !hasFault(item)) || !m_choice.accepts(*item.package))
        return false;
    return m_text.isEmpty() || m_model->displayText(item).contains(m_text, Qt::CaseInsensitive);
}

void RepoProxyModel::rebuild()
{
    m_shown.clear();
    if (m_model != nullptr)
        rebuildBelow(PackageTree::RootId);
}

void RepoProxyModel::rebuildBelow(int id)
{
    const RepoItem &container = m_model->tree().item(id);
    Ids &shown = m_shown[id];
    if (container.kind == RepoItem::Section && isFiltering()) {
        for (const int child : container.children) {
            if (accepts(m_model->tree().item(child)))
                shown.push_back(child);
        }
    } else {
        shown.assign(container.children.cbegin(), container.children.cend());
    }
    if (container.kind == RepoItem::Section) {
        m_sorting.sort(shown);
        return;
    }
    for (const int child : container.children)
        rebuildBelow(child);
}

int RepoProxyModel::shownPackages(const QModelIndex &container) const
{
    if (m_model == nullptr || !m_model->hasRepository())
        return 0;
    const int id = container.isValid() ? RepoModel::itemId(container) : PackageTree::RootId;
    const RepoItem &item = m_model->tree().item(id);
    if (!item.isContainer())
        return 1;
    if (item.kind == RepoItem::Section)
        return sizeOf(shownIn(id));
    int count = 0;
    for (const int child : item.children)
        count += shownPackages(indexOfId(child));
    return count;
}

// --- changes of the source -----------------------------------------------------------------------------------------

void RepoProxyModel::sourceRowsInserted(const QModelIndex &parent, int first, int last)
{
    const int container = RepoModel::itemId(parent);
    Ids shown;
    for (int row = first; row <= last; ++row) {
        const int id = m_model->tree().item(container).children.at(row);
        const RepoItem &item = m_model->tree().item(id);
        if (item.isContainer())
            rebuildBelow(id);
        else if (!m_sorting.isByName())
            appendSorted(id);
        if (accepts(item))
            shown.push_back(id);
    }
    insertShown(container, shown);
}

void RepoProxyModel::insertShown(int container, const Ids &ids)
{
    if (ids.empty())
        return;
    Ids &shown = m_shown[container];
    const int place = placeOf(shown, ids.front());
    const int row = isReversed(container) ? sizeOf(shown) - place : place;
    beginInsertRows(indexOfId(container), row, row + sizeOf(ids) - 1);
    shown.insert(shown.begin() + place, ids.begin(), ids.end());
    endInsertRows();
}

void RepoProxyModel::sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    const int container = RepoModel::itemId(parent);
    const Ids &shown = shownIn(container);
    if (!m_sorting.isByName()) {
        // The model removes one row at a time, unless all its rows go.
        Q_ASSERT(first == last);
        const int id = m_model->tree().item(container).children.at(first);
        beginRemoval(container, placeOf(shown, id), isShown(container, id) ? 1 : 0);
        return;
    }
    const auto sourceRowLess = [this](int id, int row) { return m_model->tree().item(id).row < row; };
    const auto begin = std::lower_bound(shown.cbegin(), shown.cend(), first, sourceRowLess);
    const auto end = std::lower_bound(begin, shown.cend(), last + 1, sourceRowLess);
    beginRemoval(container, static_cast<int>(begin - shown.cbegin()), static_cast<int>(end - begin));
}

void RepoProxyModel::appendSorted(int id)
{
    m_sorting.append(m_model->tree(), id);
    m_sortTimer.start();
}

void RepoProxyModel::beginRemoval(int container, int first, int count)
{
    m_removeFrom = container;
    m_removeFirst = first;
    m_removeCount = count;
    if (count == 0)
        return;
    const int row = isReversed(container) ? sizeOf(shownIn(container)) - first - count : first;
    beginRemoveRows(indexOfId(container), row, row + count - 1);
}

void RepoProxyModel::endRemoval()
{
    if (m_removeCount == 0)
        return;
    Ids &shown = m_shown[m_removeFrom];
    const auto begin = shown.begin() + m_removeFirst;
    const Ids gone(begin, begin + m_removeCount);
    shown.erase(begin, begin + m_removeCount);
    m_removeCount = 0;
    for (const int id : gone)
        m_shown.remove(id);
    endRemoveRows();
}

void RepoProxyModel::sourceDataChanged(const QModelIndex &topLeft,
                                       const QModelIndex &bottomRight,
                                       const QVector<int> &roles)
{
    const QModelIndex parent = topLeft.parent();
    const int container = parent.isValid() ? RepoModel::itemId(parent) : TopId;
    if (container != TopId && isFiltering()) {
        const QVector<int> &children = m_model->tree().item(container).children;
        Ids changed; // rows whose visibility changes
        for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
            const int id = children.at(row);
            if (isShown(container, id) != accepts(m_model->tree().item(id)))
                changed.push_back(id);
        }
        if (sizeOf(changed) > RelayoutThreshold) {
            relayout();
        } else {
            for (const int id : changed) {
                if (!accepts(m_model->tree().item(id))) {
                    beginRemoval(container, placeOf(shownIn(container), id), 1);
                    endRemoval();
                } else {
                    insertShown(container, {id});
                }
            }
        }
    }
    QModelIndex first;
    QModelIndex last;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex shown = mapFromSource(topLeft.sibling(row, 0));
        if (!shown.isValid())
            continue;
        if (!first.isValid() || shown.row() < first.row())
            first = shown;
        if (!last.isValid() || shown.row() > last.row())
            last = shown;
    }
    if (!m_sorting.isByName() && !m_sortTimer.isActive())
        m_sortTimer.start();
    if (first.isValid())
        Q_EMIT dataChanged(first, last.siblingAtColumn(columnCount() - 1), roles);
}

// --- mapping -------------------------------------------------------------------------------------------------------

int RepoProxyModel::containerId(const QModelIndex &proxyIndex) const
{
    if (proxyIndex.isValid())
        return RepoModel::itemId(proxyIndex);
    return m_rootHidden ? PackageTree::RootId : TopId;
}

const RepoProxyModel::Ids &RepoProxyModel::shownIn(int container) const
{
    static const Ids none;
    const auto shown = m_shown.constFind(container);
    return shown == m_shown.constEnd() ? none : *shown;
}

bool RepoProxyModel::isShown(int container, int id) const
{
    const Ids &shown = shownIn(container);
    const int place = placeOf(shown, id);
    return place < sizeOf(shown) && shown[static_cast<std::size_t>(place)] == id;
}

bool RepoProxyModel::isReversed(int container) const
{
    // Only packages are sorted by another column than the first.
    const bool isSorted
        = m_sorting.isByName()
          || (container != TopId && m_model->tree().item(container).kind == RepoItem::Section);
    return isSorted && m_order == Qt::DescendingOrder;
}

int RepoProxyModel::mirrored(int place, int container) const
{
    return isReversed(container) ? sizeOf(shownIn(container)) - 1 - place : place;
}

int RepoProxyModel::placeOf(const Ids &shown, int id) const
{
    const PackageTree &tree = m_model->tree();
    const int wanted = m_sorting.place(tree, id);
    const auto place = std::lower_bound(shown.cbegin(), shown.cend(), wanted, [&](int other, int number) {
        return m_sorting.place(tree, other) < number;
    });
    return static_cast<int>(place - shown.cbegin());
}

QModelIndex RepoProxyModel::indexOfId(int id, int column) const
{
    if (m_model == nullptr || !m_model->hasRepository() || id < 0)
        return {};
    if (id == PackageTree::RootId)
        return m_rootHidden ? QModelIndex() : createIndex(0, column, static_cast<quintptr>(id));
    const int container = m_model->tree().item(id).parent;
    if (!isShown(container, id))
        return {};
    const Ids &shown = shownIn(container);
    return createIndex(mirrored(placeOf(shown, id), container), column, static_cast<quintptr>(id));
}

QModelIndex RepoProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    if (!proxyIndex.isValid() || m_model == nullptr)
        return {};
    const QModelIndex index = m_model->indexOfId(RepoModel::itemId(proxyIndex));
    return proxyIndex.column() == 0 ? index : index.siblingAtColumn(proxyIndex.column());
}

QModelIndex RepoProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    return sourceIndex.isValid() ? indexOfId(RepoModel::itemId(sourceIndex), sourceIndex.column())
                                 : QModelIndex();
}

QModelIndex RepoProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const int container = containerId(parent);
    if (container == TopId)
        return indexOfId(PackageTree::RootId, column);
    const int id = shownIn(container)[static_cast<std::size_t>(mirrored(row, container))];
    return createIndex(row, column, static_cast<quintptr>(id));
}

QModelIndex RepoProxyModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || m_model == nullptr)
        return {};
    return indexOfId(m_model->tree().item(RepoModel::itemId(child)).parent);
}

QModelIndex RepoProxyModel::sibling(int row, int column, const QModelIndex &index) const
{
    return this->index(row, column, parent(index));
}

int RepoProxyModel::rowCount(const QModelIndex &parent) const
{
    if (m_model == nullptr || !m_model->hasRepository() || parent.column() > 0)
        return 0;
    const int container = containerId(parent);
    return container == TopId ? 1 : sizeOf(shownIn(container));
}

int RepoProxyModel::columnCount(const QModelIndex &parent) const
{
    return m_model == nullptr
               ? 1
               : m_model->columnCount(parent.column() > 0 ? mapToSource(parent) : QModelIndex());
}

bool RepoProxyModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant RepoProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return m_model != nullptr ? m_model->headerData(section, orientation, role) : QVariant();
}
