// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/removalimpact.h"

#include "engine/installability/checkedsystem.h"
#include "installability/reverseneeds.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{
/** Adds the records of `packages` that are neither among `gone` nor in the list. */
void appendRecords(const CheckedSystem &system,
                   const QVector<int> &packages,
                   const QSet<PackageInfoPtr> &gone,
                   QList<PackageInfoPtr> *list)
{
    const auto records = system.recordsOf(packages);
    std::copy_if(records.cbegin(), records.cend(), std::back_inserter(*list), [&](const auto &record) {
        return !gone.contains(record);
    });
}

/** The packages that need one of these themselves. */
QVector<int> directUsers(const ReverseNeeds &needs, const QVector<int> &packages)
{
    QVector<int> users;
    for (const int package : packages)
        users += needs.directUsers(package);
    std::sort(users.begin(), users.end());
    users.erase(std::unique(users.begin(), users.end()), users.end());
    return users;
}

/** What happens in the scope's repository. `gone` can also be of another one, whose packages are among the offers. */
RepositoryImpact impactOn(const CheckScope &scope,
                          const BaseOffers &offers,
                          const RepositorySnapshot *source,
                          const QList<PackageInfoPtr> &gone,
                          const StopRequest &stopped)
{
    RepositoryImpact impact;
    impact.path = scope.repository.path;
    const QSet<PackageInfoPtr> goneRecords(gone.cbegin(), gone.cend());
    for (const PackageType type : {PackageType::Deb, PackageType::Udeb}) {
        QList<PackageInfoPtr> ofType;
        std::copy_if(gone.cbegin(), gone.cend(), std::back_inserter(ofType), [type](const auto &package) {
            return package->type == type;
        });
        for (const QString &architecture : scope.repository.architectures) {
            if (!CheckedSystem::isAnyRead(ofType, architecture, scope.base) || (stopped && stopped()))
                continue;
            const CheckedSystem system(scope, offers, architecture, type, stopped, {}, source);
            const QVector<int> packages = system.withoutRecords(ofType);
            if (packages.isEmpty())
                continue;
            const ReverseNeeds needs(system.universe());
            appendRecords(system, directUsers(needs, packages), goneRecords, &impact.direct);
            appendRecords(system, needs.lostWithout(packages, stopped), goneRecords, &impact.lost);
        }
    }
    return impact;
}
} // namespace

RemovalImpact::RemovalImpact(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<RepositoryImpact> RemovalImpact::of(const QList<PackageInfoPtr> &gone,
                                            const StopRequest &stopped) const
{
    QStringList architectures = m_scope.repository.architectures + m_scope.base.foreignArchitectures;
    for (const RepositorySnapshot &other : m_scope.others)
        architectures += other.architectures;
    architectures.removeDuplicates();
    const BaseOffers offers = BaseOffers::read(m_scope, architectures, stopped);
    QVector<RepositoryImpact> impacts{impactOn(m_scope, offers, nullptr, gone, stopped)};
    CheckScope other = m_scope;
    for (const RepositorySnapshot &repository : m_scope.others) {
        other.repository = repository;
        impacts.append(impactOn(other, offers, &m_scope.repository, gone, stopped));
    }
    const auto isNothing
        = [](const RepositoryImpact &impact) { return impact.direct.isEmpty() && impact.lost.isEmpty(); };
    impacts.erase(std::remove_if(impacts.begin(), impacts.end(), isNothing), impacts.end());
    return stopped && stopped() ? QVector<RepositoryImpact>() : impacts;
}
