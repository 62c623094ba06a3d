// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/batchinclusion.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packageinclusion.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QFileInfo>
#include <QMap>
#include <QSet>

void BatchInclusion::include(const QVector<Candidate> &candidates)
{
    QSet<PackageKey> taken;
    QMap<QString, QVector<Candidate>> groups;
    for (const Candidate &candidate : candidates) {
        const PackageKey key = PackageKey::of(candidate.record);
        // When two files are for the same place, the second one is a collision.
        if (taken.contains(key) || !isPlain(candidate))
            continue;
        taken.insert(key);
        const QString sameArguments
            = ReproCommand::include(m_context.repository.info().codename,
                                    candidate.record,
                                    {QLatin1Char('.') + QFileInfo(candidate.path).suffix()});
        groups[sameArguments].append(candidate);
    }
    for (const QVector<Candidate> &group : qAsConst(groups)) {
        if (group.size() > 1)
            includeGroup(group);
    }
}

bool BatchInclusion::isPlain(const Candidate &candidate) const
{
    // reprepro refuses a file without a priority, and a priority on the command line would apply to all files.
    return candidate.record.architecture != QLatin1String("all")
           && !candidate.record.control.field("Priority").isEmpty()
           && m_context.packages.find(PackageKey::of(candidate.record)).isNull();
}

void BatchInclusion::includeGroup(QVector<Candidate> group)
{
    // Each refused file costs a run and a listing. A group of many refused files is tried file by file.
    constexpr int MostRefused = 8;
    for (int refused = 0; group.size() > 1 && refused < MostRefused && !m_session.isDamaged(); ++refused) {
        const ProcessResult result = runWith(group);
        const bool areAllIn = result.succeeded() && !ReproAnswer::inclusionSkipped(result.errorOutput)
                              && !ReproAnswer::databaseTroubled(result.errorOutput);
        if (m_session.isDamaged())
            return;
        const QSet<QString> present = areAllIn ? QSet<QString>() : filesInDatabase(group);
        QVector<Candidate> left;
        for (const Candidate &candidate : qAsConst(group)) {
            if (areAllIn || present.contains(candidate.record.filePath()))
                m_inclusion.setAhead(candidate.path, PackageKey::of(candidate.record));
            else
                left.append(candidate);
        }
        if (left.isEmpty() || result.succeeded() || result.crashed() || !result.started
            || m_context.control.mustEnd())
            return;
        // reprepro ends at the first file that it refuses.
        left.removeFirst();
        group = left;
    }
}

ProcessResult BatchInclusion::runWith(const QVector<Candidate> &group)
{
    QStringList paths;
    for (const Candidate &candidate : group) {
        m_session.recordAtRisk(candidate.record.filePath());
        paths.append(candidate.path);
    }
    return m_session.modify(
        ReproCommand::include(m_context.repository.info().codename, group.first().record, paths));
}

QSet<QString> BatchInclusion::filesInDatabase(const QVector<Candidate> &group)
{
    QStringList names;
    for (const Candidate &candidate : group)
        names.append(candidate.record.name);
    const PackageInfo &first = group.first().record;
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
        m_context.repository.info().codename, names, first.indexComponent, first.architecture));
    QSet<QString> files;
    for (const QString &file : ReproListing::files(listed.output))
        files.insert(m_context.path() + QLatin1Char('/') + file);
    return files;
}
