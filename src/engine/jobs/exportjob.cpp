// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/exportjob.h"

#include "core/countof.h"
#include "core/packagenames.h"
#include "engine/archive/archivecontents.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"
#include "files/pathguard.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace
{
/** The name of a file in the archive. No package file can have it. */
const QString MissingList = QStringLiteral("missing-dependencies.txt");

QString missingLine(const UnmetEntry &entry)
{
    return QStringLiteral("%1: %2").arg(entry.text, entry.packages.join(QLatin1String(", ")));
}
} // namespace

ExportJob::ExportJob(JobContext &context, QString target)
    : m_context(context)
    , m_target(std::move(target))
{ }

int ExportJob::exportRepo()
{
    JobFrame frame(m_context, tr("Exporting repository"));
    if (!mayExport())
        return frame.finish(ERROR, tr("Repository is not exported"));
    const auto listing = ArchiveContents::ofRepository(m_context.path());
    if (!listing.error.isEmpty()) {
        m_context.errors.critical(tr("Can't open repository dir"), listing.error);
        return frame.finish(ERROR, tr("Repository is not exported"));
    }
    ArchiveWriter writer(m_target, [this] { return m_context.control.isCanceled(); });
    if (!writer.open())
        return failed(&frame, writer.error());
    noteLeftOut(listing.leftOut);
    m_context.progress.setRange(countOf(listing.entries));
    for (const auto &entry : listing.entries) {
        const auto result = m_context.control.isCanceled() ? ArchiveWriter::Result::Stopped
                                                           : writer.add(entry.path, entry.member, entry.id);
        if (result == ArchiveWriter::Result::Stopped)
            return frame.finish(CANCEL, tr("Operation stopped. Repository not exported."));
        if (result == ArchiveWriter::Result::Failed)
            return failed(&frame, writer.error());
        frame.quickItemDone();
    }
    if (!writer.commit())
        return failed(&frame, writer.error());
    m_context.progress.show();
    warnOfLeftOut(listing.leftOut);
    return frame.finish(SUCCESS, tr("Repository exported."));
}

int ExportJob::exportPackages(const QList<PackageInfoPtr> &packages, bool withDepends)
{
    JobFrame frame(m_context, packages.size() == 1 ? tr("Exporting package") : tr("Exporting packages"));
    if (!mayExport() || !JobPreconditions::mayRun(m_context))
        return frame.finish(ERROR, tr("Repository is not exported"));
    const QList<PackageInfoPtr> needed
        = withDepends ? localDependencies(packages, LocalCandidates(m_context.packages.all()))
                      : QList<PackageInfoPtr>();
    const auto files = poolFiles(packages + needed);
    ArchiveWriter writer(m_target, [this] { return m_context.control.isCanceled(); });
    if (!writer.open())
        return failed(&frame, writer.error());

    QHash<QString, QString> members; // the files by their names in the archive
    QStringList leftOut;
    auto result = ArchiveWriter::Result::Added;
    for (const PackageInfoPtr &package : packages + needed) {
        const QString file = files.value(PackageKey::of(*package));
        QString member = QFileInfo(file).fileName();
        // Two components can have different packages with the same file name.
        if (members.value(member, file) != file)
            member.prepend(package->indexComponent + QLatin1Char('/'));
        if (m_context.control.isCanceled())
            result = ArchiveWriter::Result::Stopped;
        else if (file.isEmpty())
            return failed(&frame, tr("The file of the package %1 is not known.").arg(package->name));
        else if (!members.contains(member))
            result = add(&writer, file, member, &leftOut);
        if (result == ArchiveWriter::Result::Failed)
            return failed(&frame, writer.error());
        if (result == ArchiveWriter::Result::Stopped)
            break;
        members.insert(member, file);
        frame.itemDone(countOf(packages) + countOf(needed));
    }
    QVector<UnmetEntry> missing;
    if (withDepends && result == ArchiveWriter::Result::Added) {
        QList<PackageInfoPtr> packed = packages + needed;
        const auto isLeftOut = [&](const PackageInfoPtr &package) {
            return leftOut.contains(poolFile(files.value(PackageKey::of(*package))));
        };
        packed.erase(std::remove_if(packed.begin(), packed.end(), isLeftOut), packed.end());
        missing = unmetEntries(packed, [this] { return m_context.control.isCanceled(); });
        result
            = m_context.control.isCanceled() ? ArchiveWriter::Result::Stopped : addMissing(&writer, missing);
        if (result == ArchiveWriter::Result::Failed)
            return failed(&frame, writer.error());
    }
    // An archive of nothing must not replace an older one.
    const bool isStopped = result == ArchiveWriter::Result::Stopped;
    const bool isEmpty = members.size() == leftOut.size();
    if (isEmpty && !isStopped)
        return failed(&frame, leftOutText(leftOut));
    if (!isEmpty && !writer.commit())
        return failed(&frame, writer.error());
    if (isStopped)
        return frame.finish(CANCEL,
                            packages.size() == 1 ? tr("Operation stopped. Package not exported.")
                                                 : tr("Operation stopped. Packages not exported."));
    warnOfLeftOut(leftOut);
    warnOfMissing(missing);
    return frame.finish(SUCCESS, tr("Export finished"));
}

