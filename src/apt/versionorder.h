// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/** The order of package versions, in the process: millions of comparisons a second, where a run of dpkg takes 2 ms. */
namespace VersionOrder
{
/** Negative, 0 or positive as `versionA` is older, as old or newer. Orders malformed versions too, somehow. */
int compare(const QString &versionA, const QString &versionB);

/**
 * Whether the relation holds, exactly as DpkgUtils::compareVersions() says it for the operators of a Depends field:
 * "<" and ">" include equality, and no relation holds for what dpkg refuses as a version.
 */
bool holds(const QString &versionA, const QString &op, const QString &versionB);
} // namespace VersionOrder
