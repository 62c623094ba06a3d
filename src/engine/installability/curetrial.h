// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/installability/checkedsystem.h"
#include "installability/installabilitycheck.h"

#include <optional>
#include <vector>

/**
 * One system of a repository on which changes of the repository are tried: what public sources offer is there too, but
 * not at hand until it is fetched.
 */
class CureTrial
{
public:
    /** What would change: a package that comes in, and the packages of the repository that go. */
    struct Change
    {
        int fetched = -1; ///< -1: none
        std::vector<int> gone;
    };

    /** `further` are the lists of the public sources, unless the base has them. */
    CureTrial(const CheckScope &scope,
              const BaseOffers &offers,
              const QVector<OfferList> &further,
              const QString &architecture,
              PackageType type,
              const StopRequest &stopped);

    const CheckedSystem &system() const { return m_system; }
    const Universe &universe() const { return m_system.universe(); }

    /** The package with this name, version and architecture; one for "all" counts for each architecture. */
    int find(const QString &name, const QString &version, const QString &architecture) const;
    /** Bringing in a package that is not at hand: the repository keeps one version, so the present one goes. */
    Change fetching(int package) const;
    /** Nothing where the base has the package too, so that it would stay at hand. */
    std::optional<Change> removing(int package) const;
    /** What is not there after the change. */
    std::vector<int> goneAfter(const Change &change) const;
    /** Whether the package can be installed after the change; with `withAll`, when more may be fetched. */
    bool cures(int package, const Change &change, bool withAll, const StopRequest &stopped) const;

private:
    CheckedSystem m_system;
};
