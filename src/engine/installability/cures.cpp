// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/installability/cures.h"

#include "apt/versionorder.h"
#include "engine/installability/curetrial.h"
#include "installability/installabilityreasons.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
/** So many changes are tried for one package; each takes about a tenth of a second. */
constexpr int MostTrials = 16;

/** What is read once, whatever is tried. */
struct Offers
{
    BaseOffers base;
    QVector<OfferList> further;

    static Offers read(const CheckScope &scope, const QStringList &architectures, const StopRequest &stopped)
    {
        Offers offers{BaseOffers::read(scope, architectures, stopped), {}};
        if (scope.base.kind == CompleteCheckBase::Essential) {
            offers.further = offers.base.lists;
        } else if (scope.base.kind != CompleteCheckBase::Public) {
            CheckScope sources = scope;
            sources.base.kind = CompleteCheckBase::Public;
            offers.further = BaseOffers::read(sources, architectures, stopped).lists;
        }
        return offers;
    }
};

/** Collects the packages that could change something about a reason, without repetition. */
class Suspects
{
public:
    explicit Suspects(const CureTrial &trial)
        : m_trial(trial)
        , m_universe(trial.universe())
    { }

    void addStep(const InstallabilityStep &step)
    {
        const int package = indexOf(step.package);
        if (package < 0)
            return;
        if (step.kind == InstallabilityStep::Lacks)
            addLacking(package, step.relation);
        addInvolved(package);
        if (step.kind != InstallabilityStep::Excludes)
            return;
        for (const NamedPackage &target : step.targets) {
            const int excluded = indexOf(target);
            if (excluded >= 0)
                addInvolved(excluded);
        }
    }

    const QVector<int> &fetched() const { return m_fetched; }
    const QVector<int> &removed() const { return m_removed; }

private:
    const CureTrial &m_trial;
    const Universe &m_universe;
    QSet<int> m_seen;
    QVector<int> m_fetched;
    QVector<int> m_removed;

    int indexOf(const NamedPackage &package) const
    {
        return m_trial.find(package.name, package.version, package.architecture);
    }

    void addFetched(int package)
    {
        if (!m_trial.system().isFurther(package) || m_seen.contains(package))
            return;
        m_seen.insert(package);
        m_fetched.append(package);
    }

    /** What the sources offer that would meet the relation; its own name first, the newest first. */
    void addLacking(int package, const QString &relation)
    {
        const std::string text = relation.toStdString();
        for (const Universe::Entry &need : m_universe.needs(package)) {
            if (m_universe.text(need.set) != text)
                continue;
            const auto members = m_universe.members(need.set);
            for (const int named : m_universe.namedIn(need.set)) {
                if (std::binary_search(members.begin(), members.end(), named))
                    addFetched(named);
            }
            std::for_each(members.begin(), members.end(), [this](int member) { addFetched(member); });
        }
    }

    /** Newer versions of a package that the reason names; and the package, where it stands in everybody's way. */
    void addInvolved(int package)
    {
        std::vector<int> newer;
        for (const int other : m_universe.namesakes(package)) {
            if (m_trial.system().isFurther(other)
                && VersionOrder::compare(m_universe.version(other), m_universe.version(package)) > 0)
                newer.push_back(other);
        }
        std::sort(newer.begin(), newer.end(), [this](int a, int b) {
            return VersionOrder::compare(m_universe.version(a), m_universe.version(b)) > 0;
        });
        std::for_each(newer.cbegin(), newer.cend(), [this](int other) { addFetched(other); });
        // A package that nobody has to install is in nobody's way.
        if (m_universe.isEssential(package) && m_universe.role(package) == Universe::Checked
            && !m_removed.contains(package))
            m_removed.append(package);
    }
};

/** Whether the repository has a newer version of the package, which no job replaces with an older one. */
bool isOlderThanPresent(const CureTrial &trial, const CureTrial::Change &change)
{
    const Universe &universe = trial.universe();
    return std::any_of(change.gone.cbegin(), change.gone.cend(), [&](int present) {
        return VersionOrder::compare(universe.version(present), universe.version(change.fetched)) > 0;
    });
}

QVector<int> allNative(const CureTrial &trial, const CheckScope &scope)
{
    return trial.system().nativeAmong(scope.repository.packages);
}
} // namespace

Cures::Cures(CheckScope scope)
    : m_scope(std::move(scope))
{ }

