// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/preview/packagedifference.h"

#include <QAbstractTableModel>

/** The lines in which two packages differ. */
class DifferenceModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { Part, Name, Before, After, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    void setLines(const QVector<PackageDifference::Line> &lines);
    /** The rows as lines of text, with tabs between the columns. */
    QString textOf(const QModelIndexList &rows) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QString text(int row, int column) const;

    QVector<PackageDifference::Line> m_lines;
};
