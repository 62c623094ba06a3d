// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgradejob.h"

#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "apt/versionorder.h"
#include "core/packagenames.h"
#include "engine/changes/addedfile.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/jobs/packageadding.h"
#include "engine/upgrade/upgradeoffers.h"
#include "files/scratchfolder.h"

#include <QDir>

namespace
{
/** Why a file is not what was asked for; empty when it is. */
QString mismatch(const PackageFile &file, const UpgradablePackage &wanted)
{
    if (!file.package)
        return file.reason;
    const PackageInfo &package = *file.package;
    if (package.name == wanted.name && package.version == wanted.newVersion
        && (package.architecture == wanted.fetchArchitecture || package.architecture == QLatin1String("all")))
        return {};
    return UpgradeJob::tr("The file that has come is of another package: %1 %2 (%3).")
        .arg(package.name, package.version, package.architecture);
}
} // namespace

/** What the job keeps from one package to the next. */
struct UpgradeJob::Run
{
    PackageAdding &adding;
    UpgradeOffers &offers;
    QString folder; ///< where the files are fetched to
    QVector<AptPackageRecord> records = {}; ///< what the sources offer now
    int upgraded = 0;
    int failed = 0;
};

int UpgradeJob::run(const QVector<UpgradablePackage> &packages, const AddOptions &options)
{
    JobFrame frame(m_context, tr("Upgrading repo"));
    const auto end
        = [&frame](int result, const QString &message) { return frame.finish(result, message, UPGRADE_JOB); };
    const auto groups = UpgradeRules::byFile(packagesToUpgrade(packages));
    if (groups.isEmpty())
        return end(SUCCESS, tr("Nothing to upgrade"));
    const QString failure = tr("Repo is not upgraded");
    if (!JobPreconditions::mayChange(m_context))
        return end(ERROR, failure);
    const bool made = QDir().mkpath(PrivateApt::cacheFolder());
    ScratchFolder::removeLeftovers(PrivateApt::cacheFolder());
    const ScratchFolder folder(PrivateApt::cacheFolder());
    if (!made || !folder.isValid()) {
        m_context.errors.critical(tr("Unable to create cache folder"), PrivateApt::cacheFolder());
        return end(ERROR, failure);
    }
    UpgradeOffers offers(m_context, m_sources);
    if (!offers.isValid())
        return end(ERROR, failure);

    PackageAdding adding(m_context, options, groups.size() == 1);
    Run run{adding, offers, folder.path()};
    const ErrorCode ready = askAgain(groups, &run);
    if (ready == ERROR)
        return end(ERROR, failure);
    bool stopped = ready == CANCEL;
    for (int done = 0; done < groups.size() && !stopped; ++done) {
        stopped = mustStop();
        if (stopped || adding.isDamaged())
            break;
        upgradeFrom(groups.at(done), &run);
        frame.itemDone(groups.size());
    }
    const bool stands = adding.finish();
    if (stopped && !m_context.control.isLockedOut())
        return end(CANCEL, tr("Canceled by user"));
    if (stopped || !stands || (run.upgraded == 0 && run.failed > 0))
        return end(ERROR, failure);
    return end(SUCCESS, tr("Repo upgraded"));
}

QVector<UpgradablePackage> UpgradeJob::packagesToUpgrade(const QVector<UpgradablePackage> &kept)
{
    QVector<UpgradablePackage> result;
    for (UpgradablePackage package : kept) {
        const PackageInfoPtr present = m_context.packages.find(
            {package.name, package.component, package.architecture, PackageType::Deb});
        if (!present) {
            Q_EMIT m_context.listener.noted(tr("Not upgraded: %1 (%2) is in the repository no longer.")
                                                .arg(package.name, package.architecture));
        } else if (VersionOrder::holds(package.newVersion, QStringLiteral(">>"), present->version)) {
            package.oldVersion = present->version;
            result.append(package);
        }
    }
    return result;
}

