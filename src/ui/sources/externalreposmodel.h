// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/externalrepos.h"

#include <QAbstractTableModel>

/** The list of external repositories as a table; an edit that is under way outlives the arrival of apt's answer. */
class ExternalReposModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column { SourceColumn, AliasColumn, ColumnCount };

    ExternalReposModel(const ExternalRepos &repos, QObject *parent);

    const ExternalRepos &repos() const { return m_repos; }
    /** Takes over what apt knows. */
    void merge(const QStringList &knownSources);
    /** Adds a source, or replaces the one at `row`. Returns its row, -1 when it is refused. */
    int setSource(const QString &source, int row = -1);
    /** Whether the entry is the user's to edit and to remove. */
    bool isOwn(int row) const;
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
    QVector<ExternalRepos::Entry> m_rows; ///< the entries as the views have been told of them
    bool m_aptAnswered = false;
};
