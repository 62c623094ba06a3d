// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recovery/sessionend.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobcontext.h"
#include "engine/recovery/jobrecovery.h"
#include "engine/reprepro/repreproanswers.h"

#include <QScopeGuard>

bool SessionEnd::end(JobContext &context, ExportSession *session)
{
    const auto unlocked = qScopeGuard([&context] { context.lock.release(); });
    // A stop has ended the waiting for the lock, but the indices are still to be written.
    if (context.control.isCanceled())
        context.control.setLockedOut(false);
    JobRecovery recovery(context);
    // Nothing may be written from a database that may have lost packages.
    if (session->isDisturbed() && recovery.undoJob())
        return false;
    const ProcessResult result = session->finish();
    if ((session->isDisturbed() || session->isDamaged()) && recovery.undoJob())
        return false;
    if (session->isDisturbed() && result.succeeded())
        recovery.repair();
    if (session->isBegun()) {
        const QString trouble = session->commit(context.history.record(context.packages.all()));
        if (!trouble.isEmpty())
            context.errors.critical(tr("The change is done, but the history could not note it. It cannot be "
                                       "undone, and earlier states may lack its files."),
                                    trouble,
                                    RepoEnums::WARNING);
        // A further session of the job has a record of its own.
        context.history.begin(context.packages.all(), context.progress.startMessage());
    }
    // Reprepro has told already of a run that could not start or crashed.
    if (result.succeeded() || !result.started || result.crashed())
        return true;
    if (ReproAnswer::signingFailed(result.errorOutput))
        context.errors.critical(tr("Failed to sign repository!"), result.errorOutput);
    else
        context.errors.critical(
            tr("The indices of the repository could not be written. They will be written when the "
               "repository is opened the next time."),
            result.errorOutput);
    return true;
}
