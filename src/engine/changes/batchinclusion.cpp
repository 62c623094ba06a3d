// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/batchinclusion.h"

#include "apt/versionorder.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packageinclusion.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"

#include <QFileInfo>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
/** The arguments of a run that takes a file for all of its architectures. Files with the same can share the run. */
QString runArguments(const QString &codename, const PackageInfo &record, const QStringList &paths)
{
    PackageInfo everywhere = record;
    everywhere.architecture.clear();
    return ReproCommand::include(codename, everywhere, paths);
}
} // namespace

void BatchInclusion::include(const QVector<Candidate> &candidates, bool replacesOlder)
{
    QSet<PackageKey> taken;
    QVector<Candidate> shared;
    for (const Candidate &candidate : candidates) {
        const QVector<PackageInfo> &records = candidate.records;
        const bool isShared
            = !records.isEmpty()
              && std::all_of(records.cbegin(), records.cend(), [&](const PackageInfo &record) {
                     return !taken.contains(PackageKey::of(record)) && isPlain(record, replacesOlder);
                 });
        // Of several files for one place, also of those that go in alone, the later ones must not go in first.
        for (const PackageInfo &record : records)
            taken.insert(PackageKey::of(record));
        if (isShared)
            shared.append(candidate);
    }
    includeFromSource(shared);
    if (m_session.isDamaged() || m_session.isRefused() || m_context.control.mustEnd())
        return;
    QMap<QString, QVector<Candidate>> groups;
    for (const Candidate &candidate : std::as_const(shared)) {
        if (candidate.isForeign || m_inclusion.isAhead(candidate.path))
            continue;
        const QString suffix = QLatin1Char('.') + QFileInfo(candidate.path).suffix();
        groups[runArguments(m_context.repository.info().codename, candidate.records.first(), {suffix})]
            .append(candidate);
    }
    for (const QVector<Candidate> &group : std::as_const(groups)) {
        if (group.size() > 1)
            includeGroup(group);
    }
}

bool BatchInclusion::isPlain(const PackageInfo &record, bool replacesOlder) const
{
    // reprepro refuses a file without a priority, and a priority on the command line would apply to all files.
    if (record.architecture == QLatin1String("all") || record.control.field("Priority").isEmpty())
        return false;
    const PackageInfoPtr present = m_context.packages.find(PackageKey::of(record));
    return !present || (replacesOlder && isPlainSuccessor(record, *present));
}

bool BatchInclusion::isPlainSuccessor(const PackageInfo &record, const PackageInfo &present)
{
    return record.filePath() != present.filePath()
           && VersionOrder::holds(record.version, QStringLiteral(">>"), present.version);
}

bool BatchInclusion::readsForIndex()
{
    if (!m_usesSource)
        m_usesSource
            = PackageSource::suits(ConfigFolder(m_context.gate.admit(m_context.path()).configFolder()),
                                   m_context.repository.info().codename);
    return *m_usesSource;
}

void BatchInclusion::includeFromSource(const QVector<Candidate> &candidates)
{
    // The run starts more programs than an inclusion does.
    constexpr int FewestFiles = 4;
    constexpr int MostFailures = 3;
    QVector<Candidate> suitable;
    for (const Candidate &candidate : candidates)
        if (candidate.checksums.isValid() && PackageSource::suits(candidate))
            suitable.append(candidate);
    if (suitable.size() < FewestFiles || m_failures >= MostFailures || !readsForIndex())
        return;
    recordFiles(suitable);
    // The folder of the copies can be that of a job of another program.
    if (m_session.isRefused())
        return;
    PackageSource source(m_context.path(),
                         ConfigFolder(m_context.gate.admit(m_context.path()).configFolder()),
                         m_context.repository.info().codename,
                         suitable);
    if (!source.isValid())
        return;
    const ProcessResult result = m_session.modifyWith(&source.config(), source.arguments());
    const QSet<QString> added = ReproAnswer::addedPlaces(result.output);
    // One file that is refused ends the run for all, mostly before it has changed anything.
    if (!result.succeeded() || ReproAnswer::databaseTroubled(result.errorOutput)) {
        ++m_failures;
        if (!added.isEmpty() && !m_session.isDamaged())
            noteAll(suitable);
        return;
    }
    for (const Candidate &candidate : std::as_const(suitable))
        for (const PackageInfo &record : candidate.records)
            if (added.contains(ReproAnswer::place(m_context.repository.info().codename,
                                                  record.indexComponent,
                                                  record.architecture,
                                                  record.name)))
                m_inclusion.setAhead(candidate.path, PackageKey::of(record));
}

