// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packageinclusion.h"

#include "apt/dpkgutils.h"
#include "engine/changes/addrun.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packagebackup.h"
#include "engine/changes/packageremoval.h"
#include "engine/changes/packagesigner.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"

#include <QFile>

RepoEnums::ErrorCode PackageInclusion::include(AddedFile *file, const PackageInfo &record, bool replace)
{
    if (record.architecture == QLatin1String("all")) {
        m_context.critical(tr("Cannot added package %1 with architecture all!").arg(file->shownName()));
        return ERROR;
    }
    const PackageKey key = PackageKey::of(record);
    if (file->results.contains(key))
        return file->results.value(key);
    const PackageInfoPtr present = m_context.packages().find(key);
    if (present && !replace)
        return collisionOf(file->shownName(), record, *present);

    // Signed before anything is removed: a key that fails must not cost the package that is there.
    if (!PackageSigner(m_context).sign(file, record.name))
        return PACKAGE_UNSIGNED;

    return present ? replacePackage(file, record, *present) : includeFile(file, record, false);
}

RepoEnums::ErrorCode
PackageInclusion::collisionOf(const QString &file, const PackageInfo &package, const PackageInfo &present)
{
    DpkgUtils dpkg;
    if (dpkg.compareVersions(package.version, QStringLiteral("="), present.version))
        return PACKAGE_EXISTS;
    if (dpkg.compareVersions(package.version, QStringLiteral(">"), present.version))
        return PACKAGE_EXISTS_OLD_VERSION;
    if (dpkg.compareVersions(package.version, QStringLiteral("<"), present.version))
        return PACKAGE_EXISTS_NEW_VERSION;
    m_context.critical(tr("Error adding package %1!").arg(file), dpkg.errorText());
    return ERROR;
}

RepoEnums::ErrorCode
PackageInclusion::replacePackage(AddedFile *file, const PackageInfo &record, const PackageInfo &present)
{
    ExportSession *const session = &file->run.session;
    PackageRemoval removal(m_context, session);
    const auto inTheWay = packagesInTheWay(present, record);
    file->run.backups.emplace_back(m_context.path(), present, inTheWay);
    PackageBackup &backup = file->run.backups.back();
    if (backup.file().isEmpty() && QFile::exists(present.filePath())) {
        m_context.critical(tr("Error adding package %1!").arg(file->shownName()),
                           tr("The present package could not be kept aside, so it was not replaced: %1")
                               .arg(present.filePath()));
        return ERROR;
    }
    const bool makesRoom = present.filePath() == record.filePath();
    QList<PackageInfoPtr> removed;
    for (const PackageInfoPtr &package : inTheWay) {
        const bool isRemoved = removal.remove(package, makesRoom);
        // A run that died may have come further than anybody could find out.
        if (isRemoved || !QFile::exists(package->filePath()))
            removed.append(package);
        if (!isRemoved) {
            m_context.runFailed(tr("Error adding package %1!").arg(file->shownName()),
                                tr("The present package could not be removed, so it was not replaced."));
            restorePackages(removed, &backup, session);
            return ERROR;
        }
    }
    // They had one file, and either all get the new one or all keep the old one.
    for (const PackageInfoPtr &package : inTheWay) {
        PackageInfo successor = record;
        successor.architecture = package->architecture;
        // The results of a check belong to the architecture; a new file has none yet.
        if (successor.hasDependsInfo())
            successor.dependsInfo = package->dependsInfo;
        if (includeFile(file, successor, true) != ERROR)
            continue;
        for (const PackageInfoPtr &other : inTheWay) {
            const PackageInfoPtr included = m_context.packages().find(PackageKey::of(*other));
            if (file->results.remove(PackageKey::of(*other)) > 0 && included)
                removal.remove(included, makesRoom);
        }
        restorePackages(removed, &backup, session);
        return ERROR;
    }
    return file->results.value(PackageKey::of(record), ERROR);
}

bool PackageInclusion::putBack(const PackageInfo &record, const QString &file, ExportSession *session)
{
    if (!isIncluded(runInclude(ReproCommand::include(m_context.repoInfo().codename, record, {file}), session),
                    record))
        return false;
    SignatureRecord::remember(&m_context, record);
    return true;
}