RepoEnums::ErrorCode UpgradeJob::askAgain(const QVector<QVector<UpgradablePackage>> &groups, Run *run)
{
    QStringList names;
    for (const auto &group : groups)
        names.append(group.first().name + QLatin1Char(':') + group.first().fetchArchitecture);
    names.removeDuplicates();
    // A user who takes the stop back has the question begin again. Lists that were fetched stay.
    while (true) {
        run->records.clear();
        const bool asked = run->offers.fetchLists() && run->offers.askRecords(names, &run->records);
        if (!m_context.control.isCanceled())
            return asked ? SUCCESS : ERROR;
        if (mustStop())
            return CANCEL;
    }
}

bool UpgradeJob::mustStop()
{
    if (m_context.control.isLockedOut())
        return true;
    if (!m_context.control.isCanceled())
        return false;
    if (m_context.control.ask(tr("Upgrading repo"), tr("Are you sure?"), true))
        return true;
    m_context.control.goOn();
    return m_context.control.isClosing();
}

void UpgradeJob::upgradeFrom(const QVector<UpgradablePackage> &group, Run *run)
{
    const UpgradablePackage &wanted = group.first();
    if (!UpgradeRules::isOffered(wanted, run->records)) {
        ++run->failed;
        m_context.errors.critical(
            tr("Not upgraded: no source offers %1 %2 any more.").arg(wanted.name, wanted.newVersion),
            QString(),
            WARNING);
        return;
    }
    const PackageFile file = fetch(wanted, *run);
    if (!file.package) {
        ++run->failed;
        return;
    }
    AddedFile added{file.path, QFileInfo(file.path).fileName()};
    for (const PackageInfoPtr &present : replacedBy(file, group)) {
        PackageInfo record = *file.package;
        record.architecture = present->architecture;
        record.component = record.indexComponent = present->indexComponent;
        record.root = m_context.path();
        record.poolFile = PackageNames::poolFile(record, file.package->architecture);
        const ErrorCode result = run->adding.replace(&added, record);
        // When only the signature of the repository failed, the package is in. The end of the job tells of that.
        ++(result == SUCCESS || result == PACKAGE_GPGERROR ? run->upgraded : run->failed);
    }
    QFile::remove(file.path);
}

PackageFile UpgradeJob::fetch(const UpgradablePackage &wanted, const Run &run)
{
    AptUtils apt;
    apt.setEnvironment(run.offers.environment());
    // A stop waits for the file. The end of the program does not wait, because a server may never answer.
    apt.setStopRequest([this] { return m_context.control.isClosing(); });
    PackageFile file;
    const QString arrived
        = apt.download(wanted.name, wanted.newVersion, wanted.fetchArchitecture, run.folder);
    QString reason = apt.lastErrorDetails();
    if (!arrived.isEmpty()) {
        file = PackageFile::read(arrived, [this] { return m_context.control.isClosing(); });
        reason = mismatch(file, wanted);
        if (reason.isEmpty())
            return file;
    } else if (reason.isEmpty()) {
        reason = tr("apt has left no file of that version.");
    }
    if (!m_context.control.isClosing())
        m_context.errors.critical(AptUtils::tr("Apt: download package %1 error").arg(wanted.name), reason);
    return {arrived, {}, reason};
}

QList<PackageInfoPtr> UpgradeJob::replacedBy(const PackageFile &file,
                                             const QVector<UpgradablePackage> &group) const
{
    QList<PackageInfoPtr> replaced;
    const auto add = [&](const PackageInfoPtr &package) {
        if (package && !replaced.contains(package)
            && VersionOrder::holds(file.package->version, QStringLiteral(">>"), package->version))
            replaced.append(package);
    };
    const QStringList architectures = m_context.repository.info().binaryArchitectures();
    for (const UpgradablePackage &package : group) {
        PackageKey key{package.name, package.component, package.architecture, PackageType::Deb};
        const PackageInfoPtr present = m_context.packages.find(key);
        add(present);
        if (!present || file.package->architecture != QLatin1String("all"))
            continue;
        // The old file served several architectures, and the new file replaces it in all of them.
        for (const QString &architecture : architectures) {
            key.architecture = architecture;
            const PackageInfoPtr twin = m_context.packages.find(key);
            if (twin && twin->filePath() == present->filePath())
                add(twin);
        }
    }
    return replaced;
}