void BatchInclusion::includeGroup(QVector<Candidate> group)
{
    // Each refused file costs a run and a listing. A group of many refused files is tried file by file.
    constexpr int MostRefused = 8;
    for (int refused = 0; group.size() > 1 && refused < MostRefused; ++refused) {
        const ProcessResult result = runWith(group);
        if (m_session.isDamaged() || m_session.isRefused())
            return;
        if (result.succeeded() && !ReproAnswer::inclusionSkipped(result.errorOutput)
            && !ReproAnswer::databaseTroubled(result.errorOutput)) {
            for (const Candidate &candidate : std::as_const(group))
                for (const PackageInfo &record : candidate.records)
                    m_inclusion.setAhead(candidate.path, PackageKey::of(record));
            return;
        }
        const QSet<ReproListing::Package> present = packagesInDatabase(group);
        QVector<Candidate> left;
        for (const Candidate &candidate : std::as_const(group))
            if (!note(candidate, present))
                left.append(candidate);
        if (left.isEmpty() || result.succeeded() || result.crashed() || !result.started
            || m_context.control.mustEnd())
            return;
        // reprepro skips some refused files and ends at others. Either way the first file that is not in was refused.
        left.removeFirst();
        group = left;
    }
}

ProcessResult BatchInclusion::runWith(const QVector<Candidate> &group)
{
    QStringList paths;
    for (const Candidate &candidate : group)
        paths.append(candidate.path);
    recordFiles(group);
    return m_session.modify(
        runArguments(m_context.repository.info().codename, group.first().records.first(), paths));
}

void BatchInclusion::recordFiles(const QVector<Candidate> &group)
{
    QStringList coming;
    QStringList going;
    for (const Candidate &candidate : group) {
        coming.append(candidate.records.first().filePath());
        for (const PackageInfo &record : candidate.records)
            if (const PackageInfoPtr replaced = m_context.packages.find(PackageKey::of(record)))
                going.append(replaced->filePath());
    }
    m_session.recordAtRisk(coming);
    m_session.recordFreed(going);
}

QSet<ReproListing::Package> BatchInclusion::packagesInDatabase(const QVector<Candidate> &group)
{
    QStringList names;
    for (const Candidate &candidate : group)
        names.append(candidate.records.first().name);
    const ProcessResult result = m_context.reprepro.run(ReproCommand::listPackages(
        m_context.repository.info().codename, names, group.first().records.first().indexComponent));
    const auto listed = ReproListing::packages(result.output);
    return {listed.cbegin(), listed.cend()};
}

void BatchInclusion::noteAll(const QVector<Candidate> &candidates)
{
    m_session.requireExport();
    QMap<QString, QVector<Candidate>> components;
    for (const Candidate &candidate : candidates)
        components[candidate.records.first().indexComponent].append(candidate);
    for (const QVector<Candidate> &component : std::as_const(components)) {
        const QSet<ReproListing::Package> present = packagesInDatabase(component);
        for (const Candidate &candidate : component)
            note(candidate, present);
    }
}

bool BatchInclusion::note(const Candidate &candidate, const QSet<ReproListing::Package> &present)
{
    bool areAllIn = true;
    for (const PackageInfo &record : candidate.records) {
        const QString file = record.filePath().mid(m_context.path().size() + 1);
        if (present.contains({record.indexComponent, record.architecture, record.name, file}))
            m_inclusion.setAhead(candidate.path, PackageKey::of(record));
        else
            areAllIn = false;
    }
    return areAllIn;
}
