// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QString>

/** What the names of package files say: "foo_1.0_amd64.deb", and "…udeb" for packages of the installer. */
namespace PackageNames
{
/** "deb" or "udeb": the suffix of the files, and reprepro's word for the type. */
QString suffix(PackageType type);
/** The type that suffix() gives this word for. */
PackageType typeOfSuffix(const QString &suffix);
/** The type of a package file, which can have a folder in front. */
PackageType typeOfFile(const QString &fileName);
/** Whether a file of this name is a package. Capital letters do not count: reprepro does not take them either. */
bool isPackageFile(const QString &fileName);
/**
 * Whether the path leads into the restore points of a repository. They keep old versions of packages, which nobody
 * wants who takes in all packages of a folder.
 */
bool isInRestorePoint(const QString &path);
/**
 * The path below the repository's directory that reprepro gives the file of a package. `controlArchitecture` is the
 * one that the package was built for, which is "all" for many.
 */
QString poolFile(const PackageInfo &package, const QString &controlArchitecture);
} // namespace PackageNames
