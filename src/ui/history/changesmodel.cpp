// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/history/changesmodel.h"

#include "core/countof.h"
#include "ui/history/historytext.h"

#include <utility>

ChangesModel::ChangesModel(QObject *parent)
    : QAbstractTableModel(parent)
{ }

void ChangesModel::setChanges(const QVector<PackageChange> &changes)
{
    beginResetModel();
    m_changes = changes;
    show();
    endResetModel();
}

void ChangesModel::setFilter(const QString &name)
{
    beginResetModel();
    // Names of packages have no capital letters.
    m_filter = name.trimmed().toLower();
    show();
    endResetModel();
}

void ChangesModel::show()
{
    m_rows.clear();
    for (int row = 0; row < m_changes.size(); ++row) {
        if (std::as_const(m_changes)[row].name.contains(m_filter))
            m_rows.append(row);
    }
}

int ChangesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_rows);
}

int ChangesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ChangesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    const PackageChange &change = m_changes.at(m_rows.at(index.row()));
    switch (index.column()) {
    case NameColumn:
        return change.name;
    case ChangeColumn:
        return HistoryText::kind(change.kind);
    case ArchitectureColumn:
        return change.architecture;
    case ComponentColumn:
        return change.component;
    case OldVersionColumn:
        return change.before.version;
    case NewVersionColumn:
        return change.after.version;
    default:
        return {};
    }
}

QVariant ChangesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case NameColumn:
        return tr("Package");
    case ChangeColumn:
        return tr("Change");
    case ArchitectureColumn:
        return tr("Architecture");
    case ComponentColumn:
        return tr("Component");
    case OldVersionColumn:
        return tr("Old version");
    case NewVersionColumn:
        return tr("New version");
    default:
        return {};
    }
}
