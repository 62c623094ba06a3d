// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/removejob.h"

#include "engine/changes/exportsession.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/changes/jobsession.h"
#include "engine/changes/packageremoval.h"
#include "engine/recovery/sessionend.h"

namespace
{
/** A stop waits for the end of a run, which takes less than a second for so many. */
constexpr int PackagesInARun = 2000;
} // namespace

int RemoveJob::run(const QList<PackageInfoPtr> &packages)
{
    JobFrame frame(m_context, packages.size() == 1 ? tr("Removing package") : tr("Removing packages"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("%n packages removed: %1", nullptr, 0).arg(QString()));
    ExportSession session = JobSession::begin(m_context, JobSession::RoomMaking);
    PackageRemoval removal(m_context, &session);
    if (packages.size() > PackagesInARun)
        session.startSilently();
    QStringList removed;
    bool stopped = false;
    bool isComplete = true;
    int done = 0;
    while (done < packages.size() && !stopped && !session.isDamaged()) {
        stopped = m_context.control.mustEnd() || session.isRefused();
        if (stopped)
            break;
        const auto next = packages.mid(done, PackagesInARun);
        if (next.size() > 1)
            removal.removeTogether(next);
        for (const PackageInfoPtr &package : next) {
            ++done;
            // Packages that are out already are reported, also after a stop.
            stopped = stopped || m_context.control.mustEnd();
            const bool isLeft = stopped && !removal.isOut(*package);
            isComplete = isComplete && !isLeft;
            if (session.isDamaged() || isLeft)
                continue;
            if (removal.remove(package))
                removed.append(displayFileName(*package));
            // The first package has told of a refusal.
            stopped = stopped || session.isRefused();
            frame.itemDone(packages.size());
        }
    }
    if (!SessionEnd::end(m_context, &session))
        removed.clear();
    // A list that was empty from the start may be one that could not be read.
    if (m_context.packages.count() == 0 && !removed.isEmpty())
        Q_EMIT m_context.listener.requestForClearingStoredInformation();
    else
        Q_EMIT m_context.listener.requestForSavingPackages(m_context.packages.all());
    // A stop that came after the last package has stopped nothing.
    if (stopped && (!isComplete || done < packages.size()))
        return frame.finish(
            CANCEL,
            tr("Operation stopped. %1 of %n packages(s) removed: %2", nullptr, packages.size())
                .arg(QString::number(removed.size()), removed.join(QLatin1String(", "))));
    return frame.finish(
        SUCCESS,
        tr("%n packages removed: %1", nullptr, removed.size()).arg(removed.join(QLatin1String(", "))));
}
