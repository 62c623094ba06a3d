// SPDX-License-Identifier: GPL-3.0-or-later
// Export to archives, import from archives and folders.
#include "core/scratchfolder.h"
#include "depends/dependscollection.h"
#include "engine/archivecontents.h"
#include "engine/archiveutils.h"
#include "engine/archivewriter.h"
#include "engine/jobframe.h"
#include "engine/packageadding.h"
#include "engine/packageextractor.h"
#include "engine/pathguard.h"
#include "engine/repolock.h"
#include "engine/reposhell.h"
#include "engine/repreprocommands.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QScopeGuard>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

QString suffixOf(const PackageInfo &package)
{
    return package.type == PackageType::Udeb ? QStringLiteral(".udeb") : QStringLiteral(".deb");
}
} // namespace

// --- export ------------------------------------------------------------------------------------------------------

void RepoShell::exportRepo(const QString &target)
{
    if (!target.isEmpty() && !path().isEmpty())
        startJob([this, target = absolute(target)] { return exportRepoBody(target); });
}

void RepoShell::exportPackages(const QList<PackageInfoPtr> &packages, const QString &target, bool withDepends)
{
    if (!packages.isEmpty() && !target.isEmpty() && !path().isEmpty())
        startJob([this, packages, target = absolute(target), withDepends] {
            return exportPackagesBody(packages, target, withDepends);
        });
}

int RepoShell::exportRepoBody(const QString &target)
{
    JobFrame frame(*m_context, tr("Exporting repository"));
    if (!mayExport(target))
        return frame.finish(ERROR, tr("Repository is not exported"));
    const auto listing = ArchiveContents::ofRepository(path());
    if (!listing.error.isEmpty()) {
        Q_EMIT critical(tr("Can't open repository dir"), listing.error);
        return frame.finish(ERROR, tr("Repository is not exported"));
    }
    ArchiveWriter writer(target, [this] { return m_context->isCanceled(); });
    if (!writer.open())
        return exportFailed(&frame, writer.error());
    m_context->setProgressRange(listing.entries.size());
    for (const auto &entry : listing.entries) {
        const auto result
            = m_context->isCanceled() ? ArchiveWriter::Result::Stopped : writer.add(entry.path, entry.member);
        if (result == ArchiveWriter::Result::Stopped)
            return frame.finish(CANCEL, tr("Operation stopped. Repository not exported."));
        if (result == ArchiveWriter::Result::Failed)
            return exportFailed(&frame, writer.error());
        frame.quickItemDone();
    }
    if (!writer.commit())
        return exportFailed(&frame, writer.error());
    m_context->showProgress();
    return frame.finish(SUCCESS, tr("Repository exported."));
}

int RepoShell::exportPackagesBody(const QList<PackageInfoPtr> &packages,
                                  const QString &target,
                                  bool withDepends)
{
    JobFrame frame(*m_context, packages.size() == 1 ? tr("Exporting package") : tr("Exporting packages"));
    if (!mayExport(target))
        return frame.finish(ERROR, tr("Repository is not exported"));
    const QList<PackageInfoPtr> needed
        = withDepends ? localDependencies(packages, LocalCandidates(m_context->packages().all()))
                      : QList<PackageInfoPtr>();
    const auto files = poolFiles(packages + needed);
    ArchiveWriter writer(target, [this] { return m_context->isCanceled(); });
    if (!writer.open())
        return exportFailed(&frame, writer.error());

    QHash<QString, QString> members; // the files by their names in the archive
    auto result = ArchiveWriter::Result::Added;
    for (const PackageInfoPtr &package : packages + needed) {
        const QString file = files.value(PackageKey::of(*package));
        QString member = QFileInfo(file).fileName();
        // Components can hold different packages under one file name.
        if (members.value(member, file) != file)
            member.prepend(package->indexComponent + QLatin1Char('/'));
        if (m_context->isCanceled())
            result = ArchiveWriter::Result::Stopped;
        else if (file.isEmpty())
            return exportFailed(&frame, tr("The file of the package %1 is not known.").arg(package->name));
        else if (!members.contains(member))
            result = writer.add(file, member);
        if (result == ArchiveWriter::Result::Failed)
            return exportFailed(&frame, writer.error());
        if (result == ArchiveWriter::Result::Stopped)
            break;
        members.insert(member, file);
        frame.itemDone(packages.size() + needed.size());
    }
    // An archive of nothing must not replace an older one.
    if (!(result == ArchiveWriter::Result::Stopped && members.isEmpty()) && !writer.commit())
        return exportFailed(&frame, writer.error());
    if (result == ArchiveWriter::Result::Stopped)
        return frame.finish(CANCEL,
                            packages.size() == 1 ? tr("Operation stopped. Package not exported.")
                                                 : tr("Operation stopped. Packages not exported."));
    return frame.finish(SUCCESS, tr("Export finished"));
}

bool RepoShell::mayExport(const QString &target)
{
    const QString repoPath = path();
    if (!QFileInfo(repoPath).isDir()) {
        Q_EMIT critical(tr("Can't open repository dir"), repoPath);
        return false;
    }
    const QString place = PathGuard::resolved(target);
    if (place.startsWith(PathGuard::resolved(repoPath) + QLatin1Char('/'))) {
        Q_EMIT critical(tr("Can't create archive for export"),
                        tr("%1 lies in the repository itself. Choose a place outside of it.").arg(target));
        return false;
    }
    const RepoLock::State state = RepoLock::state(repoPath);
    if (state != RepoLock::State::Free && state != RepoLock::State::Stale) {
        Q_EMIT critical(
            tr("The repository %1 is being changed by another program. Try again when it is done.")
                .arg(repoPath));
        return false;
    }
    return true;
}

