// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/packagelist.h"
#include "ui/packages/repoitem.h"

#include <QHash>
#include <QList>

#include <vector>

/**
 * The nodes of the package tree: repository, components, sections, packages. Children are always in their sorted
 * order, containers by title and packages by name. An item keeps its id until it is taken or the tree is built anew.
 * Pure storage; RepoModel announces what it does to it.
 */
class PackageTree
{
public:
    /** The id of the repository item, which always exists. */
    static constexpr int RootId = 0;

    PackageTree();

    /** Makes the tree of these packages; of two that cannot be told apart the later one counts. */
    void build(const QList<PackageInfoPtr> &packages);

    const RepoItem &item(int id) const { return m_items[static_cast<std::size_t>(id)]; }
    const RepoItem &root() const { return item(RootId); }
    QList<PackageInfoPtr> packages() const;
    /** The package's id, -1 when it is not here. */
    int packageId(const PackageKey &key) const { return m_byKey.value(key, -1); }
    /** The id of the component or section with this code, -1 when there is none. */
    int containerId(int parent, const QString &code) const;
    /** Whether a record fits where the item of the same key stands. */
    bool isInPlace(int id, const PackageInfo &package) const;

    /** A name for the item that outlives building anew. */
    QString keyOf(int id) const;
    /** The item with this name, -1 when there is none. */
    int idOfKey(const QString &key) const;

    RepoItem makeContainer(RepoItem::Kind kind, const QString &code) const;
    RepoItem makePackage(const PackageInfoPtr &package) const;
    /** The row at which the item belongs below `parent`. */
    int rowFor(const RepoItem &item, int parent) const;
    /** Puts the item there and counts it in; returns its id. */
    int insert(RepoItem item, int parent, int row);
    /** Removes an item without children and counts it out. */
    void take(int id);
    /** Exchanges the record of a package in its place. */
    void replace(int id, const PackageInfoPtr &package);
    void setState(int id, int state);
    /** Finds out again what tells a package from its neighbours; true when that is something else than before. */
    bool updateDistinction(int id);
    void setRootTitle(const QString &title) { at(RootId).title = title; }

private:
    std::vector<RepoItem> m_items;
    std::vector<int> m_freeIds;
    QHash<PackageKey, int> m_byKey; ///< ids of the packages

    RepoItem &at(int id) { return m_items[static_cast<std::size_t>(id)]; }
    int append(RepoItem item, int parent);
    /** Counts a package of this state in or out of the containers above it. */
    void count(const RepoItem &package, int difference);
};
