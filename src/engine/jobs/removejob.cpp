// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/removejob.h"

#include "core/countof.h"
#include "engine/changes/exportsession.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/jobpreconditions.h"
#include "engine/changes/jobsession.h"
#include "engine/changes/packageremoval.h"
#include "engine/recovery/sessionend.h"
#include "engine/reprepro/configfolder.h"
#include "engine/reprepro/leanenvironment.h"
#include "engine/reprepro/repolock.h"
#include "engine/reprepro/repreprocommands.h"
#include "engine/reprepro/reprolisting.h"

#include <QHash>

#include <algorithm>

namespace
{
/** A stop waits for the end of a run, which takes less than a second for so many. */
constexpr int PackagesInARun = 2000;

/** Where reprepro knows no more than one package of a type. */
QString placeOf(const QString &component, const QString &architecture, const QString &name, PackageType type)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(QString::number(static_cast<int>(type)), component, architecture, name);
}
} // namespace

int RemoveJob::run(const QList<PackageInfoPtr> &wanted, const Choice &choice)
{
    JobFrame frame(m_context, wanted.size() == 1 ? tr("Removing package") : tr("Removing packages"));
    if (!JobPreconditions::mayChange(m_context))
        return frame.finish(ERROR, tr("%n packages removed: %1", nullptr, 0).arg(QString()));
    const auto present = this->present(wanted);
    if (choice && !present) {
        tellUnread();
        return frame.finish(ERROR, tr("%n packages removed: %1", nullptr, 0).arg(QString()));
    }
    QList<PackageInfoPtr> packages = present ? withoutReplaced(wanted, *present) : wanted;
    if (choice)
        packages = choice(packages);
    ExportSession session = JobSession::begin(m_context, JobSession::RoomMaking);
    PackageRemoval removal(m_context, &session);
    if (present)
        removal.setPresent(*present);
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
            frame.itemDone(countOf(packages));
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
            tr("Operation stopped. %1 of %n packages(s) removed: %2", nullptr, countOf(packages))
                .arg(QString::number(removed.size()), removed.join(QLatin1String(", "))));
    return frame.finish(
        SUCCESS,
        tr("%n packages removed: %1", nullptr, countOf(removed)).arg(removed.join(QLatin1String(", "))));
}

std::optional<QVector<ReproListing::Package>> RemoveJob::present(const QList<PackageInfoPtr> &packages)
{
    // Where another job still runs, or the database cannot be read, the session tells of it and removes nothing.
    if (packages.isEmpty() || !m_context.lock.take(m_context.path()))
        return std::nullopt;
    constexpr int MostNamed = 20;
    const QString codename = m_context.repository.info().codename;
    const QString component = packages.first()->indexComponent;
    QStringList names;
    for (const PackageInfoPtr &package : packages.mid(0, MostNamed))
        names.append(package->name);
    const bool areNamed
        = packages.size() <= MostNamed
          && std::all_of(packages.cbegin(), packages.cend(), [&component](const PackageInfoPtr &package) {
                 return package->indexComponent == component;
             });
    const LeanEnvironment lean;
    const bool isEnough = !ConfigFolder(m_context.gate.admit(m_context.path()).configFolder()).runsPrograms();
    const ProcessResult listed
        = m_context.reprepro.run(areNamed ? ReproCommand::listPackages(codename, names, component)
                                          : ReproCommand::listAllFiles(codename),
                                 isEnough ? lean.variables() : QStringList());
    if (!listed.succeeded())
        return std::nullopt;
    return ReproListing::packages(listed.output);
}

void RemoveJob::tellUnread()
{
    if (m_context.lock.take(m_context.path())) {
        m_context.errors.critical(
            tr("The database of the repository cannot be read, so nothing was removed."),
            m_context.reprepro.lastResult().errorOutput);
        return;
    }
    m_context.control.setLockedOut(true);
    m_context.errors.critical(
        RepoLock::busyText(m_context.path()), QString(), RepoEnums::CRITICAL, RepoEnums::REPOSITORY_BUSY);
}

QList<PackageInfoPtr> RemoveJob::withoutReplaced(const QList<PackageInfoPtr> &packages,
                                                 const QVector<ReproListing::Package> &present)
{
    // reprepro removes by name, and another program may have brought another version since the packages were read.
    QHash<QString, QString> files;
    for (const ReproListing::Package &package : present)
        files.insert(placeOf(package.component, package.architecture, package.name, package.type()),
                     m_context.path() + QLatin1Char('/') + package.file);
    QList<PackageInfoPtr> same;
    for (const PackageInfoPtr &package : packages) {
        const QString file = files.value(
            placeOf(package->indexComponent, package->architecture, package->name, package->type));
        if (file.isEmpty() || file == package->filePath())
            same.append(package);
        else
            m_context.errors.critical(tr("%1 was not removed: the repository holds another version by now.")
                                          .arg(displayFileName(*package)),
                                      file);
    }
    return same;
}
