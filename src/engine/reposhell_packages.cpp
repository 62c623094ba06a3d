// SPDX-License-Identifier: GPL-3.0-or-later
// Adding and removing packages.
#include "depends/dpkgutils.h"
#include "engine/addrun.h"
#include "engine/jobframe.h"
#include "engine/packagebackup.h"
#include "engine/packagefile.h"
#include "engine/reposhell.h"
#include "engine/repreproanswers.h"
#include "engine/repreprocommands.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace
{
bool isCollision(RepoEnums::ErrorCode code)
{
    return code == RepoEnums::PACKAGE_EXISTS || code == RepoEnums::PACKAGE_EXISTS_NEW_VERSION
           || code == RepoEnums::PACKAGE_EXISTS_OLD_VERSION;
}

QString joined(const QStringList &names)
{
    return names.join(QLatin1String(", "));
}

/** Why a file that collided stayed out. */
QString keptText(RepoEnums::ErrorCode collision, const QString &file, const PackageInfo &present)
{
    QString text
        = RepoShell::tr("Not added: %1. The repository holds version %2 (%3) already, which was kept.");
    if (collision == RepoEnums::PACKAGE_EXISTS_NEW_VERSION)
        text
            = RepoShell::tr("Not added: %1. The repository holds the newer version %2 (%3), which was kept.");
    else if (collision == RepoEnums::PACKAGE_EXISTS_OLD_VERSION)
        text
            = RepoShell::tr("Not added: %1. The repository holds the older version %2 (%3), which was kept.");
    return text.arg(file, present.version, present.architecture);
}

/** Puts the file where `record` says; the Section field can name another component than the one that lists it. */
QString includeCommand(const QString &codename, const PackageInfo &record, const QString &file)
{
    QString section = record.section;
    if (record.component != record.indexComponent)
        section.prepend(record.component + QLatin1Char('/'));
    return ReproCommand::include(codename, record.indexComponent, record.architecture, section, file);
}
} // namespace

// --- add ---------------------------------------------------------------------------------------------------------

void RepoShell::addPackages(const QStringList &files, const AddOptions &options)
{
    if (!files.isEmpty() && !path().isEmpty())
        startJob([this, files, options] { return addBody(files, options); });
}

int RepoShell::addBody(const QStringList &files, const AddOptions &options)
{
    JobFrame frame(*m_context, files.size() == 1 ? tr("Adding package") : tr("Adding packages"));
    if (!m_context->isDatabaseThere())
        return frame.finish(ERROR, tr("%n package(s) added: %1", nullptr, 0).arg(QString()));
    AddRun run{options, files.size() == 1, m_context->makeSession()};
    if (addFiles(files, &run, &frame) == CANCEL)
        return frame.finish(CANCEL,
                            tr("Operation stopped. %1 of %n package(s) added: %2", nullptr, files.size())
                                .arg(QString::number(run.added.size()), joined(run.added)));
    return frame.finish(SUCCESS,
                        tr("%n package(s) added: %1", nullptr, run.added.size()).arg(joined(run.added)));
}

RepoShell::ErrorCode RepoShell::addFiles(const QStringList &files, AddRun *run, JobFrame *frame)
{
    PackageFileReader reader(files);
    bool stopped = false;
    for (int done = 0; done < files.size(); ++done) {
        stopped = m_context->isCanceled();
        if (stopped)
            break;
        addReadFile(reader.next(), done + 1 == files.size(), run);
        frame->itemDone(files.size());
    }
    finishAdding(run, stopped);
    return stopped ? CANCEL : SUCCESS;
}

void RepoShell::addReadFile(const PackageFile &read, bool isLast, AddRun *run)
{
    AddedFile file{*run, read.path, isLast};
    if (!read.package)
        Q_EMIT critical(tr("Error adding package!"), read.path + QLatin1String(":\n") + read.reason);
    else if (addFile(&file, *read.package) == SUCCESS)
        run->added.append(QFileInfo(read.path).fileName());
}

