// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packageorder.h"

#include <algorithm>
#include <utility>

void PackageOrder::rank(const PackageTree &tree, PackageColumns::Column column)
{
    m_column = column;
    m_ranks.clear();
    if (isByName())
        return;
    for (const int component : tree.root().children) {
        for (const int section : tree.item(component).children)
            rankSection(tree, section);
    }
}

void PackageOrder::rankSection(const PackageTree &tree, int section)
{
    using Entry = std::pair<PackageColumns::SortKey, int>;
    std::vector<Entry> entries;
    const QVector<int> &children = tree.item(section).children;
    entries.reserve(static_cast<std::size_t>(children.size()));
    for (const int id : children)
        entries.emplace_back(PackageColumns::sortKey(m_column, tree.item(id)), id);
    std::stable_sort(entries.begin(), entries.end(), [this](const Entry &left, const Entry &right) {
        return PackageColumns::isLess(m_column, left.first, right.first);
    });
    int rank = 0;
    for (const Entry &entry : entries)
        setRank(entry.second, rank++);
}

void PackageOrder::setRank(int id, int rank)
{
    const auto place = static_cast<std::size_t>(id);
    if (m_ranks.size() <= place)
        m_ranks.resize(place + 1);
    m_ranks[place] = rank;
}

void PackageOrder::append(const PackageTree &tree, int id)
{
    if (isByName())
        return;
    int last = 0;
    for (const int other : tree.item(tree.item(id).parent).children) {
        if (other != id && static_cast<std::size_t>(other) < m_ranks.size())
            last = std::max(last, m_ranks[static_cast<std::size_t>(other)] + 1);
    }
    setRank(id, last);
}

void PackageOrder::sort(std::vector<int> &ids) const
{
    if (isByName())
        return;
    std::sort(ids.begin(), ids.end(), [this](int left, int right) {
        return m_ranks[static_cast<std::size_t>(left)] < m_ranks[static_cast<std::size_t>(right)];
    });
}
