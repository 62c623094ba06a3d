// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/repoinfo.h"
#include "ui/packages/listchange.h"
#include "ui/packages/packagecolumns.h"
#include "ui/packages/packagetree.h"

#include <QAbstractItemModel>
#include <QHash>

/**
 * The packages of one repository as a tree: repository, components, sections, packages. The first column has the names,
 * and the user can choose more, which are filled for packages only. It receives the
 * engine's changes in batches. A large batch is one reset; a small one is announced row by row. The internal id of an
 * index is the item's id in the tree.
 */
class RepoModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Role {
        TextRole = Qt::UserRole + 1, ///< the text that is used by the text filter and for sorting
        StateRole = Qt::UserRole + 2, ///< dependency state (int): a DependStatus or NoDependState
        InstallabilityRole = Qt::UserRole + 3 ///< what the complete check says (int): an Installability
    };
    /** A batch that adds and removes more rows than this resets the model. */
    static constexpr int ResetThreshold = 100;

    explicit RepoModel(QObject *parent = nullptr);

    /** Shows this repository as the top item; its packages do not change. */
    void setRepository(const RepoInfo &info);
    /** Shows nothing, because no repository is open. */
    void clearRepository();
    bool hasRepository() const { return m_hasRepository; }

    /** Replaces all packages. */
    void setPackages(const QList<PackageInfoPtr> &packages);
    /** Applies changes of the engine in their order. */
    void apply(const ListChanges &changes);

    /** Adds the versions to the displayed names. */
    void setShowVersions(bool show);

    /** The columns, of which the first one is always that of the names. A change resets the model. */
    void setColumns(const PackageColumns::Columns &columns);
    const PackageColumns::Columns &columns() const { return m_columns; }

    /** Keeps when the files of these packages came into the pool; see PoolDates. */
    void setAdded(const QVector<QPair<PackageInfoPtr, qint64>> &times);

    /** Shows the results of complete checks as old ones: something has changed since. */
    void setInstallabilityStale(bool isStale);

    /** Remembers the item whose details are shown, also over a reset; an invalid index means no item. */
    void setCurrentItem(const QModelIndex &index) { m_currentKey = itemKey(index); }
    /** The remembered item; invalid when it does not exist any more. */
    QModelIndex currentItem() const { return indexOfKey(m_currentKey); }

    /** Dependency state of the item: a DependStatus or NoDependState. */
    int dependState(const QModelIndex &index) const;
    /** The package of a leaf; null for a container. */
    PackageInfoPtr package(const QModelIndex &index) const;
    int packageCount() const { return m_tree.root().packageCount; }
    /** Number of packages in this dependency state. */
    int packageCount(DependStatus status) const;
    /** Number of packages that the last complete checks found not installable. */
    int notInstallable() const { return m_tree.root().notInstallable; }

    /** A key for the item that stays valid over resets; empty for an invalid index. */
    QString itemKey(const QModelIndex &index) const;
    QModelIndex indexOfKey(const QString &key) const { return indexOfId(m_tree.idOfKey(key)); }
    QModelIndex indexOfPackage(const PackageInfo &package) const;

    const PackageTree &tree() const { return m_tree; }
    static int itemId(const QModelIndex &index) { return static_cast<int>(index.internalId()); }
    /** Invalid for -1, and for the repository item while no repository is shown. */
    QModelIndex indexOfId(int id) const;
    /** The name of an item, which the search uses too. */
    QString displayText(const RepoItem &item) const;
    /** The same with the difference to a neighbour of the same name. */
    QString distinctText(const RepoItem &item) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /** Sets the dependency state of a package (StateRole) without a new record. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /** Other packages than before break others; see PackageTree::breaking(). */
    void breakingChanged();

private:
    /** What the icon of an item says. */
    using Marks = QPair<int, Installability>;

    /** The changes of a batch to items that stay. They are announced together. */
    struct Touched
    {
        QHash<int, QPair<int, int>> rows; ///< first and last changed row, by section
        QHash<int, Marks> marks; ///< earlier marks of a container, by id
    };

    PackageTree m_tree;
    RepoInfo m_info;
    bool m_hasRepository = false;
    bool m_showVersions = false;
    PackageColumns::Columns m_columns{PackageColumns::Name};
    bool m_isStale = false; ///< the results of complete checks are old
    int m_breakingRevision = 0; ///< of the last breakingChanged()
    QString m_currentKey;

    /** Applies a batch of records, either of present packages or of many new ones. Returns false for other batches. */
    bool applyRecords(const ListChanges &changes);
    int newRows(const QHash<PackageKey, ListChange> &changes) const;
    void setListing(const ListChanges::const_iterator &begin, const ListChanges::const_iterator &end);
    void rebuild(const QHash<PackageKey, ListChange> &changes, bool cleared);
    void store(const PackageInfoPtr &package, Touched &touched);
    void remove(int id, Touched &touched);
    int ensureContainer(int parent, RepoItem::Kind kind, const QString &code);
    void touchContainers(int section, Touched &touched) const;
    void touchRow(int id, Touched &touched) const;
    /** A package was added or removed at this row, so the texts of its neighbours may change. */
    void updateBeside(int section, int row);
    void announce(const Touched &touched);
    void announcePackages(const QVector<int> &roles);
    void announceBreaking();
    QString toolTip(const RepoItem &item) const;
    static Marks marksOf(const RepoItem &item) { return {item.dependState(), item.installability()}; }
};
