// SPDX-License-Identifier: GPL-3.0-or-later
// Adding, fetching, removing and signing packages.
#include "engine/changes/jobcontext.h"
#include "engine/jobs/addjob.h"
#include "engine/jobs/downloadjob.h"
#include "engine/jobs/removejob.h"
#include "engine/jobs/signjob.h"
#include "engine/reposhell.h"

void RepoShell::addPackages(const QStringList &files, const AddOptions &options)
{
    if (!files.isEmpty() && !path().isEmpty())
        startJob([this, files, options] { return AddJob(*m_context).run(files, options); });
}

void RepoShell::downloadPackages(const QList<PackageInfo> &packages, const AddOptions &options)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, options] { return DownloadJob(*m_context, options).download(packages); });
}

void RepoShell::addDependencies(const QVector<Dependency> &dependencies, const AddOptions &options)
{
    if (!dependencies.isEmpty() && !path().isEmpty())
        startJob([this, dependencies, options] {
            return DownloadJob(*m_context, options).addDependencies(dependencies);
        });
}

void RepoShell::removePackages(const QList<PackageInfoPtr> &packages)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages] { return RemoveJob(*m_context).run(packages); });
}

void RepoShell::signPackages(const QList<PackageInfoPtr> &packages, const QString &keyId)
{
    if (!packages.isEmpty() && !path().isEmpty())
        startJob([this, packages, keyId] { return SignJob(*m_context).run(packages, keyId); });
}
