// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/essentialpackages.h"

#include "installability/universe.h"

#include <algorithm>
#include <vector>

namespace
{
/** The member of a needed set that a system would have: the newest one with the first name of the entry. */
int chosenOf(const Universe &universe, int set)
{
    const auto members = universe.members(set);
    const auto isMember
        = [&](int package) { return std::binary_search(members.begin(), members.end(), package); };
    const auto named = universe.namedIn(set);
    const auto found = std::find_if(named.cbegin(), named.cend(), isMember);
    if (found != named.cend())
        return *found;
    return members.isEmpty() ? -1 : members[0];
}

/** Whether the system has each of these. */
std::vector<bool> essentialAmong(const Universe &universe)
{
    std::vector<bool> isChosen(static_cast<std::size_t>(universe.count()), false);
    std::vector<int> open;
    const auto choose = [&](int package) {
        if (package < 0 || isChosen[static_cast<std::size_t>(package)])
            return;
        isChosen[static_cast<std::size_t>(package)] = true;
        open.push_back(package);
    };
    for (const auto &versions : universe.essential())
        std::for_each(versions.cbegin(), versions.cend(), choose);
    while (!open.empty()) {
        const int package = open.back();
        open.pop_back();
        for (const Universe::Entry &need : universe.needs(package)) {
            const auto members = universe.members(need.set);
            const bool isMet = std::any_of(members.begin(), members.end(), [&](int member) {
                return isChosen[static_cast<std::size_t>(member)];
            });
            if (!isMet)
                choose(chosenOf(universe, need.set));
        }
    }
    return isChosen;
}
} // namespace

QVector<OfferList>
essentialOffers(const QVector<OfferList> &lists, const InstallSystem &system, const StopRequest &stopped)
{
    Universe universe(system);
    std::vector<std::pair<int, int>> places; // by package: its list, and the place there
    for (int list = 0; list < lists.size(); ++list) {
        const auto &packages = lists.at(list).packages;
        const QString &architecture = lists.at(list).architecture;
        const bool isRead = architecture.isEmpty() || architecture == QLatin1String("all")
                            || architecture == system.native || system.foreign.contains(architecture);
        for (int i = 0; isRead && i < packages.size(); ++i) {
            const int index = universe.add(packages.at(i), Universe::Offered);
            if (index == static_cast<int>(places.size()))
                places.emplace_back(list, i);
        }
    }
    universe.finish(stopped);
    const auto isChosen = essentialAmong(universe);
    QVector<OfferList> essential;
    for (const OfferList &list : lists)
        essential.append({list.origin, list.architecture, list.type, {}});
    for (std::size_t package = 0; package < places.size(); ++package) {
        const auto [list, place] = places[package];
        if (isChosen[package])
            essential[list].packages.append(lists.at(list).packages.at(place));
    }
    return essential;
}
