// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/depends/dependsproxymodel.h"

#include "ui/depends/dependsmodel.h"

DependsProxyModel::DependsProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{
    setSortCaseSensitivity(Qt::CaseInsensitive);
}

void DependsProxyModel::setStatusShown(int status, bool shown)
{
    const auto known = m_shown.constFind(status);
    if (known != m_shown.cend() && *known == shown)
        return;
    m_shown.insert(status, shown);
    invalidateFilter();
}

bool DependsProxyModel::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    const QVariant status = sourceModel()->index(row, 0, parent).data(DependsModel::StatusRole);
    return status.isValid() ? isStatusShown(status.toInt())
                            : QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

bool DependsProxyModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (left.column() == 0)
        return QSortFilterProxyModel::lessThan(left, right);
    constexpr int NoMark = 2; // after every state
    const auto place = [](const QModelIndex &index) {
        const QVariant status = index.data(DependsModel::SourceStatusRole);
        return status.isValid() ? status.toInt() : NoMark;
    };
    return place(left) < place(right);
}
