// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/changejob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/changes/jobsession.h"
#include "engine/history/runningpoint.h"
#include "engine/jobs/descriptionchange.h"
#include "engine/jobs/openjob.h"
#include "engine/jobs/repositorymove.h"
#include "engine/recovery/jobrecovery.h"
#include "engine/repository/changerules.h"
#include "engine/repository/descriptionfields.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"

#include <QSet>

namespace
{
/** The path of the file below its repository, which can have moved. */
QString fileInRepository(const PackageInfo &package)
{
    return package.filePath().mid(package.root.size());
}

/** The packages of `before` whose files are gone. One record for each file. */
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

int ChangeJob::run(const Wish &wish)
{
    JobFrame frame(m_context, tr("Repository changing"), JobFrame::Repository);
    Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    const QString oldPath = m_context.path();
    const DistributionsFile file(oldPath);
    const auto text = file.readBytes();
    if (!text)
        m_context.errors.critical(tr("Failed to change repository!"),
                                  tr("File %1/conf/distributions not found!").arg(oldPath));
    RepositoryMove move(m_context, wish.path);
    if (!text || !JobPreconditions::mayChange(m_context) || !isPossible(*text, wish.given, wish.info)
        || !move.isPossible())
        return frame.finish(ERROR, tr("Repository not changed"));
    if (!userAgreesToLosses(*text, wish))
        return frame.finish(CANCEL, tr("Repository not changed"));
    // Another program may have edited the file since it was opened.
    const RepoInfo oldInfo = file.parsed(*text);
    m_context.repository.set(oldPath, oldInfo);
    if (!keepForUndoing(*text, wish.info))
        return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
    const ErrorCode moved = move.isNeeded() ? move.run(&frame) : SUCCESS;
    if (moved != SUCCESS) {
        RunningPoint::drop(oldPath);
        return frame.finish(moved, tr("Repository not changed"));
    }

    // Until the indices are those of the description again, the next opening has to write them.
    ExportSession::setMarker(wish.path);
    const RepoChange change{oldInfo, wish.info, wish.carriesPackages};
    const QList<PackageInfoPtr> packages = m_context.packages.all();
    ExportSession session = JobSession::begin(m_context);
    DescriptionChange description(m_context, session, change, *text);
    if (description.run()) {
        description.commit();
        move.removeOriginal();
        Q_EMIT m_context.listener.pathChanged(wish.path);
        // A stop during the change came too late, and must not stop the opening.
        m_context.control.goOn();
        // After an opening that was stopped the list does not say what is left.
        if (OpenJob(m_context).run(wish.path) == SUCCESS)
            tellOfGone(change, packages);
        return frame.finish(SUCCESS, tr("Repository is changed."), CHANGE_REPO_JOB);
    }
    // Back to where we were, so that "not changed" is true.
    m_context.repository.set(wish.path, oldInfo);
    if (move.isCopied())
        RunningPoint::drop(oldPath);
    else
        JobRecovery(m_context).undoChange();
    move.undo();
    m_context.errors.critical(tr("Failed to change repository!"), description.details(), CRITICAL);
    if (m_context.path() != oldPath)
        Q_EMIT m_context.listener.pathChanged(wish.path);
    return frame.finish(ERROR, tr("Repository is not changed."), CHANGE_REPO_JOB);
}

void ChangeJob::tellOfGone(const RepoChange &change, const QList<PackageInfoPtr> &before)
{
    // Indices that could not be written do not list the packages that are left.
    const QList<PackageInfoPtr> lost = ExportSession::isExportOwed(m_context.path())
                                           ? change.lost(before)
                                           : gone(before, m_context.packages.all());
    if (change.isRenaming() && change.carries && !before.isEmpty())
        Q_EMIT m_context.listener.noted(
            tr("The packages were carried over to the code name %1.").arg(change.after.codename));
    if (lost.isEmpty())
        return;
    QStringList names;
    for (const PackageInfoPtr &package : lost)
        names.append(displayFileName(*package));
    Q_EMIT m_context.listener.noted(
        tr("%n package(s) deleted: %1", nullptr, countOf(lost)).arg(names.join(QLatin1String(", "))));
}

bool ChangeJob::keepForUndoing(const QByteArray &text, const RepoInfo &wanted)
{
    const QString repoPath = m_context.path();
    const ProcessResult kept = JobSession::begin(m_context).keep();
    if (kept.succeeded()
        && RunningPoint::setChangesDescription(repoPath, text, Distributions::text(wanted).toUtf8()))
        return true;
    QString details = kept.errorOutput;
    if (kept.succeeded()) {
        details = tr("No copy of the description can be kept in %1.").arg(repoPath + QLatin1String("/db"));
        RunningPoint::drop(repoPath);
    }
    m_context.errors.runFailed(tr("Failed to change repository!"), details);
    return false;
}

bool ChangeJob::isPossible(const QByteArray &text,
                           const std::optional<QByteArray> &given,
                           const RepoInfo &after)
{
    if (!isUnderstood(text, given))
        return false;
    const RepoInfo before = DistributionsFile(m_context.path()).parsed(text);
    QString refusal = DescriptionFields::refusal(after, before);
    if (refusal.isEmpty())
        refusal = DescriptionFields::keyRefusal(after, before);
    if (!refusal.isEmpty())
        m_context.errors.critical(tr("Failed to change repository!"), refusal);
    return refusal.isEmpty();
}

bool ChangeJob::isUnderstood(const QByteArray &text, const std::optional<QByteArray> &given)
{
    const QString fileName = DistributionsFile(m_context.path()).fileName();
    if (given && *given != text) {
        m_context.errors.critical(tr("The description of the repository has been changed by another program "
                                     "meanwhile, so nothing was done. Look at it and try again."),
                                  fileName);
        return false;
    }
    const QString description = QString::fromUtf8(text);
    if (Distributions::distributionCount(description) > 1) {
        m_context.errors.critical(
            tr("The repository holds several distributions. A change would delete all but the first, so "
               "nothing was done."),
            fileName);
        return false;
    }
    const QString unread = Distributions::unreadLine(description);
    if (!unread.isEmpty()) {
        m_context.errors.critical(
            tr("The description of the repository is written in a way that this program does not "
               "read fully. A change could delete packages, so nothing was done."),
            QStringLiteral("%1\n%2").arg(fileName, unread));
        return false;
    }
    return true;
}

bool ChangeJob::userAgreesToLosses(const QByteArray &text, const Wish &wish)
{
    constexpr int MostLines = 12;
    constexpr int MostCharacters = 100;
    const QString description = QString::fromUtf8(text);
    const QStringList lost = Distributions::lostLines(description, wish.info);
    if (lost.isEmpty() || wish.knowsLosses)
        return true;
    QStringList lines;
    for (const QString &line : lost.mid(0, MostLines))
        lines << (line.size() > MostCharacters ? line.left(MostCharacters) + QChar(0x2026) : line);
    if (lost.size() > MostLines)
        lines << QString(QChar(0x2026));
    QString question
        = tr("The change writes the description of the repository anew, without these lines:\n\n"
             "%1\n\n"
             "The file with them is kept as %2.")
              .arg(lines.join(QLatin1Char('\n')),
                   wish.path + QLatin1String("/conf/") + DistributionsFile(m_context.path()).keptAs(text));
    if (Distributions::losesField(description, wish.info, DistributionField::SignWith)) {
        const QString signing
            = !wish.info.signWith
                  ? tr("The repository will no longer be signed, so that clients may refuse it.")
              : wish.info.signKey.isEmpty()
                  ? tr("The repository will be signed with the default key instead.")
                  : tr("The repository will be signed with the key %1 instead.").arg(wish.info.signKey);
        question += QLatin1Char(' ') + signing;
    }
    return m_context.control.ask(
        tr("Repository change"), question + QLatin1Char(' ') + tr("Want to continue?"), false);
}
