// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/installability/removalimpact.h"

#include <QString>
#include <QVector>

#include <optional>

/** What the page "Installability" tells of one package. */
struct InstallabilityFacts
{
    PackageInfoPtr package; ///< with the result of a complete check
    QString repository; ///< path of its repository
    std::optional<QVector<RepositoryImpact>>
        needs; ///< who needs the package; empty as long as this is worked out
};
