// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/upgrade/upgradejob.h"

#include "apt/aptcommands.h"
#include "apt/aptutils.h"
#include "apt/privateapt.h"
#include "apt/versionorder.h"
#include "core/countof.h"
#include "core/packagenames.h"
#include "engine/changes/addedfile.h"
#include "engine/changes/decidedplaces.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/changes/runsize.h"
#include "engine/jobs/packageadding.h"
#include "engine/upgrade/localfiles.h"
#include "engine/upgrade/packagefetch.h"
#include "engine/upgrade/upgradeoffers.h"
#include "files/freespace.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QHash>

#include <algorithm>
#include <memory>
#include <utility>

namespace
{
/** The file, without its package when that is not what was asked for. */
PackageFile checked(const PackageFile &file, const UpgradablePackage &wanted)
{
    if (!file.package)
        return file;
    const PackageInfo &package = *file.package;
    if (package.name == wanted.name && package.version == wanted.newVersion
        && (package.architecture == wanted.fetchArchitecture || package.architecture == QLatin1String("all")))
        return file;
    return {file.path,
            {},
            UpgradeJob::tr("The file that has come is of another package: %1 %2 (%3).")
                .arg(package.name, package.version, package.architecture)};
}
} // namespace

/** What the job keeps from one package to the next. */
struct UpgradeJob::Run
{
    JobFrame &frame;
    const int count; ///< of the files
    PackageAdding &adding;
    UpgradeOffers &offers;
    const QString folder; ///< where the files are fetched to
    QHash<QString, QVector<AptPackageRecord>> records = {}; ///< what the sources offer now, by names
    int folders = 0; ///< that were made in the folder
    bool stopped = false;
    int upgraded = 0;
    int failed = 0;

    bool isOffered(const UpgradablePackage &package) const
    {
        return UpgradeRules::isOffered(package, records.value(package.name));
    }
    /** The package's file, when it can be read in its source; else nothing. */
    LocalFile localFile(const UpgradablePackage &package) const
    {
        if (!adding.canShareRuns() || !adding.readsForIndex())
            return {};
        const LocalFile file = UpgradeRules::localFile(package, records.value(package.name));
        return LocalFiles::suits(file) ? file : LocalFile();
    }
    /** Whether the file lies in its source, and is not in our folder. */
    bool isInPlace(const PackageFile &file) const
    {
        return !file.path.isEmpty() && !file.path.startsWith(folder + QLatin1Char('/'));
    }
};

/** Groups whose files are fetched with one run of apt. */
struct UpgradeJob::Block
{
    QVector<QVector<UpgradablePackage>> groups;
    QVector<int> places = {}; ///< of the fetched files' groups
    std::unique_ptr<PackageFetch> fetch = nullptr; ///< null when each file is fetched alone
    QVector<int> localPlaces = {}; ///< of the groups of the files that are read in place
    std::unique_ptr<LocalFiles> local = nullptr; ///< these files
};

