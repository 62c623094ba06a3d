// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QSortFilterProxyModel>

/** Limits the found packages to one architecture and one source. Sorts versions in the order of dpkg. */
class FoundPackagesProxy : public QSortFilterProxyModel
{
    Q_OBJECT
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /** Shows only rows with this text in the column; a null text shows all rows. */
    void setWanted(int column, const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    QMap<int, QString> m_wanted; ///< by column
};
