// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/companionsizes.h"

#include <utility>

CompanionSizes::CompanionSizes(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<Companion> CompanionSizes::of(const PackageInfoPtr &package, const StopRequest &stopped) const
{
    Q_UNUSED(package)
    Q_UNUSED(stopped)
    return {};
}