void RepoShell::finishAdding(AddRun *run, bool stopped)
{
    m_context->finishSession(&run->session);
    QList<PackageInfoPtr> unchecked;
    if (m_context->checksDependsOnAdd() && run->checksDepends)
        unchecked = run->records;
    if (!run->records.isEmpty())
        unchecked += run->wanting;
    if (!m_context->isClosing() && !unchecked.isEmpty()) {
        // The stop was for the adding; what went in is checked until the next one.
        if (stopped)
            m_context->resetCancel();
        checkRecords(presentRecords(unchecked));
    }
    Q_EMIT requestForSavingPackages(m_context->packages().all());
}

RepoShell::ErrorCode RepoShell::addFile(AddedFile *file, const PackageInfo &package)
{
    AddRun &run = file->run;
    QStringList architectures{package.architecture};
    if (package.architecture == QLatin1String("all"))
        architectures = repoInfo().architectureList();
    ErrorCode result = ERROR;
    for (const QString &architecture : qAsConst(architectures)) {
        PackageInfo record = package;
        record.architecture = architecture;
        record.root = path();
        if (!run.options.component.isEmpty())
            record.component = run.options.component;
        record.indexComponent = record.component;
        record.poolFile = ReproCommand::poolFile(record, package.architecture);

        result = includePackage(file, record, false);
        if (isCollision(result)) {
            const PackageInfoPtr present = m_context->packages().find(PackageKey::of(record));
            m_context->setNewcomer({QFileInfo(file->path).fileName(),
                                    record.version,
                                    file->isLast && architecture == architectures.last()});
            if (mustReplace(result, &run.rules, present, run.singlePackage))
                result = includePackage(file, record, true);
            else
                Q_EMIT noted(keptText(result, file->path, *present));
        }
        if (result == PACKAGE_GPGERROR) {
            const bool remove
                = m_context->ask(tr("Package is unsigned"),
                                 tr("Package is added, but unsigned. Do you want to remove it?"),
                                 false);
            if (remove && removePackage(m_context->packages().find(PackageKey::of(record)), &run.session))
                Q_EMIT noted(
                    tr("Not added: %1. The repository could not be signed with it.").arg(file->path));
            else
                Q_EMIT noted(tr("Added, but the repository could not be signed: %1.").arg(file->path));
        }
    }
    return result;
}

bool RepoShell::mustReplace(ErrorCode collision,
                            PackageReplacementRules *rules,
                            const PackageInfoPtr &package,
                            bool singlePackage)
{
    if (rules->mustAsk()) {
        // No answer, because the program is closing or nobody is there to ask, keeps what is in the repository.
        rules->value = PackageReplacementRules::KeepThis;
        m_context->askForReplacement(collision, rules, package, singlePackage);
    }
    return rules->replaces(collision);
}

RepoShell::ErrorCode
RepoShell::collisionOf(const QString &file, const PackageInfo &package, const PackageInfo &present)
{
    DpkgUtils dpkg;
    if (dpkg.compareVersions(package.version, QStringLiteral("="), present.version))
        return PACKAGE_EXISTS;
    if (dpkg.compareVersions(package.version, QStringLiteral(">"), present.version))
        return PACKAGE_EXISTS_OLD_VERSION;
    if (dpkg.compareVersions(package.version, QStringLiteral("<"), present.version))
        return PACKAGE_EXISTS_NEW_VERSION;
    Q_EMIT critical(tr("Error adding package %1!").arg(file), dpkg.errorText());
    return ERROR;
}

RepoShell::ErrorCode RepoShell::includePackage(AddedFile *file, const PackageInfo &record, bool replace)
{
    if (record.architecture == QLatin1String("all")) {
        Q_EMIT critical(tr("Cannot added package %1 with architecture all!").arg(file->path));
        return ERROR;
    }
    const PackageKey key = PackageKey::of(record);
    if (file->results.contains(key))
        return file->results.value(key);
    const PackageInfoPtr present = m_context->packages().find(key);
    if (present && !replace)
        return collisionOf(file->path, record, *present);

    // Signed before anything is removed: a key that fails must not cost the package that is there.
    if (!signFile(file, record.name))
        return PACKAGE_UNSIGNED;

    return present ? replacePackage(file, record, *present) : includeFile(file, record, false);
}

