// SPDX-License-Identifier: GPL-3.0-or-later
// Changing the description of a repository, and moving it.
#include "engine/changes/exportsession.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobrecovery.h"
#include "engine/changes/signaturerecord.h"
#include "engine/reposhell.h"
#include "engine/repository/changerules.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/vanishedindices.h"
#include "engine/reprepro/databasecopy.h"
#include "engine/reprepro/joblock.h"
#include "engine/reprepro/repositorycopy.h"
#include "engine/reprepro/repreproanswers.h"
#include "engine/reprepro/repreprocommands.h"
#include "files/asidedirectory.h"
#include "files/pathguard.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}

/** A link in the repository's upper folders that leads out of it by a relative path; empty when there is none. */
QString outwardLink(const QString &repoPath)
{
    for (const char *folder : {"", "/dists", "/pool", "/conf", "/db"}) {
        const QDir directory(repoPath + QLatin1String(folder));
        const QFileInfoList entries
            = directory.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        for (const QFileInfo &entry : entries) {
            std::error_code error;
            const auto target
                = std::filesystem::read_symlink(QFile::encodeName(entry.filePath()).toStdString(), error);
            if (error || target.is_absolute())
                continue;
            const QString place = QDir::cleanPath(
                directory.filePath(QFile::decodeName(QByteArray::fromStdString(target.string()))));
            if (!place.startsWith(repoPath + QLatin1Char('/')))
                return entry.filePath();
        }
    }
    return {};
}

/** Whether a rename cannot lead from the one to the other; asked of the system with a folder that nobody needs. */
bool isOnOtherFileSystem(const QString &repoPath, const QString &newPath)
{
    const QTemporaryDir probe(repoPath + QLatin1String("/db/velt-admin-repo.move-XXXXXX"));
    const QString target = newPath + QLatin1Char('.') + QFileInfo(probe.path()).fileName();
    if (std::rename(QFile::encodeName(probe.path()).constData(), QFile::encodeName(target).constData()) != 0)
        return errno == EXDEV;
    QDir().rmdir(target);
    return false;
}

/** Path below the repository, which can have moved. */
QString fileInRepository(const PackageInfo &package)
{
    return package.filePath().mid(package.root.size());
}

/** Those of which no file is left. */
QList<PackageInfoPtr> gone(const QList<PackageInfoPtr> &before, const QList<PackageInfoPtr> &after)
{
    QSet<QString> files;
    for (const PackageInfoPtr &package : after)
        files.insert(fileInRepository(*package));
    QList<PackageInfoPtr> gone;
    for (const PackageInfoPtr &package : before) {
        const QString file = fileInRepository(*package);
        if (files.contains(file))
            continue;
        files.insert(file);
        gone.append(package);
    }
    return gone;
}
} // namespace

void RepoShell::changeRepo(const QString &newPath,
                           const RepoInfo &info,
                           const std::optional<QByteArray> &given,
                           bool carriesPackages)
{
    if (!newPath.isEmpty() && !path().isEmpty())
        startJob([this, target = absolute(newPath), info, given, carriesPackages] {
            return changeBody(target, info, given, carriesPackages);
        });
}

