// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/foundpackagesmodel.h"

#include "apt/versionorder.h"
#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <utility>

FoundPackagesModel::FoundPackagesModel(AliasLookup aliases, PresentLookup present, QObject *parent)
    : QAbstractTableModel(parent)
    , m_aliases(std::move(aliases))
    , m_present(std::move(present))
{ }

void FoundPackagesModel::setPackages(const QList<PackageInfo> &packages)
{
    beginResetModel();
    m_packages = packages;
    m_shownSources.clear();
    for (const PackageInfo &package : packages) {
        const QString &origin = package.repository;
        if (m_shownSources.contains(origin))
            continue;
        const QString alias = m_aliases ? m_aliases(origin) : QString();
        m_shownSources.insert(origin, alias.isEmpty() ? origin : alias);
    }
    endResetModel();
}

QStringList FoundPackagesModel::values(Column column) const
{
    QStringList values;
    values.reserve(m_packages.size());
    for (const PackageInfo &package : m_packages)
        values.append(text(package, column));
    values.removeDuplicates();
    values.sort();
    return values;
}

int FoundPackagesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_packages);
}

int FoundPackagesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FoundPackagesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const PackageInfo &package = m_packages.at(index.row());
    if (role == Qt::DisplayRole)
        return text(package, index.column());
    // The origin behind an alias, and the full text of a narrow column.
    if (role == Qt::ToolTipRole)
        return toolTipText(index.column() == RepositoryColumn ? package.repository
                                                              : text(package, index.column()));
    return {};
}

QVariant FoundPackagesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
        return {};
    switch (section) {
    case PackageColumn:
        return tr("Package");
    case ArchitectureColumn:
        return tr("Architecture");
    case VersionColumn:
        return tr("Version");
    case RepositoryColumn:
        return tr("Repository");
    case PresentColumn:
        return tr("Here already");
    default:
        return {};
    }
}

QString FoundPackagesModel::text(const PackageInfo &package, int column) const
{
    switch (column) {
    case PackageColumn:
        return package.name;
    case ArchitectureColumn:
        return package.architecture;
    case VersionColumn:
        return package.version;
    case RepositoryColumn:
        return m_shownSources.value(package.repository);
    case PresentColumn:
        return presentText(package);
    default:
        return {};
    }
}

QString FoundPackagesModel::presentText(const PackageInfo &package) const
{
    const QString version = m_present ? m_present(package) : QString();
    if (version.isEmpty())
        return {};
    const int order = VersionOrder::compare(version, package.version);
    if (order == 0)
        return tr("%1, the same version").arg(version);
    return order < 0 ? tr("%1, older").arg(version) : tr("%1, newer").arg(version);
}
