// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/preview/applyjob.h"

#include "engine/changes/decidedplaces.h"
#include "engine/changes/jobframe.h"
#include "engine/copying/copyjob.h"
#include "engine/gathering/gatherjob.h"
#include "engine/jobs/addjob.h"
#include "engine/jobs/changejob.h"
#include "engine/jobs/downloadjob.h"
#include "engine/jobs/importjob.h"
#include "engine/jobs/removejob.h"
#include "engine/jobs/restorejob.h"
#include "engine/preview/previewrequest.h"
#include "engine/preview/previewsource.h"
#include "engine/preview/repositorystamp.h"
#include "engine/reprepro/repolock.h"
#include "engine/upgrade/upgradejob.h"
#include "files/scratchfolder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <utility>

ApplyJob::ApplyJob(JobContext &context, UpgradeSources &sources, std::function<void()> outdated)
    : m_context(context)
    , m_sources(sources)
    , m_outdated(std::move(outdated))
{ }

int ApplyJob::run(const ChangePreview &preview)
{
    if (!preview.request || !preview.source || preview.repository != m_context.path())
        return endWithout(ERROR, tr("Nothing was done: there is no preview of this repository."));
    // From here on no other job can change what is compared.
    if (!m_context.lock.take(m_context.path())) {
        JobFrame frame(m_context, tr("Applying the preview"), JobFrame::Repository);
        m_context.control.setLockedOut(true);
        m_context.errors.critical(RepoLock::busyText(m_context.path()), QString(), CRITICAL, REPOSITORY_BUSY);
        return frame.finish(ERROR, tr("Nothing was done."), PREVIEW_JOB);
    }
    if (!isCurrent(preview)) {
        JobFrame frame(m_context, tr("Applying the preview"), JobFrame::Repository);
        m_outdated();
        return frame.finish(
            ERROR,
            tr("Nothing was done: the repository or a file has changed since the preview was made."),
            PREVIEW_JOB);
    }
    if (!preview.changesSomething())
        return endWithout(SUCCESS, tr("Nothing was to be changed."));
    return runJob(preview);
}

int ApplyJob::endWithout(int result, const QString &message)
{
    JobFrame frame(m_context, tr("Applying the preview"), JobFrame::Repository);
    return frame.finish(result, message, PREVIEW_JOB);
}

bool ApplyJob::isCurrent(const ChangePreview &preview)
{
    return RepositoryStamp::of(m_context.path(), m_context.packages.all()) == preview.stamp
           && preview.source->isCurrent();
}

int ApplyJob::runJob(const ChangePreview &preview)
{
    const PreviewRequest &request = *preview.request;
    const AddOptions options = optionsFor(preview);
    switch (preview.kind) {
    case ChangePreview::Add:
        if (options.copied)
            return CopyJob(m_context).runPlanned(filesOf(preview), options);
        return AddJob(m_context).run(filesOf(preview), options);
    case ChangePreview::Import: {
        std::unique_ptr<ScratchFolder> unpacked; // The preview holds the files.
        return ImportJob(m_context, unpacked)
            .runCollected({filesOf(preview), preview.source->shownNames, QFileInfo(request.archive).path()},
                          options);
    }
    case ChangePreview::Remove: {
        QList<PackageInfoPtr> packages;
        for (const PreviewRow &row : preview.rows)
            if (row.takesPart())
                packages.append(row.present);
        return RemoveJob(m_context).run(packages);
    }
    case ChangePreview::Fetch: {
        QList<PackageInfo> packages;
        const auto &fetched = preview.source->fetched;
        std::copy_if(fetched.cbegin(),
                     fetched.cend(),
                     std::back_inserter(packages),
                     [&preview](const PackageInfo &wanted) {
                         return std::any_of(
                             preview.rows.cbegin(), preview.rows.cend(), [&wanted](const PreviewRow &row) {
                                 const QString own = row.offered ? row.offered->ownArchitecture() : QString();
                                 return row.takesPart() && row.change.name == wanted.name
                                        && row.change.after.version == wanted.version
                                        && (own == wanted.architecture || own == QLatin1String("all"));
                             });
                     });
        if (request.gathered)
            return GatherJob(m_context).fetch(*request.gathered, packages, options);
        return DownloadJob(m_context, options).download(packages, request.dependencies);
    }
    case ChangePreview::Upgrade: {
        QVector<UpgradablePackage> packages;
        std::copy_if(request.upgrades.cbegin(),
                     request.upgrades.cend(),
                     std::back_inserter(packages),
                     [&preview](const UpgradablePackage &wanted) {
                         return std::any_of(
                             preview.rows.cbegin(), preview.rows.cend(), [&wanted](const PreviewRow &row) {
                                 return row.takesPart() && row.change.name == wanted.name
                                        && row.change.component == wanted.component
                                        && row.change.architecture == wanted.architecture
                                        && row.change.after.version == wanted.newVersion;
                             });
                     });
        return UpgradeJob(m_context, m_sources).run(packages, options);
    }
    case ChangePreview::Describe: {
        const QString path = request.newPath.isEmpty()
                                 ? m_context.path()
                                 : QDir::cleanPath(QDir(request.newPath).absolutePath());
        return ChangeJob(m_context).run({path, request.info, request.given, request.carriesPackages, true});
    }
    case ChangePreview::Return:
        return RestoreJob(m_context).run(request.point);
    }
    return endWithout(ERROR, tr("Nothing was done: there is no preview of this repository."));
}

AddOptions ApplyJob::optionsFor(const ChangePreview &preview)
{
    const auto decided = std::make_shared<DecidedPlaces>();
    for (const PreviewRow &row : preview.rows) {
        if (!row.takesPart() || row.change.kind == PackageChange::Removed || !row.offered)
            continue;
        DecidedPlaces::Choice choice{row.change.after.version, row.source, {}};
        if (row.source.isEmpty())
            choice.sha256 = row.offered->control.field("SHA256").toLatin1();
        decided->add(PackageKey::of(*row.offered), choice);
    }
    AddOptions options = preview.request->options;
    options.decided = decided;
    return options;
}

QStringList ApplyJob::filesOf(const ChangePreview &preview)
{
    QSet<QString> wanted;
    for (const PreviewRow &row : preview.rows)
        if (row.takesPart())
            wanted.insert(row.source);
    QStringList files;
    std::copy_if(preview.source->files.cbegin(),
                 preview.source->files.cend(),
                 std::back_inserter(files),
                 [&wanted](const QString &file) { return wanted.contains(file); });
    return files;
}
