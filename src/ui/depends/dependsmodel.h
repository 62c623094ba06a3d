// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QPair>
#include <QStringList>

#include <functional>
#include <memory>

class DependsItem;
class PackageItem;

/**
 * The dependency results of a repository's packages as a tree: packages, their entries, and the providers of virtual
 * names. After the text, there is a column for each source in the results. A mark in it shows the influence of the
 * source on the state of the row; there is no mark when the row is satisfied without this source. The model uses the
 * results in the records, so thousands of packages need little memory.
 */
class DependsModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    /** The user's name for a source; the source itself or an empty text when there is none. */
    using AliasLookup = std::function<QString(const QString &source)>;

    enum Role {
        StatusRole = Qt::UserRole + 1, ///< state of the row as a number, the same in every column
        SourceStatusRole ///< state in the column of a source as a number; invalid when there is no mark
    };

    explicit DependsModel(QObject *parent = nullptr);
    ~DependsModel() override;

    /** Sets names for the headers. Call it again when the user has changed them. */
    void setAliases(const AliasLookup &aliases);
    void setPackages(const QList<PackageInfoPtr> &packages);
    /** Replaces the rows below a package; a new package is appended. */
    void updatePackage(const PackageInfoPtr &package);

    /** The sources in the order of their columns. */
    QStringList sources() const { return m_sources; }
    /** The dependencies of the row, of which one must be met; empty for a package of the repository. */
    QVector<Dependency> alternativesAt(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    /** Identifies a package of the repository. */
    using Key = QPair<QString, QString>;

    static Key keyOf(const PackageInfo &package);
    DependsItem *itemAt(const QModelIndex &index) const;
    void append(const PackageInfoPtr &package);
    void replace(PackageItem &item, const PackageInfoPtr &package);
    QString shownSource(const QString &source) const;
    QVariant sourceData(const DependsItem &item, const QString &source, int role) const;

    std::unique_ptr<DependsItem> m_root;
    QHash<Key, PackageItem *> m_packages;
    QStringList m_sources;
    AliasLookup m_aliases;
};
