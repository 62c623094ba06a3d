// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/fileinclusion.h"

#include "engine/changes/exportsession.h"
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
    const QString advice
        = QLatin1Char(' ')
          + tr("Choose another component when you add the package, or change the repository.");
    const QString component = record.indexComponent;
    if (ReproAnswer::componentMissing(errorOutput))
        return tr("The package is for the component %1, and the repository has these: %2.")
                   .arg(component, m_context.repository.info().componentList().join(QLatin1String(", ")))
               + advice;
    if (ReproAnswer::componentWithoutUdebs(errorOutput))
        return tr("The component %1 of the repository takes no packages for the installer (.udeb).")
                   .arg(component)
               + advice;
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
