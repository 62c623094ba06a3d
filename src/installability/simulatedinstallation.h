// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "installability/installationrules.h"
#include "installability/needindex.h"
#include "installability/settledpackages.h"

#include <QVector>

/** What comes along when a package is installed on a system where nothing is installed yet. */
class SimulatedInstallation
{
public:
    /** The universe outlives this object. */
    explicit SimulatedInstallation(const Universe &universe);

    /**
     * The package and all that comes along, the nearest first: of alternatives the first, as for apt, unless something
     * speaks against it. Empty when the package cannot be installed, and after a stop or ten seconds.
     */
    QVector<int> of(int package, const StopRequest &stopped = {}) const;

private:
    const Universe &m_universe;
    NeedIndex m_index;
    SettledPackages m_settled;

    bool isPossible(int package) const { return m_settled.state(package) != SettledPackages::Never; }
    /** The package and the first choice for each of its needs, and so on; whether they can be together or not. */
    QVector<int> wanted(int package) const;
    template <typename Accepts>
    QVector<int> follow(int package, const Accepts &accepts) const;
};
