// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QByteArray>
#include <QList>

/**
 * Tells whether packages are still those that a complete check has seen. What decides is what the check reads: name,
 * version, architecture, component, type and the relations. A package that was built again with other relations is
 * another one, although its version is the same.
 */
namespace PackagesDigest
{
/** A number for the package; stored, so its meaning must not change. */
quint64 of(const PackageInfo &package);
/** A text of 32 hexadecimal digits for all packages. Their order does not matter. */
QByteArray of(const QList<PackageInfoPtr> &packages);
} // namespace PackagesDigest
