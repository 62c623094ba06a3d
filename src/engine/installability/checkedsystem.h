// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/packageinfo.h"
#include "engine/installability/baseoffers.h"
#include "installability/installsystem.h"
#include "installability/universe.h"

#include <QHash>
#include <QList>
#include <QVector>

#include <vector>

/**
 * The packages of a repository on one system: a universe of them and of what the base offers, and the records that
 * stand behind its indices. Installer packages and ordinary ones never meet, so each type has a system of its own.
 */
class CheckedSystem
{
public:
    /**
     * A system of the architecture `native`, with the foreign ones of the base. What the `further` lists offer is in
     * the universe too, but not at hand: isFurther() tells it from the rest. The packages of a `neighbour` are offered
     * as if the base had them, and their records are known too. After a stop, relations are missing.
     */
    CheckedSystem(const CheckScope &scope,
                  const BaseOffers &offers,
                  const QString &native,
                  PackageType type,
                  const StopRequest &stopped = {},
                  const QVector<OfferList> &further = {},
                  const RepositorySnapshot *neighbour = nullptr);

    /** Whether such a system reads the index of one of these records. */
    static bool
    isAnyRead(const QList<PackageInfoPtr> &records, const QString &native, const CompleteCheckBase &base);

    const Universe &universe() const { return m_universe; }
    /** The package of this record; -1 when the system does not have it. */
    int indexOf(const PackageInfoPtr &record) const { return m_indices.value(record, -1); }
    /** The records of a package of the repository, which several components can list; none for an offered one. */
    QList<PackageInfoPtr> recordsOf(int package) const;
    /** The records of those packages that are of the repository. */
    QList<PackageInfoPtr> recordsOf(const QVector<int> &packages) const;
    /** The packages of the native architecture's index that have one of these records. */
    QVector<int> nativeAmong(const QList<PackageInfoPtr> &records) const;
    /** What is not there any more when these records are gone: another component or the base may offer the same. */
    QVector<int> withoutRecords(const QList<PackageInfoPtr> &gone) const;
    /** Whether the base offers the package; packages of the repository can be among these. */
    bool isOffered(int package) const { return m_lists[static_cast<std::size_t>(package)] >= 0; }
    /** Whether only the further lists offer the package. */
    bool isFurther(int package) const { return package >= m_firstFurther; }
    /** From this one on, all packages are further ones. */
    int firstFurther() const { return m_firstFurther; }
    /** The public source that offers the package; empty when there is none. */
    QString originOf(int package) const;

private:
    InstallSystem m_system;
    PackageType m_type;
    Universe m_universe;
    QHash<PackageInfoPtr, int> m_indices;
    std::vector<QList<PackageInfoPtr>> m_records; ///< by package; of the repository
    QHash<int, int> m_counts; ///< by package: of its records, with those of the neighbour
    QStringList m_origins; ///< by list of the base
    std::vector<int> m_lists; ///< by package: the first list of the base that offers it, or -1
    int m_firstFurther = 0;

    void addPackages(const QList<PackageInfoPtr> &packages, Universe::Role role);
    void addOffers(const QVector<OfferList> &lists);
    bool reads(const QString &architecture) const;
};
