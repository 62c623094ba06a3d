// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/installabilityeffect.h"

#include "engine/installability/checkedsystem.h"
#include "installability/installabilitycheck.h"
#include "installability/installabilityreasons.h"
#include "installability/installabilitytext.h"
#include "installability/reverseneeds.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
/** Finding a reason takes a moment, and nobody reads thousands of them. */
constexpr int MostReasons = 200;

/** The packages of one system in one state, and what becomes of those that are asked about. */
class State
{
public:
    State(const CheckScope &scope,
          const BaseOffers &offers,
          const QString &architecture,
          PackageType type,
          const RepositorySnapshot *neighbour,
          StopRequest stopped)
        : m_stopped(std::move(stopped))
        , m_system(scope, offers, architecture, type, m_stopped, {}, neighbour)
        , m_check(m_system.universe())
        , m_reasons(m_check)
    { }

    /** The records of the repository that need one of these. */
    QList<PackageInfoPtr> usersOf(const QList<PackageInfoPtr> &records) const
    {
        // Another component or the base may offer the same; then nothing changes.
        const QVector<int> packages = m_system.withoutRecords(records);
        if (packages.isEmpty())
            return {};
        return m_system.recordsOf(ReverseNeeds(m_system.universe()).possibleUsers(packages));
    }

    void run(const QList<PackageInfoPtr> &records) { m_check.run(m_system.nativeAmong(records), m_stopped); }

    Installability of(const PackageInfoPtr &record) const
    {
        const int package = m_system.indexOf(record);
        return package < 0 ? InstallabilityUnknown : m_check.state(package);
    }

    PreviewLoss loss(const QString &repository, const PackageInfoPtr &record)
    {
        PreviewLoss loss{repository, record, {}};
        if (++m_told <= MostReasons)
            loss.reasons
                = InstallabilityText::sentences(m_reasons.reason(m_system.indexOf(record), m_stopped));
        return loss;
    }

private:
    StopRequest m_stopped;
    CheckedSystem m_system;
    InstallabilityCheck m_check;
    InstallabilityReasons m_reasons;
    int m_told = 0;
};

QList<PackageInfoPtr> without(const QList<PackageInfoPtr> &records, const QSet<PackageInfoPtr> &others)
{
    QList<PackageInfoPtr> left;
    std::copy_if(records.cbegin(), records.cend(), std::back_inserter(left), [&others](const auto &record) {
        return !others.contains(record);
    });
    return left;
}
} // namespace

InstallabilityEffect::InstallabilityEffect(States states, StopRequest stopped)
    : m_states(std::move(states))
    , m_stopped(std::move(stopped))
{
    for (const PreviewRow &row : std::as_const(m_states.rows)) {
        if (!row.takesPart() || row.relation == PreviewRow::SameFile)
            continue;
        if (row.present)
            m_gone.append(row.present);
        if (row.offered && row.change.kind != PackageChange::Removed)
            m_coming.append(row.offered);
    }
}

bool InstallabilityEffect::find(PreviewEffect *effect)
{
    effect->lost.clear();
    effect->gained.clear();
    effect->uninstallable.clear();
    effect->base = InstallabilityText::base(m_states.before.base);
    CheckScope after = m_states.before;
    after.repository = m_states.after;
    QStringList architectures = m_states.before.repository.architectures + m_states.after.architectures;
    architectures.removeDuplicates();
    QStringList read = architectures + m_states.before.base.foreignArchitectures;
    for (const RepositorySnapshot &other : std::as_const(m_states.before.others))
        read += other.architectures;
    read.removeDuplicates();
    if (m_gone.isEmpty() && m_coming.isEmpty())
        return !isStopped();
    m_offers = BaseOffers::read(m_states.before, read, m_stopped);
    if (!m_offers.problem.isEmpty())
        effect->base += QLatin1String(" (") + m_offers.problem + QLatin1Char(')');
    for (const PackageType type : {PackageType::Deb, PackageType::Udeb}) {
        for (const QString &architecture : std::as_const(architectures))
            ask({m_states.before, after, nullptr, nullptr, architecture, type}, effect);
        for (const RepositorySnapshot &other : std::as_const(m_states.before.others)) {
            CheckScope scope = m_states.before;
            scope.repository = other;
            for (const QString &architecture : other.architectures)
                ask({scope, scope, &m_states.before.repository, &m_states.after, architecture, type}, effect);
        }
    }
    return !isStopped();
}

void InstallabilityEffect::ask(const Question &question, PreviewEffect *effect) const
{
    const auto ofType = [&question](const QList<PackageInfoPtr> &records) {
        QList<PackageInfoPtr> found;
        std::copy_if(records.cbegin(), records.cend(), std::back_inserter(found), [&](const auto &record) {
            return record->type == question.type;
        });
        return found;
    };
    const QList<PackageInfoPtr> gone = ofType(m_gone);
    const QList<PackageInfoPtr> coming = ofType(m_coming);
    if (isStopped() || !CheckedSystem::isAnyRead(gone + coming, question.architecture, question.before.base))
        return;
    State before(
        question.before, m_offers, question.architecture, question.type, question.neighbourBefore, m_stopped);
    State after(
        question.after, m_offers, question.architecture, question.type, question.neighbourAfter, m_stopped);

    // Only what is taken away can make a package lose, and only what comes can make one gain.
    const QSet<PackageInfoPtr> changed = QSet<PackageInfoPtr>(gone.cbegin(), gone.cend())
                                         + QSet<PackageInfoPtr>(coming.cbegin(), coming.cend());
    QList<PackageInfoPtr> kept = without(before.usersOf(gone), changed);
    kept
        += without(without(after.usersOf(coming), changed), QSet<PackageInfoPtr>(kept.cbegin(), kept.cend()));
    const bool isOwn = question.neighbourBefore == nullptr;
    before.run(isOwn ? kept + gone : kept);
    after.run(isOwn ? kept + coming : kept);
    if (isStopped())
        return;
    const QString &path = question.before.repository.path;
    const QSet<PackageInfoPtr> arrived(coming.cbegin(), coming.cend());
    for (const PackageInfoPtr &record : std::as_const(kept)) {
        if (before.of(record) == Installable && after.of(record) == NotInstallable)
            effect->lost.append(after.loss(path, record));
        else if (before.of(record) == NotInstallable && after.of(record) == Installable)
            effect->gained.append(before.loss(path, record));
    }
    if (!isOwn)
        return;
    for (const PreviewRow &row : std::as_const(m_states.rows)) {
        if (!row.takesPart() || !arrived.contains(row.offered)
            || row.change.architecture != question.architecture)
            continue;
        const Installability then = after.of(row.offered);
        const Installability now = row.present ? before.of(row.present) : InstallabilityUnknown;
        if (then == NotInstallable && now == Installable)
            effect->lost.append(after.loss(path, row.offered));
        else if (then == NotInstallable)
            effect->uninstallable.append(after.loss(path, row.offered));
        else if (then == Installable && now == NotInstallable)
            effect->gained.append({path, row.offered, before.loss(path, row.present).reasons});
    }
}