int RepoShell::changeBody(const QString &newPath,
                          const RepoInfo &info,
                          const std::optional<QByteArray> &given,
                          bool carriesPackages)
{
    JobFrame frame(*m_context, tr("Repository changing"));
    Q_EMIT requestForSavingPackages(m_context->packages().all());
    const QString oldPath = path();
    const DistributionsFile file(oldPath);
    const auto text = file.readBytes();
    if (!text)
        Q_EMIT critical(tr("Failed to change repository!"),
                        tr("File %1/conf/distributions not found!").arg(oldPath));
    if (!text || !m_context->mayChange() || !isUnderstood(*text, given) || !mayMove(newPath))
        return frame.finish(ERROR, tr("Repository not changed"));
    if (!userAgreesToLosses(*text, newPath, info))
        return frame.finish(CANCEL, tr("Repository not changed"));
    // Somebody may have edited the file since it was opened.
    const RepoInfo oldInfo = file.parsed(*text);
    setRepository(oldPath, oldInfo);
    QString details;
    if (!keepForUndoing(*text, &details)) {
        m_context->runFailed(tr("Failed to change repository!"), details);
        return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
    }
    // Until its end the original is there too when the repository had to be copied.
    std::unique_ptr<RepositoryCopy> copy;
    const ErrorCode moved = newPath == oldPath ? SUCCESS : moveRepo(newPath, &frame, &copy);
    if (moved != SUCCESS) {
        DatabaseCopy::drop(oldPath);
        return frame.finish(moved, tr("Repository not changed"));
    }

    // Until the indices are those of the description again, whoever opens the repository has to write them.
    ExportSession::setMarker(newPath);
    const RepoChange change{oldInfo, info, carriesPackages};
    const QList<PackageInfoPtr> packages = m_context->packages().all();
    // What lies under the new code name already is nothing of ours.
    const bool isPlaceFree = !change.isRenaming() || !hasIndices(newPath, info.codename);
    if (rewriteRepo(change, *text, &details)) {
        DatabaseCopy::drop(newPath);
        if (copy && !copy->removeOriginal())
            Q_EMIT critical(
                tr("Impossible to delete directory %1!").arg(copy->leftAt()), copy->error(), WARNING);
        Q_EMIT pathChanged(newPath);
        // Between the steps of a change nothing can be stopped, and its end is no opening to be stopped either.
        m_context->goOn();
        // After an opening that was stopped nothing is known of what is left.
        if (openBody(newPath) == SUCCESS)
            tellOfGone(change, packages);
        return frame.finish(SUCCESS, tr("Repository is changed."), CHANGE_REPO_JOB);
    }
    // Back to where we were, so that "not changed" is true.
    setRepository(newPath, oldInfo);
    if (isPlaceFree || !hasIndices(newPath, oldInfo.codename))
        removeVanishedIndices(newPath, info, oldInfo);
    if (copy) {
        copy->undo();
        DatabaseCopy::drop(oldPath);
    } else if (JobRecovery(*m_context).undoChange()) {
        DatabaseCopy::drop(newPath);
    }
    if (newPath != oldPath && (copy || AsideDirectory::rename(newPath, oldPath).isEmpty())) {
        setRepository(oldPath, repoInfo());
        moveStoredResults(oldPath);
    }
    Q_EMIT critical(tr("Failed to change repository!"), details, CRITICAL);
    if (path() != oldPath)
        Q_EMIT pathChanged(newPath);
    return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
}

void RepoShell::tellOfGone(const RepoChange &change, const QList<PackageInfoPtr> &before)
{
    // Where the indices could not be written, they do not tell what is left.
    const QList<PackageInfoPtr> lost = ExportSession::isExportOwed(path())
                                           ? change.lost(before)
                                           : gone(before, m_context->packages().all());
    if (change.isRenaming() && change.carries && !before.isEmpty())
        m_context->noted(
            tr("The packages were carried over to the code name %1.").arg(change.after.codename));
    if (lost.isEmpty())
        return;
    QStringList names;
    for (const PackageInfoPtr &package : lost)
        names.append(displayFileName(*package));
    m_context->noted(
        tr("%n package(s) deleted: %1", nullptr, lost.size()).arg(names.join(QLatin1String(", "))));
}

bool RepoShell::keepForUndoing(const QByteArray &text, QString *details)
{
    const QString repoPath = path();
    const ProcessResult kept = m_context->makeSession().keep();
    *details = kept.errorOutput;
    if (!kept.succeeded())
        return false;
    if (DatabaseCopy::keepDescription(repoPath, text))
        return true;
    *details = tr("No copy of the description can be kept in %1.").arg(repoPath + QLatin1String("/db"));
    DatabaseCopy::drop(repoPath);
    return false;
}

bool RepoShell::isUnderstood(const QByteArray &text, const std::optional<QByteArray> &given)
{
    const QString fileName = DistributionsFile(path()).fileName();
    if (given && *given != text) {
        Q_EMIT critical(tr("The description of the repository has been changed by another program "
                           "meanwhile, so nothing was done. Look at it and try again."),
                        fileName);
        return false;
    }
    const QString description = QString::fromLocal8Bit(text);
    if (Distributions::distributionCount(description) > 1) {
        Q_EMIT critical(
            tr("The repository holds several distributions. A change would delete all but the first, so "
               "nothing was done."),
            fileName);
        return false;
    }
    const QString unread = Distributions::unreadLine(description);
    if (!unread.isEmpty()) {
        Q_EMIT critical(tr("The description of the repository is written in a way that this program does not "
                           "read fully. A change could delete packages, so nothing was done."),
                        QStringLiteral("%1\n%2").arg(fileName, unread));
        return false;
    }
    return true;
}