ArchiveWriter::Result
ExportJob::add(ArchiveWriter *writer, const QString &file, const QString &member, QStringList *leftOut)
{
    const auto entry = ArchiveContents::fileOfRepository(m_context.path(), poolFile(file), member);
    if (entry)
        return writer->add(entry->path, entry->member, entry->id);
    leftOut->append(poolFile(file));
    noteLeftOut({poolFile(file)});
    return ArchiveWriter::Result::Added;
}

QString ExportJob::leftOutText(const QStringList &names)
{
    return tr("%n link(s) of the repository lead to places outside of it and were left out. Such a link is "
              "followed only when it belongs to you or to root, and what it leads to has the same owner.",
              nullptr,
              countOf(names));
}

void ExportJob::noteLeftOut(const QStringList &names)
{
    for (const QString &name : names)
        Q_EMIT m_context.listener.noted(tr("Left out, since it leads out of the repository: %1").arg(name));
}

void ExportJob::warnOfLeftOut(const QStringList &names)
{
    constexpr int MostNamed = 10;
    if (names.isEmpty())
        return;
    QStringList lines = names.mid(0, MostNamed);
    if (names.size() > MostNamed)
        lines << QString(QChar(0x2026));
    m_context.errors.critical(leftOutText(names), lines.join(QLatin1Char('\n')), WARNING);
}

ArchiveWriter::Result ExportJob::addMissing(ArchiveWriter *writer, const QVector<UnmetEntry> &missing)
{
    if (missing.isEmpty())
        return ArchiveWriter::Result::Added;
    QStringList lines{
        tr("What packages in this archive depend on and no package in it is or provides, with the "
           "packages that need it:"),
        QString()};
    for (const UnmetEntry &entry : missing)
        lines << missingLine(entry);
    return writer->addText(lines.join(QLatin1Char('\n')).toUtf8() + '\n', MissingList);
}

void ExportJob::warnOfMissing(const QVector<UnmetEntry> &missing)
{
    constexpr int MostNamed = 10;
    constexpr int MostPackages = 5;
    if (missing.isEmpty())
        return;
    QStringList lines;
    for (const UnmetEntry &entry : missing.mid(0, MostNamed)) {
        UnmetEntry shortened{entry.text, entry.packages.mid(0, MostPackages)};
        if (entry.packages.size() > MostPackages)
            shortened.packages << QString(QChar(0x2026));
        lines << missingLine(shortened);
    }
    if (missing.size() > MostNamed)
        lines << QString(QChar(0x2026));
    m_context.errors.critical(
        tr("%n dependency(ies) of the exported packages are not in the archive %1. The file %2 in it "
           "lists them all.",
           nullptr,
           countOf(missing))
            .arg(m_target, MissingList),
        lines.join(QLatin1Char('\n')),
        WARNING);
}

bool ExportJob::mayExport()
{
    const QString repoPath = m_context.path();
    if (!QFileInfo(repoPath).isDir()) {
        m_context.errors.critical(tr("Can't open repository dir"), repoPath);
        return false;
    }
    const QString place = PathGuard::resolved(m_target);
    if (place.startsWith(PathGuard::resolved(repoPath) + QLatin1Char('/'))) {
        m_context.errors.critical(
            tr("Can't create archive for export"),
            tr("%1 lies in the repository itself. Choose a place outside of it.").arg(m_target));
        return false;
    }
    const RepoLock::State state = RepoLock::state(repoPath);
    if (state != RepoLock::State::Free && state != RepoLock::State::Stale) {
        m_context.errors.critical(
            RepoLock::busyText(repoPath), QString(), RepoEnums::CRITICAL, RepoEnums::REPOSITORY_BUSY);
        return false;
    }
    return true;
}

int ExportJob::failed(JobFrame *frame, const QString &reason)
{
    m_context.errors.critical(tr("Can't create archive for export"), reason);
    return frame->finish(ERROR, tr("Repository is not exported"));
}

QString ExportJob::poolFile(const QString &file) const
{
    return file.mid(m_context.path().size() + 1);
}

QHash<PackageKey, QString> ExportJob::poolFiles(const QList<PackageInfoPtr> &packages)
{
    // A run for each package takes longer than copying most packages. One run can list all.
    constexpr int FewPackages = 4;
    const QString folder = m_context.path() + QLatin1Char('/');
    const QString codename = m_context.repository.info().codename;
    QHash<PackageKey, QString> files;
    if (packages.size() <= FewPackages) {
        for (const PackageInfoPtr &package : packages) {
            const ProcessResult listed = m_context.reprepro.run(ReproCommand::listFiles(
                codename, package->name, package->indexComponent, package->architecture));
            for (const QString &file : ReproListing::files(listed.output))
                if (PackageNames::typeOfFile(file) == package->type)
                    files.insert(PackageKey::of(*package), folder + file);
        }
        return files;
    }
    const ProcessResult listed = m_context.reprepro.run(ReproCommand::listAllFiles(codename));
    for (const ReproListing::Package &package : ReproListing::packages(listed.output))
        files.insert({package.name, package.component, package.architecture, package.type()},
                     folder + package.file);
    return files;
}
