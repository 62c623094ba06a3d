// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/repomodel.h"

#include "core/countof.h"
#include "ui/packages/repoitemlook.h"
#include "ui/widgets/tooltiptext.h"

#include <QSet>

#include <algorithm>
#include <utility>

RepoModel::RepoModel(QObject *parent)
    : QAbstractItemModel(parent)
{ }

void RepoModel::setRepository(const RepoInfo &info)
{
    m_info = info;
    if (m_hasRepository) {
        m_tree.setRootTitle(info.name);
        const QModelIndex top = indexOfId(PackageTree::RootId);
        Q_EMIT dataChanged(top, top);
        return;
    }
    beginResetModel();
    m_tree.setRootTitle(info.name);
    m_hasRepository = true;
    endResetModel();
}

void RepoModel::clearRepository()
{
    if (!m_hasRepository && packageCount() == 0)
        return;
    beginResetModel();
    m_hasRepository = false;
    m_info = {};
    m_tree.build({});
    endResetModel();
}

void RepoModel::setPackages(const QList<PackageInfoPtr> &packages)
{
    beginResetModel();
    m_tree.build(packages);
    endResetModel();
    announceBreaking();
}

// --- changes of the package list -----------------------------------------------------------------------------------

void RepoModel::apply(const ListChanges &changes)
{
    const auto isCleared = [](const ListChange &change) { return change.kind == ListChange::Cleared; };
    const auto listing = std::find_if(changes.crbegin(), changes.crend(), isCleared).base();
    if (packageCount() == 0 || listing != changes.cbegin()) {
        // A repository is being opened: the changes are all its packages in their order.
        const bool removed = std::any_of(listing, changes.cend(), [](const ListChange &change) {
            return change.kind == ListChange::Removed;
        });
        if (!removed && changes.cend() - listing > ResetThreshold) {
            setListing(listing, changes.cend());
            return;
        }
    }
    if (m_hasRepository && applyRecords(changes))
        return;
    bool cleared = false;
    QHash<PackageKey, ListChange> last; // only the last change of each package counts
    last.reserve(changes.size());
    for (const ListChange &change : changes) {
        if (change.kind == ListChange::Cleared) {
            cleared = true;
            last.clear();
        } else {
            last.insert(PackageKey::of(*change.package), change);
        }
    }
    if (cleared || !m_hasRepository || newRows(last) > ResetThreshold) {
        rebuild(last, cleared);
        return;
    }
    Touched touched;
    QVector<QPair<int, PackageInfoPtr>> replaced;
    for (auto it = last.cbegin(); it != last.cend(); ++it) {
        const int id = m_tree.packageId(it.key());
        const bool stored = it->kind == ListChange::Stored;
        if (id >= 0 && stored && m_tree.isInPlace(id, *it->package)) {
            replaced.append({id, it->package});
            continue;
        }
        if (id >= 0)
            remove(id, touched);
        if (stored)
            store(it->package, touched);
    }
    // The rows stay valid until they are announced, because nothing is inserted or removed any more.
    for (const auto &[id, package] : std::as_const(replaced)) {
        touchContainers(m_tree.item(id).parent, touched);
        m_tree.replace(id, package);
        touchRow(id, touched);
    }
    announce(touched);
}

void RepoModel::setListing(const ListChanges::const_iterator &begin, const ListChanges::const_iterator &end)
{
    QList<PackageInfoPtr> packages;
    packages.reserve(static_cast<int>(end - begin));
    for (auto change = begin; change != end; ++change)
        packages.append(change->package);
    setPackages(packages);
}