RepoShell::ErrorCode
RepoShell::replacePackage(AddedFile *file, const PackageInfo &record, const PackageInfo &present)
{
    ExportSession *const session = &file->run.session;
    PackageBackup backup(path(), present);
    if (backup.file().isEmpty() && QFile::exists(present.filePath())) {
        Q_EMIT critical(tr("Error adding package %1!").arg(file->path),
                        tr("The present package could not be kept aside, so it was not replaced: %1")
                            .arg(present.filePath()));
        return ERROR;
    }
    const auto inTheWay = packagesInTheWay(present, record);
    const bool makesRoom = present.filePath() == record.filePath();
    QList<PackageInfoPtr> removed;
    for (const PackageInfoPtr &package : inTheWay) {
        const bool isRemoved = removePackage(package, session, makesRoom);
        // A run that died may have come further than anybody could find out.
        if (isRemoved || !QFile::exists(package->filePath()))
            removed.append(package);
        if (!isRemoved) {
            Q_EMIT critical(tr("Error adding package %1!").arg(file->path),
                            tr("The present package could not be removed, so it was not replaced."));
            restorePackages(removed, &backup, session);
            return ERROR;
        }
    }
    // They had one file, and either all get the new one or all keep the old one.
    for (const PackageInfoPtr &package : inTheWay) {
        PackageInfo successor = record;
        successor.architecture = package->architecture;
        if (includeFile(file, successor, true) != ERROR)
            continue;
        for (const PackageInfoPtr &other : inTheWay) {
            const PackageInfoPtr included = m_context->packages().find(PackageKey::of(*other));
            if (file->results.remove(PackageKey::of(*other)) > 0 && included)
                removePackage(included, session, makesRoom);
        }
        restorePackages(removed, &backup, session);
        return ERROR;
    }
    return file->results.value(PackageKey::of(record), ERROR);
}

RepoShell::ErrorCode RepoShell::includeFile(AddedFile *file, const PackageInfo &record, bool replaces)
{
    const ProcessResult result
        = runInclude(includeCommand(repoInfo().codename, record, file->source), &file->run.session);
    if (!isIncluded(result, record)) {
        Q_EMIT critical(tr("Error adding package %1!").arg(file->path), result.errorOutput);
        return ERROR;
    }
    PackageInfo included = record;
    included.signingKey = signingKeyOf(&file->run);
    rememberSignature(included);
    file->run.records.append(packageIncluded(included, replaces));
    const ErrorCode code = ReproAnswer::signingFailed(result.errorOutput) ? PACKAGE_GPGERROR : SUCCESS;
    file->results.insert(PackageKey::of(record), code);
    return code;
}

bool RepoShell::isIncluded(const ProcessResult &result, const PackageInfo &record)
{
    if (result.succeeded())
        return !ReproAnswer::inclusionSkipped(result.errorOutput);
    // What a run that died has done, only the database knows.
    if (result.crashed())
        return packageFilePath(record.name, record.indexComponent, record.architecture) == record.filePath();
    // When only the indices could not be written, the package is in all the same, and the end of the job tells of
    // the indices.
    return ReproAnswer::indicesOutdated(result.errorOutput) || ReproAnswer::signingFailed(result.errorOutput);
}

bool RepoShell::isGone(const PackageInfo &package)
{
    const bool isKnown = m_context->runReprepro(ReproCommand::listFiles(
                             repoInfo().codename, package.name, package.indexComponent, package.architecture))
                         == 0;
    const QStringList files = lastOutput().split(QLatin1Char('\n'));
    return isKnown && std::none_of(files.cbegin(), files.cend(), [&](const QString &file) {
               return path() + QLatin1Char('/') + file == package.filePath();
           });
}

QList<PackageInfoPtr> RepoShell::packagesInTheWay(const PackageInfo &present, const PackageInfo &record) const
{
    QList<PackageInfoPtr> packages{m_context->packages().find(PackageKey::of(present))};
    if (present.filePath() != record.filePath())
        return packages;
    // An architecture-independent package has one file for all architectures, and as long as one of them uses the
    // old file, reprepro takes no other contents under its name.
    const QStringList architectures = repoInfo().architectureList();
    for (const QString &architecture : architectures) {
        PackageKey key = PackageKey::of(present);
        key.architecture = architecture;
        const PackageInfoPtr twin = m_context->packages().find(key);
        if (twin && architecture != present.architecture && twin->filePath() == present.filePath())
            packages.append(twin);
    }
    return packages;
}

