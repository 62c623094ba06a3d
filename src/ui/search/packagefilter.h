// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

/** Which of the packages that apt offers can be taken into a repository. An empty set sets no bound. */
struct PackageFilter
{
    QSet<QString> architectures;
    QSet<QString> repositories; ///< origin texts
    /** A further bound for origins, called from any thread; may be empty. */
    std::function<bool(const QString &origin)> isAsked = {};

    bool accepts(const PackageInfo &package) const
    {
        return (architectures.isEmpty() || architectures.contains(package.architecture))
               && (repositories.isEmpty() || repositories.contains(package.repository))
               && (!isAsked || isAsked(package.repository));
    }
};
