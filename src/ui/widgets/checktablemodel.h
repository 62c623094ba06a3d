// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QVector>

/** Rows of texts that can be chosen. Each row has a check box in its first column. */
class CheckTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    /** One row of the table. */
    struct Row
    {
        QStringList texts; ///< one text for each column
        bool isChecked = false;
    };

    CheckTableModel(QStringList headers, QObject *parent);

    void setRows(const QVector<Row> &rows);
    bool isChecked(int row) const { return m_rows.at(row).isChecked; }
    int checkedCount() const { return m_checkedCount; }
    bool areAllChecked() const { return !m_rows.isEmpty() && m_checkedCount == m_rows.size(); }
    void setChecked(const QList<int> &rows, bool checked);
    void setAllChecked(bool checked);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /** The set of chosen rows has changed. */
    void checksChanged();

private:
    void showChecks();

    QStringList m_headers;
    QVector<Row> m_rows;
    int m_checkedCount = 0;
};