bool RepoModel::applyRecords(const ListChanges &changes)
{
    QSet<PackageKey> rows;
    QVector<int> ids;
    ids.reserve(changes.size());
    for (const ListChange &change : changes) {
        if (change.kind != ListChange::Stored)
            return false;
        // More need not be counted.
        if (rows.size() > ResetThreshold)
            continue;
        const PackageKey key = PackageKey::of(*change.package);
        const int id = m_tree.packageId(key);
        if (id < 0)
            rows.insert(key);
        else if (m_tree.isInPlace(id, *change.package))
            ids.append(id);
    }
    // Of several records of one package the last one counts, also in PackageTree::build().
    if (rows.size() > ResetThreshold) {
        QList<PackageInfoPtr> packages = m_tree.packages();
        packages.reserve(packages.size() + changes.size());
        for (const ListChange &change : changes)
            packages.append(change.package);
        setPackages(packages);
        return true;
    }
    if (ids.size() != changes.size())
        return false;
    Touched touched;
    int section = -1;
    for (int i = 0; i < ids.size(); ++i) {
        const int parent = m_tree.item(ids.at(i)).parent;
        if (parent != section)
            touchContainers(parent, touched);
        section = parent;
        m_tree.replace(ids.at(i), changes.at(i).package);
        touchRow(ids.at(i), touched);
    }
    announce(touched);
    return true;
}

int RepoModel::newRows(const QHash<PackageKey, ListChange> &changes) const
{
    int rows = 0;
    for (auto it = changes.cbegin(); it != changes.cend(); ++it) {
        const int id = m_tree.packageId(it.key());
        const bool stored = it->kind == ListChange::Stored;
        if (id < 0 ? stored : !stored || !m_tree.isInPlace(id, *it->package))
            ++rows;
    }
    return rows;
}

void RepoModel::rebuild(const QHash<PackageKey, ListChange> &changes, bool cleared)
{
    QList<PackageInfoPtr> packages;
    if (!cleared) {
        const QList<PackageInfoPtr> present = m_tree.packages();
        for (const PackageInfoPtr &package : present) {
            if (!changes.contains(PackageKey::of(*package)))
                packages.append(package);
        }
    }
    for (const ListChange &change : changes) {
        if (change.kind == ListChange::Stored)
            packages.append(change.package);
    }
    setPackages(packages);
}

void RepoModel::store(const PackageInfoPtr &package, Touched &touched)
{
    const int component = ensureContainer(PackageTree::RootId, RepoItem::Component, package->component);
    const int section = ensureContainer(component, RepoItem::Section, package->section);
    touchContainers(section, touched);
    const RepoItem item = m_tree.makePackage(package);
    const int row = m_tree.rowFor(item, section);
    beginInsertRows(indexOfId(section), row, row);
    m_tree.insert(item, section, row);
    endInsertRows();
    updateBeside(section, row);
}

void RepoModel::remove(int id, Touched &touched)
{
    const int section = m_tree.item(id).parent;
    const int place = m_tree.item(id).row;
    touchContainers(section, touched);
    // A container is removed together with its last child.
    while (id != PackageTree::RootId && m_tree.item(id).children.isEmpty()) {
        const int container = m_tree.item(id).parent;
        const int row = m_tree.item(id).row;
        beginRemoveRows(indexOfId(container), row, row);
        m_tree.take(id);
        endRemoveRows();
        touched.marks.remove(id);
        touched.rows.remove(id);
        id = container;
    }
    if (id == section)
        updateBeside(section, place);
}

int RepoModel::ensureContainer(int parentId, RepoItem::Kind kind, const QString &code)
{
    const int known = m_tree.containerId(parentId, code);
    if (known >= 0)
        return known;
    const RepoItem item = m_tree.makeContainer(kind, code);
    const int row = m_tree.rowFor(item, parentId);
    beginInsertRows(indexOfId(parentId), row, row);
    const int id = m_tree.insert(item, parentId, row);
    endInsertRows();
    return id;
}

void RepoModel::touchContainers(int section, Touched &touched) const
{
    for (int id = section; id >= 0; id = m_tree.item(id).parent) {
        if (!touched.marks.contains(id))
            touched.marks.insert(id, marksOf(m_tree.item(id)));
    }
}

void RepoModel::touchRow(int id, Touched &touched) const
{
    const RepoItem &item = m_tree.item(id);
    const auto known = touched.rows.find(item.parent);
    if (known == touched.rows.end())
        touched.rows.insert(item.parent, {item.row, item.row});
    else
        *known = {qMin(known->first, item.row), qMax(known->second, item.row)};
}

