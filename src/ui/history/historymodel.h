// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/history/restorepoint.h"
#include "ui/history/historytext.h"

#include <QAbstractItemModel>
#include <QVector>

/**
 * Restore points, the newest first, with their changes below them. A row is made when a view asks for it, so a point
 * with all packages of a large repository costs as much as a small one.
 */
class HistoryModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column {
        NameColumn, ///< time of a point, name of a package
        ChangeColumn,
        ArchitectureColumn,
        OldVersionColumn,
        NewVersionColumn,
        OriginColumn, ///< user of a point, origin of a package
        StateColumn,
        ColumnCount
    };

    explicit HistoryModel(QObject *parent = nullptr);

    void setPoints(const QVector<RestorePoint> &points);
    /** Whether these points are shown already. A point changes only in what deleting it would free. */
    bool hasPoints(const QVector<RestorePoint> &points) const;
    /** Shows only packages whose name contains `name`, and points with such packages. An empty name shows all. */
    void setFilter(const QString &name);
    bool isFiltered() const { return !m_filter.isEmpty(); }

    /** The point of the row, or of the row above it; null for no row. Valid until the model changes. */
    const RestorePoint *pointAt(const QModelIndex &index) const;
    /** The package of the row; null for a point. */
    const PackageChange *changeAt(const QModelIndex &index) const;
    /** The row of the point with this number. */
    QModelIndex indexOf(int number) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    /** A point that is shown. */
    struct Shown
    {
        int point = 0; ///< its place in m_points
        HistoryText::Counts counts; ///< of the rows that are shown
        QVector<int> rows; ///< places of the matching changes; unused without a filter
    };

    void show();
    QString pointText(const Shown &shown, int column) const;
    static QString changeText(const PackageChange &change, int column);

    QVector<RestorePoint> m_points;
    QVector<Shown> m_shown;
    QString m_filter;
};
