// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/changes/jobsession.h"

#include "engine/changes/jobcontext.h"
#include "engine/reprepro/repolock.h"

ExportSession JobSession::begin(JobContext &context, Kind kind)
{
    const auto run = [&context](const QString &arguments, const QStringList &environment) {
        return context.reprepro.run(arguments, environment);
    };
    const auto lock = [&context] {
        const bool isLocked = context.lock.take(context.path());
        if (!isLocked && !context.control.isLockedOut()) {
            context.control.setLockedOut(true);
            context.errors.critical(RepoLock::busyText(context.path()),
                                    QString(),
                                    RepoEnums::CRITICAL,
                                    RepoEnums::REPOSITORY_BUSY);
        }
        return isLocked;
    };
    SessionPoint::Tools point;
    point.lock = lock;
    point.limits = [&context] { return context.choices.historyLimits(); };
    point.areIndicesOwed = [&context] { return ExportSession::isExportOwed(context.path()); };
    if (kind == RoomMaking)
        point.mayCopyToMemory = [&context] { return agreesToCopyInMemory(context); };
    else
        point.mayGoOnWithoutPoint = [&context] { return agreesToLackOfPoint(context); };
    const auto configFolder = [&context] { return context.gate.admit(context.path()).configFolder(); };
    return ExportSession(context.path(), {run, configFolder, point});
}

bool JobSession::agreesToLackOfPoint(JobContext &context)
{
    return context.control.ask(
        tr("Disk is full"),
        tr("There is too little room on the disk of the repository for a restore point, so that this change "
           "could not be undone later. The copy of the database that every change needs would lie on "
           "another disk meanwhile. Do you want to go on without a restore point?"),
        false,
        QuestionKind::GiveUp);
}

bool JobSession::agreesToCopyInMemory(JobContext &context)
{
    return context.control.ask(
        tr("Disk is full"),
        tr("There is too little room on the disk of the repository for a copy of its database, which is "
           "kept as long as a job changes it, and there is none on another disk. The copy can be kept in "
           "memory: the repository may be damaged if the power fails or the system is shut down before "
           "the job ends. Do you want to go on?"),
        false);
}
