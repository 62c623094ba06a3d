// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/jobs/openjob.h"

#include "core/countof.h"
#include "engine/archive/unpackplace.h"
#include "engine/changes/jobframe.h"
#include "engine/changes/outsidechange.h"
#include "engine/changes/signaturerecord.h"
#include "engine/recovery/jobrecovery.h"
#include "engine/repository/distributions.h"
#include "engine/repository/distributionsfile.h"
#include "engine/repository/packagelisting.h"
#include "engine/repository/repositoryaccess.h"
#include "files/scratchfolder.h"
#include "signing/signedpackages.h"

int OpenJob::run(const QString &path)
{
    JobFrame frame(m_context, tr("Opening repository"), JobFrame::Repository);
    const QString reason = RepositoryAccess::refusal(path);
    if (!reason.isEmpty()) {
        m_context.errors.critical(tr("The repository %1 cannot be opened.").arg(path), reason);
        return frame.finish(ERROR, tr("Repositry is not opened"));
    }
    JobRecovery recovery(m_context);
    recovery.begin(path);
    if (!readInfo(path)) {
        const bool import = m_context.control.ask(
            QString(),
            tr("File %1/conf/distributions not found! Do you want to import repository?").arg(path),
            false);
        if (!import)
            return frame.finish(ERROR, tr("File %1/conf/distributions not found!").arg(path));
        Q_EMIT m_context.listener.needImportRepo();
        return frame.finish(ERROR, QString());
    }
    if (m_context.repository.info().codename.isEmpty()) {
        m_context.errors.critical(
            tr("File %1/conf/distributions names no distribution: its field Codename is missing or empty.")
                .arg(path));
        return frame.finish(ERROR, tr("Repositry is not opened"));
    }
    m_context.repository.set(path, m_context.repository.info());
    m_context.repository.setWritable(RepositoryAccess::mayWrite(path));
    const QStringList unpacked = UnpackPlace::besideRepository(path);
    for (const QString &folder : unpacked)
        ScratchFolder::removeLeftovers(folder);
    Q_EMIT m_context.listener.pathChanged(QString());
    Q_EMIT m_context.listener.requestForStoredInformation(path);
    const bool isRecovered = recovery.run();
    if (recovery.isPutBack())
        readInfo(path);
    readPackages(path, isRecovered);
    OutsideChange::note(m_context);
    if (!publishPackages()) {
        close(m_context);
        return frame.finish(CANCEL, tr("Repositry is not opened"));
    }
    return frame.finish(SUCCESS, tr("Repositry is opened"));
}

void OpenJob::close(JobContext &context)
{
    context.packages.clear();
    context.repository.set(QString(), {});
    Q_EMIT context.listener.pathChanged(QString());
    Q_EMIT context.listener.needCloseRepo();
}

bool OpenJob::readInfo(const QString &path)
{
    const auto info = DistributionsFile(path).read();
    if (!info)
        return false;
    m_context.repository.setInfo(*info);
    Q_EMIT m_context.listener.repoInfoAdded();
    return true;
}

void OpenJob::readPackages(const QString &path, bool isRecovered)
{
    QList<PackageInfoPtr> packages = listPackages(path, m_context.repository.info());
    sortPackages(&packages);
    // Where the listing may be incomplete, a package that it lacks can be there all the same.
    const auto description = DistributionsFile(path).readBytes();
    if (isRecovered && !packages.isEmpty() && description
        && Distributions::unreadLine(QString::fromUtf8(*description)).isEmpty())
        SignatureRecord::forgetOthers(&m_context, packages);
    SignedPackages(SignedPackages::packagesConfPath(path)).mark(&packages);
    m_context.packages.assign(packages);
    // The answer puts records with stored results into the list.
    Q_EMIT m_context.listener.requestForMergingInformation(packages);
}

bool OpenJob::publishPackages()
{
    const QList<PackageInfoPtr> packages = m_context.packages.all();
    if (!packages.isEmpty())
        m_context.progress.setRange(countOf(packages));
    for (const PackageInfoPtr &package : packages) {
        if (m_context.control.isCanceled())
            return false;
        m_context.progress.count();
        Q_EMIT m_context.listener.packageAdded(package);
    }
    return true;
}
