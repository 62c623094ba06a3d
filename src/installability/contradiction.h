// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "apt/candidatesource.h"
#include "installability/settledpackages.h"

#include <optional>
#include <vector>

/** One relation, or another rule of installing, that a contradiction can need. */
struct InstallationRule
{
    enum Kind : quint8 {
        Need, ///< `package` needs something of `set`
        Exclusion, ///< `package` excludes all of `set`
        Namesakes, ///< of the packages with the name of `package`, only some can be together
        Essential ///< one of the essential packages with the name of `package` is on every system
    };

    Kind kind = Need;
    int package = 0;
    int set = 0;
    Universe::Field field = Universe::Depends;
};

/** Finds the rules that make a package impossible. */
class Contradiction
{
public:
    using Rules = std::vector<InstallationRule>;
    /** Stands for no package at all: what contradicts it contradicts every system. */
    static constexpr int NoPackage = -1;

    /** Without `settled`, also of what is known to lack something only these rules count. */
    Contradiction(const Universe &universe, const SettledPackages *settled);

    /**
     * Of these rules, some that the package cannot be installed with and none of which can be left out; of two that
     * would do, the one in front is kept. Nothing when the rules allow the package, or after a stop or ten seconds.
     */
    std::optional<Rules> smallest(int package, const Rules &rules, const StopRequest &stopped) const;
    /**
     * All rules that the package can depend on, the nearest first; with those of every system when `essential`. Needs
     * to know what is settled.
     */
    Rules around(int package, bool essential) const;

private:
    using Groups = std::vector<Rules>;

    const Universe &m_universe;
    const SettledPackages *m_settled;

    std::optional<Rules>
    blamed(int package, const Groups &groups, bool oneByOne, const StopRequest &stopped) const;
};
