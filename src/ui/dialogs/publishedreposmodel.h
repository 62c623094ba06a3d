// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "publication/publicationmonitor.h"

#include <QAbstractTableModel>
#include <QHash>

/** The publications of this machine as a table. After an update, a publication that still exists keeps its row. */
class PublishedReposModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { RepositoryColumn, TypeColumn, AddressColumn, PortColumn, StateColumn, ColumnCount };
    static constexpr int SortRole = Qt::UserRole;

    explicit PublishedReposModel(QObject *parent);

    void setPublications(const QVector<Publication> &publications);
    /** Sets the host for addresses; `ofPorts` has other hosts for single ports. */
    void setHosts(const QString &usual, const QHash<int, QString> &ofPorts);
    /** The publication in this row, which must exist. */
    const Publication &publication(int row) const { return m_rows.at(row); }
    QString address(int row) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QString text(int row, int column) const;

    QVector<Publication> m_rows;
    QString m_host;
    QHash<int, QString> m_hostsOfPorts;
};
