// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/search/foundpackagesproxy.h"

#include "apt/versionorder.h"
#include "ui/search/foundpackagesmodel.h"

#include <algorithm>

void FoundPackagesProxy::setWanted(int column, const QString &text)
{
    if (m_wanted.value(column) == text)
        return;
    m_wanted.insert(column, text);
    invalidateFilter();
}

bool FoundPackagesProxy::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    return std::all_of(m_wanted.keyBegin(), m_wanted.keyEnd(), [&](int column) {
        const QString wanted = m_wanted.value(column);
        return wanted.isNull() || sourceModel()->index(row, column, parent).data().toString() == wanted;
    });
}

bool FoundPackagesProxy::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (left.column() != FoundPackagesModel::VersionColumn)
        return QSortFilterProxyModel::lessThan(left, right);
    return VersionOrder::compare(left.data().toString(), right.data().toString()) < 0;
}
