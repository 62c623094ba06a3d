// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QModelIndexList>

class RepoModel;
class RepoProxyModel;

/** The packages behind the selected items of the package tree. The indexes are those of the proxy model; only those of
 *  the first column count. */
namespace PackageSelection
{
/**
 * The packages, each once. A component or a section stands for all its shown packages. The repository itself stands for
 * none: it is selected after opening and has its own commands.
 */
QList<PackageInfoPtr>
packages(const QModelIndexList &selected, const RepoProxyModel &proxy, const RepoModel &model);
/** Whether there is any such package. */
bool hasPackages(const QModelIndexList &selected, const RepoProxyModel &proxy);
} // namespace PackageSelection
