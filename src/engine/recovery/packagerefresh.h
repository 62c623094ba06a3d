// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/repository/packagelisting.h"

#include <QStringList>

struct JobContext;

/** Makes the list of packages what the repository holds, and tells the interface of each difference. */
namespace PackageRefresh
{
/**
 * Reads the packages. Records of `changedFiles`, which are paths below the repository, are not kept, because a file can
 * have other contents and the same version.
 */
void show(JobContext &context, const QStringList &changedFiles = {});
/** The same with packages that were read already. Returns the difference. */
ListingDifference
show(JobContext &context, const QList<PackageInfoPtr> &listed, const QStringList &changedFiles);
/** Takes over what other programs have changed since the packages were read. False when nothing is known of that. */
bool takeOver(JobContext &context);
} // namespace PackageRefresh