void RepoModel::updateBeside(int section, int row)
{
    for (int near = qMax(0, row - 1); near <= row + 1 && near < m_tree.item(section).children.size();
         ++near) {
        const int id = m_tree.item(section).children.at(near);
        const QModelIndex beside = indexOfId(id);
        if (m_tree.updateDistinction(id))
            Q_EMIT dataChanged(beside, beside, {Qt::DisplayRole});
    }
}

void RepoModel::announce(const Touched &touched)
{
    for (auto it = touched.rows.cbegin(); it != touched.rows.cend(); ++it) {
        const QModelIndex section = indexOfId(it.key());
        Q_EMIT dataChanged(index(it->first, 0, section), index(it->second, 0, section));
    }
    for (auto it = touched.marks.cbegin(); it != touched.marks.cend(); ++it) {
        const QModelIndex container = indexOfId(it.key());
        if (marksOf(m_tree.item(it.key())) != it.value())
            Q_EMIT dataChanged(container, container, {Qt::DecorationRole, StateRole, InstallabilityRole});
    }
    announceBreaking();
}

void RepoModel::announceBreaking()
{
    if (m_breakingRevision == m_tree.breaking().revision())
        return;
    m_breakingRevision = m_tree.breaking().revision();
    Q_EMIT breakingChanged();
}

void RepoModel::announcePackages(const QVector<int> &roles)
{
    for (const int component : m_tree.root().children) {
        for (const int section : m_tree.item(component).children) {
            const QModelIndex container = indexOfId(section);
            Q_EMIT dataChanged(index(0, 0, container), index(rowCount(container) - 1, 0, container), roles);
        }
    }
}

// --- what is shown -------------------------------------------------------------------------------------------------

void RepoModel::setShowVersions(bool show)
{
    if (m_showVersions == show)
        return;
    m_showVersions = show;
    if (m_hasRepository)
        announcePackages({Qt::DisplayRole, TextRole});
}

void RepoModel::setColumns(const PackageColumns::Columns &columns)
{
    if (columns == m_columns)
        return;
    beginResetModel();
    m_columns = columns;
    endResetModel();
}

void RepoModel::setAdded(const QVector<QPair<PackageInfoPtr, qint64>> &times)
{
    for (const auto &[package, time] : times) {
        const int id = m_tree.packageId(PackageKey::of(*package));
        if (id >= 0 && m_tree.item(id).package->version == package->version)
            m_tree.setAdded(id, time);
    }
    if (m_hasRepository)
        announcePackages({Qt::DisplayRole});
}

void RepoModel::setInstallabilityStale(bool isStale)
{
    if (m_isStale == isStale)
        return;
    m_isStale = isStale;
    if (!m_hasRepository)
        return;
    const QVector<int> roles{Qt::DecorationRole, Qt::ToolTipRole, Qt::AccessibleDescriptionRole};
    const QModelIndex top = indexOfId(PackageTree::RootId);
    Q_EMIT dataChanged(top, top, roles);
    const auto announceRows = [&](const QModelIndex &container) {
        if (rowCount(container) > 0)
            Q_EMIT dataChanged(index(0, 0, container), index(rowCount(container) - 1, 0, container), roles);
    };
    announceRows(top);
    for (int row = 0; row < rowCount(top); ++row)
        announceRows(index(row, 0, top));
    announcePackages(roles);
}

int RepoModel::dependState(const QModelIndex &index) const
{
    return index.isValid() ? m_tree.item(itemId(index)).dependState() : NoDependState;
}

PackageInfoPtr RepoModel::package(const QModelIndex &index) const
{
    return index.isValid() ? m_tree.item(itemId(index)).package : PackageInfoPtr();
}

int RepoModel::packageCount(DependStatus status) const
{
    return m_tree.root().stateCounts[static_cast<std::size_t>(status - DependUndefined)];
}