QVector<Cure> Cures::of(const PackageInfoPtr &package, const StopRequest &stopped) const
{
    const Offers offers = Offers::read(
        m_scope, QStringList{package->architecture} + m_scope.base.foreignArchitectures, stopped);
    const CureTrial trial(
        m_scope, offers.base, offers.further, package->architecture, package->type, stopped);
    const int index = trial.system().indexOf(package);
    if (index < 0 || (stopped && stopped()))
        return {};
    InstallabilityCheck check(trial.universe(), trial.goneAfter({}));
    check.run({index}, stopped);
    const auto reason = InstallabilityReasons(check).reason(index, stopped);
    Suspects suspects(trial);
    for (const InstallabilityStep &step : reason)
        suspects.addStep(step);

    QVector<Cure> cures;
    const auto tryOut = [&](Cure::Kind kind, int suspect, const CureTrial::Change &change) {
        const bool isComplete = trial.cures(index, change, false, stopped);
        if (isComplete || (kind != Cure::Remove && trial.cures(index, change, true, stopped)))
            cures.append(cureOf(trial, kind, suspect, package->architecture, isComplete));
    };
    int trials = 0;
    for (const int suspect : suspects.fetched()) {
        const auto change = trial.fetching(suspect);
        const QString own = trial.universe().named(suspect).architecture;
        const bool hasPlace = own == QLatin1String("all") || m_scope.repository.architectures.contains(own);
        if (!hasPlace || isOlderThanPresent(trial, change))
            continue;
        if (++trials > MostTrials || (stopped && stopped()))
            break;
        tryOut(change.gone.empty() ? Cure::Fetch : Cure::Upgrade, suspect, change);
    }
    for (const int suspect : suspects.removed()) {
        if (const auto change = trial.removing(suspect))
            tryOut(Cure::Remove, suspect, *change);
    }
    std::stable_sort(cures.begin(), cures.end(), [](const Cure &a, const Cure &b) {
        return a.isComplete && !b.isComplete;
    });
    return stopped && stopped() ? QVector<Cure>() : cures;
}

CureEffect Cures::effectOf(const Cure &cure, const StopRequest &stopped) const
{
    CureEffect effect;
    const Offers offers = Offers::read(
        m_scope, m_scope.repository.architectures + m_scope.base.foreignArchitectures, stopped);
    for (const QString &architecture : m_scope.repository.architectures) {
        const CureTrial trial(m_scope, offers.base, offers.further, architecture, PackageType::Deb, stopped);
        const int package = trial.find(cure.package, cure.version, cure.architecture);
        if (package < 0 || (stopped && stopped()))
            continue;
        const auto removal = trial.removing(package);
        if (cure.kind == Cure::Remove ? !removal : !trial.system().isFurther(package))
            continue;
        const auto change = cure.kind == Cure::Remove ? *removal : trial.fetching(package);
        const QVector<int> asked = allNative(trial, m_scope);
        InstallabilityCheck before(trial.universe(), trial.goneAfter({}));
        InstallabilityCheck after(trial.universe(), trial.goneAfter(change));
        before.run(asked, stopped);
        after.run(asked, stopped);
        QVector<int> gained;
        QVector<int> lost;
        for (const int other : asked) {
            const bool goes
                = std::find(change.gone.cbegin(), change.gone.cend(), other) != change.gone.cend();
            if (before.state(other) == NotInstallable && after.state(other) == Installable)
                gained.append(other);
            else if (!goes && before.state(other) == Installable && after.state(other) == NotInstallable)
                lost.append(other);
        }
        effect.gained += trial.system().recordsOf(gained);
        effect.lost += trial.system().recordsOf(lost);
    }
    return stopped && stopped() ? CureEffect() : effect;
}

Cure Cures::cureOf(
    const CureTrial &trial, Cure::Kind kind, int package, const QString &index, bool isComplete)
{
    const NamedPackage named = trial.universe().named(package);
    Cure cure;
    cure.kind = kind;
    cure.package = named.name;
    cure.version = named.version;
    cure.architecture = named.architecture == QLatin1String("all") ? index : named.architecture;
    cure.isComplete = isComplete;
    if (kind == Cure::Remove) {
        cure.text = tr("Remove %1 %2").arg(named.name, named.version);
        return cure;
    }
    cure.source = trial.system().originOf(package);
    cure.text = (kind == Cure::Fetch ? tr("Fetch %1 %2 from %3") : tr("Take the newer %1 %2 from %3"))
                    .arg(named.name, named.version, cure.source);
    return cure;
}
