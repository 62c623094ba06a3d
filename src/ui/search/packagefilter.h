// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"

#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

/** Decides which of apt's packages can be added to a repository. An empty set allows everything. */
struct PackageFilter
{
    QSet<QString> architectures;
    QSet<QString> repositories; ///< origin texts
    /** An additional check of origins, called from any thread; may be empty. */
    std::function<bool(const QString &origin)> isAsked = {};

    bool acceptsArchitecture(const QString &architecture) const
    {
        return architectures.isEmpty() || architectures.contains(architecture);
    }
    bool acceptsOrigin(const QString &origin) const
    {
        return (repositories.isEmpty() || repositories.contains(origin)) && (!isAsked || isAsked(origin));
    }
};
