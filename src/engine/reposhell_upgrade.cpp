// SPDX-License-Identifier: GPL-3.0-or-later
// Upgrading the repository's packages from chosen sources.
#include "depends/aptutils.h"
#include "depends/privateapt.h"
#include "depends/versionorder.h"
#include "engine/jobframe.h"
#include "engine/packageadding.h"
#include "engine/packagefile.h"
#include "engine/packageinclusion.h"
#include "engine/reposhell.h"
#include "engine/repreprocommands.h"

#include <QDateTime>
#include <QDir>
#include <QMutexLocker>
#include <QTemporaryDir>

namespace
{
constexpr int NamesPerRun = 500;
constexpr int Percents = 100;
const QString FolderPrefix = QStringLiteral("upgrade-");

/** Folders that a killed program has left behind; those of a day may be in use. */
void removeLeftovers(const QString &cacheFolder)
{
    const QDateTime limit = QDateTime::currentDateTime().addDays(-1);
    const auto folders
        = QDir(cacheFolder).entryInfoList({FolderPrefix + QLatin1Char('*')}, QDir::Dirs | QDir::NoSymLinks);
    for (const QFileInfo &folder : folders) {
        if (folder.lastModified() < limit)
            QDir(folder.filePath()).removeRecursively();
    }
}

/** Why a file is not what was asked for; empty when it is. */
QString mismatch(const PackageFile &file, const UpgradablePackage &wanted)
{
    if (!file.package)
        return file.reason;
    const PackageInfo &package = *file.package;
    if (package.name == wanted.name && package.version == wanted.newVersion
        && (package.architecture == wanted.fetchArchitecture || package.architecture == QLatin1String("all")))
        return {};
    return RepoShell::tr("The file that has come is of another package: %1 %2 (%3).")
        .arg(package.name, package.version, package.architecture);
}
} // namespace

/** What the upgrade job keeps from one package to the next. */
struct RepoShell::UpgradeRun
{
    PackageAdding &adding;
    PrivateApt &apt;
    QString folder; ///< where the files are fetched to
    QVector<AptPackageRecord> records = {}; ///< what the sources offer now
    int upgraded = 0;
    int failed = 0;
};

QVector<UpgradablePackage> RepoShell::upgradablePackages() const
{
    const QMutexLocker lock(&m_mutex);
    return m_upgradable;
}

void RepoShell::prepareUpgrade(const QStringList &sources)
{
    if (!sources.isEmpty() && !path().isEmpty())
        startJob([this, sources] { return prepareUpgradeBody(sources); });
}

void RepoShell::upgradeRepo(const QVector<UpgradablePackage> &packages, const AddOptions &options)
{
    if (!path().isEmpty())
        startJob([this, packages, options] { return upgradeBody(packages, options); });
}

void RepoShell::removeCustomSourcesListFile(RepoEnums::JobId jobId)
{
    std::shared_ptr<PrivateApt> apt;
    if (jobId == UPGRADE_JOB || jobId == DOWNLOAD_JOB) {
        const QMutexLocker lock(&m_mutex);
        apt.swap(m_upgradeApt);
    }
}

int RepoShell::prepareUpgradeBody(const QStringList &sources)
{
    JobFrame frame(*m_context, tr("Downloading information"));
    {
        const QMutexLocker lock(&m_mutex);
        m_upgradable.clear();
        m_upgradeSources = sources;
        m_upgradeApt.reset();
    }
    const auto apt = upgradeApt();
    const QString failure = tr("Information is not downloaded");
    if (!apt)
        return frame.finish(ERROR, failure);
    const auto stopped = [this] { return m_context->isCanceled(); };
    const bool fetched = fetchLists(apt.get());
    QVector<AptPackageRecord> records;
    const auto packages = m_context->packages().all();
    const bool asked
        = fetched
          && askRecords(*apt, UpgradeRules::questions(packages, ownArchitecture()), stopped, &records);
    if (m_context->isCanceled())
        return frame.finish(CANCEL, tr("Canceled by user"));
    if (!asked)
        return frame.finish(ERROR, failure);

    const auto upgradable = UpgradeRules::upgradable(packages, records);
    if (upgradable.isEmpty()) {
        Q_EMIT critical(tr("No packages for upgrading"), QString(), WARNING);
        return frame.finish(SUCCESS, tr("Nothing to upgrade"));
    }
    {
        const QMutexLocker lock(&m_mutex);
        m_upgradable = upgradable;
    }
    Q_EMIT downloadablePackagesReady();
    return frame.finish(SUCCESS, tr("Ready for upgrade"));
}

