// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/packagechange.h"

#include <QAbstractTableModel>
#include <QVector>

/** Changes of packages, a row each. Rows are made when a view asks for them. */
class ChangesModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column {
        NameColumn,
        ChangeColumn,
        ArchitectureColumn,
        ComponentColumn,
        OldVersionColumn,
        NewVersionColumn,
        ColumnCount
    };

    explicit ChangesModel(QObject *parent = nullptr);

    void setChanges(const QVector<PackageChange> &changes);
    /** Shows only packages whose name contains `name`. */
    void setFilter(const QString &name);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void show();

    QVector<PackageChange> m_changes;
    QVector<int> m_rows; ///< places of the changes that are shown
    QString m_filter;
};