int RepoShell::exportFailed(JobFrame *frame, const QString &reason)
{
    Q_EMIT critical(tr("Can't create archive for export"), reason);
    return frame->finish(ERROR, tr("Repository is not exported"));
}

QHash<PackageKey, QString> RepoShell::poolFiles(const QList<PackageInfoPtr> &packages)
{
    // A question for each takes longer than copying most packages; all at once can be asked in one run.
    constexpr int FewPackages = 4;
    QHash<PackageKey, QString> files;
    if (packages.size() <= FewPackages) {
        for (const PackageInfoPtr &package : packages) {
            packageFilePath(package->name, package->indexComponent, package->architecture);
            const QStringList lines = lastOutput().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            for (const QString &line : lines)
                if (line.endsWith(suffixOf(*package)))
                    files.insert(PackageKey::of(*package), path() + QLatin1Char('/') + line);
        }
        return files;
    }
    m_context->runReprepro(ReproCommand::listAllFiles(repoInfo().codename));
    const QStringList lines = lastOutput().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    files.reserve(lines.size());
    for (const QString &line : lines) {
        const QString file = line.section(QLatin1Char(' '), 3);
        const auto type = file.endsWith(QLatin1String(".udeb")) ? PackageType::Udeb : PackageType::Deb;
        const QStringList words = line.split(QLatin1Char(' '));
        files.insert({words.value(2), words.value(0), words.value(1), type},
                     path() + QLatin1Char('/') + file);
    }
    return files;
}

// --- import ------------------------------------------------------------------------------------------------------

void RepoShell::importRepo(const QString &archive, const AddOptions &options)
{
    if (!archive.isEmpty() && !path().isEmpty())
        startJob([this, archive = absolute(archive), options] { return importBody(archive, options); });
}

void RepoShell::removeTempDir()
{
    if (!isRunning())
        m_tempDir.reset();
}

int RepoShell::importBody(const QString &archive, const AddOptions &options)
{
    JobFrame frame(*m_context, tr("Start repo import"));
    if (!m_context->isDatabaseThere())
        return frame.finish(ERROR, tr("Import error!"));
    const auto cleanUp = qScopeGuard([this] { m_tempDir.reset(); });
    QStringList files;
    const bool collected = collectPackages(archive, &files);
    if (m_context->isCanceled())
        return frame.finish(CANCEL, tr("Package(s) not imported"));
    if (!collected)
        return frame.finish(ERROR, tr("Import error!"));
    if (files.isEmpty())
        return frame.finish(ERROR, tr("Import failed: there are no packages by selected path"));

    constexpr bool WithoutCheck = false;
    PackageAdding adding(*m_context, options, files.size() == 1, WithoutCheck);
    if (adding.addFiles(files, &frame) == CANCEL)
        return frame.finish(CANCEL, tr("Package(s) not imported"));
    return frame.finish(SUCCESS, tr("%n package(s) imported", nullptr, adding.addedCount()));
}

bool RepoShell::collectPackages(const QString &source, QStringList *files)
{
    const QFileInfo info(source);
    if (!info.isDir())
        return unpackPackages(source, files);
    if (!info.isReadable()) {
        Q_EMIT critical(tr("Can't open archive for import!"), source);
        return false;
    }
    *files = ArchiveContents::packagesBelow(source, path(), [this] { return m_context->isCanceled(); });
    return true;
}

bool RepoShell::unpackPackages(const QString &archive, QStringList *files)
{
    const auto stopped = [this] { return m_context->isCanceled(); };
    bool isMounting = true;
    ArchiveUtils mounted;
    // Direct, so that the interface hears of an error before it hears of the job's end.
    connect(
        &mounted,
        &ProcessUtils::error,
        this,
        [this, &isMounting](const QString &text, const QString &details) {
            // A mount that was stopped has failed as wished.
            if (!isMounting || !m_context->isCanceled())
                Q_EMIT critical(text, details);
        },
        Qt::DirectConnection);
    mounted.setStopRequest(stopped);
    if (!mounted.mount(archive))
        return false;
    isMounting = false;
    const QStringList listed = ArchiveContents::packagesBelow(ArchiveUtils::mountPoint(), QString(), stopped);
    m_tempDir = std::make_unique<ScratchFolder>();
    if (!m_tempDir->isValid()) {
        Q_EMIT critical(tr("Can't open archive for import!"),
                        tr("No temporary folder could be made to unpack it in."));
        return false;
    }
    // Every file that is opened below the mount point reads the archive from its start, so all are taken in one pass.
    PackageExtractor extractor(m_tempDir->path(), stopped);
    PackageExtractor::Result result = extractor.extract(archive);
    if (result == PackageExtractor::Result::NoTar)
        result = extractor.copy(listed);
    mounted.umount();
    if (result == PackageExtractor::Result::Damaged)
        Q_EMIT critical(tr("Can't open archive for import!"), extractor.error());
    *files = extractor.files();
    return result == PackageExtractor::Result::Done;
}
