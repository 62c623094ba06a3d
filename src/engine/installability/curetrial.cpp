// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/curetrial.h"

#include <algorithm>

CureTrial::CureTrial(const CheckScope &scope,
                     const BaseOffers &offers,
                     const QVector<OfferList> &further,
                     const QString &architecture,
                     PackageType type,
                     const StopRequest &stopped)
    : m_system(scope, offers, architecture, type, stopped, further)
{ }

int CureTrial::find(const QString &name, const QString &version, const QString &architecture) const
{
    const std::string wantedName = name.toStdString();
    const std::string wantedVersion = version.toStdString();
    const std::string wantedArchitecture = architecture.toStdString();
    for (int package = 0; package < universe().count(); ++package) {
        if (universe().name(package) == wantedName && universe().version(package) == wantedVersion
            && (universe().architecture(package) == "all"
                || universe().architecture(package) == wantedArchitecture))
            return package;
    }
    return -1;
}

CureTrial::Change CureTrial::fetching(int package) const
{
    Change change;
    change.fetched = package;
    const int architecture = universe().traits(package).architecture;
    for (const int other : universe().namesakes(package)) {
        // What the base has too stays at hand.
        if (universe().role(other) == Universe::Checked && !m_system.isOffered(other)
            && universe().traits(other).architecture == architecture)
            change.gone.push_back(other);
    }
    return change;
}

std::optional<CureTrial::Change> CureTrial::removing(int package) const
{
    if (universe().role(package) != Universe::Checked || m_system.isOffered(package))
        return std::nullopt;
    return Change{-1, {package}};
}

std::vector<int> CureTrial::goneAfter(const Change &change) const
{
    std::vector<int> gone = change.gone;
    for (int package = m_system.firstFurther(); package < universe().count(); ++package) {
        if (package != change.fetched)
            gone.push_back(package);
    }
    return gone;
}

bool CureTrial::cures(int package, const Change &change, bool withAll, const StopRequest &stopped) const
{
    // The package itself may be the one that is replaced.
    const bool isReplaced
        = std::find(change.gone.cbegin(), change.gone.cend(), package) != change.gone.cend();
    const int asked = isReplaced ? change.fetched : package;
    if (asked < 0)
        return false;
    InstallabilityCheck check(universe(), withAll ? change.gone : goneAfter(change));
    check.run({asked}, stopped);
    return check.state(asked) == Installable;
}