ProcessResult RepoShell::runInclude(const QString &arguments, ExportSession *session)
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

PackageInfoPtr RepoShell::packageIncluded(const PackageInfo &record, bool replaced)
{
    PackageInfoPtr package = QSharedPointer<PackageInfo>::create(record);
    m_context->packages().append(package);
    if (replaced)
        Q_EMIT packageChanged(package);
    else
        Q_EMIT packageAdded(package);
    return package;
}

void RepoShell::restorePackages(const QList<PackageInfoPtr> &packages,
                                PackageBackup *backup,
                                ExportSession *session)
{
    for (const PackageInfoPtr &package : packages) {
        if (!backup->file().isEmpty()
            && isIncluded(runInclude(includeCommand(repoInfo().codename, *package, backup->file()), session),
                          *package)) {
            rememberSignature(*package);
            m_context->packages().append(package);
            Q_EMIT packageAdded(package);
            continue;
        }
        if (backup->file().isEmpty()) {
            Q_EMIT critical(tr("The replaced package %1 could not be put back: its file was missing already.")
                                .arg(package->name));
            continue;
        }
        backup->keep();
        Q_EMIT critical(tr("The replaced package %1 could not be put back. Its file is kept as %2.")
                            .arg(package->name, backup->file()),
                        lastErrorOutput());
    }
}

// --- remove ------------------------------------------------------------------------------------------------------

void RepoShell::removePackages(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return removeBody(packages); });
}

int RepoShell::removeBody(const QList<PackageInfoPtr> &packages)
{
    JobFrame frame(*m_context, packages.size() == 1 ? tr("Removing package") : tr("Removing packages"));
    if (!m_context->isDatabaseThere())
        return frame.finish(ERROR, tr("%n packages removed: %1", nullptr, 0).arg(QString()));
    ExportSession session = m_context->makeSession();
    QStringList removed;
    bool stopped = false;
    for (const PackageInfoPtr &package : packages) {
        stopped = m_context->isCanceled();
        if (stopped)
            break;
        if (removePackage(package, &session))
            removed.append(displayFileName(*package));
        frame.itemDone(packages.size());
    }
    m_context->finishSession(&session);
    Q_EMIT requestForSavingPackages(m_context->packages().all());
    if (stopped)
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n packages(s) removed: %2", nullptr, packages.size())
                .arg(QString::number(removed.size()), joined(removed)));
    return frame.finish(SUCCESS, tr("%n packages removed: %1", nullptr, removed.size()).arg(joined(removed)));
}

bool RepoShell::removePackage(const PackageInfoPtr &package, ExportSession *session, bool makesRoom)
{
    PackageKey twin = PackageKey::of(*package);
    twin.type = package->type == PackageType::Deb ? PackageType::Udeb : PackageType::Deb;
    const PackageType *only = m_context->packages().find(twin) ? &package->type : nullptr;
    const ProcessResult result = session->remove(
        ReproCommand::remove(
            repoInfo().codename, package->name, package->indexComponent, package->architecture, only),
        makesRoom);
    // When only the indices could not be written, the package has left the database all the same, and the end of the
    // job tells of the indices.
    const bool removed = result.succeeded() || ReproAnswer::indicesOutdated(result.errorOutput)
                         || ReproAnswer::signingFailed(result.errorOutput)
                         || (result.crashed() && isGone(*package));
    if (!removed) {
        if (result.started && !result.crashed())
            Q_EMIT critical(tr("Error removing package %1!").arg(package->name), result.errorOutput);
        return false;
    }
    if (ReproAnswer::nothingRemoved(result.errorOutput))
        session->oweExport();
    if (const PackageInfoPtr listed = m_context->packages().take(PackageKey::of(*package))) {
        forgetSignature(*listed);
        Q_EMIT packageRemoved(listed);
    }
    return true;
}
