// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/gathering/gathersearch.h"

#include "apt/versionorder.h"
#include "engine/installability/checkedsystem.h"
#include "installability/needindex.h"
#include "installability/settledpackages.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace
{
std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

QString text(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

QString keyOf(const Universe &universe, int package)
{
    return text(universe.name(package)) + QLatin1Char(' ') + text(universe.version(package));
}

bool holds(const Universe::Members &members, int package)
{
    return std::binary_search(members.begin(), members.end(), package);
}
} // namespace

/** The packages for one architecture, and what the search has decided on them. */
class GatherSearch::System
{
public:
    System(const CheckScope &scope,
           const BaseOffers &offers,
           const QString &native,
           PackageType packageType,
           const StopRequest &stopped)
        : architecture(native)
        , type(packageType)
        , checked(scope, offers, native, packageType, stopped)
        , universe(checked.universe())
        , isForbidden(at(universe.count()))
        , isLeaving(at(universe.count()))
    {
        startAnew();
        // After a stop, relations are missing, and nothing is asked.
        if (stopped && stopped())
            return;
        m_index.emplace(universe);
        m_settled.emplace(universe, *m_index);
        for (int package = 0; package < universe.count(); ++package) {
            if (universe.architecture(package) == "all")
                m_forAll.insert(keyOf(universe, package), package);
        }
    }

    const QString architecture;
    const PackageType type;
    const CheckedSystem checked;
    const Universe &universe;
    std::vector<bool> isForbidden; ///< another version meets more
    std::vector<bool> isLeaving; ///< of the repository; something newer takes its place
    std::vector<bool> isVisited;
    std::vector<bool> isChosen;
    std::vector<int> order; ///< of the chosen ones
    QHash<int, QVector<int>> served; ///< by chosen package: the sets for which it was chosen

    void startAnew()
    {
        isVisited.assign(at(universe.count()), false);
        isChosen.assign(at(universe.count()), false);
        order.clear();
        served.clear();
    }
    bool isOwn(int package) const { return universe.role(package) == Universe::Checked; }
    bool isThere(int package) const
    {
        return isOwn(package) ? !isLeaving[at(package)] : isChosen[at(package)];
    }
    int forAll(const QString &key) const { return m_forAll.value(key, -1); }
    bool canEverBeInstalled(int package) const { return m_settled->state(package) != SettledPackages::Never; }

    /** Whether one of them names the other in Conflicts or Breaks. */
    bool areEnemies(int a, int b) const { return excludes(a, b) || excludes(b, a); }
    /** The package of this name that would leave for the other one; -1 when there is none. */
    int ownNamesake(int package) const
    {
        return namesake(package, [this](int other) { return isOwn(other); });
    }
    int chosenNamesake(int package) const
    {
        return namesake(package, [this](int other) { return bool(isChosen[at(other)]); });
    }
    bool isOlderThanOwn(int package) const
    {
        const auto names = universe.namesakes(package);
        return std::any_of(names.begin(), names.end(), [&](int other) {
            return isOwn(other)
                   && VersionOrder::compare(universe.version(other), universe.version(package)) > 0;
        });
    }

private:
    std::optional<NeedIndex> m_index;
    std::optional<SettledPackages> m_settled;
    QHash<QString, int> m_forAll;

    bool excludes(int package, int other) const
    {
        const auto entries = universe.excludes(package);
        return universe.nameId(package) != universe.nameId(other)
               && std::any_of(entries.begin(), entries.end(), [&](const Universe::Entry &entry) {
                      return holds(universe.members(entry.set), other);
                  });
    }
    template <typename Accepts>
    int namesake(int package, const Accepts &accepts) const
    {
        const auto names = universe.namesakes(package);
        const auto found = std::find_if(
            names.begin(), names.end(), [&](int other) { return other != package && accepts(other); });
        return found == names.end() ? -1 : *found;
    }
};

GatherSearch::GatherSearch(const CheckScope &scope, const BaseOffers &offers, StopRequest stopped)
    : m_stopped(std::move(stopped))
    , m_unknownArchitectures(offers.unknownArchitectures)
    , m_packages(scope.repository.packages)
{
    for (const PackageType type : {PackageType::Deb, PackageType::Udeb}) {
        for (const QString &architecture : scope.repository.architectures) {
            const bool isAny
                = std::any_of(m_packages.cbegin(), m_packages.cend(), [&](const PackageInfoPtr &package) {
                      return package->type == type && package->architecture == architecture;
                  });
            // What comes for all architectures needs something on those without a package, too.
            if ((isAny || type == PackageType::Deb) && !isStopped())
                m_systems.push_back(std::make_unique<System>(scope, offers, architecture, type, m_stopped));
        }
    }
}

GatherSearch::~GatherSearch() = default;

GatherPlan GatherSearch::find(const QList<PackageInfoPtr> &wanted, const Progress &progress)
{
    constexpr int MostWalks = 500;
    GatherPlan plan;
    plan.wanted = wanted;
    for (int walks = 1; !isStopped() && !walk(wanted, walks < MostWalks, progress); ++walks) { }
    plan.isComplete = !isStopped();
    if (!plan.isComplete)
        return plan;
    plan = planned();
    plan.wanted = wanted;
    return plan;
}

std::vector<GatherSearch::Place> GatherSearch::twins(const Place &place) const
{
    std::vector<Place> places{place};
    const System &own = *m_systems[at(place.system)];
    if (own.universe.architecture(place.package) != "all")
        return places;
    const QString key = keyOf(own.universe, place.package);
    for (int number = 0; number < static_cast<int>(m_systems.size()); ++number) {
        const System &system = *m_systems[at(number)];
        const int twin = number != place.system && system.type == own.type ? system.forAll(key) : -1;
        if (twin >= 0)
            places.push_back({number, twin});
    }
    return places;
}

bool GatherSearch::walk(const QList<PackageInfoPtr> &wanted, bool mayChooseAnew, const Progress &progress)
{
    std::vector<Place> queue;
    for (int number = 0; number < static_cast<int>(m_systems.size()); ++number) {
        System &system = *m_systems[at(number)];
        system.startAnew();
        for (const PackageInfoPtr &record : wanted) {
            const int package
                = record->architecture == system.architecture ? system.checked.indexOf(record) : -1;
            if (package >= 0)
                queue.push_back({number, package});
        }
    }
    for (std::size_t next = 0; next < queue.size() && !isStopped(); ++next) {
        const Place place = queue[next];
        System &system = *m_systems[at(place.system)];
        if (system.isVisited[at(place.package)] || !system.isThere(place.package))
            continue;
        system.isVisited[at(place.package)] = true;
        for (const Universe::Entry &need : system.universe.needs(place.package)) {
            if (!choose(place, need.set, mayChooseAnew, &queue))
                return false;
        }
        if (progress)
            progress(static_cast<int>(next + 1));
    }
    return true;
}

bool GatherSearch::choose(const Place &owner, int set, bool mayChooseAnew, std::vector<Place> *queue)
{
    System &system = *m_systems[at(owner.system)];
    const Universe &universe = system.universe;
    const auto members = universe.members(set);
    const auto isThere = [&system](int member) { return system.isThere(member); };
    const auto there = std::find_if(members.begin(), members.end(), isThere);
    if (there != members.end()) {
        int taken = *there;
        // The order costs a moment, and of most entries there is one package alone.
        if (std::any_of(there + 1, members.end(), isThere)) {
            const auto ordered = universe.byPreference(set);
            taken = *std::find_if(ordered.begin(), ordered.end(), isThere);
        }
        if (system.isChosen[at(taken)])
            system.served[taken].append(set);
        if (!system.isVisited[at(taken)])
            queue->push_back({owner.system, taken});
        return true;
    }
    const std::vector<int> candidates = universe.byPreference(set);
    std::vector<int> possible;
    std::copy_if(candidates.begin(), candidates.end(), std::back_inserter(possible), [&](int package) {
        return !system.isOwn(package) && !system.isForbidden[at(package)] && !system.isOlderThanOwn(package);
    });
    // What lacks something itself still meets the entry, when there is nothing better.
    std::stable_partition(possible.begin(), possible.end(), [&](int package) {
        return system.canEverBeInstalled(package) && !system.areEnemies(owner.package, package);
    });
    for (const int package : possible) {
        const int rival = system.chosenNamesake(package);
        if (rival >= 0) {
            const QVector<int> sets = system.served.value(rival);
            const bool servesAll = std::all_of(sets.cbegin(), sets.cend(), [&](int served) {
                return holds(universe.members(served), package);
            });
            if (!servesAll || !mayChooseAnew)
                continue;
            for (const Place &twin : twins({owner.system, rival}))
                m_systems[at(twin.system)]->isForbidden[at(twin.package)] = true;
            return false;
        }
        bool isAnyLeaving = false;
        for (const Place &twin : twins({owner.system, package})) {
            System &other = *m_systems[at(twin.system)];
            // The repository can have it for another architecture.
            if (other.isOwn(twin.package))
                continue;
            other.isChosen[at(twin.package)] = true;
            other.order.push_back(twin.package);
            queue->push_back(twin);
            for (const int leaving : other.universe.namesakes(twin.package)) {
                if (!other.isOwn(leaving) || other.isLeaving[at(leaving)])
                    continue;
                other.isLeaving[at(leaving)] = true;
                isAnyLeaving = true;
            }
        }
        system.served[package].append(set);
        // What counted on the version that leaves must look for something else.
        return !isAnyLeaving || !mayChooseAnew;
    }
    return true;
}

GatherPlan GatherSearch::planned() const
{
    GatherPlan plan;
    QHash<QString, int> files;
    std::vector<QVector<int>> rowsOf;
    for (const auto &system : m_systems) {
        const Universe &universe = system->universe;
        QVector<int> rowOf(universe.count(), -1);
        for (const int package : system->order) {
            const QString own = text(universe.architecture(package));
            const QString key = keyOf(universe, package) + QLatin1Char(' ') + own;
            auto row = files.find(key);
            if (row == files.end()) {
                row = files.insert(key, plan.rows.size());
                GatherPlan::Row added;
                added.package.name = text(universe.name(package));
                added.package.version = text(universe.version(package));
                added.package.architecture = system->architecture;
                added.package.repository = system->checked.originOf(package);
                added.ownArchitecture = own;
                added.size = universe.paragraph(package).field("Size").toLongLong();
                plan.rows.append(added);
            }
            rowOf[package] = *row;
            const int leaving = system->ownNamesake(package);
            if (leaving >= 0)
                plan.rows[*row].replaced = text(universe.version(leaving));
        }
        rowsOf.push_back(rowOf);
    }
    for (int number = 0; number < static_cast<int>(m_systems.size()); ++number)
        fillNeeds(number, rowsOf[at(number)], &plan);
    return plan;
}

void GatherSearch::fillNeeds(int number, const QVector<int> &rowOf, GatherPlan *plan) const
{
    const System &system = *m_systems[at(number)];
    const Universe &universe = system.universe;
    // The rows for which a package of the repository leaves.
    QHash<int, QVector<int>> leavesWith;
    for (const int package : system.order) {
        const auto names = universe.namesakes(package);
        for (const int other : names) {
            if (other != package && system.isOwn(other))
                leavesWith[other].append(rowOf.at(package));
        }
    }
    for (int owner = 0; owner < universe.count(); ++owner) {
        const bool isOwn = system.isOwn(owner);
        // A package of the repository that nobody asked for can lose what it has.
        if (!isOwn && rowOf.at(owner) < 0)
            continue;
        for (const Universe::Entry &entry : universe.needs(owner)) {
            GatherPlan::Need need;
            bool isMet = false;
            for (const int member : universe.members(entry.set)) {
                if (rowOf.at(member) >= 0)
                    need.rows.append(rowOf.at(member));
                else if (system.isOwn(member) && leavesWith.contains(member))
                    need.keptWithout += leavesWith.value(member);
                else
                    isMet = isMet || system.isOwn(member);
            }
            if (isMet || (!system.isVisited[at(owner)] && need.keptWithout.isEmpty()))
                continue;
            need.owner.name = text(universe.name(owner));
            need.owner.version = text(universe.version(owner));
            need.owner.architecture = system.architecture;
            need.owner.type = system.type;
            need.entry = text(universe.text(entry.set));
            need.ownerRow = rowOf.at(owner);
            need.leavesWith = leavesWith.value(owner);
            if (need.rows.isEmpty())
                explain(system, owner, entry.set, &need);
            for (const int row : qAsConst(need.rows)) {
                QStringList &names = plan->rows[row].neededBy;
                // What only takes the place of something is not needed for that.
                if (!need.keptWithout.contains(row) && !names.contains(need.owner.name))
                    names.append(need.owner.name);
            }
            plan->needs.append(need);
        }
    }
}

void GatherSearch::explain(const System &system, int owner, int set, GatherPlan::Need *need) const
{
    const Universe &universe = system.universe;
    const auto candidates = universe.byPreference(set);
    const auto tell = [need](GatherPlan::Why why, const QString &details = {}) {
        need->why = why;
        need->details = details;
    };
    for (const int package : candidates) {
        const int rival = system.chosenNamesake(package);
        if (system.isOwn(package))
            return tell(GatherPlan::Why::Leaving);
        if (rival >= 0)
            return tell(GatherPlan::Why::Clash, keyOf(universe, rival));
        if (system.isOlderThanOwn(package))
            return tell(GatherPlan::Why::Newer, keyOf(universe, system.ownNamesake(package)));
    }
    QStringList versions;
    for (const int package : universe.namedIn(set)) {
        if (package != owner && !versions.contains(text(universe.version(package))))
            versions.append(text(universe.version(package)));
    }
    if (system.type == PackageType::Udeb)
        tell(GatherPlan::Why::Installer);
    else if (m_unknownArchitectures.contains(system.architecture))
        tell(GatherPlan::Why::Lists);
    else if (!versions.isEmpty())
        tell(GatherPlan::Why::Versions, versions.join(QLatin1String(", ")));
    else
        tell(GatherPlan::Why::Unknown);
}
