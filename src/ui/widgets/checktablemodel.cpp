// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/checktablemodel.h"

#include "core/countof.h"
#include "ui/widgets/tooltiptext.h"

#include <algorithm>
#include <utility>

CheckTableModel::CheckTableModel(QStringList headers, QObject *parent)
    : QAbstractTableModel(parent)
    , m_headers(std::move(headers))
{ }

void CheckTableModel::setRows(const QVector<Row> &rows)
{
    beginResetModel();
    m_rows = rows;
    endResetModel();
    showChecks();
}

void CheckTableModel::setChecked(const QList<int> &rows, bool checked)
{
    for (const int row : rows)
        m_rows[row].isChecked = checked;
    showChecks();
}

void CheckTableModel::setAllChecked(bool checked)
{
    for (Row &row : m_rows)
        row.isChecked = checked;
    showChecks();
}

void CheckTableModel::showChecks()
{
    m_checkedCount = static_cast<int>(
        std::count_if(m_rows.cbegin(), m_rows.cend(), [](const Row &row) { return row.isChecked; }));
    if (!m_rows.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(countOf(m_rows) - 1, 0), {Qt::CheckStateRole});
    Q_EMIT checksChanged();
}

int CheckTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_rows);
}

int CheckTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : countOf(m_headers);
}

QVariant CheckTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return m_headers.value(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}

QVariant CheckTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return row.texts.value(index.column());
    case Qt::ToolTipRole:
        return toolTipText(row.texts.value(index.column()));
    case Qt::CheckStateRole:
        if (index.column() == 0)
            return row.isChecked ? Qt::Checked : Qt::Unchecked;
        return {};
    default:
        return {};
    }
}

bool CheckTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || index.column() != 0 || role != Qt::CheckStateRole)
        return false;
    setChecked({index.row()}, value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags CheckTableModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    return index.isValid() && index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}
