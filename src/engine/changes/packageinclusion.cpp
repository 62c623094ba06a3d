// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/packageinclusion.h"

#include "apt/dpkgutils.h"
#include "engine/changes/addedfile.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/inclusionrules.h"
#include "engine/changes/jobcontext.h"
#include "engine/changes/packageremoval.h"
#include "engine/changes/signaturerecord.h"
#include "engine/history/keptfiles.h"
#include "engine/reprepro/repreproanswers.h"

#include <QFile>

namespace
{
QString poolFileOf(const PackageInfo &package)
{
    return package.filePath().mid(package.root.size() + 1);
}
} // namespace

RepoEnums::ErrorCode PackageInclusion::include(AddedFile *file, const PackageInfo &record, bool replace)
{
    if (record.architecture == QLatin1String("all")) {
        m_context.errors.critical(tr("Cannot added package %1 with architecture all!").arg(file->shownName));
        return ERROR;
    }
    const PackageKey key = PackageKey::of(record);
    if (file->results.contains(key))
        return file->results.value(key);
    const PackageInfoPtr present = m_context.packages.find(key);
    if (present && m_ahead.contains(file->path, key))
        return takePlace(file, record, present);
    if (present && !replace)
        return collisionOf(file->shownName, record, *present);

    // The file is signed before anything is removed: a bad key must not cost the package that is there.
    if (!m_signer.sign(file, record.name))
        return PACKAGE_UNSIGNED;

    return present ? replacePackage(file, record, *present) : includeFile(file, record, false);
}

RepoEnums::ErrorCode
PackageInclusion::collisionOf(const QString &file, const PackageInfo &package, const PackageInfo &present)
{
    if (const auto collision = InclusionRules::collision(package.version, present.version))
        return *collision;
    // dpkg refuses one of the versions, and says why.
    DpkgUtils dpkg;
    dpkg.compareVersions(package.version, QStringLiteral("="), present.version);
    m_context.errors.critical(tr("Error adding package %1!").arg(file), dpkg.errorText());
    return ERROR;
}

RepoEnums::ErrorCode
PackageInclusion::replacePackage(AddedFile *file, const PackageInfo &record, const PackageInfo &present)
{
    PackageRemoval removal(m_context, &m_session);
    const auto inTheWay = packagesInTheWay(present, record);
    const bool isRefused = !m_session.keep().succeeded();
    const QString kept = isRefused ? QString() : m_session.keepAside(poolFileOf(present));
    if (!isRefused && kept.isEmpty() && QFile::exists(present.filePath())) {
        m_context.errors.critical(
            tr("Error adding package %1!").arg(file->shownName),
            tr("The present package could not be kept aside, so it was not replaced: %1")
                .arg(present.filePath()));
        return ERROR;
    }
    const bool makesRoom = present.filePath() == record.filePath();
    QList<PackageInfoPtr> removed;
    for (const PackageInfoPtr &package : inTheWay) {
        const bool isRemoved = removal.remove(package, makesRoom);
        // A run that died may have removed the file, although the database still lists it.
        if (isRemoved || !QFile::exists(package->filePath()))
            removed.append(package);
        if (!isRemoved) {
            m_context.errors.runFailed(
                tr("Error adding package %1!").arg(file->shownName),
                tr("The present package could not be removed, so it was not replaced."));
            restorePackages(removed, kept);
            return ERROR;
        }
    }
    // The packages share one file: either all get the new file, or all keep the old one.
    for (const PackageInfoPtr &package : inTheWay) {
        PackageInfo successor = record;
        successor.architecture = package->architecture;
        // The results of a check belong to one architecture. A new file has no results yet.
        if (successor.hasDependsInfo())
            successor.dependsInfo = package->dependsInfo;
        if (includeFile(file, successor, true) != ERROR)
            continue;
        for (const PackageInfoPtr &other : inTheWay) {
            const PackageInfoPtr included = m_context.packages.find(PackageKey::of(*other));
            if (file->results.remove(PackageKey::of(*other)) > 0 && included)
                removal.remove(included, makesRoom);
        }
        restorePackages(removed, kept);
        return ERROR;
    }
    return file->results.value(PackageKey::of(record), ERROR);
}

RepoEnums::ErrorCode
PackageInclusion::takePlace(AddedFile *file, const PackageInfo &record, const PackageInfoPtr &replaced)
{
    m_context.packages.take(PackageKey::of(*replaced));
    SignatureRecord::forget(&m_context, *replaced);
    Q_EMIT m_context.listener.packageRemoved(replaced);
    return includeFile(file, record, true);
}

RepoEnums::ErrorCode PackageInclusion::includeFile(AddedFile *file, const PackageInfo &record, bool replaces)
{
    ProcessResult result;
    if (m_ahead.remove(file->path, PackageKey::of(record)) == 0) {
        m_session.recordAtRisk({record.filePath()});
        const FileInclusion::Outcome outcome = m_inclusion.include(record, file->source);
        result = outcome.result;
        if (!outcome.isIncluded) {
            m_context.errors.runFailed(tr("Error adding package %1!").arg(file->shownName),
                                       file->shownText(m_inclusion.reason(result.errorOutput, record)));
            return ERROR;
        }
    }
    PackageInfo included = record;
    included.signingKey = isSigning() ? m_signer.key() : file->signingKey;
    SignatureRecord::remember(&m_context, included);
    m_included.append(packageIncluded(included, replaces));
    m_context.history.setOrigin(included, file->origin);
    const ErrorCode code = ReproAnswer::signingFailed(result.errorOutput) ? PACKAGE_GPGERROR : SUCCESS;
    file->results.insert(PackageKey::of(record), code);
    return code;
}

QList<PackageInfoPtr> PackageInclusion::packagesInTheWay(const PackageInfo &present,
                                                         const PackageInfo &record) const
{
    return InclusionRules::inTheWay(present,
                                    record,
                                    m_context.repository.info().binaryArchitectures(),
                                    [this](const PackageKey &key) { return m_context.packages.find(key); });
}

PackageInfoPtr PackageInclusion::packageIncluded(const PackageInfo &record, bool replaced)
{
    PackageInfoPtr package = QSharedPointer<PackageInfo>::create(record);
    m_context.packages.append(package);
    if (replaced)
        Q_EMIT m_context.listener.packageChanged(package);
    else
        Q_EMIT m_context.listener.packageAdded(package);
    return package;
}

void PackageInclusion::restorePackages(const QList<PackageInfoPtr> &packages, const QString &keptFile)
{
    // The end of the job puts back everything.
    if (m_session.isDamaged())
        return;
    for (const PackageInfoPtr &package : packages) {
        if (keptFile.isEmpty()) {
            m_context.errors.critical(
                tr("The replaced package %1 could not be put back: its file was missing already.")
                    .arg(package->name));
            continue;
        }
        const FileInclusion::Outcome outcome = m_inclusion.putBack(*package, keptFile);
        if (outcome.isIncluded) {
            m_context.packages.append(package);
            Q_EMIT m_context.listener.packageAdded(package);
            continue;
        }
        // Mostly the disk is full. The running point needs no room to be put back.
        m_session.setDisturbed();
        m_context.errors.critical(tr("The replaced package %1 could not be put back.").arg(package->name),
                                  outcome.result.errorOutput);
    }
}