bool RepoShell::mayMove(const QString &newPath)
{
    const QString oldPath = path();
    if (newPath == oldPath)
        return true;
    QString refusal;
    if (QStorageInfo(newPath).rootPath() == newPath)
        refusal = tr("%1 is the root of a disk. Choose a folder in it.").arg(newPath);
    else if (const QString link = outwardLink(oldPath); !link.isEmpty())
        refusal
            = tr("The link %1 leads out of the repository by a relative path, and would lead elsewhere from "
                 "the new place. Make it absolute first.")
                  .arg(link);
    if (!refusal.isEmpty()) {
        Q_EMIT critical(tr("The repository could not be moved to %1.").arg(newPath), refusal);
        return false;
    }
    if (PathGuard::overlap(oldPath, newPath) || !PathGuard::mayBeWiped(newPath, openRepositories())) {
        const QStringList held = PathGuard::repositoriesBelow(newPath);
        Q_EMIT critical(
            tr("Impossible to delete directory %1!").arg(newPath),
            held.isEmpty()
                ? tr("It is the repository itself, lies in it or holds it, or it is a directory of the "
                     "system, or holds a home directory or an open repository.")
                : tr("It holds these repositories: %1").arg(held.join(QLatin1String(", "))));
        return false;
    }
    return true;
}

bool RepoShell::userAgreesToLosses(const QByteArray &text, const QString &newPath, const RepoInfo &info)
{
    constexpr int MostLines = 12;
    constexpr int MostCharacters = 100;
    const QString description = QString::fromLocal8Bit(text);
    const QStringList lost = Distributions::foreignLines(description);
    if (lost.isEmpty())
        return true;
    QStringList lines;
    for (const QString &line : lost.mid(0, MostLines))
        lines << (line.size() > MostCharacters ? line.left(MostCharacters) + QChar(0x2026) : line);
    if (lost.size() > MostLines)
        lines << QString(QChar(0x2026));
    QString question = tr("The change writes the description of the repository anew, without these lines:\n\n"
                          "%1\n\n"
                          "The file with them is kept as %2.")
                           .arg(lines.join(QLatin1Char('\n')),
                                newPath + QLatin1String("/conf/") + DistributionsFile(path()).keptAs(text));
    if (Distributions::losesField(description, DistributionField::SignWith))
        question += QLatin1Char(' ')
                    + (info.signWith ? tr("The repository will be signed with the default key instead.")
                                     : tr("The repository will no longer be signed, so that clients may "
                                          "refuse it."));
    return m_context->ask(
        tr("Repository change"), question + QLatin1Char(' ') + tr("Want to continue?"), false);
}

RepoEnums::ErrorCode
RepoShell::moveRepo(const QString &newPath, JobFrame *frame, std::unique_ptr<RepositoryCopy> *copy)
{
    const QString oldPath = path();
    const auto failed = [this, &newPath](const QString &reason) {
        Q_EMIT critical(tr("The repository could not be moved to %1.").arg(newPath), reason);
        return ERROR;
    };
    // What lies at the new path goes only when the repository has arrived there, and not under another job.
    JobLock lock;
    if (!lock.take(newPath))
        return failed(tr("The repository %1 is being changed by another program. Try again when it is done.")
                          .arg(newPath));
    QDir().mkpath(QFileInfo(newPath).path());
    if (isOnOtherFileSystem(oldPath, newPath)) {
        *copy = std::make_unique<RepositoryCopy>(oldPath, newPath);
        m_context->setProgressRange((*copy)->stepCount());
        const bool isMade = (*copy)->make([this] { return m_context->isCanceled(); },
                                          [frame](int steps) {
                                              for (int step = 0; step < steps; ++step)
                                                  frame->quickItemDone();
                                          });
        if (!isMade && (*copy)->error().isEmpty())
            return CANCEL;
        if (!isMade)
            return failed((*copy)->error());
        m_context->showProgress();
    }
    AsideDirectory aside(newPath);
    QString error = aside.error();
    if (error.isEmpty()) {
        if (!*copy)
            error = AsideDirectory::rename(oldPath, newPath);
        else if (!(*copy)->takePlace())
            error = (*copy)->error();
        if (!error.isEmpty())
            aside.putBack();
    }
    if (!error.isEmpty())
        return failed(error);
    if (!aside.remove())
        Q_EMIT critical(tr("Impossible to delete directory %1!").arg(aside.place()), QString(), WARNING);
    if (*copy)
        m_context->renewAdmissionForCopy(newPath);
    setRepository(newPath, repoInfo());
    moveStoredResults(newPath);
    return SUCCESS;
}

