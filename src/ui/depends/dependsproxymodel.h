// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSortFilterProxyModel>

/**
 * Shows the rows of the dependency tree whose state is enabled, at every level. A state is disabled until it is
 * enabled. Sorts by text, or by the state in the column of a source.
 */
class DependsProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    explicit DependsProxyModel(QObject *parent = nullptr);

    void setStatusShown(int status, bool shown);
    bool isStatusShown(int status) const { return m_shown.value(status, false); }

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    QMap<int, bool> m_shown; ///< by state
};
