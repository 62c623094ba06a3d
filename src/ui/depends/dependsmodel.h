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
 * The dependency results of a repository's packages as a tree: packages, their entries, the providers of virtual
 * names. Behind the text stands a column for each source that occurs in the results, with a mark for what the source
 * has to do with the state of the row; no mark where the row is satisfied without that source. The result is kept by
 * the records themselves, so that thousands of packages cost no more than their list.
 */
class DependsModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    /** The user's name for a source; the source itself or an empty text when it has none. */
    using AliasLookup = std::function<QString(const QString &source)>;

    enum Role {
        StatusRole = Qt::UserRole + 1, ///< the row's own state as a number, whatever the column
        SourceStatusRole ///< the state in the column of a source as a number; invalid where there is no mark
    };

    explicit DependsModel(QObject *parent = nullptr);
    ~DependsModel() override;

    /** Names for the headers; may be set again when the user has changed them. */
    void setAliases(const AliasLookup &aliases);
    void setPackages(const QList<PackageInfoPtr> &packages);
    /** Replaces what stands below a package; one that is not there yet is put at the end. */
    void updatePackage(const PackageInfoPtr &package);

    /** The sources in the order of their columns. */
    QStringList sources() const { return m_sources; }
    /** What the row asks for, one of these; empty for a package of the repository. */
    QVector<Dependency> alternativesAt(const QModelIndex &index) const;
    /** The package that the row belongs to; null for an invalid index. */
    PackageInfoPtr packageAt(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    /** What tells the packages of a repository apart. */
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
