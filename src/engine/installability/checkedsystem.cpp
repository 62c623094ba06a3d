// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/checkedsystem.h"

#include "core/countof.h"
#include "engine/installability/essentialpackages.h"

#include <QSet>

#include <algorithm>
#include <iterator>

namespace
{
InstallSystem systemOf(const QString &native, const CompleteCheckBase &base)
{
    InstallSystem system{native, base.foreignArchitectures};
    system.foreign.removeAll(native);
    system.foreign.removeDuplicates();
    return system;
}
} // namespace

CheckedSystem::CheckedSystem(const CheckScope &scope,
                             const BaseOffers &offers,
                             const QString &native,
                             PackageType type,
                             const StopRequest &stopped,
                             const QVector<OfferList> &further,
                             const RepositorySnapshot *neighbour)
    : m_system(systemOf(native, scope.base))
    , m_type(type)
    , m_universe(m_system)
{
    addPackages(scope.repository.packages, Universe::Checked);
    if (neighbour != nullptr)
        addPackages(neighbour->packages, Universe::Offered);
    addOffers(scope.base.kind == CompleteCheckBase::Essential
                  ? essentialOffers(offers.lists, m_system, stopped)
                  : offers.lists);
    m_firstFurther = m_universe.count();
    addOffers(further);
    m_universe.finish(stopped);
}

bool CheckedSystem::isAnyRead(const QList<PackageInfoPtr> &records,
                              const QString &native,
                              const CompleteCheckBase &base)
{
    return std::any_of(records.cbegin(), records.cend(), [&](const PackageInfoPtr &record) {
        return record->architecture == native || base.foreignArchitectures.contains(record->architecture);
    });
}

void CheckedSystem::addPackages(const QList<PackageInfoPtr> &packages, Universe::Role role)
{
    for (const PackageInfoPtr &package : packages) {
        if (package->type != m_type || !reads(package->architecture))
            continue;
        const int index = m_universe.add(package->control, role);
        if (index < 0)
            continue;
        m_indices.insert(package, index);
        ++m_counts[index];
        if (role != Universe::Checked)
            continue;
        m_records.resize(static_cast<std::size_t>(m_universe.count()));
        m_records[static_cast<std::size_t>(index)].append(package);
    }
    m_lists.resize(static_cast<std::size_t>(m_universe.count()), -1);
}

void CheckedSystem::addOffers(const QVector<OfferList> &lists)
{
    for (const OfferList &list : lists) {
        if (list.type != m_type || !(list.architecture.isEmpty() || reads(list.architecture)))
            continue;
        const int number = countOf(m_origins);
        m_origins.append(list.origin);
        for (const ControlText &paragraph : list.packages) {
            const int index = m_universe.add(paragraph, Universe::Offered);
            if (index < 0)
                continue;
            m_lists.resize(static_cast<std::size_t>(m_universe.count()), -1);
            // What the repository or the base has is not offered by a list that is not at hand.
            int &known = m_lists[static_cast<std::size_t>(index)];
            if (known < 0 && index >= m_firstFurther)
                known = number;
        }
    }
}

QList<PackageInfoPtr> CheckedSystem::recordsOf(int package) const
{
    const auto index = static_cast<std::size_t>(package);
    return index < m_records.size() ? m_records[index] : QList<PackageInfoPtr>();
}

QList<PackageInfoPtr> CheckedSystem::recordsOf(const QVector<int> &packages) const
{
    QList<PackageInfoPtr> records;
    for (const int package : packages) {
        const auto found = recordsOf(package);
        std::copy_if(found.cbegin(), found.cend(), std::back_inserter(records), [this](const auto &record) {
            return record->architecture == m_system.native;
        });
    }
    return records;
}

QVector<int> CheckedSystem::nativeAmong(const QList<PackageInfoPtr> &records) const
{
    QVector<int> packages;
    QSet<int> seen;
    for (const PackageInfoPtr &record : records) {
        const int package = record->architecture == m_system.native ? indexOf(record) : -1;
        if (package < 0 || seen.contains(package))
            continue;
        seen.insert(package);
        packages.append(package);
    }
    return packages;
}

QVector<int> CheckedSystem::withoutRecords(const QList<PackageInfoPtr> &gone) const
{
    QHash<int, int> counts;
    for (const PackageInfoPtr &record : gone) {
        const int package = indexOf(record);
        if (package >= 0)
            ++counts[package];
    }
    QVector<int> packages;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() >= m_counts.value(it.key()) && !isOffered(it.key()))
            packages.append(it.key());
    }
    std::sort(packages.begin(), packages.end());
    return packages;
}

QString CheckedSystem::originOf(int package) const
{
    return isOffered(package) ? m_origins.at(m_lists[static_cast<std::size_t>(package)]) : QString();
}

bool CheckedSystem::reads(const QString &architecture) const
{
    // An index for "all" goes with the lists of every architecture.
    return architecture == m_system.native || m_system.foreign.contains(architecture)
           || architecture == QLatin1String("all");
}
