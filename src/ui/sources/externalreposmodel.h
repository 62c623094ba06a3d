// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"

#include <QAbstractTableModel>

/** The list of external repositories as a table. An open editor stays open when apt's answer arrives. */
class ExternalReposModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { SourceColumn, AliasColumn, ColumnCount };

    ExternalReposModel(const ExternalRepos &repos, QObject *parent);

    const ExternalRepos &repos() const { return m_repos; }
    /** Adds the sources that apt knows. */
    void merge(const QStringList &knownSources);
    /** Adds a source, or replaces the one at `row`. Returns its row, or -1 when it is refused. */
    int setSource(const QString &source, int row = -1);
    /** Whether the user may edit and remove the entry. */
    bool isOwn(int row) const;
    /** Deletes an entry; false when apt knows the source. */
    bool removeOwn(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    QString toolTip(const ExternalRepos::Entry &entry) const;

    ExternalRepos m_repos;
    QVector<ExternalRepos::Entry> m_rows; ///< the entries as they were announced to the views
    bool m_aptAnswered = false;
};
