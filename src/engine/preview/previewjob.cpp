// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/previewjob.h"

#include "apt/addedsources.h"
#include "apt/aptutils.h"
#include "apt/dpkgoutput.h"
#include "engine/archive/packagefile.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/runsize.h"
#include "engine/history/historydifference.h"
#include "engine/history/pointfiles.h"
#include "engine/history/repositoryhistory.h"
#include "engine/jobs/bringbackjob.h"
#include "engine/jobs/changejob.h"
#include "engine/jobs/downloadjob.h"
#include "engine/jobs/importjob.h"
#include "engine/preview/descriptioneffect.h"
#include "engine/preview/installabilityeffect.h"
#include "engine/preview/previewrequest.h"
#include "engine/preview/previewrows.h"
#include "engine/preview/previewsizes.h"
#include "engine/preview/previewsource.h"
#include "engine/preview/publicpackages.h"
#include "engine/preview/repositorystamp.h"
#include "engine/preview/signatureeffect.h"
#include "engine/recovery/packagerefresh.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/presentrecords.h"
#include "engine/upgrade/upgradeoffers.h"
#include "files/freespace.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

PreviewJob::PreviewJob(JobContext &context, UpgradeSources &sources, Publish publish)
    : m_context(context)
    , m_sources(sources)
    , m_publish(std::move(publish))
{ }

bool PreviewJob::isStopped() const
{
    return m_context.control.isCanceled();
}

int PreviewJob::run(const PreviewRequest &request)
{
    JobFrame frame(m_context, tr("Finding out what would change"), JobFrame::Repository);
    const QString failure = tr("There is no preview.");
    if (!readRepository())
        return frame.finish(ERROR, failure, PREVIEW_JOB);
    m_source = std::make_shared<PreviewSource>();
    ChangePreview preview;
    preview.kind = request.kind;
    preview.repository = m_context.path();
    preview.stamp = RepositoryStamp::of(m_context.path(), m_context.packages.all());
    preview.request = std::make_shared<const PreviewRequest>(planned(request));
    const ErrorCode found = findRows(*preview.request, &preview, &frame);
    if (isStopped() || found == CANCEL)
        return frame.finish(CANCEL, tr("The preview was stopped."), PREVIEW_JOB);
    if (found != SUCCESS)
        return frame.finish(ERROR, failure, PREVIEW_JOB);
    preview.source = m_source;
    if (preview.request->extends) {
        PreviewRequest complete = *preview.request;
        complete.options.extension = preview.lacking;
        preview.request = std::make_shared<const PreviewRequest>(complete);
    }
    fillEffect(&preview);
    return finish(std::move(preview), &frame);
}

PreviewRequest PreviewJob::planned(const PreviewRequest &request) const
{
    if (!request.copy)
        return request;
    const CopyPlan plan = CopyPlan::of(
        *request.copy, request.options.component, m_context.packages.all(), [this] { return isStopped(); });
    PreviewRequest complete = request;
    complete.files = plan.files;
    complete.options = {};
    complete.options.copied = plan.copied;
    return complete;
}

int PreviewJob::update(const ChangePreview &preview)
{
    JobFrame frame(m_context, tr("Finding out what would change"), JobFrame::Repository);
    ChangePreview updated = preview;
    PreviewSizes::fill(&updated.effect, updated.rows, m_context.packages.all());
    updated.effect.isKnown = false;
    return finish(std::move(updated), &frame);
}

bool PreviewJob::readRepository()
{
    const QString path = m_context.path();
    if (!DistributionsFile(path).read()) {
        m_context.errors.critical(
            QCoreApplication::translate("RepoShell", "The repository %1 cannot be read.").arg(path),
            QCoreApplication::translate("RepoShell", "Its description or its indices are missing."));
        return false;
    }
    if (PackageRefresh::takeOver(m_context))
        Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    return true;
}

RepoEnums::ErrorCode
PreviewJob::findRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame)
{
    const auto packages = m_context.packages.all();
    switch (request.kind) {
    case ChangePreview::Add: {
        QStringList files;
        for (const QString &file : request.files)
            files.append(QFileInfo(file).absoluteFilePath());
        if (!request.back.isEmpty()) {
            files = BringBackJob(m_context).filesOf(request.point, request.back);
            if (files.isEmpty())
                return ERROR;
        }
        return addFileRows(request, files, preview, frame);
    }
    case ChangePreview::Import:
        return addImportRows(request, preview, frame);
    case ChangePreview::Fetch:
        return addFetchRows(request, preview);
    case ChangePreview::Upgrade:
        return addUpgradeRows(request, preview);
    case ChangePreview::Describe:
        return addDescriptionRows(request, preview);
    case ChangePreview::Remove:
        preview->rows = PreviewRows::removal(request.packages, packages);
        return SUCCESS;
    case ChangePreview::Return:
        return addReturnRows(request, preview, frame);
    }
    return ERROR;
}

