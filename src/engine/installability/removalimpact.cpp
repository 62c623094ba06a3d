// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/removalimpact.h"

#include <utility>

RemovalImpact::RemovalImpact(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<RepositoryImpact> RemovalImpact::of(const QList<PackageInfoPtr> &gone,
                                            const StopRequest &stopped) const
{
    Q_UNUSED(gone)
    Q_UNUSED(stopped)
    return {};
}
