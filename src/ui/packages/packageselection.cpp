// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/packageselection.h"

#include "ui/packages/repomodel.h"
#include "ui/packages/repoproxymodel.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
bool isRepository(const QModelIndex &index, const RepoProxyModel &proxy)
{
    // The repository's own row can be hidden in the proxy.
    return !proxy.mapToSource(index).parent().isValid();
}

void collect(const QModelIndex &index, const RepoProxyModel &proxy, const RepoModel &model, QList<int> &ids)
{
    if (model.package(proxy.mapToSource(index))) {
        ids.append(RepoModel::itemId(index));
        return;
    }
    for (int row = 0; row < proxy.rowCount(index); ++row)
        collect(proxy.index(row, 0, index), proxy, model, ids);
}
} // namespace

QList<PackageInfoPtr> PackageSelection::packages(const QModelIndexList &selected,
                                                 const RepoProxyModel &proxy,
                                                 const RepoModel &model)
{
    QList<int> ids;
    for (const QModelIndex &index : selected) {
        if (index.column() == 0 && !isRepository(index, proxy))
            collect(index, proxy, model, ids);
    }
    QSet<int> known;
    QList<PackageInfoPtr> packages;
    for (const int id : std::as_const(ids)) {
        if (known.contains(id))
            continue;
        known.insert(id);
        packages.append(model.tree().item(id).package);
    }
    return packages;
}

bool PackageSelection::hasPackages(const QModelIndexList &selected, const RepoProxyModel &proxy)
{
    return std::any_of(selected.cbegin(), selected.cend(), [&proxy](const QModelIndex &index) {
        return !isRepository(index, proxy) && proxy.shownPackages(index) > 0;
    });
}
