// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "core/installabilityinfo.h"
#include "engine/installability/checkscope.h"

/** A package that comes along with another one on a bare system. */
struct Companion
{
    NamedPackage package;
    qint64 downloadSize = 0; ///< bytes of the package file
    qint64 installedSize = 0; ///< bytes on the disk, as the package says
};

/** What comes along when a package is installed on a bare system. For any thread but the interface's. */
class CompanionSizes
{
public:
    explicit CompanionSizes(CheckScope scope);

    /** The package itself first, then the nearest of the others; none when it cannot be installed, or after a stop. */
    QVector<Companion> of(const PackageInfoPtr &package, const StopRequest &stopped) const;

private:
    CheckScope m_scope;
};