RepoEnums::ErrorCode PackageInclusion::includeFile(AddedFile *file, const PackageInfo &record, bool replaces)
{
    ProcessResult result;
    if (file->run.ahead.remove(file->path, PackageKey::of(record)) == 0) {
        file->run.session.mayLeave(record.filePath());
        result = runInclude(ReproCommand::include(m_context.repoInfo().codename, record, {file->source}),
                            &file->run.session);
        if (!isIncluded(result, record)) {
            m_context.runFailed(tr("Error adding package %1!").arg(file->shownName()),
                                file->shownText(reason(result.errorOutput, record)));
            return ERROR;
        }
    }
    PackageInfo included = record;
    included.signingKey = PackageSigner::keyOf(&file->run);
    SignatureRecord::remember(&m_context, included);
    file->run.records.append(packageIncluded(included, replaces));
    const ErrorCode code = ReproAnswer::signingFailed(result.errorOutput) ? PACKAGE_GPGERROR : SUCCESS;
    file->results.insert(PackageKey::of(record), code);
    return code;
}

QString PackageInclusion::reason(const QString &errorOutput, const PackageInfo &record) const
{
    const QString advice
        = QLatin1Char(' ')
          + tr("Choose another component when you add the package, or change the repository.");
    const QString component = record.indexComponent;
    if (ReproAnswer::componentMissing(errorOutput))
        return tr("The package is for the component %1, and the repository has these: %2.")
                   .arg(component, m_context.repoInfo().componentList().join(QLatin1String(", ")))
               + advice;
    if (ReproAnswer::componentWithoutUdebs(errorOutput))
        return tr("The component %1 of the repository takes no packages for the installer (.udeb).")
                   .arg(component)
               + advice;
    return errorOutput;
}

bool PackageInclusion::isIncluded(const ProcessResult &result, const PackageInfo &record)
{
    const bool isSure = !result.crashed() && !ReproAnswer::databaseTroubled(result.errorOutput);
    if (isSure && result.succeeded())
        return !ReproAnswer::inclusionSkipped(result.errorOutput);
    // What a run that died, or could not write its database, has done, only the database knows.
    if (!isSure)
        return m_context.packageFilePath(record.name, record.indexComponent, record.architecture)
               == record.filePath();
    // When only the indices could not be written, the package is in all the same, and the end of the job tells of
    // the indices.
    return ReproAnswer::indicesOutdated(result.errorOutput) || ReproAnswer::signingFailed(result.errorOutput);
}

QList<PackageInfoPtr> PackageInclusion::packagesInTheWay(const PackageInfo &present,
                                                         const PackageInfo &record) const
{
    QList<PackageInfoPtr> packages{m_context.packages().find(PackageKey::of(present))};
    if (present.filePath() != record.filePath())
        return packages;
    // An architecture-independent package has one file for all architectures, and as long as one of them uses the
    // old file, reprepro takes no other contents under its name.
    const QStringList architectures = m_context.repoInfo().binaryArchitectures();
    for (const QString &architecture : architectures) {
        PackageKey key = PackageKey::of(present);
        key.architecture = architecture;
        const PackageInfoPtr twin = m_context.packages().find(key);
        if (twin && architecture != present.architecture && twin->filePath() == present.filePath())
            packages.append(twin);
    }
    return packages;
}

ProcessResult PackageInclusion::runInclude(const QString &arguments, ExportSession *session)
{
    QString attempt = arguments;
    ProcessResult result = session->modify(attempt);
    if (!result.succeeded() && ReproAnswer::priorityMissing(result.errorOutput)) {
        attempt = ReproCommand::defaultPriority() + arguments;
        result = session->modify(attempt);
    }
    if (!result.succeeded() && ReproAnswer::otherFileInPool(result.errorOutput)
        && session->dropUnreferencedFiles())
        result = session->modify(attempt);
    return result;
}

PackageInfoPtr PackageInclusion::packageIncluded(const PackageInfo &record, bool replaced)
{
    PackageInfoPtr package = QSharedPointer<PackageInfo>::create(record);
    m_context.packages().append(package);
    if (replaced)
        m_context.packageChanged(package);
    else
        m_context.packageAdded(package);
    return package;
}

void PackageInclusion::restorePackages(const QList<PackageInfoPtr> &packages,
                                       PackageBackup *backup,
                                       ExportSession *session)
{
    // The end of the job puts back everything.
    if (session->isDamaged())
        return;
    for (const PackageInfoPtr &package : packages) {
        if (!backup->file().isEmpty() && putBack(*package, backup->file(), session)) {
            m_context.packages().append(package);
            m_context.packageAdded(package);
            continue;
        }
        if (backup->file().isEmpty()) {
            m_context.critical(
                tr("The replaced package %1 could not be put back: its file was missing already.")
                    .arg(package->name));
            continue;
        }
        backup->keep();
        m_context.critical(tr("The replaced package %1 could not be put back. Its file is kept as %2.")
                               .arg(package->name, backup->file()),
                           m_context.lastErrorOutput());
    }
}
