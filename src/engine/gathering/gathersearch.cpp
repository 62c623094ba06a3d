// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/gathering/gathersearch.h"

#include "apt/versionorder.h"
#include "core/countof.h"
#include "core/packagefields.h"
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
           const QString &component,
           const StopRequest &stopped)
        : architecture(native)
        , type(packageType)
        , checked(scope, offers, native, packageType, stopped)
        , universe(checked.universe())
        , isForbidden(at(universe.count()))
        , isLeaving(at(universe.count()))
        , m_component(component)
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
    /** The packages of the repository that leave when the file of this one goes in. */
    QVector<int> leavingFor(int package) const
    {
        QVector<int> leaving;
        for (const int other : universe.namesakes(package))
            if (other != package && isOwn(other) && isInItsPlace(other, package))
                leaving.append(other);
        return leaving;
    }
    int chosenNamesake(int package) const
    {
        const auto names = universe.namesakes(package);
        const auto found = std::find_if(
            names.begin(), names.end(), [&](int other) { return other != package && isChosen[at(other)]; });
        return found == names.end() ? -1 : *found;
    }
    /** The package of the repository in the same place that is newer; -1 when there is none. */
    int newerThan(int package) const
    {
        const auto leaving = leavingFor(package);
        const auto found = std::find_if(leaving.cbegin(), leaving.cend(), [&](int other) {
            return VersionOrder::compare(universe.version(other), universe.version(package)) > 0;
        });
        return found == leaving.cend() ? -1 : *found;
    }

private:
    const QString m_component;
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
    bool isInItsPlace(int own, int offered) const
    {
        const auto records = checked.recordsOf(own);
        const QString component
            = m_component.isEmpty()
                  ? PackageField::splitSection(universe.paragraph(offered).field("Section"), {}).component
                  : m_component;
        // What another component has as well does not leave.
        return std::all_of(records.cbegin(), records.cend(), [&component](const PackageInfoPtr &record) {
            return record->indexComponent.isEmpty() || record->indexComponent == component;
        });
    }
};

GatherSearch::GatherSearch(const CheckScope &scope,
                           const BaseOffers &offers,
                           const StopRequest &stopped,
                           const QString &component)
    : m_stopped(stopped)
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
                m_systems.push_back(
                    std::make_unique<System>(scope, offers, architecture, type, component, m_stopped));
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
    if (!isStopped())
        plan = planned();
    plan.isComplete = !isStopped();
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

bool GatherSearch::mayCome(const Place &place) const
{
    const auto places = twins(place);
    return std::all_of(places.cbegin(), places.cend(), [this](const Place &twin) {
        const System &system = *m_systems[at(twin.system)];
        return system.isOwn(twin.package)
               || (!system.isForbidden[at(twin.package)] && system.newerThan(twin.package) < 0);
    });
}

std::optional<GatherSearch::Place> GatherSearch::rivalOf(const Place &place) const
{
    const auto places = twins(place);
    for (const Place &twin : places) {
        const int rival = m_systems[at(twin.system)]->chosenNamesake(twin.package);
        if (rival >= 0)
            return Place{twin.system, rival};
    }
    return std::nullopt;
}

bool GatherSearch::servesFor(const Place &rival, const Place &place) const
{
    const auto ours = twins(place);
    const auto theirs = twins(rival);
    return std::all_of(theirs.cbegin(), theirs.cend(), [&](const Place &twin) {
        const System &system = *m_systems[at(twin.system)];
        const QVector<int> sets = system.served.value(twin.package);
        const auto here = std::find_if(
            ours.cbegin(), ours.cend(), [&twin](const Place &other) { return other.system == twin.system; });
        return std::all_of(sets.cbegin(), sets.cend(), [&](int set) {
            return here != ours.cend() && holds(system.universe.members(set), here->package);
        });
    });
}