void PreviewJob::addInclusionRows(const PreviewRequest &request,
                                  const QVector<OfferedPackage> &offered,
                                  ChangePreview *preview)
{
    const QString path = m_context.path();
    auto target = InclusionRules::Target::of(path, m_context.repository.info(), request.options.component);
    auto present = m_context.packages.all();
    preview->lacking = InclusionPreview::lacking(target, offered);
    preview->rows.clear();
    if (request.extends && !preview->lacking.isEmpty()) {
        const DistributionsFile file(path);
        const QByteArray text = file.readBytes().value_or(QByteArray());
        const RepoInfo before = file.parsed(text);
        const RepoChange change{before, preview->lacking.appliedTo(before), false};
        preview->rows = PreviewRows::description(change, present);
        for (PreviewRow &row : preview->rows) {
            row.change.after = InclusionPreview::presentState(*row.offered, true);
            present.append(row.offered);
        }
        DescriptionEffect::fill(&preview->effect, {change, QString::fromUtf8(text), path, path, {}});
        target.info = change.after;
    }
    InclusionPreview rows(target, present, request.collisions, request.options.sign);
    preview->rows += rows.rows(offered);
}

RepoEnums::ErrorCode PreviewJob::addFileRows(const PreviewRequest &request,
                                             const QStringList &files,
                                             ChangePreview *preview,
                                             JobFrame *frame)
{
    // What is written while it is read has other times afterwards.
    for (const QString &file : files)
        m_source->states.insert(file, PreviewSource::File::of(file));
    m_source->files = files;
    PackageFileReader reader(
        files, RunSize::Largest, [this] { return isStopped(); }, PackageFile::ForComparison);
    QVector<OfferedPackage> offered;
    offered.reserve(files.size());
    for (int i = 0; i < files.size() && !isStopped(); ++i) {
        const PackageFile file = reader.next(1).value(0);
        const QString shown = m_source->shownNames.value(files.at(i), files.at(i));
        OfferedPackage package;
        package.file = files.at(i);
        package.origin = shown;
        package.package = file.package;
        package.reason = QString(file.reason).replace(files.at(i), shown);
        package.sha256 = QString::fromLatin1(file.checksums.sha256);
        package.size = m_source->states.value(files.at(i)).size;
        m_source->states[files.at(i)].sha256 = file.checksums.sha256;
        if (request.options.copied) {
            const CopiedFiles::File copied = request.options.copied->files.value(files.at(i));
            package.component = copied.component;
            package.origin = request.options.copied->origin;
            if (file.package && !copied.sha256.isEmpty() && copied.sha256 != file.checksums.sha256)
                package.reason = tr("It is not the file that its repository lists. Reload that repository.");
        }
        offered.append(package);
        frame->quickItemDone();
    }
    if (isStopped())
        return CANCEL;
    addInclusionRows(request, offered, preview);
    if (request.options.copied)
        PreviewRows::addLeaving(&preview->rows, *request.options.copied);
    return SUCCESS;
}

RepoEnums::ErrorCode
PreviewJob::addImportRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame)
{
    std::unique_ptr<ScratchFolder> folder;
    ImportJob::Collection collection;
    const ErrorCode collected = ImportJob(m_context, folder).collect(request.archive, &collection);
    m_source->keepFolder(std::move(folder));
    if (collected != SUCCESS)
        return collected;
    m_source->shownNames = collection.members;
    return addFileRows(request, collection.files, preview, frame);
}

