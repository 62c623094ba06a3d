// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QList>
#include <QString>

#include <optional>
#include <string_view>

/** The component, architecture and type of a Packages file, from its path below dists/CODENAME. */
struct IndexPlace
{
    QString component;
    QString architecture;
    PackageType type = PackageType::Deb;
};

/**
 * Parses the path of an index file relative to dists/CODENAME: COMPONENT/binary-ARCH/Packages, or with
 * debian-installer/ before binary-ARCH for installer packages. Nothing for any other path.
 */
std::optional<IndexPlace> indexPlace(const QString &relativePath);

/**
 * Splits an index into records in one pass. Name, version, component and section are decoded; all other fields stay in
 * the bytes that `owner` keeps alive. `root` is the directory of the repository.
 */
QList<PackageInfoPtr> parsePackages(const ControlText::Owner &owner,
                                    std::string_view bytes,
                                    const IndexPlace &place,
                                    const QString &root);

/** Reads one index file; empty when the file cannot be read. */
QList<PackageInfoPtr> readPackagesFile(const QString &fileName, const IndexPlace &place, const QString &root);
