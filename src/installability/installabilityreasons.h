// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "installability/contradiction.h"
#include "installability/installabilitycheck.h"

#include <QVector>

#include <unordered_map>

/** Says why packages cannot be installed. An object remembers what several packages have in common. One thread. */
class InstallabilityReasons
{
public:
    /** `check` has run over the packages that are asked about, and outlives this object. */
    explicit InstallabilityReasons(const InstallabilityCheck &check);

    /**
     * From the package to the contradiction, by the shortest way, without a step that could be left out. Empty for a
     * package that is not known to be not installable, and after a stop. At most some hundred steps of a longer reason.
     */
    QVector<InstallabilityStep> reason(int package, const StopRequest &stopped = {});

private:
    using Rules = Contradiction::Rules;

    const InstallabilityCheck &m_check;
    const Universe &m_universe;
    const SettledPackages &m_settled;
    Contradiction m_contradiction;
    /** By package: a need of which it is known that nothing meets it; set -1: none. */
    std::vector<Universe::Entry> m_hopeless;
    std::unordered_map<int, Rules> m_found; ///< by package: the contradiction that a search has found

    bool isBroken(int package) const;
    void findHopeless();
    Rules search(int package, const StopRequest &stopped);
    Rules rulesFor(int package, const StopRequest &stopped);
    void addLacks(Rules &rules, std::vector<int> packages) const;
    QVector<InstallabilityStep> steps(int package, const Rules &rules) const;
    InstallabilityStep needStep(const InstallationRule &rule) const;
};
