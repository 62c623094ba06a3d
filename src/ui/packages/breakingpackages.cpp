// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/packages/breakingpackages.h"

#include <algorithm>

namespace
{
/** The packages of the repository that the reason names as the contradiction, each once. */
QVector<NamedPackage> contradictors(const PackageInfo &package)
{
    QVector<NamedPackage> result;
    const auto take = [&](const NamedPackage &named) {
        const bool isItself = named.name == package.name && named.version == package.version;
        if (named.isLocal && !isItself && !result.contains(named))
            result.append(named);
    };
    for (const InstallabilityStep &step : package.installability->reason) {
        if (step.kind == InstallabilityStep::Needs)
            continue;
        take(step.package);
        // The targets of a lack are versions that do no harm.
        if (step.kind == InstallabilityStep::Excludes)
            std::for_each(step.targets.cbegin(), step.targets.cend(), take);
    }
    return result;
}
} // namespace

void BreakingPackages::count(const PackageInfo &package, int difference)
{
    if (package.installabilityState() != NotInstallable)
        return;
    const QVector<NamedPackage> named = contradictors(package);
    for (const NamedPackage &contradictor : named)
        count(contradictor, difference);
}

void BreakingPackages::count(const NamedPackage &package, int difference)
{
    QVector<Entry> &entries = m_named[package.name];
    const auto isIt = [&package](const Entry &entry) {
        return entry.version == package.version && entry.architecture == package.architecture;
    };
    auto entry = std::find_if(entries.begin(), entries.end(), isIt);
    if (entry == entries.end()) {
        entries.append({package.version, package.architecture, 0});
        entry = entries.end() - 1;
    }
    const bool was = entry->count > 0;
    entry->count += difference;
    if (was != (entry->count > 0))
        ++m_revision;
    if (entry->count == 0)
        entries.erase(entry);
    if (entries.isEmpty())
        m_named.remove(package.name);
}

bool BreakingPackages::contains(const PackageInfo &package) const
{
    const auto entries = m_named.constFind(package.name);
    if (entries == m_named.constEnd())
        return false;
    return std::any_of(entries->cbegin(), entries->cend(), [&package](const Entry &entry) {
        return entry.count > 0 && entry.version == package.version
               && entry.architecture == package.ownArchitecture();
    });
}

void BreakingPackages::clear()
{
    if (!m_named.isEmpty())
        ++m_revision;
    m_named.clear();
}