RepoEnums::ErrorCode PreviewJob::addFetchRows(const PreviewRequest &request, ChangePreview *preview)
{
    QList<PackageInfo> wanted = request.wanted;
    if (!request.dependencies.isEmpty())
        wanted += DownloadJob(m_context, request.options).packagesFor(request.dependencies);
    m_source->fetched = wanted;
    AddedSources added(m_context.choices.externalRepos(), m_context.repository.info().binaryArchitectures());
    added.settle([this] { return isStopped(); });
    QStringList names;
    QStringList addedNames;
    for (const PackageInfo &package : std::as_const(wanted)) {
        const QString name = package.name + QLatin1Char(':') + package.architecture;
        const auto environments = added.environments(package.repository);
        if (environments.contains(QStringList()))
            names.append(name);
        if (!environments.last().isEmpty())
            addedNames.append(name);
    }
    const PublicPackages packages(names, {}, [this] { return isStopped(); });
    const PublicPackages addedPackages(addedNames, added.environment(), [this] { return isStopped(); });
    QVector<OfferedPackage> offered;
    for (const PackageInfo &package : std::as_const(wanted)) {
        // In the order in which they are fetched.
        std::optional<OfferedPackage> found;
        const auto environments = added.environments(package.repository);
        for (auto place = environments.cbegin(); place != environments.cend() && !found; ++place)
            found = (place->isEmpty() ? packages : addedPackages)
                        .find(package.name, package.version, package.architecture);
        OfferedPackage offer = found.value_or(OfferedPackage());
        // A package for all architectures is the same for each of them.
        const bool isKnown
            = offer.package && std::any_of(offered.cbegin(), offered.cend(), [&offer](const auto &other) {
                  return other.package->control.text() == offer.package->control.text();
              });
        if (isKnown)
            continue;
        offer.origin = package.repository;
        if (!offer.package) {
            offer.package = QSharedPointer<PackageInfo>::create(package);
            offer.reason = tr("No source offers this version any more.");
        }
        offered.append(offer);
    }
    if (isStopped())
        return CANCEL;
    addInclusionRows(request, offered, preview);
    return SUCCESS;
}

RepoEnums::ErrorCode PreviewJob::addUpgradeRows(const PreviewRequest &request, ChangePreview *preview)
{
    UpgradeOffers sources(m_context, m_sources);
    if (!sources.isValid() || !sources.fetchLists())
        return isStopped() ? CANCEL : ERROR;
    QStringList names;
    for (const UpgradablePackage &package : request.upgrades)
        names.append(package.name + QLatin1Char(':') + package.fetchArchitecture);
    names.removeDuplicates();
    const PublicPackages packages(names, sources.environment(), [this] { return isStopped(); });
    QVector<PreviewRows::Offer> offers;
    for (const UpgradablePackage &package : request.upgrades) {
        PreviewRows::Offer offer;
        offer.package = package;
        if (const auto found = packages.find(package.name, package.newVersion, package.fetchArchitecture)) {
            offer.record = found->package;
            offer.size = found->size;
            offer.sha256 = found->sha256;
        }
        offers.append(offer);
    }
    if (isStopped())
        return CANCEL;
    preview->rows = PreviewRows::upgrade(offers,
                                         m_context.packages.all(),
                                         m_context.path(),
                                         m_context.repository.info().binaryArchitectures());
    return SUCCESS;
}

RepoEnums::ErrorCode
PreviewJob::addReturnRows(const PreviewRequest &request, ChangePreview *preview, JobFrame *frame)
{
    const QString path = m_context.path();
    const RepositoryHistory history = RepositoryHistory::read(path);
    auto changes = HistoryDifference::between(history.points, HistoryDifference::Now, request.point);
    if (!changes || history.pointOf(request.point).number == 0) {
        m_context.errors.critical(
            tr("The history has damaged records, so it is not known what going back would change."));
        return ERROR;
    }
    // Their own order is that of the changes that are undone.
    std::sort(changes->begin(), changes->end(), [](const PackageChange &a, const PackageChange &b) {
        return std::tie(a.name, a.architecture) < std::tie(b.name, b.architecture);
    });
    preview->rows = PreviewRows::going(*changes, m_context.packages.all());
    const PointFiles files(path);
    QStringList found;
    for (PreviewRow &row : preview->rows) {
        const PackageChange::State &after = row.change.after;
        if (isStopped())
            return CANCEL;
        if (row.change.kind == PackageChange::Removed)
            continue;
        if (const auto file
            = files.fileOf(request.point, {after.file, after.sha256.toLatin1(), after.size})) {
            row.source = *file;
            found.append(*file);
        } else {
            row.verdict = PreviewRow::Refused;
            row.isOn = false;
            row.refusal = tr("Its file is missing, so there is no way back: %1").arg(after.file);
        }
    }
    found.removeDuplicates();
    PackageFileReader reader(found, RunSize::Largest, [this] { return isStopped(); });
    QHash<QString, PackageInfoPtr> packages;
    for (const QString &file : std::as_const(found)) {
        if (isStopped())
            return CANCEL;
        packages.insert(file, reader.next(1).value(0).package);
        frame->quickItemDone();
    }
    for (PreviewRow &row : preview->rows)
        if (const PackageInfoPtr package = packages.value(row.source)) {
            PackageInfo record = *package;
            record.architecture = row.change.architecture;
            record.component = record.indexComponent = row.change.component;
            record.root = path;
            record.poolFile = row.change.after.file;
            row.offered = QSharedPointer<PackageInfo>::create(record);
            row.source.clear();
        }
    const QByteArray now = DistributionsFile(path).readBytes().value_or(QByteArray());
    QFile kept(RepositoryHistory::pointFolder(path, request.point) + QLatin1String("/distributions"));
    const QByteArray then = kept.open(QIODevice::ReadOnly) ? kept.readAll() : now;
    if (then != now)
        DescriptionEffect::fill(
            &preview->effect,
            {{DistributionsFile(path).parsed(now), DistributionsFile(path).parsed(then), true},
             {},
             path,
             path,
             {}});
    return SUCCESS;
}

