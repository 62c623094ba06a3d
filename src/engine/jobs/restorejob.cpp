// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/restorejob.h"

#include "core/countof.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/changes/jobsession.h"
#include "engine/history/pointfiles.h"
#include "engine/history/pointrecord.h"
#include "engine/recovery/jobrecovery.h"
#include "engine/recovery/packagerefresh.h"
#include "engine/recovery/pointreturn.h"
#include "engine/recovery/sessionend.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/repositoryaccess.h"
#include "engine/reprepro/repolock.h"
#include "files/openfolder.h"

#include <QScopeGuard>

int RestoreJob::run(int point)
{
    JobFrame frame(m_context, tr("Going back to an earlier state"), JobFrame::Repository);
    const QString failed = tr("Repository not changed");
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, failed);
    if (!RepositoryAccess::mayWrite(m_context.path())) {
        m_context.errors.critical(tr("The repository could not go back to the earlier state."),
                                  tr("You may not write to this repository."));
        return frame.finish(ERROR, failed);
    }
    // From now on nobody deletes points.
    const auto unlocked = qScopeGuard([this] { m_context.lock.release(); });
    if (!m_context.lock.take(m_context.path())) {
        m_context.errors.critical(
            RepoLock::busyText(m_context.path()), QString(), RepoEnums::CRITICAL, RepoEnums::REPOSITORY_BUSY);
        return frame.finish(ERROR, failed);
    }
    ExportSession session = JobSession::begin(m_context);
    const ProcessResult kept = session.keep();
    if (!kept.succeeded()) {
        m_context.errors.runFailed(tr("The repository could not go back to the earlier state."),
                                   kept.errorOutput);
        return frame.finish(ERROR, failed);
    }
    // Not earlier: what another program does before the copy is made must not be taken for what this job finds.
    const QString folder = PointFiles(m_context.path()).folderOf(point);
    PointReturn state(m_context, point, folder);
    const ErrorCode found = find(folder, &state);
    if (found != SUCCESS) {
        SessionEnd::end(m_context, &session);
        return frame.finish(found, failed);
    }
    // What others have done since the list was read is a change of theirs, and no row of this job.
    PackageRefresh::takeOver(m_context);
    m_context.history.begin(m_context.packages.all(), m_context.progress.startMessage());
    m_context.history.setKind(RestorePoint::Return);
    const RepoInfo before = m_context.repository.info();
    QString details;
    if (!write(&session, &state, &details)) {
        m_context.repository.setInfo(before);
        JobRecovery(m_context).undoChange();
        m_context.errors.runFailed(tr("The repository could not go back to the earlier state."), details);
        return frame.finish(ERROR, failed);
    }
    if (m_context.repository.info() != before)
        Q_EMIT m_context.listener.repoInfoAdded();
    PackageRefresh::show(m_context, state.changedFiles());
    if (!SessionEnd::end(m_context, &session))
        return frame.finish(ERROR, failed);
    if (m_context.packages.count() == 0)
        Q_EMIT m_context.listener.requestForClearingStoredInformation();
    else
        Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    return frame.finish(SUCCESS, tr("The repository is as it was before restore point %1").arg(point));
}

RepoEnums::ErrorCode RestoreJob::find(const QString &folder, PointReturn *state)
{
    const auto text
        = OpenFolder::readFile(folder + QLatin1Char('/') + PointRecord::FileName, PointRecord::LargestRecord);
    const auto record = text ? PointRecord::fromJson(*text, PointRecord::WithoutChanges) : std::nullopt;
    if (folder.isEmpty() || !record || !record->isKept) {
        m_context.errors.critical(tr("The history does not keep the state before this change."),
                                  record ? record->reason : QString());
        return ERROR;
    }
    if (!state->read()) {
        m_context.errors.critical(tr("The state before this change cannot be read."), state->details());
        return ERROR;
    }
    const QStringList missing = state->findFiles();
    if (!missing.isEmpty()) {
        m_context.errors.critical(
            tr("The repository cannot go back: %n file(s) of the earlier state are missing or have been "
               "changed.",
               nullptr,
               countOf(missing)),
            missing.join(QLatin1Char('\n')));
        return ERROR;
    }
    return m_context.control.isCanceled() ? CANCEL : SUCCESS;
}

bool RestoreJob::write(ExportSession *session, PointReturn *state, QString *details)
{
    session->requireExport();
    if (!state->apply(session)) {
        *details = state->details();
        return false;
    }
    if (const auto info = DistributionsFile(m_context.path()).read())
        m_context.repository.setInfo(*info);
    state->removeVanished();
    const ProcessResult result = session->finish();
    *details = session->isDamaged() ? session->trouble() : result.errorOutput;
    return result.succeeded() && !session->isDisturbed();
}