int RepoShell::upgradeBody(const QVector<UpgradablePackage> &packages, const AddOptions &options)
{
    JobFrame frame(*m_context, tr("Upgrading repo"));
    const auto end
        = [&frame](int result, const QString &message) { return frame.finish(result, message, UPGRADE_JOB); };
    const auto groups = UpgradeRules::byFile(packagesToUpgrade(packages));
    if (groups.isEmpty())
        return end(SUCCESS, tr("Nothing to upgrade"));
    const QString failure = tr("Repo is not upgraded");
    if (!m_context->isDatabaseThere())
        return end(ERROR, failure);
    removeLeftovers(PrivateApt::cacheFolder());
    const bool made = QDir().mkpath(PrivateApt::cacheFolder());
    const QTemporaryDir folder(PrivateApt::cacheFolder() + QLatin1Char('/') + FolderPrefix
                               + QLatin1String("XXXXXX"));
    if (!made || !folder.isValid()) {
        Q_EMIT critical(tr("Unable to create cache folder"), PrivateApt::cacheFolder());
        return end(ERROR, failure);
    }
    const auto apt = upgradeApt();
    if (!apt)
        return end(ERROR, failure);

    PackageAdding adding(*m_context, options, groups.size() == 1);
    UpgradeRun run{adding, *apt, folder.path()};
    const ErrorCode ready = askAgain(groups, &run);
    if (ready == ERROR)
        return end(ERROR, failure);
    bool stopped = ready == CANCEL;
    for (int done = 0; done < groups.size() && !stopped; ++done) {
        stopped = mustStopUpgrade();
        if (stopped)
            break;
        upgradeFrom(groups.at(done), &run);
        frame.itemDone(groups.size());
    }
    adding.finish(stopped);
    if (stopped)
        return end(CANCEL, tr("Canceled by user"));
    if (run.upgraded == 0 && run.failed > 0)
        return end(ERROR, failure);
    return end(SUCCESS, tr("Repo upgraded"));
}

QString RepoShell::ownArchitecture() const
{
    return repoInfo().architectureList().value(0);
}

std::shared_ptr<PrivateApt> RepoShell::upgradeApt()
{
    QStringList sources;
    {
        const QMutexLocker lock(&m_mutex);
        if (m_upgradeApt)
            return m_upgradeApt;
        sources = m_upgradeSources;
    }
    // Outside the lock, since it runs a program.
    auto apt = std::make_shared<PrivateApt>(sources, repoInfo().architectureList());
    if (!apt->isValid()) {
        Q_EMIT critical(tr("Unable to create cache folder"), PrivateApt::cacheFolder());
        return {};
    }
    const QMutexLocker lock(&m_mutex);
    m_upgradeApt = apt;
    return apt;
}

bool RepoShell::fetchLists(PrivateApt *apt)
{
    const auto showPercent = [this](int percent) {
        if (m_context->progress() == 0)
            m_context->setProgressRange(Percents);
        if (percent > m_context->progress()) {
            m_context->setProgress(percent);
            m_context->showProgress();
        }
    };
    const auto outcome = apt->fetch([this] { return m_context->isCanceled(); }, showPercent);
    if (m_context->progress() != 0) {
        // What follows has another measure.
        m_context->setProgress(0);
        m_context->setProgressRange(0);
        m_context->showProgress();
    }
    if (!outcome.problems.isEmpty())
        Q_EMIT critical(
            outcome.problems.join(QLatin1Char('\n')), outcome.details, outcome.usable ? WARNING : CRITICAL);
    else if (!outcome.usable && !m_context->isCanceled())
        Q_EMIT critical(tr("The chosen sources offer no packages for this repository."), outcome.details);
    return outcome.usable;
}

bool RepoShell::askRecords(const PrivateApt &apt,
                           const QStringList &names,
                           const std::function<bool()> &stopped,
                           QVector<AptPackageRecord> *records)
{
    bool failed = false;
    AptUtils utils;
    utils.setEnvironment(apt.environment());
    utils.setStopRequest(stopped);
    connect(&utils, &ProcessUtils::error, &utils, [&](const QString &text, const QString &details) {
        // That the sources know none of the names is an answer.
        if (details.contains(QLatin1String("No packages found")) || stopped())
            return;
        failed = true;
        Q_EMIT critical(text, details);
    });
    for (int first = 0; first < names.size() && !failed && !stopped(); first += NamesPerRun)
        *records += utils.packageRecords(names.mid(first, NamesPerRun));
    return !failed && !stopped();
}

QVector<UpgradablePackage> RepoShell::packagesToUpgrade(const QVector<UpgradablePackage> &kept)
{
    QVector<UpgradablePackage> result;
    for (UpgradablePackage package : kept) {
        const PackageInfoPtr present = m_context->packages().find(
            {package.name, package.component, package.architecture, PackageType::Deb});
        if (!present) {
            Q_EMIT noted(tr("Not upgraded: %1 (%2) is in the repository no longer.")
                             .arg(package.name, package.architecture));
        } else if (VersionOrder::holds(package.newVersion, QStringLiteral(">>"), present->version)) {
            package.oldVersion = present->version;
            result.append(package);
        }
    }
    return result;
}

