// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QAbstractTableModel>

#include <functional>

/** The packages that a search has found. Shows the user's names of sources; the records keep the origins. */
class FoundPackagesModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    /** The user's name for an origin; the origin itself or an empty text when there is none. */
    using AliasLookup = std::function<QString(const QString &origin)>;
    /** The version that the repository has of a package; empty when it has none. */
    using PresentLookup = std::function<QString(const PackageInfo &package)>;
    enum Column {
        PackageColumn,
        ArchitectureColumn,
        VersionColumn,
        RepositoryColumn,
        PresentColumn, ///< what the repository has already
        ColumnCount
    };

    FoundPackagesModel(AliasLookup aliases, PresentLookup present, QObject *parent);

    void setPackages(const QList<PackageInfo> &packages);
    const PackageInfo &packageAt(int row) const { return m_packages.at(row); }
    /** The different texts of a column, sorted. */
    QStringList values(Column column) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString text(const PackageInfo &package, int column) const;
    QString presentText(const PackageInfo &package) const;

    QList<PackageInfo> m_packages;
    QHash<QString, QString> m_shownSources; ///< by origin
    AliasLookup m_aliases;
    PresentLookup m_present;
};