bool RepoShell::rewriteRepo(const RepoChange &change, const QByteArray &text, QString *details)
{
    const QList<PackageInfoPtr> packages = m_context->packages().all();
    ExportSession session = m_context->makeSession();
    ProcessResult result = session.keep();
    for (const PackageInfoPtr &package : packages)
        if (!change.keepsPlace(*package))
            session.mayLeave(path() + fileInRepository(*package));
    // Without the field that asks for them, the tracks of the packages would make every later run fail.
    if (result.succeeded()
        && Distributions::losesField(QString::fromLocal8Bit(text), QStringLiteral("Tracking")))
        result = session.dropTracks(change.before.codename);
    if (result.succeeded())
        result = carryOver(change, text, &session);
    *details = result.errorOutput;
    setRepository(path(), change.after);
    if (!result.succeeded())
        return false;
    if (const DistributionsFile file(path()); !file.write(change.after)) {
        *details = tr("Impossible to create file %1!").arg(file.fileName());
        return false;
    }
    m_context->renewAdmission();
    if (!takeOutVanished(change, &session, details))
        return false;
    removeVanishedIndices(path(), change.before, change.after);
    // Whoever finds the repository like this has to go on with the change rather than to undo it.
    DatabaseCopy::setDescriptionDone(path());
    const bool exported = exportOrGiveUpSigning(change.after, &session);
    *details = lastErrorOutput();
    if (exported)
        keepSignatures(change, packages);
    return exported;
}

ProcessResult RepoShell::carryOver(const RepoChange &change, const QByteArray &text, ExportSession *session)
{
    const QByteArray bridge = change.bridge(text);
    const QString &from = change.before.codename;
    const QString &to = change.after.codename;
    ProcessResult result;
    result.started = true;
    if (change.isRenaming() && change.carries) {
        result = session->changeUnder(bridge, ReproCommand::copyAll(from, to));
        // The old ones are dropped next, so nobody's word is taken for it.
        const auto listed = [&](const QString &codename) {
            if (result.succeeded())
                result = session->changeUnder(bridge, ReproCommand::listAllFiles(codename));
            const QStringList lines = result.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            return QSet<QString>(lines.cbegin(), lines.cend());
        };
        const QSet<QString> missing = listed(from) - listed(to);
        if (result.succeeded() && !missing.isEmpty()) {
            result.exitCode = EXIT_FAILURE;
            result.errorOutput
                = tr("%n package(s) did not arrive under the new code name.", nullptr, missing.size());
        }
    }
    const QStringList flooded = change.floodedArchitectures(m_context->packages().all());
    for (const QString &architecture : flooded)
        if (result.succeeded())
            result = session->changeUnder(bridge, ReproCommand::flood(to, architecture));
    return result;
}

void RepoShell::keepSignatures(const RepoChange &change, const QList<PackageInfoPtr> &packages)
{
    QList<PackageInfoPtr> staying;
    const QStringList flooded = change.floodedArchitectures(packages);
    for (const PackageInfoPtr &package : packages) {
        if (change.keepsPlace(*package))
            staying.append(package);
        if (!package->isSigned() || package->ownArchitecture() != QLatin1String("all"))
            continue;
        for (const QString &architecture : flooded) {
            const auto copy = QSharedPointer<PackageInfo>::create(*package);
            copy->architecture = architecture;
            SignatureRecord::remember(m_context.get(), *copy);
            staying.append(copy);
        }
    }
    SignatureRecord::forgetOthers(m_context.get(), staying);
}

bool RepoShell::takeOutVanished(const RepoChange &change, ExportSession *session, QString *details)
{
    ProcessResult result = session->clearVanished(ExportSession::OnlyEmpty);
    QStringList unexplained;
    const RepoInfo &before = change.before;
    // What was carried over stands for a moment in all places that there were.
    const QStringList codenames{before.codename, change.after.codename};
    const QStringList filled = ReproAnswer::vanishedParts(result.output + result.errorOutput);
    for (const QString &part : filled) {
        // CODENAME|COMPONENT|ARCHITECTURE, of .udeb files with u| in front
        const QStringList words
            = part.split(QLatin1Char('|')).mid(part.startsWith(QLatin1String("u|")) ? 1 : 0);
        if (!codenames.contains(words.value(0)) || !before.componentList().contains(words.value(1))
            || !before.architectureList().contains(words.value(2)))
            unexplained << part;
    }
    if (!unexplained.isEmpty()) {
        *details = tr("The repository holds packages in places that its description does not name: %1. The "
                      "change would delete them.")
                       .arg(unexplained.join(QLatin1String(", ")));
        return false;
    }
    if (result.succeeded())
        result = session->clearVanished(ExportSession::WithPackages);
    *details = result.errorOutput;
    return result.succeeded();
}

bool RepoShell::exportOrGiveUpSigning(RepoInfo info, ExportSession *session)
{
    const ProcessResult result = session->finish();
    if (!ReproAnswer::signingFailed(result.errorOutput))
        // Any other failure leaves the new description in force, and the marker that indices are owed.
        return !session->isDamaged();
    Q_EMIT critical(tr("Failed to sign repository!"), result.errorOutput, CRITICAL);
    info.signWith = false;
    setRepository(path(), info);
    writeRepoInfo(info);
    return session->finish().succeeded();
}