void GatherSearch::take(const Place &place, std::vector<Place> *queue)
{
    const auto places = twins(place);
    for (const Place &twin : places) {
        System &system = *m_systems[at(twin.system)];
        // The repository can have it for another architecture.
        if (system.isOwn(twin.package))
            continue;
        system.isChosen[at(twin.package)] = true;
        system.order.push_back(twin.package);
        queue->push_back(twin);
        const auto leaving = system.leavingFor(twin.package);
        for (const int package : leaving) {
            // What counted on the version that leaves must look for something else.
            m_mustWalkAnew = m_mustWalkAnew || !system.isLeaving[at(package)];
            system.isLeaving[at(package)] = true;
        }
    }
}

void GatherSearch::forbid(const Place &place)
{
    const auto places = twins(place);
    for (const Place &twin : places)
        m_systems[at(twin.system)]->isForbidden[at(twin.package)] = true;
    for (const auto &system : m_systems)
        std::fill(system->isLeaving.begin(), system->isLeaving.end(), false);
}

bool GatherSearch::walk(const QList<PackageInfoPtr> &wanted, bool mayChooseAnew, const Progress &progress)
{
    m_mustWalkAnew = false;
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
    return !m_mustWalkAnew || !mayChooseAnew;
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
        return !system.isOwn(package) && mayCome({owner.system, package});
    });
    // What lacks something itself still meets the entry, when there is nothing better.
    std::stable_partition(possible.begin(), possible.end(), [&](int package) {
        return system.canEverBeInstalled(package) && !system.areEnemies(owner.package, package);
    });
    for (const int package : possible) {
        const Place place{owner.system, package};
        const auto rival = rivalOf(place);
        if (rival) {
            if (!servesFor(*rival, place) || !mayChooseAnew)
                continue;
            forbid(*rival);
            return false;
        }
        take(place, queue);
        system.served[package].append(set);
        break;
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
                row = files.insert(key, countOf(plan.rows));
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
            const auto leaving = system->leavingFor(package);
            if (!leaving.isEmpty())
                plan.rows[*row].replaced = text(universe.version(leaving.first()));
        }
        rowsOf.push_back(rowOf);
    }
    std::vector<QSet<QString>> named(at(countOf(plan.rows)));
    for (int number = 0; number < static_cast<int>(m_systems.size()); ++number)
        fillNeeds(number, rowsOf[at(number)], &named, &plan);
    return plan;
}

void GatherSearch::fillNeeds(int number,
                             const QVector<int> &rowOf,
                             std::vector<QSet<QString>> *named,
                             GatherPlan *plan) const
{
    const System &system = *m_systems[at(number)];
    const Universe &universe = system.universe;
    // The rows for which a package of the repository leaves.
    QHash<int, QVector<int>> leavesWith;
    for (const int package : system.order) {
        const auto leaving = system.leavingFor(package);
        for (const int other : leaving)
            leavesWith[other].append(rowOf.at(package));
    }
    for (int owner = 0; owner < universe.count() && !isStopped(); ++owner) {
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
                explain(number, owner, entry.set, &need);
            for (const int row : std::as_const(need.rows)) {
                QSet<QString> &names = (*named)[at(row)];
                // What only takes the place of something is not needed for that.
                if (need.keptWithout.contains(row) || names.contains(need.owner.name))
                    continue;
                names.insert(need.owner.name);
                plan->rows[row].neededBy.append(need.owner.name);
            }
            plan->needs.append(need);
        }
    }
}

void GatherSearch::explain(int number, int owner, int set, GatherPlan::Need *need) const
{
    const System &system = *m_systems[at(number)];
    const Universe &universe = system.universe;
    const auto candidates = universe.byPreference(set);
    const auto tell = [need](GatherPlan::Why why, const QString &details = {}) {
        need->why = why;
        need->details = details;
    };
    for (const int package : candidates) {
        if (system.isOwn(package))
            return tell(GatherPlan::Why::Leaving);
        const auto places = twins({number, package});
        for (const Place &twin : places) {
            const System &other = *m_systems[at(twin.system)];
            const int rival = other.chosenNamesake(twin.package);
            const int newer = other.newerThan(twin.package);
            if (rival >= 0)
                return tell(GatherPlan::Why::Clash, keyOf(other.universe, rival));
            if (newer >= 0)
                return tell(GatherPlan::Why::Newer, keyOf(other.universe, newer));
        }
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