QString RepoModel::itemKey(const QModelIndex &index) const
{
    return index.isValid() ? m_tree.keyOf(itemId(index)) : QString();
}

QModelIndex RepoModel::indexOfPackage(const PackageInfo &package) const
{
    return indexOfId(m_tree.packageId(PackageKey::of(package)));
}

QModelIndex RepoModel::indexOfId(int id) const
{
    if (id < 0 || !m_hasRepository)
        return {};
    return createIndex(m_tree.item(id).row, 0, static_cast<quintptr>(id));
}

QString RepoModel::displayText(const RepoItem &item) const
{
    if (item.isContainer())
        return item.title;
    if (!m_showVersions)
        return item.package->name;
    return item.package->name + QLatin1Char('_') + item.package->version;
}

QString RepoModel::distinctText(const RepoItem &item) const
{
    const QString text = displayText(item);
    QStringList marks;
    if (item.differsInArchitecture)
        marks << item.package->architecture;
    if (item.differsInType && item.package->type == PackageType::Udeb)
        marks << QStringLiteral("udeb");
    return marks.isEmpty() ? text : tr("%1 (%2)").arg(text, marks.join(QLatin1String(", ")));
}

QString RepoModel::toolTip(const RepoItem &item) const
{
    QStringList lines;
    // A repository with one architecture needs no such hint.
    if (!item.isContainer() && m_info.binaryArchitectures().size() > 1)
        lines << tr("Architecture: %1").arg(item.package->architecture);
    const bool breaksOthers = !item.isContainer() && m_tree.breaking().contains(*item.package);
    const QString installability = RepoItemLook::installability(item, breaksOthers, m_isStale);
    if (!installability.isEmpty())
        lines << installability;
    return lines.join(QLatin1Char('\n'));
}

// --- the model's face ----------------------------------------------------------------------------------------------

QModelIndex RepoModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(0, column, static_cast<quintptr>(PackageTree::RootId));
    return createIndex(row, column, static_cast<quintptr>(m_tree.item(itemId(parent)).children.at(row)));
}

QModelIndex RepoModel::parent(const QModelIndex &child) const
{
    return child.isValid() ? indexOfId(m_tree.item(itemId(child)).parent) : QModelIndex();
}

int RepoModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_hasRepository ? 1 : 0;
    if (parent.column() > 0)
        return 0;
    return countOf(m_tree.item(itemId(parent)).children);
}

int RepoModel::columnCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : countOf(m_columns);
}

QVariant RepoModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const RepoItem &item = m_tree.item(itemId(index));
    if (index.column() > 0)
        return PackageColumns::data(m_columns.at(index.column()), item, role);
    switch (role) {
    case Qt::DisplayRole:
        return distinctText(item);
    case TextRole:
        return displayText(item);
    case Qt::DecorationRole:
        return RepoItemLook::icon(item, m_isStale);
    case Qt::FontRole:
        return item.kind == RepoItem::Repository ? QVariant(RepoItemLook::topFont()) : QVariant();
    case Qt::ToolTipRole:
        return toolTipText(toolTip(item));
    case Qt::AccessibleDescriptionRole:
        return toolTip(item);
    case StateRole:
        return item.dependState();
    case InstallabilityRole:
        return item.installability();
    default:
        return {};
    }
}

bool RepoModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    bool isNumber = false;
    const int state = value.toInt(&isNumber);
    if (role != StateRole || !isNumber || !package(index))
        return false;
    Touched touched;
    touchContainers(m_tree.item(itemId(index)).parent, touched);
    m_tree.setState(itemId(index), state);
    touchRow(itemId(index), touched);
    announce(touched);
    return true;
}

Qt::ItemFlags RepoModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
    return package(index) ? flags | Qt::ItemNeverHasChildren : flags;
}

QVariant RepoModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section < 0 || section >= m_columns.size() || orientation != Qt::Horizontal)
        return {};
    return PackageColumns::headerData(m_columns.at(section), role);
}
