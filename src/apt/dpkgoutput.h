// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <optional>

/** What dpkg prints, made into values. */
namespace DpkgOutput
{
/**
 * The control paragraph in the output of "dpkg -I" as it stands in the package: without the lines about the archive
 * and without the blank that dpkg puts before every line.
 */
QString controlParagraph(const QString &information);

/**
 * The package that the output of "dpkg -I" describes; its architecture can be "all", and it has no file yet. Empty
 * when the name, version or architecture is missing, or is given twice, which dpkg refuses to install too.
 */
std::optional<PackageInfo> packageInfo(const QString &information, PackageType type = PackageType::Deb);
} // namespace DpkgOutput
