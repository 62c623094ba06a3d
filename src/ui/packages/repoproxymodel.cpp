// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repoproxymodel.h"

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
{ }

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

void RepoProxyModel::breakingChanged()
{
    // Rows without a change of their own come and go with the reasons of other rows.
    if (m_faults.testFlag(BreaksOthers))
        relayout();
}

void RepoProxyModel::setRepositoryItemHidden(bool hidden)
{
    if (m_rootHidden == hidden)
        return;
    beginResetModel();
    m_rootHidden = hidden;
    endResetModel();
}

void RepoProxyModel::sort(int column, Qt::SortOrder order)
{
    if (column > 0 || m_order == order)
        return;
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    m_order = order;
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after.append(indexOfId(RepoModel::itemId(index)));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void RepoProxyModel::relayout()
{
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    rebuild();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex &index : before)
        after.append(indexOfId(RepoModel::itemId(index)));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
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
    if (m_faults != 0 && !hasFault(item))
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
        return;
    }
    shown.assign(container.children.cbegin(), container.children.cend());
    if (container.kind == RepoItem::Section)
        return;
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
    const int row = m_order == Qt::AscendingOrder ? place : sizeOf(shown) - place;
    beginInsertRows(indexOfId(container), row, row + sizeOf(ids) - 1);
    shown.insert(shown.begin() + place, ids.begin(), ids.end());
    endInsertRows();
}

void RepoProxyModel::sourceRowsAboutToBeRemoved(const QModelIndex &parent, int first, int last)
{
    const int container = RepoModel::itemId(parent);
    const Ids &shown = shownIn(container);
    const auto sourceRowLess = [this](int id, int row) { return m_model->tree().item(id).row < row; };
    const auto begin = std::lower_bound(shown.cbegin(), shown.cend(), first, sourceRowLess);
    const auto end = std::lower_bound(begin, shown.cend(), last + 1, sourceRowLess);
    beginRemoval(container, static_cast<int>(begin - shown.cbegin()), static_cast<int>(end - begin));
}

void RepoProxyModel::beginRemoval(int container, int first, int count)
{
    m_removeFrom = container;
    m_removeFirst = first;
    m_removeCount = count;
    if (count == 0)
        return;
    const int row = m_order == Qt::AscendingOrder ? first : sizeOf(shownIn(container)) - first - count;
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
    if (first.isValid())
        Q_EMIT dataChanged(first, last, roles);
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

int RepoProxyModel::mirrored(int place, const Ids &shown) const
{
    return m_order == Qt::AscendingOrder ? place : sizeOf(shown) - 1 - place;
}

int RepoProxyModel::placeOf(const Ids &shown, int id) const
{
    const int row = m_model->tree().item(id).row;
    const auto place = std::lower_bound(shown.cbegin(), shown.cend(), row, [this](int other, int wanted) {
        return m_model->tree().item(other).row < wanted;
    });
    return static_cast<int>(place - shown.cbegin());
}

QModelIndex RepoProxyModel::indexOfId(int id) const
{
    if (m_model == nullptr || !m_model->hasRepository() || id < 0)
        return {};
    if (id == PackageTree::RootId)
        return m_rootHidden ? QModelIndex() : createIndex(0, 0, static_cast<quintptr>(id));
    const int container = m_model->tree().item(id).parent;
    if (!isShown(container, id))
        return {};
    const Ids &shown = shownIn(container);
    return createIndex(mirrored(placeOf(shown, id), shown), 0, static_cast<quintptr>(id));
}

QModelIndex RepoProxyModel::mapToSource(const QModelIndex &proxyIndex) const
{
    if (!proxyIndex.isValid() || m_model == nullptr)
        return {};
    return m_model->indexOfId(RepoModel::itemId(proxyIndex));
}

QModelIndex RepoProxyModel::mapFromSource(const QModelIndex &sourceIndex) const
{
    return sourceIndex.isValid() ? indexOfId(RepoModel::itemId(sourceIndex)) : QModelIndex();
}

QModelIndex RepoProxyModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const int container = containerId(parent);
    if (container == TopId)
        return indexOfId(PackageTree::RootId);
    const Ids &shown = shownIn(container);
    const int id = shown[static_cast<std::size_t>(mirrored(row, shown))];
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
    if (m_model == nullptr || !m_model->hasRepository())
        return 0;
    const int container = containerId(parent);
    return container == TopId ? 1 : sizeOf(shownIn(container));
}

int RepoProxyModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return 1;
}

bool RepoProxyModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QVariant RepoProxyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return m_model != nullptr ? m_model->headerData(section, orientation, role) : QVariant();
}
