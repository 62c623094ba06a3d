// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/companionsizes.h"

#include "engine/installability/checkedsystem.h"
#include "installability/simulatedinstallation.h"

#include <QFileInfo>

#include <utility>

namespace
{
Companion companionOf(const CheckedSystem &system, int package)
{
    constexpr qint64 InstalledUnit = 1024; // bytes, of Installed-Size
    const Universe &universe = system.universe();
    const ControlText &paragraph = universe.paragraph(package);
    Companion companion{universe.named(package),
                        paragraph.field("Size").toLongLong(),
                        paragraph.field("Installed-Size").toLongLong() * InstalledUnit};
    // The record of a package that was added just now comes from its file, which does not tell its own size.
    const auto records = system.recordsOf(package);
    if (companion.downloadSize == 0 && !records.isEmpty())
        companion.downloadSize = QFileInfo(records.first()->filePath()).size();
    return companion;
}
} // namespace

CompanionSizes::CompanionSizes(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<Companion> CompanionSizes::of(const PackageInfoPtr &package, const StopRequest &stopped) const
{
    const BaseOffers offers = BaseOffers::read(
        m_scope, QStringList{package->architecture} + m_scope.base.foreignArchitectures, stopped);
    const CheckedSystem system(m_scope, offers, package->architecture, package->type, stopped);
    const int index = system.indexOf(package);
    QVector<Companion> companions;
    if (index < 0 || (stopped && stopped()))
        return companions;
    const auto installed = SimulatedInstallation(system.universe()).of(index, stopped);
    for (const int companion : installed)
        companions.append(companionOf(system, companion));
    return companions;
}
