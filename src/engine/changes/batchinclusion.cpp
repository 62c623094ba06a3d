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

void BatchInclusion::includeGroup(const QVector<Candidate> &group)
{
    QStringList paths;
    for (const Candidate &candidate : group) {
        m_session.recordAtRisk(candidate.record.filePath());
        paths.append(candidate.path);
    }
    const ProcessResult result = m_session.modify(
        ReproCommand::include(m_context.repository.info().codename, group.first().record, paths));
    const bool areAllIn = result.succeeded() && !ReproAnswer::inclusionSkipped(result.errorOutput)
                          && !ReproAnswer::databaseTroubled(result.errorOutput);
    if (m_session.isDamaged())
        return;
    const QStringList present = areAllIn ? QStringList() : filesInDatabase(group);
    for (const Candidate &candidate : group) {
        if (areAllIn || present.contains(candidate.record.filePath()))
            m_inclusion.setAhead(candidate.path, PackageKey::of(candidate.record));
    }
}

QStringList BatchInclusion::filesInDatabase(const QVector<Candidate> &group)
{
    QStringList names;
    for (const Candidate &candidate : group)
        names.append(candidate.record.name);
    const PackageInfo &first = group.first().record;
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
        m_context.repository.info().codename, names, first.indexComponent, first.architecture));
    QStringList files = ReproListing::files(listed.output);
    for (QString &file : files)
        file.prepend(m_context.path() + QLatin1Char('/'));
    return files;
}
