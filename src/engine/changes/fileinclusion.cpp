// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/fileinclusion.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/inclusionrules.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"

FileInclusion::Outcome FileInclusion::include(const PackageInfo &record, const QString &file)
{
    ProcessResult result = run(ReproCommand::include(m_context.repository.info().codename, record, {file}));
    return {isIncluded(result, record), std::move(result)};
}

FileInclusion::Outcome FileInclusion::putBack(const PackageInfo &record, const QString &file)
{
    Outcome outcome = include(record, file);
    if (outcome.isIncluded)
        SignatureRecord::remember(&m_context, record);
    return outcome;
}

QString FileInclusion::reason(const QString &errorOutput, const PackageInfo &record) const
{
    const QString component = record.indexComponent;
    if (ReproAnswer::componentMissing(errorOutput))
        return InclusionRules::componentRefusal(component, m_context.repository.info());
    if (ReproAnswer::componentWithoutUdebs(errorOutput))
        return InclusionRules::installerRefusal(component);
    return errorOutput;
}

ProcessResult FileInclusion::run(const QString &arguments)
{
    QString attempt = arguments;
    ProcessResult result = m_session.modify(attempt);
    if (!result.succeeded() && ReproAnswer::priorityMissing(result.errorOutput)) {
        attempt = ReproCommand::defaultPriority() + arguments;
        result = m_session.modify(attempt);
    }
    if (!result.succeeded() && ReproAnswer::otherFileInPool(result.errorOutput)
        && m_session.dropUnreferencedFiles())
        result = m_session.modify(attempt);
    return result;
}

bool FileInclusion::isIncluded(const ProcessResult &result, const PackageInfo &record)
{
    const bool isSure = !result.crashed() && !ReproAnswer::databaseTroubled(result.errorOutput);
    if (isSure && result.succeeded())
        return !ReproAnswer::inclusionSkipped(result.errorOutput);
    // After a run that died or could not write the database, only the database knows the result.
    if (!isSure)
        return m_context.reprepro.packageFilePath(record.name, record.indexComponent, record.architecture)
               == record.filePath();
    // When only the indices could not be written, the package is in, and the end of the job tells of the indices.
    return ReproAnswer::indicesOutdated(result.errorOutput) || ReproAnswer::signingFailed(result.errorOutput);
}
