// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/dependsmodel.h"

#include "core/countof.h"
#include "ui/depends/packagedependitem.h"
#include "ui/depends/packageitem.h"
#include "ui/widgets/tooltiptext.h"

#include <QIcon>
#include <QSet>

#include <algorithm>

namespace
{
QIcon statusIcon(DependStatus status)
{
    switch (status) {
    case DependUndefined:
        return QIcon::fromTheme(QStringLiteral("dialog-question"));
    case DependSuccess:
        return QIcon::fromTheme(QStringLiteral("dialog-ok-apply"));
    case DependError:
        break;
    }
    return QIcon::fromTheme(QStringLiteral("dialog-close"));
}

/** Whether the source is an origin text, which begins with an address. The local repository is a plain word. */
bool isOrigin(const QString &source)
{
    return source.contains(QLatin1String(":/"));
}

void collectSources(const Dependency &dependency, QSet<QString> &sources)
{
    for (auto found = dependency.foundVersions.keyBegin(); found != dependency.foundVersions.keyEnd();
         ++found)
        sources.insert(*found);
    for (const Dependency &provider : dependency.providers)
        collectSources(provider, sources);
}

void collectSources(const PackageInfo &package, QSet<QString> &sources)
{
    if (!package.dependsInfo)
        return;
    for (const DependencyGroup &entry : package.dependsInfo->groups) {
        for (const Dependency &alternative : entry.alternatives)
            collectSources(alternative, sources);
    }
}

QStringList inColumnOrder(const QSet<QString> &sources)
{
    QStringList order = sources.values();
    std::sort(order.begin(), order.end(), [](const QString &a, const QString &b) {
        return isOrigin(a) != isOrigin(b) ? isOrigin(b) : a < b;
    });
    return order;
}
} // namespace

DependsModel::DependsModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<DependsItem>(QStringLiteral("root")))
{ }

DependsModel::~DependsModel() = default;

DependsModel::Key DependsModel::keyOf(const PackageInfo &package)
{
    // With component and type of the index, because a name can be an ordinary package and an installer package.
    const QString kind = package.type == PackageType::Udeb ? QStringLiteral("u") : QStringLiteral("d");
    return {package.name, kind + package.architecture + QLatin1Char('/') + package.indexComponent};
}

void DependsModel::setAliases(const AliasLookup &aliases)
{
    m_aliases = aliases;
    if (!m_sources.isEmpty())
        Q_EMIT headerDataChanged(Qt::Horizontal, 1, countOf(m_sources));
}

void DependsModel::setPackages(const QList<PackageInfoPtr> &packages)
{
    QSet<QString> sources;
    for (const PackageInfoPtr &package : packages)
        collectSources(*package, sources);

    beginResetModel();
    m_root = std::make_unique<DependsItem>(QStringLiteral("root"));
    m_packages.clear();
    m_packages.reserve(packages.size());
    m_sources = inColumnOrder(sources);
    for (const PackageInfoPtr &package : packages)
        append(package);
    endResetModel();
}

void DependsModel::updatePackage(const PackageInfoPtr &package)
{
    QSet<QString> sources(m_sources.cbegin(), m_sources.cend());
    collectSources(*package, sources);
    PackageItem *item = m_packages.value(keyOf(*package));
    if (sources.size() > m_sources.size()) {
        // A new column changes every row of the tree. This happens once for each source.
        beginResetModel();
        m_sources = inColumnOrder(sources);
        if (item != nullptr)
            item->setPackage(package);
        else
            append(package);
        endResetModel();
    } else if (item != nullptr) {
        replace(*item, package);
    } else {
        beginInsertRows({}, m_root->childCount(), m_root->childCount());
        append(package);
        endInsertRows();
    }
}

void DependsModel::append(const PackageInfoPtr &package)
{
    auto item = std::make_unique<PackageItem>(package);
    m_packages.insert(keyOf(*package), item.get());
    m_root->appendChild(std::move(item));
}

void DependsModel::replace(PackageItem &item, const PackageInfoPtr &package)
{
    const QModelIndex first = createIndex(item.row(), 0, &item);
    const PackageInfoPtr earlier = item.package();
    if (item.entryCount() > 0) {
        PackageInfo bare = *earlier;
        bare.dependsInfo.clear();
        beginRemoveRows(first, 0, item.entryCount() - 1);
        item.setPackage(PackageInfoPtr::create(bare));
        endRemoveRows();
    }
    const int entries = package->dependsInfo ? countOf(package->dependsInfo->groups) : 0;
    if (entries > 0)
        beginInsertRows(first, 0, entries - 1);
    item.setPackage(package);
    if (entries > 0)
        endInsertRows();
    Q_EMIT dataChanged(first, createIndex(item.row(), columnCount() - 1, &item));
}

QVector<Dependency> DependsModel::alternativesAt(const QModelIndex &index) const
{
    return itemAt(index)->alternatives();
}

DependsItem *DependsModel::itemAt(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<DependsItem *>(index.internalPointer()) : m_root.get();
}

QModelIndex DependsModel::index(int row, int column, const QModelIndex &parent) const
{
    DependsItem *child = column >= 0 && column < columnCount() && parent.column() <= 0
                             ? itemAt(parent)->child(row)
                             : nullptr;
    return child != nullptr ? createIndex(row, column, child) : QModelIndex();
}

QModelIndex DependsModel::parent(const QModelIndex &index) const
{
    DependsItem *parent = itemAt(index)->parent();
    return parent == nullptr || parent == m_root.get() ? QModelIndex()
                                                       : createIndex(parent->row(), 0, parent);
}

int DependsModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : itemAt(parent)->childCount();
}

int DependsModel::columnCount(const QModelIndex & /*parent*/) const
{
    return 1 + countOf(m_sources);
}

QVariant DependsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const DependsItem &item = *itemAt(index);
    if (role == StatusRole)
        return static_cast<int>(item.status());
    if (index.column() > 0)
        return sourceData(item, m_sources.at(index.column() - 1), role);
    switch (role) {
    case Qt::DecorationRole:
        // When no source offers anything, there is no other column to show the state.
        return m_sources.isEmpty() ? QVariant(statusIcon(item.status())) : QVariant();
    case Qt::DisplayRole:
        return item.text();
    case Qt::ToolTipRole:
        return toolTipText(item.explanation());
    case Qt::AccessibleDescriptionRole:
        return item.explanation();
    default:
        return {};
    }
}

QVariant DependsModel::sourceData(const DependsItem &item, const QString &source, int role) const
{
    const auto status = item.sourceStatus(source);
    switch (role) {
    case Qt::DecorationRole:
        return status ? QVariant(statusIcon(*status)) : QVariant();
    case SourceStatusRole:
        return status ? QVariant(static_cast<int>(*status)) : QVariant();
    case Qt::ToolTipRole:
        return toolTipText(item.sourceExplanation(source, shownSource(source)));
    case Qt::AccessibleTextRole:
        return item.sourceExplanation(source, shownSource(source));
    default:
        return {};
    }
}

QVariant DependsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool asked = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    if (!asked || orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    if (section == 0)
        return tr("Package");
    const QString &source = m_sources.at(section - 1);
    return role == Qt::DisplayRole ? shownSource(source) : toolTipText(source);
}

QString DependsModel::shownSource(const QString &source) const
{
    const QString alias = m_aliases && isOrigin(source) ? m_aliases(source) : QString();
    return alias.isEmpty() ? source : alias;
}
