// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/packages/packagecolumns.h"
#include "ui/packages/packagetree.h"

#include <vector>

/**
 * The order of the packages within their sections by one column. The order of the names is that of the tree. For
 * another column each package gets a rank, which stays until all are ranked again: so the order does not change by
 * itself while packages change.
 */
class PackageOrder
{
public:
    PackageColumns::Column column() const { return m_column; }
    bool isByName() const { return m_column == PackageColumns::Name; }
    /** Ranks all packages of the tree by this column. */
    void rank(const PackageTree &tree, PackageColumns::Column column);
    /** Puts a new package behind the others of its section. */
    void append(const PackageTree &tree, int id);
    /** The number by which an item is ordered among the children of its parent. */
    int place(const PackageTree &tree, int id) const
    {
        const RepoItem &item = tree.item(id);
        return isByName() || item.isContainer() ? item.row : m_ranks[static_cast<std::size_t>(id)];
    }
    /** Sorts packages of one section. */
    void sort(std::vector<int> &ids) const;

private:
    PackageColumns::Column m_column = PackageColumns::Name;
    std::vector<int> m_ranks; ///< by id

    void rankSection(const PackageTree &tree, int section);
    void setRank(int id, int rank);
};