RepoEnums::ErrorCode PreviewJob::addDescriptionRows(const PreviewRequest &request, ChangePreview *preview)
{
    const QString path = m_context.path();
    const DistributionsFile file(path);
    const auto text = file.readBytes();
    if (!text || !ChangeJob(m_context).isPossible(*text, request.given, request.info))
        return ERROR;
    const RepoChange change{file.parsed(*text), request.info, request.carriesPackages};
    preview->rows = PreviewRows::description(change, m_context.packages.all());
    const QString newPath
        = request.newPath.isEmpty() ? path : QDir::cleanPath(QDir(request.newPath).absolutePath());
    DescriptionEffect::fill(&preview->effect,
                            {change, QString::fromUtf8(*text), path, newPath, file.keptAs(*text)});
    return SUCCESS;
}

void PreviewJob::fillEffect(ChangePreview *preview)
{
    const QString path = m_context.path();
    for (PreviewRow &row : preview->rows) {
        if (row.present && row.change.before.size == 0)
            row.change.before = InclusionPreview::presentState(*row.present, false);
        // A package that comes into a further architecture has its file already.
        if (preview->kind == ChangePreview::Describe && row.offered)
            row.change.after = InclusionPreview::presentState(*row.offered, true);
    }
    PreviewSizes::fill(&preview->effect, preview->rows, m_context.packages.all());
    preview->effect.free = freeSpace(path);
    const RepoInfo info = m_context.repository.info();
    const QString text = QString::fromUtf8(DistributionsFile(path).readBytes().value_or(QByteArray()));
    const QString present = Distributions::wholeValue(text, DistributionField::SignWith);
    const QString signWith = preview->kind == ChangePreview::Describe ? Distributions::wholeValue(
                                 Distributions::text(preview->request->info), DistributionField::SignWith)
                                                                      : present;
    preview->effect.signature
        = SignatureEffect::of(signWith == present ? path : QString(), info.codename, signWith);
}

int PreviewJob::finish(ChangePreview preview, JobFrame *frame)
{
    m_publish(preview);
    const PreviewRequest &request = *preview.request;
    if (!request.findsEffect)
        return frame->finish(SUCCESS, tr("The preview is ready."), PREVIEW_JOB);
    m_context.progress.announce(tr("Finding out which packages can be installed then"));
    const auto present = m_context.packages.all();
    const QStringList architectures = m_context.repository.info().binaryArchitectures();
    const bool isDescription = preview.kind == ChangePreview::Describe;
    const RepoInfo extended = request.options.extension.appliedTo(m_context.repository.info());
    InstallabilityEffect::States states;
    states.before = {{m_context.path(), architectures, present},
                     request.base.value_or(CompleteCheckBase()),
                     m_context.choices.acceptedOrigins(),
                     request.others,
                     m_context.choices.externalRepos()};
    states.after = {m_context.path(),
                    (isDescription ? request.info : extended).binaryArchitectures(),
                    PreviewSizes::after(preview.rows, present)};
    states.rows = preview.rows;
    if (!InstallabilityEffect(std::move(states), [this] { return isStopped(); }).find(&preview.effect))
        return frame->finish(CANCEL, tr("The preview was stopped."), PREVIEW_JOB);
    preview.effect.isKnown = true;
    m_publish(preview);
    return frame->finish(SUCCESS, tr("The preview is ready."), PREVIEW_JOB);
}
