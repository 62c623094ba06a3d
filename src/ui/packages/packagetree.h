// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/packagelist.h"
#include "ui/packages/breakingpackages.h"
#include "ui/packages/repoitem.h"

#include <QList>

#include <unordered_map>
#include <vector>

/**
 * The nodes of the package tree: repository, components, sections, packages. Children are always sorted: containers by
 * title and packages by name. An item keeps its id until it is removed or the tree is built again. This class only
 * stores; RepoModel announces the changes.
 */
class PackageTree
{
public:
    /** The id of the repository item, which always exists. */
    static constexpr int RootId = 0;

    PackageTree();

    /** Builds the tree of these packages; of several packages with the same key, the last one counts. */
    void build(const QList<PackageInfoPtr> &packages);

    const RepoItem &item(int id) const { return m_items[static_cast<std::size_t>(id)]; }
    const RepoItem &root() const { return item(RootId); }
    QList<PackageInfoPtr> packages() const;
    /** The packages that keep others from being installed. */
    const BreakingPackages &breaking() const { return m_breaking; }
    /** The id of the package; -1 when it is not in the tree. */
    int packageId(const PackageKey &key) const;
    /** The id of the component or section with this code; -1 when there is none. */
    int containerId(int parent, const QString &code) const;
    /** Whether a new record belongs to the same section and component as the present item. */
    bool isInPlace(int id, const PackageInfo &package) const;

    /** A key for the item that stays valid when the tree is built again. */
    QString keyOf(int id) const;
    /** The item with this key; -1 when there is none. */
    int idOfKey(const QString &key) const;

    RepoItem makeContainer(RepoItem::Kind kind, const QString &code) const;
    RepoItem makePackage(const PackageInfoPtr &package) const;
    /** The row of the item below `parent`. */
    int rowFor(const RepoItem &item, int parent) const;
    /** Inserts the item, updates the counters, and returns the id. */
    int insert(RepoItem item, int parent, int row);
    /** Removes an item without children and updates the counters. */
    void take(int id);
    /** Replaces the record of a package; its position does not change. */
    void replace(int id, const PackageInfoPtr &package);
    void setState(int id, int state);
    void setAdded(int id, qint64 time) { at(id).added = time; }
    /** Computes again how a package differs from its neighbours; true when the result has changed. */
    bool updateDistinction(int id);
    void setRootTitle(const QString &title) { at(RootId).title = title; }

private:
    struct KeyHash
    {
        std::size_t operator()(const PackageKey &key) const { return qHash(key); }
    };

    std::vector<RepoItem> m_items;
    std::vector<int> m_freeIds;
    std::unordered_map<PackageKey, int, KeyHash> m_byKey; ///< ids of the packages, which build() points to
    BreakingPackages m_breaking;

    RepoItem &at(int id) { return m_items[static_cast<std::size_t>(id)]; }
    int append(RepoItem item, int parent);
    /** Adds `difference` to the counters of all containers of a package. */
    void count(const RepoItem &package, int difference);
};
