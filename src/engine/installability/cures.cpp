// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/cures.h"

#include <utility>

Cures::Cures(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<Cure> Cures::of(const PackageInfoPtr &package, const StopRequest &stopped) const
{
    Q_UNUSED(package)
    Q_UNUSED(stopped)
    return {};
}

CureEffect Cures::effectOf(const Cure &cure, const StopRequest &stopped) const
{
    Q_UNUSED(cure)
    Q_UNUSED(stopped)
    return {};
}