RepoShell::ErrorCode RepoShell::askAgain(const QVector<QVector<UpgradablePackage>> &groups, UpgradeRun *run)
{
    QStringList names;
    for (const auto &group : groups)
        names.append(group.first().name + QLatin1Char(':') + group.first().fetchArchitecture);
    names.removeDuplicates();
    // Whoever asked for a stop and then thinks better of it begins anew; what is fetched already stays.
    while (true) {
        run->records.clear();
        const auto stopped = [this] { return m_context->isCanceled(); };
        const bool asked = fetchLists(&run->apt) && askRecords(run->apt, names, stopped, &run->records);
        if (!m_context->isCanceled())
            return asked ? SUCCESS : ERROR;
        if (mustStopUpgrade())
            return CANCEL;
    }
}

bool RepoShell::mustStopUpgrade()
{
    if (!m_context->isCanceled())
        return false;
    if (m_context->ask(tr("Upgrading repo"), tr("Are you sure?"), true))
        return true;
    m_context->resetCancel();
    m_context->setStartMessage(tr("Upgrading repo"));
    return m_context->isClosing();
}

void RepoShell::upgradeFrom(const QVector<UpgradablePackage> &group, UpgradeRun *run)
{
    const UpgradablePackage &wanted = group.first();
    if (!UpgradeRules::isOffered(wanted, run->records)) {
        ++run->failed;
        Q_EMIT critical(
            tr("Not upgraded: no source offers %1 %2 any more.").arg(wanted.name, wanted.newVersion),
            QString(),
            WARNING);
        return;
    }
    const PackageFile file = fetchUpgrade(wanted, *run);
    if (!file.package) {
        ++run->failed;
        return;
    }
    AddedFile added{run->adding.run(), file.path};
    for (const PackageInfoPtr &present : replacedBy(file, group)) {
        PackageInfo record = *file.package;
        record.architecture = present->architecture;
        record.component = record.indexComponent = present->indexComponent;
        record.root = path();
        record.poolFile = ReproCommand::poolFile(record, file.package->architecture);
        const ErrorCode result = PackageInclusion(*m_context).include(&added, record, true);
        // The package is in when only the repository's signature failed; the end of the job tells of that.
        ++(result == SUCCESS || result == PACKAGE_GPGERROR ? run->upgraded : run->failed);
    }
    QFile::remove(file.path);
}

PackageFile RepoShell::fetchUpgrade(const UpgradablePackage &wanted, const UpgradeRun &run)
{
    AptUtils apt;
    apt.setEnvironment(run.apt.environment());
    // A stop waits for the file; only the end of the program does not, for a server may never answer.
    apt.setStopRequest([this] { return m_context->isClosing(); });
    QString reason;
    connect(&apt, &ProcessUtils::error, &apt, [&reason](const QString &, const QString &details) {
        reason = details;
    });
    PackageFile file;
    const QString arrived
        = apt.download(wanted.name, wanted.newVersion, wanted.fetchArchitecture, run.folder);
    if (!arrived.isEmpty()) {
        file = PackageFile::read(arrived);
        reason = mismatch(file, wanted);
        if (reason.isEmpty())
            return file;
    } else if (reason.isEmpty()) {
        reason = tr("apt has left no file of that version.");
    }
    if (!m_context->isClosing())
        Q_EMIT critical(AptUtils::tr("Apt: download package %1 error").arg(wanted.name), reason);
    return {arrived, {}, reason};
}

QList<PackageInfoPtr> RepoShell::replacedBy(const PackageFile &file,
                                            const QVector<UpgradablePackage> &group) const
{
    QList<PackageInfoPtr> replaced;
    const auto add = [&](const PackageInfoPtr &package) {
        if (package && !replaced.contains(package)
            && VersionOrder::holds(file.package->version, QStringLiteral(">>"), package->version))
            replaced.append(package);
    };
    const QStringList architectures = repoInfo().architectureList();
    for (const UpgradablePackage &package : group) {
        PackageKey key{package.name, package.component, package.architecture, PackageType::Deb};
        const PackageInfoPtr present = m_context->packages().find(key);
        add(present);
        if (!present || file.package->architecture != QLatin1String("all"))
            continue;
        // One file served several architectures, and one file takes its place.
        for (const QString &architecture : architectures) {
            key.architecture = architecture;
            const PackageInfoPtr twin = m_context->packages().find(key);
            if (twin && twin->filePath() == present->filePath())
                add(twin);
        }
    }
    return replaced;
}