int UpgradeJob::run(const QVector<UpgradablePackage> &packages, const AddOptions &options)
{
    JobFrame frame(m_context, tr("Upgrading repo"));
    m_decided = options.decided;
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
    Run run{frame, countOf(groups), adding, offers, folder.path()};
    const ErrorCode ready = askAgain(groups, &run);
    if (ready == ERROR)
        return end(ERROR, failure);
    run.stopped = ready == CANCEL;
    if (groups.size() > 1)
        adding.startSilently();
    // From a slow server the files come one by one, and the progress moves with each. Small files that are here already
    // need no such care.
    const bool isNear = !run.localFile(groups.first().first()).path.isEmpty();
    RunSize size(isNear ? 4 * RunSize::Smallest : RunSize::Smallest, 1);
    Block block = run.stopped ? Block() : begin(groups.mid(0, size.packages()), &run);
    for (int first = 0; !block.groups.isEmpty() && !run.stopped && !adding.isDamaged();) {
        first += countOf(block.groups);
        size.start();
        run.stopped = mustStop();
        const QVector<PackageFile> files = filesOf(block, &run);
        if (run.stopped)
            break;
        // The next files come while these go in.
        Block next = begin(groups.mid(first, size.packages()), &run);
        upgradeTogether(block.groups, files, &run);
        size.adapt();
        block = std::move(next);
    }
    // After a stop nobody waits for its files.
    block = Block();
    const bool stands = adding.finish();
    if (run.stopped && !m_context.control.isLockedOut())
        return end(CANCEL, tr("Canceled by user"));
    if (run.stopped || !stands || (run.upgraded == 0 && run.failed > 0))
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
        QVector<AptPackageRecord> records;
        const bool asked = run->offers.fetchLists() && run->offers.askRecords(names, &records);
        if (!m_context.control.isCanceled()) {
            for (const AptPackageRecord &record : std::as_const(records))
                run->records[record.name].append(record);
            return asked ? SUCCESS : ERROR;
        }
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

void UpgradeJob::upgradeTogether(const QVector<QVector<UpgradablePackage>> &groups,
                                 QVector<PackageFile> files,
                                 Run *run)
{
    bool areIncluded = false;
    for (int i = 0; i < groups.size() && !run->adding.isDamaged(); ++i) {
        // Files that are in already are reported, also after a stop.
        const bool isAhead = run->adding.isAhead(files.at(i).path);
        run->stopped = run->stopped || (!isAhead && mustStop());
        if (run->stopped && !isAhead)
            continue;
        if (!areIncluded && run->adding.canShareRuns()) {
            includeTogether(groups, i, &files, run);
            areIncluded = true;
            if (run->adding.isDamaged())
                return;
        }
        upgradeFrom(groups.at(i), files.at(i), run);
        run->frame.itemDone(run->count);
    }
}

UpgradeJob::Block UpgradeJob::begin(const QVector<QVector<UpgradablePackage>> &groups, Run *run)
{
    Block block{groups};
    QVector<AptDownload> wanted;
    QVector<LocalFile> local;
    for (int i = 0; i < groups.size(); ++i) {
        const UpgradablePackage &package = groups.at(i).first();
        if (!run->isOffered(package))
            continue;
        const LocalFile file = run->localFile(package);
        if (!file.path.isEmpty()) {
            block.localPlaces.append(i);
            local.append(file);
            continue;
        }
        block.places.append(i);
        wanted.append({package.name, package.newVersion, package.fetchArchitecture});
    }
    if (!local.isEmpty())
        block.local = std::make_unique<LocalFiles>(local, [this] { return m_context.control.isClosing(); });
    const QString folder = run->folder + QLatin1Char('/') + QString::number(++run->folders);
    if (wanted.size() > 1 && QDir().mkdir(folder))
        block.fetch = std::make_unique<PackageFetch>(run->offers.environment(), wanted, folder);
    return block;
}

QVector<PackageFile> UpgradeJob::filesOf(const Block &block, Run *run)
{
    QVector<PackageFile> files(block.groups.size());
    if (block.local && !run->stopped) {
        const QVector<PackageFile> local = block.local->wait();
        for (int i = 0; i < local.size(); ++i) {
            const int place = block.localPlaces.at(i);
            const PackageFile file = checked(local.at(i), block.groups.at(place).first());
            // apt says what is wrong with any other one.
            if (file.package)
                files[place] = file;
        }
    }
    if (block.fetch && !run->stopped)
        takeFetched(block, &files, run);
    return files;
}

void UpgradeJob::takeFetched(const Block &block, QVector<PackageFile> *taken, Run *run)
{
    QVector<PackageFile> &files = *taken;
    const QVector<int> &places = block.places;
    const QStringList paths = block.fetch->wait([this, run] {
        run->stopped = run->stopped || mustStop();
        return run->stopped;
    });
    QStringList arrived;
    for (int i = 0; i < paths.size(); ++i) {
        files[places.at(i)].path = paths.at(i);
        if (!paths.at(i).isEmpty())
            arrived.append(paths.at(i));
    }
    PackageFileReader reader(
        arrived,
        RunSize::Largest,
        [this] { return m_context.control.isClosing(); },
        run->adding.readsForIndex() ? PackageFile::ForIndex : PackageFile::ForRecord);
    qint64 bytes = 0;
    for (const int i : std::as_const(places)) {
        if (files.at(i).path.isEmpty())
            continue;
        files[i] = checked(reader.next(1).first(), block.groups.at(i).first());
        bytes += QFileInfo(files.at(i).path).size();
        // It is fetched again, alone.
        if (!files.at(i).package) {
            QFile::remove(files.at(i).path);
            files[i] = {};
        }
    }
    const bool isIncomplete
        = std::any_of(places.cbegin(), places.cend(), [&files](int i) { return files.at(i).path.isEmpty(); });
    // A disk that is too small for all of them may have room for each.
    const qint64 free = freeSpace(block.fetch->folder());
    if (isIncomplete && free >= 0 && free < bytes) {
        QDir(block.fetch->folder()).removeRecursively();
        for (const int i : std::as_const(places))
            files[i] = {};
    }
}

void UpgradeJob::includeTogether(const QVector<QVector<UpgradablePackage>> &groups,
                                 int first,
                                 QVector<PackageFile> *files,
                                 Run *run)
{
    const auto include = [&] {
        QVector<BatchInclusion::Candidate> candidates;
        for (int i = first; i < groups.size(); ++i) {
            const PackageFile &file = files->at(i);
            if (file.package && !run->adding.isAhead(file.path))
                candidates.append({file.path,
                                   recordsOf(file, groups.at(i)),
                                   file.control,
                                   file.checksums,
                                   run->isInPlace(file)});
        }
        run->adding.replaceTogether(candidates);
    };
    include();
    bool areCopied = false;
    for (int i = first; i < groups.size() && !run->adding.isDamaged(); ++i) {
        PackageFile &file = (*files)[i];
        if (!run->isInPlace(file) || run->adding.isAhead(file.path))
            continue;
        file = LocalFiles::copy(file, run->folder);
        areCopied = areCopied || file.package;
    }
    if (areCopied)
        include();
}

void UpgradeJob::upgradeFrom(const QVector<UpgradablePackage> &group, const PackageFile &fetched, Run *run)
{
    const UpgradablePackage &wanted = group.first();
    if (!run->isOffered(wanted)) {
        ++run->failed;
        m_context.errors.critical(
            tr("Not upgraded: no source offers %1 %2 any more.").arg(wanted.name, wanted.newVersion),
            QString(),
            WARNING);
        return;
    }
    const PackageFile file = fetched.path.isEmpty() ? fetch(wanted, *run) : fetched;
    if (!file.package) {
        ++run->failed;
        if (!m_context.control.isClosing())
            m_context.errors.critical(AptUtils::tr("Apt: download package %1 error").arg(wanted.name),
                                      file.reason);
        return;
    }
    // The user knows the file by the name that apt gives it.
    const QString name = AptCommands::fileName(wanted.name, wanted.newVersion, file.package->architecture);
    AddedFile added{file.path, name};
    AddedFile copied{{}, name};
    added.origin = copied.origin = wanted.source;
    const auto records = recordsOf(file, group);
    if (records.isEmpty() && m_decided) {
        ++run->failed;
        m_context.errors.critical(AptUtils::tr("Apt: download package %1 error").arg(wanted.name),
                                  tr("It is not the package that the preview showed, so it was not added."));
    }
    for (const PackageInfo &record : records) {
        // A shared run may have left some of the places.
        const bool isLeft = run->isInPlace(file) && !run->adding.isAhead(file.path, record);
        if (isLeft && copied.path.isEmpty())
            copied.path = LocalFiles::copy(file, run->folder).path;
        const ErrorCode result = run->adding.replace(isLeft ? &copied : &added, record);
        // When only the signature of the repository failed, the package is in. The end of the job tells of that.
        ++(result == SUCCESS || result == PACKAGE_GPGERROR ? run->upgraded : run->failed);
    }
    if (!run->isInPlace(file))
        QFile::remove(file.path);
    if (!copied.path.isEmpty())
        QFile::remove(copied.path);
}

PackageFile UpgradeJob::fetch(const UpgradablePackage &wanted, const Run &run)
{
    AptUtils apt;
    apt.setEnvironment(run.offers.environment());
    // A stop waits for the file. The end of the program does not wait, because a server may never answer.
    const auto stopped = [this] { return m_context.control.isClosing(); };
    apt.setStopRequest(stopped);
    const QString file = apt.download(wanted.name, wanted.newVersion, wanted.fetchArchitecture, run.folder);
    if (!file.isEmpty())
        return checked(PackageFile::read(file, stopped), wanted);
    const QString reason = apt.lastErrorDetails();
    return {{}, {}, reason.isEmpty() ? tr("apt has left no file of that version.") : reason};
}

QVector<PackageInfo> UpgradeJob::recordsOf(const PackageFile &file,
                                           const QVector<UpgradablePackage> &group) const
{
    QVector<PackageInfo> records;
    for (const PackageInfoPtr &present : replacedBy(file, group)) {
        PackageInfo record = *file.package;
        record.architecture = present->architecture;
        record.component = record.indexComponent = present->indexComponent;
        record.root = m_context.path();
        record.poolFile = PackageNames::poolFile(record, file.package->architecture);
        records.append(record);
    }
    if (!m_decided)
        return records;
    records = m_decided->wanted(records, file.path);
    return m_decided->isExpected(records, file.path) ? records : QVector<PackageInfo>();
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
