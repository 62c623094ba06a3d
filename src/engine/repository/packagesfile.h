// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>

#include <optional>
#include <string_view>

/** Which index a Packages file is; comes from where it lies below dists/CODENAME. */
struct IndexPlace
{
    QString component;
    QString architecture;
    PackageType type = PackageType::Deb;
};

/**
 * The place of an index file, from its path relative to dists/CODENAME: COMPONENT/binary-ARCH/Packages, or with
 * debian-installer/ before binary-ARCH for packages of the installer. Nothing when the path is no such file.
 */
std::optional<IndexPlace> indexPlace(const QString &relativePath);

/**
 * Cuts an index into records in one pass. Name, version, component and section are decoded, everything else stays in
 * the bytes that `owner` keeps alive. `root` is the repository's directory.
 */
QList<PackageInfoPtr> parsePackages(const ControlText::Owner &owner,
                                    std::string_view bytes,
                                    const IndexPlace &place,
                                    const QString &root);

/** Reads one index file; empty when there is nothing to read. */
QList<PackageInfoPtr> readPackagesFile(const QString &fileName, const IndexPlace &place, const QString &root);
