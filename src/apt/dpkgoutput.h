// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <optional>

/** Parsers for the output of dpkg. */
namespace DpkgOutput
{
/**
 * The control paragraph in the output of "dpkg -I" as it is in the package, without the lines about the archive and
 * without the blank that dpkg puts before every line.
 */
QString controlParagraph(const QString &information);

/**
 * The package in the output of "dpkg -I". Its architecture can be "all", and it has no file yet. Empty when the name,
 * version or architecture is missing or appears twice; dpkg does not install such a package either.
 */
std::optional<PackageInfo> packageInfo(const QString &information, PackageType type = PackageType::Deb);

/** The control file in the form in which "dpkg -I" prints it. */
QString printed(const QByteArray &control);
} // namespace DpkgOutput
