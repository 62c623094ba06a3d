// SPDX-License-Identifier: GPL-3.0-or-later
// Export to archives, import from archives and folders.
#include "engine/changes/jobcontext.h"
#include "engine/jobs/exportjob.h"
#include "engine/jobs/importjob.h"
#include "engine/reposhell.h"
#include "files/scratchfolder.h"

#include <QDir>

namespace
{
QString absolute(const QString &path)
{
    return QDir::cleanPath(QDir(path).absolutePath());
}
} // namespace

void RepoShell::exportRepo(const QString &target)
{
    if (!target.isEmpty() && !path().isEmpty())
        startJob([this, target = absolute(target)] { return ExportJob(*m_context, target).exportRepo(); });
}

void RepoShell::exportPackages(const QList<PackageInfoPtr> &packages, const QString &target, bool withDepends)
{
    if (!packages.isEmpty() && !target.isEmpty() && !path().isEmpty())
        startJob([this, packages, target = absolute(target), withDepends] {
            return ExportJob(*m_context, target).exportPackages(packages, withDepends);
        });
}

void RepoShell::importRepo(const QString &archive, const AddOptions &options)
{
    if (!archive.isEmpty() && !path().isEmpty())
        startJob([this, archive = absolute(archive), options] {
            return ImportJob(*m_context, m_tempDir).run(archive, options);
        });
}

void RepoShell::removeTempDir()
{
    if (!isRunning())
        m_tempDir.reset();
}
